#pragma once

// Colour reduction for the GIF writers: an optimal palette per picture (Wu's variance
// minimising cuts of the colour cube) and Floyd-Steinberg error diffusion onto it.

#include <cstdint>
#include <span>
#include <vector>

namespace vesk::codecs {

struct Rgb
{
    uint8_t r = 0, g = 0, b = 0;
    bool operator==(const Rgb&) const = default;
};

struct QuantizedImage
{
    std::vector<Rgb> palette;     // the colours the pixels use
    std::vector<uint8_t> indices; // one per pixel, rows top first
    int transparentIndex = -1;    // palette.size() when some pixels are transparent, else -1
};

// Reduces `pixels` (straight ARGB, `width` per row) to at most `maxColours` colours (2 to
// 255, so that a transparent index always fits a byte). With `keyTransparent`, pixels whose alpha is below 128 take no part and all get the
// index one past the palette (so maxColours must leave room for it); otherwise alpha is
// ignored.
QuantizedImage Quantize(std::span<const uint32_t> pixels, int32_t width, int maxColours, bool keyTransparent);

// Steps of Quantize, separate for tests.
std::vector<Rgb> BuildPalette(std::span<const uint32_t> pixels, int maxColours, bool keyTransparent);
void DiffuseOntoPalette(std::span<const uint32_t> pixels, int32_t width, const std::vector<Rgb>& palette,
                        bool keyTransparent, uint8_t* indices);

inline bool IsKeyedOut(uint32_t pixel, bool keyTransparent)
{
    return keyTransparent && pixel >> 24 < 128;
}

} // namespace vesk::codecs
