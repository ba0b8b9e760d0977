#pragma once

// Key codes for typed characters. Key codes are the virtual-key numbers of
// vesk/frame/WinMessages.hpp; display backends translate native key events into them.

#include <vesk/frame/WinMessages.hpp>

#include <cstdint>

namespace vesk::platform {

// Shift state in the high byte of a key-scan result.
inline constexpr uint16_t KEYSCAN_SHIFT = 0x100;
// Key-scan result for a character no key types.
inline constexpr uint16_t KEYSCAN_NONE = 0xFFFF;

// Key that types `ch` on a US keyboard: virtual-key code in the low byte, shift state in the
// high byte; KEYSCAN_NONE for characters outside the layout.
uint16_t UsKeyScan(char16_t ch);

} // namespace vesk::platform
