#include "platform/display/x11/keymap.hpp"

#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace vesk::test {
namespace {

using namespace vesk::display::x11;

// Keys that the server tests do not press: the table entries a layout rarely reaches.
TEST(X11KeyTable, KeySymbolsGiveVirtualKeys)
{
    const std::pair<xkb_keysym_t, uint16_t> cases[] = {
        {XKB_KEY_F1, 0x70},         {XKB_KEY_F12, 0x7B},        {XKB_KEY_F24, 0x87},
        {XKB_KEY_KP_0, 0x60},       {XKB_KEY_KP_9, 0x69},       {XKB_KEY_KP_Divide, 0x6F},
        {XKB_KEY_KP_Multiply, 0x6A}, {XKB_KEY_KP_Home, 0x24},   {XKB_KEY_Prior, 0x21},
        {XKB_KEY_Next, 0x22},       {XKB_KEY_End, 0x23},        {XKB_KEY_Down, 0x28},
        {XKB_KEY_Delete, 0x2E},     {XKB_KEY_Insert, 0x2D},     {XKB_KEY_Escape, 0x1B},
        {XKB_KEY_BackSpace, 0x08},  {XKB_KEY_ISO_Left_Tab, 0x09}, {XKB_KEY_Caps_Lock, 0x14},
        {XKB_KEY_Num_Lock, 0x90},   {XKB_KEY_Scroll_Lock, 0x91}, {XKB_KEY_Pause, 0x13},
        {XKB_KEY_Control_R, 0x11},  {XKB_KEY_Alt_R, 0x12},      {XKB_KEY_Super_L, 0x5B},
        {XKB_KEY_Menu, 0x5D},       {XKB_KEY_grave, 0xC0},      {XKB_KEY_semicolon, 0xBA},
        {XKB_KEY_bracketleft, 0xDB}, {XKB_KEY_slash, 0xBF},     {XKB_KEY_space, 0x20},
        {XKB_KEY_z, 'Z'},           {XKB_KEY_Z, 'Z'},           {XKB_KEY_0, '0'},
        {XKB_KEY_XF86AudioMute, 0xAD}, {XKB_KEY_XF86AudioNext, 0xB0},
        {XKB_KEY_dead_acute, 0},    {XKB_KEY_udiaeresis, 0},
    };
    for (auto [sym, vk] : cases)
        EXPECT_EQ(KeySymToVirtualKey(sym), vk) << std::hex << sym;
}

TEST(X11KeyTable, KeyCodesGiveScanCodes)
{
    struct Case
    {
        xcb_keycode_t keycode;
        uint8_t scan;
        bool extended;
    };
    const Case cases[] = {
        {9, 0x01, false},   // Escape
        {38, 0x1E, false},  // A
        {96, 0x58, false},  // F12
        {77, 0x45, true},   // Num Lock
        {111, 0x48, true},  // Up
        {118, 0x52, true},  // Insert
        {127, 0x45, false}, // Pause
        {135, 0x5D, true},  // Menu
        {5, 0, false},      // below the first key code
        {200, 0, false},    // no scan code
    };
    for (const Case& c : cases) {
        const auto scan = ScanCodeOf(c.keycode);
        EXPECT_EQ(scan.code, c.scan) << int(c.keycode);
        EXPECT_EQ(scan.extended, c.extended) << int(c.keycode);
    }
}

} // namespace
} // namespace vesk::test
