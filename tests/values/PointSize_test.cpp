#include <vesk/values.hpp>

#include <gtest/gtest.h>

#include <cmath>

namespace vesk {
namespace {

TEST(TamPoint, RoundsHalfAwayFromZeroIgnoresZeroDivisorsAndWraps)
{
    TamPoint p(6, -2);
    EXPECT_EQ((p *= 0.25), TamPoint(2, -1)); // 1.5 -> 2, -0.5 -> -1
    EXPECT_EQ((p /= 0), TamPoint(2, -1));
    EXPECT_EQ((p /= 0.0), TamPoint(2, -1));
    EXPECT_EQ((TamPoint(7, -7) /= 2), TamPoint(3, -3));
    EXPECT_EQ((TamPoint(7, -7) /= 2.0), TamPoint(4, -4));
    EXPECT_EQ((TamPoint(INT32_MIN, INT32_MAX) /= -1), TamPoint(INT32_MIN, -INT32_MAX));
    EXPECT_EQ((TamPoint(INT32_MAX, 0) += TamPoint(1, 0)), TamPoint(INT32_MIN, 0));
    EXPECT_EQ((TamPoint(65536, 3) *= 65536), TamPoint(0, 196608));
    // Out-of-range and NaN results of a double conversion give the 0x80000000 value.
    EXPECT_EQ((TamPoint(1, 1) *= 1e12).x, INT32_MIN);
    EXPECT_EQ((TamPoint(1, 1) *= std::nan("")).y, INT32_MIN);
}

TEST(TamPoint, KeepsMathematicalSenseOfAboveAndRootDistance)
{
    EXPECT_TRUE(TamPoint(0, 20).IsAbove(TamPoint(0, 10)));
    EXPECT_TRUE(TamPoint(0, 10).IsBelow(TamPoint(0, 20)));
    EXPECT_DOUBLE_EQ(TamPoint(0, 0).GetSqDistance(TamPoint(3, 4)), 5.0);
}

TEST(TamPoint, DiagnosticTexts)
{
    EXPECT_EQ(TamPoint(5, -3).GetStr(), "X=5, Y=-3");
    EXPECT_EQ(TamSize(INT32_MIN, 4).GetStr(), "WID=-2147483648, HGT=4");
}

TEST(TamSize, ComparesAsPartialOrder)
{
    EXPECT_TRUE(TamSize(3, 5) < TamSize(4, 5));
    EXPECT_FALSE(TamSize(3, 6) < TamSize(4, 5));
    EXPECT_FALSE(TamSize(3, 5) < TamSize(3, 4));
    EXPECT_FALSE(TamSize(4, 5) < TamSize(4, 5));
}

TEST(TamSize, ScalingRoundsAndZeroDivisorsChangeNothing)
{
    EXPECT_EQ(TamSize(3, 4) * 0.5, TamSize(2, 2));
    EXPECT_EQ(TamSize(7, -7) / 2, TamSize(3, -3));
    EXPECT_EQ(TamSize(7, -7) / 2.0, TamSize(4, -4));
    EXPECT_EQ(TamSize(7, 9) / 0, TamSize(7, 9));
    TamSize s(10, 4);
    s *= 1.25;
    s /= 0.0;
    EXPECT_EQ(s, TamSize(13, 5));
    EXPECT_EQ(s.ScaleToHeight(10), TamSize(26, 10));
    EXPECT_EQ(s, TamSize(26, 10));
    EXPECT_EQ(TamSize(10, 0).ScaleToHeight(6), TamSize(10, 0));
    EXPECT_DOUBLE_EQ(TamSize(70000, 70000).GetArea(), 4.9e9);
    EXPECT_EQ(TamSize(10, 4).CenterWithin(TamSize(3, 1)), TamPoint(-3, -1));
}

TEST(RangePair, ClosedIntervalsWithoutImplicitOrdering)
{
    Range r(5, 3);
    EXPECT_EQ(r.Len(), -1);
    EXPECT_FALSE(r.IsInside(4));
    r.Justify();
    EXPECT_TRUE(r.IsInside(3) && r.IsInside(5) && !r.IsInside(6));
    EXPECT_FALSE(Range(0, 0).IsSet());
    EXPECT_EQ(Range(INT32_MIN, INT32_MAX).Len(), 0); // 2^32 wraps
    EXPECT_EQ(Range64(0, INT64_C(5000000000)).Len(), INT64_C(5000000001));
    EXPECT_NE(Pair64(1, 2), Pair64(2, 1));
}

} // namespace
} // namespace vesk
