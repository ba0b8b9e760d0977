#include <vesk/frame.hpp>
#include <vesk/window.hpp>

#include "platform/settings.hpp"
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
    int32_t m_nResolutionX = 96;
    int32_t m_nResolutionY = 96;
    bool m_bReaderKnown = false;
    bool m_bReaderRunning = false;

    int32_t GetResolutionX() override { return m_nResolutionX; }
    int32_t GetResolutionY() override { return m_nResolutionY; }
    bool GetScreenReader(bool& running) override
    {
        if (m_bReaderKnown)
            running = m_bReaderRunning;
        return m_bReaderKnown;
    }
};

// Starts the library against `info` and a private config directory; ends it at scope end.
class Started
{
public:
    explicit Started(platform::SystemInfo* info = nullptr) : m_pPrevious(platform::SetSystemInfo(info))
    {
        VeskInit();
    }
    ~Started()
    {
        VeskExit();
        platform::SetSystemInfo(m_pPrevious);
    }
    VeskData& operator*() const { return *GetPVeskData(); }
    VeskData* operator->() const { return GetPVeskData(); }

private:
    platform::SystemInfo* m_pPrevious;
};

void WriteSettingsFile(const ConfigHomeGuard& config, const std::string& text)
{
    std::filesystem::create_directories(config.File("vesk"));
    ASSERT_TRUE(test::WriteFileText(config.File("vesk/settings.ini"), text));
}

TEST(VeskLifeCycle, StateExistsOnlyBetweenInitAndExit)
{
    ConfigHomeGuard config;
    EXPECT_EQ(GetPVeskData(), nullptr);
    EXPECT_EQ(GlGetPWinMsgRouter(), nullptr);
    SetVeskMainWnd(reinterpret_cast<NativeWindow>(0x10)); // ignored without a state
    VeskSetCWndNextFocus(reinterpret_cast<NativeWindow>(0x10));

    VeskInit();
    VeskData* data = GetPVeskData();
    ASSERT_NE(data, nullptr);
    ASSERT_NE(GlGetPWinMsgRouter(), nullptr);
    EXPECT_EQ(data->GetMainWnd(), nullptr);
    VeskInit(); // a second start keeps the running state
    EXPECT_EQ(GetPVeskData(), data);

    auto frame = reinterpret_cast<NativeWindow>(0x20);
    SetVeskMainFrame(frame);
    EXPECT_EQ(data->GetMainWnd(), frame);
    SetVeskMainWnd(nullptr);
    EXPECT_EQ(data->GetMainWnd(), nullptr);
    VeskSetCWndNextFocus(frame);
    EXPECT_EQ(GlGetPWinMsgRouter()->GetNextFocusWindow(), frame);

    VeskExit();
    EXPECT_EQ(GetPVeskData(), nullptr);
    EXPECT_EQ(GlGetPWinMsgRouter(), nullptr);
    VeskExit(); // ending twice is harmless

    VeskInit();
    EXPECT_NE(GetPVeskData(), nullptr);
    EXPECT_EQ(GlGetPWinMsgRouter()->GetNextFocusWindow(), nullptr);
    VeskExit();
    EXPECT_EQ(GetPVeskData(), nullptr);
}

TEST(VeskData, TextScaleComesFromTheSettingsFile)
{
    const struct
    {
        const char* file;
        double factor;
    } cases[] = {
        {nullptr, 1.0},
        {"[Software\\Microsoft\\Accessibility]\nTextScaleFactor=dword:125\n", 1.25},
        {"[Software\\Microsoft\\Accessibility]\nTextScaleFactor=dword:100\n", 1.0},
        {"[Software\\Microsoft\\Accessibility]\nTextScaleFactor=dword:101\n", 1.01},
        {"[Software\\Microsoft\\Accessibility]\nTextScaleFactor=dword:50\n", 1.0},
        {"[Software\\Microsoft\\Accessibility]\nTextScaleFactor=sz:125\n", 1.0},
        {"[Software\\Microsoft\\Accessibility]\nTextScaleFactor=dword:12x\n", 1.0},
        {"[Software\\Microsoft]\nTextScaleFactor=dword:125\n", 1.0},
        {"\x01\xFF garbage [[[\n=\n", 1.0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file ? c.file : "no file");
        ConfigHomeGuard config;
        if (c.file)
            WriteSettingsFile(config, c.file);
        Started vesk;
        EXPECT_EQ(vesk->GetTextScaleFactor(), c.factor);
    }
}

TEST(VeskData, ResolutionScalesAsMulDivRounds)
{
    ConfigHomeGuard config;
    ScriptedSystemInfo info;
    info.m_nResolutionX = 144;
    info.m_nResolutionY = 120;
    Started vesk(&info);
    EXPECT_EQ(vesk->GetResolutionX(), 144);
    EXPECT_EQ(vesk->ScaleX(10), 15);
    EXPECT_EQ(vesk->UnScaleX(15), 10);
    EXPECT_EQ(vesk->ScaleX(1), 2);    // 1.5 rounds up
    EXPECT_EQ(vesk->ScaleX(-1), -2);  // and -1.5 away from zero
    EXPECT_EQ(vesk->ScaleY(10), 13);  // 12.5
    EXPECT_EQ(vesk->ScaleY(9), 11);   // 11.25
    EXPECT_EQ(vesk->UnScaleY(-5), -4);
    EXPECT_EQ(vesk->UnScaleX(1), 1);  // 0.67
    EXPECT_EQ(vesk->ScaleX(INT_MAX), -1); // overflow
    EXPECT_EQ(vesk->ScaleX(-INT_MAX), -1);
    EXPECT_EQ(vesk->UnScaleX(INT_MAX), 1431655765);
}

