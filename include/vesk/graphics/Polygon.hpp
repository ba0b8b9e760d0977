#pragma once

#include <vesk/export.hpp>
#include <vesk/values/CRectangle.hpp>
#include <vesk/values/FPoint.hpp>
#include <vesk/values/TamPoint.hpp>

#include <cstddef>
#include <initializer_list>
#include <vector>

namespace vesk {

// A closed polygon of integer points; the last point joins the first.
class VESK_API CPolygon
{
public:
    CPolygon() = default;
    CPolygon(std::initializer_list<TamPoint> points) : m_aPoints(points) {}

    void Add(const TamPoint& p) { m_aPoints.push_back(p); }
    void Clear() { m_aPoints.clear(); }
    size_t GetCount() const { return m_aPoints.size(); }
    const TamPoint& operator[](size_t i) const { return m_aPoints[i]; }
    TamPoint& operator[](size_t i) { return m_aPoints[i]; }
    // The smallest rectangle (inclusive edges) holding every point; empty without points.
    CRectangle GetBoundRect() const;

private:
    std::vector<TamPoint> m_aPoints;
};

// A closed polygon of floating-point points.
class VESK_API FPolygon
{
public:
    FPolygon() = default;
    FPolygon(std::initializer_list<FPoint> points) : m_aPoints(points) {}

    void Add(const FPoint& p) { m_aPoints.push_back(p); }
    void Clear() { m_aPoints.clear(); }
    size_t GetCount() const { return m_aPoints.size(); }
    const FPoint& operator[](size_t i) const { return m_aPoints[i]; }
    FPoint& operator[](size_t i) { return m_aPoints[i]; }

private:
    std::vector<FPoint> m_aPoints;
};

} // namespace vesk
