#include <vesk/graphics/Brush.hpp>
#include <vesk/graphics/Gradient.hpp>

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

TamColor Brush::GetColor() const
{
    return m_pGradient ? m_pGradient->GetAverageColor() : m_aColor;
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
