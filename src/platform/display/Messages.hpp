#pragma once

// The platform's message numbers, key-state bits, message-box codes and parameter packing that
// display backends produce and the window layer consumes.

#include <vesk/frame/NativeWindow.hpp>

#include <cstdint>

namespace vesk::display {

inline constexpr uint32_t WM_CREATE = 0x0001;
inline constexpr uint32_t WM_DESTROY = 0x0002;
inline constexpr uint32_t WM_MOVE = 0x0003;
inline constexpr uint32_t WM_SIZE = 0x0005;
inline constexpr uint32_t WM_ACTIVATE = 0x0006;
inline constexpr uint32_t WM_SETFOCUS = 0x0007;
inline constexpr uint32_t WM_KILLFOCUS = 0x0008;
inline constexpr uint32_t WM_PAINT = 0x000F;
inline constexpr uint32_t WM_CLOSE = 0x0010;
inline constexpr uint32_t WM_SHOWWINDOW = 0x0018;
inline constexpr uint32_t WM_KEYDOWN = 0x0100;
inline constexpr uint32_t WM_KEYUP = 0x0101;
inline constexpr uint32_t WM_CHAR = 0x0102;
inline constexpr uint32_t WM_SYSKEYDOWN = 0x0104;
inline constexpr uint32_t WM_SYSKEYUP = 0x0105;
inline constexpr uint32_t WM_SYSCHAR = 0x0106;
inline constexpr uint32_t WM_MOUSEMOVE = 0x0200;
inline constexpr uint32_t WM_LBUTTONDOWN = 0x0201;
inline constexpr uint32_t WM_LBUTTONUP = 0x0202;
inline constexpr uint32_t WM_LBUTTONDBLCLK = 0x0203;
inline constexpr uint32_t WM_RBUTTONDOWN = 0x0204;
inline constexpr uint32_t WM_RBUTTONUP = 0x0205;
inline constexpr uint32_t WM_RBUTTONDBLCLK = 0x0206;
inline constexpr uint32_t WM_MBUTTONDOWN = 0x0207;
inline constexpr uint32_t WM_MBUTTONUP = 0x0208;
inline constexpr uint32_t WM_MBUTTONDBLCLK = 0x0209;
inline constexpr uint32_t WM_MOUSEWHEEL = 0x020A;
inline constexpr uint32_t WM_XBUTTONDOWN = 0x020B;
inline constexpr uint32_t WM_XBUTTONUP = 0x020C;
inline constexpr uint32_t WM_XBUTTONDBLCLK = 0x020D;
inline constexpr uint32_t WM_MOUSEHWHEEL = 0x020E;
inline constexpr uint32_t WM_CAPTURECHANGED = 0x0215;
inline constexpr uint32_t WM_MOUSEHOVER = 0x02A1;
inline constexpr uint32_t WM_MOUSELEAVE = 0x02A3;

// WM_SIZE's wParam.
inline constexpr uint32_t SIZE_RESTORED = 0;
inline constexpr uint32_t SIZE_MINIMIZED = 1;
inline constexpr uint32_t SIZE_MAXIMIZED = 2;

// Key-state bits of mouse messages.
inline constexpr uint32_t MK_LBUTTON = 0x0001;
inline constexpr uint32_t MK_RBUTTON = 0x0002;
inline constexpr uint32_t MK_SHIFT = 0x0004;
inline constexpr uint32_t MK_CONTROL = 0x0008;
inline constexpr uint32_t MK_MBUTTON = 0x0010;
inline constexpr uint32_t MK_XBUTTON1 = 0x0020;
inline constexpr uint32_t MK_XBUTTON2 = 0x0040;

// One notch of a mouse wheel.
inline constexpr int WHEEL_DELTA = 120;

// Message-box buttons (low four bits of the type), default button and results.
inline constexpr uint32_t MB_OK = 0x0;
inline constexpr uint32_t MB_OKCANCEL = 0x1;
inline constexpr uint32_t MB_ABORTRETRYIGNORE = 0x2;
inline constexpr uint32_t MB_YESNOCANCEL = 0x3;
inline constexpr uint32_t MB_YESNO = 0x4;
inline constexpr uint32_t MB_RETRYCANCEL = 0x5;
inline constexpr uint32_t MB_CANCELTRYCONTINUE = 0x6;
inline constexpr uint32_t MB_TYPEMASK = 0xF;
inline constexpr uint32_t MB_DEFMASK = 0xF00;
inline constexpr uint32_t MB_DEFBUTTON2 = 0x100;
inline constexpr uint32_t MB_DEFBUTTON3 = 0x200;
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDABORT = 3;
inline constexpr int IDRETRY = 4;
inline constexpr int IDIGNORE = 5;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;
inline constexpr int IDTRYAGAIN = 10;
inline constexpr int IDCONTINUE = 11;

// Two 16-bit halves in one 32-bit word, low first, as an LParam: the sign extension of that word.
constexpr LParam MakeLParam(int32_t low, int32_t high)
{
    uint32_t packed = (static_cast<uint32_t>(low) & 0xFFFF) | (static_cast<uint32_t>(high) & 0xFFFF) << 16;
    return static_cast<LParam>(static_cast<int32_t>(packed));
}

// Two 16-bit halves in one 32-bit word, low first, as a WParam (zero-extended).
constexpr WParam MakeWParam(uint32_t low, uint32_t high)
{
    return (low & 0xFFFF) | (high & 0xFFFF) << 16;
}

// The signed 16-bit halves of a packed coordinate pair.
constexpr int16_t LowSigned(uintptr_t value) { return static_cast<int16_t>(value & 0xFFFF); }
constexpr int16_t HighSigned(uintptr_t value) { return static_cast<int16_t>((value >> 16) & 0xFFFF); }

} // namespace vesk::display
