#include <vesk/graphics/Font.hpp>

#include <algorithm>

namespace vesk {

int32_t Font::GetDrawHeight() const
{
    return std::clamp(m_nHeight, 1, MAX_FONT_HEIGHT);
}

bool Font::operator==(const Font& o) const
{
    return m_aFace == o.m_aFace && m_nHeight == o.m_nHeight && m_nWeight == o.m_nWeight &&
           m_bItalic == o.m_bItalic && m_bUnderline == o.m_bUnderline &&
           m_bStrikeout == o.m_bStrikeout && m_bTransparent == o.m_bTransparent &&
           m_aColor == o.m_aColor && m_aFillColor == o.m_aFillColor;
}

} // namespace vesk
