#include "graphics/gif/GifCanvas_p.hpp"

#include "graphics/DeviceGraphics_p.hpp"

#include <vesk/graphics/OutputDevice.hpp>

namespace vesk {

cairo_surface_t* FrameSurface(const GifFrame& frame, uint32_t keyColor)
{
    if (frame.IsEmpty())
        return nullptr;
    const int w = frame.GetWidth(), h = frame.GetHeight();
    cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, w, h);
    if (cairo_surface_status(s) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(s);
        return nullptr;
    }
    // Palette entries are blue, green, red, 0; each becomes one opaque ARGB word, or 0 when it
    // is the key colour.
    uint32_t argb[256];
    const uint8_t* pal = frame.GetPalette();
    for (int i = 0; i < 256; ++i) {
        const uint8_t b = pal[4 * i], g = pal[4 * i + 1], r = pal[4 * i + 2];
        const uint32_t colorRef = r | uint32_t{g} << 8 | uint32_t{b} << 16;
        argb[i] = colorRef == keyColor ? 0u : 0xFF000000u | uint32_t{r} << 16 | uint32_t{g} << 8 | b;
    }
    cairo_surface_flush(s);
    unsigned char* data = cairo_image_surface_get_data(s);
    const int stride = cairo_image_surface_get_stride(s);
    for (int y = 0; y < h; ++y) {
        const uint8_t* src = frame.GetPixels() + size_t(y) * frame.GetStride();
        uint32_t* dst = reinterpret_cast<uint32_t*>(data + size_t(y) * stride);
        for (int x = 0; x < w; ++x)
            dst[x] = argb[src[x]];
    }
    cairo_surface_mark_dirty(s);
    return s;
}

void DrawFrame(OutputDevice& device, const GifFrame& frame, const TamPoint& at, bool opaque, uint32_t keyColor)
{
    DeviceGraphics g(device);
    cairo_surface_t* s = g ? FrameSurface(frame, keyColor) : nullptr;
    if (!s)
        return;
    cairo_t* cr = g.cr();
    if (opaque)
        cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cr, s, at.x, at.y);
    cairo_rectangle(cr, at.x, at.y, frame.GetWidth(), frame.GetHeight());
    cairo_fill(cr);
    cairo_surface_destroy(s);
}

} // namespace vesk
