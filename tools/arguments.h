// The argument line of a user tool: its $(...) macros, replaced by facts about the
// active document and the program.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zol {

struct Document;

// What the macros stand for. Without a document (or for one without a file) the
// document's macros are empty.
struct ArgumentFacts {
    std::string filePath;  // the active document's file, absolute
    std::string line;      // the cursor's line from 1, "%ld"
    std::string column;    // the cursor's column from 1, "%d"
    std::string word;      // the word at the cursor
    std::string curDir;    // the editor's current folder
    std::string progDir;   // the Zolder home, ending in "/"
};

ArgumentFacts argumentFacts(const Document* doc);

// Replaces every macro of line, its name compared without regard to case; a "$" that
// starts no macro stays as written. Path macros are quoted for the argument splitter
// (single quotes) as quoteMode says: where a blank, quote or backslash would not let
// them through as one word (kQuoteWithBlanks), never, or always; "$(CurDir)" only
// where it needs it, in modes 0 and 2. Nothing when the line, a macro's value or the
// result is longer than toolmsg::kArgumentLineMax.
std::optional<std::string> expandArguments(std::string_view line, const ArgumentFacts& facts, int quoteMode);

// A folder or program path with "$(ProgDir)" at its start replaced, unquoted.
std::string expandProgDir(std::string_view path, const ArgumentFacts& facts);

// text in single quotes, as the argument splitter takes it back: every character as it
// stands, a single quote inside written '\''.
std::string quoteArgument(std::string_view text);

}  // namespace zol
