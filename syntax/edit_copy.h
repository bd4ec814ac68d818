// The editing copy of "syntax.hgl" that the definition dialog works on, and writing it
// back. Each field keeps what its dialog control holds: one character less than the
// buffer of its key (syntax/hgl_keys.h), or of kEditNameSize for the name.
#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "syntax/definition.h"
#include "syntax/table.h"

namespace zol {

constexpr size_t kEditNameSize = 64;

struct SyntaxEditLanguage {
    std::string name;                   // section name, < kEditNameSize characters
    std::string pattern;                // "FilePattern", or the converted "Extensions"
    bool caseSensitive = false, unixTexKeywords = false, fortranComment = false, lineNumbers = false, cobol = false;
    int16_t cobolCommentPos = 0, maxLineLen = 0;
    char cobolCommentChar = 0, firstComment = 0, stringDelim = 0, charDelim = 0, quoteChar = 0, preprocess = 0;
    std::string multiComment;           // as typed, e.g. "/* */"
    std::string lineComment1, lineComment2;  // blanks as blanks
    std::string openCloseDelim, delimiters, operators, words, numbers, html;
    std::array<std::string, kMaxKeywordLen + 1> keywords;  // [n]: length a multiple of n
    std::array<int, kColourSlots + 1> colour = defaultColours<int>();
};

// Up to kSyntaxSlots languages of the file, in order.
std::vector<SyntaxEditLanguage> readEditCopy(const std::string& path);
// Deletes every section of the file, writes the languages in order, then reloads the
// table from the file. False (the table untouched) when the file could not be written.
bool saveDefinitions(SyntaxHighlightTable& table, const std::string& path, const std::vector<SyntaxEditLanguage>& langs);

// The definition the language loads as once saved: written and read back by the same
// rules as the file, without touching it.
SyntaxHighlight definitionOf(const SyntaxEditLanguage& lang);

// Adds a keyword to its length group; tells the user and refuses when the group is full
// (or the word is empty or longer than kMaxKeywordLen).
bool addKeyword(SyntaxEditLanguage& lang, std::string_view word);
// Adds an empty language; tells the user and refuses when the name is taken (without
// regard to case) or every slot is used.
bool addLanguage(std::vector<SyntaxEditLanguage>& langs, std::string_view name);
// Whether one more language fits; tells the user when every slot is used.
bool roomForLanguage(const std::vector<SyntaxEditLanguage>& langs);

}  // namespace zol
