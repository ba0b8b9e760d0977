// Scoring candidate places: the alignment bonus, the double 0.7 on the left, ties, candidates
// of height 0, the distance and overlap terms, and the row lengths.
#include "DockFrameFixture.hpp"

#include <cmath>

namespace vesk::test {
namespace {

// The best triple as the caller of EvaluateDockTry keeps it, starting very low.
struct Best {
    DockType type = DockType::None;
    uint32_t align = 0;
    double score = -1e300;
    bool improved = false;
};

class DockScoreTest : public DockFrameTest {
protected:
    Best Try(const CRectangle& area, const DockPosition& pos, const char* name = "A", Best best = Best(),
             DockType type = DockType::Pane) const
    {
        best.improved = manager->GetDockParent().EvaluateDockTry(area, name, pos, type, best.type, best.align,
                                                                  best.score);
        return best;
    }
};

TEST_F(DockScoreTest, AlignmentBonusAndAspectError)
{
    DockPosition pos = Unplaced(TamSize(100, 100));
    pos.AddNeighbour("Eq", CBRS_ALIGN_RIGHT, NCT_EQUAL_SIDE);
    pos.AddNeighbour("Touch", CBRS_ALIGN_LEFT, NCT_TOUCHING_SIDE);
    pos.AddNeighbour("Just", CBRS_ALIGN_TOP, NCT_JUSTIFIED_SIDE);
    pos.AddNeighbour("None", CBRS_ALIGN_BOTTOM, NCT_NONE);
    const TamDockParentWnd& parent = manager->GetDockParent();
    // The neighbour must lie on the side opposite the candidate's.
    EXPECT_EQ(parent.EvaluateAlign(pos, CBRS_ALIGN_LEFT, "Eq"), 2.0);
    EXPECT_EQ(parent.EvaluateAlign(pos, CBRS_ALIGN_RIGHT, "Eq"), 0.0);
    EXPECT_EQ(parent.EvaluateAlign(pos, CBRS_ALIGN_RIGHT, "Touch"), 0.8);
    EXPECT_EQ(parent.EvaluateAlign(pos, CBRS_ALIGN_BOTTOM, "Just"), 0.8);
    EXPECT_EQ(parent.EvaluateAlign(pos, CBRS_ALIGN_TOP, "None"), 0.0);
    EXPECT_EQ(parent.EvaluateAlign(pos, CBRS_ALIGN_LEFT, "Other"), 0.0);

    EXPECT_EQ(TamDockParentWnd::GetAspectError(TamSize(10, 0), TamSize(5, 5)), 9e99);
    EXPECT_EQ(TamDockParentWnd::GetAspectError(TamSize(5, 5), TamSize(10, 0)), 9e99);
    EXPECT_DOUBLE_EQ(TamDockParentWnd::GetAspectError(TamSize(300, 100), TamSize(100, 200)), 2.5);
}

TEST_F(DockScoreTest, LeftSideIsNarrowedTwiceAndBonusesDecide)
{
    const CRectangle area(0, 0, 1000, 800);
    // Unplaced, no neighbours: the right side fits exactly (score 0); the left side's
    // candidate is 140 wide, not 200.
    const Best plain = Try(area, Unplaced(TamSize(200, 800)));
    EXPECT_TRUE(plain.improved);
    EXPECT_EQ(plain.align, CBRS_ALIGN_RIGHT);
    EXPECT_EQ(plain.score, 0.0);
    EXPECT_EQ(plain.type, DockType::Pane);

    const double left = -1.5 * std::sqrt(200.0 * 800 - 140.0 * 800) - 40 * std::fabs(140.0 / 800 - 200.0 / 800);
    DockPosition equal = Unplaced(TamSize(200, 800));
    equal.AddNeighbour("A", CBRS_ALIGN_RIGHT, NCT_EQUAL_SIDE);
    const Best eq = Try(area, equal);
    EXPECT_EQ(eq.align, CBRS_ALIGN_LEFT); // +400 beats the exact fit
    EXPECT_NEAR(eq.score, 400 + left, 1e-9);

    DockPosition touching = Unplaced(TamSize(200, 800));
    touching.AddNeighbour("A", CBRS_ALIGN_RIGHT, NCT_TOUCHING_SIDE);
    EXPECT_EQ(Try(area, touching).align, CBRS_ALIGN_RIGHT); // +160 does not
    EXPECT_EQ(Try(area, touching, "B").score, 0.0);
    // The bonus for a neighbour on the left goes to the right side.
    DockPosition onLeft = Unplaced(TamSize(200, 800));
    onLeft.AddNeighbour("A", CBRS_ALIGN_LEFT, NCT_TOUCHING_SIDE);
    EXPECT_NEAR(Try(area, onLeft).score, 160.0, 1e-9);
}

TEST_F(DockScoreTest, TiesKeepTheEarlierSideAndCandidate)
{
    // Top and bottom score alike (0); the top, tried first, stays.
    const DockPosition pos = Unplaced(TamSize(1000, 50));
    const Best first = Try(CRectangle(0, 0, 1000, 100), pos, "A", {}, DockType::Pane);
    EXPECT_EQ(first.align, CBRS_ALIGN_TOP);
    EXPECT_EQ(first.score, 0.0);
    // An equal candidate afterwards changes nothing.
    const Best second = Try(CRectangle(0, 500, 1000, 600), pos, "B", first, DockType::FreeSpace);
    EXPECT_FALSE(second.improved);
    EXPECT_EQ(second.type, DockType::Pane);
    EXPECT_EQ(second.align, CBRS_ALIGN_TOP);
}

TEST_F(DockScoreTest, HeightZeroNeverWins)
{
    const DockPosition pos = Unplaced(TamSize(100, 50));
    const Best flat = Try(CRectangle(0, 0, 1000, 0), pos);
    EXPECT_TRUE(flat.improved); // from the very low start
    EXPECT_LT(flat.score, -3.5e101);
    Best ordinary;
    ordinary.score = -1e6;
    EXPECT_FALSE(Try(CRectangle(0, 0, 1000, 0), pos, "A", ordinary).improved);
}

TEST_F(DockScoreTest, PlacedPositionsScoreOverlapAndDistance)
{
    DockPosition pos = Unplaced(TamSize(200, 800));
    pos.SetPos(TamPoint(0, 0));
    const Best best = Try(CRectangle(0, 0, 1000, 800), pos);
    // The left candidate (140 x 800 at the origin) overlaps the old place and lies 30 from it.
    const double expected = 0.3 * std::sqrt(140.0 * 800) - 1.5 * std::sqrt(60.0 * 800) - 0.7 * 30 -
                            40 * std::fabs(140.0 / 800 - 200.0 / 800);
    EXPECT_EQ(best.align, CBRS_ALIGN_LEFT);
    EXPECT_NEAR(best.score, expected, 1e-9);
}

TEST(DockRowLength, SumOfTheRestOfTheRow)
{
    const std::vector<TamDockablePane*> panes(3, nullptr);
    const std::vector<TamSize> sizes = {TamSize(100, 10), TamSize(120, 20), TamSize(140, 30)};
    EXPECT_EQ(TamDockParentWnd::SumRestSide(panes, sizes, 1, CBRS_ALIGN_LEFT), 260);
    EXPECT_EQ(TamDockParentWnd::SumRestSide(panes, sizes, 2, CBRS_ALIGN_RIGHT), 140);
    EXPECT_EQ(TamDockParentWnd::SumRestSide(panes, sizes, 0, CBRS_ALIGN_TOP), 60);
    EXPECT_EQ(TamDockParentWnd::SumRestSide(panes, sizes, 3, CBRS_ALIGN_LEFT), 0);
}

} // namespace
} // namespace vesk::test
