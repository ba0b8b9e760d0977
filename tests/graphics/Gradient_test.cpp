#include <vesk/graphics.hpp>

#include "graphics/Cairo_p.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace vesk {
namespace {

const TamColor kBlack(0u);
const TamColor kWhite;
const TamColor kRed(0x0000FFu);
const TamColor kBlue(0xFF0000u);

struct Line
{
    double x0, y0, x1, y1;
    bool operator==(const Line&) const = default;
};

Line LinePoints(const GradientBrush& b)
{
    Line l{};
    cairo_pattern_get_linear_points(GradientBrushAccess::Get(b), &l.x0, &l.y0, &l.x1, &l.y1);
    return l;
}

// Paints `b` over a w x h image and returns it; the caller destroys it.
cairo_surface_t* Paint(const GradientBrush& b, int w, int h)
{
    cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, w, h);
    cairo_t* cr = cairo_create(s);
    cairo_set_source(cr, GradientBrushAccess::Get(b));
    cairo_paint(cr);
    cairo_destroy(cr);
    cairo_surface_flush(s);
    return s;
}

uint32_t Pixel(cairo_surface_t* s, int x, int y)
{
    const unsigned char* row = cairo_image_surface_get_data(s) + y * cairo_image_surface_get_stride(s);
    return reinterpret_cast<const uint32_t*>(row)[x];
}

TEST(Gradient, EndPointsLieOnePixelBeyondTheRectangle)
{
    const ColorPair pair(kBlack, kWhite);
    const CRectangle r(0, 0, 9, 9);
    EXPECT_EQ(LinePoints(VerticalGradient(pair).CreateGdiplusBrush(r)), (Line{0, 0, 0, 10}));
    EXPECT_EQ(LinePoints(HorizontalGradient(pair).CreateGdiplusBrush(r)), (Line{0, 0, 10, 0}));
    EXPECT_EQ(LinePoints(DiagonalGradient(pair).CreateGdiplusBrush(r)), (Line{0, 0, 10, 10}));
    // The base runs to the bottom edge itself; an empty bottom collapses onto the top.
    EXPECT_EQ(LinePoints(RectGradient(pair).CreateGdiplusBrush(CRectangle(2, 3, 9, 9))),
              (Line{2, 3, 2, 9}));
    EXPECT_EQ(LinePoints(RectGradient(pair).CreateGdiplusBrush(CRectangle(2, 3, 9, RECT_EMPTY))),
              (Line{2, 3, 2, 3}));
}

TEST(Gradient, LinearBrushTilesAndReachesTheEndColour)
{
    const GradientBrush b = HorizontalGradient(ColorPair(kBlack, kRed)).CreateGdiplusBrush(CRectangle(0, 0, 9, 0));
    EXPECT_EQ(cairo_pattern_get_extend(GradientBrushAccess::Get(b)), CAIRO_EXTEND_REPEAT);
    cairo_surface_t* s = Paint(b, 10, 1);
    EXPECT_LE(Pixel(s, 0, 0) >> 16 & 0xFF, 0x10u); // the first column is nearly black
    EXPECT_GE(Pixel(s, 9, 0) >> 16 & 0xFF, 0xE0u); // the last column is nearly pure red
    cairo_surface_destroy(s);
}

TEST(Gradient, AverageLeansTowardTheStartColour)
{
    EXPECT_EQ(RectGradient(ColorPair(kBlack, kWhite)).GetAverageColor(), TamColor(0x555555u));
    EXPECT_EQ(RectGradient(ColorPair(kWhite, kBlack)).GetAverageColor(), TamColor(0xAAAAAAu));
    EXPECT_EQ(RectGradient(ColorPair(kRed, kBlue)).GetAverageColor(), TamColor(0x5500AAu));
}

TEST(Gradient, CloneAndAssignmentKeepClassAndFields)
{
    const HorizontalGradient h(ColorPair(kRed, kBlue));
    std::unique_ptr<RectGradient> clone(h.Clone());
    ASSERT_NE(dynamic_cast<HorizontalGradient*>(clone.get()), nullptr);
    EXPECT_EQ(clone->GetColors(), h.GetColors());

    CenterPointGradient c(ColorPair(kRed, kBlue), kWhite);
    c.SetCenterPercent(0, 100);
    c.SetAntiAliasing(true);
    c.SetPen(Pen(kRed, 3));
    CenterPointGradient d(ColorPair(), kBlack);
    d = c;
    EXPECT_EQ(d.GetCenterColor(), kWhite);
    EXPECT_TRUE(d.IsAntiAliasing());
    EXPECT_EQ(d.GetPen(), Pen(kRed, 3));
    EXPECT_EQ(d.GetCenterPoint(CRectangle(0, 0, 100, 50)), TamPoint(0, 50));
    std::unique_ptr<RectGradient> cc(d.Clone());
    ASSERT_NE(dynamic_cast<CenterPointGradient*>(cc.get()), nullptr);
    EXPECT_EQ(static_cast<CenterPointGradient&>(*cc).GetCenterColor(), kWhite);
}

