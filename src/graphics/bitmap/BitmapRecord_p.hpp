#pragma once

// The record that copies of a Bitmap share, and the helpers the bitmap sources use on it.

#include <vesk/graphics/Bitmap.hpp>

#include "graphics/codecs/Argb_p.hpp"
#include "graphics/codecs/ImageCodec_p.hpp"

#include <atomic>
#include <optional>

namespace vesk {

struct BitmapRecord
{
    // Further Bitmaps sharing the record: 0 for a single owner.
    std::atomic<int32_t> nShareCount{0};
    // The picture (premultiplied ARGB).
    std::optional<codecs::PixelImage> picture;
    // The opaque view: alpha 255 everywhere.
    std::optional<codecs::PixelImage> opaque;
};

struct BitmapAccess
{
    static BitmapRecord* Record(const Bitmap& b) { return b.m_pRecord; }
    // The picture, or null.
    static const codecs::PixelImage* Picture(const Bitmap& b)
    {
        return b.m_pRecord && b.m_pRecord->picture ? &*b.m_pRecord->picture : nullptr;
    }
    static codecs::PixelImage* Picture(Bitmap& b)
    {
        return b.m_pRecord && b.m_pRecord->picture ? &*b.m_pRecord->picture : nullptr;
    }
    // A bitmap holding `image` as its picture (empty for an empty image).
    static Bitmap FromImage(codecs::PixelImage&& image);
};

// A view of a picture.
inline BitmapPixels ViewOf(const codecs::PixelImage& image, bool premultiplied)
{
    return {image.width, image.height, image.width, image.pixels.data(), premultiplied};
}

// A picture of `width` x `height` in transparent black; false when the size cannot be held.
bool MakeBlankImage(int32_t width, int32_t height, codecs::PixelImage& image);

} // namespace vesk
