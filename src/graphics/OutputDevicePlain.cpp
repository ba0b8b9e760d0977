#include <vesk/graphics/OutputDevice.hpp>

#include "graphics/Cairo_p.hpp"
#include "graphics/DeviceGraphics_p.hpp"

#include <algorithm>
#include <cmath>

namespace vesk {
namespace {

bool DrawablePoint(const TamPoint& p)
{
    return Drawable(double(p.x), double(p.y));
}

// Fills the current path, which stays, with the device's brush (white when none is set).
void FillPath(DeviceGraphics& g, const CRectangle& bounds)
{
    cairo_t* cr = g.cr();
    cairo_save(cr);
    if (SetBrushSource(cr, g.brush() ? *g.brush() : Brush(TamColor()), bounds))
        cairo_fill_preserve(cr);
    cairo_restore(cr);
}

// Fills the current path when `fill`, strokes it with the device's pen (black, one pixel,
// when none is set) and clears it.
void FillAndStroke(DeviceGraphics& g, const CRectangle& bounds, bool fill)
{
    cairo_t* cr = g.cr();
    if (fill)
        FillPath(g, bounds);
    if (SetPenStroke(cr, g.pen() ? *g.pen() : Pen()))
        cairo_stroke_preserve(cr);
    cairo_new_path(cr);
}

// Fills the shape over the whole box with the brush, then strokes its outline through the
// pixel centres just inside, so the pen's pixels fall within the box.
template <class ShapePath>
void FillAndOutline(OutputDevice& device, const CRectangle& r, ShapePath path)
{
    DeviceGraphics g(device);
    Box b;
    if (!g || !ToBox(r, b))
        return;
    path(g.cr(), b.x, b.y, b.w, b.h);
    FillPath(g, r);
    cairo_new_path(g.cr());
    path(g.cr(), b.x + 0.5, b.y + 0.5, b.w - 1, b.h - 1);
    FillAndStroke(g, r, false);
}

double Angle(const Box& b, const TamPoint& p)
{
    const double cx = b.x + b.w / 2, cy = b.y + b.h / 2;
    return std::atan2((p.y + 0.5 - cy) / b.h, (p.x + 0.5 - cx) / b.w);
}

void ArcPath(cairo_t* cr, const Box& b, const TamPoint& start, const TamPoint& end, bool pie)
{
    // Counter-clockwise on screen, which is Cairo's negative direction; the path runs
    // through pixel centres like the outlines of the other shapes.
    cairo_save(cr);
    cairo_translate(cr, b.x + b.w / 2, b.y + b.h / 2);
    cairo_scale(cr, std::max(b.w - 1, 0.5) / 2, std::max(b.h - 1, 0.5) / 2);
    if (pie)
        cairo_move_to(cr, 0, 0);
    cairo_arc_negative(cr, 0, 0, 1, Angle(b, start), Angle(b, end));
    if (pie)
        cairo_close_path(cr);
    cairo_restore(cr);
}

} // namespace

void OutputDevice::DrawLine(const TamPoint& from, const TamPoint& to)
{
    DeviceGraphics g(*this);
    if (!g || !DrawablePoint(from) || !DrawablePoint(to))
        return;
    // Through pixel centres with flat ends: the last pixel is left out.
    cairo_move_to(g.cr(), from.x + 0.5, from.y + 0.5);
    cairo_line_to(g.cr(), to.x + 0.5, to.y + 0.5);
    FillAndStroke(g, CRectangle(), false);
}

void OutputDevice::DrawRect(const CRectangle& r)
{
    FillAndOutline(*this, r, [](cairo_t* cr, double x, double y, double w, double h) { cairo_rectangle(cr, x, y, w, h); });
}

void OutputDevice::DrawFrame(const CRectangle& r)
{
    DeviceGraphics g(*this);
    Box b;
    if (!g || !ToBox(r, b))
        return;
    cairo_rectangle(g.cr(), b.x + 0.5, b.y + 0.5, b.w - 1, b.h - 1);
    FillAndStroke(g, r, false);
}

void OutputDevice::DrawEllipse(const CRectangle& r)
{
    FillAndOutline(*this, r, EllipsePath);
}

void OutputDevice::DrawArc(const CRectangle& r, const TamPoint& start, const TamPoint& end)
{
    DeviceGraphics g(*this);
    Box b;
    if (!g || !ToBox(r, b) || !DrawablePoint(start) || !DrawablePoint(end))
        return;
    ArcPath(g.cr(), b, start, end, false);
    FillAndStroke(g, r, false);
}

void OutputDevice::DrawPie(const CRectangle& r, const TamPoint& start, const TamPoint& end)
{
    DeviceGraphics g(*this);
    Box b;
    if (!g || !ToBox(r, b) || !DrawablePoint(start) || !DrawablePoint(end))
        return;
    ArcPath(g.cr(), b, start, end, true);
    FillAndStroke(g, r, true);
}

void OutputDevice::DrawPolygon(const CPolygon& p)
{
    DeviceGraphics g(*this);
    if (!g || p.GetCount() < 2)
        return;
    for (size_t i = 0; i < p.GetCount(); ++i) {
        if (!DrawablePoint(p[i])) {
            cairo_new_path(g.cr());
            return;
        }
        cairo_line_to(g.cr(), p[i].x + 0.5, p[i].y + 0.5);
    }
    cairo_close_path(g.cr());
    cairo_set_fill_rule(g.cr(), CAIRO_FILL_RULE_EVEN_ODD);
    FillAndStroke(g, p.GetBoundRect(), true);
}

void OutputDevice::Draw3DFrame(const CRectangle& r, int32_t width, const TamColor& light,
                               const TamColor& dark, bool sunken)
{
    DeviceGraphics g(*this);
    Box b;
    if (!g || !ToBox(r, b))
        return;
    const double n = std::clamp<double>(width, 0, std::min(b.w, b.h) / 2);
    cairo_t* cr = g.cr();
    for (int pass = 0; pass < 2; ++pass) {
        SetSourceColor(cr, (pass == 0) != sunken ? light : dark);
        for (double i = 0; i < n; ++i) {
            const double l = b.x + i, t = b.y + i, rr = b.x + b.w - 1 - i, bb = b.y + b.h - 1 - i;
            if (pass == 0) { // top and left
                cairo_rectangle(cr, l, t, rr - l, 1);
                cairo_rectangle(cr, l, t + 1, 1, bb - t - 1);
            } else { // bottom and right
                cairo_rectangle(cr, l, bb, rr - l + 1, 1);
                cairo_rectangle(cr, rr, t, 1, bb - t);
            }
        }
        cairo_fill(cr);
    }
}

void OutputDevice::DrawPixel(const TamPoint& p, const TamColor& color)
{
    DeviceGraphics g(*this);
    if (!g || !DrawablePoint(p))
        return;
    SetSourceColor(g.cr(), color);
    cairo_rectangle(g.cr(), p.x, p.y, 1, 1);
    cairo_fill(g.cr());
}

uint32_t OutputDevice::GetPixel(const TamPoint& p)
{
    DeviceContext* dc = GethDC();
    if (!dc || cairo_surface_get_type(dc->surface) != CAIRO_SURFACE_TYPE_IMAGE)
        return 0xFFFFFFFF;
    cairo_surface_t* s = dc->surface;
    const cairo_format_t f = cairo_image_surface_get_format(s);
    if ((f != CAIRO_FORMAT_ARGB32 && f != CAIRO_FORMAT_RGB24) || p.x < 0 || p.y < 0 ||
        p.x >= cairo_image_surface_get_width(s) || p.y >= cairo_image_surface_get_height(s))
        return 0xFFFFFFFF;
    cairo_surface_flush(s);
    const unsigned char* row = cairo_image_surface_get_data(s) + size_t(p.y) * cairo_image_surface_get_stride(s);
    const uint32_t px = reinterpret_cast<const uint32_t*>(row)[p.x];
    return (px >> 16 & 0xFF) | (px & 0xFF00) | (px & 0xFF) << 16;
}

void OutputDevice::InvertRect(const CRectangle& r)
{
    DeviceGraphics g(*this);
    Box b;
    if (!g || !ToBox(r, b))
        return;
    cairo_set_operator(g.cr(), CAIRO_OPERATOR_DIFFERENCE);
    cairo_set_source_rgb(g.cr(), 1, 1, 1);
    cairo_rectangle(g.cr(), b.x, b.y, b.w, b.h);
    cairo_fill(g.cr());
}

void OutputDevice::Erase(const CRectangle& r)
{
    DeviceGraphics g(*this);
    Box b;
    if (!g || !ToBox(r, b))
        return;
    cairo_rectangle(g.cr(), b.x, b.y, b.w, b.h);
    cairo_clip(g.cr());
    if (SetBrushSource(g.cr(), m_aBackground.GetBrush(), r))
        cairo_paint_with_alpha(g.cr(), OpacityAlpha(std::min<int>(m_aBackground.GetOpacity(), 100)) / 255.0);
}

void OutputDevice::Erase(const CRectangle& r, const TamColor& color)
{
    EraseTransparent(r, color, 100);
}

void OutputDevice::Erase(const CRectangle& r, const RectGradient& gradient)
{
    FillRgn(Region(r), Brush(gradient));
}

void OutputDevice::EraseTransparent(const CRectangle& r, const TamColor& color, uint16_t opacityPercent)
{
    DeviceGraphics g(*this);
    Box b;
    if (!g || !ToBox(r, b))
        return;
    SetSourceColor(g.cr(), color, OpacityAlpha(std::min<int>(opacityPercent, 100)));
    cairo_rectangle(g.cr(), b.x, b.y, b.w, b.h);
    cairo_fill(g.cr());
}

void OutputDevice::FillRgn(const Region& region, const Brush& brush)
{
    DeviceGraphics g(*this);
    if (!g || region.IsEmpty())
        return;
    RegionPath(g.cr(), region);
    if (SetBrushSource(g.cr(), brush, region.GetBoundRect()))
        cairo_fill(g.cr());
    cairo_new_path(g.cr());
}

void OutputDevice::FrameRgn(const Region& region, const Brush& brush, int32_t width)
{
    if (width <= 0)
        return;
    // The border is what erosion by `width` removes: the region minus its pixels that stay
    // inside when moved by the width in each of the four directions.
    Region inner = region;
    const int32_t w = std::min(width, 1 << 22);
    const int32_t shifts[4][2] = {{w, 0}, {-w, 0}, {0, w}, {0, -w}};
    for (const auto& s : shifts)
        inner.Intersect(Region(region).Move(s[0], s[1]));
    FillRgn(Region(region).Subtract(inner), brush);
}

void OutputDevice::DrawOutDev(const TamPoint& dest, const TamSize& size, OutputDevice& src,
                              const TamPoint& srcPos)
{
    DeviceContext* from = src.GethDC();
    DeviceGraphics g(*this);
    if (!g || !from || size.Width() <= 0 || size.Height() <= 0 || !DrawablePoint(dest) || !DrawablePoint(srcPos) ||
        !Drawable(double(size.Width()), double(size.Height())))
        return;
    cairo_surface_flush(from->surface);
    if (m_nRasterOp == ROP_SRCCOPY)
        cairo_set_operator(g.cr(), CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(g.cr(), from->surface, double(dest.x) - srcPos.x, double(dest.y) - srcPos.y);
    cairo_rectangle(g.cr(), dest.x, dest.y, size.Width(), size.Height());
    cairo_fill(g.cr());
}

} // namespace vesk
