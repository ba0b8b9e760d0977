#include "IntlTestUtil.hpp"

#include <gtest/gtest.h>

#include <climits>

namespace vesk::test {
namespace {

TEST(IntlNumber, DefaultsGroupAndPad)
{
    International intl = WithRecords(CountryTable{});
    EXPECT_EQ(Text(intl.GetNum(1234567, 2)), "12,345.67");
    EXPECT_EQ(Text(intl.GetNum(5, 2)), "0.05");
    EXPECT_EQ(Text(intl.GetNum(-5, 2)), "-0.05");
    EXPECT_EQ(Text(intl.GetNum(123, 5)), "0.00123");
    EXPECT_EQ(Text(intl.GetNum(INT_MIN, 2)), "-21,474,836.48");
    EXPECT_EQ(Text(intl.GetNum(INT_MAX, 0)), "2,147,483,647");
    // The one-argument form uses the country's digits.
    intl.ChangeNumDigits(3);
    EXPECT_EQ(Text(intl.GetNum(1234567)), "1,234.567");
}

TEST(IntlNumber, AsManyDigitsAsDecimalsGetALeadingZero)
{
    International intl = WithRecords(CountryTable{});
    EXPECT_EQ(Text(intl.GetNum(12, 2)), "0.12");
    EXPECT_EQ(Text(intl.GetNum(-999, 3)), "-0.999");
    EXPECT_EQ(Text(intl.GetNum(1234, 3)), "1.234");
}

TEST(IntlNumber, SeparatorsAndLeadingZero)
{
    International intl = WithRecords(BuiltinCountry(1033));
    EXPECT_EQ(Text(intl.GetNum(1234567, 2)), "12.345,67");
    intl.EnableNumThousandSep(false);
    EXPECT_EQ(Text(intl.GetNum(1234567, 2)), "12345,67");
    intl.ChangeNumLeadingZero(false);
    EXPECT_EQ(Text(intl.GetNum(5, 2)), ",05");
    EXPECT_EQ(Text(intl.GetNum(-5, 2)), "-,05");
    // A zero separator adds nothing.
    intl.ChangeNumDecimalSep('\0');
    EXPECT_EQ(Text(intl.GetNum(12345, 2)), "12345");
}

TEST(IntlNumber, TrailingZerosCutToAWholeNumber)
{
    International intl = WithRecords(CountryTable{.m_bNumTrailingZeros = 0});
    EXPECT_EQ(Text(intl.GetNum(100, 2)), "1");
    EXPECT_EQ(Text(intl.GetNum(0, 2)), "0");
    EXPECT_EQ(Text(intl.GetNum(105, 2)), "1.05");
    intl.ChangeNumLeadingZero(false);
    EXPECT_EQ(Text(intl.GetNum(0, 2)), "0");
}

TEST(IntlCurrency, EveryLayout)
{
    International intl = WithRecords(CountryTable{.m_sCurrSymbol = "$"});
    const char* positive[] = {"$12.34", "12.34$", "$ 12.34", "12.34 $", "12.34"};
    for (uint16_t f = 0; f < 5; ++f) {
        intl.ChangeCurrPositiveFormat(f);
        EXPECT_EQ(Text(intl.GetCurr(1234)), positive[f]) << f;
    }
    const char* negative[] = {"($12.34)", "-$12.34", "$-12.34", "$12.34-", "(12.34$)", "-12.34$", "12.34-$",
        "12.34$-", "-12.34 $", "-$ 12.34", "12.34 $-", "$ -12.34", "12.34"};
    for (uint16_t f = 0; f < 13; ++f) {
        intl.ChangeCurrNegativeFormat(f);
        EXPECT_EQ(Text(intl.GetCurr(-1234)), negative[f]) << f;
    }
    intl.ChangeCurrPositiveFormat(0);
    EXPECT_EQ(Text(intl.GetCurr(0)), "$0.00");
}

TEST(IntlCurrency, DigitsZeroCharAndExtremes)
{
    International intl = WithRecords(BuiltinCountry(1033));
    EXPECT_EQ(Text(intl.GetCurr(123456)), "1.234,56 DM");
    intl.ChangeCurrZeroChar('-');
    EXPECT_EQ(Text(intl.GetCurr(1200)), "12,-- DM");
    EXPECT_EQ(Text(intl.GetCurr(1201)), "12,01 DM");
    intl.ChangeCurrDigits(0);
    EXPECT_EQ(Text(intl.GetCurr(1200)), "1.200 DM");
    // The magnitude of the smallest amount wraps to itself and keeps its sign.
    intl.ChangeCurrDigits(2);
    EXPECT_EQ(Text(intl.GetCurr(INT_MIN)), "--21.474.836,48 DM");
    // A zero character of 0 ends the amount.
    intl.ChangeCurrZeroChar('\0');
    EXPECT_EQ(Text(intl.GetCurr(1200)), "12, DM");
}

TEST(IntlCurrency, SymbolKeepsItsEncoding)
{
    International intl = WithRecords(BuiltinCountry(1033));
    SString euro("\xE2\x82\xAC");
    euro.SetIsUTF8();
    intl.ChangeCurrSymbol(euro);
    SString amount = intl.GetCurr(500);
    EXPECT_EQ(Text(amount), "5,00 \xE2\x82\xAC");
    EXPECT_TRUE(amount.IsUTF8());
    EXPECT_FALSE(intl.GetNum(500).IsUTF8());
}

} // namespace
} // namespace vesk::test
