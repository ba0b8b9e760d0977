#include <vesk/graphics/Bitmap.hpp>
#include <vesk/graphics/VirtualDevice.hpp>

#include "graphics/ScreenScale_p.hpp"
#include "graphics/bitmap/BitmapSurface_p.hpp"

#include <cairo.h>

#include <cmath>

namespace vesk {

using codecs::PixelImage;

namespace {

// Draws `source` into `target`, its top-left corner at (x, y) and stretched to w x h.
void DrawScaled(const PixelImage& source, PixelImage& target, double x, double y, double w, double h,
                cairo_filter_t filter, cairo_operator_t op)
{
    cairo_surface_t* from = SurfaceOf(source);
    cairo_surface_t* to = SurfaceOf(target);
    cairo_t* cr = cairo_create(to);
    cairo_set_operator(cr, op);
    PaintScaled(cr, from, x, y, w, h, filter);
    cairo_destroy(cr);
    cairo_surface_flush(to);
    cairo_surface_destroy(to);
    cairo_surface_destroy(from);
}

Bitmap Resample(const PixelImage& source, int32_t width, int32_t height, cairo_filter_t filter)
{
    PixelImage out;
    if (!MakeBlankImage(width, height, out))
        return Bitmap();
    DrawScaled(source, out, 0, 0, width, height, filter, CAIRO_OPERATOR_SOURCE);
    return BitmapAccess::FromImage(std::move(out));
}

bool InSizeRange(double v)
{
    return v >= 1 && v <= double(codecs::kMaxImageSide);
}

} // namespace

Bitmap Bitmap::StretchHQ(const FSize& size) const
{
    const PixelImage* source = ShownImage(*this);
    if (!source || !InSizeRange(size.width) || !InSizeRange(size.height))
        return Bitmap();
    return Resample(*source, int32_t(size.width), int32_t(size.height), CAIRO_FILTER_BEST);
}

Bitmap Bitmap::ScaleHQ() const
{
    const double f = ScreenScaleFactor();
    if (f <= 1.2 || Empty())
        return *this;
    const TamSize s = GetSize();
    return StretchHQ(FSize(std::floor(s.Width() * f + 0.5), std::floor(s.Height() * f + 0.5)));
}

Bitmap Bitmap::Scale() const
{
    const double f = ScreenScaleFactor();
    if (f <= 1.2 || Empty())
        return *this;
    const TamSize s = GetSize();
    VirtualDevice display(TamSize(1, 1));
    return Stretch(&display, TamSize(int32_t(s.Width() * f + 0.5), int32_t(s.Height() * f + 0.5)), false, false);
}

Bitmap Bitmap::GetBitmapHQ(const FPoint& pos, FSize& size) const
{
    const PixelImage* source = ShownImage(*this);
    if (!source || !std::isfinite(pos.x) || !std::isfinite(pos.y))
        return Bitmap();
    size.width = std::min(size.width, source->width - pos.x);
    size.height = std::min(size.height, source->height - pos.y);
    if (!InSizeRange(size.width) || !InSizeRange(size.height))
        return Bitmap();
    PixelImage out;
    if (!MakeBlankImage(int32_t(size.width), int32_t(size.height), out))
        return Bitmap();
    DrawScaled(*source, out, -pos.x, -pos.y, source->width, source->height, CAIRO_FILTER_BEST, CAIRO_OPERATOR_SOURCE);
    return BitmapAccess::FromImage(std::move(out));
}

Bitmap Bitmap::DrawBitmapHQ(const FPoint& pos, FSize& size, const Bitmap& other) const
{
    const PixelImage* source = ShownImage(*this);
    if (!source)
        return Bitmap();
    PixelImage copy = *source;
    const PixelImage* over = ShownImage(other);
    const bool drawable = std::isfinite(pos.x) && std::isfinite(pos.y) && std::isfinite(size.width) &&
                          std::isfinite(size.height) && size.width > 0 && size.height > 0;
    if (over && drawable)
        DrawScaled(*over, copy, pos.x, pos.y, size.width, size.height, CAIRO_FILTER_BEST, CAIRO_OPERATOR_OVER);
    return BitmapAccess::FromImage(std::move(copy));
}

Bitmap Bitmap::Stretch(OutputDevice* device, const TamSize& size, bool halftone, bool keyMagenta) const
{
    const PixelImage* source = ShownImage(*this);
    if (!device || !device->InitDevice() || !source)
        return Bitmap();
    Bitmap out = IsGdiplusBitmap() ? StretchHQ(FSize(size.Width(), size.Height()))
                                   : Resample(*source, size.Width(), size.Height(),
                                              halftone ? CAIRO_FILTER_GOOD : CAIRO_FILTER_NEAREST);
    if (keyMagenta)
        out.MakeColorTransparent(TamColor(0xFF00FFu), 0, 0);
    return out;
}

} // namespace vesk
