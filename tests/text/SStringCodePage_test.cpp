#include <vesk/frame.hpp>
#include <vesk/text.hpp>

#include "support/ConfigHomeGuard.hpp"

#include "UStringTestUtil.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace vesk;
using test::Bytes;

TEST(SStringFromUTF16, ConvertsToTheCodePage)
{
    const SString utf8(u"caf\u00E9", 65001);
    EXPECT_EQ(Bytes(utf8), "caf\xC3\xA9");
    EXPECT_TRUE(utf8.IsUTF8());
    const SString ansi(u"caf\u00E9 \u20AC", 0);
    EXPECT_EQ(Bytes(ansi), "caf\xE9 \x80");
    EXPECT_FALSE(ansi.IsUTF8());
    EXPECT_EQ(Bytes(SString(std::u16string(u"\u00E9"))), "\xC3\xA9");
    EXPECT_TRUE(SString(std::u16string(u"\u00E9")).IsUTF8());
    EXPECT_EQ(SString(static_cast<const char16_t*>(nullptr), 65001).Len(), 0u);
    // A character the code page lacks fails the conversion: length 0.
    EXPECT_EQ(SString(u"a\u0416", 1252).Len(), 0u);
}

TEST(SStringFromUTF16, AppendsWideCharacters)
{
    SString s("a");
    s += u'b';
    EXPECT_FALSE(s.IsUTF8());
    s += u'\u00E9';
    EXPECT_EQ(Bytes(s), "ab\xC3\xA9");
    EXPECT_TRUE(s.IsUTF8());
    s += L'\U0001F600';
    s += L'\u20AC';
    EXPECT_EQ(Bytes(s), "ab\xC3\xA9\xF0\x9F\x98\x80\xE2\x82\xAC");
    SString plain("x");
    plain += char16_t(0xD800); // a lone surrogate has no UTF-8 form
    plain += char16_t(0);
    EXPECT_EQ(Bytes(plain), "x");
    EXPECT_FALSE(plain.IsUTF8());
}

TEST(SStringCodePages, CreateWCHARArr)
{
    std::unique_ptr<char16_t[]> wide(SString("caf\xE9").CreateWCHARArr(1252));
    EXPECT_EQ(std::u16string(wide.get()), u"caf\u00E9");
    std::unique_ptr<char16_t[]> bad(SString("\xFF").CreateWCHARArr(65001));
    EXPECT_EQ(bad[0], 0);
}

TEST(SStringCodePages, AnsiToUTF8)
{
    const SString converted = SString("caf\xE9 \x80").AnsiToUTF8();
    EXPECT_EQ(Bytes(converted), "caf\xC3\xA9 \xE2\x82\xAC");
    EXPECT_TRUE(converted.IsUTF8());
    EXPECT_EQ(Bytes(SString("\xC6").AnsiToUTF8(1251)), "\xD0\x96");
    // ASCII and flagged text come back as they are.
    const SString ascii("plain");
    EXPECT_EQ(static_cast<const char*>(ascii.AnsiToUTF8()), static_cast<const char*>(ascii));
    EXPECT_FALSE(ascii.AnsiToUTF8().IsUTF8());
    SString flagged("\xC3\xA9");
    flagged.SetIsUTF8();
    EXPECT_EQ(Bytes(flagged.AnsiToUTF8()), "\xC3\xA9");
    // An undefined byte fails: the empty string.
    EXPECT_EQ(SString("a\x81").AnsiToUTF8().Len(), 0u);
    EXPECT_EQ(SString("\xE9").AnsiToUTF8(437).Len(), 0u);
}

TEST(SStringCodePages, UTF8ToLanguages)
{
    const SString greek("\xCE\x98\xCE\xB1");
    EXPECT_EQ(Bytes(greek.UTF8ToGreek()), "\xC8\xE1");
    EXPECT_FALSE(greek.UTF8ToGreek().IsUTF8());
    EXPECT_EQ(Bytes(SString("\xD0\x96").UTF8ToRussian()), "\xC6");
    EXPECT_EQ(Bytes(SString("\xE2\x82\xAC").UTF8ToAnsi()), "\x80");
    // Not UTF-8: the empty string; not in the code page: a copy of the source.
    EXPECT_EQ(SString("\xE9").UTF8ToAnsi().Len(), 0u);
    EXPECT_EQ(Bytes(SString("\xD0\x96").UTF8ToGreek()), "\xD0\x96");
    EXPECT_EQ(SString().UTF8ToAnsi().Len(), 0u);
}

TEST(SStringCharSets, ConvertInPlace)
{
    SString s("\xE9t\xE9");
    const SString before(s);
    s.Convert(CHARSET_ANSI, CHARSET_IBMPC_437);
    EXPECT_EQ(Bytes(s), "\x82t\x82");
    EXPECT_EQ(Bytes(before), "\xE9t\xE9"); // the shared record was copied first
    s.Convert(CHARSET_IBMPC_437, CHARSET_SYSTEM);
    EXPECT_EQ(Bytes(s), "\xE9t\xE9");
    for (CharSet skipped : {CHARSET_DONTKNOW, CHARSET_NONE, CHARSET_SYSTEM}) {
        s.Convert(CHARSET_ANSI, skipped);
        EXPECT_EQ(Bytes(s), "\xE9t\xE9");
    }
    SString section("\x15");
    section.Convert(CHARSET_IBMPC_850, CHARSET_SYSTEM);
    EXPECT_EQ(Bytes(section), "\xA7");
    SString empty;
    empty.Convert(CHARSET_ANSI, CHARSET_MAC);
    EXPECT_EQ(empty.Len(), 0u);
    EXPECT_EQ(SString::Convert('\xE9', CHARSET_ANSI, CHARSET_MAC), '\x8E');
    EXPECT_EQ(SString::Convert('\x82', CHARSET_IBMPC_437, CHARSET_NONE), '\x82');
}

TEST(SStringTranscript, CyrillicTextOnceTheLibraryStateHoldsCyrillic)
{
    EXPECT_FALSE(SString::IsTranscript(nullptr));
    vesk::test::ConfigHomeGuard home;
    vesk::VeskInit();
    EXPECT_TRUE(SString("\xCF\xF0\xE8\xE2\xE5\xF2").IsTranscript());
    EXPECT_FALSE(SString("Privet").IsTranscript());
    vesk::VeskExit();
    EXPECT_FALSE(SString("\xCF\xF0\xE8\xE2\xE5\xF2").IsTranscript());
}
