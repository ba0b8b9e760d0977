#pragma once

#include <vesk/export.hpp>
#include <vesk/graphics/TamColor.hpp>

#include <array>
#include <cstdint>
#include <memory>

namespace vesk {

class Bitmap;
class RectGradient;

// What a brush fills with.
enum class BrushKind : uint8_t {
    Null,     // nothing
    Solid,    // one colour
    Pattern,  // an 8 x 8 two-colour bit pattern (hatches are such patterns)
    Gradient, // a RectGradient fitted to each filled shape's bounds
    Bitmap,   // a picture repeated from the device's origin
};

// The hatch patterns, with fixed numbers (0 to 5).
enum class HatchStyle : uint8_t {
    Horizontal = 0,
    Vertical = 1,
    ForwardDiagonal = 2,
    BackwardDiagonal = 3,
    Cross = 4,
    DiagonalCross = 5,
};

// Eight rows of eight pixels, row 0 on top, bit 7 the leftmost pixel; a set bit draws the
// foreground colour, a clear one the background (or nothing when it is transparent).
using BrushPattern = std::array<uint8_t, 8>;

// The fill tool. Copies share the gradient or picture, which a brush never changes.
class VESK_API Brush
{
public:
    // The null brush: fills nothing.
    Brush() = default;
    // A solid colour.
    explicit Brush(const TamColor& color) : m_eKind(BrushKind::Solid), m_aColor(color) {}
    // A hatch in `fore` over `back`, or over nothing when `transparentBack`.
    Brush(HatchStyle hatch, const TamColor& fore, const TamColor& back,
          bool transparentBack = false);
    // A bit pattern in `fore` over `back`, or over nothing when `transparentBack`.
    Brush(const BrushPattern& pattern, const TamColor& fore, const TamColor& back,
          bool transparentBack = false);
    // A copy of `gradient`.
    explicit Brush(const RectGradient& gradient);
    // Tiles of `bitmap`'s picture (a bitmap without pixels fills nothing).
    explicit Brush(const vesk::Bitmap& bitmap);

    BrushKind GetKind() const { return m_eKind; }
    // The solid colour, a pattern's foreground, a gradient's average colour, or the mean
    // colour of a picture's opaque view.
    TamColor GetColor() const;
    const TamColor& GetBackColor() const { return m_aBackColor; }
    bool IsBackTransparent() const { return m_bTransparentBack; }
    const BrushPattern& GetPattern() const { return m_aPattern; }
    // The gradient of a gradient brush, else null.
    const RectGradient* GetGradient() const { return m_pGradient.get(); }
    // The bitmap of a bitmap brush, else null.
    const vesk::Bitmap* GetBitmap() const { return m_pBitmap.get(); }

    // The bit pattern of a hatch style (all clear for a value outside the enumeration).
    static BrushPattern HatchPattern(HatchStyle hatch);

private:
    static TamColor MeanColor(const vesk::Bitmap& bitmap);

    BrushKind m_eKind = BrushKind::Null;
    TamColor m_aColor;
    TamColor m_aBackColor;
    bool m_bTransparentBack = false;
    BrushPattern m_aPattern{};
    std::shared_ptr<const RectGradient> m_pGradient;
    std::shared_ptr<const vesk::Bitmap> m_pBitmap;
};

} // namespace vesk
