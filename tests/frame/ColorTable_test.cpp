#include <vesk/frame.hpp>
#include <vesk/graphics.hpp>

#include "platform/settings.hpp"
#include "support/ConfigHomeGuard.hpp"

#include <gtest/gtest.h>

namespace vesk {
namespace {

void ExpectEntry(ColorName name, uint16_t red, uint16_t green, uint16_t blue)
{
    ColorTableEntry entry = GetPVeskData()->GetColorTableEntry(name);
    EXPECT_EQ(entry.m_nRed, red) << name;
    EXPECT_EQ(entry.m_nGreen, green) << name;
    EXPECT_EQ(entry.m_nBlue, blue) << name;
}

TEST(ColorTable, FixedRowsInSixteenBitScale)
{
    EXPECT_EQ(TamColor(COL_WHITE), TamColor(0u)); // black without the library
    test::ConfigHomeGuard config;
    VeskInit();
    ExpectEntry(COL_BLUE, 0, 0, 128 * 256);
    ExpectEntry(COL_BROWN, 133 * 256, 69 * 256, 0);
    ExpectEntry(COL_ORANGE, 65535, 160 * 256, 0);
    ExpectEntry(ColorName(COLOR_TABLE_SIZE - 1), 0, 0, 0); // the unnamed last slot
    ExpectEntry(ColorName(-1), 0, 0, 0);
    EXPECT_EQ(TamColor(COL_BROWN), TamColor(uint32_t(133 | 69 << 8)));
    EXPECT_EQ(TamColor(COL_WHITE), TamColor());
    EXPECT_EQ(TamColor(ColorName(40)), TamColor(0u));
    VeskExit();
}

TEST(ColorTable, SystemRowsFollowTheSettingsStore)
{
    test::ConfigHomeGuard config;
    VeskInit();
    // The classic desktop scheme while the store holds no colours.
    ExpectEntry(COL_WINDOW, 65535, 65535, 65535);
    ExpectEntry(COL_BTNFACE, 212 * 256, 208 * 256, 200 * 256);
    EXPECT_EQ(VeskData::GetBackgroundColour(), TamColor());

    const std::u16string colors = u"Control Panel\\Colors";
    ASSERT_TRUE(platform::settings::WriteString(colors, u"Window", u"10 20 255"));
    ASSERT_TRUE(platform::settings::WriteString(colors, u"Menu", u"1 2 3"));
    ASSERT_TRUE(platform::settings::WriteString(colors, u"MenuText", u"4 5 6"));
    ASSERT_TRUE(platform::settings::WriteString(colors, u"ButtonShadow", u"not a colour"));
    ExpectEntry(COL_WINDOW, 65535, 65535, 65535); // the table keeps what it read
    EXPECT_EQ(VeskData::GetBackgroundColour(), TamColor(uint32_t(10 | 20 << 8 | 255 << 16)));

    GetPVeskData()->InitColorTable();
    ExpectEntry(COL_WINDOW, 10 * 256, 20 * 256, 65535);
    ExpectEntry(COL_MENU, 256, 512, 768);
    ExpectEntry(COL_MENUBAR, 256, 512, 768);
    ExpectEntry(COL_MENUTEXT, 1024, 1280, 1536);
    ExpectEntry(COL_BTNSHADOW, 128 * 256, 128 * 256, 128 * 256); // damaged: the default stands
    EXPECT_EQ(TamColor(COL_WINDOW), TamColor(uint32_t(10 | 20 << 8 | 255 << 16)));
    VeskExit();
}

} // namespace
} // namespace vesk
