#include <vesk/graphics/OutputDevice.hpp>

#include "graphics/Cairo_p.hpp"
#include "graphics/DeviceGraphics_p.hpp"
#include "graphics/bitmap/BitmapSurface_p.hpp"

#include <cmath>

namespace vesk {
namespace {

// Paints `source` (destroyed here) onto the rectangle (x, y, w, h), scaled from its own size.
void PaintSurface(cairo_t* cr, cairo_surface_t* source, double x, double y, double w, double h, cairo_filter_t filter)
{
    PaintScaled(cr, source, x, y, w, h, filter);
    cairo_surface_destroy(source);
}

// A w x h copy of the device's pixels from (x, y). Beyond the picture the copy is transparent,
// or, when `pad`, repeats the edge pixels (a resampling filter then never blends in the outside).
Bitmap CopyArea(cairo_t* cr, double x, double y, int32_t w, int32_t h, cairo_filter_t filter, bool pad)
{
    std::vector<uint32_t> pixels;
    if (!codecs::IsAcceptableImageSize(w, h))
        return Bitmap();
    pixels.assign(size_t(w) * size_t(h), 0);
    cairo_surface_t* to = cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixels.data()),
                                                              CAIRO_FORMAT_ARGB32, w, h, w * 4);
    cairo_surface_t* from = cairo_get_target(cr);
    cairo_surface_flush(from);
    cairo_t* copy = cairo_create(to);
    cairo_set_operator(copy, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(copy, from, -x, -y);
    cairo_pattern_set_filter(cairo_get_source(copy), filter);
    if (pad)
        cairo_pattern_set_extend(cairo_get_source(copy), CAIRO_EXTEND_PAD);
    cairo_paint(copy);
    cairo_destroy(copy);
    cairo_surface_destroy(to);
    return Bitmap(TamSize(w, h), std::move(pixels));
}

} // namespace

void OutputDevice::DrawBitmap(const TamPoint& pos, const Bitmap& bitmap)
{
    DeviceGraphics g(*this);
    cairo_surface_t* s = g && Drawable(double(pos.x), double(pos.y)) ? BitmapSurface(bitmap) : nullptr;
    if (s)
        PaintSurface(g.cr(), s, pos.x, pos.y, cairo_image_surface_get_width(s), cairo_image_surface_get_height(s),
                     CAIRO_FILTER_NEAREST);
}

void OutputDevice::DrawBitmapTransparent(const TamPoint& pos, const Bitmap& bitmap, const TamColor& key)
{
    const codecs::PixelImage* image = ShownImage(bitmap);
    if (!image)
        return;
    // Opaque pixels are stored as 0xFFRRGGBB, so one comparison finds the key colour.
    const uint32_t keyed = 0xFF000000u | key.GetLongReversed();
    std::vector<uint32_t> pixels(image->pixels);
    for (uint32_t& p : pixels)
        if (p == keyed)
            p = 0;
    DrawBitmap(pos, Bitmap(TamSize(image->width, image->height), std::move(pixels)));
}

void OutputDevice::DrawBitmapScaled(const CRectangle& r, const Bitmap& bitmap)
{
    DeviceGraphics g(*this);
    Box b;
    cairo_surface_t* s = g && ToBox(r, b) ? BitmapSurface(bitmap) : nullptr;
    if (s)
        PaintSurface(g.cr(), s, b.x, b.y, b.w, b.h, CAIRO_FILTER_NEAREST);
}

Bitmap OutputDevice::GetBitmap(const CRectangle& r)
{
    DeviceGraphics g(*this);
    Box b;
    if (!g || !ToBox(r, b))
        return Bitmap();
    return CopyArea(g.cr(), b.x, b.y, int32_t(b.w), int32_t(b.h), CAIRO_FILTER_NEAREST, false);
}

bool OutputDevice::DrawBitmapHQ(const FPoint& pos, const FSize& size, const Bitmap& bitmap)
{
    HQGraphics g(*this, Smoothing::HighQuality);
    if (!g)
        return false;
    if (!Drawable(pos.x, pos.y, size.width, size.height))
        return g.Reject();
    cairo_surface_t* s = BitmapSurface(bitmap);
    if (s && size.width > 0 && size.height > 0)
        PaintSurface(g.cr(), s, pos.x, pos.y, size.width, size.height, CAIRO_FILTER_BEST);
    else if (s)
        cairo_surface_destroy(s);
    return g.Finish();
}

Bitmap OutputDevice::GetBitmapHQ(const FPoint& pos, const FSize& size)
{
    DeviceGraphics g(*this);
    if (!g || !Drawable(pos.x, pos.y, size.width, size.height) || size.width < 1 || size.height < 1)
        return Bitmap();
    return CopyArea(g.cr(), pos.x, pos.y, int32_t(size.width), int32_t(size.height), CAIRO_FILTER_BEST, true);
}

} // namespace vesk
