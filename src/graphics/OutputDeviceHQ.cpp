#include <vesk/graphics/OutputDevice.hpp>

#include "graphics/Cairo_p.hpp"
#include "graphics/DeviceGraphics_p.hpp"

#include <algorithm>
#include <cmath>

namespace vesk {
namespace {

void SetColor(cairo_t* cr, const TransparentColor& c)
{
    SetSourceColor(cr, c, OpacityAlpha(c.GetOpacity()));
}

bool DrawableRect(const FRectangle& r)
{
    return Drawable(r.Left(), r.Top(), r.Right(), r.Bottom());
}

bool DrawableRect(const CRectangle& r)
{
    return Drawable(double(r.Left()), double(r.Top()), double(r.Right()), double(r.Bottom()));
}

// Strokes the current path with `width` in `color`. With `gradient` the stroke is shaded by a
// centre-point gradient from the colour's 45% darker shade to the colour, which `makeBrush`
// turns into a brush for the shape, and then laid down at the colour's opacity; a brush that
// cannot be made leaves the plain colour.
template <class MakeBrush>
void StrokeRing(cairo_t* cr, double width, const TransparentColor& color, bool gradient, MakeBrush makeBrush)
{
    GradientBrush brush;
    if (gradient) {
        TamColor dark = color;
        dark.Darken(45);
        brush = makeBrush(CenterPointGradient(ColorPair(dark, dark), color));
    }
    // Flatness 0.25 of the widened path.
    cairo_set_tolerance(cr, 0.25);
    cairo_set_line_width(cr, width);
    if (!brush.IsValid()) {
        SetColor(cr, color);
        cairo_stroke(cr);
        return;
    }
    cairo_push_group(cr);
    cairo_set_source(cr, GradientBrushAccess::Get(brush));
    cairo_stroke(cr);
    cairo_pop_group_to_source(cr);
    cairo_paint_with_alpha(cr, OpacityAlpha(color.GetOpacity()) / 255.0);
}

} // namespace

bool OutputDevice::DrawLineHQ(const FPoint& from, const FPoint& to, const TransparentColor& color,
                              double width, LineCap endCap)
{
    HQGraphics g(*this, Smoothing::HighQuality);
    if (!g)
        return false;
    if (!Drawable(from.x, from.y, to.x, to.y, width))
        return g.Reject();
    cairo_t* cr = g.cr();
    SetColor(cr, color);
    cairo_set_line_width(cr, width > 0 ? width : 1.0);
    cairo_set_line_cap(cr, CairoCap(endCap));
    cairo_move_to(cr, from.x, from.y);
    cairo_line_to(cr, to.x, to.y);
    cairo_stroke(cr);
    return g.Finish();
}

bool OutputDevice::DrawLineHQ(const FPoint& from, const FPoint& to, int32_t width, int32_t endCap)
{
    HQGraphics g(*this, Smoothing::HighQuality);
    if (!g)
        return false;
    if (!Drawable(from.x, from.y, to.x, to.y, double(width)))
        return g.Reject();
    Pen pen = m_pPen ? *m_pPen : Pen();
    if (width > 0)
        pen.SetWidth(width);
    cairo_t* cr = g.cr();
    if (SetPenStroke(cr, pen)) {
        cairo_set_line_cap(cr, CairoCap(LineCap(endCap)));
        cairo_move_to(cr, from.x, from.y);
        cairo_line_to(cr, to.x, to.y);
        cairo_stroke(cr);
    }
    return g.Finish();
}

bool OutputDevice::DrawFrameHQ(const FRectangle& r)
{
    if (r.IsEmpty())
        return false;
    HQGraphics g(*this, Smoothing::HighQuality);
    if (!g)
        return false;
    if (!DrawableRect(r))
        return g.Reject();
    cairo_t* cr = g.cr();
    if (SetPenStroke(cr, m_pPen ? *m_pPen : Pen())) {
        // The edges run half the pen's width inside r, so that the frame stays within it;
        // round caps close the corners.
        const double h = std::min({m_pPen ? m_pPen->GetDrawWidth() / 2.0 : 0.5,
                                   std::fabs(r.Width()) / 2, std::fabs(r.Height()) / 2});
        const double l = std::min(r.Left(), r.Right()) + h, t = std::min(r.Top(), r.Bottom()) + h;
        const double rr = std::max(r.Left(), r.Right()) - h, b = std::max(r.Top(), r.Bottom()) - h;
        cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
        const double pts[5][2] = {{l, t}, {rr, t}, {rr, b}, {l, b}, {l, t}};
        for (int i = 0; i < 4; ++i) {
            cairo_move_to(cr, pts[i][0], pts[i][1]);
            cairo_line_to(cr, pts[i + 1][0], pts[i + 1][1]);
        }
        cairo_stroke(cr);
    }
    return g.Finish();
}

bool OutputDevice::DrawArcHQ(const CRectangle& r, double startDegrees, double sweepDegrees,
                             const TamColor& color, double width)
{
    HQGraphics g(*this, Smoothing::HighQuality);
    if (!g)
        return false;
    if (r.IsEmpty() || !DrawableRect(r) || !Drawable(startDegrees, sweepDegrees, width))
        return g.Reject();
    cairo_t* cr = g.cr();
    const double w = double(r.Right()) - r.Left(), h = double(r.Bottom()) - r.Top();
    const double a0 = startDegrees * M_PI / 180, a1 = (startDegrees + sweepDegrees) * M_PI / 180;
    if (w != 0 && h != 0) {
        // Angles run clockwise on screen from the positive x axis, as Cairo's do.
        cairo_save(cr);
        cairo_translate(cr, r.Left() + w / 2, r.Top() + h / 2);
        cairo_scale(cr, w / 2, h / 2);
        if (sweepDegrees >= 0)
            cairo_arc(cr, 0, 0, 1, a0, a1);
        else
            cairo_arc_negative(cr, 0, 0, 1, a0, a1);
        cairo_restore(cr);
        SetSourceColor(cr, color);
        cairo_set_line_width(cr, width > 0 ? width : 1.0);
        cairo_stroke(cr);
    }
    return g.Finish();
}

int OutputDevice::DrawRectHQ(const FRectangle& r)
{
    const TamColor c = m_pPen ? m_pPen->GetColor() : TamColor(0u);
    return DrawRectHQ(r, TransparentColor(c, 100));
}

int OutputDevice::DrawRectHQ(const FRectangle& r, const TransparentColor& color)
{
    if (r.IsEmpty())
        return 0;
    HQGraphics g(*this, Smoothing::None);
    if (!g)
        return 0;
    if (DrawableRect(r)) {
        SetColor(g.cr(), color);
        cairo_rectangle(g.cr(), r.Left(), r.Top(), r.Right() - r.Left(), r.Bottom() - r.Top());
        cairo_fill(g.cr());
    } else {
        g.Fail();
    }
    if (g.Finish())
        return 1;
    // The plain family takes over what the anti-aliased one could not draw.
    EraseTransparent(r.GetBoundingRect(), color, color.GetOpacity());
    return 0;
}

bool OutputDevice::DrawEllipseHQ(const FRectangle& r, int opacityPercent)
{
    if (r.IsEmpty())
        return false;
    HQGraphics g(*this, Smoothing::None);
    if (!g)
        return false;
    if (!DrawableRect(r))
        return g.Reject();
    const TamColor c = m_pBrush ? m_pBrush->GetColor() : TamColor();
    SetSourceColor(g.cr(), c, OpacityAlpha(opacityPercent));
    EllipsePath(g.cr(), r.Left(), r.Top(), r.Right() - r.Left(), r.Bottom() - r.Top());
    cairo_fill(g.cr());
    return g.Finish();
}

bool OutputDevice::DrawPolygonHQ(const FPolygon& p)
{
    if (p.GetCount() < 3)
        return false;
    HQGraphics g(*this, Smoothing::AntiAlias);
    if (!g)
        return false;
    cairo_t* cr = g.cr();
    double l = p[0].x, t = p[0].y, rr = l, b = t;
    for (size_t i = 0; i < p.GetCount(); ++i) {
        const FPoint& q = p[i];
        if (!Drawable(q.x, q.y))
            return g.Reject();
        cairo_line_to(cr, q.x, q.y);
        l = std::min(l, q.x), t = std::min(t, q.y), rr = std::max(rr, q.x), b = std::max(b, q.y);
    }
    cairo_close_path(cr);
    cairo_set_fill_rule(cr, CAIRO_FILL_RULE_WINDING);
    const CRectangle bounds{int32_t(l), int32_t(t), int32_t(rr), int32_t(b)};
    if (SetBrushSource(cr, m_pBrush ? *m_pBrush : Brush(TamColor()), bounds))
        cairo_fill(cr);
    return g.Finish();
}

bool OutputDevice::FillTransparentPolygon(const CPolygon& p, const TransparentColor& color)
{
    if (p.GetCount() < 3)
        return false;
    HQGraphics g(*this, Smoothing::AntiAlias);
    if (!g)
        return false;
    cairo_t* cr = g.cr();
    for (size_t i = 0; i < p.GetCount(); ++i) {
        if (!Drawable(double(p[i].x), double(p[i].y)))
            return g.Reject();
        cairo_line_to(cr, p[i].x, p[i].y);
    }
    cairo_close_path(cr);
    cairo_set_fill_rule(cr, CAIRO_FILL_RULE_WINDING);
    SetColor(cr, color);
    cairo_fill(cr);
    return g.Finish();
}

bool OutputDevice::DrawRing(const CRectangle& r, int32_t width, const TransparentColor& color, bool gradient)
{
    HQGraphics g(*this, Smoothing::HighQuality);
    if (!g)
        return false;
    if (r.IsEmpty() || !DrawableRect(r) || width <= 0 || !Drawable(double(width)))
        return g.Reject();
    const double half = width / 2.0;
    const double x = r.Left() + half, y = r.Top() + half;
    EllipsePath(g.cr(), x, y, double(r.Right()) - r.Left() - width, double(r.Bottom()) - r.Top() - width);
    StrokeRing(g.cr(), width, color, gradient, [&r](const CenterPointGradient& shade) {
        return shade.CreateEllipticPathGradientBrush(FRectangle(r.Left(), r.Top(), r.Right(), r.Bottom()));
    });
    return g.Finish();
}

bool OutputDevice::DrawRoundRect(const CRectangle& r, int32_t width, int32_t radius,
                                 const TransparentColor& color, bool gradient)
{
    HQGraphics g(*this, Smoothing::HighQuality);
    if (!g)
        return false;
    if (r.IsEmpty() || !DrawableRect(r) || width <= 0 || !Drawable(double(width), double(radius)))
        return g.Reject();
    CRectangle in = r;
    in.Inflate(-width / 2 * 2, -width / 2 * 2); // InflateRect by -width / 2 on each side
    const double l = in.Left(), t = in.Top(), w = double(in.Right()) - l, h = double(in.Bottom()) - t;
    const double rad = std::clamp<double>(radius, 0, std::min(std::fabs(w), std::fabs(h)) / 2);
    cairo_t* cr = g.cr();
    // Four arcs starting at 180, 270, 0 and 90 degrees, each sweeping 90.
    cairo_new_sub_path(cr);
    cairo_arc(cr, l + rad, t + rad, rad, M_PI, 1.5 * M_PI);
    cairo_arc(cr, l + w - rad, t + rad, rad, 1.5 * M_PI, 2 * M_PI);
    cairo_arc(cr, l + w - rad, t + h - rad, rad, 0, 0.5 * M_PI);
    cairo_arc(cr, l + rad, t + h - rad, rad, 0.5 * M_PI, M_PI);
    cairo_close_path(cr);
    StrokeRing(cr, width, color, gradient,
               [&r](const CenterPointGradient& shade) { return shade.CreatePathGradientBrush(r); });
    return g.Finish();
}

bool OutputDevice::DrawSplineHQ(const FPolygon& p, const TransparentColor& color, double width)
{
    if (p.GetCount() < 2)
        return false;
    HQGraphics g(*this, Smoothing::HighQuality);
    if (!g)
        return false;
    cairo_t* cr = g.cr();
    const size_t n = p.GetCount();
    for (size_t i = 0; i < n; ++i)
        if (!Drawable(p[i].x, p[i].y, width))
            return g.Reject();
    // Catmull-Rom: the tangent at each point is half the chord between its neighbours (the
    // end points stand in for their missing neighbours).
    cairo_move_to(cr, p[0].x, p[0].y);
    for (size_t i = 0; i + 1 < n; ++i) {
        const FPoint& a = p[i > 0 ? i - 1 : 0];
        const FPoint& b = p[i];
        const FPoint& c = p[i + 1];
        const FPoint& d = p[i + 2 < n ? i + 2 : n - 1];
        cairo_curve_to(cr, b.x + (c.x - a.x) / 6, b.y + (c.y - a.y) / 6, c.x - (d.x - b.x) / 6,
                       c.y - (d.y - b.y) / 6, c.x, c.y);
    }
    SetColor(cr, color);
    cairo_set_line_width(cr, width > 0 ? width : 1.0);
    cairo_stroke(cr);
    return g.Finish();
}

} // namespace vesk
