#pragma once

// The proleptic Gregorian calendar behind Date: day numbers count from 1 January of year 1
// (day 1).
#include <cstdint>

namespace vesk::detail {

bool IsLeapYear(uint32_t year);
// 31, 28/29, 31, ... for months 1 to 12; 0 for any other month.
uint16_t MonthLength(uint32_t month, bool leapYear);
// Sum of the lengths of months 1 to month - 1.
uint16_t DaysBeforeMonth(uint32_t month, bool leapYear);
// The day number of a date; 0 unless 1 <= year <= 3000, month <= 12 and day <= 31.
uint32_t DayNumber(uint32_t day, uint32_t month, uint32_t year);
// The raw yyyymmdd value of a day number (see the source for the year-0 mapping).
uint32_t RawDateOfDayNumber(uint32_t n);

} // namespace vesk::detail
