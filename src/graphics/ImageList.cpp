#include <vesk/graphics/ImageList.hpp>

namespace vesk {

uint32_t ImageList::Add(const Bitmap& image, const TamColor& transparent)
{
    m_aImages.push_back({image, transparent});
    return Count();
}

Bitmap ImageList::GetBitmap(uint32_t index) const
{
    return index < m_aImages.size() ? m_aImages[index].image : Bitmap();
}

TamColor ImageList::GetTransparentColor(uint32_t index) const
{
    return index < m_aImages.size() ? m_aImages[index].transparent : TamColor();
}

} // namespace vesk
