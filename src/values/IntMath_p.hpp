#pragma once

// Integer arithmetic of the geometry classes. Coordinates behave as 32-bit two's-complement
// numbers: sums, differences and products wrap around instead of being undefined, and
// conversions from double follow the x86 rule of returning 0x80000000 for NaN and for values
// outside the 32-bit range (which is also the empty marker of rectangles).
#include <cmath>
#include <cstdint>

namespace vesk::detail {

constexpr int32_t WrapAdd(int32_t a, int32_t b)
{
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

constexpr int32_t WrapSub(int32_t a, int32_t b)
{
    return static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}

constexpr int32_t WrapMul(int32_t a, int32_t b)
{
    return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}

// Truncating division; the one overflowing case, INT32_MIN / -1, wraps to INT32_MIN.
constexpr int32_t WrapDiv(int32_t a, int32_t b)
{
    return static_cast<int32_t>(static_cast<int64_t>(a) / b);
}

inline int32_t TruncToInt32(double v)
{
    if (!(v > -2147483649.0 && v < 2147483648.0))
        return INT32_MIN;
    return static_cast<int32_t>(v);
}

// Round half away from zero, as lround does.
inline int32_t RoundToInt32(double v)
{
    return TruncToInt32(std::round(v));
}

} // namespace vesk::detail
