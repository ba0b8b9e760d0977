#include "SStringTestUtil.hpp"

#include <vesk/text.hpp>

using namespace vesk;
using namespace vesk::test;

TEST(SStringFormat, FFormatsAndFlagsUTF8Text)
{
    SString plain = SString::F("%d-%s-%05.1f", 42, "x", 2.25);
    EXPECT_EQ(plain, "42-x-002.2");
    EXPECT_FALSE(plain.IsUTF8());
    SString utf8 = SString::F("caf%s", "\xC3\xA9");
    EXPECT_TRUE(utf8.IsUTF8());
    EXPECT_TRUE(IsSharedEmpty(SString::F("%s", "")));
}

TEST(SStringFormat, FormatReplacesTheTextWithAnUnflaggedRecord)
{
    SString s("\xC3\xA9");
    s.SetIsUTF8();
    SString other(s);
    s.Format("%u items", 3u);
    EXPECT_EQ(s, "3 items");
    EXPECT_FALSE(s.IsUTF8());
    EXPECT_EQ(other, "\xC3\xA9");
    s.Format("[%s]", static_cast<const char*>(s)); // its own text as an argument
    EXPECT_EQ(s, "[3 items]");
}

TEST(SStringFormat, FailureKeepsTheTextOrGivesEmpty)
{
    SString s("kept");
    const char* noFormat = nullptr;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"
    s.Format(noFormat);
#pragma GCC diagnostic pop
    EXPECT_EQ(s, "kept");
    // An invalid wide character makes the C library report an encoding error.
    const wchar_t bad[] = {static_cast<wchar_t>(0xD800), 0};
    s.Format("%ls", bad);
    EXPECT_EQ(s, "kept");
    EXPECT_TRUE(IsSharedEmpty(SString::F("%ls", bad)));
}

TEST(SStringUTF8, MayBeUTF8NeedsOneWellFormedSequence)
{
    EXPECT_FALSE(SString("abc").MayBeUTF8());
    EXPECT_TRUE(SString("a\xC3\xA9").MayBeUTF8());
    EXPECT_FALSE(SString("\xC3(").MayBeUTF8());
    EXPECT_TRUE(SString("\xFF\xC3\xA9").MayBeUTF8());
    // Lead bytes with narrowed second-byte ranges.
    for (const char* bad : {"\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xC1\xBF"})
        EXPECT_FALSE(SString::MayBeUTF8(bad, STRING_LEN)) << bad;
    for (const char* good : {"\xE0\xA0\x80", "\xED\x9F\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(SString::MayBeUTF8(good, STRING_LEN)) << good;
    // The sequence must lie within the length; the walk ends at a zero.
    EXPECT_FALSE(SString::MayBeUTF8("a\xC3\xA9", 2));
    EXPECT_FALSE(SString::MayBeUTF8("a\0\xC3\xA9", 4));
}

TEST(SStringUTF8, SetIsUTF8CopiesASharedRecordButClearWritesIt)
{
    SString a("text");
    SString b(a);
    b.SetIsUTF8();
    EXPECT_TRUE(b.IsUTF8());
    EXPECT_FALSE(a.IsUTF8());
    EXPECT_FALSE(SharesRecord(a, b));

    SString c(b);
    c.ClearUTF8();
    EXPECT_FALSE(b.IsUTF8()); // the shared record itself was changed
    EXPECT_TRUE(SharesRecord(b, c));
}

TEST(SStringUTF8, RemoveUTF8MarkerErasesALeadingMark)
{
    SString s("\xEF\xBB\xBF" "abc");
    EXPECT_TRUE(s.RemoveUTF8Marker());
    EXPECT_EQ(s, "abc");
    SString onlyMark("\xEF\xBB\xBF");
    EXPECT_TRUE(onlyMark.RemoveUTF8Marker());
    EXPECT_TRUE(IsSharedEmpty(onlyMark));
    EXPECT_FALSE(SString("\xEF\xBB").RemoveUTF8Marker());
}
