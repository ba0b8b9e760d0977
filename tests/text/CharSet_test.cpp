#include <vesk/text.hpp>

#include <gtest/gtest.h>

#include <iconv.h>

#include <optional>
#include <string>

using namespace vesk;

namespace {

std::string Converted(std::string text, CharSet from, CharSet to)
{
    ImpStringConvert(text.data(), from, to);
    return text;
}

// glibc's view of one byte of a set, as a Unicode code point.
std::optional<char32_t> GlibcDecode(const char* set, unsigned char byte)
{
    iconv_t cd = iconv_open("UTF-32LE", set);
    char in[1] = {static_cast<char>(byte)};
    char32_t out = 0;
    char* inp = in;
    char* outp = reinterpret_cast<char*>(&out);
    size_t inLeft = 1, outLeft = sizeof out;
    const size_t r = iconv(cd, &inp, &inLeft, &outp, &outLeft);
    iconv_close(cd);
    return r == static_cast<size_t>(-1) ? std::nullopt : std::optional<char32_t>(out);
}

std::optional<unsigned char> GlibcEncode(const char* set, char32_t code)
{
    iconv_t cd = iconv_open(set, "UTF-32LE");
    unsigned char out = 0;
    char* inp = reinterpret_cast<char*>(&code);
    char* outp = reinterpret_cast<char*>(&out);
    size_t inLeft = sizeof code, outLeft = 1;
    const size_t r = iconv(cd, &inp, &inLeft, &outp, &outLeft);
    iconv_close(cd);
    return r == static_cast<size_t>(-1) ? std::nullopt : std::optional<unsigned char>(out);
}

const char* const kGlibcNames[] = {"WINDOWS-1252", "MACINTOSH", "IBM437", "IBM850",
    "IBM860", "IBM861", "IBM863", "IBM865"};

} // namespace

// Both tables are checked against glibc's code pages: the numbers of bytes directly, the
// numbers' bytes through the conversion of every byte between every pair of sets.
TEST(CharSetTables, NumbersBelow256AreLatin1AndAgreeWithGlibc)
{
    for (int set = 1; set <= 8; ++set)
        for (int byte = 0x80; byte <= 0xFF; ++byte) {
            const uint16_t number = ImpCharToChar16(static_cast<char>(byte), CharSet(set));
            const auto code = GlibcDecode(kGlibcNames[set - 1], static_cast<unsigned char>(byte));
            EXPECT_EQ(number == 0, !code.has_value()) << "set " << set << " byte " << byte;
            if (code && number >= 128 && number < 256) {
                EXPECT_EQ(*code, number) << "set " << set << " byte " << byte;
            }
        }
}

// Every byte of every pair of sets converts as glibc's code pages say: to the target's byte for
// the same character when it has one, else unchanged (so a set converts to itself unchanged).
// Mac Roman's 0xC6 and 0xF0 are left out: glibc reads them as other characters (Greek delta
// for the increment sign, another private code for the Apple logo).
TEST(ImpStringConvert, AgreesWithGlibcForEveryByteAndPair)
{
    for (int from = 1; from <= 8; ++from)
        for (int to = 1; to <= 8; ++to)
            for (int byte = 0x80; byte <= 0xFF; ++byte) {
                if (from == CHARSET_MAC && (byte == 0xC6 || byte == 0xF0))
                    continue;
                const auto code = GlibcDecode(kGlibcNames[from - 1], static_cast<unsigned char>(byte));
                unsigned char expected = static_cast<unsigned char>(byte);
                if (code == U'\u02C6')
                    expected = '^';
                else if (code == U'\u2017')
                    expected = '=';
                else if (code)
                    expected = GlibcEncode(kGlibcNames[to - 1], *code).value_or(expected);
                const std::string result =
                    Converted(std::string(1, static_cast<char>(byte)), CharSet(from), CharSet(to));
                ASSERT_EQ(static_cast<unsigned char>(result[0]), expected)
                    << "from " << from << " to " << to << " byte " << byte;
            }
}

// Single bytes of sets 1-8 are covered by the comparison with glibc above.
TEST(ImpStringConvert, ConvertsWholeTextsAndReadsUnknownSetsAsSetOne)
{
    EXPECT_EQ(Converted("\xE9t\xE9", CHARSET_ANSI, CHARSET_IBMPC_437), "\x82t\x82");
    // Sets outside 1-8 read the tables of set 1.
    EXPECT_EQ(Converted("\xE9", CHARSET_SYSTEM, CHARSET_IBMPC_850), "\x82");
    EXPECT_EQ(Converted("\xE9", CharSet(42), CHARSET_IBMPC_850), "\x82");
    EXPECT_EQ(Converted("\x82", CHARSET_IBMPC_850, CHARSET_NONE), "\xE9");
    ImpStringConvert(nullptr, CHARSET_ANSI, CHARSET_MAC);
}

TEST(ImpStringConvert, MovesTheDosSectionSign)
{
    const char* const byTarget[] = {"\xA7", "\xA4", "\x15", "\xF5", "\x15", "\x15", "\x8F", "\x15"};
    for (int to = 1; to <= 8; ++to)
        EXPECT_EQ(Converted("\x15", CHARSET_IBMPC_437, CharSet(to)), byTarget[to - 1]) << to;
    EXPECT_EQ(Converted("\x15", CHARSET_IBMPC_437, CHARSET_SYSTEM), "\xA7");
    EXPECT_EQ(Converted("\x15", CHARSET_IBMPC_863, CHARSET_IBMPC_850), "\xF5");
    // Only a DOS source moves it, and never with an unknown or no set involved.
    EXPECT_EQ(Converted("\x15", CHARSET_ANSI, CHARSET_IBMPC_437), "\x15");
    EXPECT_EQ(Converted("\x15", CHARSET_SYSTEM, CHARSET_MAC), "\x15");
    EXPECT_EQ(Converted("\x15", CHARSET_IBMPC_437, CHARSET_NONE), "\x15");
}

TEST(CharSetLookups, HandleBytesAndNumbersOutsideTheTables)
{
    EXPECT_EQ(ImpCharToChar16('A', CHARSET_MAC), 'A');
    EXPECT_EQ(ImpCharToChar16('\xE9', CharSet(0)), 233);
    EXPECT_EQ(ImpCharToChar16('\xE9', CHARSET_IBMPC_437), 674); // theta: a number past Latin-1
    EXPECT_EQ(ImpChar16ToChar(65, CHARSET_ANSI), '?');
    EXPECT_EQ(static_cast<unsigned char>(ImpChar16ToChar(233, CHARSET_IBMPC_850)), 0x82);
    EXPECT_EQ(ImpChar16ToChar(674, CHARSET_ANSI), 0);
    EXPECT_EQ(static_cast<unsigned char>(ImpChar16ToChar(674, CharSet(99))), 0);
}
