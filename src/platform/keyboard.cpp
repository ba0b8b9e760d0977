#include "platform/keyboard.hpp"

namespace vesk::platform {

namespace {

struct PunctuationKey
{
    char plain;
    char shifted;
    uint16_t vk;
};

constexpr PunctuationKey kPunctuation[] = {
    {'`', '~', VK_OEM_3},     {'-', '_', VK_OEM_MINUS}, {'=', '+', VK_OEM_PLUS},
    {'[', '{', VK_OEM_4},     {']', '}', VK_OEM_6},     {'\\', '|', VK_OEM_5},
    {';', ':', VK_OEM_1},     {'\'', '"', VK_OEM_7},    {',', '<', VK_OEM_COMMA},
    {'.', '>', VK_OEM_PERIOD}, {'/', '?', VK_OEM_2},
};

// What Shift gives on the digit keys 0 to 9.
constexpr char kShiftedDigits[] = ")!@#$%^&*(";

} // namespace

uint16_t UsKeyScan(char16_t ch)
{
    if (ch >= u'0' && ch <= u'9')
        return ch;
    if (ch >= u'A' && ch <= u'Z')
        return KEYSCAN_SHIFT | ch;
    if (ch >= u'a' && ch <= u'z')
        return ch - u'a' + u'A';
    switch (ch) {
    case u'\b': return VK_BACK;
    case u'\t': return VK_TAB;
    case u'\r': return VK_RETURN;
    case u' ': return VK_SPACE;
    default: break;
    }
    for (int digit = 0; digit < 10; ++digit)
        if (ch == static_cast<char16_t>(kShiftedDigits[digit]))
            return KEYSCAN_SHIFT | ('0' + digit);
    for (const PunctuationKey& key : kPunctuation) {
        if (ch == static_cast<char16_t>(key.plain))
            return key.vk;
        if (ch == static_cast<char16_t>(key.shifted))
            return KEYSCAN_SHIFT | key.vk;
    }
    return KEYSCAN_NONE;
}

} // namespace vesk::platform
