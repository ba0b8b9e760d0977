#include <vesk/graphics/Bitmap.hpp>
#include <vesk/graphics/Brush.hpp>
#include <vesk/graphics/Gradient.hpp>

#include "graphics/bitmap/BitmapSurface_p.hpp"

namespace vesk {

Brush::Brush(HatchStyle hatch, const TamColor& fore, const TamColor& back, bool transparentBack)
    : Brush(HatchPattern(hatch), fore, back, transparentBack)
{
}

Brush::Brush(const BrushPattern& pattern, const TamColor& fore, const TamColor& back,
             bool transparentBack)
    : m_eKind(BrushKind::Pattern), m_aColor(fore), m_aBackColor(back),
      m_bTransparentBack(transparentBack), m_aPattern(pattern)
{
}

Brush::Brush(const RectGradient& gradient)
    : m_eKind(BrushKind::Gradient), m_pGradient(gradient.Clone())
{
}

Brush::Brush(const vesk::Bitmap& bitmap)
    : m_eKind(BrushKind::Bitmap), m_aColor(MeanColor(bitmap)), m_pBitmap(std::make_shared<const vesk::Bitmap>(bitmap))
{
}

TamColor Brush::GetColor() const
{
    return m_pGradient ? m_pGradient->GetAverageColor() : m_aColor;
}

TamColor Brush::MeanColor(const vesk::Bitmap& bitmap)
{
    // The picture over white, as a fill behind it would show it (premultiplied colours: the
    // channel plus what alpha leaves of the white); a record with only an opaque view is
    // taken as it is.
    const codecs::PixelImage* image = ShownImage(bitmap);
    if (!image)
        return TamColor();
    uint64_t sum[3] = {0, 0, 0};
    for (const uint32_t p : image->pixels) {
        const uint32_t left = 255 - (p >> 24);
        sum[0] += (p >> 16 & 0xFF) + left;
        sum[1] += (p >> 8 & 0xFF) + left;
        sum[2] += (p & 0xFF) + left;
    }
    const uint64_t n = image->pixels.size();
    return TamColor(uint32_t(sum[0] / n) | uint32_t(sum[1] / n) << 8 | uint32_t(sum[2] / n) << 16);
}

BrushPattern Brush::HatchPattern(HatchStyle hatch)
{
    switch (hatch) {
    case HatchStyle::Horizontal:
        return {0, 0, 0, 0xFF, 0, 0, 0, 0};
    case HatchStyle::Vertical:
        return {0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08};
    case HatchStyle::ForwardDiagonal: // rising to the right: "/"
        return {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80};
    case HatchStyle::BackwardDiagonal: // "\"
        return {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01};
    case HatchStyle::Cross:
        return {0x08, 0x08, 0x08, 0xFF, 0x08, 0x08, 0x08, 0x08};
    case HatchStyle::DiagonalCross:
        return {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81};
    }
    return {};
}

} // namespace vesk
