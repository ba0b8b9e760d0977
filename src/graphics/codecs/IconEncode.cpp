// A one-image icon file: 6-byte header, one 16-byte directory entry, then at offset 22 the
// image as a 40-byte bitmap header (height doubled: colour plus mask), the 32-bit colour rows
// and the 1-bit AND mask rows, both bottom-up with rows padded to 4 bytes.
//
// The image is what turning the picture into an icon gives: a colour bitmap of straight
// (unpremultiplied) ARGB words, and a monochrome mask with a bit set (most significant bit
// first) for every pixel whose alpha is 0. Both are taken as a device bitmap hands out its
// bits: rows top first, the mask's rows padded only to 16 bits. Before a buffer is written,
// every 32-bit word in it whose low 24 bits are 0xFF00FF becomes 0, so magenta, the key
// colour, ends up transparent. The scan runs over the whole buffer word by word and so also
// applies to mask bytes that happen to spell the same value across two rows; files match
// byte for byte only with that kept.
#include "graphics/codecs/Argb_p.hpp"
#include "graphics/codecs/ImageCodec_p.hpp"
#include "graphics/codecs/InfoHeader_p.hpp"

namespace vesk::codecs {

namespace {

constexpr uint32_t kImageOffset = 6 + 16;
constexpr uint16_t kColourBits = 32;

size_t PaddedTo4(size_t bytes)
{
    return (bytes + 3) & ~size_t(3);
}

struct DeviceBits
{
    std::vector<uint8_t> bytes;
    size_t rowBytes = 0;
    size_t rows = 0;
};

DeviceBits ColourBits(const PixelImage& image)
{
    DeviceBits bits{std::vector<uint8_t>(image.pixels.size() * 4), size_t(image.width) * 4, size_t(image.height)};
    for (size_t i = 0; i < image.pixels.size(); ++i)
        StoreLe32(bits.bytes.data() + 4 * i, StraightPixel(image.pixels[i]));
    return bits;
}

DeviceBits MaskBits(const PixelImage& image)
{
    const size_t width = size_t(image.width);
    DeviceBits bits{{}, (width + 15) / 16 * 2, size_t(image.height)};
    bits.bytes.assign(bits.rowBytes * bits.rows, 0);
    for (size_t y = 0; y < bits.rows; ++y)
        for (size_t x = 0; x < width; ++x)
            if (image.pixels[y * width + x] >> 24 == 0)
                bits.bytes[y * bits.rowBytes + x / 8] |= uint8_t(0x80 >> (x % 8));
    return bits;
}

void ClearMagentaWords(DeviceBits& bits)
{
    for (size_t at = 0; at + 4 <= bits.bytes.size(); at += 4)
        if ((ReadLe32(bits.bytes, at) & 0xFFFFFF) == 0xFF00FF)
            StoreLe32(bits.bytes.data() + at, 0);
}

void AppendBottomUp(std::vector<uint8_t>& out, const DeviceBits& bits)
{
    const size_t padding = PaddedTo4(bits.rowBytes) - bits.rowBytes;
    for (size_t y = bits.rows; y-- > 0;) {
        const auto row = bits.bytes.begin() + std::ptrdiff_t(y * bits.rowBytes);
        out.insert(out.end(), row, row + std::ptrdiff_t(bits.rowBytes));
        out.insert(out.end(), padding, 0);
    }
}

} // namespace

bool EncodeIcon(const PixelImage& image, std::vector<uint8_t>& data)
{
    if (!IsWholeImage(image))
        return false;
    DeviceBits colour = ColourBits(image);
    DeviceBits mask = MaskBits(image);
    const auto width = uint32_t(image.width), height = uint32_t(image.height);
    const uint32_t pixelBytes = uint32_t(mask.rows * PaddedTo4(mask.rowBytes) + colour.rows * PaddedTo4(colour.rowBytes));

    AppendLe16(data, 0); // reserved
    AppendLe16(data, 1); // icon
    AppendLe16(data, 1); // one image

    // Directory entry. Sides of 256 and more do not fit its bytes and are cut to 8 bits.
    data.push_back(uint8_t(width));
    data.push_back(uint8_t(height));
    data.push_back(0); // colour count: only below 8 bits per pixel
    data.push_back(0);
    AppendLe16(data, 1);
    AppendLe16(data, kColourBits);
    AppendLe32(data, pixelBytes + uint32_t(kInfoHeaderBytes));
    AppendLe32(data, kImageOffset);

    InfoHeader header;
    header.width = int32_t(width);
    header.height = int32_t(2 * height); // colour rows, then the mask's
    header.bitsPerPixel = kColourBits;
    header.imageBytes = pixelBytes;
    AppendInfoHeader(data, header);

    ClearMagentaWords(colour);
    ClearMagentaWords(mask);
    AppendBottomUp(data, colour);
    AppendBottomUp(data, mask);
    return true;
}

} // namespace vesk::codecs
