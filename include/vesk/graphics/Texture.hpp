#pragma once

#include <vesk/export.hpp>
#include <vesk/graphics/Brush.hpp>
#include <vesk/graphics/TamColor.hpp>

#include <cstdint>

namespace vesk {

class RectGradient;

// What Erase paints: a colour, a brush, a gradient or a bitmap, at an opacity in percent (100 opaque,
// values above 100 count as 100).
class VESK_API Texture
{
public:
    enum class Kind : uint8_t { Color, Brush, Gradient, Bitmap };

    // Opaque white.
    Texture() = default;
    explicit Texture(const TamColor& color, uint16_t opacityPercent = 100);
    explicit Texture(const vesk::Brush& brush, uint16_t opacityPercent = 100);
    explicit Texture(const RectGradient& gradient, uint16_t opacityPercent = 100);
    // The picture repeated from the device's origin.
    explicit Texture(const vesk::Bitmap& bitmap, uint16_t opacityPercent = 100);

    Kind GetKind() const { return m_eKind; }
    // The colour, the brush's colour, or the gradient's average colour.
    TamColor GetColor() const;
    // The brush that paints the texture: solid for a colour, the gradient's for a gradient.
    const vesk::Brush& GetBrush() const { return m_aBrush; }
    uint16_t GetOpacity() const { return m_nOpacity; }
    void SetOpacity(uint16_t opacityPercent) { m_nOpacity = opacityPercent; }

private:
    Kind m_eKind = Kind::Color;
    vesk::Brush m_aBrush{TamColor()};
    uint16_t m_nOpacity = 100;
};

} // namespace vesk
