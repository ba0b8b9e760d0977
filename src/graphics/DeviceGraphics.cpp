#include "graphics/DeviceGraphics_p.hpp"

#include "graphics/Cairo_p.hpp"
#include "graphics/bitmap/BitmapSurface_p.hpp"

#include <vesk/graphics/Brush.hpp>
#include <vesk/graphics/Gradient.hpp>
#include <vesk/graphics/Pen.hpp>

#include <algorithm>
#include <cmath>

namespace vesk {

bool Drawable(double v)
{
    return std::fabs(v) <= double(1 << 22); // false for NaN and the infinities too
}

bool ToBox(const CRectangle& r, Box& b)
{
    if (r.IsEmpty())
        return false;
    auto clamp = [](int64_t v) { return double(std::clamp<int64_t>(v, -(1 << 22), 1 << 22)); };
    const double l = clamp(std::min(r.Left(), r.Right())), t = clamp(std::min(r.Top(), r.Bottom()));
    b = {l, t, clamp(std::max(r.Left(), r.Right())) - l + 1, clamp(std::max(r.Top(), r.Bottom())) - t + 1};
    return true;
}

namespace {

// The brush's 8 x 8 bit pattern as a repeating pattern: set bits in the brush colour, clear
// ones in the back colour or transparent. Both colours are opaque, so the pixels are written
// directly.
cairo_pattern_t* BitPattern(const Brush& brush)
{
    cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 8, 8);
    if (cairo_surface_status(s) == CAIRO_STATUS_SUCCESS) {
        cairo_surface_flush(s);
        unsigned char* data = cairo_image_surface_get_data(s);
        const int stride = cairo_image_surface_get_stride(s);
        const uint32_t fore = 0xFF000000u | brush.GetColor().GetLongReversed();
        const uint32_t back = brush.IsBackTransparent() ? 0 : 0xFF000000u | brush.GetBackColor().GetLongReversed();
        for (int y = 0; y < 8; ++y) {
            uint32_t* row = reinterpret_cast<uint32_t*>(data + y * stride);
            for (int x = 0; x < 8; ++x)
                row[x] = brush.GetPattern()[y] & (0x80 >> x) ? fore : back;
        }
        cairo_surface_mark_dirty(s);
    }
    cairo_pattern_t* p = cairo_pattern_create_for_surface(s);
    cairo_surface_destroy(s);
    cairo_pattern_set_extend(p, CAIRO_EXTEND_REPEAT);
    cairo_pattern_set_filter(p, CAIRO_FILTER_NEAREST);
    return p;
}

} // namespace

bool SetBrushSource(cairo_t* cr, const Brush& brush, const CRectangle& bounds)
{
    switch (brush.GetKind()) {
    case BrushKind::Null:
        return false;
    case BrushKind::Solid:
        SetSourceColor(cr, brush.GetColor());
        return true;
    case BrushKind::Pattern: {
        cairo_pattern_t* p = BitPattern(brush);
        cairo_set_source(cr, p);
        cairo_pattern_destroy(p);
        return true;
    }
    case BrushKind::Bitmap: {
        cairo_surface_t* s = BitmapSurface(*brush.GetBitmap());
        if (!s)
            return false;
        cairo_pattern_t* p = cairo_pattern_create_for_surface(s);
        cairo_surface_destroy(s); // the pattern holds it; the brush holds the pixels
        cairo_pattern_set_extend(p, CAIRO_EXTEND_REPEAT);
        cairo_pattern_set_filter(p, CAIRO_FILTER_NEAREST);
        cairo_set_source(cr, p);
        cairo_pattern_destroy(p);
        return true;
    }
    case BrushKind::Gradient: {
        const GradientBrush g = brush.GetGradient()->CreateGdiplusBrush(bounds);
        if (!g.IsValid())
            return false;
        cairo_set_source(cr, GradientBrushAccess::Get(g));
        if (!g.IsAntiAliased())
            cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
        return true;
    }
    }
    return false;
}