TEST(Gradient, CenterPointUsesIntegerPercentages)
{
    CenterPointGradient c(ColorPair(), kBlack);
    EXPECT_EQ(c.GetCenterPoint(CRectangle(0, 0, 100, 50)), TamPoint(50, 25));
    EXPECT_EQ(c.GetCenterPoint(CRectangle(0, 0, 9, 9)), TamPoint(4, 4)); // 4.5 truncated
    c.SetCenterPercent(33, 200);
    EXPECT_EQ(c.GetCenterPoint(CRectangle(10, 10, 20, 20)), TamPoint(13, 30));
    // Far-apart edges must not overflow on the way.
    EXPECT_EQ(c.GetCenterPoint(CRectangle(INT32_MIN + 1, 0, INT32_MAX, 0)).x, -730144440);
}

TEST(Gradient, PathGradientRunsFromCentreToSurround)
{
    // Surround: red along the top, blue along the bottom; white in the middle.
    CenterPointGradient c(ColorPair(kRed, kBlue), kWhite);
    const GradientBrush b = c.CreateGdiplusBrush(CRectangle(0, 0, 39, 39));
    ASSERT_TRUE(b.IsValid());
    EXPECT_FALSE(b.IsAntiAliased());
    cairo_surface_t* s = Paint(b, 40, 40);
    const uint32_t mid = Pixel(s, 20, 20), top = Pixel(s, 20, 0), bottom = Pixel(s, 20, 39);
    EXPECT_GE(mid & 0xFF, 0xE0u);            // nearly white: blue channel high
    EXPECT_GE(mid >> 8 & 0xFF, 0xE0u);       // and green high
    EXPECT_GE(top >> 16 & 0xFF, 0xE0u);      // red at the top
    EXPECT_LE(top & 0xFF, 0x20u);
    EXPECT_GE(bottom & 0xFF, 0xE0u);         // blue at the bottom
    EXPECT_LE(bottom >> 16 & 0xFF, 0x20u);
    cairo_surface_destroy(s);
}

TEST(Gradient, EllipticAndPolygonPathsCoverOnlyTheirShape)
{
    CenterPointGradient c(ColorPair(kRed, kRed), kWhite);
    c.SetAntiAliasing(true);
    const GradientBrush e = c.CreateEllipticPathGradientBrush(FRectangle(0, 0, 40, 20));
    ASSERT_TRUE(e.IsValid());
    EXPECT_TRUE(e.IsAntiAliased());
    cairo_surface_t* s = Paint(e, 40, 20);
    EXPECT_EQ(Pixel(s, 0, 0), 0u);              // outside the ellipse: untouched
    EXPECT_EQ(Pixel(s, 20, 10) >> 24, 0xFFu);   // inside: opaque
    EXPECT_EQ(Pixel(s, 1, 10) >> 24, 0xFFu);    // near the left axis point
    cairo_surface_destroy(s);

    const GradientBrush t = c.CreatePathGradientBrush(CPolygon{{0, 0}, {20, 0}, {0, 20}});
    ASSERT_TRUE(t.IsValid());
    s = Paint(t, 20, 20);
    EXPECT_EQ(Pixel(s, 18, 18), 0u);
    EXPECT_EQ(Pixel(s, 3, 3) >> 24, 0xFFu);
    cairo_surface_destroy(s);
}

TEST(Gradient, ShapesWithoutAreaGiveInvalidBrushes)
{
    const CenterPointGradient c(ColorPair(), kBlack);
    EXPECT_FALSE(c.CreatePathGradientBrush(CPolygon{{0, 0}, {5, 5}}).IsValid());
    EXPECT_FALSE(c.CreatePathGradientBrush(CPolygon()).IsValid());
    EXPECT_FALSE(c.CreateGdiplusBrush(CRectangle(0, 0, RECT_EMPTY, 5)).IsValid());
    EXPECT_FALSE(c.CreateEllipticPathGradientBrush(FRectangle()).IsValid());
    EXPECT_FALSE(c.CreateEllipticPathGradientBrush(FRectangle(0, 0, NAN, 5)).IsValid());
    GradientBrush moved = c.CreateGdiplusBrush(CRectangle(0, 0, 5, 5));
    GradientBrush target(std::move(moved));
    EXPECT_TRUE(target.IsValid());
    EXPECT_FALSE(moved.IsValid());
}

} // namespace
} // namespace vesk
