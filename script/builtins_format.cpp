// The printf and scanf families' conversions, over script arguments.
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "script/builtins.h"

namespace zol {
namespace {

// What lies between a printf conversion's "%" and its letter.
struct Conversion {
    std::string flags;
    long width = -1, prec = -1;
    int len = 0;  // 1 h, 2 l, 3 ll, 4 L

    // "%", the flags, the width and, when asked, the precision, as the host's printf
    // takes them.
    std::string head(bool withPrec) const {
        std::string h = "%" + flags;
        if (width >= 0) h += std::to_string(width);
        if (withPrec && prec >= 0) h += "." + std::to_string(prec);
        return h;
    }
};

template <typename T>
std::string hostFormat(Engine& en, const std::string& directive, T value) {
    const int need = std::snprintf(nullptr, 0, directive.c_str(), value);
    if (need < 0) en.fail(kErrArgMismatch);
    std::string piece(static_cast<size_t>(need) + 1, '\0');
    std::snprintf(piece.data(), piece.size(), directive.c_str(), value);
    piece.resize(static_cast<size_t>(need));
    return piece;
}

struct Formatter {
    BArgs& a;
    size_t k;
    std::string out;

    size_t next() {
        if (k >= a.n) a.en.fail(kErrArgMismatch);
        return k++;
    }
    int64_t integerArg(size_t ix) const {
        return isFloating(a.e->argTypes[ix]) ? static_cast<int64_t>(a.v[ix].d) : a.v[ix].i;
    }

    // A width or precision written as digits, no wider than kMaxFormatWidth.
    long digits(const std::string& fmt, size_t& i) {
        long v = 0;
        while (i < fmt.size() && std::isdigit(static_cast<unsigned char>(fmt[i]))) {
            v = v * 10 + (fmt[i++] - '0');
            if (v > kMaxFormatWidth) a.en.fail(kErrArgMismatch);
        }
        return v;
    }

    // Reads flags, width, precision and length from fmt[i] on; "*" takes an argument.
    Conversion conversion(const std::string& fmt, size_t& i) {
        Conversion sp;
        while (i < fmt.size() && std::strchr("-+ #0", fmt[i])) sp.flags += fmt[i++];
        if (i < fmt.size() && fmt[i] == '*') {
            sp.width = static_cast<long>(static_cast<int32_t>(a.v[next()].i));
            if (sp.width < 0) {
                sp.flags += '-';
                sp.width = -sp.width;
            }
            ++i;
        } else if (i < fmt.size() && std::isdigit(static_cast<unsigned char>(fmt[i]))) {
            sp.width = digits(fmt, i);
        }
        if (i < fmt.size() && fmt[i] == '.') {
            ++i;
            if (i < fmt.size() && fmt[i] == '*') {
                sp.prec = static_cast<long>(static_cast<int32_t>(a.v[next()].i));
                ++i;
            } else {
                sp.prec = digits(fmt, i);
            }
        }
        if (sp.width > kMaxFormatWidth || sp.prec > kMaxFormatWidth) a.en.fail(kErrArgMismatch);
        while (i < fmt.size() && std::strchr("hlLqjzt", fmt[i])) {
            const char m = fmt[i++];
            sp.len = m == 'h' ? 1 : m == 'L' ? 4 : m == 'l' ? (sp.len == 2 ? 3 : 2) : 3;
        }
        return sp;
    }

    std::string signedInt(const Conversion& sp) {
        int64_t v = integerArg(next());
        if (sp.len == 1) v = static_cast<int16_t>(v);
        else if (sp.len != 3) v = static_cast<int32_t>(v);
        return hostFormat(a.en, sp.head(true) + "lld", static_cast<long long>(v));
    }

    std::string unsignedInt(char conv, const Conversion& sp) {
        uint64_t v = static_cast<uint64_t>(integerArg(next()));
        if (sp.len == 1) v = static_cast<uint16_t>(v);
        else if (sp.len != 3) v = static_cast<uint32_t>(v);
        return hostFormat(a.en, sp.head(true) + "ll" + conv, static_cast<unsigned long long>(v));
    }

