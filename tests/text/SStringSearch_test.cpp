#include "SStringTestUtil.hpp"

#include <vesk/text.hpp>

using namespace vesk;
using namespace vesk::test;

TEST(SStringSearch, LongTextsWithManyNearMatches)
{
    std::string text(100000, 'a');
    text += "ab";
    SString s(text.c_str());
    EXPECT_EQ(s.Search(std::string(50, 'a').append("b").c_str()), 100000u - 49);
    EXPECT_EQ(s.NoCaseSearch(std::string(50, 'A').append("B").c_str()), 100000u - 49);
    EXPECT_EQ(s.SearchFromEnd(std::string(60, 'A').c_str(), true), 100001u - 60);
    EXPECT_EQ(s.SearchBackward("ba", 100001), STRING_NOTFOUND);
}

// Match, the searches (also SearchFromEnd's case rule) and the zero rules are checked against
// the model in SStringModel_test.
TEST(SStringSearch, IMatchAndNoCaseComparisons)
{
    EXPECT_EQ(SString("abc").Search(static_cast<const char*>(nullptr)), STRING_NOTFOUND);
    EXPECT_EQ(SString("abc").IMatch("AB"), STRING_MATCH);
    EXPECT_EQ(SString("abc").IMatch("Ax"), 0u);
    EXPECT_TRUE(SString("Abc").NoCaseEqual("aBC"));
    EXPECT_EQ(SString("abX").ICompare("ABy", 2), COMPARE_EQUAL);
}

// Token texts and positions are checked against the model; a whole-text token is the record.
TEST(SStringSearch, WholeTextTokenSharesTheRecord)
{
    SString whole("abc");
    whole.SetIsUTF8();
    EXPECT_TRUE(SharesRecord(whole.GetToken(0, ','), whole));
}

TEST(SStringSearch, ClassifiersTestSignedBytes)
{
    EXPECT_TRUE(SString().IsNumber() && SString("-").IsNumber() && SString("-12").IsNumber());
    EXPECT_FALSE(SString("-1").IsNumeric() || SString("1-").IsNumber());
    EXPECT_TRUE(SString("a1").IsLower() && SString("A1").IsUpper());
    EXPECT_TRUE(SString("aZ").IsAlpha() && SString("aZ9").IsAlphaNumeric());
    EXPECT_FALSE(SString("\xE9").IsAlpha() || SString("a b").IsAlphaNumeric());
}

TEST(SStringSearch, StringListBufferAppendsBehindTheLastString)
{
    char buffer[32] = {};
    SString("one").AddToStringListBuffer(buffer);
    SString("two").AddToStringListBuffer(buffer);
    EXPECT_EQ(std::string(buffer, 10), std::string("one\0two\0\0\0", 10));
}
