// Every text the user sees from the language services, with the capacities they report.
#pragma once
#include <string>
#include <string_view>

#include "syntax/definition.h"
#include "syntax/table.h"

namespace zol::syntaxmsg {

// The editing copy of the definitions holds at most kSyntaxSlots languages; a keyword
// list of one length keeps at most kKeywordListSize - 1 characters.
inline constexpr size_t kKeywordListSize = hglKey(HglKey::Keyword).buffer;
inline constexpr char kTooManyKeywords[] = "Defined too many keywords with %d character length.";
inline constexpr char kLanguageExists[] = "Syntax higlight table %s already exists.";
inline constexpr char kTooManyLanguages[] = "No more than 20 languages can be defined.";

// Opening the file named at the cursor and the include files of a C file.
inline constexpr char kNoFileName[] = "There is no file name at the cursor.";
inline constexpr char kFileNotFound[] = "Cannot find file %s.";
inline constexpr char kNoIncludes[] = "There are no include files in this document.";
inline constexpr char kIncludesNotFound[] = "Cannot find these include files: %s.";

// The text with its one "%s" or "%d" replaced by value.
inline std::string fill(std::string_view text, std::string_view value) {
    size_t at = text.find("%s");
    if (at == std::string_view::npos) at = text.find("%d");
    if (at == std::string_view::npos) return std::string(text);
    std::string out;
    out.reserve(text.size() + value.size());
    out.append(text.substr(0, at)).append(value).append(text.substr(at + 2));
    return out;
}

}  // namespace zol::syntaxmsg
