#pragma once

// Pictures for the bitmap tests, built from the straight ARGB words the tests reason in.

#include <vesk/graphics/Bitmap.hpp>

#include "graphics/codecs/Argb_p.hpp"
#include "graphics/codecs/ImageCodec_p.hpp"

#include <cstdint>
#include <vector>

namespace vesk::test {

inline uint32_t Argb(uint32_t a, uint32_t r, uint32_t g, uint32_t b)
{
    return a << 24 | r << 16 | g << 8 | b;
}

// A w x h bitmap whose straight pixel at (x, y) is f(x, y).
template <class F>
Bitmap MakeBitmap(int32_t w, int32_t h, F f)
{
    std::vector<uint32_t> pixels(size_t(w) * size_t(h));
    for (int32_t y = 0; y < h; ++y)
        for (int32_t x = 0; x < w; ++x)
            pixels[size_t(y) * size_t(w) + size_t(x)] = codecs::PremultipliedPixel(f(x, y));
    return Bitmap(TamSize(w, h), std::move(pixels));
}

// A deterministic busy picture with varied alpha (every 4th row opaque).
inline Bitmap NoisyBitmap(int32_t w, int32_t h)
{
    return MakeBitmap(w, h, [](int32_t x, int32_t y) {
        const uint32_t v = uint32_t(x * 2654435761u ^ y * 40503u);
        const uint32_t a = y % 4 == 0 ? 255 : (v >> 24);
        return Argb(a, v & 0xFF, (v >> 8) & 0xFF, (v >> 16) & 0xFF);
    });
}

// The straight pixel at (x, y) of a bitmap's picture.
inline uint32_t PixelAt(const Bitmap& b, int32_t x, int32_t y)
{
    const BitmapPixels p = b.GetPGdiplusBitmap();
    return codecs::StraightPixel(p.pixels[size_t(y) * size_t(p.stride) + size_t(x)]);
}

inline std::vector<uint32_t> PixelsOf(const Bitmap& b)
{
    const BitmapPixels p = b.GetPGdiplusBitmap();
    return p.pixels ? std::vector<uint32_t>(p.pixels, p.pixels + size_t(p.width) * size_t(p.height))
                    : std::vector<uint32_t>();
}

} // namespace vesk::test
