#pragma once

// The library's message numbers, key-state bits and virtual-key codes. The numbers are fixed,
// so hooks, handlers and applications see the same values on every display.

#include <cstdint>

namespace vesk {

enum : uint32_t {
    WM_NULL = 0,
    WM_CREATE = 1,
    WM_DESTROY = 2,
    WM_MOVE = 3,
    WM_SIZE = 5,
    WM_ACTIVATE = 6,
    WM_SETFOCUS = 7,
    WM_KILLFOCUS = 8,
    WM_PAINT = 15,
    WM_CLOSE = 16,
    WM_QUIT = 18,
    WM_ERASEBKGND = 20,
    WM_SHOWWINDOW = 24,
    WM_ACTIVATEAPP = 28,
    WM_DISPLAYCHANGE = 126,
    WM_NCDESTROY = 130,
    WM_NCLBUTTONDBLCLK = 163,
    WM_KEYDOWN = 256,
    WM_KEYUP = 257,
    WM_CHAR = 258,
    WM_DEADCHAR = 259,
    WM_SYSKEYDOWN = 260,
    WM_SYSKEYUP = 261,
    WM_SYSCHAR = 262,
    WM_SYSDEADCHAR = 263,
    WM_TIMER = 275,
    WM_HSCROLL = 276,
    WM_VSCROLL = 277,
    WM_MOUSEMOVE = 512,
    WM_LBUTTONDOWN = 513,
    WM_LBUTTONUP = 514,
    WM_LBUTTONDBLCLK = 515,
    WM_RBUTTONDOWN = 516,
    WM_RBUTTONUP = 517,
    WM_RBUTTONDBLCLK = 518,
    WM_MBUTTONDOWN = 519,
    WM_MBUTTONUP = 520,
    WM_MBUTTONDBLCLK = 521,
    WM_MOUSEWHEEL = 522,
    WM_XBUTTONDOWN = 523,
    WM_XBUTTONUP = 524,
    WM_XBUTTONDBLCLK = 525,
    WM_MOUSEHWHEEL = 526,
    WM_ENTERMENULOOP = 529,
    WM_EXITMENULOOP = 530,
    WM_CAPTURECHANGED = 533,
    WM_MOUSEHOVER = 673,
    WM_MOUSELEAVE = 675,
    WM_USER = 0x400,
};

// Key and button state in mouse messages.
enum : uint32_t {
    MK_LBUTTON = 1, MK_RBUTTON = 2, MK_SHIFT = 4, MK_CONTROL = 8, MK_MBUTTON = 0x10, MK_XBUTTON1 = 0x20,
    MK_XBUTTON2 = 0x40,
};
// One notch of a mouse wheel, in the high word of a wheel message's wParam.
inline constexpr int WHEEL_DELTA = 120;

// Size-message kinds.
enum : uint32_t { SIZE_RESTORED = 0, SIZE_MINIMIZED = 1, SIZE_MAXIMIZED = 2 };

// Message-box types, default buttons and results.
enum : uint32_t {
    MB_OK = 0, MB_OKCANCEL = 1, MB_ABORTRETRYIGNORE = 2, MB_YESNOCANCEL = 3, MB_YESNO = 4,
    MB_RETRYCANCEL = 5, MB_CANCELTRYCONTINUE = 6, MB_TYPEMASK = 0xF, MB_ICONERROR = 0x10, MB_ICONQUESTION = 0x20, MB_ICONWARNING = 0x30,
    MB_ICONINFORMATION = 0x40, MB_DEFBUTTON2 = 0x100, MB_DEFBUTTON3 = 0x200, MB_DEFMASK = 0xF00,
};
enum : int { IDOK = 1, IDCANCEL = 2, IDABORT = 3, IDRETRY = 4, IDIGNORE = 5, IDYES = 6, IDNO = 7, IDTRYAGAIN = 10, IDCONTINUE = 11 };

// Virtual-key codes. Letters and digits are their upper-case ASCII codes ('A' 0x41, '0' 0x30).
enum : uint32_t {
    VK_CANCEL = 0x03, VK_BACK = 0x08, VK_TAB = 0x09, VK_CLEAR = 0x0C, VK_RETURN = 0x0D,
    VK_SHIFT = 0x10, VK_CONTROL = 0x11, VK_MENU = 0x12, VK_PAUSE = 0x13, VK_CAPITAL = 0x14,
    VK_ESCAPE = 0x1B, VK_SPACE = 0x20, VK_PRIOR = 0x21, VK_NEXT = 0x22, VK_END = 0x23,
    VK_HOME = 0x24, VK_LEFT = 0x25, VK_UP = 0x26, VK_RIGHT = 0x27, VK_DOWN = 0x28,
    VK_SELECT = 0x29, VK_EXECUTE = 0x2B, VK_SNAPSHOT = 0x2C, VK_INSERT = 0x2D, VK_DELETE = 0x2E,
    VK_HELP = 0x2F, VK_LWIN = 0x5B, VK_RWIN = 0x5C, VK_APPS = 0x5D, VK_NUMPAD0 = 0x60,
    VK_MULTIPLY = 0x6A, VK_ADD = 0x6B, VK_SEPARATOR = 0x6C, VK_SUBTRACT = 0x6D, VK_DECIMAL = 0x6E,
    VK_DIVIDE = 0x6F, VK_F1 = 0x70, VK_F10 = 0x79, VK_F24 = 0x87, VK_NUMLOCK = 0x90,
    VK_SCROLL = 0x91, VK_VOLUME_MUTE = 0xAD, VK_VOLUME_DOWN = 0xAE, VK_VOLUME_UP = 0xAF,
    VK_MEDIA_NEXT_TRACK = 0xB0, VK_MEDIA_PREV_TRACK = 0xB1, VK_MEDIA_STOP = 0xB2,
    VK_MEDIA_PLAY_PAUSE = 0xB3, VK_OEM_1 = 0xBA,
    VK_OEM_PLUS = 0xBB, VK_OEM_COMMA = 0xBC, VK_OEM_MINUS = 0xBD, VK_OEM_PERIOD = 0xBE,
    VK_OEM_2 = 0xBF, VK_OEM_3 = 0xC0, VK_OEM_4 = 0xDB, VK_OEM_5 = 0xDC, VK_OEM_6 = 0xDD,
    VK_OEM_7 = 0xDE, VK_OEM_102 = 0xE2,
};

// Packs two 16-bit values the way message parameters carry them (low word first), sign
// extended from 32 bits.
constexpr intptr_t MakeLParam(int32_t low, int32_t high)
{
    return static_cast<int32_t>((static_cast<uint32_t>(low) & 0xFFFF) | (static_cast<uint32_t>(high) << 16));
}
// Two 16-bit values in one word (low first), zero extended: the wParam of wheel and side-button
// messages.
constexpr uintptr_t MakeWParam(uint32_t low, uint32_t high)
{
    return (low & 0xFFFF) | (high & 0xFFFF) << 16;
}
// The signed low and high words of a packed parameter.
constexpr int32_t LoWordSigned(intptr_t v) { return static_cast<int16_t>(static_cast<uint32_t>(v) & 0xFFFF); }
constexpr int32_t HiWordSigned(intptr_t v) { return static_cast<int16_t>(static_cast<uint32_t>(v) >> 16); }

} // namespace vesk
