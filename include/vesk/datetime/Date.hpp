#pragma once

#include <vesk/export.hpp>

#include <compare>
#include <cstdint>

namespace vesk {

// Weekdays, Monday first.
enum DayOfWeek {
    MONDAY = 0,
    TUESDAY = 1,
    WEDNESDAY = 2,
    THURSDAY = 3,
    FRIDAY = 4,
    SATURDAY = 5,
    SUNDAY = 6,
};

// A calendar date held as the unsigned 32-bit number yyyymmdd; 0 is the null date. Fields are
// not validated (IsValid says whether they form a real date). Arithmetic goes through the day
// number of the proleptic Gregorian calendar (1 January of year 1 is day 1), which is 0 for
// years outside 1 to 3000, months above 12 and days above 31; day numbers 1 to 364 map back to
// year 0. Raw values and day counts are 32-bit unsigned and
// wrap around at 32 bits.
class VESK_API Date {
public:
    // Today's date in local time, from the system clock.
    Date();
    // (year mod 10000 * 100 + month mod 100) * 100 + day mod 100. Note: day first.
    Date(uint16_t day, uint16_t month, uint16_t year);
    // The raw yyyymmdd value as given.
    explicit Date(uint32_t raw) : m_nDate(raw) {}

    // The raw value.
    uint32_t GetDate() const { return m_nDate; }
    // Sets the raw value; returns the previous one.
    uint32_t ChangeDate(uint32_t raw);

    // The day field (raw mod 100).
    uint16_t GetDay() const { return static_cast<uint16_t>(m_nDate % 100); }
    // The month field (raw / 100 mod 100).
    uint16_t GetMonth() const { return static_cast<uint16_t>(m_nDate / 100 % 100); }
    // The year field (raw / 10000); above 9999 only for raw values beyond 99991231.
    uint32_t GetYear() const { return m_nDate / 10000; }
    // Sets the day to day mod 100; returns the previous day.
    uint16_t ChangeDay(uint16_t day);
    // Sets the month to month mod 100; returns the previous month.
    uint16_t ChangeMonth(uint16_t month);
    // Sets the year to year mod 10000; returns the previous year.
    uint32_t ChangeYear(uint16_t year);

    // Whether the year field is a Gregorian leap year.
    bool IsLeapYear() const;
    // 365, or 366 in a leap year.
    uint16_t GetDaysInYear() const;
    // Length of the month field in the year field; 0 for a month outside 1 to 12.
    uint16_t GetDaysInMonth() const;
    // The day field plus the lengths of the months before the month field.
    uint16_t GetDayOfYear() const;
    // (day number - 1) mod 7, taken unsigned: a date with day number 0 gives THURSDAY.
    DayOfWeek GetDayOfWeek() const;
    // d / 7 + 1, or d / 7 + 2 when d mod 7 > 7 - w (d the day of the year, w the weekday of
    // 1 January).
    uint16_t GetWeekOfYear() const;
    // Whether the fields form a real date of years 0 to 3000; day 0 of a real month and the
    // null date count as valid.
    bool IsValid() const;
    // a <= this <= b on the raw values.
    bool IsBetween(const Date& a, const Date& b) const;

    // Comparison of the raw values.
    friend bool operator==(const Date&, const Date&) = default;
    friend std::strong_ordering operator<=>(const Date&, const Date&) = default;

    // The next day; the null date stays null.
    Date& operator++();
    // The previous day; the null date stays null.
    Date& operator--();
    // As the prefix form, returning the previous value.
    Date operator++(int);
    Date operator--(int);
    // n days later; the null date becomes the date of day number n.
    Date& operator+=(uint32_t n);
    // n days earlier, unchecked (a count above the day number wraps); the null date stays null.
    Date& operator-=(uint32_t n);

private:
    uint32_t m_nDate;
};

// n days later; null when the day number overflows; the null date gives day number n.
VESK_API Date operator+(const Date& d, uint32_t n);
// n days earlier; null when n exceeds the day number or for the null date.
VESK_API Date operator-(const Date& d, uint32_t n);
// Days from b to a, never negative (0 when b is later); a's day number when b is null.
VESK_API uint32_t operator-(const Date& a, const Date& b);

} // namespace vesk
