#include "SStringTestUtil.hpp"

#include <vesk/text.hpp>

using namespace vesk;
using namespace vesk::test;

TEST(SStringCompare, EqualityComparesLengthThenBytesUpToAZero)
{
    SString a("abc");
    SString b("abc");
    b.SetIsUTF8(); // the flag takes no part
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a == "ab");
    EXPECT_TRUE(a != "abd");

    SString x("ab\0x", 0, 4, true);
    SString y("ab\0y", 0, 4, true);
    EXPECT_TRUE(x == y);
    EXPECT_FALSE(x == "ab");
    EXPECT_EQ(x.Compare(y), COMPARE_EQUAL);
}

TEST(SStringCompare, OrderIsByUnsignedBytes)
{
    SString high("\xE9");
    EXPECT_TRUE(SString("z") < high);
    EXPECT_TRUE(SString("ab") < "abc");
    EXPECT_FALSE(SString("abc") < "abc");
}

TEST(SStringCompare, NullTextOnTheRightFollowsTheFixedRules)
{
    const char* const null = nullptr;
    SString empty;
    SString full("x");
    EXPECT_TRUE(empty == null && empty != null);
    EXPECT_FALSE(full == null || full != null);
    EXPECT_FALSE(empty < null || full < null);
    EXPECT_TRUE(empty <= null && empty > null);
    EXPECT_FALSE(full <= null || full > null);
    EXPECT_TRUE(full >= null && !(empty >= null));
    // On the left, the mirrored operator answers.
    EXPECT_TRUE(null < empty);
}

TEST(SStringCompare, CompareGivesThreeResults)
{
    SString abc("abc");
    EXPECT_EQ(abc.Compare("abd"), COMPARE_LESS);
    EXPECT_EQ(SString("abX").Compare("abY", 2), COMPARE_EQUAL);
    EXPECT_EQ(SString("\xE9").Compare("a"), COMPARE_GREATER);
    EXPECT_EQ(abc.Compare(static_cast<const char*>(nullptr)), COMPARE_GREATER);
}
