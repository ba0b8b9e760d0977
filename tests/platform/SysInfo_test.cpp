#include "platform/keyboard.hpp"
#include "platform/sysinfo.hpp"
#include "support/FileText.hpp"
#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <thread>
#include <vector>

namespace vesk::platform {
namespace {

TEST(KeyScan, AsAUsKeyboardTypesIt)
{
    const struct
    {
        char16_t ch;
        uint16_t code;
    } cases[] = {
        {u'*', 0x138}, {u'A', 0x141}, {u'"', 0x1DE}, {u'\t', 0x009},
        {u'\u00E9', KEYSCAN_NONE}, {u'\x7F', KEYSCAN_NONE},
    };
    for (const auto& c : cases)
        EXPECT_EQ(GetSystemInfo().KeyScan(c.ch), c.code) << int(c.ch);

    // Every printable character has a key of its own, plain or shifted.
    std::set<uint16_t> seen;
    for (char16_t ch = 0x20; ch < 0x7F; ++ch) {
        uint16_t code = UsKeyScan(ch);
        EXPECT_LE(code >> 8, 1) << int(ch);
        EXPECT_TRUE(seen.insert(code).second) << "two characters on key " << code;
    }
}

TEST(RegisteredMessages, SameNameSameCodeAcrossThreads)
{
    uint32_t drop = RegisterMessage(u"SysInfoTestDrop");
    EXPECT_GE(drop, 0xC000u);
    EXPECT_LE(drop, 0xFFFFu);
    EXPECT_NE(RegisterMessage(u"SysInfoTestRender"), drop);
    EXPECT_EQ(RegisterMessage(u"SYSINFOTESTDROP"), drop);
    EXPECT_EQ(RegisterMessage(u""), 0u);

    std::vector<uint32_t> codes(4);
    std::vector<std::thread> threads;
    for (size_t t = 0; t < codes.size(); ++t)
        threads.emplace_back([&codes, t] {
            for (char16_t c = u'a'; c <= u'z'; ++c)
                RegisterMessage(std::u16string(u"SysInfoTestBusy") + c);
            codes[t] = RegisterMessage(u"SysInfoTestShared");
        });
    for (auto& thread : threads)
        thread.join();
    for (uint32_t code : codes)
        EXPECT_EQ(code, codes[0]);
}

// The screen-reader flag read in a fresh process (GLib keeps its settings backend and config
// directory once chosen), through GLib's key-file backend.
[[noreturn]] void ExitWithScreenReader(const std::string& settingsText)
{
    test::TempDir config;
    std::filesystem::create_directories(config.File("glib-2.0/settings"));
    test::WriteFileText(config.File("glib-2.0/settings/keyfile"), settingsText);
    ::setenv("GSETTINGS_BACKEND", "keyfile", 1);
    ::setenv("XDG_CONFIG_HOME", config.Path().c_str(), 1);
    bool running = false;
    int result = GetSystemInfo().GetScreenReader(running) ? (running ? 2 : 1) : 0;
    std::filesystem::remove_all(config.Path()); // _Exit skips the destructor
    std::_Exit(result);
}

TEST(SystemInfo, ScreenReaderFollowsTheDesktopSetting)
{
    if (!std::filesystem::exists("/usr/share/glib-2.0/schemas/org.gnome.desktop.a11y.applications.gschema.xml"))
        GTEST_SKIP() << "the desktop's accessibility schema is not installed";
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const std::string group = "[org/gnome/desktop/a11y/applications]\n";
    EXPECT_EXIT(ExitWithScreenReader(group + "screen-reader-enabled=true\n"), ::testing::ExitedWithCode(2), "");
    EXPECT_EXIT(ExitWithScreenReader(group + "screen-reader-enabled=false\n"), ::testing::ExitedWithCode(1), "");
    EXPECT_EXIT(ExitWithScreenReader(""), ::testing::ExitedWithCode(1), "");
}

} // namespace
} // namespace vesk::platform
