// Finding the next line end (CR or LF) in a run of bytes: the loop every byte of a
// file being read goes through. SSE2 is part of every x86-64; elsewhere the scalar
// loop runs. Both are exposed so that a test can hold them to the same answers.
#pragma once
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace zol {

// The first CR or LF in [p, e), or e.
inline const char* findLineEndScalar(const char* p, const char* e) {
    while (p < e && *p != '\n' && *p != '\r') ++p;
    return p;
}

#if defined(__SSE2__)
inline const char* findLineEndSse2(const char* p, const char* e) {
    const __m128i lf = _mm_set1_epi8('\n');
    const __m128i cr = _mm_set1_epi8('\r');
    for (; e - p >= 16; p += 16) {
        const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const int mask = _mm_movemask_epi8(_mm_or_si128(_mm_cmpeq_epi8(v, lf), _mm_cmpeq_epi8(v, cr)));
        if (mask) return p + __builtin_ctz(static_cast<unsigned>(mask));
    }
    return findLineEndScalar(p, e);
}
#endif

inline const char* findLineEnd(const char* p, const char* e) {
#if defined(__SSE2__)
    return findLineEndSse2(p, e);
#else
    return findLineEndScalar(p, e);
#endif
}

}  // namespace zol
