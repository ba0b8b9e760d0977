#include "graphics/bitmap/BitmapSurface_p.hpp"

namespace vesk {

cairo_surface_t* SurfaceOf(const codecs::PixelImage& image)
{
    return cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(const_cast<uint32_t*>(image.pixels.data())), CAIRO_FORMAT_ARGB32,
        image.width, image.height, image.width * 4);
}

const codecs::PixelImage* ShownImage(const Bitmap& bitmap)
{
    const BitmapRecord* record = BitmapAccess::Record(bitmap);
    const codecs::PixelImage* image = !record ? nullptr : record->picture ? &*record->picture
                                                        : record->opaque ? &*record->opaque : nullptr;
    return image && !image->pixels.empty() ? image : nullptr;
}

cairo_surface_t* BitmapSurface(const Bitmap& bitmap)
{
    const codecs::PixelImage* image = ShownImage(bitmap);
    return image ? SurfaceOf(*image) : nullptr;
}

void PaintScaled(cairo_t* cr, cairo_surface_t* source, double x, double y, double w, double h, cairo_filter_t filter)
{
    const int sw = cairo_image_surface_get_width(source), sh = cairo_image_surface_get_height(source);
    cairo_save(cr);
    cairo_rectangle(cr, x, y, w, h);
    cairo_clip(cr);
    cairo_translate(cr, x, y);
    cairo_scale(cr, w / sw, h / sh);
    cairo_set_source_surface(cr, source, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cr), filter);
    cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
    cairo_paint(cr);
    cairo_restore(cr);
}

} // namespace vesk
