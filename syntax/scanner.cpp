#include "syntax/scanner.h"

#include <bit>
#include <cstring>

#include "syntax/scan_util.h"

namespace zol {
namespace {

using scan::kNotFound;

// Colours n bytes. Most tokens are a few bytes long, and a plain loop over them would be
// turned into a call of memset by the compiler; overlapping stores cover 1 to 16 bytes
// without a call or a loop.
inline void fillColour(uint8_t* p, size_t n, uint8_t c) {
    if (n > 16) {
        std::memset(p, c, n);
    } else if (n >= 8) {
        const uint64_t w = 0x0101010101010101ull * c;
        std::memcpy(p, &w, 8);
        std::memcpy(p + n - 8, &w, 8);
    } else if (n >= 4) {
        const uint32_t w = 0x01010101u * c;
        std::memcpy(p, &w, 4);
        std::memcpy(p + n - 4, &w, 4);
    } else if (n > 0) {
        p[0] = c;
        p[n / 2] = c;
        p[n - 1] = c;
    }
}

class LineScan {
public:
    LineScan(const SyntaxHighlight& d, std::string_view text, uint8_t* out) : d_(d), s_(text), out_(out) {}

    // The whole line starts as text; the steps below paint only what is not text.
    int run(int inComment) {
        std::memset(out_, d_.colour[kColText], s_.size());
        size_t i = 0;
        if (!d_.multiOpen[0]) inComment = 0;
        if (inComment) {
            const size_t k = scan::findCloser(s_, 0, d_.multiClose[0], d_.multiClose[1]);
            if (k == kNotFound) return restAs(0, kColComment, 1);
            paint(0, k, kColComment);
            return mainLoop(k);
        }
        if ((d_.flags & kFortranComments) && s_[0] != ' ' && !scan::isDigit(s_[0])) return restAs(0, kColComment, 0);
        if (d_.flags & kLineNumbers) i = paintRun(i, kColLineNumbers, [](char c) { return scan::isDigit(c); });
        while (i < s_.size() && scan::isSpace(s_[i])) ++i;
        if (d_.cobolCommentPos > 0) {
            const auto col = static_cast<size_t>(d_.cobolCommentPos);
            if (i < s_.size() && s_[i] == d_.cobolCommentChar && i + 1 == col) return restAs(i, kColComment, 0);
            // "*" in the indicator column is a comment whatever the definition says.
            if (s_.size() >= col && s_[col - 1] == '*') return restAs(i, kColComment, 0);
        }
        if (d_.maxLineLen > 0 && s_.size() > static_cast<size_t>(d_.maxLineLen)) {
            const auto cut = static_cast<size_t>(d_.maxLineLen);
            paint(cut, s_.size(), kColComment);
            s_ = s_.substr(0, cut);
        }
        if ((d_.flags & kCobol) && s_.size() >= 8 && scan::isAlpha(s_[7])) {
            std::memset(out_, d_.colour[kColText], 7);
            size_t j = 7;
            while (j < s_.size() && (d_.cls(s_[j]) == kClsWord || scan::isDigit(s_[j]))) ++j;
            paint(7, j, kColPreproc);
            i = j;
        }
        if (i < s_.size() && d_.preprocessChar && s_[i] == d_.preprocessChar) return preprocessorLine(i);
        if (i < s_.size() && d_.firstComment && s_[i] == d_.firstComment) return restAs(i, kColComment, 0);
        return mainLoop(i);
    }

private:
    void paint(size_t from, size_t to, int slot) {
        if (to <= from) return;
        fillColour(out_ + from, to - from, d_.colour[static_cast<size_t>(slot)]);
    }
    int restAs(size_t from, int slot, int result) {
        paint(from, s_.size(), slot);
        return result;
    }
    template <class Pred>
    size_t paintRun(size_t i, int slot, Pred pred) {
        size_t j = i;
        while (j < s_.size() && pred(s_[j])) ++j;
        paint(i, j, slot);
        return j;
    }

    bool lineComment(size_t i) const {
        return scan::lineCommentAt(d_, s_, i, d_.lineComment1, true) ||
               scan::lineCommentAt(d_, s_, i, d_.lineComment2, false);
    }

    int preprocessorLine(size_t i) {
        paint(i, s_.size(), kColPreproc);
        while (i < s_.size()) {
            const uint16_t f = d_.cls(s_[i]);
            if (f & kClsMultiComment) {
                const size_t k = scan::skipMultiComment(d_, s_, i);
                if (k == kNotFound) return restAs(i, kColComment, 1);
                if (k != i) {
                    paint(i, k, kColComment);
                    i = k;
                    continue;
                }
            }
            if ((f & kClsLineComment) && lineComment(i)) return restAs(i, kColComment, 0);
            ++i;
        }
        return 0;
    }

