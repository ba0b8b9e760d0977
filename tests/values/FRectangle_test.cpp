#include <vesk/values.hpp>

#include <gtest/gtest.h>

#include <cmath>

namespace vesk {
namespace {

TEST(FRectangle, ExclusiveEdgesAndTheEmptyMarker)
{
    const FRectangle r(FPoint(1.5, 2.0), FSize(3.0, 0.0));
    EXPECT_EQ(r, FRectangle(1.5, 2.0, 4.5, FRECT_EMPTY));
    EXPECT_EQ(r.GetSize(), FSize(3.0, 0.0));
    EXPECT_EQ(r.BottomRight(), FPoint(4.5, 2.0));
}

TEST(FRectangle, ConversionsFromAndToIntegerRectangles)
{
    const FRectangle f(CRectangle(0, 0, 9, 9));
    EXPECT_EQ(f, FRectangle(0, 0, 10, 10));
    EXPECT_EQ(f.GetRectangle(), CRectangle(0, 0, 10, 10));
    // The empty integer rectangle is converted like any other.
    const FRectangle fromEmpty{CRectangle()};
    EXPECT_DOUBLE_EQ(fromEmpty.Right(), -2147483647.0);
    EXPECT_FALSE(fromEmpty.IsEmpty());

    const FRectangle g(0.2, 0.2, 9.8, 9.8);
    EXPECT_EQ(g.GetBoundingRect(), CRectangle(0, 0, 9, 9));
    EXPECT_EQ(g.GetRectangle(), CRectangle(0, 0, 10, 10));
    EXPECT_EQ(FRectangle(-0.7, -1.5, 0.4, 3e10).GetRectangle(), CRectangle(0, -1, 0, INT32_MIN));
}

TEST(FRectangle, DiagnosticText)
{
    EXPECT_EQ(FRectangle(1, 12345.678, -0.5, 2).GetStr(), "(1.00, 12345.68)/(-0.50, 2.00)");
}

TEST(FRectangle, MoveToFloorMovesByWholeUnitsWithTolerance)
{
    FRectangle r(3.995, 7.5, 10, 10);
    r.MoveToFloor();
    EXPECT_EQ(r, FRectangle(3.995 - 4, 0.5, 6, 3));
    FRectangle negative(-2.5, -0.995, 1, 1);
    negative.MoveToFloor();
    EXPECT_EQ(negative, FRectangle(-0.5, -0.995, 3, 1)); // trunc toward zero: -2 and 0
}

TEST(FRectangle, ScalingKeepsMarkersAndMovingDoesNot)
{
    const FRectangle r(1, 2, FRECT_EMPTY, 4);
    EXPECT_EQ(r * 2.0, FRectangle(2, 4, FRECT_EMPTY, 8));
    FRectangle moved = r;
    moved += FPoint(1, 1);
    EXPECT_EQ(moved, FRectangle(2, 3, FRECT_EMPTY + 1, 5));
    moved.Inflate(3, -2);
    EXPECT_EQ(moved, FRectangle(0.5, 4, FRECT_EMPTY + 2.5, 4));
}

} // namespace
} // namespace vesk
