#include "platform/keyboard.hpp"
#include "platform/sysinfo.hpp"

#include <gtest/gtest.h>

#include <set>
#include <thread>
#include <vector>

namespace vesk::platform {
namespace {

TEST(KeyScan, PunctuationAsAUsKeyboardTypesIt)
{
    const struct
    {
        char16_t ch;
        uint16_t code;
    } cases[] = {
        {u'+', 0x1BB}, {u'-', 0x0BD}, {u'*', 0x138}, {u'/', 0x0BF},  {u'.', 0x0BE},
        {u',', 0x0BC}, {u'<', 0x1BC}, {u'>', 0x1BE}, {u'=', 0x0BB},  {u'a', 0x041},
        {u'A', 0x141}, {u'7', 0x037}, {u'\t', 0x009}, {u'\u00E9', KEYSCAN_NONE}, {u'\x7F', KEYSCAN_NONE},
    };
    for (const auto& c : cases)
        EXPECT_EQ(GetSystemInfo().KeyScan(c.ch), c.code) << int(c.ch);
}

TEST(KeyScan, EveryPrintableCharacterHasItsOwnKey)
{
    std::set<uint16_t> seen;
    for (char16_t ch = 0x20; ch < 0x7F; ++ch) {
        uint16_t code = UsKeyScan(ch);
        EXPECT_NE(code, KEYSCAN_NONE) << int(ch);
        EXPECT_LE(code >> 8, 1) << int(ch);
        EXPECT_TRUE(seen.insert(code).second) << "two characters on key " << code;
    }
}

TEST(RegisteredMessages, SameNameSameCodeInTheRegisteredRange)
{
    uint32_t drop = RegisterMessage(u"SysInfoTestDrop");
    uint32_t render = RegisterMessage(u"SysInfoTestRender");
    EXPECT_GE(drop, 0xC000u);
    EXPECT_LE(drop, 0xFFFFu);
    EXPECT_GE(render, 0xC000u);
    EXPECT_NE(drop, render);
    EXPECT_EQ(RegisterMessage(u"SysInfoTestDrop"), drop);
    EXPECT_EQ(RegisterMessage(u"SYSINFOTESTDROP"), drop);
    EXPECT_EQ(RegisterMessage(u""), 0u);
}

TEST(RegisteredMessages, ThreadsAgreeOnCodes)
{
    std::vector<uint32_t> codes(4);
    std::vector<std::thread> threads;
    for (size_t t = 0; t < codes.size(); ++t)
        threads.emplace_back([&codes, t] {
            for (int i = 0; i < 50; ++i)
                RegisterMessage(u"SysInfoTestBusy" + std::u16string(1, char16_t(u'a' + i % 26)));
            codes[t] = RegisterMessage(u"SysInfoTestShared");
        });
    for (auto& thread : threads)
        thread.join();
    for (uint32_t code : codes)
        EXPECT_EQ(code, codes[0]);
}

TEST(WindowClass, NameFollowsTheAttributes)
{
    EXPECT_EQ(WindowClassName(8, 6), u"Vesk:8:6");
    EXPECT_EQ(WindowClassName(0x4008, 0), u"Vesk:4008:0");
    EXPECT_NE(WindowClassName(8, 6), WindowClassName(8, 7));
}

TEST(SystemInfo, InstalledInfoTakesOverUntilRemoved)
{
    struct Display : SystemInfo
    {
        int32_t GetResolutionX() override { return 144; }
    } display;
    SystemInfo* base = &GetSystemInfo();
    EXPECT_EQ(SetSystemInfo(&display), nullptr);
    EXPECT_EQ(GetSystemInfo().GetResolutionX(), 144);
    EXPECT_EQ(SetSystemInfo(nullptr), &display);
    EXPECT_EQ(&GetSystemInfo(), base);
}

} // namespace
} // namespace vesk::platform
