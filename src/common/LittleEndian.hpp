#pragma once

// Little-endian numbers in byte arrays, independent of the host's byte order: the stored
// forms of file formats, saved layouts and settings values.

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vesk {

inline uint16_t LoadLe16(const uint8_t* p)
{
    return uint16_t(p[0] | p[1] << 8);
}

inline uint32_t LoadLe32(const uint8_t* p)
{
    return uint32_t(p[0]) | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 | uint32_t(p[3]) << 24;
}

inline void StoreLe16(uint8_t* at, uint16_t value)
{
    at[0] = uint8_t(value);
    at[1] = uint8_t(value >> 8);
}

inline void StoreLe32(uint8_t* at, uint32_t value)
{
    for (int i = 0; i < 4; ++i)
        at[i] = uint8_t(value >> (8 * i));
}

// Callers check `offset + width <= bytes.size()` first.
inline uint16_t ReadLe16(std::span<const uint8_t> bytes, size_t offset)
{
    return LoadLe16(bytes.data() + offset);
}

inline uint32_t ReadLe32(std::span<const uint8_t> bytes, size_t offset)
{
    return LoadLe32(bytes.data() + offset);
}

inline void AppendLe16(std::vector<uint8_t>& out, uint16_t value)
{
    out.resize(out.size() + 2);
    StoreLe16(out.data() + out.size() - 2, value);
}

inline void AppendLe32(std::vector<uint8_t>& out, uint32_t value)
{
    out.resize(out.size() + 4);
    StoreLe32(out.data() + out.size() - 4, value);
}

} // namespace vesk
