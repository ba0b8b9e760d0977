#include "LocaleTestUtil.hpp"

#include "env/IntlSettings_p.hpp"
#include "env/LocaleTables_p.hpp"

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
    CountryTable t = Read({{"sShortDate", "M/d/yy"}, {"sLongDate", "dddd, MMMM dd, yyyy"}, {"iTime", "0"},
        {"sTime", "h"}, {"s1159", "AM"}, {"s2359", "PM"}, {"iTLZero", "0"}, {"sThousand", ","},
        {"sDecimal", "."}, {"iLzero", "0"}, {"iDigits", "3"}, {"iCurrency", "1"}, {"iNegCurr", "5"},
        {"sCurrency", "$"}, {"iCurrDigits", "0"}, {"sList", "|"}});
    CountryTable expected = BuiltinCountry(1033);
    expected.m_eDateFormat = MDY;
    expected.m_bDateDayLeadingZero = expected.m_bDateMonthLeadingZero = expected.m_bDateCentury = 0;
    expected.m_eLongDateFormat = MDY;
    expected.m_sLongDateDayOfWeekSep = ", ";
    expected.m_bLongDateDayLeadingZero = 1;
    expected.m_sLongDateDaySep = ", ";
    expected.m_eTimeFormat = HOUR_12;
    expected.m_cTimeSep = 'h';
    expected.m_sTimeAM = "AM";
    expected.m_sTimePM = "PM";
    expected.m_bTimeLeadingZero = 0;
    expected.m_cNumThousandSep = ',';
    expected.m_cNumDecimalSep = '.';
    expected.m_bNumLeadingZero = 0;
    expected.m_nNumDigits = 3;
    expected.m_nCurrPositiveFormat = 1;
    expected.m_nCurrNegativeFormat = 5;
    expected.m_sCurrSymbol = "$";
    expected.m_nCurrDigits = 0;
    expected.m_cListSep = '|';
    EXPECT_EQ(t, expected);
}

TEST(IntlSettings, ThousandSeparatorAndItsSwitch)
{
    CountryTable t = Read({{"sThousand", ""}});
    EXPECT_EQ(t.m_cNumThousandSep, '.');
    EXPECT_EQ(t.m_bNumThousandSep, 0);
    t.m_bNumThousandSep = 0;
    t = Read({{"sThousand", "\xE2\x80\x99"}}, t); // typographic apostrophe
    EXPECT_EQ(t.m_cNumThousandSep, '\'');
    EXPECT_EQ(t.m_bNumThousandSep, 1);
    EXPECT_EQ(Read({{"sThousand", "\xE2\x80\xAF"}}).m_cNumThousandSep, ' '); // narrow no-break space
    EXPECT_EQ(Read({{"sThousand", "\xC2\xA0"}}).m_cNumThousandSep, ' ');
    // A separator without an 8-bit look-alike keeps the old one but still switches grouping on.
    t = Read({{"sThousand", "\xD9\xAC"}}, CountryTable{.m_bNumThousandSep = 0});
    EXPECT_EQ(t.m_cNumThousandSep, ',');
    EXPECT_EQ(t.m_bNumThousandSep, 1);
}

TEST(IntlSettings, NumbersAreReadLikeProfileIntegers)
{
    platform::IntlKeys keys{{"a", "12abc"}, {"b", "-3"}, {"c", " 4"}, {"d", "4294967297"}, {"e", "-"}};
    EXPECT_EQ(IntlNumber(keys, "a"), 12);
    EXPECT_EQ(IntlNumber(keys, "b"), -3);
    EXPECT_EQ(IntlNumber(keys, "c"), std::nullopt);
    EXPECT_EQ(IntlNumber(keys, "d"), 1);
    EXPECT_EQ(IntlNumber(keys, "e"), std::nullopt);
    EXPECT_EQ(IntlNumber(keys, "f"), std::nullopt);
    EXPECT_EQ(Read({{"iDigits", "65539"}}).m_nNumDigits, 3); // cut to 16 bits
}

TEST(IntlSettings, TextsAreCutAndMarked)
{
    CountryTable t = Read({{"s1159", "abcdefghijklmn"}, {"sCurrency", "\xE2\x82\xAC"}, {"s2359", ""}});
    EXPECT_EQ(Text(t.m_sTimeAM), "abcdefghij");
    EXPECT_FALSE(t.m_sTimeAM.IsUTF8());
    EXPECT_EQ(Text(t.m_sCurrSymbol), "\xE2\x82\xAC");
    EXPECT_TRUE(t.m_sCurrSymbol.IsUTF8());
    EXPECT_EQ(Text(t.m_sTimePM), "");
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
