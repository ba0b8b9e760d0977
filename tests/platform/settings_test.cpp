// The per-user settings store: typed values under key paths, its file, damage and crashes.
#include "platform/settings.hpp"
#include "platform/system_colors.hpp"

#include "support/ChildProcess.hpp"
#include "support/ConfigHomeGuard.hpp"
#include "support/FileText.hpp"

#include <gtest/gtest.h>

#include <random>

#include <sys/stat.h>
#include <unistd.h>

namespace settings = vesk::platform::settings;
using vesk::test::ReadFileText;
using vesk::test::WriteFileText;

namespace {

class Settings : public ::testing::Test {
protected:
    void WriteSettingsFile(const std::string& text)
    {
        ASSERT_TRUE(::mkdir(m_home.File("vesk").c_str(), 0700) == 0 || errno == EEXIST);
        ASSERT_TRUE(WriteFileText(m_file, text));
    }

    vesk::test::ConfigHomeGuard m_home;
    std::string m_file = m_home.File("vesk/settings.ini");
};

TEST_F(Settings, TypedValuesLiveInOneFileOfTheConfigDirectory)
{
    EXPECT_EQ(settings::FilePath(), m_file);
    const std::vector<uint8_t> bytes = {0, 1, 0xAB, 0xFF};
    EXPECT_TRUE(settings::WriteDword(u"Software\\Microsoft\\Accessibility", u"TextScaleFactor", 125));
    EXPECT_TRUE(settings::WriteString(u"Control Panel\\Colors", u"Window", u"255 255 255"));
    EXPECT_TRUE(settings::WriteBinary(u"Software\\App\\Layout", u"Panes", bytes));
    EXPECT_EQ(ReadFileText(m_file), "[Software\\Microsoft\\Accessibility]\nTextScaleFactor=dword:125\n"
                                    "[Control Panel\\Colors]\nWindow=sz:255 255 255\n"
                                    "[Software\\App\\Layout]\nPanes=hex:0001ABFF\n");
    uint32_t number = 0;
    std::u16string text;
    std::vector<uint8_t> binary;
    EXPECT_TRUE(settings::ReadDword(u"software\\microsoft\\ACCESSIBILITY", u"textscalefactor", number));
    EXPECT_EQ(number, 125u);
    EXPECT_TRUE(settings::ReadString(u"\\Control Panel\\\\Colors\\", u"Window", text));
    EXPECT_EQ(text, u"255 255 255");
    EXPECT_TRUE(settings::ReadBinary(u"Software\\App\\Layout", u"Panes", binary));
    EXPECT_EQ(binary, bytes);
}

TEST_F(Settings, ValuesOfAnotherTypeAndDamagedFilesReadAsAbsentAndStayUntouched)
{
    WriteSettingsFile("[ k ]\n number = dword:7 \nmax=dword:4294967295\nbig=dword:4294967296\nsign=dword:-1\nletters=dword:12x\nempty=dword:\n"
                      "odd=hex:abc\nnothex=hex:zz\nuntyped=hello\n");
    uint32_t number = 99;
    std::u16string text = u"unchanged";
    std::vector<uint8_t> binary = {9};
    for (const char16_t* name : {u"big", u"sign", u"letters", u"empty", u"untyped", u"missing"})
        EXPECT_FALSE(settings::ReadDword(u"k", name, number));
    EXPECT_FALSE(settings::ReadString(u"k", u"number", text));
    EXPECT_FALSE(settings::ReadBinary(u"k", u"odd", binary));
    EXPECT_FALSE(settings::ReadBinary(u"k", u"nothex", binary));
    EXPECT_FALSE(settings::ReadBinary(u"k", u"number", binary));
    EXPECT_EQ(number, 99u);
    EXPECT_EQ(text, u"unchanged");
    EXPECT_EQ(binary, std::vector<uint8_t>{9});
    EXPECT_TRUE(settings::ReadDword(u"k", u"max", number));
    EXPECT_EQ(number, 4294967295u);
    EXPECT_TRUE(settings::ReadDword(u"k", u"number", number));
    EXPECT_EQ(number, 7u);

    const std::string damaged("\x01\xFF[Control Panel\\Colors\nWindow=sz:1 2\n\0\0[k\nv=dword:", 48);
    WriteSettingsFile(damaged);
    EXPECT_EQ(vesk::platform::SystemColor(5), 0xFFFFFFu);
    EXPECT_FALSE(settings::ReadDword(u"k", u"v", number));
    EXPECT_EQ(ReadFileText(m_file), damaged);
}

TEST_F(Settings, AnyNameAndTextRoundTripOnOneLine)
{
    const std::u16string odd = u" [x]=%;#\t\u00E9\U0001D11E\r\n ";
    EXPECT_TRUE(settings::WriteString(u"A\\" + odd, odd, odd));
    std::u16string text;
    EXPECT_TRUE(settings::ReadString(u"A\\" + odd, odd, text));
    EXPECT_EQ(text, odd);
    std::string file = ReadFileText(m_file);
    EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 2);
    EXPECT_FALSE(settings::WriteDword(u"\\", u"name", 1));
    EXPECT_FALSE(settings::WriteDword(u"k", u"", 1));
}

