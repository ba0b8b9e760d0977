// Each rule of DockWithPosition reached by a layout built for it, the emergency places, the
// application's callbacks in their order, and returns beside a split sibling or into an inner
// band. (Returns on random layouts are the fidelity simulator's.)
#include "DockFrameFixture.hpp"

#include <string>

namespace vesk::test {
namespace {

// A dock parent whose heuristic finds nothing, so that the emergency place is taken.
class NoHeuristicParent : public TamDockParentWnd {
public:
    using TamDockParentWnd::TamDockParentWnd;

protected:
    bool DockHeuristic(TamDockablePane*, const DockPosition&) override { return false; }
};

class DockParentTest : public DockFrameTest {
protected:
    TamDockParentWnd& Parent() const { return manager->GetDockParent(); }
};

TEST_F(DockParentTest, JustifiedNeighbourBesideTheFreeSpace)
{
    TamDockablePane* n = Pane("N");
    TamDockablePane* p = Pane("P");
    ASSERT_TRUE(manager->DockIntoParent(n, CBRS_ALIGN_LEFT, 200, false));
    DockPosition pos = Unplaced(TamSize(170, 300));
    pos.AddNeighbour("N", CBRS_ALIGN_LEFT, NCT_JUSTIFIED_SIDE);
    pos.AddNeighbour("GFS", CBRS_ALIGN_LEFT, NCT_JUSTIFIED_SIDE, false, true);
    Parent().DockWithPosition(p, pos);
    EXPECT_EQ(Parent().GetLastPlacementStep(), DockPlacementStep::JustifiedFree);
    // The pane takes the edge opposite the free space with the pane's width; the neighbour
    // docks again on its own side as wide as before.
    EXPECT_EQ(HostRect(p).Right(), kWidth);
    EXPECT_EQ(Width(HostRect(p)), 170);
    EXPECT_EQ(HostRect(n).Left(), 0);
    EXPECT_EQ(Width(HostRect(n)), 200);
    EXPECT_TRUE(n->IsDocked());

    // The free space on another side than the neighbour: the rule does not apply.
    TamDockablePane* q = Pane("Q");
    DockPosition other = pos;
    other.AddNeighbour("GFS", CBRS_ALIGN_TOP, NCT_JUSTIFIED_SIDE, false, true);
    Parent().DockWithPosition(q, other);
    EXPECT_EQ(Parent().GetLastPlacementStep(), DockPlacementStep::Heuristic);
}

TEST_F(DockParentTest, AlignedRowIsDockedAgainWithTheRestOfItsLength)
{
    // A top band 370 wide (a right band takes the rest) with A | B | C of 100, 120 and 140.
    TamDockablePane* right = Pane("Right");
    TamDockablePane* a = Pane("A");
    TamDockablePane* b = Pane("B");
    TamDockablePane* c = Pane("C");
    TamDockablePane* p = Pane("P");
    ASSERT_TRUE(manager->DockIntoParent(right, CBRS_ALIGN_RIGHT, kWidth - 375, false));
    ASSERT_TRUE(manager->DockIntoParent(a, CBRS_ALIGN_TOP, 150, false));
    ASSERT_TRUE(manager->DockIntoPane(b, a, CBRS_ALIGN_RIGHT, 265));
    ASSERT_TRUE(manager->DockIntoPane(c, b, CBRS_ALIGN_RIGHT, 140));
    ASSERT_EQ(Width(HostRect(a)), 100);
    ASSERT_EQ(Width(HostRect(b)), 120);
    ASSERT_EQ(Width(HostRect(c)), 140);

    DockPosition pos = Unplaced(TamSize(200, 200));
    pos.AddNeighbour("A", CBRS_ALIGN_TOP, NCT_JUSTIFIED_SIDE);
    pos.AddNeighbour("B", CBRS_ALIGN_TOP, NCT_TOUCHING_SIDE);
    pos.AddNeighbour("C", CBRS_ALIGN_TOP, NCT_JUSTIFIED_SIDE);
    Parent().DockWithPosition(p, pos);
    EXPECT_EQ(Parent().GetLastPlacementStep(), DockPlacementStep::AlignedRow);
    // P under A; B docked right of A with 260 (120 + 140), C right of B with 140.
    EXPECT_EQ(HostRect(p).Top(), HostRect(a).Bottom() + 5);
    EXPECT_EQ(HostRect(p).Left(), 0);
    EXPECT_EQ(Width(HostRect(c)), 140);
    EXPECT_EQ(Width(HostRect(b)), 260 - 140 - 5);
    EXPECT_EQ(HostRect(c).Left(), HostRect(b).Right() + 5);

    // A missing row pane sends it on to the next rule.
    TamDockablePane* q = Pane("Q");
    pos.AddNeighbour("Gone", CBRS_ALIGN_TOP, NCT_TOUCHING_SIDE);
    c->HidePane();
    Parent().DockWithPosition(q, pos);
    EXPECT_NE(Parent().GetLastPlacementStep(), DockPlacementStep::AlignedRow);
}

TEST_F(DockParentTest, FloatingThenHeuristicWithoutNeighbours)
{
    TamDockablePane* a = Pane("A");
    TamDockablePane* p = Pane("P");
    ASSERT_TRUE(manager->DockIntoParent(a, CBRS_ALIGN_LEFT, 250, false));
    p->SetRecentFloatRect(CRectangle(300, 200, 520, 380));
    DockPosition pos = Unplaced(TamSize(220, 180));
    pos.SetIsFloating(true);
    Parent().DockWithPosition(p, pos);
    EXPECT_EQ(Parent().GetLastPlacementStep(), DockPlacementStep::Floating);
    CRectangle mini;
    ASSERT_TRUE(p->GetMiniFrameScreenRect(mini));
    EXPECT_EQ(mini, CRectangle(300, 200, 520, 380));

    // Not floating: scored into a free place, beside the others and over none.
    pos.SetIsFloating(false);
    Parent().DockWithPosition(p, pos);
    EXPECT_EQ(Parent().GetLastPlacementStep(), DockPlacementStep::Heuristic);
    EXPECT_TRUE(p->IsDocked());
    EXPECT_FALSE(p->GetMiniFrameScreenRect(mini));
    const CRectangle pr = HostRect(p);
    const CRectangle ar = HostRect(a);
    EXPECT_TRUE(pr.Left() >= ar.Right() || pr.Top() >= ar.Bottom() || pr.Bottom() <= ar.Top());
}

TEST_F(DockParentTest, EmergencyPlacesInAThousandByEightHundredParent)
{
    Display().InjectResize(frame->GetSafeHwnd(), 1000, 800);
    Pump();
    ASSERT_EQ(manager->GetHost()->GetClientSize(), TamSize(1000, 800));
    NoHeuristicParent parent(*manager);
    TamDockablePane* tall = Pane("Tall");
    TamDockablePane* wide = Pane("Wide");
    parent.DockWithPosition(tall, Unplaced(TamSize(200, 600)));
    EXPECT_EQ(parent.GetLastPlacementStep(), DockPlacementStep::Emergency);
    EXPECT_EQ(HostRect(tall), CRectangle(800, 0, 1000, 800));
    // Outermost: the bottom band spans the parent, the right one now stands above it.
    parent.DockWithPosition(wide, Unplaced(TamSize(600, 200)));
    EXPECT_EQ(HostRect(wide), CRectangle(0, 600, 1000, 800));
    EXPECT_EQ(HostRect(tall), CRectangle(800, 0, 1000, 595));
    // Limits: a quarter of the parent, 350 across and 300 down.
    wide->HidePane();
    tall->HidePane();
    parent.DockWithPosition(tall, Unplaced(TamSize(500, 900)));
    EXPECT_EQ(Width(HostRect(tall)), 250);
    tall->HidePane();
    parent.DockWithPosition(wide, Unplaced(TamSize(900, 500)));
    EXPECT_EQ(Height(HostRect(wide)), 200);
    wide->HidePane();
    // Square: at the right.
    parent.DockWithPosition(tall, Unplaced(TamSize(300, 300)));
    EXPECT_EQ(HostRect(tall), CRectangle(750, 0, 1000, 800));
}

TEST_F(DockParentTest, RoomInTheNeighbourHolder)
{
    TamDockablePane* b = Pane("B");
    DockStack(Pane("A"), b, 250, 100);
    // Across the stacked holder: nothing; along it: two thirds of the holder's height.
    Parent().MakeRoomInNeighbourHolder(b, CBRS_ALIGN_LEFT);
    EXPECT_EQ(Height(HostRect(b)), 100);
    Parent().MakeRoomInNeighbourHolder(b, CBRS_ALIGN_TOP);
    EXPECT_EQ(Height(HostRect(b)), static_cast<int32_t>(kHeight * 0.66));
    // Already larger: left alone.
    Parent().MakeRoomInNeighbourHolder(b, CBRS_ALIGN_BOTTOM);
    EXPECT_EQ(Height(HostRect(b)), static_cast<int32_t>(kHeight * 0.66));
}

// Records the callbacks in the order they come; the may-close answer is set by the test.
struct Recorder {
    std::vector<std::string> calls;
    int32_t mayClose = 1;
    int32_t takeFloat = 0;
    TamDockablePane* shownWhileHidden = nullptr;
    DockPosition saved;