TEST(VeskData, ResolutionZeroMeans96)
{
    ConfigHomeGuard config;
    ScriptedSystemInfo info;
    info.m_nResolutionX = 0;
    info.m_nResolutionY = 0;
    Started vesk(&info);
    EXPECT_EQ(vesk->GetResolutionX(), 96);
    EXPECT_EQ(vesk->GetResolutionY(), 96);
    EXPECT_EQ(vesk->ScaleX(10), 10);
    EXPECT_EQ(vesk->UnScaleY(10), 10);
}

TEST(VeskData, ResolutionFromVeskDpiWithoutADisplay)
{
    ConfigHomeGuard config;
    const struct
    {
        const char* value;
        int32_t resolution;
    } cases[] = {{"144", 144}, {"0", 96}, {"-5", 96}, {"12x", 96}, {"", 96}, {nullptr, 96}};
    for (const auto& c : cases) {
        test::EnvGuard dpi("VESK_DPI", c.value);
        Started vesk;
        EXPECT_EQ(vesk->GetResolutionX(), c.resolution) << (c.value ? c.value : "unset");
        EXPECT_EQ(vesk->GetResolutionY(), c.resolution) << (c.value ? c.value : "unset");
    }
}

TEST(VeskData, ScreenReaderTurnsAcceleratorsOff)
{
    ConfigHomeGuard config;
    ScriptedSystemInfo info;
    info.m_bReaderKnown = true;
    info.m_bReaderRunning = true;
    {
        Started vesk(&info);
        EXPECT_FALSE(vesk->CanAccelerator());
    }
    info.m_bReaderRunning = false;
    {
        Started vesk(&info);
        EXPECT_TRUE(vesk->CanAccelerator());
    }
    info.m_bReaderKnown = false;
    info.m_bReaderRunning = true; // not reported when the setting is unknown
    {
        Started vesk(&info);
        EXPECT_TRUE(vesk->CanAccelerator());
    }
}

TEST(VeskData, KeysMessagesClassTranscriptAndTimer)
{
    ConfigHomeGuard config;
    Started vesk;
    const uint32_t keys[] = {0x1BB, 0xBD, 0x138, 0xBF, 0xBE, 0xBC, 0x1BC, 0x1BE, 0xBB};
    for (int i = 0; i < VESKKEY_COUNT; ++i)
        EXPECT_EQ(vesk->GetKeyCode(VeskKey(i)), keys[i]) << i;
    EXPECT_EQ(vesk->GetKeyCode(VeskKey(VESKKEY_COUNT)), 0u);
    for (int i = 0; i < VESKMEDIA_COUNT; ++i)
        EXPECT_EQ(vesk->GetMediaKeyCode(VeskMediaKey(i)), 176u + i);
    EXPECT_EQ(vesk->GetMediaKeyCode(VeskMediaKey(-1)), 0u);

    EXPECT_EQ(vesk->GetUserMessageCode(USERMSG_DRAG_RENDER), platform::RegisterMessage(u"VeskMFCDragRender"));
    EXPECT_EQ(vesk->GetUserMessageCode(USERMSG_DROP), platform::RegisterMessage(u"VeskMFCDrop"));
    EXPECT_EQ(vesk->GetUserMessageCode(USERMSG_QUERY_DROP), platform::RegisterMessage(u"VeskMFCQueryDrop"));
    EXPECT_NE(vesk->GetUserMessageCode(USERMSG_DROP), vesk->GetUserMessageCode(USERMSG_QUERY_DROP));
    EXPECT_GE(vesk->GetUserMessageCode(USERMSG_DRAG_RENDER), 0xC000u);
    EXPECT_EQ(vesk->GetUserMessageCode(UserMessageCode(3)), 0u);

    EXPECT_EQ(vesk->GetWindowClassName(), platform::WindowClassName(8, 6));
    ASSERT_TRUE(vesk->HasTranscriptData());
    EXPECT_TRUE(vesk->GetTranscriptData()->IsCyrillic());
    EXPECT_TRUE(vesk->CanHiResTimer());
    EXPECT_FALSE(vesk->HasVisualStyles());
    EXPECT_FALSE(vesk->CanClearType());
    EXPECT_TRUE(VeskData::UseWinColors());
}

TEST(VeskData, CopiesShareOwnedObjectsAndOutliveTheOriginal)
{
    ConfigHomeGuard config;
    VeskData copy = [] {
        Started vesk;
        vesk->SetVisualStyles(true);
        VeskData c(*vesk);
        EXPECT_EQ(c.GetTranscriptData(), vesk->GetTranscriptData());
        EXPECT_TRUE(c.HasVisualStyles());
        c.SetCanClearType(true);
        EXPECT_FALSE(vesk->CanClearType());
        VeskData assigned = c;
        assigned = *vesk;
        EXPECT_FALSE(assigned.CanClearType());
        EXPECT_EQ(assigned.GetWindowClassName(), vesk->GetWindowClassName());
        return c;
    }();
    // The original is gone; the shared objects are still there.
    EXPECT_EQ(GetPVeskData(), nullptr);
    EXPECT_TRUE(copy.GetTranscriptData()->IsCyrillic());
    EXPECT_EQ(copy.GetColorTableEntry(COL_WHITE).m_nRed, 65535);
}

} // namespace
} // namespace vesk
