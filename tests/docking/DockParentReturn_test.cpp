// Panes hidden, closed or floated come back exactly where they stood: on random layouts, in
// chains of cycles, and beside a sibling that is itself split.
#include "DockFrameFixture.hpp"

#include <random>

namespace vesk::test {
namespace {

constexpr uint32_t kSides[4] = {CBRS_ALIGN_LEFT, CBRS_ALIGN_TOP, CBRS_ALIGN_RIGHT, CBRS_ALIGN_BOTTOM};

class DockReturnTest : public DockFrameTest {
protected:
    // `n` panes: each a band at a random edge (outermost or inner) or docked beside a random
    // docked pane on a random side.
    void BuildRandom(std::mt19937& rng, int n)
    {
        std::vector<TamDockablePane*> docked;
        for (int i = 0; i < n; ++i) {
            TamDockablePane* p = Pane(("P" + std::to_string(i)).c_str(), TamSize(20, 20));
            const uint32_t side = kSides[rng() % 4];
            if (docked.empty() || rng() % 3 == 0) {
                const int32_t len = 60 + int32_t(rng() % 80);
                ASSERT_TRUE(manager->DockIntoParent(p, side, len, rng() % 2 == 0));
            } else {
                ASSERT_TRUE(manager->DockIntoPane(p, docked[rng() % docked.size()], side, 0));
            }
            docked.push_back(p);
        }
        Pump();
    }

    // No two docked panes share a pixel.
    void ExpectNoOverlap() const
    {
        const auto rects = Rects();
        for (size_t i = 0; i < rects.size(); ++i) {
            for (size_t j = i + 1; j < rects.size(); ++j) {
                const CRectangle& a = rects[i];
                const CRectangle& b = rects[j];
                const bool apart = a.Right() <= b.Left() || b.Right() <= a.Left() || a.Bottom() <= b.Top() ||
                                   b.Bottom() <= a.Top();
                EXPECT_TRUE(apart) << i << " and " << j;
            }
        }
    }
};

TEST_F(DockReturnTest, HideShowAndFloatRedockReturnEveryPaneExactly)
{
    for (uint32_t seed = 1; seed <= 12; ++seed) {
        std::mt19937 rng(seed);
        BuildRandom(rng, 3 + int(seed % 6));
        const auto start = RectsByPane();
        for (const auto& pane : panes) {
            pane->HidePane();
            ExpectNoOverlap();
            pane->ShowPane();
            EXPECT_EQ(RectsByPane(), start) << "seed " << seed << " hide/show " << static_cast<const char*>(pane->GetName());
            EXPECT_NE(manager->GetDockParent().GetLastPlacementStep(), DockPlacementStep::Heuristic);

            ASSERT_TRUE(pane->FloatPane());
            ExpectNoOverlap();
            ASSERT_TRUE(pane->RedockPane());
            EXPECT_EQ(RectsByPane(), start) << "seed " << seed << " float/redock " << static_cast<const char*>(pane->GetName());
        }
        for (auto& pane : panes)
            pane->HidePane();
        panes.clear();
    }
}

TEST_F(DockReturnTest, ChainsOfHideShowDoNotDrift)
{
    std::mt19937 rng(77);
    BuildRandom(rng, 8);
    const auto start = RectsByPane();
    for (int cycle = 0; cycle < 50; ++cycle) {
        TamDockablePane* pane = panes[rng() % panes.size()].get();
        pane->HidePane();
        pane->ShowPane();
    }
    EXPECT_EQ(RectsByPane(), start);
    // Two hidden at once and shown in the opposite order.
    panes[2]->HidePane();
    panes[5]->HidePane();
    panes[5]->ShowPane();
    panes[2]->ShowPane();
    EXPECT_EQ(RectsByPane(), start);
}

TEST_F(DockReturnTest, SiblingThatIsASplitAndBandRank)
{
    // Left band: A over P; then C beside A, so that P's sibling is the split A | C.
    TamDockablePane* a = Pane("A");
    TamDockablePane* p = Pane("P");
    TamDockablePane* c = Pane("C");
    TamDockablePane* top = Pane("Top");
    TamDockablePane* mid = Pane("Mid");
    ASSERT_TRUE(manager->DockIntoParent(top, CBRS_ALIGN_TOP, 90, false));
    ASSERT_TRUE(manager->DockIntoParent(a, CBRS_ALIGN_LEFT, 300, false));
    ASSERT_TRUE(manager->DockIntoParent(mid, CBRS_ALIGN_BOTTOM, 70, false));
    ASSERT_TRUE(manager->DockIntoPane(p, a, CBRS_ALIGN_BOTTOM, 150));
    ASSERT_TRUE(manager->DockIntoPane(c, a, CBRS_ALIGN_RIGHT, 100));
    Pump();
    const auto start = RectsByPane();

    p->HidePane();
    const DockNeighbour* holder = p->GetRRecentDockPosition().GetHolderNeighbour();
    ASSERT_NE(holder, nullptr);
    EXPECT_EQ(holder, &p->GetRRecentDockPosition().GetNeighbourVec().front());
    EXPECT_EQ(holder->GetAlign(), CBRS_ALIGN_TOP);
    p->ShowPane();
    EXPECT_EQ(manager->GetDockParent().GetLastPlacementStep(), DockPlacementStep::Holder);
    EXPECT_EQ(RectsByPane(), start);
    // Its sibling split stands above it again, not only the pane it was named by.
    EXPECT_EQ(Width(HostRect(p)), Width(HostRect(a)) + Width(HostRect(c)) + 5);

    // The band between the top band and the bottom one keeps its rank, not the outermost.
    mid->HidePane();
    EXPECT_EQ(mid->GetRRecentDockPosition().GetMarginAlign(), CBRS_ALIGN_BOTTOM);
    EXPECT_TRUE(mid->GetRRecentDockPosition().IsMarginDock());
    mid->ShowPane();
    EXPECT_EQ(manager->GetDockParent().GetLastPlacementStep(), DockPlacementStep::Margin);
    EXPECT_EQ(RectsByPane(), start);
    top->HidePane();
    top->ShowPane();
    EXPECT_EQ(RectsByPane(), start);
}

} // namespace
} // namespace vesk::test
