// UTF-8 and UTF-16 conversion: what counts as valid UTF-8, and what stands in for the rest.
#include "platform/utf.hpp"

#include <gtest/gtest.h>

using vesk::platform::Utf16ToUtf8;
using vesk::platform::Utf8ToUtf16;

namespace {

TEST(Utf, ValidSequencesOfEveryLengthConvertBothWays)
{
    const std::string utf8 = "a\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
    const std::u16string utf16 = u"a\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF";
    EXPECT_EQ(Utf8ToUtf16(utf8), utf16);
    EXPECT_EQ(Utf16ToUtf8(utf16), utf8);
}

TEST(Utf, InvalidUtf8BytesStandForThemselves)
{
    // Overlong forms, surrogates, values past U+10FFFF, stray and cut-off sequences.
    EXPECT_EQ(Utf8ToUtf16("\xC0\xAF"), u"\u00C0\u00AF");
    EXPECT_EQ(Utf8ToUtf16("\xE0\x9F\xBF"), u"\u00E0\u009F\u00BF");
    EXPECT_EQ(Utf8ToUtf16("\xED\xA0\x80"), u"\u00ED\u00A0\u0080");
    EXPECT_EQ(Utf8ToUtf16("\xF4\x90\x80\x80"), u"\u00F4\u0090\u0080\u0080");
    EXPECT_EQ(Utf8ToUtf16("\x80x\xE2\x82"), u"\u0080x\u00E2\u0082");
}

TEST(Utf, UnpairedSurrogatesBecomeReplacementCharacters)
{
    EXPECT_EQ(Utf16ToUtf8(u"\xD800x"), "\xEF\xBF\xBDx");
    EXPECT_EQ(Utf16ToUtf8(std::u16string(1, u'\xDC00') + u'\xD800'), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

} // namespace
