// Reads any bytes as a BMP file. What decodes must be a well-formed picture (every colour
// channel within its alpha), and must come back pixel for pixel when written and read again.
#include "graphics/codecs/ImageCodec_p.hpp"

#include <cstdint>
#include <cstdlib>
#include <vector>

using namespace vesk::codecs;

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    PixelImage image;
    if (!kBmpCodec.decode({data, size}, image)) {
        Require(image.width == 0 && image.height == 0 && image.pixels.empty());
        return 0;
    }
    Require(IsAcceptableImageSize(image.width, image.height));
    Require(image.pixels.size() == size_t(image.width) * size_t(image.height));
    for (uint32_t p : image.pixels) {
        const uint32_t a = p >> 24;
        Require((p >> 16 & 0xFF) <= a && (p >> 8 & 0xFF) <= a && (p & 0xFF) <= a);
    }
    std::vector<uint8_t> file;
    Require(kBmpCodec.encode(image, file));
    PixelImage back;
    Require(kBmpCodec.decode(file, back));
    Require(back.width == image.width && back.height == image.height && back.pixels == image.pixels);
    return 0;
}
