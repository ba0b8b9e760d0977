// BMP file header, then either the 12-byte core header or an info header of 40, 52, 56, 108
// or 124 bytes (the longer ones add bit masks, colour space and profile fields).
#include "graphics/codecs/BmpHeader_p.hpp"

#include "graphics/codecs/ImageCodec_p.hpp"
#include "common/LittleEndian.hpp"

#include <algorithm>

namespace vesk::codecs::bmp {

namespace {

constexpr size_t kFileHeaderBytes = 14;

bool IsKnownInfoSize(uint32_t size)
{
    return size == 40 || size == 52 || size == 56 || size == 108 || size == 124;
}

// Which depths each compression applies to.
bool IsReadableLayout(uint16_t bits, uint32_t compression)
{
    switch (compression) {
    case kRgb:
        return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
    case kRle8:
        return bits == 8;
    case kRle4:
        return bits == 4;
    case kBitFields:
    case kAlphaBitFields:
        return bits == 16 || bits == 32;
    default:
        return false;
    }
}

// The masks uncompressed 16- and 32-bit pictures imply: 5-5-5, and 8-8-8 with the top byte
// as alpha (which the decoder ignores when it is zero throughout).
std::array<uint32_t, 4> DefaultMasks(uint16_t bits)
{
    if (bits == 16)
        return {0x7C00, 0x03E0, 0x001F, 0};
    return {0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000};
}

} // namespace

bool ParseHeader(std::span<const uint8_t> file, Header& header)
{
    if (file.size() < kFileHeaderBytes + 4 || file[0] != 'B' || file[1] != 'M')
        return false;
    header = Header{};
    header.pixelOffset = ReadLe32(file, 10);
    const uint32_t infoSize = ReadLe32(file, kFileHeaderBytes);
    const size_t info = kFileHeaderBytes;
    int64_t width = 0, height = 0;
    if (infoSize == 12) {
        if (file.size() < info + 12)
            return false;
        width = ReadLe16(file, info + 4);
        height = ReadLe16(file, info + 6);
        header.bitsPerPixel = ReadLe16(file, info + 10);
        header.paletteEntryBytes = 3;
    } else if (IsKnownInfoSize(infoSize)) {
        if (file.size() < info + infoSize)
            return false;
        width = int32_t(ReadLe32(file, info + 4));
        height = int32_t(ReadLe32(file, info + 8));
        header.bitsPerPixel = ReadLe16(file, info + 14);
        header.compression = ReadLe32(file, info + 16);
        header.paletteEntries = ReadLe32(file, info + 32);
    } else {
        return false;
    }
    if (!IsReadableLayout(header.bitsPerPixel, header.compression))
        return false;
    header.topDown = height < 0;
    if (height < 0)
        height = -height;
    if (!IsAcceptableImageSize(width, height))
        return false;
    header.width = int32_t(width);
    header.height = int32_t(height);

    // Only pictures of 8 bits and fewer have a palette, and they have no masks before it.
    const size_t afterHeader = info + infoSize;
    header.masks = DefaultMasks(header.bitsPerPixel);
    if (header.compression == kBitFields || header.compression == kAlphaBitFields) {
        // A 40-byte header is followed by the masks (three, or four with alpha); the longer
        // headers hold them, alpha from 56 bytes on.
        const size_t count = header.compression == kAlphaBitFields || infoSize >= 56 ? 4 : 3;
        const size_t at = infoSize == 40 ? afterHeader : info + 40;
        if (file.size() < at + 4 * count)
            return false;
        for (size_t i = 0; i < 4; ++i)
            header.masks[i] = i < count ? ReadLe32(file, at + 4 * i) : 0;
        header.declaredAlpha = header.masks[3] != 0;
    }

    header.paletteOffset = afterHeader;
    if (header.bitsPerPixel <= 8) {
        // The palette holds the colours the header counts (all 2^bits when it counts none),
        // as far as they lie before the pixels.
        const size_t full = size_t(1) << header.bitsPerPixel;
        if (header.paletteEntries == 0 || header.paletteEntries > full)
            header.paletteEntries = full;
        const size_t end = header.pixelOffset > afterHeader ? header.pixelOffset : file.size();
        if (end > file.size() || end < afterHeader)
            return false;
        header.paletteEntries = std::min(header.paletteEntries, (end - afterHeader) / header.paletteEntryBytes);
    } else {
        header.paletteEntries = 0;
    }
    return header.pixelOffset <= file.size();
}

} // namespace vesk::codecs::bmp
