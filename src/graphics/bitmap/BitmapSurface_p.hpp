#pragma once

// Cairo surfaces over bitmap pixels, without copying them (the picture form is Cairo's ARGB32).

#include "graphics/bitmap/BitmapRecord_p.hpp"

#include <cairo.h>

namespace vesk {

// The picture, or the opaque view when there is no picture; null when neither has pixels.
const codecs::PixelImage* ShownImage(const Bitmap& bitmap);
// A surface over the image's own pixels; Cairo only reads them when it is used as a source.
cairo_surface_t* SurfaceOf(const codecs::PixelImage& image);
// The picture's surface, or the opaque view's when there is no picture; null when empty.
cairo_surface_t* BitmapSurface(const Bitmap& bitmap);
// Paints the image surface `source` with cr's operator onto the rectangle (x, y, w, h),
// scaled from its own size. Its edge pixels extend outward, so a resampling filter never
// fades the border with the transparent outside.
void PaintScaled(cairo_t* cr, cairo_surface_t* source, double x, double y, double w, double h, cairo_filter_t filter);

} // namespace vesk
