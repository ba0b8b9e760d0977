#include <vesk/graphics/OutputDevice.hpp>

#include "graphics/Cairo_p.hpp"
#include "graphics/DeviceGraphics_p.hpp"

#include <algorithm>
#include <cmath>

namespace vesk {
namespace {

// The arrow as one rectangle per row (or column): n lines of 2n - 1, 2n - 3, ... 1 pixels,
// the longest at the base, centred in the box.
void ArrowPath(cairo_t* cr, const Box& b, ArrowDirection direction)
{
    const bool vertical = direction == ARROW_UP || direction == ARROW_DOWN;
    const double across = vertical ? b.w : b.h, along = vertical ? b.h : b.w;
    const double n = std::min(std::floor((across + 1) / 2), along);
    const double first = std::floor((across - (2 * n - 1)) / 2), base = std::floor((along - n) / 2);
    const bool tipFirst = direction == ARROW_UP || direction == ARROW_LEFT;
    for (double i = 0; i < n; ++i) {
        const double line = tipFirst ? base + n - 1 - i : base + i; // i counts from the base
        if (vertical)
            cairo_rectangle(cr, b.x + first + i, b.y + line, 2 * (n - i) - 1, 1);
        else
            cairo_rectangle(cr, b.x + line, b.y + first + i, 1, 2 * (n - i) - 1);
    }
}

} // namespace

void OutputDevice::DrawGrayEdge(const CRectangle& r, bool sunken)
{
    static const TamColor highlight(0xFFFFFFu), light(0xC8D0D4u), shadow(0x808080u), darkShadow(0x404040u);
    Box b;
    if (!ToBox(r, b))
        return;
    // Edges ordered and within the drawable range, so stepping inward cannot overflow.
    const CRectangle outer(int32_t(b.x), int32_t(b.y), int32_t(b.x + b.w - 1), int32_t(b.y + b.h - 1));
    const CRectangle inner(outer.Left() + 1, outer.Top() + 1, outer.Right() - 1, outer.Bottom() - 1);
    const bool hasInner = b.w > 2 && b.h > 2;
    if (sunken) {
        Draw3DFrame(outer, 1, highlight, shadow, true);
        if (hasInner)
            Draw3DFrame(inner, 1, light, darkShadow, true);
    } else {
        Draw3DFrame(outer, 1, light, darkShadow, false);
        if (hasInner)
            Draw3DFrame(inner, 1, highlight, shadow, false);
    }
}

void OutputDevice::DrawArrow(const CRectangle& r, ArrowDirection direction, const TamColor& color)
{
    DeviceGraphics g(*this);
    Box b;
    if (!g || !ToBox(r, b))
        return;
    ArrowPath(g.cr(), b, direction);
    SetSourceColor(g.cr(), color);
    cairo_fill(g.cr());
}

void OutputDevice::DrawArrowGradient(const CRectangle& r, ArrowDirection direction, const RectGradient& gradient)
{
    DeviceGraphics g(*this);
    Box b;
    if (!g || !ToBox(r, b))
        return;
    ArrowPath(g.cr(), b, direction);
    if (SetBrushSource(g.cr(), Brush(gradient), r))
        cairo_fill(g.cr());
    cairo_new_path(g.cr());
}

} // namespace vesk
