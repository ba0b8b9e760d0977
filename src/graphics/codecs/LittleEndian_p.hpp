#pragma once

// Little-endian fields of the BMP and icon file formats: bounded reads from a byte span and
// appends to a byte vector.

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vesk::codecs {

// Callers check `offset + width <= bytes.size()` first.
inline uint16_t ReadLe16(std::span<const uint8_t> bytes, size_t offset)
{
    return uint16_t(bytes[offset] | bytes[offset + 1] << 8);
}

inline uint32_t ReadLe32(std::span<const uint8_t> bytes, size_t offset)
{
    return uint32_t(bytes[offset]) | uint32_t(bytes[offset + 1]) << 8 | uint32_t(bytes[offset + 2]) << 16 |
           uint32_t(bytes[offset + 3]) << 24;
}

inline void AppendLe16(std::vector<uint8_t>& out, uint16_t value)
{
    out.push_back(uint8_t(value));
    out.push_back(uint8_t(value >> 8));
}

inline void AppendLe32(std::vector<uint8_t>& out, uint32_t value)
{
    for (int shift = 0; shift < 32; shift += 8)
        out.push_back(uint8_t(value >> shift));
}

inline void StoreLe32(uint8_t* at, uint32_t value)
{
    for (int i = 0; i < 4; ++i)
        at[i] = uint8_t(value >> (8 * i));
}

} // namespace vesk::codecs
