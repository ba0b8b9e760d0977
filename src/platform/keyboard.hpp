#pragma once


#include <cstdint>

// Key codes. The library's key codes are its virtual-key numbers (VK_*);
// display backends translate native key events into them.
namespace vesk::platform {

inline constexpr uint16_t VK_BACK = 0x08;
inline constexpr uint16_t VK_TAB = 0x09;
inline constexpr uint16_t VK_RETURN = 0x0D;
inline constexpr uint16_t VK_SPACE = 0x20;
inline constexpr uint16_t VK_MEDIA_NEXT_TRACK = 0xB0;
inline constexpr uint16_t VK_MEDIA_PREV_TRACK = 0xB1;
inline constexpr uint16_t VK_MEDIA_STOP = 0xB2;
inline constexpr uint16_t VK_MEDIA_PLAY_PAUSE = 0xB3;
inline constexpr uint16_t VK_OEM_1 = 0xBA;      // ; :
inline constexpr uint16_t VK_OEM_PLUS = 0xBB;   // = +
inline constexpr uint16_t VK_OEM_COMMA = 0xBC;  // , <
inline constexpr uint16_t VK_OEM_MINUS = 0xBD;  // - _
inline constexpr uint16_t VK_OEM_PERIOD = 0xBE; // . >
inline constexpr uint16_t VK_OEM_2 = 0xBF;      // / ?
inline constexpr uint16_t VK_OEM_3 = 0xC0;      // ` ~
inline constexpr uint16_t VK_OEM_4 = 0xDB;      // [ {
inline constexpr uint16_t VK_OEM_5 = 0xDC;      // \ |
inline constexpr uint16_t VK_OEM_6 = 0xDD;      // ] }
inline constexpr uint16_t VK_OEM_7 = 0xDE;      // ' "

// Shift state in the high byte of a key-scan result.
inline constexpr uint16_t KEYSCAN_SHIFT = 0x100;
// Key-scan result for a character no key types.
inline constexpr uint16_t KEYSCAN_NONE = 0xFFFF;

// Key that types `ch` on a US keyboard: virtual-key code in the low byte, shift state in the
// high byte; KEYSCAN_NONE for characters outside the layout.
uint16_t UsKeyScan(char16_t ch);

} // namespace vesk::platform
