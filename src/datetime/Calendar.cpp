#include "datetime/Calendar_p.hpp"

namespace vesk::detail {

namespace {

constexpr uint16_t kMonthLength[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

// Days of years 1 to year - 1; 64-bit because wrapped day numbers reach years in the millions.
uint64_t DaysBeforeYear(uint64_t year)
{
    const uint64_t y = year - 1;
    return y * 365 + y / 4 - y / 100 + y / 400;
}

} // namespace

bool IsLeapYear(uint32_t year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

uint16_t MonthLength(uint32_t month, bool leapYear)
{
    if (month < 1 || month > 12)
        return 0;
    return kMonthLength[month - 1] + (month == 2 && leapYear ? 1 : 0);
}

uint16_t DaysBeforeMonth(uint32_t month, bool leapYear)
{
    uint16_t days = 0;
    for (uint32_t m = 1; m < month && m <= 12; ++m)
        days += MonthLength(m, leapYear);
    return days;
}

uint32_t DayNumber(uint32_t day, uint32_t month, uint32_t year)
{
    if (year < 1 || year > 3000 || month > 12 || day > 31)
        return 0;
    return static_cast<uint32_t>(DaysBeforeYear(year)) + DaysBeforeMonth(month, IsLeapYear(year)) + day;
}

uint32_t RawDateOfDayNumber(uint32_t n)
{
    uint64_t year = 0;
    uint64_t rest = n;
    bool leap = false;
    // Below 365 the year is 0 and the months have their plain lengths, although year 0 would
    // be a leap year and its dates have day number 0: day numbers 1 to 364 land in year 0.
    if (n >= 365) {
        year = n / 365;
        while (n < DaysBeforeYear(year) + 1)
            --year;
        rest = n - DaysBeforeYear(year);
        leap = IsLeapYear(static_cast<uint32_t>(year));
        // Early in a year, before enough leap days have gathered, n / 365 is one year short.
        if (rest > 365u + leap) {
            rest -= 365u + leap;
            ++year;
            leap = IsLeapYear(static_cast<uint32_t>(year));
        }
    }
    uint32_t month = 1;
    while (rest > MonthLength(month, leap))
        rest -= MonthLength(month++, leap);
    // Years beyond 9999 are reachable only through wrapped day counts; they keep the field's
    // last four digits, as the field setters do.
    return static_cast<uint32_t>(year % 10000) * 10000 + month * 100 + static_cast<uint32_t>(rest);
}

} // namespace vesk::detail
