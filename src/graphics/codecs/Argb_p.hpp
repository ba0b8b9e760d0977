#pragma once

// Conversions between the premultiplied pixels of PixelImage and the straight (unassociated)
// alpha that file formats store. Both round to nearest, so straight -> premultiplied ->
// straight -> premultiplied gives back the same premultiplied pixel.

#include <cstdint>

namespace vesk::codecs {

// round(c * a / 255) for 8-bit c and a, exactly.
inline uint32_t MulDiv255(uint32_t c, uint32_t a)
{
    const uint32_t t = c * a + 128;
    return (t + (t >> 8)) >> 8;
}

inline uint32_t PremultipliedPixel(uint32_t a, uint32_t r, uint32_t g, uint32_t b)
{
    if (a == 255)
        return 0xFF000000u | r << 16 | g << 8 | b;
    return a << 24 | MulDiv255(r, a) << 16 | MulDiv255(g, a) << 8 | MulDiv255(b, a);
}

// The same for a straight pixel in one word.
inline uint32_t PremultipliedPixel(uint32_t straight)
{
    return PremultipliedPixel(straight >> 24, straight >> 16 & 0xFF, straight >> 8 & 0xFF, straight & 0xFF);
}

// The same pixel with straight colour channels (0 for a transparent pixel).
inline uint32_t StraightPixel(uint32_t pixel)
{
    const uint32_t a = pixel >> 24;
    if (a == 255 || a == 0)
        return a == 255 ? pixel : 0;
    auto channel = [a](uint32_t c) {
        const uint32_t v = (c * 255 + a / 2) / a;
        return v > 255 ? 255u : v;
    };
    return a << 24 | channel(pixel >> 16 & 0xFF) << 16 | channel(pixel >> 8 & 0xFF) << 8 | channel(pixel & 0xFF);
}

} // namespace vesk::codecs
