// Uncompressed and run-length encoded BMP pictures into premultiplied ARGB. Pixels are first
// written with straight alpha. In a plain 32-bit picture the fourth byte is officially unused:
// when it is zero throughout it counts as opaque, otherwise as alpha. An alpha mask that the
// file names is taken as it stands, so that a wholly transparent picture survives a round trip.
#include "graphics/codecs/Argb_p.hpp"
#include "graphics/codecs/BmpDecode_p.hpp"
#include "common/LittleEndian.hpp"

#include <bit>

namespace vesk::codecs::bmp {

namespace {

Palette ReadPalette(std::span<const uint8_t> file, const Header& header)
{
    Palette palette;
    palette.fill(0xFF000000u);
    for (size_t i = 0; i < header.paletteEntries; ++i) {
        const uint8_t* entry = file.data() + header.paletteOffset + i * header.paletteEntryBytes;
        palette[i] = 0xFF000000u | uint32_t(entry[2]) << 16 | uint32_t(entry[1]) << 8 | entry[0];
    }
    return palette;
}

// One mask of a bit-field picture scaled to eight bits: the masked value over the largest
// value the mask can hold, rounded. An empty mask reads as 0.
class Channel
{
public:
    explicit Channel(uint32_t mask)
        : m_mask(mask), m_shift(mask ? std::countr_zero(mask) : 0), m_max(mask >> m_shift)
    {
    }
    uint32_t operator()(uint32_t word) const
    {
        if (m_max == 0)
            return 0;
        const uint64_t value = (word & m_mask) >> m_shift;
        return uint32_t((value * 255 + m_max / 2) / m_max);
    }

private:
    uint32_t m_mask;
    int m_shift;
    uint64_t m_max;
};

uint64_t RowBytes(const Header& header)
{
    return (uint64_t(header.width) * header.bitsPerPixel + 31) / 32 * 4;
}

// Stored rows start on 4-byte boundaries; the last row may lack its padding.
bool HasUncompressedData(std::span<const uint8_t> file, const Header& header)
{
    const uint64_t lastRow = (uint64_t(header.width) * header.bitsPerPixel + 7) / 8;
    return file.size() - header.pixelOffset >= RowBytes(header) * uint64_t(header.height - 1) + lastRow;
}

void DecodeUncompressed(std::span<const uint8_t> file, const Header& header, PixelImage& image)
{
    const uint64_t rowBytes = RowBytes(header);
    const Palette palette = ReadPalette(file, header);
    const Channel red(header.masks[0]), green(header.masks[1]), blue(header.masks[2]), alpha(header.masks[3]);
    uint32_t alphaSeen = 0;
    const size_t width = size_t(header.width);
    for (int64_t stored = 0; stored < header.height; ++stored) {
        const uint8_t* row = file.data() + header.pixelOffset + size_t(stored) * rowBytes;
        uint32_t* out = image.pixels.data() + size_t(ImageRow(header, stored)) * width;
        switch (header.bitsPerPixel) {
        case 1:
        case 4:
        case 8: {
            const unsigned depth = header.bitsPerPixel, perByte = 8 / depth, mask = (1u << depth) - 1;
            for (size_t x = 0; x < width; ++x) {
                const unsigned shift = 8 - depth * (unsigned(x % perByte) + 1);
                out[x] = palette[(row[x / perByte] >> shift) & mask];
            }
            break;
        }
        case 24:
            for (size_t x = 0; x < width; ++x)
                out[x] = 0xFF000000u | uint32_t(row[3 * x + 2]) << 16 | uint32_t(row[3 * x + 1]) << 8 | row[3 * x];
            break;
        default:
            for (size_t x = 0; x < width; ++x) {
                const uint32_t word = header.bitsPerPixel == 16 ? ReadLe16(std::span(row + 2 * x, 2), 0)
                                                                : ReadLe32(std::span(row + 4 * x, 4), 0);
                const uint32_t a = alpha(word);
                alphaSeen |= a;
                out[x] = a << 24 | red(word) << 16 | green(word) << 8 | blue(word);
            }
            break;
        }
    }
    if (header.bitsPerPixel >= 16) {
        for (uint32_t& pixel : image.pixels)
            pixel = alphaSeen || header.declaredAlpha ? PremultipliedPixel(pixel) : pixel | 0xFF000000u;
    }
}

} // namespace

bool DecodeBmp(std::span<const uint8_t> file, PixelImage& image)
{
    image = PixelImage{};
    Header header;
    if (!ParseHeader(file, header))
        return false;
    // Uncompressed data is checked against the file's length before this allocation; a run-
    // length stream may legitimately describe a picture far larger than itself.
    const bool rle = header.compression == kRle4 || header.compression == kRle8;
    if (!rle && !HasUncompressedData(file, header))
        return false;
    image.width = header.width;
    image.height = header.height;
    image.pixels.assign(size_t(header.width) * size_t(header.height), 0);
    if (!rle) {
        DecodeUncompressed(file, header, image);
        return true;
    }
    if (!DecodeRle(file.subspan(header.pixelOffset), header, ReadPalette(file, header), image)) {
        image = PixelImage{};
        return false;
    }
    return true;
}

} // namespace vesk::codecs::bmp
