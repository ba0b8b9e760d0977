#include <vesk/graphics/Bitmap.hpp>

#include "graphics/ColorMath_p.hpp"
#include "graphics/bitmap/BitmapSurface_p.hpp"

#include <algorithm>
#include <cmath>

namespace vesk {

using codecs::PixelImage;

namespace {

uint32_t Channel(uint32_t p, int shift)
{
    return (p >> shift) & 0xFF;
}

// A float result as a channel: truncated toward zero, kept within 0..255.
uint32_t ToChannel(double v)
{
    return v <= 0 ? 0 : v >= 255 ? 255 : uint32_t(v);
}

// A copy through a colour transform of straight colour. The copy is drawn from the
// rectangle (0, 0, height, width) onto itself (width and height deliberately exchanged), so
// only the square both rectangles share with the picture is filled.
template <class Transform>
Bitmap ColorMatrixCopy(const Bitmap& source, Transform transform)
{
    const PixelImage* picture = BitmapAccess::Picture(source);
    PixelImage out;
    if (!picture || !MakeBlankImage(picture->width, picture->height, out))
        return Bitmap();
    const int32_t side = std::min(picture->width, picture->height);
    for (int32_t y = 0; y < side; ++y) {
        for (int32_t x = 0; x < side; ++x) {
            const size_t i = size_t(y) * size_t(picture->width) + size_t(x);
            out.pixels[i] = codecs::PremultipliedPixel(transform(codecs::StraightPixel(picture->pixels[i])));
        }
    }
    return BitmapAccess::FromImage(std::move(out));
}

// The picture to change in place, made from the opaque view when needed; the opaque view is
// dropped since it no longer matches.
PixelImage* PictureToChange(Bitmap& bitmap)
{
    if (!bitmap.CreatePGdiplusBitmap())
        return nullptr;
    bitmap.DeleteHBitmap();
    return BitmapAccess::Picture(bitmap);
}

} // namespace

Bitmap Bitmap::GetDarkened(float factor) const
{
    const double f = factor;
    return ColorMatrixCopy(*this, [f](uint32_t p) {
        return (p & 0xFF000000u) | ToChannel(Channel(p, 16) * f) << 16 | ToChannel(Channel(p, 8) * f) << 8 |
               ToChannel(Channel(p, 0) * f);
    });
}

Bitmap Bitmap::GetGreyscaleBmp() const
{
    return ColorMatrixCopy(*this, [](uint32_t p) {
        const uint32_t g = ToChannel(0.3 * Channel(p, 16) + 0.6 * Channel(p, 8) + 0.1 * Channel(p, 0));
        return (p & 0xFF000000u) | g << 16 | g << 8 | g;
    });
}

void Bitmap::MakeColorTransparent(const TamColor& color, int, int tolerance)
{
    PixelImage* picture = PictureToChange(*this);
    if (!picture || tolerance < 0)
        return;
    const int64_t limit = int64_t(tolerance) * tolerance;
    const uint32_t kr = color.Get8BitRed(), kg = color.Get8BitGreen(), kb = color.Get8BitBlue();
    for (uint32_t& p : picture->pixels) {
        const uint32_t s = codecs::StraightPixel(p);
        // Differences modulo 256: a channel one below the key is 255 away.
        const int64_t dr = uint8_t(Channel(s, 16) - kr), dg = uint8_t(Channel(s, 8) - kg),
                      db = uint8_t(Channel(s, 0) - kb);
        if (dr * dr + dg * dg + db * db <= limit)
            p = 0;
    }
}

void Bitmap::MakeTransparent(int opacityPercent)
{
    PixelImage* picture = PictureToChange(*this);
    if (!picture)
        return;
    const uint32_t alpha = OpacityAlpha(opacityPercent);
    for (uint32_t& p : picture->pixels)
        p = codecs::PremultipliedPixel(alpha << 24 | (codecs::StraightPixel(p) & 0xFFFFFF));
}

void Bitmap::MakeTransparent(Bitmap& mask, unsigned long color)
{
    PixelImage* picture = PictureToChange(*this);
    const PixelImage* keys = ShownImage(mask);
    if (!picture || !keys)
        return;
    // The colour value has red in the low byte; the picture has it in the third.
    const uint32_t key = TamColor(color).GetLongReversed();
    const int32_t width = std::min(picture->width, keys->width), height = std::min(picture->height, keys->height);
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x)
            if ((codecs::StraightPixel(keys->pixels[size_t(y) * size_t(keys->width) + size_t(x)]) & 0xFFFFFF) == key)
                picture->pixels[size_t(y) * size_t(picture->width) + size_t(x)] = 0;
}

Bitmap Bitmap::CreateTransparentBG(const TamSize& size)
{
    PixelImage image;
    if (!MakeBlankImage(size.Width(), size.Height(), image))
        return Bitmap();
    return BitmapAccess::FromImage(std::move(image));
}

} // namespace vesk
