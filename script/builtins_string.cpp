// String and memory functions. Every pointer is checked against the object it points
// into; a copy that would run past its destination ends the run.
#include <algorithm>
#include <cctype>
#include <cstring>

#include "script/builtins.h"

namespace zol {
namespace {

// The readable bytes at p up to n (or up to the end of its object).
const uint8_t* bytes(Engine& en, uint32_t p, uint32_t n) {
    if (p == 0) en.fail(kErrNotAddress);
    return en.host(p, n);
}

int cmpIgnoreCase(const std::string& x, const std::string& y, size_t n) {
    for (size_t i = 0; i < n; ++i) {
        const int a = i < x.size() ? std::tolower(static_cast<unsigned char>(x[i])) : 0;
        const int b = i < y.size() ? std::tolower(static_cast<unsigned char>(y[i])) : 0;
        if (a != b) return a < b ? -1 : 1;
        if (a == 0) return 0;
    }
    return 0;
}

int sign(int v) { return v < 0 ? -1 : v > 0 ? 1 : 0; }

std::string trimLeft(const std::string& s) {
    size_t i = 0;
    while (i < s.size() && std::isspace(static_cast<unsigned char>(s[i]))) ++i;
    return s.substr(i);
}
std::string trimRight(const std::string& s) {
    size_t e = s.size();
    while (e > 0 && std::isspace(static_cast<unsigned char>(s[e - 1]))) --e;
    return s.substr(0, e);
}

// strncmp and memcmp look at no more bytes than they must; a string argument is read
// only as far as it goes.
std::string prefix(Engine& en, uint32_t p, size_t n) {
    if (p == 0) en.fail(kErrNotAddress);
    uint32_t avail = 0;
    const uint8_t* h = en.span(p, &avail);
    size_t m = 0;
    while (m < n && m < avail && h[m]) ++m;
    if (m == avail && m < n) en.fail(kErrIllegalPointer);
    return std::string(reinterpret_cast<const char*>(h), m);
}

}  // namespace

bool builtinString(BArgs& a, int num, Val& out) {
    Engine& en = a.en;
    switch (num) {
        case 74:  // strcmp
        case 88:  // strcoll
            out.i = sign(std::strcmp(a.s(0).c_str(), a.s(1).c_str()));
            return true;
        case 75: {  // strcpy
            putString(en, a.p(0), a.s(1));
            out.i = a.p(0);
            return true;
        }
        case 76: {  // strncmp
            const size_t n = static_cast<uint32_t>(a.i(2));
            out.i = sign(std::strncmp(prefix(en, a.p(0), n).c_str(), prefix(en, a.p(1), n).c_str(), n));
            return true;
        }
        case 77: {  // strncpy
            const size_t n = static_cast<uint32_t>(a.i(2));
            std::string s = prefix(en, a.p(1), n);
            s.resize(n, '\0');
            putBytes(en, a.p(0), s.data(), n);
            out.i = a.p(0);
            return true;
        }
        case 78:
            out.i = static_cast<int64_t>(a.s(0).size());
            return true;
        case 79: {  // strcat
            const std::string d = a.s(0);
            putString(en, a.p(0) + static_cast<uint32_t>(d.size()), a.s(1));
            out.i = a.p(0);
            return true;
        }
        case 80: {  // strncat
            const std::string d = a.s(0);
            const std::string s = prefix(en, a.p(1), static_cast<uint32_t>(a.i(2)));
            putString(en, a.p(0) + static_cast<uint32_t>(d.size()), s);
            out.i = a.p(0);
            return true;
        }
        case 81:
        case 82: {  // strchr, strrchr
            const std::string s = a.s(0);
            const char c = static_cast<char>(a.i(1));
            size_t at;
            if (c == 0) at = s.size();
            else at = num == 81 ? s.find(c) : s.rfind(c);
            out.i = at == std::string::npos ? 0 : a.p(0) + static_cast<uint32_t>(at);
            return true;
        }
        case 83: {  // strstr
            const size_t at = a.s(0).find(a.s(1));
            out.i = at == std::string::npos ? 0 : a.p(0) + static_cast<uint32_t>(at);
            return true;
        }
        case 84: {  // strtok
            uint32_t p = a.p(0) ? a.p(0) : en.strtokNext;
            if (p == 0) {
                out.i = 0;
                return true;
            }
            const std::string delim = a.s(1);
            std::string s = en.cstr(p);
            size_t b = s.find_first_not_of(delim);
            if (b == std::string::npos) {
                en.strtokNext = 0;
                out.i = 0;
                return true;
            }
            size_t e = s.find_first_of(delim, b);
            if (e == std::string::npos) {
                en.strtokNext = 0;
            } else {
                *en.host(p + static_cast<uint32_t>(e), 1) = 0;
                en.strtokNext = p + static_cast<uint32_t>(e) + 1;
            }
            out.i = p + static_cast<uint32_t>(b);
            return true;
        }
        case 85:
        case 87: {  // strspn, strcspn
            const std::string s = a.s(0), set = a.s(1);
            size_t at = num == 85 ? s.find_first_not_of(set) : s.find_first_of(set);
            out.i = static_cast<int64_t>(at == std::string::npos ? s.size() : at);
            return true;
        }
        case 86: {  // strpbrk
            const size_t at = a.s(0).find_first_of(a.s(1));
            out.i = at == std::string::npos ? 0 : a.p(0) + static_cast<uint32_t>(at);
            return true;
        }
        case 89: {  // strxfrm
            const std::string s = a.s(1);
            const size_t n = static_cast<uint32_t>(a.i(2));
            if (n > s.size()) putString(en, a.p(0), s);
            out.i = static_cast<int64_t>(s.size());
            return true;
        }
        case 90: {  // strerror
            const uint32_t buf = libBuffer(en, en.strerrorBuf, 128);
            std::string m = std::strerror(static_cast<int>(a.i(0)));
            if (m.size() > 127) m.resize(127);
            putString(en, buf, m);
            out.i = buf;
            return true;
        }
        case 91: {  // memchr
            const uint32_t n = static_cast<uint32_t>(a.i(2));
            if (n == 0) {
                out.i = 0;
                return true;
            }
            const uint8_t* h = bytes(en, a.p(0), n);
            const void* hit = std::memchr(h, static_cast<unsigned char>(a.i(1)), n);
            out.i = hit ? a.p(0) + static_cast<uint32_t>(static_cast<const uint8_t*>(hit) - h) : 0;
            return true;
        }
        case 92: {  // memcmp
            const uint32_t n = static_cast<uint32_t>(a.i(2));
            if (n == 0) {
                out.i = 0;
                return true;
            }
            std::string x(reinterpret_cast<const char*>(bytes(en, a.p(0), n)), n);
            out.i = sign(std::memcmp(x.data(), bytes(en, a.p(1), n), n));
            return true;
        }
        case 93:
        case 94: {  // memcpy, memmove
            const int64_t n = static_cast<int32_t>(a.i(2));
            if (n < 0) en.fail(kErrArgMismatch);
            if (n > 0) {
                const uint8_t* src = bytes(en, a.p(1), static_cast<uint32_t>(n));
                std::string tmp(reinterpret_cast<const char*>(src), static_cast<size_t>(n));
                if (a.p(0) == 0) en.fail(kErrNotAddress);
                putBytes(en, a.p(0), tmp.data(), tmp.size());
            }
            out.i = a.p(0);
            return true;
        }
        case 95: {  // memset
            const int64_t n = static_cast<int32_t>(a.i(2));
            if (n < 0) en.fail(kErrArgMismatch);
            if (n > 0) std::memset(en.host(a.p(0), static_cast<uint32_t>(n)), static_cast<int>(a.i(1) & 0xff), static_cast<size_t>(n));
            else if (a.p(0) == 0) en.fail(kErrNotAddress);
            out.i = a.p(0);
            return true;
        }
        case 96:
        case 97: {  // strlwr, strupr
            std::string s = a.s(0);
            for (char& c : s) c = static_cast<char>(num == 96 ? std::tolower(static_cast<unsigned char>(c)) : std::toupper(static_cast<unsigned char>(c)));
            putString(en, a.p(0), s);
            out.i = a.p(0);
            return true;
        }
        case 98: {  // stricmp
            const std::string x = a.s(0), y = a.s(1);
            out.i = cmpIgnoreCase(x, y, std::max(x.size(), y.size()) + 1);
            return true;
        }
        case 99: {  // strnicmp
            const size_t n = static_cast<uint32_t>(a.i(2));
            out.i = cmpIgnoreCase(prefix(en, a.p(0), n), prefix(en, a.p(1), n), n);
            return true;
        }
        case 100: {  // strrev
            std::string s = a.s(0);
            std::reverse(s.begin(), s.end());
            putString(en, a.p(0), s);
            out.i = a.p(0);
            return true;
        }
        case 101:
        case 102: {  // strset, strnset
            std::string s = a.s(0);
            const size_t n = num == 101 ? s.size() : std::min<size_t>(s.size(), static_cast<uint32_t>(a.i(2)));
            for (size_t i = 0; i < n; ++i) s[i] = static_cast<char>(a.i(1));
            putString(en, a.p(0), s);
            out.i = a.p(0);
            return true;
        }
        case 103:
        case 104:
        case 105: {  // strtrim, strltrim, strrtrim
            std::string s = a.s(0);
            if (num != 105) s = trimLeft(s);
            if (num != 104) s = trimRight(s);
            putString(en, a.p(0), s);
            out.i = a.p(0);
            return true;
        }
        default:
            return false;
    }
}

}  // namespace zol
