#include "SStringTestUtil.hpp"

#include <vesk/text.hpp>

using namespace vesk;
using namespace vesk::test;

TEST(SStringConstruct, LongTextIsCutToTheMaximumLength)
{
    const std::string big(3000000, 'x');
    SString assigned;
    assigned = big.c_str();
    EXPECT_EQ(assigned.Len(), STRING_MAXLEN);
}

TEST(SStringConstruct, SubstringSharesTheWholeTextAndCopiesParts)
{
    SString source("abcdef");
    source.SetIsUTF8();
    EXPECT_TRUE(SharesRecord(SString(source, 0, STRING_LEN), source));
    SString middle(source, 2, 3);
    EXPECT_EQ(middle, "cde");
    EXPECT_TRUE(middle.IsUTF8());
    EXPECT_EQ(SString(source, 4, 100), "ef");
    EXPECT_TRUE(IsSharedEmpty(SString(source, 6, 1)));
}

TEST(SStringConstruct, RawArrayHonoursTheTerminationMode)
{
    const char raw[] = "ab\0cd";
    EXPECT_EQ(Bytes(SString(raw, 0, 5, false)), "ab");
    EXPECT_EQ(Bytes(SString(raw, 0, 5, true)), std::string("ab\0cd", 5));
    EXPECT_EQ(Bytes(SString("hello", 1, STRING_LEN)), "ello");
    EXPECT_TRUE(IsSharedEmpty(SString("hello", 9, STRING_LEN)));
    EXPECT_TRUE(IsSharedEmpty(SString(nullptr, 0, 5, true)));
    // Lengths near the word limit do not wrap around.
    EXPECT_EQ(SString("abc", 1, 0xFFFFFFFFu, false), "bc");
    EXPECT_TRUE(IsSharedEmpty(SString("abc", 0xFFFFFFF0u, 0x20, false)));
}

TEST(SStringConstruct, AssigningTextReusesAPrivateRecordThatFits)
{
    SString s("0123456789");
    s.SetIsUTF8();
    const SStringData* rec = Record(s);
    s = "short";
    EXPECT_EQ(Record(s), rec);
    EXPECT_TRUE(s.IsUTF8()); // the in-place copy leaves the flag alone
    s = static_cast<const char*>(s) + 2; // its own tail
    EXPECT_EQ(s, "ort");

    SString other(s);
    s = "a text too long for sixteen bytes";
    EXPECT_NE(Record(s), rec);
    EXPECT_FALSE(s.IsUTF8());
    EXPECT_EQ(other, "ort");
    s = static_cast<const char*>(nullptr);
    EXPECT_TRUE(IsSharedEmpty(s));
}
