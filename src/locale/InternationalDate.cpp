#include "locale/IntlBuilder_p.hpp"
#include "locale/International_p.hpp"

#include <array>
#include <string>

namespace vesk {

namespace {

// Decimal text, padded to two digits on request.
void AddNumber(IntlBuilder& out, uint32_t value, bool twoDigits)
{
    out.AddNumber(value, twoDigits ? 2 : 0);
}

// The year padded to four digits; without the century its first two digits are dropped.
void AddYear(IntlBuilder& out, uint32_t year, bool century)
{
    std::string text = std::to_string(year);
    if (text.size() < 4)
        text.insert(0, 4 - text.size(), '0');
    out += std::string_view(text).substr(century ? 0 : 2);
}

enum class Part { Day, Month, Year };

// The three parts in the given order; an unknown order takes month, day, year.
std::array<Part, 3> InOrder(DateFormat order)
{
    switch (order) {
    case DMY: return {Part::Day, Part::Month, Part::Year};
    case YMD: return {Part::Year, Part::Month, Part::Day};
    default: return {Part::Month, Part::Day, Part::Year};
    }
}

// Hours, minutes and the optional seconds and hundredths of a clock reading.
void AddClock(IntlBuilder& out, const CountryTable& c, uint32_t hours, const Time& time, bool seconds, bool hundredths)
{
    AddNumber(out, hours, c.m_bTimeLeadingZero != 0);
    out += c.m_cTimeSep;
    AddNumber(out, time.GetMin(), true);
    if (seconds) {
        out += c.m_cTimeSep;
        AddNumber(out, time.GetSec(), true);
    }
    if (hundredths) {
        out += c.m_cTime100SecSep;
        AddNumber(out, time.Get100Sec(), true);
    }
}

} // namespace

SString International::GetDate(const Date& date) const
{
    const CountryTable& c = m_pData->aCountry;
    IntlBuilder out;
    bool first = true;
    for (Part part : InOrder(c.m_eDateFormat)) {
        if (!first)
            out += c.m_cDateSep;
        first = false;
        if (part == Part::Day)
            AddNumber(out, date.GetDay(), c.m_bDateDayLeadingZero != 0);
        else if (part == Part::Month)
            AddNumber(out, date.GetMonth(), c.m_bDateMonthLeadingZero != 0);
        else
            AddYear(out, date.GetYear(), c.m_bDateCentury != 0);
    }
    return out.Make();
}

SString International::GetLongDate(const Date& date) const
{
    const CountryTable& c = m_pData->aCountry;
    IntlBuilder out;
    if (c.m_eLongDateDayOfWeekFormat == DAYOFWEEK_SHORT)
        out += GetAbbrevDayText(date.GetDayOfWeek());
    else if (c.m_eLongDateDayOfWeekFormat == DAYOFWEEK_LONG)
        out += GetDayText(date.GetDayOfWeek());
    if (c.m_eLongDateDayOfWeekFormat != DAYOFWEEK_NONE)
        out += c.m_sLongDateDayOfWeekSep;

    for (Part part : InOrder(c.m_eLongDateFormat)) {
        if (part == Part::Day) {
            AddNumber(out, date.GetDay(), c.m_bLongDateDayLeadingZero != 0);
            out += c.m_sLongDateDaySep;
        } else if (part == Part::Year) {
            AddYear(out, date.GetYear(), c.m_bLongDateCentury != 0);
            out += c.m_sLongDateYearSep;
        } else {
            switch (c.m_eLongDateMonthFormat) {
            case MONTH_NUMBER_LZ: AddNumber(out, date.GetMonth(), true); break;
            case MONTH_SHORT: out += GetAbbrevMonthText(date.GetMonth()); break;
            case MONTH_LONG: out += GetMonthText(date.GetMonth()); break;
            default: AddNumber(out, date.GetMonth(), false); break;
            }
            out += c.m_sLongDateMonthSep;
        }
    }
    return out.Make();
}

SString International::GetTime(const Time& time, bool seconds, bool hundredths) const
{
    const CountryTable& c = m_pData->aCountry;
    uint32_t hours = time.GetHour();
    bool twelve = c.m_eTimeFormat == HOUR_12;
    uint32_t shown = twelve ? (hours % 12 == 0 ? 12 : hours % 12) : hours % 24;
    IntlBuilder out;
    AddClock(out, c, shown, time, seconds, hundredths);
    if (twelve) {
        const SString& suffix = hours % 24 < 12 ? c.m_sTimeAM : c.m_sTimePM;
        if (suffix.Len()) {
            out += ' ';
            out += suffix;
        }
    }
    return out.Make();
}

SString International::GetDuration(const Time& time, bool seconds, bool hundredths) const
{
    IntlBuilder out;
    if (time.GetTime() < 0)
        out += '-';
    AddClock(out, m_pData->aCountry, time.GetHour(), time, seconds, hundredths);
    return out.Make();
}

} // namespace vesk
