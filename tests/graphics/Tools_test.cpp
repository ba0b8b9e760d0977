#include <vesk/graphics.hpp>

#include <gtest/gtest.h>

namespace vesk {
namespace {

const TamColor kBlack(0u);
const TamColor kWhite;

TEST(Region, SetOperationsAndHitTest)
{
    Region r(CRectangle(0, 0, 9, 9));
    r.Union(CRectangle(20, 0, 29, 9));
    EXPECT_EQ(r.GetRectCount(), 2);
    EXPECT_EQ(r.GetBoundRect(), CRectangle(0, 0, 29, 9));
    EXPECT_TRUE(r.IsInside(TamPoint(9, 9)));   // inclusive edges
    EXPECT_FALSE(r.IsInside(TamPoint(10, 5))); // the gap
    r.Subtract(CRectangle(0, 0, 4, 9));
    EXPECT_FALSE(r.IsInside(TamPoint(4, 0)));
    EXPECT_TRUE(r.IsInside(TamPoint(5, 0)));
    r.Intersect(CRectangle(0, 5, 100, 100));
    EXPECT_EQ(r.GetBoundRect(), CRectangle(5, 5, 29, 9));
    EXPECT_EQ(r.GetRect(0), CRectangle(5, 5, 9, 9));
    EXPECT_EQ(r.GetRect(7), CRectangle());
    r.Subtract(Region(r));
    EXPECT_TRUE(r.IsEmpty());
    EXPECT_EQ(r.GetBoundRect(), CRectangle());
}

TEST(Region, OddRectanglesAreOrderedEmptiedOrLimited)
{
    EXPECT_EQ(Region(CRectangle(9, 9, 0, 0)), Region(CRectangle(0, 0, 9, 9)));
    EXPECT_TRUE(Region(CRectangle(0, 0, RECT_EMPTY, 5)).IsEmpty());
    const Region huge(CRectangle(INT32_MIN + 1, INT32_MIN + 1, INT32_MAX, INT32_MAX));
    EXPECT_TRUE(huge.IsInside(TamPoint(0, 0)));
    EXPECT_EQ(huge.GetBoundRect().Right(), (1 << 30) - 1);
    Region copy = huge;
    Region moved(std::move(copy));
    EXPECT_EQ(moved, huge);
    EXPECT_TRUE(copy.IsEmpty());
}

TEST(Region, MoveShiftsPixelsAndDropsThoseBeyondTheLimits)
{
    Region r(CRectangle(0, 0, 9, 9));
    r.Union(CRectangle(20, 0, 29, 9));
    Region expected(CRectangle(-3, 5, 6, 14));
    expected.Union(CRectangle(17, 5, 26, 14));
    EXPECT_EQ(Region(r).Move(-3, 5), expected);
    const int32_t limit = (1 << 30) - 1;
    Region edge(CRectangle(limit - 9, -limit, limit, -limit + 9));
    EXPECT_EQ(edge.Move(5, -5), Region(CRectangle(limit - 4, -limit, limit, -limit + 4)));
    Region whole(CRectangle(-limit, -limit, limit, limit));
    EXPECT_EQ(Region(whole).Move(INT32_MAX, 0), Region());
    EXPECT_EQ(Region(whole).Move(limit, INT32_MIN), Region());
    EXPECT_EQ(Region(whole).Move(2 * limit, 0), Region(CRectangle(limit, -limit, limit, limit)));
}

TEST(Brush, GradientsShowTheirAverageColour)
{
    EXPECT_EQ(Brush(VerticalGradient(ColorPair(kBlack, kWhite))).GetColor(), TamColor(0x555555u));
    EXPECT_EQ(Texture(DiagonalGradient(ColorPair(kWhite, kBlack)), 50).GetColor(), TamColor(0xAAAAAAu));
}

TEST(Font, DrawHeightIsClamped)
{
    Font f("DejaVu Sans", 0);
    EXPECT_EQ(f.GetDrawHeight(), 1);
    f.SetHeight(-5);
    EXPECT_EQ(f.GetDrawHeight(), 1);
    f.SetHeight(INT32_MAX);
    EXPECT_EQ(f.GetDrawHeight(), Font::MAX_FONT_HEIGHT);
    EXPECT_EQ(Pen(kBlack, -3).GetDrawWidth(), 1);
}

} // namespace
} // namespace vesk