TEST_F(Settings, BinaryValuesOfAnySize)
{
    std::vector<uint8_t> big(1 << 20);
    std::mt19937 random(3);
    for (uint8_t& byte : big)
        byte = static_cast<uint8_t>(random());
    std::vector<uint8_t> read = {1};
    EXPECT_TRUE(settings::WriteBinary(u"k", u"empty", {}));
    EXPECT_TRUE(settings::ReadBinary(u"k", u"empty", read));
    EXPECT_TRUE(read.empty());
    EXPECT_TRUE(settings::WriteBinary(u"k", u"big", big));
    EXPECT_TRUE(settings::ReadBinary(u"k", u"big", read));
    EXPECT_EQ(read, big);
}

TEST_F(Settings, DeletingAKeyRemovesItsSubkeysOnly)
{
    for (const char16_t* path : {u"A\\B", u"a\\b\\C", u"A\\BC", u"A"})
        ASSERT_TRUE(settings::WriteDword(path, u"v", 1));
    EXPECT_TRUE(settings::DeleteValue(u"A", u"v"));
    EXPECT_TRUE(settings::DeleteKey(u"a\\B\\"));
    uint32_t value;
    EXPECT_FALSE(settings::ReadDword(u"A", u"v", value));
    EXPECT_FALSE(settings::ReadDword(u"A\\B\\C", u"v", value));
    EXPECT_TRUE(settings::ReadDword(u"A\\BC", u"v", value));
    EXPECT_TRUE(settings::DeleteKey(u"nothing"));
    EXPECT_FALSE(settings::DeleteKey(u""));
}

TEST_F(Settings, AnUnreadableFileLeavesTheDefaultsAndIsNotOverwritten)
{
    const std::string text = "[k]\nv=dword:1\n";
    WriteSettingsFile(text);
    ASSERT_EQ(::chmod(m_home.Path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(m_home.File("vesk").c_str(), 0777), 0);
    ASSERT_EQ(::chmod(m_file.c_str(), 0), 0);
    int result = vesk::test::RunUnprivileged([] {
        uint32_t scale = 100;
        bool read = settings::ReadDword(u"k", u"v", scale);
        bool written = settings::WriteDword(u"k", u"v", 7);
        return (read ? 1 : 0) | (written ? 4 : 0) | (scale != 100 ? 8 : 0);
    });
    EXPECT_EQ(result, 0);
    ASSERT_EQ(::chmod(m_file.c_str(), 0600), 0);
    EXPECT_EQ(ReadFileText(m_file), text);
}

TEST_F(Settings, SystemColorsComeFromTheStoreOrTheClassicScheme)
{
    EXPECT_EQ(vesk::platform::SystemColor(13), 0x6A240Au); // highlight 10, 36, 106
    EXPECT_EQ(vesk::platform::SystemColor(1), 0u); // desktop: not held
    ASSERT_TRUE(settings::WriteString(u"Control Panel\\Colors", u"Hilight", u" 1 2\t3 "));
    ASSERT_TRUE(settings::WriteString(u"Control Panel\\Colors", u"ButtonFace", u"256 0 0"));
    ASSERT_TRUE(settings::WriteString(u"Control Panel\\Colors", u"Window", u"1 2 3 4"));
    ASSERT_TRUE(settings::WriteDword(u"Control Panel\\Colors", u"Menu", 5));
    EXPECT_EQ(vesk::platform::SystemColor(13), 0x030201u);
    EXPECT_EQ(vesk::platform::SystemColor(15), 0xC8D0D4u);
    EXPECT_EQ(vesk::platform::SystemColor(5), 0xFFFFFFu);
    EXPECT_EQ(vesk::platform::SystemColor(4), 0xC8D0D4u);
}

TEST_F(Settings, AWriterKilledAtRandomLeavesTheOldOrTheNewFile)
{
    const std::vector<uint8_t> a(32768, 0xAA), b(32768, 0xBB);
    ASSERT_TRUE(settings::WriteDword(u"k", u"before", 1));
    ASSERT_TRUE(settings::WriteBinary(u"k", u"layout", a));
    ASSERT_TRUE(settings::WriteDword(u"k", u"after", 2));
    std::mt19937 random(99);
    int roundsEndingWithB = 0;
    for (int round = 0; round < 100; ++round) {
        ASSERT_TRUE(vesk::test::KillWhileWriting([&](int i) { settings::WriteBinary(u"k", u"layout", i % 2 ? b : a); }, random));

        std::vector<uint8_t> layout;
        uint32_t before = 0, after = 0;
        ASSERT_TRUE(settings::ReadBinary(u"k", u"layout", layout)) << "round " << round;
        ASSERT_TRUE(layout == a || layout == b) << "round " << round;
        roundsEndingWithB += layout == b;
        ASSERT_TRUE(settings::ReadDword(u"k", u"before", before) && before == 1) << "round " << round;
        ASSERT_TRUE(settings::ReadDword(u"k", u"after", after) && after == 2) << "round " << round;
    }
    // The kills fell at different points of the writer's alternation.
    EXPECT_GT(roundsEndingWithB, 0);
    EXPECT_LT(roundsEndingWithB, 100);
}

} // namespace
