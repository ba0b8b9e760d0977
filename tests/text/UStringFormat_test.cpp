#include <vesk/text.hpp>

#include "UStringTestUtil.hpp"

#include <gtest/gtest.h>

#include <string>

using namespace vesk;
using test::Text;

TEST(UStringFormat, WideConventionsForTextAndCharacters)
{
    EXPECT_EQ(Text(UString::F(u"%s|%ls|%ws", u"w\u00E9", u"l", u"w")), u"w\u00E9|l|w");
    EXPECT_EQ(Text(UString::F(u"%S|%hs", "caf\xC3\xA9", "\xE9")), u"caf\u00E9|\u00E9");
    EXPECT_EQ(Text(UString::F(u"%c%C%hc%lc", u'\u0416', 'a', 'b', u'c')), u"\u0416abc");
    EXPECT_EQ(Text(UString::F(u"[%5s][%-3s][%.2s]", u"ab", u"x", u"wxyz")), u"[   ab][x  ][wx]");
    EXPECT_EQ(Text(UString::F(u"[%*s][%.*s]", -3, u"a", 1, u"bc")), u"[a  ][b]");
    EXPECT_EQ(Text(UString::F(u"%s", static_cast<const char16_t*>(nullptr))), u"(null)");
    EXPECT_EQ(Text(UString::F(u"100%%")), u"100%");
}

TEST(UStringFormat, NumbersThroughTheCLibrary)
{
    EXPECT_EQ(Text(UString::F(u"%d %05d %x %X %o", -7, 42, 255, 255, 8)), u"-7 00042 ff FF 10");
    EXPECT_EQ(Text(UString::F(u"%I64d %lld %ld %zu", int64_t(-1) << 40, 5LL, 6L, size_t(7))),
        u"-1099511627776 5 6 7");
    EXPECT_EQ(Text(UString::F(u"%hd %hhu", 70000, 300)), u"4464 44");
    EXPECT_EQ(Text(UString::F(u"%.2f %e %g", 3.14159, 1e10, 0.5)), u"3.14 1.000000e+10 0.5");
}

TEST(UStringFormat, FailuresLeaveTheStringAsItWas)
{
    EXPECT_EQ(UString::F(u"%q", 1).Len(), 0u);
    int written = 0;
    EXPECT_EQ(UString::F(u"ab%n", &written).Len(), 0u);
    EXPECT_EQ(UString::F(nullptr).Len(), 0u);
    EXPECT_EQ(UString::F(u"%").Len(), 0u);
    UString s(u"kept");
    s.Format(u"%q");
    EXPECT_EQ(Text(s), u"kept");
    s.Format(u"%s and %d", static_cast<const char16_t*>(s), 2);
    EXPECT_EQ(Text(s), u"kept and 2");
    s.Format(u"%0*d", 2000000, 1);
    EXPECT_EQ(s.Len(), USTRING_MAXLEN);
}

// The readers are SString's (SStringNumbers_test), given the ASCII characters of the text.
TEST(UStringNumbers, ReadTheAsciiCharactersOnly)
{
    EXPECT_EQ(static_cast<int>(UString(u"  -42xyz")), -42);
    EXPECT_EQ(static_cast<int64_t>(UString(u"-9000000000")), -9000000000);
    // A character beyond ASCII ends the number, and is no blank before it.
    EXPECT_EQ(static_cast<int>(UString(u"12\u0663")), 12);
    EXPECT_EQ(static_cast<int>(UString(u"1\u0132")), 1); // not the digit 2 of its low byte
    EXPECT_EQ(static_cast<int>(UString(u"\u00A012")), 0);
    EXPECT_TRUE(UString(u"TRUE").ToBool());
    EXPECT_FALSE(UString(u"1\u00E9").ToBool());
}
