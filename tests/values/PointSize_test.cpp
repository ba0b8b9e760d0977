#include <vesk/values.hpp>

#include <gtest/gtest.h>

#include <cmath>

namespace vesk {
namespace {

TEST(TamPoint, ArithmeticRoundsHalfAwayFromZeroAndIgnoresZeroDivisors)
{
    TamPoint p(5, -3);
    EXPECT_EQ((p += TamPoint(1, 1)), TamPoint(6, -2));
    EXPECT_EQ((p *= 0.25), TamPoint(2, -1)); // 1.5 -> 2, -0.5 -> -1
    EXPECT_EQ((p /= 0), TamPoint(2, -1));
    EXPECT_EQ((p /= 0.0), TamPoint(2, -1));
    EXPECT_EQ((TamPoint(7, -7) /= 2), TamPoint(3, -3));
    EXPECT_EQ((TamPoint(7, -7) /= 2.0), TamPoint(4, -4));
}

TEST(TamPoint, OverflowWrapsInsteadOfTrapping)
{
    EXPECT_EQ((TamPoint(INT32_MIN, INT32_MAX) /= -1), TamPoint(INT32_MIN, -INT32_MAX));
    EXPECT_EQ((TamPoint(INT32_MAX, 0) += TamPoint(1, 0)), TamPoint(INT32_MIN, 0));
    EXPECT_EQ((TamPoint(65536, 3) *= 65536), TamPoint(0, 196608));
    // Out-of-range and NaN results of a double conversion give the 0x80000000 value.
    EXPECT_EQ((TamPoint(1, 1) *= 1e12).x, INT32_MIN);
    EXPECT_EQ((TamPoint(1, 1) *= std::nan("")).y, INT32_MIN);
}

TEST(TamPoint, KeepsMathematicalSenseOfAboveAndRootDistance)
{
    const TamPoint low(0, 10);
    const TamPoint high(0, 20);
    EXPECT_TRUE(high.IsAbove(low));
    EXPECT_TRUE(low.IsBelow(high));
    EXPECT_FALSE(low.IsAbove(low));
    EXPECT_TRUE(TamPoint(1, 0).IsLeft(TamPoint(2, 0)));
    EXPECT_TRUE(TamPoint(3, 0).IsRight(TamPoint(2, 0)));
    EXPECT_DOUBLE_EQ(TamPoint(0, 0).GetSqDistance(TamPoint(3, 4)), 5.0);
    EXPECT_DOUBLE_EQ(TamPoint(-1, -1).GetSqDistance(TamPoint(2, 3)), 5.0);
}

TEST(TamSize, ComparesAsPartialOrder)
{
    EXPECT_TRUE(TamSize(3, 5) < TamSize(4, 5));
    EXPECT_FALSE(TamSize(3, 6) < TamSize(4, 5));
    EXPECT_FALSE(TamSize(3, 5) < TamSize(3, 4));
    EXPECT_TRUE(TamSize(3, 4) < TamSize(3, 5));
    EXPECT_TRUE(TamSize(3, 4) < TamSize(4, 5));
    EXPECT_FALSE(TamSize(4, 5) < TamSize(4, 5));
    EXPECT_NE(TamSize(4, 5), TamSize(5, 4));
}

TEST(TamSize, ScalesWithRoundingAndLeavesZeroDivisorsAlone)
{
    EXPECT_EQ(TamSize(3, 4) * 0.5, TamSize(2, 2));
    EXPECT_EQ(TamSize(-3, 4) * 0.5, TamSize(-2, 2));
    EXPECT_EQ(TamSize(3, 4) * 3, TamSize(9, 12));
    EXPECT_EQ(TamSize(7, -7) / 2, TamSize(3, -3));
    EXPECT_EQ(TamSize(7, -7) / 2.0, TamSize(4, -4));
    EXPECT_EQ(TamSize(7, 9) / 0, TamSize(7, 9));
    EXPECT_EQ(TamSize(7, 9) / 0.0, TamSize(7, 9));

    TamSize s(10, 4);
    s *= 1.25;
    EXPECT_EQ(s, TamSize(13, 5)); // 12.5 -> 13
    s /= 0;
    s -= TamSize(3, 5);
    EXPECT_EQ(s, TamSize(10, 0));
    EXPECT_TRUE(s.IsEmpty());
    s += TamSize(0, 2);
    s /= 2;
    EXPECT_EQ(s, TamSize(5, 1));
}

TEST(TamSize, DerivedMeasures)
{
    const TamSize s(-3, 8);
    EXPECT_EQ(s.GetMaxSide(), 8);
    EXPECT_EQ(s.GetMinSide(), -3);
    EXPECT_DOUBLE_EQ(TamSize(70000, 70000).GetArea(), 4.9e9);
    EXPECT_EQ(TamSize(3, 4).CenterWithin(TamSize(10, 9)), TamPoint(3, 2));
    EXPECT_EQ(TamSize(10, 4).CenterWithin(TamSize(3, 1)), TamPoint(-3, -1));

    TamSize scaled(10, 4);
    EXPECT_EQ(scaled.ScaleToHeight(6), TamSize(15, 6));
    EXPECT_EQ(scaled, TamSize(15, 6));
    TamSize flat(10, 0);
    EXPECT_EQ(flat.ScaleToHeight(6), TamSize(10, 0));
}

TEST(RangePair, ClosedIntervalsWithoutImplicitOrdering)
{
    Range r(5, 3);
    EXPECT_EQ(r.Len(), -1);
    EXPECT_FALSE(r.IsInside(4));
    r.Justify();
    EXPECT_EQ(r.Min(), 3);
    EXPECT_EQ(r.Max(), 5);
    EXPECT_TRUE(r.IsInside(3) && r.IsInside(5) && !r.IsInside(6));
    EXPECT_EQ(r.Len(), 3);
    EXPECT_FALSE(Range(0, 0).IsSet());
    EXPECT_TRUE(Range(0, 0).IsInside(0));
    r.Clear();
    EXPECT_FALSE(r.IsSet());
    EXPECT_EQ(Range(INT32_MIN, INT32_MAX).Len(), 0); // 2^32 wraps
    EXPECT_EQ(Range64(0, INT64_C(5000000000)).Len(), INT64_C(5000000001));

    Pair64 p(1, INT64_C(1) << 40);
    p.A() = 2;
    EXPECT_EQ(p, Pair64(2, INT64_C(1) << 40));
    EXPECT_NE(Pair(1, 2), Pair(2, 1));
}

} // namespace
} // namespace vesk
