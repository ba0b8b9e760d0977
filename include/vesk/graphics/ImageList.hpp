#pragma once

#include <vesk/export.hpp>
#include <vesk/graphics/Bitmap.hpp>
#include <vesk/graphics/TamColor.hpp>

#include <cstdint>
#include <vector>

namespace vesk {

// The images of a tool bar or a list: bitmaps, each with the colour that stands for
// transparent when it is drawn as an opaque picture. Copies share the bitmaps.
class VESK_API ImageList
{
public:
    // Appends the image; returns the new count.
    uint32_t Add(const Bitmap& image, const TamColor& transparent);
    uint32_t Count() const { return uint32_t(m_aImages.size()); }
    // The image at `index`; an empty bitmap beyond the count.
    Bitmap GetBitmap(uint32_t index) const;
    // Its transparent colour; white beyond the count.
    TamColor GetTransparentColor(uint32_t index) const;
    void Clear() { m_aImages.clear(); }

private:
    struct Entry
    {
        Bitmap image;
        TamColor transparent;
    };
    std::vector<Entry> m_aImages;
};

} // namespace vesk
