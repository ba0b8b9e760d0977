#include <vesk/values/CRectangle.hpp>

#include "values/IntMath_p.hpp"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace vesk {

using namespace detail;

namespace {

// Inclusive extent from nearEdge to farEdge: there is no extent of 0 except the empty one.
int32_t Extent(int32_t nearEdge, int32_t farEdge)
{
    if (farEdge == RECT_EMPTY)
        return 0;
    const int32_t d = WrapSub(farEdge, nearEdge);
    return d >= 0 ? WrapAdd(d, 1) : WrapSub(d, 1);
}

// The far edge for an extent given as a signed size, the inverse of Extent.
int32_t SizedEdge(int32_t nearEdge, int32_t size)
{
    if (size == 0)
        return RECT_EMPTY;
    return WrapAdd(nearEdge, size < 0 ? WrapAdd(size, 1) : WrapSub(size, 1));
}

// An empty far edge is replaced by the near one wherever a corner is asked for.
int32_t FarOrNear(int32_t nearEdge, int32_t farEdge)
{
    return farEdge == RECT_EMPTY ? nearEdge : farEdge;
}

int32_t HalfWay(int32_t a, int32_t b)
{
    return WrapAdd(a, WrapSub(b, a) / 2);
}

// The middle of two edges counted from the smaller one, whatever their order.
int32_t OrderedHalfWay(int32_t a, int32_t b)
{
    return WrapAdd(std::min(a, b), std::abs(WrapSub(b, a) / 2));
}

bool IsBetween(int32_t v, int32_t a, int32_t b)
{
    return std::min(a, b) <= v && v <= std::max(a, b);
}

} // namespace

CRectangle::CRectangle(const TamPoint& pos, const TamSize& size)
    : m_nLeft(pos.x), m_nTop(pos.y)
{
    // Unlike ChangeSize, a negative size also subtracts one here.
    m_nRight = size.Width() == 0 ? RECT_EMPTY : WrapSub(WrapAdd(pos.x, size.Width()), 1);
    m_nBottom = size.Height() == 0 ? RECT_EMPTY : WrapSub(WrapAdd(pos.y, size.Height()), 1);
}

int32_t CRectangle::GetWidth() const
{
    return Extent(m_nLeft, m_nRight);
}

int32_t CRectangle::GetHeight() const
{
    return Extent(m_nTop, m_nBottom);
}

TamPoint CRectangle::TopRight() const
{
    return TamPoint(FarOrNear(m_nLeft, m_nRight), m_nTop);
}

TamPoint CRectangle::BottomLeft() const
{
    return TamPoint(m_nLeft, FarOrNear(m_nTop, m_nBottom));
}

TamPoint CRectangle::BottomRight() const
{
    return TamPoint(FarOrNear(m_nLeft, m_nRight), FarOrNear(m_nTop, m_nBottom));
}

TamPoint CRectangle::Center() const
{
    if (IsEmpty())
        return GetPos();
    return TamPoint(HalfWay(m_nLeft, m_nRight), HalfWay(m_nTop, m_nBottom));
}

TamPoint CRectangle::TopCenter() const
{
    if (IsEmpty())
        return GetPos();
    return TamPoint(OrderedHalfWay(m_nLeft, m_nRight), std::min(m_nTop, m_nBottom));
}

TamPoint CRectangle::BottomCenter() const
{
    if (IsEmpty())
        return GetPos();
    return TamPoint(OrderedHalfWay(m_nLeft, m_nRight), std::max(m_nTop, m_nBottom));
}

TamPoint CRectangle::LeftCenter() const
{
    if (IsEmpty())
        return GetPos();
    return TamPoint(std::min(m_nLeft, m_nRight), HalfWay(m_nTop, m_nBottom));
}

TamPoint CRectangle::RightCenter() const
{
    if (IsEmpty())
        return GetPos();
    return TamPoint(std::max(m_nLeft, m_nRight), HalfWay(m_nTop, m_nBottom));
}

TamPoint CRectangle::ChangePos(const TamPoint& p)
{
    const TamPoint old = GetPos();
    if (m_nRight != RECT_EMPTY)
        m_nRight = WrapAdd(m_nRight, WrapSub(p.x, m_nLeft));
    if (m_nBottom != RECT_EMPTY)
        m_nBottom = WrapAdd(m_nBottom, WrapSub(p.y, m_nTop));
    m_nLeft = p.x;
    m_nTop = p.y;
    return old;
}

TamSize CRectangle::ChangeSize(const TamSize& s)
{
    const TamSize old = GetSize();
    m_nRight = SizedEdge(m_nLeft, s.Width());
    m_nBottom = SizedEdge(m_nTop, s.Height());
    return old;
}

