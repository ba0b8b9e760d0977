#pragma once

// Reading what tests drew or captured on cairo ARGB32 image surfaces.

#include <cairo.h>

#include <cstdint>

namespace vesk::test {

// Pixel (x, y) of an image surface as 0xAARRGGBB, premultiplied.
inline uint32_t SurfacePixel(cairo_surface_t* image, int x, int y)
{
    cairo_surface_flush(image);
    return reinterpret_cast<const uint32_t*>(cairo_image_surface_get_data(image) +
                                             y * cairo_image_surface_get_stride(image))[x];
}

} // namespace vesk::test
