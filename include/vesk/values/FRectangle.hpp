#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>
#include <vesk/values/CRectangle.hpp>
#include <vesk/values/FPoint.hpp>

namespace vesk {

// The empty marker of FRectangle: a right or bottom edge holding exactly this is empty.
inline constexpr double FRECT_EMPTY = -2147483648.0;

// A floating-point rectangle with exclusive edges: width = right - left, 0.0 for an empty
// right; height likewise. Conversions to integers give -2147483648 for NaN and values
// outside the 32-bit range.
class VESK_API FRectangle {
public:
    // An empty rectangle at the origin.
    FRectangle() = default;
    // Edges stored as given.
    FRectangle(double left, double top, double right, double bottom)
        : m_fLeft(left), m_fTop(top), m_fRight(right), m_fBottom(bottom)
    {
    }
    // From two corners, stored as given.
    FRectangle(const FPoint& topLeft, const FPoint& bottomRight)
        : FRectangle(topLeft.x, topLeft.y, bottomRight.x, bottomRight.y)
    {
    }
    // From a position and a size; a zero width or height gives the empty marker.
    FRectangle(const FPoint& pos, const FSize& size);
    // Inclusive to exclusive edges: right and bottom grow by one. An empty rectangle is not
    // special-cased, so its right becomes -2147483647.0, which is not the marker.
    explicit FRectangle(const CRectangle& r);

    double Left() const { return m_fLeft; }
    double& Left() { return m_fLeft; }
    double Top() const { return m_fTop; }
    double& Top() { return m_fTop; }
    double Right() const { return m_fRight; }
    double& Right() { return m_fRight; }
    double Bottom() const { return m_fBottom; }
    double& Bottom() { return m_fBottom; }

    // right - left, or 0.0 for an empty right.
    double Width() const;
    // bottom - top, or 0.0 for an empty bottom.
    double Height() const;
    // Same as Width().
    double GetWidth() const { return Width(); }
    // Same as Height().
    double GetHeight() const { return Height(); }
    // (Width(), Height()).
    FSize GetSize() const { return FSize(Width(), Height()); }
    // Whether right or bottom equals the empty marker exactly.
    bool IsEmpty() const { return m_fRight == FRECT_EMPTY || m_fBottom == FRECT_EMPTY; }

    // (left, top).
    FPoint TopLeft() const { return FPoint(m_fLeft, m_fTop); }
    // (right, top); left stands in for an empty right.
    FPoint TopRight() const;
    // (left, bottom); top stands in for an empty bottom.
    FPoint BottomLeft() const;
    // (right, bottom) with the substitutions of TopRight and BottomLeft.
    FPoint BottomRight() const;

    // Shifts all four edges, markers included.
    void Move(double dx, double dy);
    // Shifts all four edges by p.
    FRectangle& operator+=(const FPoint& p);
    // Grows each side by half the amount, so the total grows by dx and dy.
    void Inflate(double dx, double dy);
    // Every edge multiplied; a right or bottom holding the marker keeps it.
    FRectangle operator*(double factor) const;
    // Moves by whole units so that the top-left corner lies in [0, 1) with a tolerance of 0.01.
    void MoveToFloor();

    // Each edge as trunc(edge + 0.5); nothing is subtracted from right and bottom, so a
    // CRectangle -> FRectangle -> CRectangle round trip grows them by one.
    CRectangle GetRectangle() const;
    // (trunc(left + 0.01), trunc(top + 0.01), trunc(right - 0.01), trunc(bottom - 0.01)).
    CRectangle GetBoundingRect() const;

    // Exact comparison of the four edges.
    bool operator==(const FRectangle&) const = default;

    // "(left, top)/(right, bottom)", each as "%4.2f".
    SString GetStr() const;

private:
    double m_fLeft = 0.0;
    double m_fTop = 0.0;
    double m_fRight = FRECT_EMPTY;
    double m_fBottom = FRECT_EMPTY;
};

} // namespace vesk
