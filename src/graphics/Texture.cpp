#include <vesk/graphics/Gradient.hpp>
#include <vesk/graphics/Texture.hpp>

namespace vesk {

Texture::Texture(const TamColor& color, uint16_t opacityPercent)
    : m_eKind(Kind::Color), m_aBrush(color), m_nOpacity(opacityPercent)
{
}

Texture::Texture(const vesk::Brush& brush, uint16_t opacityPercent)
    : m_eKind(Kind::Brush), m_aBrush(brush), m_nOpacity(opacityPercent)
{
}

Texture::Texture(const RectGradient& gradient, uint16_t opacityPercent)
    : m_eKind(Kind::Gradient), m_aBrush(gradient), m_nOpacity(opacityPercent)
{
}

Texture::Texture(const vesk::Bitmap& bitmap, uint16_t opacityPercent)
    : m_eKind(Kind::Bitmap), m_aBrush(bitmap), m_nOpacity(opacityPercent)
{
}

TamColor Texture::GetColor() const
{
    return m_aBrush.GetColor();
}

} // namespace vesk
