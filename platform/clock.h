// Local time and the user's time and date conventions (LC_TIME of the environment).
#pragma once
#include <cstdint>

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
