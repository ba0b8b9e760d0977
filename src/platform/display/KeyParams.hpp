#pragma once

// The lParam of key messages, packed alike by every display.

#include <vesk/frame/NativeWindow.hpp>

#include <cstdint>

namespace vesk::display {

// A key's set-1 scan code and whether it is an extended key.
struct ScanCode
{
    uint8_t code = 0;
    bool extended = false;
};

// lParam of a key message: repeat count 1, scan code in bits 16-23, extended bit 24, Alt held
// bit 29, previous key state bit 30, transition bit 31 (set on release).
constexpr LParam KeyLParam(ScanCode scan, bool altHeld, bool wasDown, bool released)
{
    uint32_t packed = 1u | static_cast<uint32_t>(scan.code) << 16;
    if (scan.extended)
        packed |= 1u << 24;
    if (altHeld)
        packed |= 1u << 29;
    if (wasDown)
        packed |= 1u << 30;
    if (released)
        packed |= 1u << 31;
    return static_cast<LParam>(static_cast<int32_t>(packed));
}

} // namespace vesk::display
