#include "engine/words.h"

#include "engine/text_util.h"

namespace zol {
namespace {

bool isUpperAscii(char c) { return c >= 'A' && c <= 'Z'; }
bool isLowerOrDigit(char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); }

// A word part starts at j (inside a run of word characters) after underscores, at a
// lower-to-upper hump, and at the last capital of an acronym that runs into a word.
bool partStartsAt(std::string_view t, size_t j) {
    const char a = t[j - 1], b = t[j];
    if (a == '_') return b != '_';
    if (!isUpperAscii(b)) return false;
    if (isLowerOrDigit(a)) return true;
    return isUpperAscii(a) && j + 1 < t.size() && t[j + 1] >= 'a' && t[j + 1] <= 'z';
}

size_t skipRight(std::string_view t, size_t i, CharClass cls) {
    while (i < t.size() && charClass(t[i]) == cls) ++i;
    return i;
}

size_t skipLeft(std::string_view t, size_t i, CharClass cls) {
    while (i > 0 && charClass(t[i - 1]) == cls) --i;
    return i;
}

}  // namespace

bool isWordChar(char c) {
    const auto u = static_cast<unsigned char>(c);
    const unsigned lower = u | 0x20u;
    return u >= 128 || u == '_' || (u >= '0' && u <= '9') || (lower >= 'a' && lower <= 'z');
}

CharClass charClass(char c) {
    if (isBlank(c)) return CharClass::Blank;
    return isWordChar(c) ? CharClass::Word : CharClass::Punct;
}

size_t wordRightOffset(std::string_view t, size_t i, WordStyle style) {
    const size_t n = t.size();
    if (i >= n) return n;
    if (style == WordStyle::Plain) {
        while (i < n && isWordChar(t[i])) ++i;
        while (i < n && !isWordChar(t[i])) ++i;
        return i;
    }
    const CharClass cls = charClass(t[i]);
    if (cls != CharClass::Blank) {
        const size_t runEnd = skipRight(t, i, cls);
        if (style == WordStyle::Smart && cls == CharClass::Word)
            for (size_t j = i + 1; j < runEnd; ++j)
                if (partStartsAt(t, j)) return j;
        i = runEnd;
    }
    return skipRight(t, i, CharClass::Blank);
}

size_t wordLeftOffset(std::string_view t, size_t i, WordStyle style) {
    if (i > t.size()) i = t.size();
    if (style == WordStyle::Plain) {
        while (i > 0 && !isWordChar(t[i - 1])) --i;
        while (i > 0 && isWordChar(t[i - 1])) --i;
        return i;
    }
    i = skipLeft(t, i, CharClass::Blank);
    if (i == 0) return 0;
    const CharClass cls = charClass(t[i - 1]);
    const size_t runStart = skipLeft(t, i, cls);
    if (style == WordStyle::Smart && cls == CharClass::Word)
        for (size_t j = i - 1; j > runStart; --j)
            if (partStartsAt(t, j)) return j;
    return runStart;
}

bool wordAt(std::string_view t, size_t offset, size_t& begin, size_t& end) {
    size_t i = offset;
    if (i >= t.size() || !isWordChar(t[i])) {
        if (i == 0 || i > t.size() || !isWordChar(t[i - 1])) return false;
        --i;
    }
    begin = skipLeft(t, i, CharClass::Word);
    end = skipRight(t, i, CharClass::Word);
    return true;
}

}  // namespace zol
