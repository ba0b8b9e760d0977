#include "platform/display/x11/keymap.hpp"

#include "platform/keyboard.hpp"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <algorithm>
#include <iterator>

namespace vesk::display::x11 {

namespace {

struct SymKey
{
    xkb_keysym_t sym;
    uint16_t vk;
};

// Sorted by key symbol. Keypad keys without Num Lock give the navigation keys they carry.
constexpr SymKey kSymKeys[] = {
    {XKB_KEY_ISO_Left_Tab, VK_TAB},
    {XKB_KEY_BackSpace, VK_BACK},
    {XKB_KEY_Tab, VK_TAB},
    {XKB_KEY_Clear, VK_CLEAR},
    {XKB_KEY_Return, VK_RETURN},
    {XKB_KEY_Pause, VK_PAUSE},
    {XKB_KEY_Scroll_Lock, VK_SCROLL},
    {XKB_KEY_Sys_Req, VK_SNAPSHOT},
    {XKB_KEY_Escape, VK_ESCAPE},
    {XKB_KEY_Home, VK_HOME},
    {XKB_KEY_Left, VK_LEFT},
    {XKB_KEY_Up, VK_UP},
    {XKB_KEY_Right, VK_RIGHT},
    {XKB_KEY_Down, VK_DOWN},
    {XKB_KEY_Prior, VK_PRIOR},
    {XKB_KEY_Next, VK_NEXT},
    {XKB_KEY_End, VK_END},
    {XKB_KEY_Select, VK_SELECT},
    {XKB_KEY_Print, VK_SNAPSHOT},
    {XKB_KEY_Execute, VK_EXECUTE},
    {XKB_KEY_Insert, VK_INSERT},
    {XKB_KEY_Menu, VK_APPS},
    {XKB_KEY_Help, VK_HELP},
    {XKB_KEY_Break, VK_CANCEL},
    {XKB_KEY_Num_Lock, VK_NUMLOCK},
    {XKB_KEY_KP_Enter, VK_RETURN},
    {XKB_KEY_KP_Home, VK_HOME},
    {XKB_KEY_KP_Left, VK_LEFT},
    {XKB_KEY_KP_Up, VK_UP},
    {XKB_KEY_KP_Right, VK_RIGHT},
    {XKB_KEY_KP_Down, VK_DOWN},
    {XKB_KEY_KP_Prior, VK_PRIOR},
    {XKB_KEY_KP_Next, VK_NEXT},
    {XKB_KEY_KP_End, VK_END},
    {XKB_KEY_KP_Begin, VK_CLEAR},
    {XKB_KEY_KP_Insert, VK_INSERT},
    {XKB_KEY_KP_Delete, VK_DELETE},
    {XKB_KEY_KP_Multiply, VK_MULTIPLY},
    {XKB_KEY_KP_Add, VK_ADD},
    {XKB_KEY_KP_Separator, VK_SEPARATOR},
    {XKB_KEY_KP_Subtract, VK_SUBTRACT},
    {XKB_KEY_KP_Decimal, VK_DECIMAL},
    {XKB_KEY_KP_Divide, VK_DIVIDE},
    {XKB_KEY_Shift_L, VK_SHIFT},
    {XKB_KEY_Shift_R, VK_SHIFT},
    {XKB_KEY_Control_L, VK_CONTROL},
    {XKB_KEY_Control_R, VK_CONTROL},
    {XKB_KEY_Caps_Lock, VK_CAPITAL},
    {XKB_KEY_Meta_L, VK_MENU},
    {XKB_KEY_Meta_R, VK_MENU},
    {XKB_KEY_Alt_L, VK_MENU},
    {XKB_KEY_Alt_R, VK_MENU},
    {XKB_KEY_Super_L, VK_LWIN},
    {XKB_KEY_Super_R, VK_RWIN},
    {XKB_KEY_Delete, VK_DELETE},
    {XKB_KEY_XF86AudioLowerVolume, VK_VOLUME_DOWN},
    {XKB_KEY_XF86AudioMute, VK_VOLUME_MUTE},
    {XKB_KEY_XF86AudioRaiseVolume, VK_VOLUME_UP},
    {XKB_KEY_XF86AudioPlay, VK_MEDIA_PLAY_PAUSE},
    {XKB_KEY_XF86AudioStop, VK_MEDIA_STOP},
    {XKB_KEY_XF86AudioPrev, VK_MEDIA_PREV_TRACK},
    {XKB_KEY_XF86AudioNext, VK_MEDIA_NEXT_TRACK},
};

static_assert(std::is_sorted(std::begin(kSymKeys), std::end(kSymKeys),
                             [](const SymKey& a, const SymKey& b) { return a.sym < b.sym; }));

// Set-1 scan codes of the keys whose evdev number differs from it; all carry the extended
// prefix except Pause.
struct EvdevScan
{
    uint8_t evdev;
    uint8_t scan;
    bool extended;
};

constexpr EvdevScan kEvdevScans[] = {
    {96, 0x1C, true},  // keypad Enter
    {97, 0x1D, true},  // right Control
    {98, 0x35, true},  // keypad divide
    {99, 0x37, true},  // Print Screen
    {100, 0x38, true}, // right Alt
    {102, 0x47, true}, // Home
    {103, 0x48, true}, // Up
    {104, 0x49, true}, // Page Up
    {105, 0x4B, true}, // Left
    {106, 0x4D, true}, // Right
    {107, 0x4F, true}, // End
    {108, 0x50, true}, // Down
    {109, 0x51, true}, // Page Down
    {110, 0x52, true}, // Insert
    {111, 0x53, true}, // Delete
    {119, 0x45, false}, // Pause
    {125, 0x5B, true}, // left Windows key
    {126, 0x5C, true}, // right Windows key
    {127, 0x5D, true}, // Menu
};

// Evdev numbers up to here are set-1 scan codes themselves (Escape 1 ... F12 88).
constexpr uint8_t kLastPlainEvdev = 88;
constexpr uint8_t kEvdevNumLock = 69;

void AppendUtf16(std::u16string& text, uint32_t cp)
{
    if (cp >= 0x10000) {
        cp -= 0x10000;
        text += static_cast<char16_t>(0xD800 + (cp >> 10));
        text += static_cast<char16_t>(0xDC00 + (cp & 0x3FF));
    } else {
        text += static_cast<char16_t>(cp);
    }
}

} // namespace

uint16_t KeySymToVirtualKey(xkb_keysym_t sym)
{
    if (sym >= XKB_KEY_F1 && sym <= XKB_KEY_F24)
        return static_cast<uint16_t>(VK_F1 + (sym - XKB_KEY_F1));
    if (sym >= XKB_KEY_KP_0 && sym <= XKB_KEY_KP_9)
        return static_cast<uint16_t>(VK_NUMPAD0 + (sym - XKB_KEY_KP_0));
    // Printable ASCII: the key that types it on a US keyboard (letters and digits are their
    // own upper-case code, punctuation the OEM keys).
    if (sym >= XKB_KEY_space && sym <= XKB_KEY_asciitilde) {
        uint16_t scan = platform::UsKeyScan(static_cast<char16_t>(sym));
        return scan == platform::KEYSCAN_NONE ? 0 : static_cast<uint16_t>(scan & 0xFF);
    }
    auto it = std::lower_bound(std::begin(kSymKeys), std::end(kSymKeys), sym,
                               [](const SymKey& key, xkb_keysym_t value) { return key.sym < value; });
    return it != std::end(kSymKeys) && it->sym == sym ? it->vk : 0;
}

ScanCode ScanCodeOf(xcb_keycode_t keycode)
{
    if (keycode < 8)
        return {};
    auto evdev = static_cast<unsigned>(keycode - 8);
    if (evdev <= kLastPlainEvdev)
        return {static_cast<uint8_t>(evdev), evdev == kEvdevNumLock};
    for (const EvdevScan& entry : kEvdevScans)
        if (entry.evdev == evdev)
            return {entry.scan, entry.extended};
    return {};
}

std::unique_ptr<Keymap> Keymap::Create(xcb_connection_t* xcb)
{
    if (!xkb_x11_setup_xkb_extension(xcb, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                                     XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr))
        return nullptr;
    int32_t device = xkb_x11_get_core_keyboard_device_id(xcb);
    xkb_context* context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
    if (device < 0 || !context) {
        xkb_context_unref(context);
        return nullptr;
    }
    std::unique_ptr<Keymap> keymap(new Keymap(xcb, context, device));
    keymap->Reload();
    if (!keymap->m_state)
        return nullptr;
    return keymap;
}

Keymap::Keymap(xcb_connection_t* xcb, xkb_context* context, int32_t device)
    : m_xcb(xcb), m_context(context), m_device(device)
{
}

Keymap::~Keymap()
{
    xkb_state_unref(m_state);
    xkb_keymap_unref(m_keymap);
    xkb_context_unref(m_context);
}

void Keymap::Reload()
{
    xkb_keymap* keymap = xkb_x11_keymap_new_from_device(m_context, m_xcb, m_device, XKB_KEYMAP_COMPILE_NO_FLAGS);
    xkb_state* state = keymap ? xkb_x11_state_new_from_device(keymap, m_xcb, m_device) : nullptr;
    if (!state) {
        xkb_keymap_unref(keymap);
        return;
    }
    xkb_state_unref(m_state);
    xkb_keymap_unref(m_keymap);
    m_keymap = keymap;
    m_state = state;
}

void Keymap::SetState(uint16_t coreState)
{
    // The eight core modifiers are XKB's real modifiers in the same bit order; Caps Lock and
    // Num Lock (Mod2) are locks, the rest are held. The group sits in bits 13-14.
    constexpr uint16_t kLocks = XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2;
    xkb_mod_mask_t mods = coreState & 0xFF;
    xkb_state_update_mask(m_state, mods & ~kLocks, 0, mods & kLocks, 0, 0, (coreState >> 13) & 3);
}

uint16_t Keymap::VirtualKey(xcb_keycode_t keycode) const
{
    // The keypad's digit keys carry their navigation symbol on the first level; with Num Lock
    // on they type digits and report the numeric keypad codes.
    xkb_keysym_t current = xkb_state_key_get_one_sym(m_state, keycode);
    if ((current >= XKB_KEY_KP_0 && current <= XKB_KEY_KP_9) || current == XKB_KEY_KP_Decimal)
        return KeySymToVirtualKey(current);
    xkb_layout_index_t layout = xkb_state_key_get_layout(m_state, keycode);
    const xkb_keysym_t* syms = nullptr;
    int count = xkb_keymap_key_get_syms_by_level(m_keymap, keycode, layout == XKB_LAYOUT_INVALID ? 0 : layout, 0, &syms);
    return count < 1 ? 0 : KeySymToVirtualKey(syms[0]);
}

std::u16string Keymap::Text(xcb_keycode_t keycode) const
{
    std::u16string text;
    uint32_t cp = xkb_state_key_get_utf32(m_state, keycode);
    if (cp != 0)
        AppendUtf16(text, cp);
    return text;
}

} // namespace vesk::display::x11
