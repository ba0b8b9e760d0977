#include <vesk/text.hpp>

#include "UStringTestUtil.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace vesk;
using test::Text;

TEST(UStringCompare, OperatorsOrderByUnits)
{
    const UString abc(u"abc");
    EXPECT_TRUE(abc == u"abc");
    EXPECT_TRUE(abc != u"ab");
    EXPECT_TRUE(abc < u"abd");
    EXPECT_TRUE(abc < UString(u"\u00E9"));
    EXPECT_TRUE(UString(u"\uFFFF") > UString(u"\u00E9"));
    // Equal lengths compare up to the first zero.
    EXPECT_TRUE(UString(std::u16string(u"a\0b", 3)) == UString(std::u16string(u"a\0c", 3)));
}

TEST(UStringCompare, NullTextOnTheRightFollowsTheFixedRules)
{
    const char16_t* null = nullptr;
    const UString empty;
    const UString full(u"x");
    EXPECT_TRUE(empty == null && empty != null && empty <= null && empty > null);
    EXPECT_FALSE(full == null || full != null || full > null || empty < null || empty >= null);
    EXPECT_TRUE(full >= null);
}

TEST(UStringCompare, CompareAndICompare)
{
    const UString abc(u"abc");
    EXPECT_EQ(abc.Compare(u"abd"), COMPARE_LESS);
    EXPECT_EQ(UString(u"abX").Compare(u"abY", 2), COMPARE_EQUAL);
    EXPECT_EQ(abc.Compare(u"ab"), COMPARE_GREATER);
    EXPECT_EQ(abc.ICompare(UString(u"ABD")), COMPARE_LESS);
    EXPECT_EQ(abc.ICompare(u"ABx", 2), COMPARE_EQUAL);
    EXPECT_TRUE(abc.NoCaseEqual(u"AbC"));
    EXPECT_TRUE(abc.EndsOn(u"bc"));
    EXPECT_FALSE(abc.EndsOn(u""));
    EXPECT_FALSE(abc.EndsOn(u"xabc"));
}

TEST(UStringCompare, MatchAndIMatch)
{
    EXPECT_EQ(UString(u"abc").Match(u"abd"), 2u);
    EXPECT_EQ(UString(u"ab").Match(UString(u"abc")), STRING_MATCH);
    EXPECT_EQ(UString(u"abc").Match(u"ab"), 2u);
    EXPECT_EQ(UString().Match(u"x"), STRING_MATCH);
    EXPECT_EQ(UString(u"abc").IMatch(u"AB"), STRING_MATCH);
    EXPECT_EQ(UString(u"abc").IMatch(u""), STRING_MATCH);
}

// Searches and tokens of texts are checked against the model in UStringModel_test.
TEST(UStringSearch, SingleCharacters)
{
    const UString s(u"abcabc");
    EXPECT_EQ(s.Search(u'c', 2), 2u);
    EXPECT_EQ(s.SearchFromEnd(u'a'), 3u);
    EXPECT_EQ(s.SearchFromEnd(u'x'), STRING_NOTFOUND);
}

TEST(UStringClassify, AsciiClassesOnly)
{
    EXPECT_TRUE(UString().IsAlpha());
    EXPECT_FALSE(UString(u"a\u00E9").IsAlpha());
    EXPECT_FALSE(UString(u"a1\u0663").IsAlphaNumeric());
    EXPECT_TRUE(UString(u"-").IsNumber());
    EXPECT_FALSE(UString(u"1-2").IsNumber());
    EXPECT_TRUE(UString(u"a1").IsLower());
    EXPECT_TRUE(UString(u"A1\u00E9").IsUpper());
}

TEST(UStringListBuffer, AppendsEntriesUntilTheEmptyOne)
{
    char16_t buffer[16] = {};
    UString(u"ab").AddToStringListBuffer(buffer);
    UString(u"c").AddToStringListBuffer(buffer);
    EXPECT_EQ(std::u16string(buffer, 6), std::u16string(u"ab\0c\0\0", 6));
}
