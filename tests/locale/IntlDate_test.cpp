#include "IntlTestUtil.hpp"

#include <gtest/gtest.h>

namespace vesk::test {
namespace {

const Date kMarch15(15, 3, 2024); // a Friday

TEST(IntlDate, ShortDateFollowsOrderPaddingAndCentury)
{
    EXPECT_EQ(Text(WithRecords(CountryTable{}).GetDate(kMarch15)), "03/15/2024");
    EXPECT_EQ(Text(WithRecords(BuiltinCountry(1033)).GetDate(kMarch15)), "15.03.2024");

    CountryTable c{.m_eDateFormat = DMY, .m_cDateSep = '.', .m_bDateCentury = 0};
    EXPECT_EQ(Text(WithRecords(c).GetDate(Date(5, 1, 2024))), "05.01.24");
    c.m_bDateDayLeadingZero = c.m_bDateMonthLeadingZero = 0;
    EXPECT_EQ(Text(WithRecords(c).GetDate(Date(5, 1, 2024))), "5.1.24");
    EXPECT_EQ(Text(WithRecords(c).GetDate(Date(5, 1, 800))), "5.1.00");
    EXPECT_EQ(Text(WithRecords(CountryTable{}).GetDate(Date(0u))), "00/00/0000");
    // An unknown order takes month, day, year; a zero separator adds nothing.
    CountryTable odd{.m_eDateFormat = static_cast<DateFormat>(7), .m_cDateSep = '\0'};
    EXPECT_EQ(Text(WithRecords(odd).GetDate(kMarch15)), "03152024");
}

TEST(IntlDate, LongDateOfTheBuiltInCountries)
{
    // Weekday, separator, day, separator, month, separator, year.
    EXPECT_EQ(Text(WithRecords(BuiltinCountry(1026)).GetLongDate(kMarch15)), "Friday, 15. March 2024");
    EXPECT_EQ(Text(WithRecords(BuiltinCountry(1033), BuiltinLanguage(1031)).GetLongDate(Date(5, 3, 2024))),
        "Dienstag, 5. M\xE4rz 2024");
}

TEST(IntlDate, LongDateFieldFormats)
{
    CountryTable c{.m_eLongDateFormat = YMD, .m_eLongDateDayOfWeekFormat = DAYOFWEEK_SHORT,
        .m_sLongDateDayOfWeekSep = " ", .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = ".",
        .m_eLongDateMonthFormat = MONTH_NUMBER_LZ, .m_sLongDateMonthSep = "/", .m_bLongDateCentury = 0,
        .m_sLongDateYearSep = "/"};
    International intl = WithRecords(c);
    EXPECT_EQ(Text(intl.GetLongDate(Date(5, 3, 2024))), "Tue 24/03/5.");
    intl.ChangeLongDateMonthFormat(MONTH_SHORT);
    EXPECT_EQ(Text(intl.GetLongDate(Date(5, 3, 2024))), "Tue 24/Mar/5.");
    // A weekday format without a name still writes its separator.
    intl.ChangeLongDateDayOfWeekFormat(static_cast<DayOfWeekFormat>(3));
    EXPECT_EQ(Text(intl.GetLongDate(Date(5, 3, 2024))), " 24/Mar/5.");
}

TEST(IntlDate, LongDateOfAnUnrealMonthOrDay)
{
    International intl = WithRecords(BuiltinCountry(1026));
    // No name for month 13; a date without a day number falls on a Thursday.
    EXPECT_EQ(Text(intl.GetLongDate(Date(20241315u))), "Thursday, 15.  2024");
    EXPECT_EQ(Text(intl.GetLongDate(Date(0u))), "Thursday, 00.  0000");
}

TEST(IntlTime, TwelveHourClock)
{
    CountryTable c{.m_sTimeAM = "AM"};
    International intl = WithRecords(c);
    const Time t(13, 5, 9, 45);
    EXPECT_EQ(Text(intl.GetTime(t, false, false)), "01:05"); // empty PM text: no suffix
    EXPECT_EQ(Text(intl.GetTime(t, true, true)), "01:05:09.45");
    EXPECT_EQ(Text(intl.GetTime(Time(0, 30, 0, 0), false, false)), "12:30 AM");
    intl.ChangeTimePM("PM");
    intl.ChangeTimeLeadingZero(false);
    EXPECT_EQ(Text(intl.GetTime(t, false, false)), "1:05 PM");
    EXPECT_EQ(Text(intl.GetTime(Time(12, 0, 0, 0), false, false)), "12:00 PM");
    // Hours past a day wrap; the sign of a negative time is not shown.
    EXPECT_EQ(Text(intl.GetTime(Time(25, 10, 0, 0), false, false)), "1:10 AM");
    EXPECT_EQ(Text(intl.GetTime(-Time(13, 5, 0, 0), false, false)), "1:05 PM");
}

TEST(IntlTime, TwentyFourHourClock)
{
    International intl = WithRecords(BuiltinCountry(1031)); // Finland: '.' and ','
    EXPECT_EQ(Text(intl.GetTime(Time(13, 5, 9, 45), true, true)), "13.05.09,45");
    EXPECT_EQ(Text(intl.GetTime(Time(30, 0, 0, 0), false, false)), "06.00");
}

TEST(IntlTime, DurationsKeepHoursAndSign)
{
    International intl = WithRecords(CountryTable{.m_sTimeAM = "AM", .m_sTimePM = "PM"});
    EXPECT_EQ(Text(intl.GetDuration(Time(30, 0, 0, 0), false, false)), "30:00");
    EXPECT_EQ(Text(intl.GetDuration(-Time(0, 0, 1, 5), true, true)), "-00:00:01.05");
}

} // namespace
} // namespace vesk::test
