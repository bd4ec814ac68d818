// The printf and scanf families' conversions, over script arguments.
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "script/builtins.h"

namespace zol {

std::string formatArgs(BArgs& a, const std::string& fmt, size_t first) {
    std::string out;
    size_t k = first;
    auto next = [&]() -> size_t {
        if (k >= a.n) a.en.fail(kErrArgMismatch);
        return k++;
    };
    for (size_t i = 0; i < fmt.size(); ++i) {
        const char c = fmt[i];
        if (c != '%') {
            out += c;
            continue;
        }
        std::string flags;
        ++i;
        while (i < fmt.size() && std::strchr("-+ #0", fmt[i])) flags += fmt[i++];
        long width = -1, prec = -1;
        if (i < fmt.size() && fmt[i] == '*') {
            width = static_cast<long>(static_cast<int32_t>(a.v[next()].i));
            if (width < 0) {
                flags += '-';
                width = -width;
            }
            ++i;
        } else if (i < fmt.size() && std::isdigit(static_cast<unsigned char>(fmt[i]))) {
            width = 0;
            while (i < fmt.size() && std::isdigit(static_cast<unsigned char>(fmt[i]))) {
                width = width * 10 + (fmt[i++] - '0');
                if (width > kMaxFormatWidth) a.en.fail(kErrArgMismatch);
            }
        }
        if (i < fmt.size() && fmt[i] == '.') {
            ++i;
            prec = 0;
            if (i < fmt.size() && fmt[i] == '*') {
                prec = static_cast<long>(static_cast<int32_t>(a.v[next()].i));
                ++i;
            } else {
                while (i < fmt.size() && std::isdigit(static_cast<unsigned char>(fmt[i]))) {
                    prec = prec * 10 + (fmt[i++] - '0');
                    if (prec > kMaxFormatWidth) a.en.fail(kErrArgMismatch);
                }
            }
        }
        if (width > kMaxFormatWidth || prec > kMaxFormatWidth) a.en.fail(kErrArgMismatch);
        int len = 0;  // 1 h, 2 l, 3 ll, 4 L
        while (i < fmt.size() && std::strchr("hlLqjzt", fmt[i])) {
            const char m = fmt[i++];
            len = m == 'h' ? 1 : m == 'L' ? 4 : m == 'l' ? (len == 2 ? 3 : 2) : 3;
        }
        if (i >= fmt.size()) {
            out += '%';
            break;
        }
        const char conv = fmt[i];
        std::string directive = "%" + flags;
        if (width >= 0) directive += std::to_string(width);
        if (prec >= 0) directive += "." + std::to_string(prec);
        char buf[512];
        std::string piece;
        auto fmtInto = [&](const std::string& sp, auto value) {
            const int need = std::snprintf(nullptr, 0, sp.c_str(), value);
            if (need < 0) a.en.fail(kErrArgMismatch);
            piece.resize(static_cast<size_t>(need) + 1);
            std::snprintf(piece.data(), piece.size(), sp.c_str(), value);
            piece.resize(static_cast<size_t>(need));
        };
        switch (conv) {
            case '%':
                out += '%';
                continue;
            case 'd':
            case 'i': {
                const size_t ix = next();
                int64_t v = isFloating(a.e->argTypes[ix]) ? static_cast<int64_t>(a.v[ix].d) : a.v[ix].i;
                if (len == 1) v = static_cast<int16_t>(v);
                else if (len != 3) v = static_cast<int32_t>(v);
                fmtInto(directive + "lld", static_cast<long long>(v));
                break;
            }
            case 'u': case 'o': case 'x': case 'X': {
                const size_t ix = next();
                uint64_t v = static_cast<uint64_t>(isFloating(a.e->argTypes[ix]) ? static_cast<int64_t>(a.v[ix].d) : a.v[ix].i);
                if (len == 1) v = static_cast<uint16_t>(v);
                else if (len != 3) v = static_cast<uint32_t>(v);
                fmtInto(directive + "ll" + conv, static_cast<unsigned long long>(v));
                break;
            }
            case 'c': {
                const size_t ix = next();
                piece.assign(1, static_cast<char>(a.v[ix].i));
                if (width > 1) piece = flags.find('-') != std::string::npos ? piece + std::string(static_cast<size_t>(width - 1), ' ')
                                                                            : std::string(static_cast<size_t>(width - 1), ' ') + piece;
                break;
            }
            case 's': {
                const size_t ix = next();
                const uint32_t p = static_cast<uint32_t>(a.v[ix].i);
                std::string s;
                if (p == 0) {
                    s = kScriptNullString;
                } else if (prec >= 0) {
                    uint32_t avail = 0;
                    const uint8_t* h = a.en.span(p, &avail);
                    size_t m = 0;
                    while (m < static_cast<size_t>(prec) && m < avail && h[m]) ++m;
                    if (m == avail && m < static_cast<size_t>(prec)) a.en.fail(kErrIllegalPointer);
                    s.assign(reinterpret_cast<const char*>(h), m);
                } else {
                    s = a.en.cstr(p);
                }
                std::string sp = "%" + flags;
                if (width >= 0) sp += std::to_string(width);
                fmtInto(sp + "s", s.c_str());
                break;
            }
            case 'f': case 'F': case 'e': case 'E': case 'g': case 'G': case 'a': case 'A': {
                const size_t ix = next();
                const double v = isFloating(a.e->argTypes[ix]) ? a.v[ix].d : static_cast<double>(a.v[ix].i);
                fmtInto(directive + conv, v);
                break;
            }
            case 'p': {
                const size_t ix = next();
                std::snprintf(buf, sizeof buf, "%08X", static_cast<unsigned>(a.v[ix].i));
                std::string sp = "%" + flags;
                if (width >= 0) sp += std::to_string(width);
                fmtInto(sp + "s", buf);
                break;
            }
            case 'n': {
                const size_t ix = next();
                const uint32_t p = static_cast<uint32_t>(a.v[ix].i);
                const int32_t count = static_cast<int32_t>(out.size());
                if (len == 1) {
                    const int16_t c16 = static_cast<int16_t>(count);
                    putBytes(a.en, p, &c16, 2);
                } else {
                    putBytes(a.en, p, &count, 4);
                }
                continue;
            }
            default:
                out += '%';
                out += conv;
                continue;
        }
        out += piece;
    }
    return out;
}

namespace {

bool isSpace(int c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v'; }

}  // namespace

int scanArgs(BArgs& a, ScanSource& src, const std::string& fmt, size_t first) {
    int assigned = 0;
    bool anyInput = false;
    long consumed = 0;
    size_t k = first;
    auto get = [&]() {
        const int c = src.get();
        if (c != EOF) {
            ++consumed;
            anyInput = true;
        }
        return c;
    };
    auto unget = [&](int c) {
        if (c != EOF) {
            src.unget(c);
            --consumed;
        }
    };
    auto skipSpace = [&]() {
        int c;
        while ((c = get()) != EOF && isSpace(c)) {}
        unget(c);
        return c;
    };
    auto target = [&]() -> uint32_t {
        if (k >= a.n) a.en.fail(kErrArgMismatch);
        const uint32_t p = static_cast<uint32_t>(a.v[k++].i);
        if (p == 0) a.en.fail(kErrNotAddress);
        return p;
    };
    for (size_t i = 0; i < fmt.size(); ++i) {
        const char f = fmt[i];
        if (isSpace(static_cast<unsigned char>(f))) {
            skipSpace();
            continue;
        }
        if (f != '%') {
            const int c = get();
            if (c != static_cast<unsigned char>(f)) {
                unget(c);
                return c == EOF && assigned == 0 ? EOF : assigned;
            }
            continue;
        }
        ++i;
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
        if (i >= fmt.size()) break;
        const char conv = fmt[i];
        if (conv == '%') {
            skipSpace();
            const int c = get();
            if (c != '%') {
                unget(c);
                return assigned;
            }
            continue;
        }
        if (conv == 'n') {
            if (!suppress) {
                const int32_t v = static_cast<int32_t>(consumed);
                putBytes(a.en, target(), &v, 4);
            }
            continue;
        }
        const long maxw = width > 0 ? width : (conv == 'c' ? 1 : 0x7fffffff);
        if (conv == 'c') {
            std::string s;
            while (static_cast<long>(s.size()) < maxw) {
                const int c = get();
                if (c == EOF) break;
                s += static_cast<char>(c);
            }
            if (s.empty()) return assigned == 0 ? EOF : assigned;
            if (!suppress) {
                putBytes(a.en, target(), s.data(), s.size());
                ++assigned;
            }
            continue;
        }
        if (conv == 's' || conv == '[') {
            bool set[256] = {};
            if (conv == '[') {
                ++i;
                bool negate = false;
                if (i < fmt.size() && fmt[i] == '^') {
                    negate = true;
                    ++i;
                }
                size_t startSet = i;
                while (i < fmt.size() && (fmt[i] != ']' || i == startSet)) {
                    if (fmt[i] == '-' && i > startSet && i + 1 < fmt.size() && fmt[i + 1] != ']') {
                        for (int ch = static_cast<unsigned char>(fmt[i - 1]); ch <= static_cast<unsigned char>(fmt[i + 1]); ++ch) set[ch] = true;
                        i += 2;
                        continue;
                    }
                    set[static_cast<unsigned char>(fmt[i])] = true;
                    ++i;
                }
                if (negate)
                    for (bool& b : set) b = !b;
            } else {
                if (skipSpace() == EOF) return assigned == 0 ? EOF : assigned;
                for (int ch = 0; ch < 256; ++ch) set[ch] = !isSpace(ch);
            }
            std::string s;
            int c;
            while (static_cast<long>(s.size()) < maxw && (c = get()) != EOF) {
                if (!set[static_cast<unsigned char>(c)]) {
                    unget(c);
                    break;
                }
                s += static_cast<char>(c);
            }
            if (s.empty()) return assigned == 0 && !anyInput ? EOF : assigned;
            if (!suppress) {
                putString(a.en, target(), s);
                ++assigned;
            }
            continue;
        }
        if (skipSpace() == EOF) return assigned == 0 ? EOF : assigned;
        std::string s;
        auto take = [&](auto pred) {
            int c;
            while (static_cast<long>(s.size()) < maxw && (c = get()) != EOF) {
                if (!pred(c)) {
                    unget(c);
                    return;
                }
                s += static_cast<char>(c);
            }
        };
        if (std::strchr("diouxXp", conv)) {
            int base = conv == 'o' ? 8 : (conv == 'x' || conv == 'X' || conv == 'p') ? 16 : conv == 'i' ? 0 : 10;
            take([&](int c) {
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
            if (s.size() == digitsAt) return assigned;
            const int64_t v = conv == 'd' || conv == 'i' ? static_cast<int64_t>(std::strtoll(s.c_str(), nullptr, base ? base : 10))
                                                         : static_cast<int64_t>(std::strtoull(s.c_str(), nullptr, base ? base : 10));
            if (!suppress) {
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
            continue;
        }
        if (std::strchr("eEfgGaA", conv)) {
            take([&](int c) {
                if (std::isdigit(c) || c == '.') return true;
                if ((c == '+' || c == '-') && (s.empty() || s.back() == 'e' || s.back() == 'E')) return true;
                if ((c == 'e' || c == 'E') && !s.empty() && s.find_first_of("eE") == std::string::npos) return true;
                return false;
            });
            if (s.empty() || s == "+" || s == "-" || s == ".") return assigned;
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
            continue;
        }
        a.en.fail(kErrArgMismatch);
    }
    return assigned;
}

}  // namespace zol
