// Writes bottom-up BMP files that read back pixel for pixel: an opaque picture as 24 bits per
// pixel behind a 40-byte info header; any other as 32 bits with straight alpha, described by
// bit-field masks in a 108-byte header, which readers without alpha support still show.
#include "graphics/codecs/Argb_p.hpp"
#include "graphics/codecs/BmpDecode_p.hpp"
#include "graphics/codecs/InfoHeader_p.hpp"

#include <algorithm>

namespace vesk::codecs::bmp {

namespace {

constexpr uint32_t kPixelsPerMetre = 3780; // 96 dots per inch
constexpr uint32_t kSrgb = 0x73524742;     // 'sRGB'

void AppendBmpInfoHeader(std::vector<uint8_t>& file, const PixelImage& image, bool alpha, uint32_t pixelBytes)
{
    InfoHeader header;
    header.headerBytes = alpha ? 108 : 40;
    header.width = image.width;
    header.height = image.height; // positive: bottom-up
    header.bitsPerPixel = alpha ? 32 : 24;
    header.compression = alpha ? kBitFields : kRgb;
    header.imageBytes = pixelBytes;
    header.pixelsPerMetre = kPixelsPerMetre;
    AppendInfoHeader(file, header);
    if (!alpha)
        return;
    for (uint32_t mask : {0x00FF0000u, 0x0000FF00u, 0x000000FFu, 0xFF000000u})
        AppendLe32(file, mask);
    AppendLe32(file, kSrgb);
    file.resize(file.size() + 36 + 12, 0); // end points and gamma, unused with sRGB
}

} // namespace

bool EncodeBmp(const PixelImage& image, std::vector<uint8_t>& file)
{
    if (!IsWholeImage(image))
        return false;
    const bool alpha = !std::all_of(image.pixels.begin(), image.pixels.end(), [](uint32_t p) { return p >> 24 == 255; });
    const size_t width = size_t(image.width);
    const size_t rowBytes = alpha ? width * 4 : (width * 3 + 3) & ~size_t(3);
    const size_t pixelBytes = rowBytes * size_t(image.height);
    const uint32_t pixelOffset = 14 + (alpha ? 108 : 40);

    const size_t start = file.size();
    file.reserve(start + pixelOffset + pixelBytes);
    file.push_back('B');
    file.push_back('M');
    AppendLe32(file, uint32_t(pixelOffset + pixelBytes));
    AppendLe32(file, 0);
    AppendLe32(file, pixelOffset);
    AppendBmpInfoHeader(file, image, alpha, uint32_t(pixelBytes));

    file.resize(start + pixelOffset + pixelBytes, 0);
    uint8_t* out = file.data() + start + pixelOffset;
    for (int32_t y = image.height - 1; y >= 0; --y, out += rowBytes) {
        const uint32_t* row = image.pixels.data() + size_t(y) * width;
        for (size_t x = 0; x < width; ++x) {
            if (alpha) {
                StoreLe32(out + 4 * x, StraightPixel(row[x]));
            } else {
                out[3 * x] = uint8_t(row[x]);
                out[3 * x + 1] = uint8_t(row[x] >> 8);
                out[3 * x + 2] = uint8_t(row[x] >> 16);
            }
        }
    }
    return true;
}

} // namespace vesk::codecs::bmp
