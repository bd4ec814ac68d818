// Local time and the user's time and date conventions (LC_TIME of the environment).
#pragma once
#include <cstddef>
#include <cstdint>
#include <ctime>

namespace zol {

struct LocalTime {
    int hour = 0;    // 0..23
    int minute = 0;  // 0..59
    int second = 0;  // 0..60
    int day = 1;     // 1..31
    int month = 1;   // 1..12
    int year = 1970;
    int weekday = 0; // 0 Sunday .. 6 Saturday
};

LocalTime localTimeNow();

// Seconds since 1970 by the wall clock.
int64_t wallClockSeconds();
// The processor time this process has used, in milliseconds.
double processorMilliseconds();

// Calendar conversions of the C library, for the script language's <time.h>: a time
// broken down in UTC or in the local time zone (false when it cannot be represented),
// a local broken-down time made a time (normalising its fields; -1 when impossible),
// and strftime's formatting (0 when the result does not fit).
bool breakDownTime(int64_t t, bool local, std::tm& out);
int64_t makeLocalTime(std::tm& t);
size_t formatTime(char* buf, size_t size, const char* format, const std::tm& t);

// A random number for names that must not collide: each process draws a different
// sequence.
uint32_t randomNumber();

// Milliseconds of a clock that only ever moves forward: the time since the machine
// started, as the system counts it.
uint64_t monotonicMilliseconds();

enum class DateOrder { MonthDayYear, DayMonthYear, YearMonthDay };

struct TimeConventions {
    char timeSeparator = ':';
    char dateSeparator = '/';
    DateOrder dateOrder = DateOrder::MonthDayYear;
    bool hours24 = true;
    bool leadingZeroHour = true;  // "09:05" rather than "9:05"
};

// Read from the environment's LC_TIME locale; the C locale's conventions when that
// cannot be loaded.
TimeConventions timeConventions();

// Derives the conventions from strftime formats such as "%H:%M:%S" and "%m/%d/%y".
TimeConventions conventionsFromFormats(const char* timeFormat, const char* dateFormat);

}  // namespace zol
