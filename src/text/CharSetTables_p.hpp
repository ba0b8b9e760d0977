#pragma once

// The conversion tables of the character sets 1-8 (generated into CharSetTables.cpp).

#include <cstdint>

namespace vesk::detail {

inline constexpr int kCharSetCount = 8;
inline constexpr uint16_t kFirstCharNumber = 128;
inline constexpr uint16_t kLastCharNumber = 687;

// Library number of each byte 0x80-0xFF per set (column = set - 1); 0 = no character.
extern const uint16_t kCharSetSource[128][kCharSetCount];
// Byte of each library number 128-687 per set (column = set - 1); 0 = the set lacks it.
extern const uint8_t kCharSetTarget[560][kCharSetCount];

} // namespace vesk::detail
