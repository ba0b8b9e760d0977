// The geometry and arithmetic behind gradients; how they paint is checked by the golden
// pictures (Golden_test: each kind, centre gradients on polygons, ellipses, rings and rounded
// rectangles).
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

TEST(Gradient, EndPointsLieOnePixelBeyondTheRectangle)
{
    const ColorPair pair(kBlack, kWhite);
    const CRectangle r(0, 0, 9, 9);
    EXPECT_EQ(LinePoints(VerticalGradient(pair).CreateGdiplusBrush(r)), (Line{0, 0, 0, 10}));
    const GradientBrush horizontal = HorizontalGradient(pair).CreateGdiplusBrush(r);
    EXPECT_EQ(LinePoints(horizontal), (Line{0, 0, 10, 0}));
    EXPECT_EQ(cairo_pattern_get_extend(GradientBrushAccess::Get(horizontal)), CAIRO_EXTEND_REPEAT); // tiles beyond
    EXPECT_EQ(LinePoints(DiagonalGradient(pair).CreateGdiplusBrush(r)), (Line{0, 0, 10, 10}));
    // The base runs to the bottom edge itself; an empty bottom collapses onto the top.
    EXPECT_EQ(LinePoints(RectGradient(pair).CreateGdiplusBrush(CRectangle(2, 3, 9, 9))),
              (Line{2, 3, 2, 9}));
    EXPECT_EQ(LinePoints(RectGradient(pair).CreateGdiplusBrush(CRectangle(2, 3, 9, RECT_EMPTY))),
              (Line{2, 3, 2, 3}));
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
