#include "graphics/codecs/Argb_p.hpp"
#include "graphics/codecs/ImageCodec_p.hpp"

#include <png.h>

#include <cstring>

namespace vesk::codecs {

namespace {

bool SniffPng(std::span<const uint8_t> head)
{
    static const uint8_t kSignature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    return head.size() >= 8 && std::memcmp(head.data(), kSignature, 8) == 0;
}

// libpng's simplified interface does the expansion, the gamma handling and the error recovery;
// it delivers straight BGRA, which is the native word order of the picture form.
bool DecodePng(std::span<const uint8_t> data, PixelImage& image)
{
    image = PixelImage();
    png_image png;
    std::memset(&png, 0, sizeof png);
    png.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&png, data.data(), data.size()))
        return false;
    if (!IsAcceptableImageSize(png.width, png.height)) {
        png_image_free(&png);
        return false;
    }
    const bool hasAlpha = (png.format & PNG_FORMAT_FLAG_ALPHA) != 0;
    png.format = PNG_FORMAT_BGRA;
    image.pixels.resize(size_t(png.width) * png.height);
    if (!png_image_finish_read(&png, nullptr, image.pixels.data(), 0, nullptr)) {
        png_image_free(&png);
        image = PixelImage();
        return false;
    }
    image.width = int32_t(png.width);
    image.height = int32_t(png.height);
    if (hasAlpha) // without an alpha channel every pixel comes out opaque already
        for (uint32_t& p : image.pixels)
            p = PremultipliedPixel(p);
    return true;
}

bool EncodePng(const PixelImage& image, std::vector<uint8_t>& data)
{
    if (!IsWholeImage(image))
        return false;
    std::vector<uint32_t> straight(image.pixels.size());
    for (size_t i = 0; i < straight.size(); ++i)
        straight[i] = StraightPixel(image.pixels[i]);
    png_image png;
    std::memset(&png, 0, sizeof png);
    png.version = PNG_IMAGE_VERSION;
    png.width = png_uint_32(image.width);
    png.height = png_uint_32(image.height);
    png.format = PNG_FORMAT_BGRA;
    png_alloc_size_t size = 0;
    if (!png_image_write_get_memory_size(png, size, 0, straight.data(), 0, nullptr))
        return false;
    const size_t start = data.size();
    data.resize(start + size);
    if (!png_image_write_to_memory(&png, data.data() + start, &size, 0, straight.data(), 0, nullptr)) {
        data.resize(start);
        return false;
    }
    data.resize(start + size);
    return true;
}

} // namespace

const ImageCodec kPngCodec = {"png", SniffPng, DecodePng, EncodePng};

} // namespace vesk::codecs
