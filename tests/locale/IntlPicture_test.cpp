#include "LocaleTestUtil.hpp"

#include "locale/IntlPicture_p.hpp"

#include <gtest/gtest.h>

namespace vesk::test {
namespace {

CountryTable Short(const char* picture)
{
    CountryTable table;
    ReadShortDatePicture(picture, table);
    return table;
}

CountryTable Long(const char* picture)
{
    CountryTable table;
    ReadLongDatePicture(picture, table);
    return table;
}

struct LongFields {
    DayOfWeekFormat weekday;
    const char* weekdaySep;
    DateFormat order;
    int dayZero;
    const char* daySep;
    MonthFormat month;
    const char* monthSep;
    int century;
    const char* yearSep;
};

void ExpectLong(const char* picture, const LongFields& f)
{
    SCOPED_TRACE(picture);
    CountryTable t = Long(picture);
    EXPECT_EQ(t.m_eLongDateDayOfWeekFormat, f.weekday);
    EXPECT_EQ(Text(t.m_sLongDateDayOfWeekSep), f.weekdaySep);
    EXPECT_EQ(t.m_eLongDateFormat, f.order);
    EXPECT_EQ(t.m_bLongDateDayLeadingZero, f.dayZero);
    EXPECT_EQ(Text(t.m_sLongDateDaySep), f.daySep);
    EXPECT_EQ(t.m_eLongDateMonthFormat, f.month);
    EXPECT_EQ(Text(t.m_sLongDateMonthSep), f.monthSep);
    EXPECT_EQ(t.m_bLongDateCentury, f.century);
    EXPECT_EQ(Text(t.m_sLongDateYearSep), f.yearSep);
}

TEST(ShortDatePicture, OrderFromTheFirstLetter)
{
    CountryTable t = Short("M/d/yy");
    EXPECT_EQ(t.m_eDateFormat, MDY);
    EXPECT_EQ(t.m_bDateDayLeadingZero + t.m_bDateMonthLeadingZero + t.m_bDateCentury, 0);
    t = Short("YYYY-mm-DD");
    EXPECT_EQ(t.m_eDateFormat, YMD);
    EXPECT_EQ(t.m_bDateDayLeadingZero + t.m_bDateMonthLeadingZero + t.m_bDateCentury, 3);
    EXPECT_EQ(Short("'le' d").m_eDateFormat, DMY);
    // Mixed-case doubles do not count, and an empty picture changes nothing.
    EXPECT_EQ(Short("dD.Mm.yYyy").m_bDateCentury, 0);
    EXPECT_EQ(Short(""), CountryTable{});
}

TEST(LongDatePicture, CommonPictures)
{
    ExpectLong("dddd, MMMM dd, yyyy", {DAYOFWEEK_LONG, ", ", MDY, 1, ", ", MONTH_LONG, " ", 1, ""});
    ExpectLong("dddd, d. MMMM yyyy", {DAYOFWEEK_LONG, ", ", DMY, 0, ". ", MONTH_LONG, " ", 1, ""});
    ExpectLong("ddd d MMM yy", {DAYOFWEEK_SHORT, " ", DMY, 0, " ", MONTH_SHORT, " ", 0, ""});
    ExpectLong("yyyy-MM-dd", {DAYOFWEEK_NONE, "", YMD, 1, "", MONTH_NUMBER_LZ, "-", 1, "-"});
    ExpectLong("dddd, d' de 'MMMM' de 'yyyy", {DAYOFWEEK_LONG, ", ", DMY, 0, " de ", MONTH_LONG, " de ", 1, ""});
    ExpectLong("dddd'x 'd MMMM yyyy", {DAYOFWEEK_LONG, "x ", DMY, 0, " ", MONTH_LONG, " ", 1, ""});
}

TEST(LongDatePicture, QuotedYearSeparatorLosesTheOuterCharacters)
{
    ExpectLong("d MMMM yyyy' r.'", {DAYOFWEEK_NONE, "", DMY, 0, " ", MONTH_LONG, " ", 1, " r."});
    ExpectLong("MMMM yyyy'!'", {DAYOFWEEK_NONE, "", MDY, 0, "", MONTH_LONG, " ", 1, "!"});
}

TEST(LongDatePicture, WeekdayTokenIsRemovedFromTheFrontWhereverItStands)
{
    // "dddd" at the end: the first four characters go, and the token is read as a day.
    ExpectLong("d MMMM yyyy dddd", {DAYOFWEEK_LONG, "", MDY, 1, "dd", MONTH_NUMBER_LZ, " ", 1, " "});
}

TEST(LongDatePicture, DegeneratePicturesKeepGoing)
{
    ExpectLong("''''", {DAYOFWEEK_NONE, "", DMY, 0, "", MONTH_NUMBER, "", 1, "''"});
    ExpectLong("d'unclosed", {DAYOFWEEK_NONE, "", DMY, 0, "unclosed", MONTH_NUMBER, "", 1, ""});
    ExpectLong("xyz", {DAYOFWEEK_NONE, "x", YMD, 0, "", MONTH_NUMBER, "", 1, "yz"});
    EXPECT_EQ(Long(""), CountryTable{});
}

TEST(LongDatePicture, SeparatorsKeepTheirEncoding)
{
    CountryTable t;
    ReadLongDatePicture(IntlText("yyyy\xE5\xB9\xB4M\xE6\x9C\x88" "d"), t);
    EXPECT_EQ(Text(t.m_sLongDateYearSep), "\xE5\xB9\xB4");
    EXPECT_TRUE(t.m_sLongDateMonthSep.IsUTF8());
    EXPECT_FALSE(Long("d. MMMM yyyy").m_sLongDateDaySep.IsUTF8());
}

} // namespace
} // namespace vesk::test
