#pragma once

// Pixel decoders behind the BMP codec, one per storage form.

#include "graphics/codecs/BmpHeader_p.hpp"
#include "graphics/codecs/ImageCodec_p.hpp"

#include <array>

namespace vesk::codecs::bmp {

// Palette colours as opaque pixels; indices past the file's palette are opaque black.
using Palette = std::array<uint32_t, 256>;

// The image row that the file's n-th stored row fills.
inline int32_t ImageRow(const Header& header, int64_t storedRow)
{
    return header.topDown ? int32_t(storedRow) : header.height - 1 - int32_t(storedRow);
}

// Run-length encoded 4- or 8-bit pixels from `stream` (which starts at the pixel data) into
// `image`, already sized and zeroed: pixels the runs skip stay transparent. False when the
// stream ends before the picture does.
bool DecodeRle(std::span<const uint8_t> stream, const Header& header, const Palette& palette, PixelImage& image);

bool DecodeBmp(std::span<const uint8_t> file, PixelImage& image);
bool EncodeBmp(const PixelImage& image, std::vector<uint8_t>& file);

} // namespace vesk::codecs::bmp
