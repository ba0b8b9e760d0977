#include <vesk/graphics/Region.hpp>

#include "graphics/Cairo_p.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstdint>

namespace vesk {
namespace {

constexpr int64_t kLimit = (int64_t(1) << 30) - 1;

cairo_region_t* Native(RegionData* d)
{
    return reinterpret_cast<cairo_region_t*>(d);
}

RegionData* Wrap(cairo_region_t* r)
{
    return reinterpret_cast<RegionData*>(r);
}

// The pixels of r as Cairo's (x, y, width, height); false for an empty rectangle.
bool ToCairo(const CRectangle& r, cairo_rectangle_int_t& out)
{
    if (r.IsEmpty())
        return false;
    auto clamp = [](int64_t v) { return std::clamp<int64_t>(v, -kLimit, kLimit); };
    int64_t l = clamp(std::min(r.Left(), r.Right())), rr = clamp(std::max(r.Left(), r.Right()));
    int64_t t = clamp(std::min(r.Top(), r.Bottom())), b = clamp(std::max(r.Top(), r.Bottom()));
    out = {int(l), int(t), int(rr - l + 1), int(b - t + 1)};
    return true;
}

cairo_region_t* FromRect(const CRectangle& r)
{
    cairo_rectangle_int_t c;
    return ToCairo(r, c) ? cairo_region_create_rectangle(&c) : cairo_region_create();
}

CRectangle FromCairo(const cairo_rectangle_int_t& c)
{
    return CRectangle(c.x, c.y, c.x + c.width - 1, c.y + c.height - 1);
}

} // namespace

Region::Region() : m_pData(Wrap(cairo_region_create())) {}

Region::Region(const CRectangle& r) : m_pData(Wrap(FromRect(r))) {}

Region::Region(const Region& other) : m_pData(Wrap(cairo_region_copy(Native(other.m_pData)))) {}

Region::Region(Region&& other) noexcept : m_pData(Wrap(cairo_region_create()))
{
    std::swap(m_pData, other.m_pData);
}

Region& Region::operator=(const Region& other)
{
    if (this != &other) {
        cairo_region_destroy(Native(m_pData));
        m_pData = Wrap(cairo_region_copy(Native(other.m_pData)));
    }
    return *this;
}

Region& Region::operator=(Region&& other) noexcept
{
    std::swap(m_pData, other.m_pData);
    return *this;
}

Region::~Region()
{
    cairo_region_destroy(Native(m_pData));
}

bool Region::IsEmpty() const
{
    return cairo_region_is_empty(Native(m_pData));
}

CRectangle Region::GetBoundRect() const
{
    if (IsEmpty())
        return CRectangle();
    cairo_rectangle_int_t c;
    cairo_region_get_extents(Native(m_pData), &c);
    return FromCairo(c);
}

int Region::GetRectCount() const
{
    return cairo_region_num_rectangles(Native(m_pData));
}

CRectangle Region::GetRect(int i) const
{
    if (i < 0 || i >= GetRectCount())
        return CRectangle();
    cairo_rectangle_int_t c;
    cairo_region_get_rectangle(Native(m_pData), i, &c);
    return FromCairo(c);
}

Region& Region::Union(const Region& other)
{
    cairo_region_union(Native(m_pData), Native(other.m_pData));
    return *this;
}

Region& Region::Union(const CRectangle& r)
{
    cairo_rectangle_int_t c;
    if (ToCairo(r, c))
        cairo_region_union_rectangle(Native(m_pData), &c);
    return *this;
}

Region& Region::Intersect(const Region& other)
{
    cairo_region_intersect(Native(m_pData), Native(other.m_pData));
    return *this;
}

Region& Region::Intersect(const CRectangle& r)
{
    return Intersect(Region(r));
}

Region& Region::Subtract(const Region& other)
{
    cairo_region_subtract(Native(m_pData), Native(other.m_pData));
    return *this;
}

Region& Region::Subtract(const CRectangle& r)
{
    cairo_rectangle_int_t c;
    if (ToCairo(r, c))
        cairo_region_subtract_rectangle(Native(m_pData), &c);
    return *this;
}

Region& Region::Move(int32_t dx, int32_t dy)
{
    if (std::abs(int64_t(dx)) > 2 * kLimit || std::abs(int64_t(dy)) > 2 * kLimit) {
        cairo_region_destroy(Native(m_pData));
        m_pData = Wrap(cairo_region_create());
        return *this;
    }
    // Keep only what stays within the limits, then shift: no coordinate overflows int.
    Intersect(CRectangle(int32_t(std::max(-kLimit, -kLimit - dx)), int32_t(std::max(-kLimit, -kLimit - dy)),
                         int32_t(std::min(kLimit, kLimit - dx)), int32_t(std::min(kLimit, kLimit - dy))));
    cairo_region_translate(Native(m_pData), dx, dy);
    return *this;
}

bool Region::IsInside(const TamPoint& p) const
{
    return cairo_region_contains_point(Native(m_pData), p.x, p.y);
}

bool Region::operator==(const Region& other) const
{
    return cairo_region_equal(Native(m_pData), Native(other.m_pData));
}

} // namespace vesk