    int32_t MayClose(void*) { calls.push_back("may-close"); return mayClose; }
    int32_t Removed(void*) { calls.push_back("removed"); return 0; }
    int32_t Shown(void* pane)
    {
        calls.push_back("shown");
        if (!static_cast<TamDockablePane*>(pane)->IsDocked())
            shownWhileHidden = static_cast<TamDockablePane*>(pane);
        return 0;
    }
    CRectangle recentFloat;
    int32_t Recent(void* pane)
    {
        calls.push_back("recent");
        recentFloat = static_cast<TamDockablePane*>(pane)->GetRRecentDockPosition().GetRectRecentFloat();
        return 0;
    }
    int32_t FloatQuery(void* pos)
    {
        calls.push_back("float-query");
        static_cast<DockPosition*>(pos)->SetRectRecentFloat(CRectangle(100, 120, 400, 320));
        return takeFloat;
    }
    int32_t SaveFloat(void* pos)
    {
        calls.push_back("save-float");
        saved = *static_cast<DockPosition*>(pos);
        return 0;
    }
};

TEST_F(DockParentTest, CallbacksInTheirOrderAndRefusal)
{
    Recorder rec;
    DockParentCallBacks cb;
    cb.aMayClose = MakeLink<&Recorder::MayClose>(&rec);
    cb.aPaneRemoved = MakeLink<&Recorder::Removed>(&rec);
    cb.aPaneShown = MakeLink<&Recorder::Shown>(&rec);
    cb.aRecentPosition = MakeLink<&Recorder::Recent>(&rec);
    cb.aFloatRectQuery = MakeLink<&Recorder::FloatQuery>(&rec);
    cb.aSaveFloatState = MakeLink<&Recorder::SaveFloat>(&rec);
    Parent().SetCallBacks(cb);

    TamDockablePane* a = Pane("A");
    TamDockablePane* b = Pane("B");
    Window body;
    b->SetLibraryWindow(&body);
    DockStack(a, b, 250, 200);
    const auto start = RectsByPane();

    // Refused: nothing changes, not even the recent position.
    rec.mayClose = 0;
    DockPosition pos = b->GetRecentDockPosition();
    EXPECT_FALSE(Parent().RemovePane(b, pos, true));
    EXPECT_TRUE(b->IsDocked());
    EXPECT_EQ(b->GetRRecentDockPosition().GetHolderNeighbour(), nullptr);
    EXPECT_EQ(rec.calls, std::vector<std::string>{"may-close"});
    EXPECT_FALSE(Parent().RemovePane(nullptr, pos, true));

    // Agreed: stored, closed, then reported; shown again beside A, reported before docking.
    rec.calls.clear();
    rec.mayClose = 1;
    EXPECT_TRUE(Parent().RemovePane(b, pos, true));
    EXPECT_FALSE(b->IsDocked());
    ASSERT_NE(b->GetRRecentDockPosition().GetHolderNeighbour(), nullptr);
    EXPECT_EQ(b->GetRRecentDockPosition().GetName(), SString("B"));
    b->ShowPane();
    EXPECT_EQ(rec.calls, (std::vector<std::string>{"may-close", "removed", "shown"}));
    EXPECT_EQ(rec.shownWhileHidden, b);
    EXPECT_EQ(RectsByPane(), start);

    // Floating where the application says (reason 2), then the stored position is reported.
    rec.calls.clear();
    rec.takeFloat = 1;
    ASSERT_TRUE(b->FloatPane());
    EXPECT_EQ(rec.calls, (std::vector<std::string>{"float-query", "recent"}));
    EXPECT_EQ(rec.recentFloat, CRectangle(100, 120, 400, 320)); // stored before it was reported
    CRectangle mini;
    ASSERT_TRUE(b->GetMiniFrameScreenRect(mini));
    EXPECT_EQ(mini, CRectangle(100, 120, 400, 320));
    ASSERT_TRUE(b->RedockPane());
    EXPECT_EQ(RectsByPane(), start);

    // An explicit rectangle asks nothing; a pane without a library window stores silently.
    rec.calls.clear();
    ASSERT_TRUE(b->FloatAt(CRectangle(10, 10, 200, 200)));
    ASSERT_TRUE(a->FloatAt(CRectangle(10, 10, 200, 200)));
    EXPECT_EQ(rec.calls, std::vector<std::string>{"recent"});

    Parent().SaveRecentFloatingState(b, CRectangle(5, 6, 305, 206));
    EXPECT_EQ(rec.saved.GetName(), SString("B"));
    EXPECT_EQ(rec.saved.GetRectRecentFloat(), CRectangle(5, 6, 305, 206));
    EXPECT_EQ(b->GetRecentFloatRect(), CRectangle(5, 6, 305, 206));
}

TEST_F(DockParentTest, SiblingThatIsASplitAndBandRank)
{
    // Left band: A over P; then C beside A, so that P's sibling is the split A | C.
    TamDockablePane* top = Pane("Top");
    ASSERT_TRUE(manager->DockIntoParent(top, CBRS_ALIGN_TOP, 90, false));
    TamDockablePane* a = Pane("A");
    TamDockablePane* p = Pane("P");
    DockStack(a, p, 300, 150);
    TamDockablePane* mid = Pane("Mid");
    ASSERT_TRUE(manager->DockIntoParent(mid, CBRS_ALIGN_BOTTOM, 70, false));
    TamDockablePane* c = Pane("C");
    ASSERT_TRUE(manager->DockIntoPane(c, a, CBRS_ALIGN_RIGHT, 100));
    Pump();
    const auto start = RectsByPane();

    p->HidePane();
    const DockNeighbour* holder = p->GetRRecentDockPosition().GetHolderNeighbour();
    ASSERT_NE(holder, nullptr);
    EXPECT_EQ(holder, &p->GetRRecentDockPosition().GetNeighbourVec().front());
    EXPECT_EQ(holder->GetAlign(), CBRS_ALIGN_TOP);
    EXPECT_EQ(holder->GetName(), SString("C")); // the split's part next to P in the tree
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
