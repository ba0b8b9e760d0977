#pragma once

// The parts of a BMP file's headers that the decoder needs, read and checked in one place.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vesk::codecs::bmp {

enum Compression : uint32_t { kRgb = 0, kRle8 = 1, kRle4 = 2, kBitFields = 3, kAlphaBitFields = 6 };

struct Header
{
    int32_t width = 0;
    int32_t height = 0; // always positive; see topDown
    bool topDown = false;
    uint16_t bitsPerPixel = 0;
    uint32_t compression = kRgb;
    std::array<uint32_t, 4> masks{}; // red, green, blue, alpha for 16 and 32 bits per pixel
    size_t paletteOffset = 0;
    size_t paletteEntries = 0;
    size_t paletteEntryBytes = 4; // 3 with the core header
    size_t pixelOffset = 0;
};

// False when the headers are truncated, describe a layout this decoder does not read, or a
// picture outside IsAcceptableImageSize; the palette, when there is one, lies inside `file`.
bool ParseHeader(std::span<const uint8_t> file, Header& header);

} // namespace vesk::codecs::bmp
