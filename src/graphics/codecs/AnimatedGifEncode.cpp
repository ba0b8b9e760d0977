// Animated GIF files: the logical screen is the first frame's size, every frame gets its own
// optimal 240-colour palette (in a local table of 256 entries, the rest black) with Floyd-
// Steinberg diffusion, its own graphics control extension with the common delay, and the
// file loops forever. Alpha is not kept: a frame's colours are its straight colours, so
// transparent pixels turn black. A frame larger than the screen is cut to it; a smaller one
// sits in the top-left corner over the previous frame.
#include "graphics/codecs/Argb_p.hpp"
#include "graphics/codecs/GifWrite_p.hpp"
#include "graphics/codecs/ImageCodec_p.hpp"

#include <algorithm>

namespace vesk::codecs {

namespace {

constexpr int kFrameColours = 240;
constexpr int kTableSize = 256;

// The frame's straight colours, cut to `width` x `height` from its top-left corner.
std::vector<uint32_t> StraightColours(const PixelImage& frame, int32_t width, int32_t height)
{
    std::vector<uint32_t> colours;
    colours.reserve(size_t(width) * size_t(height));
    for (int32_t y = 0; y < height; ++y) {
        const uint32_t* row = frame.pixels.data() + size_t(y) * size_t(frame.width);
        for (int32_t x = 0; x < width; ++x)
            colours.push_back(StraightPixel(row[x]));
    }
    return colours;
}

} // namespace

bool EncodeAnimatedGif(std::span<const PixelImage* const> frames, uint16_t delay, std::vector<uint8_t>& data)
{
    if (frames.empty() || !std::all_of(frames.begin(), frames.end(), [](const PixelImage* f) { return f && IsWholeImage(*f); }))
        return false;
    const int32_t screenWidth = frames[0]->width, screenHeight = frames[0]->height;
    GifWriter writer(data, screenWidth, screenHeight, true);
    for (const PixelImage* frame : frames) {
        const int32_t width = std::min(frame->width, screenWidth), height = std::min(frame->height, screenHeight);
        QuantizedImage image = Quantize(StraightColours(*frame, width, height), width, kFrameColours, false);
        if (!writer.AddFrame(image, width, height, delay, kTableSize))
            break;
    }
    return writer.Finish();
}

} // namespace vesk::codecs
