#pragma once

// The 40-byte bitmap-information header of the BMP and icon file formats.

#include "common/LittleEndian.hpp"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vesk::codecs {

// The fields of a bitmap-information header; a negative height stores the rows top-down.
// `headerBytes` may name a longer header whose first 40 bytes have this layout.
struct InfoHeader
{
    uint32_t headerBytes = 40;
    int32_t width = 0;
    int32_t height = 0;
    uint16_t bitsPerPixel = 0;
    uint32_t compression = 0;
    uint32_t imageBytes = 0;
    uint32_t pixelsPerMetre = 0; // both directions
    uint32_t coloursUsed = 0;
    uint32_t coloursImportant = 0;
};

inline constexpr size_t kInfoHeaderBytes = 40;

// Writes the 40 bytes of `header` (one plane) at `at`.
inline void StoreInfoHeader(uint8_t* at, const InfoHeader& header)
{
    StoreLe32(at, header.headerBytes);
    StoreLe32(at + 4, uint32_t(header.width));
    StoreLe32(at + 8, uint32_t(header.height));
    StoreLe16(at + 12, 1);
    StoreLe16(at + 14, header.bitsPerPixel);
    StoreLe32(at + 16, header.compression);
    StoreLe32(at + 20, header.imageBytes);
    StoreLe32(at + 24, header.pixelsPerMetre);
    StoreLe32(at + 28, header.pixelsPerMetre);
    StoreLe32(at + 32, header.coloursUsed);
    StoreLe32(at + 36, header.coloursImportant);
}

inline void AppendInfoHeader(std::vector<uint8_t>& out, const InfoHeader& header)
{
    out.resize(out.size() + kInfoHeaderBytes);
    StoreInfoHeader(out.data() + out.size() - kInfoHeaderBytes, header);
}

} // namespace vesk::codecs