    bool isKeyword(size_t i, size_t len) const {
        const char* w = s_.data() + i;
        if (!mayBeKeyword(d_, w, len)) return false;
        const std::string& list = d_.keywords[len];
        if (d_.ignoreCase()) {
            for (size_t k = 0; k < list.size(); k += len) {
                size_t m = 0;
                while (m < len && scan::lower(list[k + m]) == scan::lower(w[m])) ++m;
                if (m == len) return true;
            }
            return false;
        }
        for (size_t k = 0; k < list.size(); k += len) {
            if (list[k] != w[0]) continue;
            size_t m = 1;
            while (m < len && list[k + m] == w[m]) ++m;
            if (m == len) return true;
        }
        return false;
    }

    // The end of the run of characters from j on for which in(k) holds. Eight are tested
    // at a time into a mask, so that the end of a run costs one mispredicted branch
    // rather than one per character.
    template <class In>
    static size_t runEnd(size_t j, size_t end, In in) {
        while (j + 8 <= end) {
            unsigned m = 0;
            for (unsigned k = 0; k < 8; ++k) m |= static_cast<unsigned>(in(j + k)) << k;
            if (m != 0xFF) return j + static_cast<size_t>(std::countr_one(m));
            j += 8;
        }
        while (j < end && in(j)) ++j;
        return j;
    }

    // Locals rather than members in the hot loop: the colour bytes written to out may
    // alias anything, which would make the compiler reload every member after a write.
    int mainLoop(size_t i) {
        const char* const s = s_.data();
        const size_t end = s_.size();
        const uint16_t* const cls = d_.charClass.data();
        const uint8_t* const colour = d_.colour.data();
        uint8_t* const out = out_;
        auto clsAt = [cls, s](size_t k) { return cls[static_cast<unsigned char>(s[k])]; };
        auto fill = [out, colour](size_t from, size_t to, int slot) { fillColour(out + from, to - from, colour[slot]); };
        while (i < end) {
            const char c = s[i];
            const uint16_t f = clsAt(i);
            if (f == 0) {  // blanks and other plain text: nothing below applies
                ++i;
                while (i < end && clsAt(i) == 0) ++i;
                continue;
            }
            if (f & (kClsMultiComment | kClsLineComment)) {
                if (f & kClsMultiComment) {
                    const size_t k = scan::skipMultiComment(d_, s_, i);
                    if (k == kNotFound) return restAs(i, kColComment, 1);
                    if (k != i) {
                        fill(i, k, kColComment);
                        i = k;
                        continue;
                    }
                }
                if ((f & kClsLineComment) && lineComment(i)) return restAs(i, kColComment, 0);
            }
            if ((f & kClsWord) && !((f & kClsNumber) && static_cast<unsigned char>(c) <= '9')) {
                const size_t j = runEnd(i + 1, end, [&](size_t k) { return (clsAt(k) & kClsWord) != 0; });
                const size_t len = j - i;
                if (len <= static_cast<size_t>(kMaxKeywordLen) && isKeyword(i, len)) fill(i, j, kColKeyword);
                i = j;
                // A blank usually follows; taking it here saves a turn of the loop.
                while (i < end && clsAt(i) == 0) ++i;
                continue;
            }
            size_t j = i + 1;
            int slot = kColText;
            if (f & kClsDelim) {
                slot = kColDelim;
            } else if (f & kClsString) {
                j = scan::skipString(d_, s_, i);
                slot = kColString;
            } else if (f & kClsOperator) {
                slot = kColOperator;
            } else if (f & kClsNumber) {
                if (c == '-' && !(j < end && (clsAt(j) & kClsNumber))) {
                    slot = kColOperator;
                } else {
                    j = runEnd(j, end, [&](size_t k) { return (clsAt(k) & kClsNumber) != 0; });
                    slot = kColNumber;
                }
            } else if (f & kClsTagOpen) {
                while (j < end && !(clsAt(j) & kClsTagClose)) ++j;
                if (j < end) ++j;
                slot = kColKeyword;
            } else if (f & kClsTagClose) {
                // The tail of a tag opened on an earlier line.
                fill(0, j, kColKeyword);
                i = j;
                continue;
            } else if (f & (kClsOpen | kClsClose)) {
                slot = kColDelim;
            } else if ((f & kClsQuote) && (d_.flags & kUnixTexKeywords)) {
                if (j < end && (clsAt(j) & kClsWord)) {
                    while (j < end && (clsAt(j) & kClsWord)) ++j;
                } else if (j < end) {
                    ++j;
                }
                slot = kColKeyword;
            }
            if (slot != kColText) fill(i, j, slot);
            i = j;
            while (i < end && clsAt(i) == 0) ++i;
        }
        return 0;
    }

    const SyntaxHighlight& d_;
    std::string_view s_;
    uint8_t* out_;
};

}  // namespace

int scanLine(const SyntaxHighlight& def, std::string_view text, uint8_t* out, int inComment) {
    if (text.empty()) return inComment;
    return LineScan(def, text, out).run(inComment);
}

int scanLine(const SyntaxHighlightTable& table, int slot, std::string_view text, uint8_t* out, int inComment) {
    const SyntaxHighlight* d = definitionAt(table, slot);
    if (!d) {
        if (!text.empty()) std::memset(out, 0, text.size());
        return 0;
    }
    return scanLine(*d, text, out, inComment);
}

}  // namespace zol
