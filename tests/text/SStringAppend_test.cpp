#include "SStringTestUtil.hpp"

#include <vesk/text.hpp>

#include <limits>

using namespace vesk;
using namespace vesk::test;

TEST(SStringAppend, PrivateRecordGrowsInPlaceThenByHalf)
{
    SString s(std::string(31, 'a').c_str()); // capacity 32
    s += 'b';                                 // needs 48: 16 > 48/3 fails, so exactly needed
    EXPECT_EQ(Capacity(s), 48u);
    const SStringData* rec = Record(s);
    s += std::string(15, 'c').c_str(); // 47 characters still fit
    EXPECT_EQ(Record(s), rec);
    s += 'd';                                 // needs 64: 24 > 21, so 48 + 24 = 72, rounded to 80
    EXPECT_EQ(Capacity(s), 80u);
    EXPECT_EQ(s.Len(), 48u);
}

TEST(SStringAppend, SharedRecordIsCopiedAtItsSizeAndTheSharerIsUnchanged)
{
    SString a(std::string(40, 'a').c_str());
    SString b(a);
    b += "tail";
    EXPECT_EQ(a.Len(), 40u);
    EXPECT_EQ(b.Len(), 44u);
    EXPECT_EQ(Capacity(b), 48u);
    EXPECT_EQ(Owners(a), 1u);
    // An empty string takes over the appended record.
    SString empty;
    empty += a;
    EXPECT_TRUE(SharesRecord(empty, a));
}

TEST(SStringAppend, FlagsOrForStringsAndStayForTextAndCharacters)
{
    SString utf8("\xC3\xA9");
    utf8.SetIsUTF8();
    SString s("plain");
    s += "text";
    s += 'c';
    EXPECT_FALSE(s.IsUTF8());
    s += utf8;
    EXPECT_TRUE(s.IsUTF8());
    s += "more";
    EXPECT_TRUE(s.IsUTF8());
}

TEST(SStringAppend, AppendingItselfDoublesTheText)
{
    SString s("ab");
    s += s;
    s += static_cast<const char*>(s);
    EXPECT_EQ(s, "abababab");
    // Text from inside a private record that has to grow: the record may move while growing.
    const std::string text = std::string("0123456789").append(30, 'z'); // capacity 48
    SString t(text.c_str());
    t += static_cast<const char*>(t) + 1;
    EXPECT_EQ(t, (text + text.substr(1)).c_str());
}

TEST(SStringAppend, LengthIsCutAtTheMaximum)
{
    SString s(std::string(STRING_MAXLEN - 2, 'a').c_str());
    s += "bcdef";
    EXPECT_EQ(s.Len(), STRING_MAXLEN);
    EXPECT_EQ(s[STRING_MAXLEN - 1], 'c');
    s += 'z';
    s += '\0';
    EXPECT_EQ(s[STRING_MAXLEN - 1], 'c');
    SString other(s);
    other += SString("more");
    EXPECT_EQ(other.Len(), STRING_MAXLEN);
}

TEST(SStringAppend, NumbersAppendTheirDecimalText)
{
    SString s;
    s += static_cast<unsigned char>(65);
    s += 'A';
    s += static_cast<short>(-32768);
    s += -2147483647 - 1;
    s += 4294967295u;
    EXPECT_EQ(s, "65A-32768-21474836484294967295");
    // `long` has 64 bits: nothing is cut to 32.
    SString wide;
    wide += std::numeric_limits<long>::min();
    wide += ' ';
    wide += std::numeric_limits<unsigned long>::max();
    EXPECT_EQ(wide, "-9223372036854775808 18446744073709551615");
    EXPECT_EQ(SString(-5LL), "-5");
    EXPECT_EQ(SString(7ULL), "7");
}

TEST(SStringAppend, AddSeparatedOnlySeparatesNonEmptyParts)
{
    SString s;
    for (const char* part : {"a", "b", "", "c"})
        s.AddSeparated(part, ", ");
    s.AddSeparated("d", "");
    s.AddSeparated("e", ';');
    s.AddSeparated("f", '\0');
    EXPECT_EQ(s, "a, b, cd;ef");
}
