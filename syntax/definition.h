// One language definition as loaded from a section of "syntax.hgl".
#pragma once
#include <array>
#include <cstdint>
#include <string>

#include "syntax/hgl_keys.h"

namespace zol {

// pattern keeps at most kPatternSize - 1 characters
constexpr size_t kPatternSize = hglKey(HglKey::FilePattern).buffer;
constexpr int kMaxKeywordLen = 28;  // keyword lists exist for lengths 1..28
constexpr int kMultiCommentMax = 2;  // characters of a multi-line comment opener or closer
constexpr int kMaxCobolCommentPos = 999;  // a column beyond it turns the COBOL comment column off
// characters of a line-comment introducer
constexpr int kLineCommentMax = static_cast<int>(hglKey(HglKey::LineComment1).buffer) - 1;
constexpr int kColourSlots = kHglColourKeys;

// Definition flags.
constexpr uint16_t kIgnoreCase = 0x01;
constexpr uint16_t kFortranComments = 0x02;
constexpr uint16_t kUnixTexKeywords = 0x04;
constexpr uint16_t kLineNumbers = 0x08;
constexpr uint16_t kCobol = 0x10;

// Character class bits.
constexpr uint16_t kClsWord = 0x001;
constexpr uint16_t kClsNumber = 0x002;
constexpr uint16_t kClsDelim = 0x004;
constexpr uint16_t kClsQuote = 0x008;
constexpr uint16_t kClsString = 0x010;
constexpr uint16_t kClsOpen = 0x020;
constexpr uint16_t kClsClose = 0x040;
constexpr uint16_t kClsMultiComment = 0x080;
constexpr uint16_t kClsLineComment = 0x100;
constexpr uint16_t kClsOperator = 0x200;
constexpr uint16_t kClsTagOpen = 0x400;
constexpr uint16_t kClsTagClose = 0x800;

// Colour slots, 1-based as in the file.
enum ColourSlot : int {
    kColComment = 1,
    kColPreproc = 2,
    kColString = 3,
    kColNumber = 4,
    kColDelim = 5,
    kColOperator = 6,
    kColKeyword = 7,
    kColText = 8,
    kColBackground = 9,
    kColLineNumbers = 10,
};
constexpr int kMaxColourIndex = 16;  // palette indices are 0..16; anything else is stored as 0
static_assert(colourKey(kColComment) == HglKey::ColorComment && colourKey(kColLineNumbers) == HglKey::ColorLineNumbers);

struct SyntaxHighlight {
    std::string name;             // section name
    std::string pattern;          // ";"-separated wildcards, lower case, < kPatternSize chars
    char stringDelim = 0;         // 0 = none
    char charDelim = 0;
    uint16_t flags = 0;           // kIgnoreCase ...
    int16_t cobolCommentPos = 0;  // 0..kMaxCobolCommentPos, 0 = off
    char cobolCommentChar = 0;
    char multiOpen[kMultiCommentMax] = {};   // second may be 0; first 0 = no multi-line comments
    char multiClose[kMultiCommentMax] = {};
    char lineComment1[kLineCommentMax + 1] = {};  // NUL-terminated, empty = none
    char lineComment2[kLineCommentMax + 1] = {};
    char firstComment = 0;
    int16_t maxLineLen = 0;       // >= 0, 0 = none
    char quoteChar = 0;
    char preprocessChar = 0;
    std::array<uint16_t, 256> charClass{};  // by unsigned character code
    std::array<char, 256> pairOf{};         // partner of an opening or closing delimiter
    // keywords[n] holds every keyword of exactly n characters, concatenated; its length
    // is a multiple of n. Empty when there are none (index 0 unused).
    std::array<std::string, kMaxKeywordLen + 1> keywords;
    // Derived from keywords by indexKeywords: bit keywordHash(w) of keywordFilter[n] is
    // set for every n-character keyword w, so most words are refused without a compare.
    std::array<std::array<uint64_t, 4>, kMaxKeywordLen + 1> keywordFilter{};
    // colour[s] for slot s = 1..10, each 0..16 (index 0 unused).
    std::array<uint8_t, kColourSlots + 1> colour = defaultColours();

    uint16_t cls(char c) const { return charClass[static_cast<unsigned char>(c)]; }
    bool ignoreCase() const { return flags & kIgnoreCase; }
    friend bool operator==(const SyntaxHighlight&, const SyntaxHighlight&) = default;
};

// Hash of a word for keywordFilter, 0..255; with fold the same for both letter cases.
inline unsigned keywordHash(const char* w, size_t n, bool fold) {
    auto at = [w, fold](size_t k) {
        const char c = w[k];
        return static_cast<unsigned>(static_cast<unsigned char>(fold && c >= 'A' && c <= 'Z' ? c + 32 : c));
    };
    return (at(0) * 7 + at(n - 1) * 3 + at(n / 2)) & 255;
}
inline bool mayBeKeyword(const SyntaxHighlight& d, const char* w, size_t n) {
    const unsigned h = keywordHash(w, n, d.flags & kIgnoreCase);
    return (d.keywordFilter[n][h >> 6] >> (h & 63)) & 1;
}
// Fills keywordFilter from keywords and the ignore-case flag; the loader calls it, as
// must anyone who changes either afterwards.
inline void indexKeywords(SyntaxHighlight& d) {
    for (size_t n = 1; n < d.keywords.size(); ++n) {
        d.keywordFilter[n] = {};
        for (size_t k = 0; k + n <= d.keywords[n].size(); k += n) {
            const unsigned h = keywordHash(d.keywords[n].data() + k, n, d.flags & kIgnoreCase);
            d.keywordFilter[n][h >> 6] |= uint64_t{1} << (h & 63);
        }
    }
}

}  // namespace zol
