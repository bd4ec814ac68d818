// Small byte-string helpers shared by the engine and the layers above it.
#pragma once
#include <string>
#include <string_view>

namespace zol {

// ASCII case folding; bytes above 127 are left alone.
inline char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
inline char asciiUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

inline bool equalsNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (asciiLower(a[i]) != asciiLower(b[i])) return false;
    return true;
}

inline bool isBlank(char c) { return c == ' ' || c == '\t'; }

}  // namespace zol