    std::string character(const Conversion& sp) {
        std::string piece(1, static_cast<char>(a.v[next()].i));
        if (sp.width <= 1) return piece;
        const std::string pad(static_cast<size_t>(sp.width - 1), ' ');
        return sp.flags.find('-') != std::string::npos ? piece + pad : pad + piece;
    }

    // A string argument; with a precision it is read only as far as the precision goes.
    std::string string(const Conversion& sp) {
        const uint32_t p = static_cast<uint32_t>(a.v[next()].i);
        std::string s;
        if (p == 0) {
            s = kScriptNullString;
        } else if (sp.prec >= 0) {
            uint32_t avail = 0;
            const uint8_t* h = a.en.span(p, &avail);
            size_t m = 0;
            while (m < static_cast<size_t>(sp.prec) && m < avail && h[m]) ++m;
            if (m == avail && m < static_cast<size_t>(sp.prec)) a.en.fail(kErrIllegalPointer);
            s.assign(reinterpret_cast<const char*>(h), m);
        } else {
            s = a.en.cstr(p);
        }
        return hostFormat(a.en, sp.head(false) + "s", s.c_str());
    }

    std::string floating(char conv, const Conversion& sp) {
        const size_t ix = next();
        const double v = isFloating(a.e->argTypes[ix]) ? a.v[ix].d : static_cast<double>(a.v[ix].i);
        return hostFormat(a.en, sp.head(true) + conv, v);
    }

    std::string pointer(const Conversion& sp) {
        char buf[16];
        std::snprintf(buf, sizeof buf, "%08X", static_cast<unsigned>(a.v[next()].i));
        return hostFormat(a.en, sp.head(false) + "s", buf);
    }

    // %n: the count of characters so far into the argument.
    void count(const Conversion& sp) {
        const uint32_t p = static_cast<uint32_t>(a.v[next()].i);
        const int32_t n = static_cast<int32_t>(out.size());
        if (sp.len == 1) {
            const int16_t n16 = static_cast<int16_t>(n);
            putBytes(a.en, p, &n16, 2);
        } else {
            putBytes(a.en, p, &n, 4);
        }
    }

