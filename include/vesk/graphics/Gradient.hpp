#pragma once

#include <vesk/export.hpp>
#include <vesk/graphics/ColorPair.hpp>
#include <vesk/graphics/GradientBrush.hpp>
#include <vesk/graphics/Pen.hpp>
#include <vesk/graphics/Polygon.hpp>
#include <vesk/graphics/TamColor.hpp>
#include <vesk/values/CRectangle.hpp>
#include <vesk/values/FRectangle.hpp>

#include <cstdint>

namespace vesk {

// A two-colour fill: colour 0 at the start, colour 1 at the end. The base class runs from the
// top edge of the filled rectangle down to its bottom edge.
class VESK_API RectGradient
{
public:
    // White to white.
    RectGradient() = default;
    explicit RectGradient(const ColorPair& colors) : m_aColors(colors) {}
    RectGradient(const RectGradient&) = default;
    RectGradient& operator=(const RectGradient&) = default;
    virtual ~RectGradient() = default;

    // Per channel (2 * colour 0 + colour 1) / 3, leaning toward the start colour.
    virtual TamColor GetAverageColor() const;
    // The fill for rectangle r: a tiled linear gradient from (left, top) in colour 0 to
    // (left, bottom) in colour 1; an empty bottom gives top (a degenerate gradient).
    virtual GradientBrush CreateGdiplusBrush(const CRectangle& r) const;
    // A new copy of the same class; the caller deletes it.
    virtual RectGradient* Clone() const;

    const ColorPair& GetColors() const { return m_aColors; }
    void SetColors(const ColorPair& colors) { m_aColors = colors; }
    // The pen that users of the gradient outline the filled shape with.
    void SetPen(const Pen& pen) { m_aPen = pen; }
    const Pen& GetPen() const { return m_aPen; }

protected:
    // Copies the base-class fields, as the base assignment does.
    void Copy(const RectGradient& other) { RectGradient::operator=(other); }

    ColorPair m_aColors;
    // Placement of the gradient within the filled area, kept and copied with it for the
    // controls that paint gradient backgrounds; brush creation does not read them. An offset
    // in pixels, a scale in percent, a shift in pixels and a fixed reference size (the
    // empty mark: the filled area's own size).
    int32_t m_nOffsetX = 0, m_nOffsetY = 0;
    int32_t m_nScaleX = 100, m_nScaleY = 100;
    int32_t m_nShiftX = 0, m_nShiftY = 0;
    int32_t m_nRefWidth = RECT_EMPTY, m_nRefHeight = RECT_EMPTY;
    Pen m_aPen;
};

// A linear gradient from the filled rectangle's top-left corner to GetEndPoint.
class VESK_API LinearRectGradient : public RectGradient
{
public:
    explicit LinearRectGradient(const ColorPair& colors) : RectGradient(colors) {}
    LinearRectGradient(const LinearRectGradient&) = default;
    LinearRectGradient& operator=(const LinearRectGradient&) = default;

    GradientBrush CreateGdiplusBrush(const CRectangle& r) const override;
    RectGradient* Clone() const override;
    // Where colour 1 is reached; the base runs down to one pixel below the bottom edge.
    virtual TamPoint GetEndPoint(const CRectangle& r) const;
};

// Left to right, reaching colour 1 one pixel beyond the right edge.
class VESK_API HorizontalGradient : public LinearRectGradient
{
public:
    explicit HorizontalGradient(const ColorPair& colors) : LinearRectGradient(colors) {}
    HorizontalGradient(const HorizontalGradient&) = default;
    HorizontalGradient& operator=(const HorizontalGradient&) = default;
    RectGradient* Clone() const override;
    TamPoint GetEndPoint(const CRectangle& r) const override;
};

// Top to bottom, reaching colour 1 one pixel below the bottom edge.
class VESK_API VerticalGradient : public LinearRectGradient
{
public:
    explicit VerticalGradient(const ColorPair& colors) : LinearRectGradient(colors) {}
    VerticalGradient(const VerticalGradient&) = default;
    VerticalGradient& operator=(const VerticalGradient&) = default;
    RectGradient* Clone() const override;
    TamPoint GetEndPoint(const CRectangle& r) const override;
};

// Top-left to one pixel beyond the bottom-right corner.
class VESK_API DiagonalGradient : public LinearRectGradient
{
public:
    explicit DiagonalGradient(const ColorPair& colors) : LinearRectGradient(colors) {}
    DiagonalGradient(const DiagonalGradient&) = default;
    DiagonalGradient& operator=(const DiagonalGradient&) = default;
    RectGradient* Clone() const override;
    TamPoint GetEndPoint(const CRectangle& r) const override;
};

// A path gradient: the centre colour at a centre point, blending out to the path's edge.
// Along the edge the colour runs from colour 0 at the top of the path's bounds to colour 1
// at its bottom, as the base class's vertical gradient does. A rectangle's path covers its
// pixels (right and bottom edges one beyond, as the linear end points are); an ellipse is
// the one inscribed in the FRectangle, its edge made of four cubic arcs. Without
// anti-aliasing (the default) the filled shape has hard pixel edges.
class VESK_API CenterPointGradient : public RectGradient
{
public:
    CenterPointGradient(const ColorPair& colors, const TamColor& center)
        : RectGradient(colors), m_aCenterColor(center)
    {
    }
    CenterPointGradient(const CenterPointGradient&) = default;
    CenterPointGradient& operator=(const CenterPointGradient&) = default;

    GradientBrush CreateGdiplusBrush(const CRectangle& r) const override;
    RectGradient* Clone() const override;
    // The path gradient over rectangle r (same as CreateGdiplusBrush).
    GradientBrush CreatePathGradientBrush(const CRectangle& r) const;
    // Over polygon p; invalid with fewer than three points.
    GradientBrush CreatePathGradientBrush(const CPolygon& p) const;
    // Over the ellipse inscribed in r; invalid for an empty or non-finite rectangle.
    GradientBrush CreateEllipticPathGradientBrush(const FRectangle& r) const;

    // The centre of r: (left + (right - left) * x% / 100, top + (bottom - top) * y% / 100)
    // in integer arithmetic.
    TamPoint GetCenterPoint(const CRectangle& r) const;
    void SetCenterPercent(int32_t x, int32_t y)
    {
        m_nCenterX = x;
        m_nCenterY = y;
    }
    void SetAntiAliasing(bool on) { m_bAntiAlias = on; }
    bool IsAntiAliasing() const { return m_bAntiAlias; }
    const TamColor& GetCenterColor() const { return m_aCenterColor; }

private:
    TamColor m_aCenterColor;
    int32_t m_nCenterX = 50;
    int32_t m_nCenterY = 50;
    bool m_bAntiAlias = false;
};

} // namespace vesk
