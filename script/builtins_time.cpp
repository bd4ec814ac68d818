// Time and locale. struct tm is nine ints in the script's memory; time_t and clock_t
// are longs; clock() counts milliseconds.
#include <cstring>
#include <ctime>

#include "platform/clock.h"
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

int64_t getTime(Engine& en, uint32_t p) {
    if (p == 0) en.fail(kErrNotAddress);
    int32_t v;
    std::memcpy(&v, en.host(p, 4), 4);
    return v;
}

std::string asc(const std::tm& t) {
    static const char* const days[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    static const char* const months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.3s %.3s %2d %02d:%02d:%02d %d\n", days[((t.tm_wday % 7) + 7) % 7],
                  months[((t.tm_mon % 12) + 12) % 12], t.tm_mday, t.tm_hour, t.tm_min, t.tm_sec, 1900 + t.tm_year);
    return buf;
}

// asctime and ctime: the text in the library's one buffer.
Val ascText(Engine& en, const std::tm& t) {
    const uint32_t buf = libBuffer(en, en.asctimeBuf, 64);
    std::string s = asc(t);
    if (s.size() > 63) s.resize(63);
    putString(en, buf, s);
    return intVal(buf);
}

// gmtime and localtime: the broken-down time in the library's one struct tm.
Val brokenDown(Engine& en, int64_t time, bool local) {
    std::tm t {};
    if (!breakDownTime(time, local, t)) return intVal(0);
    const uint32_t buf = libBuffer(en, en.tmBuf, kTmSize);
    putTm(en, buf, t);
    return intVal(buf);
}

// The lconv of the "C" locale: ten pointers, eight chars, then the strings they point to.
constexpr uint32_t kLconvSize = 56;
constexpr uint32_t kLconvPoint = 48;   // "."
constexpr uint32_t kLconvEmpty = 50;   // ""
constexpr uint32_t kLconvName = 52;    // "C", what setlocale answers

}  // namespace

Val bi_asctime(BArgs& a) { return ascText(a.en, getTm(a.en, a.p(0))); }

Val bi_gmtime(BArgs& a) { return brokenDown(a.en, getTime(a.en, a.p(0)), false); }

Val bi_localtime(BArgs& a) { return brokenDown(a.en, getTime(a.en, a.p(0)), true); }

Val bi_mktime(BArgs& a) {
    std::tm t = getTm(a.en, a.p(0));
    const int64_t r = makeLocalTime(t);
    if (r != -1) putTm(a.en, a.p(0), t);
    return intVal(static_cast<int32_t>(r));
}

Val bi_time(BArgs& a) {
    const int32_t now = static_cast<int32_t>(wallClockSeconds());
    if (a.p(0)) putBytes(a.en, a.p(0), &now, 4);
    return intVal(now);
}

Val bi_clock(BArgs&) {
    return intVal(static_cast<int32_t>(processorMilliseconds()));
}

Val bi_difftime(BArgs& a) {
    return doubleVal(static_cast<double>(static_cast<int32_t>(a.i(0))) - static_cast<double>(static_cast<int32_t>(a.i(1))));
}

Val bi_ctime(BArgs& a) {
    std::tm lt {};
    if (!breakDownTime(getTime(a.en, a.p(0)), true, lt)) return intVal(0);
    return ascText(a.en, lt);
}

Val bi_strftime(BArgs& a) {
    const int64_t max = static_cast<int32_t>(a.i(1));
    if (max < 0 || max > kMaxFormatWidth) a.en.fail(kErrArgMismatch);
    const std::string fmt = a.s(2);
    const std::tm t = getTm(a.en, a.p(3));
    std::string buf(static_cast<size_t>(max) + 1, '\0');
    const size_t n = formatTime(buf.data(), static_cast<size_t>(max), fmt.c_str(), t);
    if (n > 0) putBytes(a.en, a.p(0), buf.data(), n + 1);
    return intVal(static_cast<int64_t>(n));
}

// Only the "C" locale exists for scripts.
Val bi_setlocale(BArgs& a) {
    const uint32_t buf = libBuffer(a.en, a.en.lconvBuf, kLconvSize);
    putString(a.en, buf + kLconvName, "C");
    if (a.p(1)) {
        const std::string want = a.s(1);
        if (!want.empty() && want != "C" && want != "POSIX") return intVal(0);
    }
    return intVal(buf + kLconvName);
}

Val bi_localeconv(BArgs& a) {
    const uint32_t buf = libBuffer(a.en, a.en.lconvBuf, kLconvSize);
    putString(a.en, buf + kLconvPoint, ".");
    putString(a.en, buf + kLconvEmpty, "");
    uint32_t ptrs[10];
    for (uint32_t& p : ptrs) p = buf + kLconvEmpty;
    ptrs[0] = buf + kLconvPoint;
    putBytes(a.en, buf, ptrs, sizeof ptrs);
    const char chars[8] = {127, 127, 127, 127, 127, 127, 127, 127};
    putBytes(a.en, buf + static_cast<uint32_t>(sizeof ptrs), chars, sizeof chars);
    return intVal(buf);
}

}  // namespace zol
