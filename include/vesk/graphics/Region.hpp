#pragma once

#include <vesk/export.hpp>
#include <vesk/values/CRectangle.hpp>
#include <vesk/values/TamPoint.hpp>

namespace vesk {

struct RegionData;

// A set of pixels made of rectangles (inclusive edges), as clip and fill areas use.
// Rectangles are ordered before use (right < left swaps the edges); empty rectangles add
// nothing; coordinates are limited to +-(2^30 - 1) so that extents cannot overflow.
class VESK_API Region
{
public:
    // The empty region.
    Region();
    explicit Region(const CRectangle& r);
    Region(const Region& other);
    Region(Region&& other) noexcept;
    Region& operator=(const Region& other);
    Region& operator=(Region&& other) noexcept;
    ~Region();

    bool IsEmpty() const;
    // The bounding rectangle; the empty rectangle at the origin for an empty region.
    CRectangle GetBoundRect() const;
    // Number of disjoint rectangles the region is kept as, and rectangle i of them (the
    // empty rectangle for an index out of range).
    int GetRectCount() const;
    CRectangle GetRect(int i) const;

    Region& Union(const Region& other);
    Region& Union(const CRectangle& r);
    Region& Intersect(const Region& other);
    Region& Intersect(const CRectangle& r);
    Region& Subtract(const Region& other);
    Region& Subtract(const CRectangle& r);
    // Shifts every pixel by (dx, dy); pixels that would leave the coordinate limits are
    // dropped.
    Region& Move(int32_t dx, int32_t dy);
    // Whether pixel p belongs to the region.
    bool IsInside(const TamPoint& p) const;
    // The same pixels.
    bool operator==(const Region& other) const;

private:
    friend struct RegionAccess;
    RegionData* m_pData;
};

} // namespace vesk
