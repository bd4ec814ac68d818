#include <algorithm>
#include <bit>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "syntax/scan_util.h"
#include "syntax/scanner.h"

namespace zol {
namespace {

using scan::kNotFound;

// The characters where the comment state can change: the opener's first character,
// the introducers' first characters and the string delimiters. Lines are searched
// for them eight bytes at a time.
class StopSet {
public:
    StopSet() = default;
    explicit StopSet(const SyntaxHighlight& d) {
        add(d.multiOpen[0]);
        addIntroducer(d, d.lineComment1[0]);
        addIntroducer(d, d.lineComment2[0]);
        add(d.stringDelim);
        add(d.charDelim);
        for (int k = count_; k < kMax; ++k) words_[k] = words_[0];
    }

    size_t next(std::string_view s, size_t i) const {
        switch (count_) {
        case 1: return find<1>(s, i);
        case 2: return find<2>(s, i);
        case 3: return find<3>(s, i);
        case 4: return find<4>(s, i);
        default: return find<kMax>(s, i);
        }
    }

private:
    static constexpr int kMax = 7;
    static constexpr uint64_t kOnes = 0x0101010101010101ull;
    static constexpr uint64_t kHighs = 0x8080808080808080ull;
    // High bit set in each zero byte; bits above the lowest zero byte may be false hits,
    // which is harmless since only the lowest one is used.
    static uint64_t zeroBytes(uint64_t x) { return (x - kOnes) & ~x & kHighs; }

    void add(char c) {
        if (!c || count_ == kMax) return;
        for (int k = 0; k < count_; ++k)
            if (chars_[k] == c) return;
        chars_[count_] = c;
        words_[count_] = kOnes * static_cast<unsigned char>(c);
        ++count_;
    }
    void addIntroducer(const SyntaxHighlight& d, char c) {
        add(c);
        if (d.ignoreCase() && scan::isAlpha(c)) {
            add(static_cast<char>(std::tolower(static_cast<unsigned char>(c))));
            add(static_cast<char>(std::toupper(static_cast<unsigned char>(c))));
        }
    }

    template <int N>
    size_t find(std::string_view s, size_t i) const {
        if constexpr (std::endian::native == std::endian::little) {
            const char* p = s.data();
#if defined(__SSE2__)
            while (s.size() - i >= 16) {
                const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + i));
                __m128i eq = _mm_cmpeq_epi8(v, _mm_set1_epi64x(static_cast<long long>(words_[0])));
                for (int k = 1; k < N; ++k)
                    eq = _mm_or_si128(eq, _mm_cmpeq_epi8(v, _mm_set1_epi64x(static_cast<long long>(words_[k]))));
                const auto mask = static_cast<unsigned>(_mm_movemask_epi8(eq));
                if (mask) return i + static_cast<size_t>(std::countr_zero(mask));
                i += 16;
            }
#endif
            while (i < s.size()) {
                uint64_t w = 0;
                if (s.size() - i >= 8) {
                    std::memcpy(&w, p + i, 8);
                } else {
                    // The short tail, padded with zero bytes, which no stop character is.
                    for (size_t k = s.size(); k-- > i;) w = (w << 8) | static_cast<unsigned char>(p[k]);
                }
                uint64_t hit = 0;
                for (int k = 0; k < N; ++k) hit |= zeroBytes(w ^ words_[k]);
                if (hit) return std::min(s.size(), i + static_cast<size_t>(std::countr_zero(hit) >> 3));
                i += 8;
            }
            return s.size();
        }
        for (; i < s.size(); ++i)
            for (int k = 0; k < count_; ++k)
                if (s[i] == chars_[k]) return i;
        return s.size();
    }

    char chars_[kMax] = {};
    uint64_t words_[kMax] = {};
    int count_ = 0;
};

// The routine runs once per line, so the set of the definition last asked for is kept.
const StopSet& stopSetFor(const SyntaxHighlight& d) {
    struct Cached {
        const SyntaxHighlight* def = nullptr;
        char key[6] = {};
        StopSet set;
    };
    static Cached cache;
    const char key[6] = {d.multiOpen[0], d.lineComment1[0], d.lineComment2[0], d.stringDelim, d.charDelim,
                         static_cast<char>(d.flags & kIgnoreCase)};
    if (cache.def != &d || std::memcmp(cache.key, key, sizeof key) != 0) {
        cache.def = &d;
        std::memcpy(cache.key, key, sizeof key);
        cache.set = StopSet(d);
    }
    return cache.set;
}

}  // namespace

int commentState(const SyntaxHighlight& d, std::string_view s, int inComment) {
    if (!d.multiOpen[0]) return 0;
    size_t i = 0;
    if (inComment) {
        i = scan::findCloser(s, 0, d.multiClose[0], d.multiClose[1]);
        if (i == kNotFound) return 1;
    } else if (d.firstComment) {
        size_t k = 0;
        while (k < s.size() && scan::isSpace(s[k])) ++k;
        if (k < s.size() && s[k] == d.firstComment) return 0;
    }
    const StopSet& stops = stopSetFor(d);
    while ((i = stops.next(s, i)) < s.size()) {
        const char c = s[i];
        if (c == d.multiOpen[0]) {
            const size_t k = scan::skipMultiComment(d, s, i);
            if (k == kNotFound) return 1;
            if (k != i) {
                i = k;
                continue;
            }
        }
        const char lc = scan::lower(c);
        if ((lc == scan::lower(d.lineComment1[0]) && scan::lineCommentAt(d, s, i, d.lineComment1, false)) ||
            (lc == scan::lower(d.lineComment2[0]) && scan::lineCommentAt(d, s, i, d.lineComment2, false)))
            return 0;
        if ((d.stringDelim && c == d.stringDelim) || (d.charDelim && c == d.charDelim)) {
            i = scan::skipString(d, s, i);
            continue;
        }
        ++i;
    }
    return 0;
}

int commentState(const SyntaxHighlightTable& table, int slot, std::string_view text, int inComment) {
    const SyntaxHighlight* d = definitionAt(table, slot);
    return d ? commentState(*d, text, inComment) : 0;
}

}  // namespace zol
