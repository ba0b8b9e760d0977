#include <vesk/text.hpp>

#include "UStringTestUtil.hpp"

#include "text/TranscriptData_p.hpp"
#include "text/UString_p.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace vesk;
using test::Bytes;
using test::Text;

TEST(UStringFromBytes, UTF8WhenMayBeUTF8ElseWindows1252)
{
    EXPECT_EQ(Text(UString(SString("\xC3\xA9"))), u"\u00E9");
    EXPECT_EQ(Text(UString("\xE2\x82\xAC \xF0\x9F\x98\x80")), u"\u20AC \U0001F600");
    EXPECT_EQ(Text(UString("\x80 euro")), u"\u20AC euro");
    EXPECT_EQ(Text(UString('\x80')), u"\u20AC");
    EXPECT_EQ(UString(char(0)).Len(), 0u);
    EXPECT_EQ(Text(UString("h\xC3\xA9llo", 1, 3)), u"\u00E9l");
    EXPECT_EQ(Text(UString(SString("h\xC3\xA9llo"), 1, 2)), u"\u00E9");
    EXPECT_EQ(UString(SString("abc"), 5, 2).Len(), 0u);
    EXPECT_EQ(UString(static_cast<const char*>(nullptr)).Len(), 0u);
}

TEST(UStringFromBytes, FailedDecodingGivesTheEmptyString)
{
    // One valid sequence makes the text UTF-8; the malformed rest then fails the decoding.
    EXPECT_EQ(UString("\xC3\xA9 \xFF").Len(), 0u);
    // Bytes that Windows-1252 leaves undefined.
    EXPECT_EQ(UString("a\x81").Len(), 0u);
    // A cut in the middle of a sequence.
    EXPECT_EQ(UString("\xC3\xA9\xC3\xA9", 0, 3).Len(), 0u);
}

TEST(UStringToBytes, UTF8Forms)
{
    const UString s(u"a\u00E9\U0001F600");
    const SString utf8 = s.GetUTF8();
    EXPECT_EQ(Bytes(utf8), "a\xC3\xA9\xF0\x9F\x98\x80");
    EXPECT_TRUE(utf8.IsUTF8());
    const SString converted = s;
    EXPECT_EQ(Bytes(converted), Bytes(utf8));
    EXPECT_EQ(UString().GetUTF8().Len(), 0u);
    // A lone surrogate has no UTF-8 form.
    EXPECT_EQ(UString(u"a\xD800").GetUTF8().Len(), 0u);

    char buffer[16];
    EXPECT_EQ(s.GetUTF8(buffer, sizeof buffer), 8u);
    EXPECT_STREQ(buffer, "a\xC3\xA9\xF0\x9F\x98\x80");
    buffer[2] = 'x';
    EXPECT_EQ(s.GetUTF8(buffer, 4), 0u); // too small
    EXPECT_EQ(buffer[3], 0);
    EXPECT_EQ(UString().GetUTF8(buffer, sizeof buffer), 0u);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(s.GetUTF8(buffer, 0), 0u);
}

TEST(UStringToBytes, SystemCodePageArray)
{
    std::unique_ptr<char[]> bytes(UString(u"\u20ACuro").CreateCharArr());
    EXPECT_STREQ(bytes.get(), "\x80uro");
    std::unique_ptr<char[]> lacking(UString(u"\u0416").CreateCharArr());
    EXPECT_STREQ(lacking.get(), "");
}

TEST(UStringSetText, SetUTF8AndSetTranscript)
{
    UString s;
    s.SetUTF8(SString("caf\xC3\xA9"));
    EXPECT_EQ(Text(s), u"caf\u00E9");
    s.SetUTF8(SString("caf\xE9"));
    EXPECT_EQ(Text(s), u"caf\u00E9");
    s.SetUTF8("\xC3\xA9xyz", 2);
    EXPECT_EQ(Text(s), u"\u00E9");
    s.SetUTF8("\xE9", 1); // always UTF-8: fails
    EXPECT_EQ(s.Len(), 0u);

    // A private record is reused and left unshared by the next copy's change.
    UString reused(u"a much longer text than what follows");
    const UString copy(reused);
    reused.SetUTF8(SString("short"));
    EXPECT_EQ(Text(reused), u"short");
    EXPECT_EQ(copy.Len(), 36u);

    // Without transcript settings the system code page decodes.
    s.SetTranscript(SString("x\xE9y\xE8z"), 1, 3);
    EXPECT_EQ(Text(s), u"\u00E9y\u00E8");
    s.SetTranscript(SString("abc"), 7, 1);
    EXPECT_EQ(s.Len(), 0u);
    s.SetTranscript(std::u16string(u"\u0416\u0417\u0418"), 1, 100);
    EXPECT_EQ(Text(s), u"\u0417\u0418");
}

TEST(UStringTranscript, ReadsTheTextInTheTranscriptCodePage)
{
    TranscriptData greek;
    greek.SetToGreek();
    EXPECT_TRUE(detail::IsTranscriptWide(&greek, u"\u0391\u03B8\u03AE\u03BD\u03B1"));
    EXPECT_FALSE(detail::IsTranscriptWide(&greek, u"Athens"));
    EXPECT_FALSE(detail::IsTranscriptWide(&greek, u"\u0391\u0416\u03B8")); // no 1253 form
    TranscriptData cyrillic;
    cyrillic.SetToCyrillic();
    EXPECT_TRUE(detail::IsTranscriptWide(&cyrillic, u"\u041C\u043E\u0441\u043A\u0432\u0430"));
    EXPECT_FALSE(detail::IsTranscriptWide(nullptr, u"\u041C\u043E"));
}

TEST(UStringFromBytes, StringDataIsDecodedAndCutInTheSum)
{
    UString s;
    UStringAccess::InitStringRes(s, "caf\xC3\xA9", 5);
    UStringAccess::AppendStringRes(s, " \xE9t\xE9", 4);
    UStringAccess::AppendStringRes(s, u"!?", 1);
    EXPECT_EQ(Text(s), u"caf\u00E9 \u00E9t\u00E9!");
    const std::u16string full(USTRING_MAXLEN - 1, u'x');
    UStringAccess::InitStringRes(s, full.data(), static_cast<unsigned int>(full.size()));
    UStringAccess::AppendStringRes(s, "abc", 3);
    EXPECT_EQ(s.Len(), USTRING_MAXLEN);
    EXPECT_EQ(s[static_cast<int>(USTRING_MAXLEN - 1)], u'a');
}
