#include <vesk/frame.hpp>
#include <vesk/graphics.hpp>

#include "platform/settings.hpp"
#include "support/ConfigHomeGuard.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

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
    struct Row {
        ColorName name;
        int red, green, blue;
    };
    const Row fixed[] = {{COL_BLACK, 0, 0, 0}, {COL_BLUE, 0, 0, 128}, {COL_GREEN, 0, 128, 0},
        {COL_CYAN, 0, 128, 128}, {COL_RED, 128, 0, 0}, {COL_MAGENTA, 128, 0, 128}, {COL_BROWN, 133, 69, 0},
        {COL_GRAY, 128, 128, 128}, {COL_LIGHTGRAY, 192, 192, 192}, {COL_LIGHTBLUE, 0, 0, 255},
        {COL_LIGHTGREEN, 0, 255, 0}, {COL_LIGHTCYAN, 0, 255, 255}, {COL_LIGHTRED, 255, 0, 0},
        {COL_LIGHTMAGENTA, 255, 0, 255}, {COL_YELLOW, 255, 255, 0}, {COL_WHITE, 255, 255, 255},
        {COL_LIGHTORANGE, 240, 191, 140}, {COL_ORANGE, 255, 160, 0}, {COL_DARKGRAY, 64, 64, 64}};
    auto wide = [](int c) { return uint16_t(c == 255 ? 65535 : c * 256); };
    for (const Row& row : fixed)
        ExpectEntry(row.name, wide(row.red), wide(row.green), wide(row.blue));
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

    // Each row reads its own value of the store: a colour made from the value's name.
    const std::u16string colors = u"Control Panel\\Colors";
    const std::pair<ColorName, const char16_t*> rows[] = {{COL_MENU, u"Menu"}, {COL_MENUTEXT, u"MenuText"},
        {COL_MENUBAR, u"Menu"}, {COL_MENUBARTEXT, u"MenuText"}, {COL_WINDOWTEXT, u"WindowText"},
        {COL_WINDOW, u"Window"}, {COL_HIGHLIGHT, u"Hilight"}, {COL_HIGHLIGHTTEXT, u"HilightText"},
        {COL_BTNTEXT, u"ButtonText"}, {COL_BTNFACE, u"ButtonFace"}, {COL_BTNHIGHLIGHT, u"ButtonHilight"},
        {COL_BTNSHADOW, u"ButtonShadow"}, {COL_SCROLLBAR, u"Scrollbar"}};
    auto red = [](std::u16string_view value) {
        unsigned sum = 0;
        for (char16_t c : value)
            sum += c;
        return uint16_t(sum % 256);
    };
    for (const auto& [name, value] : rows) {
        const std::u16string v(value);
        const std::string text = std::to_string(red(v)) + " " + std::to_string(v.size()) + " 255";
        ASSERT_TRUE(platform::settings::WriteString(colors, value, std::u16string(text.begin(), text.end())));
    }
    ASSERT_TRUE(platform::settings::WriteString(colors, u"Window", u"10 20 255"));
    ASSERT_TRUE(platform::settings::WriteString(colors, u"ButtonShadow", u"not a colour"));
    ExpectEntry(COL_WINDOW, 65535, 65535, 65535); // the table keeps what it read
    EXPECT_EQ(VeskData::GetBackgroundColour(), TamColor(uint32_t(10 | 20 << 8 | 255 << 16)));

    GetPVeskData()->InitColorTable();
    for (const auto& [name, value] : rows) {
        if (name != COL_WINDOW && name != COL_BTNSHADOW)
            ExpectEntry(name, red(value) * 256, std::u16string_view(value).size() * 256, 65535);
    }
    ExpectEntry(COL_WINDOW, 10 * 256, 20 * 256, 65535);
    ExpectEntry(COL_BTNSHADOW, 128 * 256, 128 * 256, 128 * 256); // damaged: the default stands
    EXPECT_EQ(TamColor(COL_WINDOW), TamColor(uint32_t(10 | 20 << 8 | 255 << 16)));
    VeskExit();
}

} // namespace
} // namespace vesk
