// Time and locale. struct tm is nine ints in the script's memory; time_t and clock_t
// are longs; clock() counts milliseconds.
#include <cstring>
#include <ctime>

#include "script/builtins.h"

namespace zol {
namespace {

constexpr uint32_t kTmSize = 36;

void putTm(Engine& en, uint32_t p, const std::tm& t) {
    const int32_t v[9] = {t.tm_sec, t.tm_min, t.tm_hour, t.tm_mday, t.tm_mon, t.tm_year, t.tm_wday, t.tm_yday, t.tm_isdst};
    putBytes(en, p, v, kTmSize);
}

std::tm getTm(Engine& en, uint32_t p) {
    if (p == 0) en.fail(kErrNotAddress);
    int32_t v[9];
    std::memcpy(v, en.host(p, kTmSize), kTmSize);
    std::tm t{};
    t.tm_sec = v[0];
    t.tm_min = v[1];
    t.tm_hour = v[2];
    t.tm_mday = v[3];
    t.tm_mon = v[4];
    t.tm_year = v[5];
    t.tm_wday = v[6];
    t.tm_yday = v[7];
    t.tm_isdst = v[8];
    return t;
}

std::time_t getTime(Engine& en, uint32_t p) {
    if (p == 0) en.fail(kErrNotAddress);
    int32_t v;
    std::memcpy(&v, en.host(p, 4), 4);
    return static_cast<std::time_t>(v);
}

std::string asc(const std::tm& t) {
    static const char* const days[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    static const char* const months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.3s %.3s %2d %02d:%02d:%02d %d\n", days[((t.tm_wday % 7) + 7) % 7],
                  months[((t.tm_mon % 12) + 12) % 12], t.tm_mday, t.tm_hour, t.tm_min, t.tm_sec, 1900 + t.tm_year);
    return buf;
}

}  // namespace

bool builtinTime(BArgs& a, int num, Val& out) {
    Engine& en = a.en;
    switch (num) {
        case 118:
        case 125: {  // asctime, ctime
            std::tm t{};
            if (num == 118) {
                t = getTm(en, a.p(0));
            } else {
                const std::time_t tt = getTime(en, a.p(0));
                const std::tm* lt = std::localtime(&tt);
                if (!lt) {
                    out.i = 0;
                    return true;
                }
                t = *lt;
            }
            const uint32_t buf = libBuffer(en, en.asctimeBuf, 64);
            std::string s = asc(t);
            if (s.size() > 63) s.resize(63);
            putString(en, buf, s);
            out.i = buf;
            return true;
        }
        case 119:
        case 120: {  // gmtime, localtime
            const std::time_t tt = getTime(en, a.p(0));
            const std::tm* t = num == 119 ? std::gmtime(&tt) : std::localtime(&tt);
            if (!t) {
                out.i = 0;
                return true;
            }
            const uint32_t buf = libBuffer(en, en.tmBuf, kTmSize);
            putTm(en, buf, *t);
            out.i = buf;
            return true;
        }
        case 121: {  // mktime
            std::tm t = getTm(en, a.p(0));
            const std::time_t r = std::mktime(&t);
            if (r != static_cast<std::time_t>(-1)) putTm(en, a.p(0), t);
            out.i = static_cast<int32_t>(r);
            return true;
        }
        case 122: {  // time
            const int32_t now = static_cast<int32_t>(std::time(nullptr));
            if (a.p(0)) putBytes(en, a.p(0), &now, 4);
            out.i = now;
            return true;
        }
        case 123:
            out.i = static_cast<int32_t>(static_cast<double>(std::clock()) * 1000.0 / CLOCKS_PER_SEC);
            return true;
        case 124:
            out.d = static_cast<double>(static_cast<int32_t>(a.i(0))) - static_cast<double>(static_cast<int32_t>(a.i(1)));
            return true;
        case 126: {  // strftime
            const int64_t max = static_cast<int32_t>(a.i(1));
            if (max < 0 || max > kMaxFormatWidth) en.fail(kErrArgMismatch);
            const std::string fmt = a.s(2);
            const std::tm t = getTm(en, a.p(3));
            std::string buf(static_cast<size_t>(max) + 1, '\0');
            const size_t n = max ? std::strftime(buf.data(), static_cast<size_t>(max), fmt.c_str(), &t) : 0;
            if (n > 0) putBytes(en, a.p(0), buf.data(), n + 1);
            out.i = static_cast<int64_t>(n);
            return true;
        }
        case 127: {  // setlocale: only the "C" locale exists for scripts
            const uint32_t buf = libBuffer(en, en.lconvBuf, 56);
            putString(en, buf + 52, "C");
            if (a.p(1)) {
                const std::string want = a.s(1);
                if (!want.empty() && want != "C" && want != "POSIX") {
                    out.i = 0;
                    return true;
                }
            }
            out.i = buf + 52;
            return true;
        }
        case 128: {  // localeconv
            const uint32_t buf = libBuffer(en, en.lconvBuf, 56);
            putString(en, buf + 48, ".");
            putString(en, buf + 50, "");
            uint32_t ptrs[10];
            for (int k = 0; k < 10; ++k) ptrs[k] = buf + 50;
            ptrs[0] = buf + 48;
            putBytes(en, buf, ptrs, 40);
            const char chars[8] = {127, 127, 127, 127, 127, 127, 127, 127};
            putBytes(en, buf + 40, chars, 8);
            out.i = buf;
            return true;
        }
        default:
            return false;
    }
}

}  // namespace zol
