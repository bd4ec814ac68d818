// Conversion between text and numbers: the ato and strto families, sscanf and sprintf.
#include <cerrno>
#include <climits>
#include <cstdlib>

#include "script/builtins.h"

namespace zol {
namespace {

struct StringSource : ScanSource {
    const std::string& s;
    size_t i = 0;
    explicit StringSource(const std::string& str) : s(str) {}
    int get() override { return i < s.size() ? static_cast<unsigned char>(s[i++]) : EOF; }
    void unget(int) override {
        if (i > 0) --i;
    }
};

// Writes the end pointer of a conversion when the script asked for it.
void putEnd(Engine& en, uint32_t endp, uint32_t value) {
    if (endp) putBytes(en, endp, &value, 4);
}

// strtol and strtoul: the base checked, errno and the end pointer set; convert answers
// the value of the text.
template <typename Convert>
Val toInteger(BArgs& a, Convert convert) {
    const std::string s = a.s(0);
    const int base = static_cast<int>(a.i(2));
    if (base < 0 || base == 1 || base > 36) {
        a.en.lastErrno = EINVAL;
        putEnd(a.en, a.p(1), a.p(0));
        return intVal(0);
    }
    char* end = nullptr;
    errno = 0;
    const int64_t v = convert(s, &end, base);
    if (errno) a.en.lastErrno = errno;
    putEnd(a.en, a.p(1), a.p(0) + static_cast<uint32_t>(end - s.c_str()));
    return intVal(v);
}

}  // namespace

Val bi_atof(BArgs& a) { return doubleVal(std::strtod(a.s(0).c_str(), nullptr)); }

Val bi_atoi(BArgs& a) { return intVal(static_cast<int32_t>(std::strtoll(a.s(0).c_str(), nullptr, 10))); }

Val bi_atol(BArgs& a) { return bi_atoi(a); }

Val bi_strtod(BArgs& a) {
    const std::string s = a.s(0);
    char* end = nullptr;
    errno = 0;
    const double v = std::strtod(s.c_str(), &end);
    if (errno) a.en.lastErrno = errno;
    putEnd(a.en, a.p(1), a.p(0) + static_cast<uint32_t>(end - s.c_str()));
    return doubleVal(v);
}

Val bi_strtol(BArgs& a) {
    return toInteger(a, [](const std::string& s, char** end, int base) -> int64_t {
        long long v = std::strtoll(s.c_str(), end, base);
        if (v > INT32_MAX) v = INT32_MAX, errno = ERANGE;
        if (v < INT32_MIN) v = INT32_MIN, errno = ERANGE;
        return v;
    });
}

Val bi_strtoul(BArgs& a) {
    return toInteger(a, [](const std::string& s, char** end, int base) -> int64_t {
        const size_t minus = s.find('-');
        const bool neg = minus != std::string::npos && minus < s.find_first_of("0123456789abcdefABCDEF");
        unsigned long long v = std::strtoull(s.c_str(), end, base);
        if (!neg && v > UINT32_MAX) v = UINT32_MAX, errno = ERANGE;
        return static_cast<uint32_t>(v);
    });
}

Val bi_sscanf(BArgs& a) {
    const std::string s = a.s(0);
    StringSource src(s);
    return intVal(scanArgs(a, src, a.s(1), 2));
}

Val bi_sprintf(BArgs& a) {
    const std::string s = formatArgs(a, a.s(1), 2);
    putString(a.en, a.p(0), s);
    return intVal(static_cast<int64_t>(s.size()));
}

}  // namespace zol
