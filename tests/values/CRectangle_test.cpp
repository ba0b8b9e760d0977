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
    EXPECT_EQ(CRectangle().GetSize(), TamSize(0, 0));
    EXPECT_EQ(CRectangle(10, 0, 10, 0).GetWidth(), 1);
    EXPECT_EQ(CRectangle(10, 0, 9, 0).GetWidth(), -2);
    // Only the right edge decides the width, only the bottom the height.
    EXPECT_EQ(CRectangle(5, 5, RECT_EMPTY, 9).GetSize(), TamSize(0, 5));
    EXPECT_NE(CRectangle(1, 1, RECT_EMPTY, RECT_EMPTY), CRectangle());
}

TEST(CRectangle, SizesFromConstructorAndChangeSizeDifferForNegativeWidths)
{
    EXPECT_EQ(CRectangle(TamPoint(5, 5), TamSize(10, 4)), CRectangle(5, 5, 14, 8));
    EXPECT_EQ(CRectangle(TamPoint(5, 5), TamSize(0, 4)), CRectangle(5, 5, RECT_EMPTY, 8));
    EXPECT_EQ(CRectangle(TamPoint(10, 0), TamSize(-3, 1)).Right(), 6);
    CRectangle changed(10, 0, 20, 0);
    EXPECT_EQ(changed.ChangeSize(TamSize(-3, 0)), TamSize(11, 1));
    EXPECT_EQ(changed, CRectangle(10, 0, 8, RECT_EMPTY));
}

TEST(CRectangle, SetWidthAndHeightMoveTheOtherEdgeByOne)
{
    CRectangle r(0, 0, 9, 9);
    r.SetHeight(20);
    EXPECT_EQ(r, CRectangle(0, 0, 8, 19));
    r.SetWidth(5);
    EXPECT_EQ(r, CRectangle(0, 0, 4, 18));
    CRectangle empty(3, 3, 7, RECT_EMPTY);
    empty.SetWidth(2);
    EXPECT_EQ(empty, CRectangle(3, 3, 4, INT32_MAX)); // height INT32_MIN - 3 wraps
}

TEST(CRectangle, CornersAndCentersOfEmptyAndInvertedRectangles)
{
    const CRectangle r(1, 2, RECT_EMPTY, 8);
    EXPECT_EQ(r.TopRight(), TamPoint(1, 2));
    EXPECT_EQ(r.BottomRight(), TamPoint(1, 8));
    const CRectangle inverted(9, 5, 0, 0);
    EXPECT_EQ(inverted.Center(), TamPoint(5, 3)); // 9 + (-9)/2, 5 + (-5)/2
    EXPECT_EQ(inverted.TopCenter(), TamPoint(4, 0));
    EXPECT_EQ(inverted.RightCenter(), TamPoint(9, 3));
}

TEST(CRectangle, MovingKeepsOrBreaksTheMarkerAsStated)
{
    CRectangle r(0, 0, RECT_EMPTY, 9);
    EXPECT_EQ(r.ChangePos(TamPoint(5, -5)), TamPoint(0, 0));
    EXPECT_EQ(r, CRectangle(5, -5, RECT_EMPTY, 4));
    r.Move(1, 1);
    EXPECT_EQ(r, CRectangle(6, -4, RECT_EMPTY + 1, 5));
    r.Inflate(5, -4);
    EXPECT_EQ(r, CRectangle(4, -2, RECT_EMPTY + 3, 3));
    CRectangle scaled(-3, 1, RECT_EMPTY, 5);
    scaled.Scale(2.0, 1.5);
    EXPECT_EQ(scaled, CRectangle(-5, 2, INT32_MIN, 8)); // -5.5 truncates to -5; -2^32 is out of range
}

