#include <vesk/text.hpp>

#include "UStringTestUtil.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using namespace vesk;
using test::Text;

TEST(UStringCompare, OperatorsOrderByUnits)
{
    const UString abc(u"abc");
    EXPECT_TRUE(abc == UString(u"abc"));
    EXPECT_TRUE(abc == u"abc");
    EXPECT_TRUE(u"abc" == abc);
    EXPECT_TRUE(abc != u"ab");
    EXPECT_TRUE(abc < u"abd");
    EXPECT_TRUE(abc < UString(u"\u00E9"));
    EXPECT_TRUE(UString(u"\uFFFF") > UString(u"\u00E9"));
    EXPECT_TRUE(abc <= abc);
    EXPECT_TRUE(abc >= u"ab");
    EXPECT_TRUE(u"b" > abc);
    EXPECT_TRUE(abc == abc);
    // Equal lengths compare up to the first zero.
    EXPECT_TRUE(UString(std::u16string(u"a\0b", 3)) == UString(std::u16string(u"a\0c", 3)));
}

TEST(UStringCompare, NullTextRules)
{
    const char16_t* null = nullptr;
    const UString empty;
    const UString full(u"x");
    EXPECT_TRUE(empty == null);
    EXPECT_TRUE(empty != null);
    EXPECT_FALSE(full == null);
    EXPECT_FALSE(full != null);
    EXPECT_FALSE(empty < null);
    EXPECT_TRUE(empty <= null);
    EXPECT_TRUE(empty > null);
    EXPECT_FALSE(full > null);
    EXPECT_TRUE(full >= null);
    EXPECT_FALSE(empty >= null);
}

TEST(UStringCompare, CompareAndICompare)
{
    const UString abc(u"abc");
    EXPECT_EQ(abc.Compare(u"abd"), COMPARE_LESS);
    EXPECT_EQ(abc.Compare(UString(u"abc")), COMPARE_EQUAL);
    EXPECT_EQ(UString(u"b").Compare(u"a"), COMPARE_GREATER);
    EXPECT_EQ(UString(u"abX").Compare(u"abY", 2), COMPARE_EQUAL);
    EXPECT_EQ(abc.Compare(u"ab"), COMPARE_GREATER);
    EXPECT_EQ(abc.ICompare(u"ABC"), COMPARE_EQUAL);
    EXPECT_EQ(abc.ICompare(UString(u"ABD")), COMPARE_LESS);
    EXPECT_EQ(abc.ICompare(u"ABx", 2), COMPARE_EQUAL);
    EXPECT_TRUE(abc.NoCaseEqual(u"AbC"));
    EXPECT_FALSE(abc.NoCaseEqual(u"AbCd"));
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
    EXPECT_EQ(UString(u"abc").IMatch(u"Ax"), 0u);
    EXPECT_EQ(UString(u"abc").IMatch(u""), STRING_MATCH);
}

TEST(UStringSearch, ForwardAndBackward)
{
    const UString s(u"abcabc");
    EXPECT_EQ(s.Search(u"bc"), 1u);
    EXPECT_EQ(s.Search(u'c', 2), 2u);
    EXPECT_EQ(s.Search(u""), STRING_NOTFOUND);
    EXPECT_EQ(s.Search(u"cabcx"), STRING_NOTFOUND);
    EXPECT_EQ(s.NoCaseSearch(u"CA"), 2u);
    EXPECT_EQ(s.NoCaseSearch(u"C", 3), 5u);
    EXPECT_EQ(s.SearchFromEnd(u'a'), 3u);
    EXPECT_EQ(s.SearchFromEnd(u"A"), STRING_NOTFOUND);
}

// wcsncmp at one start: a zero in both texts ends the comparison.
bool NaiveStandsAt(const std::u16string& text, const std::u16string& what, size_t p)
{
    for (size_t i = 0; i < what.size(); ++i) {
        if (text[p + i] != what[i])
            return false;
        if (what[i] == 0)
            return true;
    }
    return true;
}

TEST(UStringSearch, AgreesWithAPlainScanOnRandomTexts)
{
    std::mt19937 random(7);
    auto make = [&random](size_t n) {
        std::u16string s;
        for (size_t i = 0; i < n; ++i)
            s += u"ab\0"[random() % 3];
        return s;
    };
    for (int round = 0; round < 2000; ++round) {
        const std::u16string text = make(random() % 12);
        const std::u16string what = make(1 + random() % 3);
        const unsigned int from = random() % 12;
        unsigned int forward = STRING_NOTFOUND, backward = STRING_NOTFOUND, last = STRING_NOTFOUND;
        for (size_t p = 0; p + what.size() <= text.size(); ++p) {
            if (!NaiveStandsAt(text, what, p))
                continue;
            if (p >= from && forward == STRING_NOTFOUND)
                forward = static_cast<unsigned int>(p);
            if (p <= from && from < text.size())
                backward = static_cast<unsigned int>(p);
            last = static_cast<unsigned int>(p);
        }
        const UString s(text);
        ASSERT_EQ(s.Search(UString(what), from), forward) << round;
        ASSERT_EQ(s.SearchBackward(UString(what), from), backward) << round;
        ASSERT_EQ(s.SearchFromEnd(UString(what)), last) << round;
    }
}

TEST(UStringTokens, CountPositionAndText)
{
    const UString s(u"a,,b");
    EXPECT_EQ(s.GetTokenCount(u','), 3u);
    EXPECT_EQ(s.GetToken(1, u',').Len(), 0u);
    EXPECT_EQ(Text(s.GetToken(2, u',')), u"b");
    EXPECT_EQ(s.GetToken(3, u',').Len(), 0u);
    EXPECT_EQ(UString().GetTokenCount(u','), 0u);
    EXPECT_EQ(UString(u"a").GetTokenCount(u','), 1u);
    EXPECT_EQ(UString(u"a,b,").GetTokenPos(2, u','), 0u);
    EXPECT_EQ(UString(u"a,b").GetTokenPos(1, u','), 2u);
    EXPECT_EQ(UString(u"a,b").GetTokenPos(5, u','), 0u);
    const std::vector<UString> tokens = UString(u" a , b ,  ").GetAllTokens(u',');
    ASSERT_EQ(tokens.size(), 3u);
    EXPECT_EQ(Text(tokens[0]), u"a");
    EXPECT_EQ(Text(tokens[1]), u"b");
    EXPECT_EQ(tokens[2].Len(), 0u);
    EXPECT_TRUE(UString().GetAllTokens(u',').empty());
}

TEST(UStringClassify, AsciiClassesOnly)
{
    EXPECT_TRUE(UString().IsAlpha());
    EXPECT_FALSE(UString(u"a\u00E9").IsAlpha());
    EXPECT_FALSE(UString(u"a1\u0663").IsAlphaNumeric());
    EXPECT_FALSE(UString(u"-1").IsNumeric());
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
