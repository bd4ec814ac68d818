// Small text helpers shared by the proofing files' parsers.
#pragma once
#include <string_view>

#include "engine/text_util.h"

namespace zol::prooftext {

// Without blanks, tabs and a carriage return at either end.
inline std::string_view trim(std::string_view s) {
    auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
    while (!s.empty() && blank(s.front())) s.remove_prefix(1);
    while (!s.empty() && blank(s.back())) s.remove_suffix(1);
    return s;
}

inline bool endsWithNoCase(std::string_view s, std::string_view tail) {
    return s.size() >= tail.size() && equalsNoCase(s.substr(s.size() - tail.size()), tail);
}

}  // namespace zol::prooftext
