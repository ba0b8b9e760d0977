#include "SStringTestUtil.hpp"

#include <vesk/text.hpp>

#include <cmath>
#include <limits>

using namespace vesk;
using namespace vesk::test;

TEST(SStringNumbers, ConstructorsWriteDecimalText)
{
    EXPECT_EQ(SString(static_cast<short>(-32768)), "-32768");
    EXPECT_EQ(SString(-2147483647 - 1), "-2147483648");
    EXPECT_EQ(SString(std::numeric_limits<int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(SString(std::numeric_limits<uint64_t>::max()), "18446744073709551615");
    // Zeros pad in front of the sign.
    EXPECT_EQ(SString(-5, 4), "00-5");
    EXPECT_EQ(SString(42, 5), "00042");
}

TEST(SStringNumbers, DoubleUsesSixDecimalsWhateverTheLocale)
{
    EXPECT_EQ(SString(3.5), "3.500000");
    EXPECT_EQ(SString(-0.0000006), "-0.000001");
    EXPECT_EQ(SString(1e300).Len(), 255u); // cut to the 256-byte buffer
    GlobalLocaleGuard german(LC_NUMERIC, "de_DE.UTF-8");
    if (!german.Active())
        GTEST_SKIP() << "de_DE.UTF-8 is not installed";
    EXPECT_EQ(SString(3.5), "3.500000");
    EXPECT_EQ(static_cast<double>(SString("2.25")), 2.25);
}

TEST(SStringNumbers, ImpUNToAWritesRightAligned)
{
    char buffer[32];
    char* cursor = buffer;
    EXPECT_EQ(ImpUNToA(4294967295u, cursor), 10u);
    EXPECT_EQ(cursor, buffer + 21);
    EXPECT_STREQ(cursor, "4294967295");
}

TEST(SStringNumbers, UnsignedConversionReadsBareDigitsAndWraps)
{
    EXPECT_EQ(static_cast<unsigned int>(SString("12ab")), 12u);
    EXPECT_EQ(static_cast<unsigned int>(SString("-3")), 0u);
    EXPECT_EQ(static_cast<unsigned int>(SString(" 5")), 0u);
    EXPECT_EQ(static_cast<unsigned int>(SString("4294967297")), 1u);
}

TEST(SStringNumbers, AtolConversionsSaturateAtThirtyTwoBits)
{
    EXPECT_EQ(static_cast<int>(SString("  \t-42xyz")), -42);
    EXPECT_EQ(static_cast<int>(SString("2147483648")), 2147483647);
    EXPECT_EQ(static_cast<int>(SString("-99999999999999999999999")), -2147483647 - 1);
    // atoi, then cut to the narrow type.
    EXPECT_EQ(static_cast<short>(SString("99999999999")), static_cast<short>(2147483647));
    EXPECT_EQ(static_cast<unsigned char>(SString("321")), 65);
}

TEST(SStringNumbers, SixtyFourBitConversions)
{
    EXPECT_EQ(static_cast<int64_t>(SString("9223372036854775808")), std::numeric_limits<int64_t>::max());
    EXPECT_EQ(static_cast<uint64_t>(SString("18446744073709551616")), std::numeric_limits<uint64_t>::max());
    EXPECT_EQ(static_cast<uint64_t>(SString("-1")), std::numeric_limits<uint64_t>::max());
    EXPECT_EQ(static_cast<double>(SString(" -1.5e3x")), -1500.0);
    EXPECT_TRUE(std::isinf(static_cast<double>(SString("1e999"))));
}

TEST(SStringNumbers, ToBoolAcceptsWordsAndWholeNonZeroNumbers)
{
    for (const char* yes : {"TRUE", "true", "1", "7", "-2", "99999999999999999999"})
        EXPECT_TRUE(SString(yes).ToBool()) << yes;
    for (const char* no : {"False", "", "0", "0x1", "1x", " 1 ", "yes", "-"})
        EXPECT_FALSE(SString(no).ToBool()) << no;
}
