#pragma once

// Bridges between the library's drawing tools and Cairo: the opaque records behind Region and
// GradientBrush, and colour conversion.

#include <vesk/graphics/GradientBrush.hpp>
#include <vesk/graphics/Pen.hpp>
#include <vesk/graphics/Region.hpp>
#include <vesk/graphics/TamColor.hpp>

#include "graphics/ColorMath_p.hpp"

#include <cairo.h>

namespace vesk {

struct RegionAccess
{
    static cairo_region_t* Get(const Region& r) { return reinterpret_cast<cairo_region_t*>(r.m_pData); }
};

struct GradientBrushAccess
{
    static cairo_pattern_t* Get(const GradientBrush& b)
    {
        return reinterpret_cast<cairo_pattern_t*>(b.m_pData);
    }
    // Takes over `pattern`; a pattern in an error state gives an invalid brush.
    static GradientBrush Make(cairo_pattern_t* pattern, bool antiAlias);
};

// Sets `color` as the source at alpha / 255.
inline void SetSourceColor(cairo_t* cr, const TamColor& color, unsigned alpha = 255)
{
    cairo_set_source_rgba(cr, color.GetFRed(), color.GetFGreen(), color.GetFBlue(), alpha / 255.0);
}

// Adds the region's rectangles to the current path.
inline void RegionPath(cairo_t* cr, const Region& region)
{
    for (int i = 0, n = region.GetRectCount(); i < n; ++i) {
        const CRectangle r = region.GetRect(i);
        cairo_rectangle(cr, r.Left(), r.Top(), r.GetWidth(), r.GetHeight());
    }
}

// Cairo's cap for a line cap; values outside the enumeration give flat ends.
inline cairo_line_cap_t CairoCap(LineCap cap)
{
    switch (cap) {
    case LineCap::Square:
        return CAIRO_LINE_CAP_SQUARE;
    case LineCap::Round:
        return CAIRO_LINE_CAP_ROUND;
    default:
        return CAIRO_LINE_CAP_BUTT;
    }
}

} // namespace vesk
