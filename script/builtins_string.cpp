// String functions. Every pointer is checked against the object it points into; a
// copy that would run past its destination ends the run.
#include <algorithm>
#include <cctype>
#include <cstring>

#include "script/builtins.h"

namespace zol {
namespace {

int cmpIgnoreCase(const std::string& x, const std::string& y, size_t n) {
    for (size_t i = 0; i < n; ++i) {
        const int a = i < x.size() ? std::tolower(static_cast<unsigned char>(x[i])) : 0;
        const int b = i < y.size() ? std::tolower(static_cast<unsigned char>(y[i])) : 0;
        if (a != b) return a < b ? -1 : 1;
        if (a == 0) return 0;
    }
    return 0;
}

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

// strncmp and its kin look at no more bytes than they must; a string argument is read
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

// The address of s's character at, or NULL for npos.
Val addressAt(BArgs& a, size_t k, size_t pos) {
    return intVal(pos == std::string::npos ? 0 : a.p(k) + static_cast<uint32_t>(pos));
}

// Rewrites the string at the first argument in place and answers its address.
template <typename Change>
Val inPlace(BArgs& a, Change change) {
    std::string s = a.s(0);
    change(s);
    putString(a.en, a.p(0), s);
    return intVal(a.p(0));
}

Val findChar(BArgs& a, bool last) {
    const std::string s = a.s(0);
    const char c = static_cast<char>(a.i(1));
    return addressAt(a, 0, c == 0 ? s.size() : last ? s.rfind(c) : s.find(c));
}

Val setChars(BArgs& a, size_t limit) {
    return inPlace(a, [&](std::string& s) {
        const size_t n = std::min(s.size(), limit);
        for (size_t i = 0; i < n; ++i) s[i] = static_cast<char>(a.i(1));
    });
}

}  // namespace

Val bi_strcmp(BArgs& a) { return intVal(signOf(std::strcmp(a.s(0).c_str(), a.s(1).c_str()))); }

Val bi_strcpy(BArgs& a) {
    putString(a.en, a.p(0), a.s(1));
    return intVal(a.p(0));
}

Val bi_strncmp(BArgs& a) {
    const size_t n = static_cast<uint32_t>(a.i(2));
    return intVal(signOf(std::strncmp(prefix(a.en, a.p(0), n).c_str(), prefix(a.en, a.p(1), n).c_str(), n)));
}

Val bi_strncpy(BArgs& a) {
    const size_t n = static_cast<uint32_t>(a.i(2));
    std::string s = prefix(a.en, a.p(1), n);
    s.resize(n, '\0');
    putBytes(a.en, a.p(0), s.data(), n);
    return intVal(a.p(0));
}

Val bi_strlen(BArgs& a) { return intVal(static_cast<int64_t>(a.s(0).size())); }

Val bi_strcat(BArgs& a) {
    const std::string d = a.s(0);
    putString(a.en, a.p(0) + static_cast<uint32_t>(d.size()), a.s(1));
    return intVal(a.p(0));
}

Val bi_strncat(BArgs& a) {
    const std::string d = a.s(0);
    const std::string s = prefix(a.en, a.p(1), static_cast<uint32_t>(a.i(2)));
    putString(a.en, a.p(0) + static_cast<uint32_t>(d.size()), s);
    return intVal(a.p(0));
}

Val bi_strchr(BArgs& a) { return findChar(a, false); }

Val bi_strrchr(BArgs& a) { return findChar(a, true); }

Val bi_strstr(BArgs& a) { return addressAt(a, 0, a.s(0).find(a.s(1))); }

Val bi_strtok(BArgs& a) {
    Engine& en = a.en;
    const uint32_t p = a.p(0) ? a.p(0) : en.strtokNext;
    if (p == 0) return intVal(0);
    const std::string delim = a.s(1);
    const std::string s = en.cstr(p);
    const size_t b = s.find_first_not_of(delim);
    if (b == std::string::npos) {
        en.strtokNext = 0;
        return intVal(0);
    }
    const size_t e = s.find_first_of(delim, b);
    if (e == std::string::npos) {
        en.strtokNext = 0;
    } else {
        *en.host(p + static_cast<uint32_t>(e), 1) = 0;
        en.strtokNext = p + static_cast<uint32_t>(e) + 1;
    }
    return intVal(p + static_cast<uint32_t>(b));
}

Val bi_strspn(BArgs& a) {
    const std::string s = a.s(0), set = a.s(1);
    const size_t at = s.find_first_not_of(set);
    return intVal(static_cast<int64_t>(at == std::string::npos ? s.size() : at));
}

Val bi_strpbrk(BArgs& a) { return addressAt(a, 0, a.s(0).find_first_of(a.s(1))); }

Val bi_strcspn(BArgs& a) {
    const std::string s = a.s(0), set = a.s(1);
    const size_t at = s.find_first_of(set);
    return intVal(static_cast<int64_t>(at == std::string::npos ? s.size() : at));
}

Val bi_strcoll(BArgs& a) { return bi_strcmp(a); }

Val bi_strxfrm(BArgs& a) {
    const std::string s = a.s(1);
    const size_t n = static_cast<uint32_t>(a.i(2));
    if (n > s.size()) putString(a.en, a.p(0), s);
    return intVal(static_cast<int64_t>(s.size()));
}

Val bi_strerror(BArgs& a) {
    const uint32_t buf = libBuffer(a.en, a.en.strerrorBuf, 128);
    std::string m = std::strerror(static_cast<int>(a.i(0)));
    if (m.size() > 127) m.resize(127);
    putString(a.en, buf, m);
    return intVal(buf);
}

Val bi_strlwr(BArgs& a) {
    return inPlace(a, [](std::string& s) {
        for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    });
}

Val bi_strupr(BArgs& a) {
    return inPlace(a, [](std::string& s) {
        for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    });
}

Val bi_stricmp(BArgs& a) {
    const std::string x = a.s(0), y = a.s(1);
    return intVal(cmpIgnoreCase(x, y, std::max(x.size(), y.size()) + 1));
}

Val bi_strnicmp(BArgs& a) {
    const size_t n = static_cast<uint32_t>(a.i(2));
    return intVal(cmpIgnoreCase(prefix(a.en, a.p(0), n), prefix(a.en, a.p(1), n), n));
}

Val bi_strrev(BArgs& a) {
    return inPlace(a, [](std::string& s) { std::reverse(s.begin(), s.end()); });
}

Val bi_strset(BArgs& a) { return setChars(a, std::string::npos); }

Val bi_strnset(BArgs& a) { return setChars(a, static_cast<uint32_t>(a.i(2))); }

Val bi_strtrim(BArgs& a) {
    return inPlace(a, [](std::string& s) { s = trimRight(trimLeft(s)); });
}

Val bi_strltrim(BArgs& a) {
    return inPlace(a, [](std::string& s) { s = trimLeft(s); });
}

Val bi_strrtrim(BArgs& a) {
    return inPlace(a, [](std::string& s) { s = trimRight(s); });
}

}  // namespace zol
