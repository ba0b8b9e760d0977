#include <vesk/frame.hpp>
#include <vesk/window.hpp>

#include "platform/sysinfo.hpp"
#include "support/ConfigHomeGuard.hpp"
#include "support/EnvGuard.hpp"
#include "support/FileText.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <filesystem>

namespace vesk {
namespace {

using test::ConfigHomeGuard;

// A display and desktop that say what the test wants.
struct ScriptedSystemInfo : platform::SystemInfo
{
    int32_t m_nResolution = 96;
    int32_t m_nResolutionY = 0; // 0: as m_nResolution
    bool m_bReaderKnown = false;
    bool m_bReaderRunning = false;

    int32_t GetResolutionX() override { return m_nResolution; }
    int32_t GetResolutionY() override { return m_nResolutionY ? m_nResolutionY : m_nResolution; }
    bool GetScreenReader(bool& running) override
    {
        if (m_bReaderKnown)
            running = m_bReaderRunning;
        return m_bReaderKnown;
    }
};

// The library started against `info` (null: the machine itself) for a scope.
class Started
{
public:
    explicit Started(platform::SystemInfo* info = nullptr) : m_pPrevious(platform::SetSystemInfo(info)) { VeskInit(); }
    ~Started()
    {
        VeskExit();
        platform::SetSystemInfo(m_pPrevious);
    }
    VeskData* operator->() const { return GetPVeskData(); }

private:
    platform::SystemInfo* m_pPrevious;
};

TEST(VeskLifeCycle, StateExistsOnlyBetweenInitAndExit)
{
    ConfigHomeGuard config;
    auto frame = reinterpret_cast<NativeWindow>(0x20);
    EXPECT_EQ(GetPVeskData(), nullptr);
    SetVeskMainWnd(frame); // ignored without a state
    VeskSetCWndNextFocus(frame);

    VeskInit();
    VeskData* data = GetPVeskData();
    ASSERT_NE(data, nullptr);
    ASSERT_NE(GlGetPWinMsgRouter(), nullptr);
    EXPECT_EQ(data->GetMainWnd(), nullptr);
    VeskInit(); // a second start keeps the running state
    EXPECT_EQ(GetPVeskData(), data);
    SetVeskMainFrame(frame);
    EXPECT_EQ(data->GetMainWnd(), frame);
    VeskSetCWndNextFocus(frame);
    EXPECT_EQ(GlGetPWinMsgRouter()->GetNextFocusWindow(), frame);

    VeskExit();
    EXPECT_EQ(GetPVeskData(), nullptr);
    EXPECT_EQ(GlGetPWinMsgRouter(), nullptr);
    VeskInit();
    EXPECT_EQ(GlGetPWinMsgRouter()->GetNextFocusWindow(), nullptr);
    VeskExit();
}

TEST(VeskData, TextScaleComesFromTheSettingsFile)
{
    const struct
    {
        const char* value; // of TextScaleFactor; null for no settings file
        double factor;
    } cases[] = {{nullptr, 1.0},    {"dword:125", 1.25}, {"dword:101", 1.01},
                 {"dword:50", 1.0}, {"sz:125", 1.0},     {"dword:12x", 1.0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.value ? c.value : "no file");
        ConfigHomeGuard config;
        if (c.value) {
            std::filesystem::create_directories(config.File("vesk"));
            ASSERT_TRUE(test::WriteFileText(config.File("vesk/settings.ini"),
                                            std::string("[Software\\Microsoft\\Accessibility]\nTextScaleFactor=") +
                                                c.value + "\n"));
        }
        Started vesk;
        EXPECT_EQ(vesk->GetTextScaleFactor(), c.factor);
    }
}

TEST(VeskData, ResolutionScalesAsMulDivRounds)
{
    ConfigHomeGuard config;
    {
        test::EnvGuard dpi("VESK_DPI", "144"); // the resolution without a display
        Started vesk;
        EXPECT_EQ(vesk->GetResolutionY(), 144);
        EXPECT_EQ(vesk->ScaleX(10), 15);
        EXPECT_EQ(vesk->ScaleY(1), 2);   // 1.5 rounds up
        EXPECT_EQ(vesk->ScaleY(-1), -2); // and -1.5 away from zero
        EXPECT_EQ(vesk->UnScaleY(-5), -3); // -3.33
        EXPECT_EQ(vesk->ScaleX(INT_MAX), -1); // overflow
        EXPECT_EQ(vesk->ScaleX(-INT_MAX), -1);
        EXPECT_EQ(vesk->UnScaleX(INT_MAX), 1431655765);
    }
    {
        ScriptedSystemInfo info; // each axis scales by its own resolution
        info.m_nResolution = 120;
        info.m_nResolutionY = 192;
        Started vesk(&info);
        EXPECT_EQ(vesk->ScaleX(96), 120);
        EXPECT_EQ(vesk->ScaleY(96), 192);
        EXPECT_EQ(vesk->UnScaleX(120), 96);
        EXPECT_EQ(vesk->UnScaleY(192), 96);
    }
    for (const char* dpi : {"0", "12x"}) {
        test::EnvGuard guard("VESK_DPI", dpi);
        Started vesk;
        EXPECT_EQ(vesk->GetResolutionX(), 96);
    }
}

TEST(VeskData, DisplayAndDesktopAsTheyReport)
{
    ConfigHomeGuard config;
    ScriptedSystemInfo info;
    info.m_nResolution = 0; // a display that cannot tell
    const struct
    {
        bool known, running, accelerator;
    } readers[] = {{true, true, false}, {true, false, true}, {false, true, true}};
    for (const auto& c : readers) {
        info.m_bReaderKnown = c.known;
        info.m_bReaderRunning = c.running;
        Started vesk(&info);
        EXPECT_EQ(vesk->CanAccelerator(), c.accelerator);
        EXPECT_EQ(vesk->GetResolutionX(), 96);
    }
}

TEST(VeskData, KeysMessagesTranscriptAndTimer)
{
    ConfigHomeGuard config;
    Started vesk;
    const uint32_t keys[] = {0x1BB, 0xBD, 0x138, 0xBF, 0xBE, 0xBC, 0x1BC, 0x1BE, 0xBB};
    for (int i = 0; i < VESKKEY_COUNT; ++i)
        EXPECT_EQ(vesk->GetKeyCode(VeskKey(i)), keys[i]) << i;
    EXPECT_EQ(vesk->GetKeyCode(VeskKey(VESKKEY_COUNT)), 0u);
    for (int i = 0; i < VESKMEDIA_COUNT; ++i)
        EXPECT_EQ(vesk->GetMediaKeyCode(VeskMediaKey(i)), 176u + i);

    const char16_t* messages[] = {u"VeskMFCDragRender", u"VeskMFCDrop", u"VeskMFCQueryDrop"};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(vesk->GetUserMessageCode(UserMessageCode(i)), platform::RegisterMessage(messages[i]));
    EXPECT_EQ(vesk->GetUserMessageCode(UserMessageCode(3)), 0u);

    EXPECT_EQ(vesk->GetWindowClassName(), u"Vesk:8:6"); // double clicks, window-colour background
    ASSERT_TRUE(vesk->HasTranscriptData());
    EXPECT_TRUE(vesk->GetTranscriptData()->IsCyrillic());
    EXPECT_TRUE(vesk->CanHiResTimer());
}

TEST(VeskData, CopiesShareOwnedObjectsAndOutliveTheOriginal)
{
    ConfigHomeGuard config;
    VeskData copy = [] {
        Started vesk;
        VeskData c(*GetPVeskData());
        EXPECT_EQ(c.GetTranscriptData(), vesk->GetTranscriptData());
        c.SetCanClearType(true);
        EXPECT_FALSE(vesk->CanClearType());
        return c;
    }();
    EXPECT_EQ(GetPVeskData(), nullptr);
    EXPECT_TRUE(copy.CanClearType());
    EXPECT_TRUE(copy.GetTranscriptData()->IsCyrillic());
    EXPECT_EQ(copy.GetColorTableEntry(COL_WHITE).m_nRed, 65535);
}

} // namespace
} // namespace vesk