    void convert(char conv, const Conversion& sp) {
        switch (conv) {
            case '%': out += '%'; return;
            case 'd': case 'i': out += signedInt(sp); return;
            case 'u': case 'o': case 'x': case 'X': out += unsignedInt(conv, sp); return;
            case 'c': out += character(sp); return;
            case 's': out += string(sp); return;
            case 'f': case 'F': case 'e': case 'E': case 'g': case 'G': case 'a': case 'A':
                out += floating(conv, sp);
                return;
            case 'p': out += pointer(sp); return;
            case 'n': count(sp); return;
            default:
                out += '%';
                out += conv;
                return;
        }
    }
};

}  // namespace

std::string formatArgs(BArgs& a, const std::string& fmt, size_t first) {
    Formatter f{a, first, {}};
    for (size_t i = 0; i < fmt.size(); ++i) {
        if (fmt[i] != '%') {
            f.out += fmt[i];
            continue;
        }
        ++i;
        const Conversion sp = f.conversion(fmt, i);
        if (i >= fmt.size()) {
            f.out += '%';
            break;
        }
        f.convert(fmt[i], sp);
    }
    return f.out;
}

namespace {

bool isSpace(int c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v'; }

// The characters a %[ set takes, read from fmt[i] on (just after "["); i ends on "]".
void readSet(const std::string& fmt, size_t& i, bool* set) {
    bool negate = false;
    if (i < fmt.size() && fmt[i] == '^') {
        negate = true;
        ++i;
    }
    const size_t startSet = i;
    while (i < fmt.size() && (fmt[i] != ']' || i == startSet)) {
        if (fmt[i] == '-' && i > startSet && i + 1 < fmt.size() && fmt[i + 1] != ']') {
            for (int ch = static_cast<unsigned char>(fmt[i - 1]); ch <= static_cast<unsigned char>(fmt[i + 1]); ++ch)
                set[ch] = true;
            i += 2;
            continue;
        }
        set[static_cast<unsigned char>(fmt[i])] = true;
        ++i;
    }
    if (negate)
        for (int ch = 0; ch < 256; ++ch) set[ch] = !set[ch];
}

// One scanf call. Each conversion answers true to go on with the format, or false with
// the call's result in *result.
struct Scanner {
    BArgs& a;
    ScanSource& src;
    size_t k;
    int assigned = 0;
    bool anyInput = false;
    long consumed = 0;

    int get() {
        const int c = src.get();
        if (c != EOF) {
            ++consumed;
            anyInput = true;
        }
        return c;
    }
    void unget(int c) {
        if (c != EOF) {
            src.unget(c);
            --consumed;
        }
    }
    int skipSpace() {
        int c;
        while ((c = get()) != EOF && isSpace(c)) {}
        unget(c);
        return c;
    }
    uint32_t target() {
        if (k >= a.n) a.en.fail(kErrArgMismatch);
        const uint32_t p = static_cast<uint32_t>(a.v[k++].i);
        if (p == 0) a.en.fail(kErrNotAddress);
        return p;
    }
    // The result when the input ends before a conversion.
    int atEnd() const { return assigned == 0 ? EOF : assigned; }
    bool stop(int r, int* result) const {
        *result = r;
        return false;
    }

    // Up to maxw characters that pred accepts.
    template <typename Pred>
    std::string take(long maxw, Pred pred) {
        std::string s;
        int c;
        while (static_cast<long>(s.size()) < maxw && (c = get()) != EOF) {
            if (!pred(c, s)) {
                unget(c);
                break;
            }
            s += static_cast<char>(c);
        }
        return s;
    }

    bool literal(char f, int* result) {
        const int c = get();
        if (c == static_cast<unsigned char>(f)) return true;
        unget(c);
        return stop(c == EOF && assigned == 0 ? EOF : assigned, result);
    }

    bool percent(int* result) {
        skipSpace();
        const int c = get();
        if (c == '%') return true;
        unget(c);
        return stop(assigned, result);
    }

    bool chars(long maxw, bool suppress, int* result) {
        const std::string s = take(maxw, [](int, const std::string&) { return true; });
        if (s.empty()) return stop(atEnd(), result);
        if (!suppress) {
            putBytes(a.en, target(), s.data(), s.size());
            ++assigned;
        }
        return true;
    }

    bool word(const bool* set, long maxw, bool suppress, int* result) {
        const std::string s = take(maxw, [&](int c, const std::string&) { return set[static_cast<unsigned char>(c)]; });
        if (s.empty()) return stop(assigned == 0 && !anyInput ? EOF : assigned, result);
        if (!suppress) {
            putString(a.en, target(), s);
            ++assigned;
        }
        return true;
    }

    void store(int len, int64_t v) {
        const uint32_t p = target();
        if (len == 1) {
            const int16_t x = static_cast<int16_t>(v);
            putBytes(a.en, p, &x, 2);
        } else if (len == 3) {
            putBytes(a.en, p, &v, 8);
        } else {
            const int32_t x = static_cast<int32_t>(v);
            putBytes(a.en, p, &x, 4);
        }
        ++assigned;
    }

    bool integer(char conv, int len, long maxw, bool suppress, int* result);
    bool floating(int len, long maxw, bool suppress, int* result);
    bool conversion(const std::string& fmt, size_t& i, int* result);
};

bool Scanner::integer(char conv, int len, long maxw, bool suppress, int* result) {
    int base = conv == 'o' ? 8 : (conv == 'x' || conv == 'X' || conv == 'p') ? 16 : conv == 'i' ? 0 : 10;
    const std::string s = take(maxw, [&](int c, const std::string& s) {
        if ((c == '+' || c == '-') && s.empty()) return true;
        const size_t digitsAt = (s.size() && (s[0] == '+' || s[0] == '-')) ? 1 : 0;
        if ((base == 16 || (conv == 'i' && base == 8)) && (c == 'x' || c == 'X') && s.size() == digitsAt + 1 &&
            s[digitsAt] == '0') {
            base = 16;
            return true;
        }
        if (base == 0 && s.size() == digitsAt) base = c == '0' ? 8 : 10;
        if (base == 0) base = 10;
        if (c >= '0' && c <= '7') return true;
        if (c == '8' || c == '9') return base >= 10;
        return base == 16 && std::isxdigit(c) != 0;
    });
    const size_t digitsAt = (s.size() && (s[0] == '+' || s[0] == '-')) ? 1 : 0;
    if (s.size() == digitsAt) return stop(assigned, result);
    const int b = base ? base : 10;
    const int64_t v = conv == 'd' || conv == 'i' ? static_cast<int64_t>(std::strtoll(s.c_str(), nullptr, b))
                                                 : static_cast<int64_t>(std::strtoull(s.c_str(), nullptr, b));
    if (!suppress) store(len, v);
    return true;
}

bool Scanner::floating(int len, long maxw, bool suppress, int* result) {
    const std::string s = take(maxw, [](int c, const std::string& s) {
        if (std::isdigit(c) || c == '.') return true;
        if ((c == '+' || c == '-') && (s.empty() || s.back() == 'e' || s.back() == 'E')) return true;
        return (c == 'e' || c == 'E') && !s.empty() && s.find_first_of("eE") == std::string::npos;
    });
    if (s.empty() || s == "+" || s == "-" || s == ".") return stop(assigned, result);
    const double v = std::strtod(s.c_str(), nullptr);
    if (!suppress) {
        const uint32_t p = target();
        if (len == 2 || len == 4) {
            putBytes(a.en, p, &v, 8);
        } else {
            const float x = static_cast<float>(v);
            putBytes(a.en, p, &x, 4);
        }
        ++assigned;
    }
    return true;
}

// The conversion after a "%" at fmt[i]; i ends on its last character.
bool Scanner::conversion(const std::string& fmt, size_t& i, int* result) {
    bool suppress = false;
    if (i < fmt.size() && fmt[i] == '*') {
        suppress = true;
        ++i;
    }
    long width = 0;
    while (i < fmt.size() && std::isdigit(static_cast<unsigned char>(fmt[i]))) width = width * 10 + (fmt[i++] - '0');
    int len = 0;
    while (i < fmt.size() && std::strchr("hlL", fmt[i])) {
        len = fmt[i] == 'h' ? 1 : fmt[i] == 'L' ? 4 : (len == 2 ? 3 : 2);
        ++i;
    }
    if (i >= fmt.size()) return stop(assigned, result);
    const char conv = fmt[i];
    if (conv == '%') return percent(result);
    if (conv == 'n') {
        if (!suppress) {
            const int32_t v = static_cast<int32_t>(consumed);
            putBytes(a.en, target(), &v, 4);
        }
        return true;
    }
    const long maxw = width > 0 ? width : (conv == 'c' ? 1 : 0x7fffffff);
    if (conv == 'c') return chars(maxw, suppress, result);
    bool set[256] = {};
    if (conv == '[') {
        readSet(fmt, ++i, set);
        return word(set, maxw, suppress, result);
    }
    if (skipSpace() == EOF) return stop(atEnd(), result);
    if (conv == 's') {
        for (int ch = 0; ch < 256; ++ch) set[ch] = !isSpace(ch);
        return word(set, maxw, suppress, result);
    }
    if (std::strchr("diouxXp", conv)) return integer(conv, len, maxw, suppress, result);
    if (std::strchr("eEfgGaA", conv)) return floating(len, maxw, suppress, result);
    a.en.fail(kErrArgMismatch);
}

}  // namespace

int scanArgs(BArgs& a, ScanSource& src, const std::string& fmt, size_t first) {
    Scanner sc{a, src, first};
    int result = 0;
    for (size_t i = 0; i < fmt.size(); ++i) {
        const char f = fmt[i];
        if (isSpace(static_cast<unsigned char>(f))) {
            sc.skipSpace();
            continue;
        }
        const bool goOn = f == '%' ? sc.conversion(fmt, ++i, &result) : sc.literal(f, &result);
        if (!goOn) return result;
    }
    return sc.assigned;
}

}  // namespace zol
