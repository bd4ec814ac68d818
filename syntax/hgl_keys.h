// The keys of a language definition in "syntax.hgl", one row each, in the order the
// saver writes them. The loader reads them by these rows too, in the order in which
// their effects must apply (syntax/hgl_load.cpp); the capacities of a definition and of
// its editing copy come from the buffer column.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace zol {

enum class HglKind : uint8_t {
    Text,         // as it stands
    Pair,         // two words, openers and closers ("/* */"); as it stands
    Extensions,   // read only when "FilePattern" is empty, never written
    YesNo,        // true only for "yes" or "1"; written "yes" or "No"
    Number,       // 16-bit; written "%hd"
    Char,         // the first character, none when empty; written as one character
    LineComment,  // a byte 0xA0 in the file stands for a blank
    Keywords,     // "Keyword%d": one key for each keyword length
    Colour,       // a palette index; written "%d"
};

// KEY(id, key, kind, default, buffer, field of the editing copy)
// default: what a missing or unreadable number gives. buffer: what a definition or its
// editing copy keeps of the value, buffer - 1 characters; 0 where a decoded value is
// kept.
#define ZOL_HGL_KEYS(KEY)                                                                   \
    KEY(FilePattern,      "FilePattern",      Text,        0, 64,  pattern)                 \
    KEY(Extensions,       "Extensions",       Extensions,  0, 0,   pattern)                 \
    KEY(CaseSensitive,    "CaseSensitive",    YesNo,       0, 0,   caseSensitive)           \
    KEY(UnixTexKeywords,  "UnixTexKeywords",  YesNo,       0, 0,   unixTexKeywords)         \
    KEY(FortranComment,   "FortranComment",   YesNo,       0, 0,   fortranComment)          \
    KEY(LineNumbers,      "LineNumbers",      YesNo,       0, 0,   lineNumbers)             \
    KEY(Cobol,            "Cobol",            YesNo,       0, 0,   cobol)                   \
    KEY(CobolCommentPos,  "CobolCommentPos",  Number,      0, 0,   cobolCommentPos)         \
    KEY(MaxLineLen,       "MaxLineLen",       Number,      0, 0,   maxLineLen)              \
    KEY(CobolCommentChar, "CobolCommentChar", Char,        0, 0,   cobolCommentChar)        \
    KEY(FirstComment,     "FirstComment",     Char,        0, 0,   firstComment)            \
    KEY(StringDelim,      "StringDelim",      Char,        0, 0,   stringDelim)             \
    KEY(CharDelim,        "CharDelim",        Char,        0, 0,   charDelim)               \
    KEY(QuoteChar,        "QuoteChar",        Char,        0, 0,   quoteChar)               \
    KEY(Preprocess,       "Preprocess",       Char,        0, 0,   preprocess)              \
    KEY(MultiComment,     "MultiComment",     Pair,        0, 8,   multiComment)            \
    KEY(LineComment1,     "LineComment1",     LineComment, 0, 5,   lineComment1)            \
    KEY(LineComment2,     "LineComment2",     LineComment, 0, 5,   lineComment2)            \
    KEY(OpenCloseDelim,   "OpenCloseDelim",   Pair,        0, 24,  openCloseDelim)          \
    KEY(Delimiters,       "Delimiters",       Text,        0, 24,  delimiters)              \
    KEY(Operators,        "Operators",        Text,        0, 24,  operators)               \
    KEY(Words,            "Words",            Text,        0, 24,  words)                   \
    KEY(Numbers,          "Numbers",          Text,        0, 24,  numbers)                 \
    KEY(HTML,             "HTML",             Text,        0, 24,  html)                    \
    KEY(Keyword,          "Keyword%d",        Keywords,    0, 512, keywords)                \
    KEY(ColorComment,     "ColorComment",     Colour,      0, 0,   colour[kColComment])     \
    KEY(ColorPreproc,     "ColorPreproc",     Colour,      0, 0,   colour[kColPreproc])     \
    KEY(ColorString,      "ColorString",      Colour,      0, 0,   colour[kColString])      \
    KEY(ColorNumber,      "ColorNumber",      Colour,      0, 0,   colour[kColNumber])      \
    KEY(ColorDelim,       "ColorDelim",       Colour,      0, 0,   colour[kColDelim])       \
    KEY(ColorOperator,    "ColorOperator",    Colour,      0, 0,   colour[kColOperator])    \
    KEY(ColorKeyword,     "ColorKeyword",     Colour,      0, 0,   colour[kColKeyword])     \
    KEY(ColorText,        "ColorText",        Colour,      0, 0,   colour[kColText])        \
    KEY(ColorBackground,  "ColorBackground",  Colour,      0, 0,   colour[kColBackground])  \
    KEY(ColorLineNumbers, "ColorLineNumbers", Colour,      8, 0,   colour[kColLineNumbers])

enum class HglKey : uint8_t {
#define ZOL_HGL_ID(id, key, kind, def, buffer, field) id,
    ZOL_HGL_KEYS(ZOL_HGL_ID)
#undef ZOL_HGL_ID
};

struct HglKeyInfo {
    const char* key;
    HglKind kind;
    int def;
    size_t buffer;
};

inline constexpr HglKeyInfo kHglKeys[] = {
#define ZOL_HGL_ROW(id, key, kind, def, buffer, field) {key, HglKind::kind, def, buffer},
    ZOL_HGL_KEYS(ZOL_HGL_ROW)
#undef ZOL_HGL_ROW
};

constexpr const HglKeyInfo& hglKey(HglKey k) { return kHglKeys[static_cast<size_t>(k)]; }

// The colour rows follow each other in slot order, slot 1 first.
constexpr int kHglColourKeys = static_cast<int>(HglKey::ColorLineNumbers) - static_cast<int>(HglKey::ColorComment) + 1;
constexpr HglKey colourKey(int slot) { return static_cast<HglKey>(static_cast<int>(HglKey::ColorComment) + slot - 1); }
// The default of each colour slot; index 0 unused, as in a definition.
template <class T = uint8_t>
constexpr std::array<T, kHglColourKeys + 1> defaultColours() {
    std::array<T, kHglColourKeys + 1> out{};
    for (int s = 1; s <= kHglColourKeys; ++s) out[static_cast<size_t>(s)] = static_cast<T>(hglKey(colourKey(s)).def);
    return out;
}

// The key of the keyword list of length n.
inline std::string keywordKey(int n) {
    std::string key = hglKey(HglKey::Keyword).key;
    return key.replace(key.find("%d"), 2, std::to_string(n));
}

}  // namespace zol