void CRectangle::SetWidth(int32_t w)
{
    // The plain difference is passed on as the height, so the bottom edge moves up by one.
    ChangeSize(TamSize(w, WrapSub(m_nBottom, m_nTop)));
}

void CRectangle::SetHeight(int32_t h)
{
    ChangeSize(TamSize(WrapSub(m_nRight, m_nLeft), h));
}

void CRectangle::Move(int32_t dx, int32_t dy)
{
    m_nLeft = WrapAdd(m_nLeft, dx);
    m_nRight = WrapAdd(m_nRight, dx);
    m_nTop = WrapAdd(m_nTop, dy);
    m_nBottom = WrapAdd(m_nBottom, dy);
}

void CRectangle::Inflate(int32_t dx, int32_t dy)
{
    m_nLeft = WrapSub(m_nLeft, dx / 2);
    m_nRight = WrapAdd(m_nRight, dx / 2);
    m_nTop = WrapSub(m_nTop, dy / 2);
    m_nBottom = WrapAdd(m_nBottom, dy / 2);
}

void CRectangle::Scale(double sx, double sy)
{
    m_nLeft = TruncToInt32(m_nLeft * sx + 0.5);
    m_nRight = TruncToInt32(m_nRight * sx + 0.5);
    m_nTop = TruncToInt32(m_nTop * sy + 0.5);
    m_nBottom = TruncToInt32(m_nBottom * sy + 0.5);
}

void CRectangle::Justify()
{
    if (m_nRight < m_nLeft && m_nRight != RECT_EMPTY)
        std::swap(m_nLeft, m_nRight);
    if (m_nBottom < m_nTop && m_nBottom != RECT_EMPTY)
        std::swap(m_nTop, m_nBottom);
}

CRectangle& CRectangle::Intersection(const CRectangle& r)
{
    if (IsEmpty())
        return *this;
    if (r.IsEmpty()) {
        *this = CRectangle();
        return *this;
    }
    Justify();
    CRectangle other = r;
    other.Justify();
    m_nLeft = std::max(m_nLeft, other.m_nLeft);
    m_nRight = std::min(m_nRight, other.m_nRight);
    m_nTop = std::max(m_nTop, other.m_nTop);
    m_nBottom = std::min(m_nBottom, other.m_nBottom);
    if (m_nRight < m_nLeft || m_nBottom < m_nTop)
        *this = CRectangle();
    return *this;
}

CRectangle CRectangle::GetIntersection(const CRectangle& r) const
{
    CRectangle copy = *this;
    return copy.Intersection(r);
}

CRectangle& CRectangle::Union(const CRectangle& r)
{
    if (r.IsEmpty())
        return *this;
    if (IsEmpty()) {
        *this = r;
        return *this;
    }
    // No justification: the new left and top replace the old ones before the maxima are
    // taken, so an old left (top) larger than every other edge is lost. For ordered
    // rectangles this is the plain bounding box.
    m_nLeft = std::min({m_nLeft, m_nRight, r.m_nLeft, r.m_nRight});
    m_nRight = std::max({m_nLeft, r.m_nLeft, m_nRight, r.m_nRight});
    m_nTop = std::min({m_nTop, m_nBottom, r.m_nTop, r.m_nBottom});
    m_nBottom = std::max({m_nTop, r.m_nTop, m_nBottom, r.m_nBottom});
    return *this;
}

CRectangle CRectangle::GetUnion(const CRectangle& r) const
{
    CRectangle copy = *this;
    return copy.Union(r);
}

bool CRectangle::Overlaps(const CRectangle& r) const
{
    return !GetIntersection(r).IsEmpty();
}

bool CRectangle::IsInside(const TamPoint& p) const
{
    return !IsEmpty() && IsBetween(p.x, m_nLeft, m_nRight) && IsBetween(p.y, m_nTop, m_nBottom);
}

bool CRectangle::IsInside(const CRectangle& r) const
{
    return IsInside(r.TopLeft()) && IsInside(r.BottomRight());
}

bool CRectangle::MakeInside(TamPoint& p) const
{
    p.x = std::min(std::max(p.x, m_nLeft), m_nRight);
    p.y = std::min(std::max(p.y, m_nTop), m_nBottom);
    // Callers use only the clamping; the result has always been false.
    return false;
}

SString CRectangle::GetStr() const
{
    SString s("l=");
    s += m_nLeft;
    s += ", r=";
    s += m_nRight;
    s += ", t=";
    s += m_nTop;
    s += ", b=";
    s += m_nBottom;
    s += ", WID=";
    s += WrapSub(m_nRight, m_nLeft);
    s += ", HGT=";
    s += WrapSub(m_nBottom, m_nTop);
    return s;
}

} // namespace vesk
