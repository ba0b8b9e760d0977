#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>
#include <vesk/values/TamPoint.hpp>
#include <vesk/values/TamSize.hpp>

#include <cstdint>

namespace vesk {

// The empty marker: a CRectangle whose right or bottom edge holds it is empty.
inline constexpr int32_t RECT_EMPTY = INT32_MIN;

// An integer rectangle with inclusive edges (left 10 to right 19 is 10 wide). Edges need not
// be ordered; an inverted rectangle has a negative width. The width is 0 only when right is
// the empty marker, otherwise right - left + 1 (d >= 0) or right - left - 1 (d < 0); the
// height likewise. Arithmetic wraps around and does not protect the marker unless stated.
class VESK_API CRectangle {
public:
    // An empty rectangle at the origin.
    CRectangle() = default;
    // Edges stored as given.
    CRectangle(int32_t left, int32_t top, int32_t right, int32_t bottom)
        : m_nLeft(left), m_nTop(top), m_nRight(right), m_nBottom(bottom)
    {
    }
    // From two corners, stored as given.
    CRectangle(const TamPoint& topLeft, const TamPoint& bottomRight)
        : CRectangle(topLeft.x, topLeft.y, bottomRight.x, bottomRight.y)
    {
    }
    // From a position and a size; a zero width or height gives the empty marker, a negative
    // one an edge at pos + size - 1.
    CRectangle(const TamPoint& pos, const TamSize& size);

    int32_t Left() const { return m_nLeft; }
    int32_t& Left() { return m_nLeft; }
    int32_t Top() const { return m_nTop; }
    int32_t& Top() { return m_nTop; }
    int32_t Right() const { return m_nRight; }
    int32_t& Right() { return m_nRight; }
    int32_t Bottom() const { return m_nBottom; }
    int32_t& Bottom() { return m_nBottom; }

    // Width by the inclusive rule above.
    int32_t GetWidth() const;
    // Height by the inclusive rule above.
    int32_t GetHeight() const;
    // (GetWidth(), GetHeight()).
    TamSize GetSize() const { return TamSize(GetWidth(), GetHeight()); }
    // Whether right or bottom holds the empty marker.
    bool IsEmpty() const { return m_nRight == RECT_EMPTY || m_nBottom == RECT_EMPTY; }

    // (left, top).
    TamPoint GetPos() const { return TamPoint(m_nLeft, m_nTop); }
    // (left, top).
    TamPoint TopLeft() const { return GetPos(); }
    // (right, top); left stands in for an empty right.
    TamPoint TopRight() const;
    // (left, bottom); top stands in for an empty bottom.
    TamPoint BottomLeft() const;
    // (right, bottom) with the substitutions of TopRight and BottomLeft.
    TamPoint BottomRight() const;
    // Midpoint, halves truncated toward zero; (left, top) when empty.
    TamPoint Center() const;
    // Middle of the upper edge of the ordered rectangle; (left, top) when empty.
    TamPoint TopCenter() const;
    // Middle of the lower edge of the ordered rectangle; (left, top) when empty.
    TamPoint BottomCenter() const;
    // Middle of the left edge of the ordered rectangle; (left, top) when empty.
    TamPoint LeftCenter() const;
    // Middle of the right edge of the ordered rectangle; (left, top) when empty.
    TamPoint RightCenter() const;

    // Moves the top-left corner to p (an empty edge stays empty); returns the old position.
    TamPoint ChangePos(const TamPoint& p);
    // Gives the rectangle size s from its top-left corner; returns the old size.
    TamSize ChangeSize(const TamSize& s);
    // ChangeSize with (w, bottom - top): the bottom edge moves up by one.
    void SetWidth(int32_t w);
    // ChangeSize with (right - left, h): the right edge moves left by one.
    void SetHeight(int32_t h);
    // Shifts all four edges, markers included.
    void Move(int32_t dx, int32_t dy);
    // Grows each side by half the amount, truncated toward zero.
    void Inflate(int32_t dx, int32_t dy);
    // Multiplies the edges, each rounded as trunc(edge * factor + 0.5).
    void Scale(double sx, double sy);
    // Orders left/right and top/bottom unless the larger edge is the empty marker.
    void Justify();

    // Intersects in place; an empty result is the canonical empty rectangle at the origin.
    CRectangle& Intersection(const CRectangle& r);
    // The intersection, on a copy.
    CRectangle GetIntersection(const CRectangle& r) const;
    // Grows in place to the bounding box of both (see the source for unordered edges).
    CRectangle& Union(const CRectangle& r);
    // The union, on a copy.
    CRectangle GetUnion(const CRectangle& r) const;
    // Whether the intersection with r is not empty.
    bool Overlaps(const CRectangle& r) const;

    // Whether p lies within the edges, inclusive, in whichever order they stand.
    bool IsInside(const TamPoint& p) const;
    // Whether both r.TopLeft() and r.BottomRight() lie inside.
    bool IsInside(const CRectangle& r) const;
    // Clamps p to the edges. Always returns false: callers use only the clamping.
    bool MakeInside(TamPoint& p) const;

    // All four fields compared: empty rectangles at different positions differ.
    bool operator==(const CRectangle&) const = default;

    // "l=0, r=9, t=0, b=4, WID=9, HGT=4": the printed width and height are the plain
    // differences right - left and bottom - top, not the inclusive extents.
    SString GetStr() const;

private:
    int32_t m_nLeft = 0;
    int32_t m_nTop = 0;
    int32_t m_nRight = RECT_EMPTY;
    int32_t m_nBottom = RECT_EMPTY;
};

} // namespace vesk
