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

} // namespace vesk
