#include "platform/clock.h"

#include <clocale>
#include <cstring>
#include <ctime>
#include <random>
#include <langinfo.h>
#include <locale.h>

namespace zol {

LocalTime localTimeNow() {
    std::time_t now = std::time(nullptr);
    std::tm tm {};
    ::localtime_r(&now, &tm);
    LocalTime t;
    t.hour = tm.tm_hour;
    t.minute = tm.tm_min;
    t.second = tm.tm_sec;
    t.day = tm.tm_mday;
    t.month = tm.tm_mon + 1;
    t.year = tm.tm_year + 1900;
    t.weekday = tm.tm_wday;
    return t;
}

int64_t wallClockSeconds() { return static_cast<int64_t>(std::time(nullptr)); }

double processorMilliseconds() { return static_cast<double>(std::clock()) * 1000.0 / CLOCKS_PER_SEC; }

bool breakDownTime(int64_t t, bool local, std::tm& out) {
    const std::time_t tt = static_cast<std::time_t>(t);
    return local ? ::localtime_r(&tt, &out) != nullptr : ::gmtime_r(&tt, &out) != nullptr;
}

int64_t makeLocalTime(std::tm& t) { return static_cast<int64_t>(std::mktime(&t)); }

size_t formatTime(char* buf, size_t size, const char* format, const std::tm& t) {
    return size ? std::strftime(buf, size, format, &t) : 0;
}

uint32_t randomNumber() {
    static std::minstd_rand generator(std::random_device{}());
    return static_cast<uint32_t>(generator());
}

uint64_t monotonicMilliseconds() {
    timespec ts {};
    ::clock_gettime(CLOCK_MONOTONIC, &ts);
    return static_cast<uint64_t>(ts.tv_sec) * 1000u + static_cast<uint64_t>(ts.tv_nsec) / 1000000u;
}

namespace {

// The conversion letter after "%", skipping the flags and modifiers that glibc formats
// use; unpadded tells whether the "-" flag (no leading zero) was among them.
char conversion(const char*& p, bool& unpadded) {
    unpadded = false;
    while (*p == '-' || *p == '_' || *p == '0' || *p == '^' || *p == '#' || *p == 'E' || *p == 'O') {
        if (*p == '-' || *p == '_') unpadded = true;
        ++p;
    }
    return *p;
}

}  // namespace

TimeConventions conventionsFromFormats(const char* timeFormat, const char* dateFormat) {
    TimeConventions c;
    bool hourSeen = false;
    for (const char* p = timeFormat ? timeFormat : ""; *p && !hourSeen; ++p) {
        if (*p != '%') continue;
        ++p;
        bool unpadded;
        char conv = conversion(p, unpadded);
        if (!conv) break;
        hourSeen = true;
        if (conv == 'T' || conv == 'R') c.hours24 = true, c.timeSeparator = ':';
        else if (conv == 'r') c.hours24 = false, c.timeSeparator = ':';
        else if (conv == 'H' || conv == 'k') c.hours24 = true;
        else if (conv == 'I' || conv == 'l') c.hours24 = false;
        else hourSeen = false;
        if (!hourSeen) continue;
        c.leadingZeroHour = !unpadded && conv != 'k' && conv != 'l';
        if ((conv == 'H' || conv == 'k' || conv == 'I' || conv == 'l') && p[1] && p[1] != '%') c.timeSeparator = p[1];
    }
    int position[3] = {0, 0, 0};  // order in which day, month and year appear
    int seen = 0;
    for (const char* p = dateFormat ? dateFormat : ""; *p && seen < 3; ++p) {
        if (*p != '%') continue;
        ++p;
        bool unpadded;
        char conv = conversion(p, unpadded);
        if (!conv) break;
        if (conv == 'D' || conv == 'x') {
            c.dateOrder = DateOrder::MonthDayYear;
            c.dateSeparator = '/';
            return c;
        }
        if (conv == 'F') {
            c.dateOrder = DateOrder::YearMonthDay;
            c.dateSeparator = '-';
            return c;
        }
        int field = conv == 'd' || conv == 'e' ? 0 : conv == 'm' ? 1 : conv == 'y' || conv == 'Y' ? 2 : -1;
        if (field < 0 || position[field]) continue;
        position[field] = ++seen;
        if (seen == 1 && p[1] && p[1] != '%') c.dateSeparator = p[1];
    }
    if (seen == 3) {
        if (position[2] == 1) c.dateOrder = DateOrder::YearMonthDay;
        else if (position[0] < position[1]) c.dateOrder = DateOrder::DayMonthYear;
        else c.dateOrder = DateOrder::MonthDayYear;
    }
    return c;
}

TimeConventions timeConventions() {
    locale_t loc = ::newlocale(LC_TIME_MASK, "", static_cast<locale_t>(0));
    if (!loc) return conventionsFromFormats(::nl_langinfo(T_FMT), ::nl_langinfo(D_FMT));
    TimeConventions c = conventionsFromFormats(::nl_langinfo_l(T_FMT, loc), ::nl_langinfo_l(D_FMT, loc));
    ::freelocale(loc);
    return c;
}

}  // namespace zol
