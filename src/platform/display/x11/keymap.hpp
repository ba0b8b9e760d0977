#pragma once

// Keyboard: X key codes and key symbols to the platform's virtual-key codes, scan codes and
// key-message parameters, with the typed text from libxkbcommon's keymap of the server.

#include "platform/display/KeyParams.hpp"

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon.h>

#include <cstdint>
#include <memory>
#include <string>

namespace vesk::display::x11 {

// Virtual-key code of a key symbol; 0 for symbols without one.
uint16_t KeySymToVirtualKey(xkb_keysym_t sym);

// Set-1 scan code of an X key code (evdev numbering plus 8) and whether it is an extended key.
ScanCode ScanCodeOf(xcb_keycode_t keycode);

class Keymap
{
public:
    // Null when the server has no XKB extension.
    static std::unique_ptr<Keymap> Create(xcb_connection_t* xcb);
    ~Keymap();
    Keymap(const Keymap&) = delete;
    Keymap& operator=(const Keymap&) = delete;

    // Reads the server's keymap again (after a mapping change).
    void Reload();
    // Takes the modifiers and group from a key or pointer event's state field.
    void SetState(uint16_t coreState);
    // The key's virtual-key code: the key symbol of its first level in the current group.
    uint16_t VirtualKey(xcb_keycode_t keycode) const;
    // UTF-16 text the key types in the current state (empty for none).
    std::u16string Text(xcb_keycode_t keycode) const;

private:
    Keymap(xcb_connection_t* xcb, xkb_context* context, int32_t device);

    xcb_connection_t* m_xcb;
    xkb_context* m_context;
    int32_t m_device;
    xkb_keymap* m_keymap = nullptr;
    xkb_state* m_state = nullptr;
};

} // namespace vesk::display::x11
