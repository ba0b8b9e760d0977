#include <vesk/frame/WinMessages.hpp>
#include <vesk/window/Events.hpp>

#include <gtest/gtest.h>

#include <string>

using namespace vesk;

TEST(KeyCode, NamesKeysWithTheirModifiersInMenuOrder)
{
    const struct
    {
        uint16_t key;
        uint16_t modifiers;
        const char* name;
    } rows[] = {
        {'A', 0, "A"},
        {'0', KEY_SHIFT, "Shift+0"},
        {VK_F1, KEY_MOD1, "Ctrl+F1"},
        {VK_F24, 0, "F24"},
        {VK_RETURN, KEY_MOD2, "Alt+Enter"},
        {VK_DELETE, KEY_SHIFT | KEY_MOD1 | KEY_MOD2, "Ctrl+Shift+Alt+Delete"},
        {VK_NUMPAD0 + 9, 0, "Num 9"},
        {VK_PRIOR, 0, "Page Up"},
        {VK_OEM_PLUS, KEY_MOD1, "Ctrl++"},
        {VK_OEM_7, 0, "'"},
        {VK_SHIFT, KEY_SHIFT, ""}, // a modifier alone has no name
        {0x07, 0, ""},
    };
    for (const auto& row : rows) {
        const KeyCode code(row.key, row.modifiers);
        EXPECT_EQ(std::string(static_cast<const char*>(code.GetName())), row.name) << row.key;
    }
}

TEST(KeyCode, KeepsTheKeyAndTheModifiersApart)
{
    const KeyCode code(0x1FFF, KEY_MOD1 | 0x8000); // neither spills into the other
    EXPECT_EQ(code.GetCode(), 0x0FFF);
    EXPECT_EQ(code.GetModifier(), KEY_MOD1);
    EXPECT_TRUE(code.IsMod1());
    EXPECT_FALSE(code.IsShift());
    EXPECT_EQ(KeyCode(code.GetFullCode()), code);
}