TEST(CRectangle, InsideTestsAndClamping)
{
    const CRectangle inverted(10, 10, 0, 0);
    EXPECT_TRUE(inverted.IsInside(TamPoint(0, 10)));
    EXPECT_FALSE(inverted.IsInside(TamPoint(11, 5)));
    EXPECT_FALSE(CRectangle(0, 0, RECT_EMPTY, 5).IsInside(TamPoint(0, 0)));
    EXPECT_TRUE(inverted.IsInside(CRectangle(2, 2, RECT_EMPTY, RECT_EMPTY)));
    EXPECT_FALSE(inverted.IsInside(CRectangle(2, 2, 14, 4)));
    TamPoint p(-5, 50);
    EXPECT_FALSE(CRectangle(0, 0, 9, 9).MakeInside(p));
    EXPECT_EQ(p, TamPoint(0, 9));
}

TEST(CRectangle, DiagnosticTextPrintsPlainDifferences)
{
    EXPECT_EQ(CRectangle(0, 1, 9, 4).GetStr(), "l=0, r=9, t=1, b=4, WID=9, HGT=3");
    EXPECT_EQ(CRectangle(5, 0, RECT_EMPTY, 0).GetStr(), "l=5, r=-2147483648, t=0, b=0, WID=2147483643, HGT=0");
}

TEST(CRectangle, UnionOfInvertedReceiverLosesItsOldLeftAndTop)
{
    EXPECT_EQ(CRectangle(10, 0, 0, 5).GetUnion(CRectangle(2, 2, 3, 3)), CRectangle(0, 0, 3, 5));
    EXPECT_EQ(CRectangle(0, 8, 5, 1).GetUnion(CRectangle(2, 2, 3, 3)), CRectangle(0, 1, 5, 3));
}

// Brute-force model: the set of unit cells an inclusive rectangle covers.
using Cells = std::set<std::pair<int, int>>;

Cells CellsOf(CRectangle r)
{
    Cells cells;
    r.Justify();
    for (int x = r.Left(); !r.IsEmpty() && x <= r.Right(); ++x)
        for (int y = r.Top(); y <= r.Bottom(); ++y)
            cells.emplace(x, y);
    return cells;
}

// Small rectangles, ordered or not, one in five with an empty edge.
CRectangle RandomRectangle(std::mt19937& rng)
{
    std::uniform_int_distribution<int> coord(-4, 5);
    std::uniform_int_distribution<int> die(0, 9);
    CRectangle r(coord(rng), coord(rng), coord(rng), coord(rng));
    const int roll = die(rng);
    if (roll == 0)
        r.Right() = RECT_EMPTY;
    else if (roll == 1)
        r.Bottom() = RECT_EMPTY;
    return r;
}

TEST(CRectangle, IntersectionAndUnionMatchCellModel)
{
    std::mt19937 rng(7);
    for (int i = 0; i < 20000; ++i) {
        const CRectangle a = RandomRectangle(rng);
        const CRectangle b = RandomRectangle(rng);
        const Cells ca = CellsOf(a);
        const Cells cb = CellsOf(b);
        Cells common;
        std::set_intersection(ca.begin(), ca.end(), cb.begin(), cb.end(), std::inserter(common, common.end()));
        const CRectangle meet = a.GetIntersection(b);
        ASSERT_EQ(CellsOf(meet), common) << i;
        ASSERT_EQ(a.Overlaps(b), !common.empty()) << i;
        if (common.empty()) {
            ASSERT_EQ(meet, a.IsEmpty() ? a : CRectangle()) << i;
        }

        // Union of an ordered receiver: the bounding box of all cells; an empty side yields the other.
        CRectangle ordered = a;
        ordered.Justify();
        const CRectangle join = ordered.GetUnion(b);
        if (ca.empty() || cb.empty()) {
            ASSERT_EQ(join, cb.empty() ? ordered : b) << i;
            continue;
        }
        Cells all = ca;
        all.insert(cb.begin(), cb.end());
        const auto [minX, maxX] = std::minmax_element(all.begin(), all.end());
        const auto [minY, maxY] = std::minmax_element(all.begin(), all.end(), [](auto& p, auto& q) { return p.second < q.second; });
        ASSERT_EQ(join, CRectangle(minX->first, minY->second, maxX->first, maxY->second)) << i;
    }
}

} // namespace
} // namespace vesk
