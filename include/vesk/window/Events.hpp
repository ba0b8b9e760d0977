#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>
#include <vesk/values/TamPoint.hpp>

#include <cstdint>

namespace vesk {

class Window;

// Modifier bits of a KeyCode and of a MouseEvent.
enum : uint16_t { KEY_SHIFT = 0x1000, KEY_MOD1 = 0x2000, KEY_MOD2 = 0x4000 }; // Shift, Ctrl, Alt

// A key with its modifiers: the virtual-key code in the low 12 bits, KEY_ bits above.
class VESK_API KeyCode
{
public:
    KeyCode() = default;
    explicit KeyCode(uint16_t fullCode) : m_nCode(fullCode) {}
    KeyCode(uint16_t virtualKey, uint16_t modifiers) : m_nCode((virtualKey & 0x0FFF) | (modifiers & 0x7000)) {}

    uint16_t GetCode() const { return m_nCode & 0x0FFF; }
    uint16_t GetModifier() const { return m_nCode & 0x7000; }
    uint16_t GetFullCode() const { return m_nCode; }
    bool IsShift() const { return m_nCode & KEY_SHIFT; }
    bool IsMod1() const { return m_nCode & KEY_MOD1; }
    bool IsMod2() const { return m_nCode & KEY_MOD2; }
    bool operator==(const KeyCode& other) const { return m_nCode == other.m_nCode; }

    // The key's name with its modifiers, as menus show it: "Ctrl+Shift+F5", "Alt+Enter", "A".
    // Empty for a code without a name.
    SString GetName() const;

private:
    uint16_t m_nCode = 0;
};

// Mouse buttons of a MouseEvent.
enum : uint16_t { MOUSE_LEFT = 1, MOUSE_RIGHT = 2, MOUSE_MIDDLE = 4 };

// What a mouse message says: position in client pixels, the buttons held, the button that
// changed, modifiers, clicks (1 press, 2 double click, 0 moves) and the wheel's turn.
class VESK_API MouseEvent
{
public:
    explicit MouseEvent(Window* window = nullptr) : m_pWindow(window) {}

    // Fills the record from a mouse message's parameters (MK_ bits in the low word of wParam,
    // client position packed in lParam).
    void Fill(uintptr_t wParam, intptr_t lParam);

    const TamPoint& GetPosPixel() const { return m_aPos; }
    uint16_t GetButtons() const { return m_nButtons; }
    uint16_t GetModifier() const { return m_nModifier; }
    uint16_t GetChangedButton() const { return m_nChanged; }
    uint16_t GetClicks() const { return m_nClicks; }
    // Wheel turn: 120 per notch, positive away from the user.
    int32_t GetWheelDelta() const { return m_nWheelDelta; }
    bool IsLeft() const { return m_nButtons & MOUSE_LEFT; }
    bool IsRight() const { return m_nButtons & MOUSE_RIGHT; }
    bool IsMiddle() const { return m_nButtons & MOUSE_MIDDLE; }
    bool IsShift() const { return m_nModifier & KEY_SHIFT; }
    bool IsMod1() const { return m_nModifier & KEY_MOD1; }
    Window* GetWindow() const { return m_pWindow; }

    void SetPosPixel(const TamPoint& pos) { m_aPos = pos; }
    void SetChangedButton(uint16_t button) { m_nChanged = button; }
    void SetClicks(uint16_t clicks) { m_nClicks = clicks; }
    void SetWheelDelta(int32_t delta) { m_nWheelDelta = delta; }

private:
    TamPoint m_aPos;
    uint16_t m_nButtons = 0;
    uint16_t m_nModifier = 0;
    uint16_t m_nChanged = 0;
    uint16_t m_nClicks = 0;
    int32_t m_nWheelDelta = 0;
    Window* m_pWindow;
};

// What a key message says: the key with the modifiers held, the character typed (WM_CHAR),
// the repeat count, and whether this is a repeat of a held key.
class VESK_API KeyEvent
{
public:
    KeyEvent() = default;
    KeyEvent(Window* window, uint32_t message, const KeyCode& code, char16_t ch, uint16_t repeat, bool isRepeat)
        : m_pWindow(window), m_nMessage(message), m_aKeyCode(code), m_cChar(ch), m_nRepeat(repeat),
          m_bRepeat(isRepeat)
    {
    }

    Window* GetWindow() const { return m_pWindow; }
    uint32_t GetMessage() const { return m_nMessage; }
    const KeyCode& GetKeyCode() const { return m_aKeyCode; }
    char16_t GetCharCode() const { return m_cChar; }
    uint16_t GetRepeat() const { return m_nRepeat; }
    bool IsRepeat() const { return m_bRepeat; }

private:
    Window* m_pWindow = nullptr;
    uint32_t m_nMessage = 0;
    KeyCode m_aKeyCode;
    char16_t m_cChar = 0;
    uint16_t m_nRepeat = 0;
    bool m_bRepeat = false;
};

} // namespace vesk
