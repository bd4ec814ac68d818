// Finding a literal in a run of bytes: the prefilter that lets the matcher run only
// on lines that hold a pattern's required text. Candidates are the places where the
// literal's first and last bytes both stand, tested 16 at a time with SSE2 (part of
// every x86-64); elsewhere, and for the tail of a run, a scalar loop. The same for a
// pattern's first two bytes, and counting the line ends that a search skips. Both
// forms are exposed so that a test can hold them to the same answers.
#pragma once
#include <cstddef>
#include <cstring>

#include "search/regex.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace zol {

// The first occurrence of lit[0, n) in hay[0, len), or null. n must be at least 1.
inline const char* findLiteralScalar(const char* hay, size_t len, const char* lit, size_t n) {
    if (n > len) return nullptr;
    const char* const last = hay + (len - n);
    for (const char* p = hay; p <= last; ++p) {
        p = static_cast<const char*>(std::memchr(p, lit[0], static_cast<size_t>(last - p) + 1));
        if (!p) return nullptr;
        if (std::memcmp(p, lit, n) == 0) return p;
    }
    return nullptr;
}

#if defined(__SSE2__)
inline const char* findLiteralSse2(const char* hay, size_t len, const char* lit, size_t n) {
    if (n > len) return nullptr;
    const __m128i first = _mm_set1_epi8(lit[0]);
    const __m128i lastByte = _mm_set1_epi8(lit[n - 1]);
    size_t i = 0;
    // Block i covers starts i..i+15, whose last bytes reach i+15+n-1 < len.
    for (; i + 15 + n <= len; i += 16) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(hay + i));
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(hay + i + n - 1));
        auto mask = static_cast<unsigned>(
            _mm_movemask_epi8(_mm_and_si128(_mm_cmpeq_epi8(a, first), _mm_cmpeq_epi8(b, lastByte))));
        while (mask) {
            const unsigned bit = static_cast<unsigned>(__builtin_ctz(mask));
            if (std::memcmp(hay + i + bit + 1, lit + 1, n - 1) == 0) return hay + i + bit;
            mask &= mask - 1;
        }
    }
    return findLiteralScalar(hay + i, len - i, lit, n);
}
#endif

// The first place p in hay[0, len) where a match can begin, as lead tells (its first
// byte must be set), or null; hay[len] must be readable.
inline const char* findLeadScalar(const char* hay, size_t len, const RegexLead& lead) {
    for (const char* const end = hay + len; (hay = static_cast<const char*>(std::memchr(hay, lead.first, end - hay)));
         ++hay)
        if (lead.takes(hay[1])) return hay;
    return nullptr;
}

// How many bytes of hay[0, len) are c.
inline size_t countByteScalar(const char* hay, size_t len, char c) {
    size_t n = 0;
    for (size_t i = 0; i < len; ++i) n += hay[i] == c;
    return n;
}

#if defined(__SSE2__)
// Places holding the first byte with a second byte in [low, high] are found 16 at a
// time; only they are looked up in the table.
inline const char* findLeadSse2(const char* hay, size_t len, const RegexLead& lead) {
    const __m128i first = _mm_set1_epi8(lead.first);
    const __m128i low = _mm_set1_epi8(static_cast<char>(lead.low));
    const __m128i span = _mm_set1_epi8(static_cast<char>(lead.high - lead.low));
    size_t i = 0;
    for (; i + 16 <= len; i += 16) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(hay + i));
        const __m128i b = _mm_sub_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(hay + i + 1)), low);
        const __m128i inRange = _mm_cmpeq_epi8(_mm_min_epu8(b, span), b);
        auto mask = static_cast<unsigned>(_mm_movemask_epi8(_mm_and_si128(_mm_cmpeq_epi8(a, first), inRange)));
        for (; mask; mask &= mask - 1) {
            const char* p = hay + i + __builtin_ctz(mask);
            if (lead.takes(p[1])) return p;
        }
    }
    return findLeadScalar(hay + i, len - i, lead);
}

inline size_t countByteSse2(const char* hay, size_t len, char c) {
    const __m128i want = _mm_set1_epi8(c);
    size_t n = 0, i = 0;
    while (i + 16 <= len) {
        // A byte lane counts to 255 at most before it is added up.
        __m128i lanes = _mm_setzero_si128();
        for (int round = 0; round < 255 && i + 16 <= len; ++round, i += 16) {
            const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(hay + i));
            lanes = _mm_sub_epi8(lanes, _mm_cmpeq_epi8(a, want));
        }
        const __m128i sums = _mm_sad_epu8(lanes, _mm_setzero_si128());
        n += static_cast<size_t>(_mm_cvtsi128_si32(sums)) + static_cast<size_t>(_mm_extract_epi16(sums, 4));
    }
    return n + countByteScalar(hay + i, len - i, c);
}
#endif

inline const char* findLead(const char* hay, size_t len, const RegexLead& lead) {
#if defined(__SSE2__)
    return findLeadSse2(hay, len, lead);
#else
    return findLeadScalar(hay, len, lead);
#endif
}

inline size_t countByte(const char* hay, size_t len, char c) {
#if defined(__SSE2__)
    return countByteSse2(hay, len, c);
#else
    return countByteScalar(hay, len, c);
#endif
}

inline const char* findLiteral(const char* hay, size_t len, const char* lit, size_t n) {
#if defined(__SSE2__)
    return findLiteralSse2(hay, len, lit, n);
#else
    return findLiteralScalar(hay, len, lit, n);
#endif
}

}  // namespace zol
