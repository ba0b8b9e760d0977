#include <vesk/graphics/Gradient.hpp>

#include "graphics/Cairo_p.hpp"

#include <algorithm>

namespace vesk {
namespace {

// A tiled linear gradient from `from` in colour 0 to `to` in colour 1, always opaque.
GradientBrush LinearBrush(const ColorPair& colors, const TamPoint& from, const TamPoint& to)
{
    cairo_pattern_t* p = cairo_pattern_create_linear(from.x, from.y, to.x, to.y);
    for (int i = 0; i < 2; ++i) {
        TamColor c = colors[i];
        cairo_pattern_add_color_stop_rgb(p, i, c.GetFRed(), c.GetFGreen(), c.GetFBlue());
    }
    cairo_pattern_set_extend(p, CAIRO_EXTEND_REPEAT);
    return GradientBrushAccess::Make(p, true);
}

} // namespace

TamColor RectGradient::GetAverageColor() const
{
    // On the 16-bit view: (2 * start + end) / 768 gives the 8-bit weighted mean.
    auto mean = [](uint32_t a, uint32_t b) { return std::min<uint32_t>((2 * a + b) / 768, 255); };
    const TamColor a = m_aColors[0], b = m_aColors[1];
    return TamColor(mean(a.GetRed(), b.GetRed()) | mean(a.GetGreen(), b.GetGreen()) << 8 |
                    mean(a.GetBlue(), b.GetBlue()) << 16);
}

GradientBrush RectGradient::CreateGdiplusBrush(const CRectangle& r) const
{
    const int32_t bottom = r.Bottom() == RECT_EMPTY ? r.Top() : r.Bottom();
    return LinearBrush(m_aColors, r.TopLeft(), TamPoint(r.Left(), bottom));
}

RectGradient* RectGradient::Clone() const
{
    return new RectGradient(*this);
}

GradientBrush LinearRectGradient::CreateGdiplusBrush(const CRectangle& r) const
{
    return LinearBrush(m_aColors, r.TopLeft(), GetEndPoint(r));
}

RectGradient* LinearRectGradient::Clone() const
{
    return new LinearRectGradient(*this);
}

// The end points lie one pixel beyond the rectangle so that its last row or column reaches
// colour 1; the sums wrap like the 32-bit arithmetic they stand for.
static int32_t PlusOne(int32_t v)
{
    return static_cast<int32_t>(static_cast<uint32_t>(v) + 1u);
}

TamPoint LinearRectGradient::GetEndPoint(const CRectangle& r) const
{
    return TamPoint(r.Left(), PlusOne(r.Bottom()));
}

RectGradient* HorizontalGradient::Clone() const
{
    return new HorizontalGradient(*this);
}

TamPoint HorizontalGradient::GetEndPoint(const CRectangle& r) const
{
    return TamPoint(PlusOne(r.Right()), r.Top());
}

RectGradient* VerticalGradient::Clone() const
{
    return new VerticalGradient(*this);
}

TamPoint VerticalGradient::GetEndPoint(const CRectangle& r) const
{
    return TamPoint(r.Left(), PlusOne(r.Bottom()));
}

RectGradient* DiagonalGradient::Clone() const
{
    return new DiagonalGradient(*this);
}

TamPoint DiagonalGradient::GetEndPoint(const CRectangle& r) const
{
    return TamPoint(PlusOne(r.Right()), PlusOne(r.Bottom()));
}

} // namespace vesk