bool SetPenStroke(cairo_t* cr, const Pen& pen)
{
    if (!pen.IsVisible())
        return false;
    const double w = pen.GetDrawWidth();
    SetSourceColor(cr, pen.GetColor());
    cairo_set_line_width(cr, w);
    cairo_set_line_cap(cr, CairoCap(pen.GetCap()));
    // Dash lengths in multiples of the width: dash 3 on 1 off, dot 1 on 1 off.
    const double dash[] = {3 * w, w}, dot[] = {w, w}, dashDot[] = {3 * w, w, w, w};
    switch (pen.GetStyle()) {
    case PenStyle::Dash:
        cairo_set_dash(cr, dash, 2, 0);
        break;
    case PenStyle::Dot:
        cairo_set_dash(cr, dot, 2, 0);
        break;
    case PenStyle::DashDot:
        cairo_set_dash(cr, dashDot, 4, 0);
        break;
    default:
        cairo_set_dash(cr, nullptr, 0, 0);
        break;
    }
    return true;
}

void EllipsePath(cairo_t* cr, double x, double y, double w, double h)
{
    if (w == 0 || h == 0) {
        cairo_rectangle(cr, x, y, w, h);
        return;
    }
    cairo_save(cr);
    cairo_translate(cr, x + w / 2, y + h / 2);
    cairo_scale(cr, w / 2, h / 2);
    cairo_new_sub_path(cr);
    cairo_arc(cr, 0, 0, 1, 0, 2 * M_PI);
    cairo_close_path(cr);
    cairo_restore(cr);
}

void ApplyClip(cairo_t* cr, const Region* clip)
{
    if (!clip)
        return;
    RegionPath(cr, *clip);
    cairo_clip(cr);
}

DeviceGraphics::DeviceGraphics(OutputDevice& device) : m_rDevice(device)
{
    DeviceContext* dc = device.GethDC();
    if (!dc)
        return;
    m_pCr = dc->cr;
    cairo_save(m_pCr);
    cairo_set_antialias(m_pCr, CAIRO_ANTIALIAS_NONE);
    cairo_set_operator(m_pCr, device.m_nRasterOp == ROP_SRCINVERT ? CAIRO_OPERATOR_DIFFERENCE
                                                                  : CAIRO_OPERATOR_OVER);
    ApplyClip(m_pCr, device.m_pClip.get());
}

DeviceGraphics::~DeviceGraphics()
{
    if (m_pCr) {
        cairo_new_path(m_pCr); // the path is not part of the saved state
        cairo_restore(m_pCr);
    }
}

HQGraphics::HQGraphics(OutputDevice& device, Smoothing smoothing) : m_rDevice(device)
{
    m_pDC = device.GethDC();
    if (!m_pDC)
        return;
    // The call's drawing state is a saved frame on the device's context, dropped on return.
    m_pCr = m_pDC->cr;
    cairo_save(m_pCr);
    static constexpr cairo_antialias_t modes[] = {CAIRO_ANTIALIAS_NONE, CAIRO_ANTIALIAS_BEST,
                                                  CAIRO_ANTIALIAS_GOOD};
    cairo_set_antialias(m_pCr, modes[static_cast<int>(smoothing)]);
    ApplyClip(m_pCr, device.m_pClip.get());
}

bool HQGraphics::Finish()
{
    if (!m_pCr || m_bFinished)
        return m_pCr && !m_bFailed;
    m_bFinished = true;
    cairo_new_path(m_pCr); // the path is not part of the saved state
    cairo_restore(m_pCr);
    if (cairo_status(m_pCr) != CAIRO_STATUS_SUCCESS) {
        // A Cairo context stays in error once it fails; the device gets a fresh one.
        m_bFailed = true;
        m_pDC->Renew();
    }
    if (m_bFailed)
        m_rDevice.IncGdiPlusError();
    return !m_bFailed;
}

} // namespace vesk
