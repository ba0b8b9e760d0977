#include "LocaleTestUtil.hpp"

#include "locale/IntlSettings_p.hpp"
#include "locale/LocaleTables_p.hpp"

#include <gtest/gtest.h>

namespace vesk::test {
namespace {

CountryTable Read(const platform::IntlKeys& keys, CountryTable table = BuiltinCountry(1033))
{
    ReadIntlSettings(keys, table);
    return table;
}

TEST(IntlSettings, MissingOrUnusableKeysLeaveTheRecord)
{
    EXPECT_EQ(Read({}), BuiltinCountry(1033));
    EXPECT_EQ(Read({{"iTime", "x1"}, {"iDigits", ""}, {"sTime", ""}, {"sDecimal", "\xE6\x99\x82"},
                  {"sList", "\xC3"}, {"sShortDate", ""}, {"sLongDate", ""}, {"sUnknown", "1"}}),
        BuiltinCountry(1033));
}

TEST(IntlSettings, EveryKeyReachesItsField)
{
    CountryTable t = Read({{"sShortDate", "yyyy-M-d"}, {"sLongDate", "dddd, MMMM dd, yyyy"}, {"iTime", "1"},
                              {"sTime", "h"}, {"s1159", "AM"}, {"s2359", "PM"}, {"iTLZero", "0"}, {"sThousand", "."},
                              {"sDecimal", ","}, {"iLzero", "0"}, {"iDigits", "3"}, {"iCurrency", "1"},
                              {"iNegCurr", "5"}, {"sCurrency", "$"}, {"iCurrDigits", "0"}, {"sList", "|"}},
        CountryTable{});
    CountryTable expected{.m_eDateFormat = YMD, .m_bDateDayLeadingZero = 0, .m_bDateMonthLeadingZero = 0,
        .m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG, .m_sLongDateDayOfWeekSep = ", ", .m_sLongDateDaySep = ", ",
        .m_eLongDateMonthFormat = MONTH_LONG, .m_sLongDateMonthSep = " ", .m_eTimeFormat = HOUR_24,
        .m_cTimeSep = 'h', .m_bTimeLeadingZero = 0, .m_sTimeAM = "AM", .m_sTimePM = "PM", .m_cNumThousandSep = '.',
        .m_cNumDecimalSep = ',', .m_bNumLeadingZero = 0, .m_nNumDigits = 3, .m_nCurrPositiveFormat = 1,
        .m_nCurrNegativeFormat = 5, .m_sCurrSymbol = "$", .m_nCurrDigits = 0, .m_cListSep = '|'};
    EXPECT_EQ(t, expected);
}

TEST(IntlSettings, ThousandSeparatorAndItsSwitch)
{
    CountryTable t = Read({{"sThousand", ""}});
    EXPECT_EQ(t.m_cNumThousandSep, '.');
    EXPECT_EQ(t.m_bNumThousandSep, 0);
    t = Read({{"sThousand", "\xE2\x80\x99"}}, t); // typographic apostrophe
    EXPECT_EQ(t.m_cNumThousandSep, '\'');
    EXPECT_EQ(t.m_bNumThousandSep, 1);
    // Without an 8-bit look-alike the old separator stays.
    EXPECT_EQ(Read({{"sThousand", "\xD9\xAC"}}).m_cNumThousandSep, '.');
}

TEST(IntlSettings, NumbersAreReadLikeProfileIntegers)
{
    platform::IntlKeys keys{{"a", "12abc"}, {"b", "-3"}, {"c", " 4"}, {"d", "4294967297"}};
    EXPECT_EQ(IntlNumber(keys, "a"), 12);
    EXPECT_EQ(IntlNumber(keys, "c"), std::nullopt);
    EXPECT_EQ(IntlNumber(keys, "d"), 1);
}

TEST(IntlSettings, TextsAreCutAndMarked)
{
    CountryTable t = Read({{"s1159", "abcdefghijklmn"}, {"sCurrency", "\xE2\x82\xAC"}});
    EXPECT_EQ(Text(t.m_sTimeAM), "abcdefghij");
    EXPECT_FALSE(t.m_sTimeAM.IsUTF8());
    EXPECT_TRUE(t.m_sCurrSymbol.IsUTF8());
    // Ten characters, not ten bytes.
    EXPECT_EQ(Text(Read({{"s1159", "\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4xxxxxx"}}).m_sTimeAM),
        "\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4xxxx");
    // Pictures are read up to 40 characters: the year token past them is not seen.
    std::string picture = "d" + std::string(33, '.') + "MM yyyy";
    EXPECT_EQ(Read({{"sShortDate", picture}}).m_bDateCentury, 0);
    EXPECT_EQ(Read({{"sShortDate", picture.substr(1)}}).m_bDateCentury, 1);
}

} // namespace
} // namespace vesk::test
