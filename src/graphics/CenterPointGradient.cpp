#include <vesk/graphics/Gradient.hpp>

#include "graphics/Cairo_p.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vesk {
namespace {

struct Pt
{
    double x, y;
};

// Builds the path gradient as a mesh: one patch per edge (or per quarter arc), each running
// from the centre colour at the centre to the surround colours on the edge.
class MeshBuilder
{
public:
    MeshBuilder(const ColorPair& colors, const TamColor& center, Pt c, double top, double bottom)
        : m_aColors(colors), m_aCenter(center), m_aC(c), m_fTop(top), m_fBottom(bottom),
          m_pMesh(cairo_pattern_create_mesh())
    {
    }

    // A patch bounded by the centre, `a`, the cubic arc through c1 and c2 to `b`, and back.
    void Patch(Pt a, Pt c1, Pt c2, Pt b)
    {
        cairo_mesh_pattern_begin_patch(m_pMesh);
        cairo_mesh_pattern_move_to(m_pMesh, m_aC.x, m_aC.y);
        cairo_mesh_pattern_line_to(m_pMesh, a.x, a.y);
        cairo_mesh_pattern_curve_to(m_pMesh, c1.x, c1.y, c2.x, c2.y, b.x, b.y);
        cairo_mesh_pattern_line_to(m_pMesh, m_aC.x, m_aC.y);
        SetCorner(0, m_aCenter);
        SetCorner(1, Surround(a.y));
        SetCorner(2, Surround(b.y));
        SetCorner(3, m_aCenter);
        cairo_mesh_pattern_end_patch(m_pMesh);
    }

    void Edge(Pt a, Pt b)
    {
        Patch(a, Mix(a, b, 1.0 / 3), Mix(a, b, 2.0 / 3), b);
    }

    GradientBrush Finish(bool antiAlias)
    {
        return GradientBrushAccess::Make(m_pMesh, antiAlias);
    }

private:
    static Pt Mix(Pt a, Pt b, double t) { return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t}; }

    // Colour 0 at the top of the path's bounds, colour 1 at its bottom.
    TamColor Surround(double y) const
    {
        const double h = m_fBottom - m_fTop;
        const double t = h > 0 ? std::clamp((y - m_fTop) / h, 0.0, 1.0) : 0.0;
        auto mix = [t](int a, int b) { return uint32_t(a + (b - a) * t + 0.5); };
        const TamColor a = m_aColors[0], b = m_aColors[1];
        return TamColor(mix(a.Get8BitRed(), b.Get8BitRed()) |
                        mix(a.Get8BitGreen(), b.Get8BitGreen()) << 8 |
                        mix(a.Get8BitBlue(), b.Get8BitBlue()) << 16);
    }

    void SetCorner(unsigned i, const TamColor& c)
    {
        cairo_mesh_pattern_set_corner_color_rgb(m_pMesh, i, c.GetFRed(), c.GetFGreen(), c.GetFBlue());
    }

    ColorPair m_aColors;
    TamColor m_aCenter;
    Pt m_aC;
    double m_fTop, m_fBottom;
    cairo_pattern_t* m_pMesh;
};

int32_t Percent(int32_t from, int32_t to, int32_t percent)
{
    // 64-bit intermediate so that no rectangle overflows; the result wraps to 32 bits.
    return static_cast<int32_t>(from + (int64_t(to) - from) * percent / 100);
}

} // namespace

RectGradient* CenterPointGradient::Clone() const
{
    return new CenterPointGradient(*this);
}

TamPoint CenterPointGradient::GetCenterPoint(const CRectangle& r) const
{
    return TamPoint(Percent(r.Left(), r.Right(), m_nCenterX), Percent(r.Top(), r.Bottom(), m_nCenterY));
}

GradientBrush CenterPointGradient::CreateGdiplusBrush(const CRectangle& r) const
{
    return CreatePathGradientBrush(r);
}

GradientBrush CenterPointGradient::CreatePathGradientBrush(const CRectangle& r) const
{
    if (r.IsEmpty())
        return GradientBrush();
    const double l = r.Left(), t = r.Top(), rr = r.Right() + 1.0, b = r.Bottom() + 1.0;
    const TamPoint c = GetCenterPoint(r);
    MeshBuilder mesh(m_aColors, m_aCenterColor, {double(c.x), double(c.y)}, t, b);
    const Pt corners[4] = {{l, t}, {rr, t}, {rr, b}, {l, b}};
    for (int i = 0; i < 4; ++i)
        mesh.Edge(corners[i], corners[(i + 1) % 4]);
    return mesh.Finish(m_bAntiAlias);
}

GradientBrush CenterPointGradient::CreatePathGradientBrush(const CPolygon& p) const
{
    if (p.GetCount() < 3)
        return GradientBrush();
    const CRectangle bounds = p.GetBoundRect();
    const TamPoint c = GetCenterPoint(bounds);
    MeshBuilder mesh(m_aColors, m_aCenterColor, {double(c.x), double(c.y)}, bounds.Top(),
                     bounds.Bottom());
    for (size_t i = 0; i < p.GetCount(); ++i) {
        const TamPoint& a = p[i];
        const TamPoint& b = p[(i + 1) % p.GetCount()];
        mesh.Edge({double(a.x), double(a.y)}, {double(b.x), double(b.y)});
    }
    return mesh.Finish(m_bAntiAlias);
}

GradientBrush CenterPointGradient::CreateEllipticPathGradientBrush(const FRectangle& r) const
{
    if (r.IsEmpty() || !std::isfinite(r.Left()) || !std::isfinite(r.Top()) ||
        !std::isfinite(r.Right()) || !std::isfinite(r.Bottom()))
        return GradientBrush();
    const double cx = r.Left() + (r.Right() - r.Left()) * m_nCenterX / 100;
    const double cy = r.Top() + (r.Bottom() - r.Top()) * m_nCenterY / 100;
    const double mx = (r.Left() + r.Right()) / 2, my = (r.Top() + r.Bottom()) / 2;
    const double rx = (r.Right() - r.Left()) / 2, ry = (r.Bottom() - r.Top()) / 2;
    // A quarter ellipse is one cubic arc with its control points at k times the radius.
    constexpr double k = 0.5522847498307936;
    MeshBuilder mesh(m_aColors, m_aCenterColor, {cx, cy}, r.Top(), r.Bottom());
    const double sx[4] = {1, -1, -1, 1}, sy[4] = {1, 1, -1, -1};
    for (int q = 0; q < 4; ++q) {
        // Quarter q runs from one axis point to the next, clockwise on screen from the right.
        const bool fromX = q % 2 == 0;
        const Pt a = fromX ? Pt{mx + sx[q] * rx, my} : Pt{mx, my + sy[q] * ry};
        const Pt b = fromX ? Pt{mx, my + sy[q] * ry} : Pt{mx + sx[q] * rx, my};
        const Pt c1 = fromX ? Pt{a.x, my + sy[q] * ry * k} : Pt{mx + sx[q] * rx * k, a.y};
        const Pt c2 = fromX ? Pt{mx + sx[q] * rx * k, b.y} : Pt{b.x, my + sy[q] * ry * k};
        mesh.Patch(a, c1, c2, b);
    }
    return mesh.Finish(m_bAntiAlias);
}

} // namespace vesk
