#pragma once

#include <vesk/graphics/TamColor.hpp>

#include <cstdint>

namespace vesk {

// A double truncated toward zero to a 32-bit integer the way the x86 conversion does it:
// NaN and values outside the int32 range give INT32_MIN instead of undefined behaviour.
// Callers keep the low 8 or 16 bits, as storing into a byte or 16-bit field does.
inline int32_t TruncToInt32(double v)
{
    if (!(v > -2147483649.0 && v < 2147483648.0))
        return INT32_MIN;
    return static_cast<int32_t>(v);
}

inline uint16_t TruncToChannel(double v)
{
    return static_cast<uint16_t>(TruncToInt32(v));
}

inline uint8_t TruncToByte(double v)
{
    return static_cast<uint8_t>(TruncToInt32(v));
}

// The alpha byte of an opacity in percent, by the one rule every opacity follows (the alpha
// byte of TamColor::GetGdiplusColor): defined for every int, so huge or negative values wrap
// instead of overflowing.
inline uint32_t OpacityAlpha(int percent)
{
    return TamColor().GetGdiplusColor(percent) >> 24;
}

} // namespace vesk
