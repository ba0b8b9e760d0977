#include <vesk/graphics/Polygon.hpp>

#include <algorithm>

namespace vesk {

CRectangle CPolygon::GetBoundRect() const
{
    if (m_aPoints.empty())
        return CRectangle();
    CRectangle r(m_aPoints[0], m_aPoints[0]);
    for (const TamPoint& p : m_aPoints) {
        r.Left() = std::min(r.Left(), p.x);
        r.Top() = std::min(r.Top(), p.y);
        r.Right() = std::max(r.Right(), p.x);
        r.Bottom() = std::max(r.Bottom(), p.y);
    }
    return r;
}

} // namespace vesk
