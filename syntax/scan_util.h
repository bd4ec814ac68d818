// Small text tests shared by the scanner and the comment-state routine.
#pragma once
#include <bit>
#include <cctype>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "syntax/definition.h"

namespace zol::scan {

constexpr size_t kNotFound = static_cast<size_t>(-1);

// The C locale's classes, inline: the scanner asks them for nearly every character.
inline bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
inline bool isDigit(char c) { return c >= '0' && c <= '9'; }
inline bool isAlpha(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
inline char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

// Index just past the first c1 (followed by c2 when c2 is not 0) at or after i.
inline size_t findCloser(std::string_view s, size_t i, char c1, char c2) {
    while (i < s.size()) {
        const void* hit = std::memchr(s.data() + i, c1, s.size() - i);
        if (!hit) return kNotFound;
        const size_t k = static_cast<size_t>(static_cast<const char*>(hit) - s.data());
        if (!c2) return k + 1;
        if (k + 1 < s.size() && s[k + 1] == c2) return k + 2;
        i = k + 1;
    }
    return kNotFound;
}

// Where a multi-line comment opened at i ends: just past its closer, kNotFound when the
// line ends first, or i when no opener stands at i.
inline size_t skipMultiComment(const SyntaxHighlight& d, std::string_view s, size_t i) {
    if (s[i] != d.multiOpen[0]) return i;
    if (!d.multiOpen[1]) return findCloser(s, i + 1, d.multiClose[0], 0);
    if (i + 1 >= s.size() || s[i + 1] != d.multiOpen[1]) return i;
    return findCloser(s, i + 2, d.multiClose[0], d.multiClose[1]);
}

// Whether a line-comment introducer stands at i and counts. Without wordTest a
// non-letter introducer always counts; with it, only when the character at i is not a
// word character. Otherwise it needs white space or the end of the line after it.
inline bool lineCommentAt(const SyntaxHighlight& d, std::string_view s, size_t i, const char* intro, bool wordTest) {
    const size_t n = std::strlen(intro);
    if (n == 0 || s.size() - i < n) return false;
    if (d.ignoreCase()) {
        for (size_t k = 0; k < n; ++k)
            if (lower(s[i + k]) != lower(intro[k])) return false;
    } else if (std::memcmp(s.data() + i, intro, n) != 0) {
        return false;
    }
    if (!isAlpha(intro[0]) && (!wordTest || !(d.cls(s[i]) & kClsWord))) return true;
    return i + n == s.size() || isSpace(s[i + n]);
}

// Index of the first byte at or after i equal to a or b, or the end. Eight bytes at a
// time: strings and comments are long enough for that to pay.
inline size_t findEither(std::string_view s, size_t i, char a, char b) {
    if (i >= s.size()) return s.size();
    if constexpr (std::endian::native == std::endian::little) {
        constexpr uint64_t kOnes = 0x0101010101010101ull, kHighs = 0x8080808080808080ull;
        const uint64_t pa = kOnes * static_cast<unsigned char>(a), pb = kOnes * static_cast<unsigned char>(b);
        auto zero = [](uint64_t x) { return (x - kOnes) & ~x & kHighs; };
        while (s.size() - i >= 8) {
            uint64_t w;
            std::memcpy(&w, s.data() + i, 8);
            // Only the lowest hit is used; false hits can only lie above a true one.
            const uint64_t hit = zero(w ^ pa) | zero(w ^ pb);
            if (hit) return i + static_cast<size_t>(std::countr_zero(hit) >> 3);
            i += 8;
        }
    }
    while (i < s.size() && s[i] != a && s[i] != b) ++i;
    return i;
}

// Just past a string that opens at i, honouring the escape character; the end of the
// line when it is not closed.
inline size_t skipString(const SyntaxHighlight& d, std::string_view s, size_t i) {
    const char delim = s[i];
    const char quote = d.quoteChar ? d.quoteChar : delim;
    size_t j = i + 1;
    while ((j = findEither(s, j, delim, quote)) < s.size()) {
        if (d.quoteChar && s[j] == d.quoteChar) {
            j += 2;
            continue;
        }
        return j + 1;
    }
    return s.size();
}

}  // namespace zol::scan
