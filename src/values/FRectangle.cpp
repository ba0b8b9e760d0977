#include <vesk/values/FRectangle.hpp>

#include "values/IntMath_p.hpp"

namespace vesk {

using namespace detail;

namespace {

double Extent(double nearEdge, double farEdge)
{
    return farEdge == FRECT_EMPTY ? 0.0 : farEdge - nearEdge;
}

double FarOrNear(double nearEdge, double farEdge)
{
    return farEdge == FRECT_EMPTY ? nearEdge : farEdge;
}

double ScaledEdge(double edge, double factor)
{
    return edge == FRECT_EMPTY ? edge : edge * factor;
}

} // namespace

FRectangle::FRectangle(const FPoint& pos, const FSize& size)
    : m_fLeft(pos.x), m_fTop(pos.y),
      m_fRight(size.width == 0.0 ? FRECT_EMPTY : pos.x + size.width),
      m_fBottom(size.height == 0.0 ? FRECT_EMPTY : pos.y + size.height)
{
}

FRectangle::FRectangle(const CRectangle& r)
    : m_fLeft(r.Left()), m_fTop(r.Top()), m_fRight(r.Right() + 1.0), m_fBottom(r.Bottom() + 1.0)
{
}

double FRectangle::Width() const
{
    return Extent(m_fLeft, m_fRight);
}

double FRectangle::Height() const
{
    return Extent(m_fTop, m_fBottom);
}

FPoint FRectangle::TopRight() const
{
    return FPoint(FarOrNear(m_fLeft, m_fRight), m_fTop);
}

FPoint FRectangle::BottomLeft() const
{
    return FPoint(m_fLeft, FarOrNear(m_fTop, m_fBottom));
}

FPoint FRectangle::BottomRight() const
{
    return FPoint(FarOrNear(m_fLeft, m_fRight), FarOrNear(m_fTop, m_fBottom));
}

void FRectangle::Move(double dx, double dy)
{
    m_fLeft += dx;
    m_fRight += dx;
    m_fTop += dy;
    m_fBottom += dy;
}

FRectangle& FRectangle::operator+=(const FPoint& p)
{
    Move(p.x, p.y);
    return *this;
}

void FRectangle::Inflate(double dx, double dy)
{
    m_fLeft -= dx * 0.5;
    m_fRight += dx * 0.5;
    m_fTop -= dy * 0.5;
    m_fBottom += dy * 0.5;
}

FRectangle FRectangle::operator*(double factor) const
{
    return FRectangle(m_fLeft * factor, m_fTop * factor, ScaledEdge(m_fRight, factor),
                      ScaledEdge(m_fBottom, factor));
}

void FRectangle::MoveToFloor()
{
    const int32_t ix = TruncToInt32(m_fLeft + 0.01);
    const int32_t iy = TruncToInt32(m_fTop + 0.01);
    Move(-static_cast<double>(ix), -static_cast<double>(iy));
}

CRectangle FRectangle::GetRectangle() const
{
    return CRectangle(TruncToInt32(m_fLeft + 0.5), TruncToInt32(m_fTop + 0.5),
                      TruncToInt32(m_fRight + 0.5), TruncToInt32(m_fBottom + 0.5));
}

CRectangle FRectangle::GetBoundingRect() const
{
    return CRectangle(TruncToInt32(m_fLeft + 0.01), TruncToInt32(m_fTop + 0.01),
                      TruncToInt32(m_fRight - 0.01), TruncToInt32(m_fBottom - 0.01));
}

SString FRectangle::GetStr() const
{
    return SString::F("(%4.2f, %4.2f)/(%4.2f, %4.2f)", m_fLeft, m_fTop, m_fRight, m_fBottom);
}

} // namespace vesk
