#include <vesk/values.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <set>
#include <utility>

namespace vesk {
namespace {

TEST(CRectangle, WidthRuleHasNoZeroWidthExceptEmpty)
{
    EXPECT_TRUE(CRectangle().IsEmpty());
    EXPECT_EQ(CRectangle().GetSize(), TamSize(0, 0));
    EXPECT_EQ(CRectangle(10, 0, 10, 0).GetWidth(), 1);
    EXPECT_EQ(CRectangle(10, 0, 9, 0).GetWidth(), -2);
    // Only the right edge decides the width, only the bottom the height.
    EXPECT_EQ(CRectangle(5, 5, RECT_EMPTY, 9).GetSize(), TamSize(0, 5));
    EXPECT_NE(CRectangle(1, 1, RECT_EMPTY, RECT_EMPTY), CRectangle());
}

TEST(CRectangle, PositionAndSizeConstructorSubtractsOneEvenForNegativeSizes)
{
    const CRectangle r(TamPoint(5, 5), TamSize(10, 4));
    EXPECT_EQ(r, CRectangle(5, 5, 14, 8));
    EXPECT_EQ(r.GetSize(), TamSize(10, 4));
    const CRectangle flat(TamPoint(5, 5), TamSize(0, 4));
    EXPECT_TRUE(flat.IsEmpty());
    EXPECT_EQ(flat.Bottom(), 8);
    EXPECT_EQ(CRectangle(TamPoint(10, 0), TamSize(-3, 1)).Right(), 6);

    CRectangle changed(10, 0, 20, 0);
    EXPECT_EQ(changed.ChangeSize(TamSize(-3, 2)), TamSize(11, 1));
    EXPECT_EQ(changed, CRectangle(10, 0, 8, 1));
    EXPECT_EQ(changed.GetWidth(), -3);
    changed.ChangeSize(TamSize(0, 0));
    EXPECT_EQ(changed, CRectangle(10, 0, RECT_EMPTY, RECT_EMPTY));
}

TEST(CRectangle, SetWidthAndHeightMoveTheOtherEdgeByOne)
{
    CRectangle r(0, 0, 9, 9);
    r.SetHeight(20);
    EXPECT_EQ(r, CRectangle(0, 0, 8, 19));
    r.SetWidth(5);
    EXPECT_EQ(r, CRectangle(0, 0, 4, 18));
    // The marker takes part in the arithmetic unguarded.
    CRectangle empty(3, 3, 7, RECT_EMPTY);
    empty.SetWidth(2);
    EXPECT_EQ(empty, CRectangle(3, 3, 4, INT32_MAX)); // height INT32_MIN - 3 wraps
}

TEST(CRectangle, CornersSubstituteNearEdgesForEmptyOnes)
{
    const CRectangle r(1, 2, RECT_EMPTY, 8);
    EXPECT_EQ(r.TopRight(), TamPoint(1, 2));
    EXPECT_EQ(r.BottomLeft(), TamPoint(1, 8));
    EXPECT_EQ(r.BottomRight(), TamPoint(1, 8));
    EXPECT_EQ(CRectangle(1, 2, 6, RECT_EMPTY).BottomRight(), TamPoint(6, 2));
    EXPECT_EQ(r.TopCenter(), TamPoint(1, 2));
}

TEST(CRectangle, CentersOfInvertedRectangles)
{
    const CRectangle inverted(9, 5, 0, 0);
    EXPECT_EQ(inverted.Center(), TamPoint(5, 3)); // 9 + (-9)/2, 5 + (-5)/2
    EXPECT_EQ(inverted.TopCenter(), TamPoint(4, 0));
    EXPECT_EQ(inverted.BottomCenter(), TamPoint(4, 5));
    EXPECT_EQ(inverted.LeftCenter(), TamPoint(0, 3));
    EXPECT_EQ(inverted.RightCenter(), TamPoint(9, 3));
}

TEST(CRectangle, MovingKeepsOrBreaksTheMarkerAsStated)
{
    CRectangle r(0, 0, RECT_EMPTY, 9);
    EXPECT_EQ(r.ChangePos(TamPoint(5, -5)), TamPoint(0, 0));
    EXPECT_EQ(r, CRectangle(5, -5, RECT_EMPTY, 4));

    r.Move(1, 1);
    EXPECT_EQ(r, CRectangle(6, -4, RECT_EMPTY + 1, 5));
    EXPECT_FALSE(r.IsEmpty());

    CRectangle inflated(10, 10, 20, 20);
    inflated.Inflate(5, -4);
    EXPECT_EQ(inflated, CRectangle(8, 12, 22, 18));

    CRectangle scaled(-3, 1, 3, 5);
    scaled.Scale(0.5, 1.5);
    EXPECT_EQ(scaled, CRectangle(-1, 2, 2, 8)); // trunc(-1.0), trunc(2.0), trunc(2.0), trunc(8.0)
    CRectangle markerScaled(0, 0, RECT_EMPTY, 1);
    markerScaled.Scale(2.0, 1.0);
    EXPECT_EQ(markerScaled.Right(), INT32_MIN); // -2^32 is out of range
}

TEST(CRectangle, InsideTestsAndClamping)
{
    const CRectangle inverted(10, 10, 0, 0);
    EXPECT_TRUE(inverted.IsInside(TamPoint(0, 10)));
    EXPECT_FALSE(inverted.IsInside(TamPoint(11, 5)));
    EXPECT_FALSE(CRectangle(0, 0, RECT_EMPTY, 5).IsInside(TamPoint(0, 0)));
    EXPECT_TRUE(inverted.IsInside(CRectangle(2, 2, 4, 4)));
    EXPECT_TRUE(inverted.IsInside(CRectangle(2, 2, RECT_EMPTY, RECT_EMPTY)));
    EXPECT_FALSE(inverted.IsInside(CRectangle(2, 2, 14, 4)));

    TamPoint p(-5, 50);
    EXPECT_FALSE(CRectangle(0, 0, 9, 9).MakeInside(p));
    EXPECT_EQ(p, TamPoint(0, 9));
}

TEST(CRectangle, IntersectionOfTouchingAndUnorderedRectangles)
{
    EXPECT_EQ(CRectangle(0, 0, 10, 10).GetIntersection(CRectangle(10, 10, 20, 20)), CRectangle(10, 10, 10, 10));
    EXPECT_EQ(CRectangle(0, 0, 9, 9).GetIntersection(CRectangle(10, 0, 20, 9)), CRectangle());
    CRectangle r(10, 10, 0, 0);
    r.Intersection(CRectangle(5, 5, 20, 20));
    EXPECT_EQ(r, CRectangle(5, 5, 10, 10));
    EXPECT_TRUE(CRectangle(0, 0, 4, 4).Overlaps(CRectangle(4, 4, 8, 8)));
    EXPECT_FALSE(CRectangle(0, 0, 4, 4).Overlaps(CRectangle(5, 0, 8, 8)));
}

TEST(CRectangle, UnionOfEmptyAndUnorderedRectangles)
{
    const CRectangle a(1, 1, 3, 3);
    EXPECT_EQ(a.GetUnion(CRectangle(7, 7, RECT_EMPTY, 9)), a);
    EXPECT_EQ(CRectangle(7, 7, RECT_EMPTY, 9).GetUnion(a), a);
    // An inverted receiver loses its old left to the already updated one.
    EXPECT_EQ(CRectangle(10, 0, 0, 5).GetUnion(CRectangle(2, 2, 3, 3)), CRectangle(0, 0, 3, 5));
    EXPECT_EQ(CRectangle(0, 8, 5, 1).GetUnion(CRectangle(2, 2, 3, 3)), CRectangle(0, 1, 5, 3));
    // An inverted argument contributes both its edges.
    EXPECT_EQ(a.GetUnion(CRectangle(9, 0, 5, 2)), CRectangle(1, 0, 9, 3));
}

// Brute-force model: the set of unit cells an inclusive rectangle covers.
using Cells = std::set<std::pair<int, int>>;

Cells CellsOf(CRectangle r)
{
    Cells cells;
    if (r.IsEmpty())
        return cells;
    r.Justify();
    for (int x = r.Left(); x <= r.Right(); ++x)
        for (int y = r.Top(); y <= r.Bottom(); ++y)
            cells.emplace(x, y);
    return cells;
}

CRectangle RandomRectangle(std::mt19937& rng)
{
    std::uniform_int_distribution<int> coord(-4, 5);
    std::uniform_int_distribution<int> die(0, 9);
    CRectangle r(coord(rng), coord(rng), coord(rng), coord(rng));
    if (die(rng) == 0)
        r.Right() = RECT_EMPTY;
    if (die(rng) == 0)
        r.Bottom() = RECT_EMPTY;
    return r;
}

TEST(CRectangle, IntersectionMatchesCellModel)
{
    std::mt19937 rng(7);
    for (int i = 0; i < 20000; ++i) {
        const CRectangle a = RandomRectangle(rng);
        const CRectangle b = RandomRectangle(rng);
        const Cells ca = CellsOf(a);
        const Cells cb = CellsOf(b);
        Cells expected;
        std::set_intersection(ca.begin(), ca.end(), cb.begin(), cb.end(), std::inserter(expected, expected.end()));

        const CRectangle result = a.GetIntersection(b);
        ASSERT_EQ(CellsOf(result), expected) << i;
        if (expected.empty())
            ASSERT_EQ(result, a.IsEmpty() ? a : CRectangle()) << i;
        else
            ASSERT_TRUE(result.Left() <= result.Right() && result.Top() <= result.Bottom()) << i;
        ASSERT_EQ(a.Overlaps(b), !expected.empty()) << i;
    }
}

TEST(CRectangle, UnionOfOrderedReceiverMatchesBoundingBoxOfCells)
{
    std::mt19937 rng(11);
    for (int i = 0; i < 20000; ++i) {
        CRectangle a = RandomRectangle(rng);
        a.Justify();
        const CRectangle b = RandomRectangle(rng);
        const CRectangle result = a.GetUnion(b);
        if (b.IsEmpty()) {
            ASSERT_EQ(result, a) << i;
            continue;
        }
        if (a.IsEmpty()) {
            ASSERT_EQ(result, b) << i;
            continue;
        }
        Cells all = CellsOf(a);
        all.merge(CellsOf(b));
        int left = INT32_MAX, top = INT32_MAX, right = INT32_MIN, bottom = INT32_MIN;
        for (const auto& [x, y] : all) {
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
        ASSERT_EQ(result, CRectangle(left, top, right, bottom)) << i;
    }
}

} // namespace
} // namespace vesk
