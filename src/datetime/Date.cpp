#include <vesk/datetime/Date.hpp>

#include "platform/clock.hpp"
#include "datetime/Calendar_p.hpp"

#include <limits>

namespace vesk {

using namespace detail;

namespace {

uint32_t DayNumberOf(const Date& d)
{
    return DayNumber(d.GetDay(), d.GetMonth(), d.GetYear());
}

Date DateOf(uint32_t dayNumber)
{
    return Date(RawDateOfDayNumber(dayNumber));
}

// Unsigned on purpose: day number 0 wraps to 0xFFFFFFFF, which gives THURSDAY.
DayOfWeek WeekdayOf(uint32_t dayNumber)
{
    return static_cast<DayOfWeek>((dayNumber - 1u) % 7);
}

} // namespace

Date::Date()
{
    const platform::LocalTime now = platform::ReadLocalTime();
    *this = Date(now.day, now.month, now.year);
}

Date::Date(uint16_t day, uint16_t month, uint16_t year)
    : m_nDate((static_cast<uint32_t>(year % 10000) * 100 + month % 100) * 100 + day % 100)
{
}

uint32_t Date::ChangeDate(uint32_t raw)
{
    const uint32_t old = m_nDate;
    m_nDate = raw;
    return old;
}

uint16_t Date::ChangeDay(uint16_t day)
{
    const uint16_t old = GetDay();
    m_nDate = m_nDate / 100 * 100 + day % 100;
    return old;
}

uint16_t Date::ChangeMonth(uint16_t month)
{
    const uint16_t old = GetMonth();
    m_nDate = m_nDate / 10000 * 10000 + static_cast<uint32_t>(month % 100) * 100 + GetDay();
    return old;
}

uint32_t Date::ChangeYear(uint16_t year)
{
    const uint32_t old = GetYear();
    m_nDate = static_cast<uint32_t>(year % 10000) * 10000 + m_nDate % 10000;
    return old;
}

bool Date::IsLeapYear() const
{
    return detail::IsLeapYear(GetYear());
}

uint16_t Date::GetDaysInYear() const
{
    return IsLeapYear() ? 366 : 365;
}

uint16_t Date::GetDaysInMonth() const
{
    return MonthLength(GetMonth(), IsLeapYear());
}

uint16_t Date::GetDayOfYear() const
{
    return GetDay() + DaysBeforeMonth(GetMonth(), IsLeapYear());
}

DayOfWeek Date::GetDayOfWeek() const
{
    return WeekdayOf(DayNumberOf(*this));
}

uint16_t Date::GetWeekOfYear() const
{
    const unsigned firstWeekday = WeekdayOf(DayNumber(1, 1, GetYear()));
    const unsigned day = GetDayOfYear();
    return static_cast<uint16_t>(day / 7 + (day % 7 > 7 - firstWeekday ? 2 : 1));
}

bool Date::IsValid() const
{
    if (GetYear() > 3000 || GetMonth() > 12)
        return false;
    if (GetMonth() == 0)
        return GetDay() == 0;
    return GetDay() <= GetDaysInMonth();
}

bool Date::IsBetween(const Date& a, const Date& b) const
{
    return a <= *this && *this <= b;
}

Date& Date::operator++()
{
    if (m_nDate != 0)
        *this = DateOf(DayNumberOf(*this) + 1u);
    return *this;
}

Date& Date::operator--()
{
    if (m_nDate != 0)
        *this = DateOf(DayNumberOf(*this) - 1u);
    return *this;
}

Date Date::operator++(int)
{
    const Date old = *this;
    ++*this;
    return old;
}

Date Date::operator--(int)
{
    const Date old = *this;
    --*this;
    return old;
}

Date& Date::operator+=(uint32_t n)
{
    // The null date has day number 0, so it becomes the date of day number n.
    *this = DateOf(DayNumberOf(*this) + n);
    return *this;
}

Date& Date::operator-=(uint32_t n)
{
    if (m_nDate != 0)
        *this = DateOf(DayNumberOf(*this) - n);
    return *this;
}

Date operator+(const Date& d, uint32_t n)
{
    const uint32_t dayNumber = DayNumberOf(d);
    if (n > std::numeric_limits<uint32_t>::max() - dayNumber)
        return Date(0u);
    return DateOf(dayNumber + n);
}

Date operator-(const Date& d, uint32_t n)
{
    const uint32_t dayNumber = DayNumberOf(d);
    if (d.GetDate() == 0 || n > dayNumber)
        return Date(0u);
    return DateOf(dayNumber - n);
}

uint32_t operator-(const Date& a, const Date& b)
{
    const uint32_t from = DayNumberOf(b);
    const uint32_t to = DayNumberOf(a);
    return to > from ? to - from : 0;
}

} // namespace vesk
