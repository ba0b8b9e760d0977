#include "platform/codepage.hpp"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

using vesk::platform::MultiByteToWide;
using vesk::platform::WideToMultiByte;

namespace {

// The count returned and the units written, with a buffer large enough for any result.
struct Decoded {
    int count;
    std::u16string text;
};

Decoded Decode(unsigned int codePage, const std::string& bytes, int srcLength)
{
    std::u16string out(bytes.size() + 8, u'\xAAAA');
    const int n = MultiByteToWide(codePage, bytes.c_str(), srcLength, out.data(),
        static_cast<int>(out.size()));
    out.resize(static_cast<size_t>(n));
    return {n, out};
}

Decoded DecodeAll(unsigned int codePage, const std::string& bytes)
{
    return Decode(codePage, bytes, static_cast<int>(bytes.size()));
}

std::string EncodeAll(unsigned int codePage, const std::u16string& text)
{
    std::string out(text.size() * 4 + 8, '\x55');
    const int n = WideToMultiByte(codePage, text.c_str(), static_cast<int>(text.size()),
        out.data(), static_cast<int>(out.size()));
    out.resize(static_cast<size_t>(n));
    return out;
}

} // namespace

TEST(CodePage, CountsIncludeTheZeroOnlyForTerminatedSources)
{
    const Decoded terminated = Decode(65001, "a\xC3\xA9", -1);
    EXPECT_EQ(terminated.count, 3);
    EXPECT_EQ(terminated.text, std::u16string(u"a\u00E9\0", 3));
    EXPECT_EQ(DecodeAll(65001, "a\xC3\xA9").text, u"a\u00E9");

    char out[8];
    EXPECT_EQ(WideToMultiByte(65001, u"\u00E9", -1, out, sizeof out), 3);
    EXPECT_EQ(std::string(out, 3), std::string("\xC3\xA9\0", 3));
    // A length that ends early converts the zero-free prefix and nothing more.
    EXPECT_EQ(WideToMultiByte(1252, u"abc", 2, out, sizeof out), 2);
}

TEST(CodePage, ConvertsEachSupportedPageBothWays)
{
    // Each page with letters of its own and bytes where it differs from its ISO-8859 neighbour.
    const struct {
        unsigned int page;
        std::string bytes;
        std::u16string text;
    } cases[] = {
        {1252, "\x80\xE9\x9F", u"\u20AC\u00E9\u0178"},
        {0, "\x80\xE9", u"\u20AC\u00E9"},
        {1250, "\x8A\xE8\x80\xA1", u"\u0160\u010D\u20AC\u02C7"},
        {1251, "\xC6\xFF\x80\xA1", u"\u0416\u044F\u0402\u040E"},
        {1253, "\xC8\xE1\x80\xA2", u"\u0398\u03B1\u20AC\u0386"},
        {1254, "\xD0\xFE\x80\x8A", u"\u011E\u015F\u20AC\u0160"},
        {65001, "\xF0\x9F\x98\x80", u"\U0001F600"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.page);
        EXPECT_EQ(DecodeAll(c.page, c.bytes).text, c.text);
        EXPECT_EQ(EncodeAll(c.page, c.text), c.bytes);
    }
}

TEST(CodePage, FailsWithZero)
{
    char16_t wide[8];
    char narrow[8];
    // Unknown code pages.
    EXPECT_EQ(MultiByteToWide(437, "a", -1, wide, 8), 0);
    EXPECT_EQ(WideToMultiByte(1255, u"a", -1, narrow, 8), 0);
    // Empty, null and too small.
    EXPECT_EQ(MultiByteToWide(1252, "a", 0, wide, 8), 0);
    EXPECT_EQ(MultiByteToWide(1252, nullptr, -1, wide, 8), 0);
    EXPECT_EQ(MultiByteToWide(1252, "abc", -1, wide, 3), 0);
    EXPECT_EQ(MultiByteToWide(1252, "abc", -1, wide, 0), 0);
    EXPECT_EQ(WideToMultiByte(65001, u"\u00E9", 1, narrow, 1), 0);
    // Malformed UTF-8: bad lead, truncated, overlong, encoded surrogate.
    for (const char* bad : {"a\xFF", "a\xC3", "\xC0\xAF", "\xED\xA0\x80"})
        EXPECT_EQ(DecodeAll(65001, bad).count, 0) << bad;
    // Lone surrogates, undefined bytes and characters the page lacks; no default character.
    EXPECT_EQ(EncodeAll(65001, u"a\xD800").size(), 0u);
    EXPECT_EQ(EncodeAll(65001, u"\xDC00" "a").size(), 0u);
    EXPECT_EQ(DecodeAll(1252, "a\x81").count, 0);
    EXPECT_EQ(EncodeAll(1252, u"a\u0416").size(), 0u);
}

TEST(CodePage, ConvertsBetweenPagesInOnePass)
{
    char out[16];
    EXPECT_EQ(vesk::platform::MultiByteToMultiByte(1252, "\xE9\x80", -1, 65001, out, sizeof out), 6);
    EXPECT_EQ(std::string(out, 6), std::string("\xC3\xA9\xE2\x82\xAC\0", 6));
    EXPECT_EQ(vesk::platform::MultiByteToMultiByte(65001, "\xCE\x98", 2, 1253, out, sizeof out), 1);
    EXPECT_EQ(out[0], '\xC8');
    // Either half failing fails the whole: an undefined byte, a character the target lacks.
    EXPECT_EQ(vesk::platform::MultiByteToMultiByte(1252, "\x81", 1, 65001, out, sizeof out), 0);
    EXPECT_EQ(vesk::platform::MultiByteToMultiByte(1251, "\xC6", 1, 1252, out, sizeof out), 0);
    EXPECT_EQ(vesk::platform::MultiByteToMultiByte(1252, "\xE9", 1, 65001, out, 1), 0);
}

TEST(CodePage, FailureLeavesNoStateForTheNextCall)
{
    // A truncated sequence and a full output buffer must not leak into the next conversion.
    EXPECT_EQ(DecodeAll(65001, "ab\xE2\x82").count, 0);
    EXPECT_EQ(DecodeAll(65001, "\xAC" "c").count, 0);
    char16_t small[1];
    EXPECT_EQ(MultiByteToWide(65001, "xy", 2, small, 1), 0);
    EXPECT_EQ(DecodeAll(65001, "\xE2\x82\xAC" "c").text, u"\u20AC" "c");
    EXPECT_EQ(DecodeAll(65001, "xy").text, u"xy");
}

TEST(CodePage, ThreadsConvertIndependently)
{
    std::vector<std::thread> threads;
    std::vector<int> failures(4, 0);
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([t, &failures] {
            const unsigned int page = t % 2 == 0 ? 65001 : 1251;
            const std::u16string text = t % 2 == 0 ? u"\u00E9\u20AC" : u"\u0416\u044F";
            for (int i = 0; i < 2000; ++i) {
                // Failures in between must not disturb this thread's next conversion.
                const bool failed = DecodeAll(page, "\x98\xC3").count == 0;
                if (!failed || DecodeAll(page, EncodeAll(page, text)).text != text)
                    ++failures[static_cast<size_t>(t)];
            }
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(failures, std::vector<int>(4, 0));
}
