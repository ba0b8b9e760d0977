// The dock framework's windows: placement from the solver, containers, resizing, floating,
// hiding, dock sites and print preview.
#include "DockFrameFixture.hpp"

namespace vesk::test {
namespace {

// Left band with two panes stacked, a right band, a bottom band.
class DockLayoutTest : public DockFrameTest {
protected:
    void SetUp() override
    {
        DockFrameTest::SetUp();
        left = Pane("Left");
        right = Pane("Right");
        below = Pane("Below");
        bottom = Pane("Bottom");
        ASSERT_TRUE(manager->DockIntoParent(left, CBRS_ALIGN_LEFT, 200, false));
        ASSERT_TRUE(manager->DockIntoParent(right, CBRS_ALIGN_RIGHT, 150, false));
        ASSERT_TRUE(manager->DockIntoParent(bottom, CBRS_ALIGN_BOTTOM, 120, true));
        ASSERT_TRUE(manager->DockIntoPane(below, left, CBRS_ALIGN_BOTTOM, 240));
        Pump();
    }
    TamDockablePane* left = nullptr;
    TamDockablePane* right = nullptr;
    TamDockablePane* below = nullptr;
    TamDockablePane* bottom = nullptr;
};

TEST_F(DockLayoutTest, WindowsStandWhereTheSolverPutsThem)
{
    EXPECT_EQ(Rects(), SolverRects());
    // Outermost bottom band spans the frame; the left band stands above it.
    EXPECT_EQ(HostRect(bottom), CRectangle(0, kHeight - 120, kWidth, kHeight));
    EXPECT_EQ(Width(HostRect(left)), 200);
    EXPECT_EQ(Height(HostRect(below)), 240);
    EXPECT_EQ(HostRect(left).Right(), HostRect(below).Right());
    // Three band dividers and one for the split, each with its own window where the solver says.
    const auto& dividers = manager->GetModel().GetSolution().dividers;
    ASSERT_EQ(manager->GetDividers().size(), 4u);
    ASSERT_EQ(dividers.size(), 4u);
    for (size_t i = 0; i < dividers.size(); ++i) {
        const LayoutRect& d = dividers[i].rect;
        EXPECT_EQ(HostRect(manager->GetDividers()[i]->GetCWnd()), CRectangle(d.x, d.y, d.x + d.cx, d.y + d.cy));
    }
    EXPECT_EQ(TamPaneDivider::GetDefaultWidth(96), 5);
    EXPECT_EQ(TamPaneDivider::GetDefaultWidth(192), 10);
}

TEST_F(DockLayoutTest, OneContainerPerSplitWithItsPartsAndDivider)
{
    ASSERT_EQ(manager->GetContainers().size(), 1u);
    TamPaneContainer* c = manager->GetContainers()[0].get();
    EXPECT_EQ(c->GetLeftPane(), left);
    EXPECT_EQ(c->GetRightPane(), below);
    EXPECT_EQ(c->GetLeftContainer(), nullptr);
    EXPECT_FALSE(c->IsHorizontal());
    EXPECT_EQ(c->GetDepth(), 0);
    ASSERT_NE(c->GetDivider(), nullptr);
    EXPECT_FALSE(c->GetDivider()->IsVertical());

    // Splitting a part nests a container one deeper; taking the pane out drops it again.
    TamDockablePane* side = Pane("Side");
    ASSERT_TRUE(manager->DockIntoPane(side, below, CBRS_ALIGN_RIGHT, 0));
    ASSERT_EQ(manager->GetContainers().size(), 2u);
    EXPECT_EQ(c->GetRightPane(), nullptr);
    auto* inner = dynamic_cast<TamPaneContainer*>(c->GetRightContainer());
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(inner->GetDepth(), 1);
    EXPECT_EQ(inner->GetLeftPane(), below);
    EXPECT_EQ(inner->GetRightPane(), side);
    EXPECT_TRUE(side->UndockPane());
    EXPECT_EQ(manager->GetContainers().size(), 1u);
    EXPECT_EQ(c->GetRightPane(), below);
}

TEST_F(DockLayoutTest, LayoutTreeOfTheWindows)
{
    const DockElementVec tree = manager->BuildDockElements();
    ASSERT_EQ(tree.size(), 4u); // bottom, left (a holder), right, free space
    auto* holder = dynamic_cast<HolderElement*>(tree[1].get());
    ASSERT_NE(holder, nullptr);
    auto* upper = dynamic_cast<DockPaneElement*>(holder->GetLeft());
    ASSERT_NE(upper, nullptr);
    EXPECT_EQ(upper->GetPane(), left);
    EXPECT_EQ(upper->GetRect(), left->GetScreenRect());
    const CRectangle l = left->GetScreenRect(), b = below->GetScreenRect();
    EXPECT_EQ(holder->GetRect(), CRectangle(l.Left(), l.Top(), b.Right(), b.Bottom()));
    auto* free = dynamic_cast<FreeSpaceElement*>(tree[3].get());
    ASSERT_NE(free, nullptr);
    // Between the left and right bands, above the bottom one, with a divider on each side.
    const CRectangle r = right->GetScreenRect();
    EXPECT_EQ(free->GetRect(), CRectangle(l.Right() + 5, l.Top(), r.Left() - 5, b.Bottom()));
}

TEST_F(DockLayoutTest, ResizeAndResolutionKeepTheSolversRectangles)
{
    const std::vector<CRectangle> start = Rects();
    const NativeWindow handle = frame->GetSafeHwnd();
    for (const TamSize size : {TamSize(333, 257), TamSize(1201, 911), TamSize(0, 0), TamSize(799, 601)}) {
        Display().InjectResize(handle, size.Width(), size.Height());
        Pump();
        EXPECT_EQ(manager->GetHost()->GetClientSize(), size);
        EXPECT_EQ(Rects(), SolverRects()) << size.Width() << "x" << size.Height();
    }
    Display().InjectResize(handle, kWidth, kHeight);
    Pump();
    EXPECT_EQ(Rects(), start);
    manager->SetDpi(144);
    EXPECT_EQ(Rects(), SolverRects());
    const LayoutDivider& d = manager->GetModel().GetSolution().dividers[0];
    EXPECT_EQ(d.bVertical ? d.rect.cx : d.rect.cy, 8); // 5 * 1.5 rounded
    manager->SetDpi(96);
    EXPECT_EQ(Rects(), start);
}

TEST_F(DockLayoutTest, HidingAndShowingRestoresTheLayout)
{
    const std::vector<CRectangle> start = Rects();
    below->HidePane();
    EXPECT_FALSE(below->IsDocked());
    EXPECT_FALSE(below->GetCWnd()->IsWindowVisible());
    EXPECT_EQ(Height(HostRect(left)), kHeight - 125); // the left pane takes the band back
    ASSERT_NE(below->GetRRecentDockPosition().GetHolderNeighbour(), nullptr);
    EXPECT_EQ(below->GetRRecentDockPosition().GetHolderNeighbour()->GetName(), SString("Left"));
    EXPECT_EQ(below->GetRRecentDockPosition().GetHolderNeighbour()->GetAlign(), CBRS_ALIGN_TOP);
    below->ShowPane();
    EXPECT_TRUE(below->IsDocked());
    EXPECT_EQ(Rects(), start);

    // The close button closes: the pane hides.
    const CRectangle close = right->GetCloseButtonRect();
    Display().InjectMouseButton(Handle(right), display::MouseButton::Left, true, close.Left() + 2, close.Top() + 2);
    Display().InjectMouseButton(Handle(right), display::MouseButton::Left, false, close.Left() + 2, close.Top() + 2);
    Pump();
    EXPECT_FALSE(right->IsDocked());
    EXPECT_EQ(manager->GetModel().GetPaneCount(), 3u);
    right->ShowPane();
    EXPECT_EQ(Rects(), start);
}

TEST_F(DockLayoutTest, ShownAgainBesideTheLeafItTouched)
{
    // Left over Below over Side: Left's neighbour is Below, not the far part of the split.
    TamDockablePane* side = Pane("Side");
    ASSERT_TRUE(manager->DockIntoPane(side, below, CBRS_ALIGN_BOTTOM, 100));
    left->HidePane();
    ASSERT_NE(left->GetRRecentDockPosition().GetHolderNeighbour(), nullptr);
    EXPECT_EQ(left->GetRRecentDockPosition().GetHolderNeighbour()->GetName(), SString("Below"));
    EXPECT_EQ(left->GetRRecentDockPosition().GetHolderNeighbour()->GetAlign(), CBRS_ALIGN_BOTTOM);
    left->ShowPane();
    EXPECT_EQ(HostRect(left).Top(), 0);
    EXPECT_EQ(HostRect(left).Bottom() + TamPaneDivider::GetDefaultWidth(96), HostRect(below).Top());
    EXPECT_EQ(HostRect(below).Bottom() + TamPaneDivider::GetDefaultWidth(96), HostRect(side).Top());
}

TEST_F(DockLayoutTest, PrintPreviewHidesThePanesAndShowsThemAgain)
{
    const auto start = RectsByPane();
    bottom->HidePane();
    manager->SetPrintPreviewMode(true);
    EXPECT_TRUE(manager->IsPrintPreviewValid());
    EXPECT_EQ(manager->GetModel().GetPaneCount(), 0u);
    manager->SetPrintPreviewMode(true); // again: nothing more happens
    manager->SetPrintPreviewMode(false);
    EXPECT_FALSE(manager->IsPrintPreviewValid());
    // Only the panes that were showing come back.
    EXPECT_FALSE(bottom->IsDocked());
    EXPECT_TRUE(left->IsDocked() && right->IsDocked() && below->IsDocked());
    bottom->ShowPane();
    EXPECT_EQ(RectsByPane(), start);
}

TEST_F(DockLayoutTest, FloatingAndRedocking)
{
    const std::vector<CRectangle> start = Rects();
    // The pane keeps its native window, and what lives in it, wherever it goes.
    const NativeWindow handle = right->GetCWnd()->GetSafeHwnd();
    CWnd inner;
    ASSERT_TRUE(inner.Create(WndKind::Child, right->GetCWnd(), TamPoint(2, 3), TamSize(4, 5)));
    // Partly off the screen: the mini-frame is moved back onto it.
    ASSERT_TRUE(right->FloatAt(CRectangle(-100, 50, 200, 250)));
    EXPECT_TRUE(right->IsFloating());
    std::vector<TamPaneFrameWnd*> frames;
    manager->FillMiniFrameVec(frames);
    ASSERT_EQ(frames.size(), 1u);
    CRectangle mini;
    ASSERT_TRUE(right->GetMiniFrameScreenRect(mini));
    EXPECT_EQ(mini.Left(), 0);
    EXPECT_EQ(Width(mini), 300);
    EXPECT_EQ(right->GetCWnd()->GetParent(), frames[0]);
    EXPECT_EQ(right->GetCWnd()->GetSafeHwnd(), handle);
    EXPECT_EQ(inner.GetWindowRect().Left(), right->GetScreenRect().Left() + 2);
    EXPECT_EQ(inner.GetWindowRect().Top(), right->GetScreenRect().Top() + 3);
    EXPECT_EQ(manager->GetModel().GetPaneCount(), 3u);
    EXPECT_EQ(Rects(), SolverRects());

    // Hidden while floating, shown again floating where it was.
    right->HidePane();
    frames.clear();
    manager->FillMiniFrameVec(frames);
    EXPECT_TRUE(frames.empty());
    right->ShowPane();
    ASSERT_TRUE(right->GetMiniFrameScreenRect(mini));
    EXPECT_EQ(mini.Left(), 0);

    // Docked again at its band: the mini-frame goes, every rectangle is back.
    ASSERT_TRUE(manager->DockIntoParent(right, CBRS_ALIGN_RIGHT, 150, false));
    frames.clear();
    manager->FillMiniFrameVec(frames);
    EXPECT_TRUE(frames.empty());
    EXPECT_FALSE(right->GetMiniFrameScreenRect(mini));
    EXPECT_EQ(right->GetCWnd()->GetParent(), manager->GetHost());
    EXPECT_EQ(right->GetCWnd()->GetSafeHwnd(), handle);
    ASSERT_NE(inner.GetSafeHwnd(), nullptr);
    EXPECT_EQ(inner.GetWindowRect().Left(), right->GetScreenRect().Left() + 2);
    EXPECT_EQ(inner.GetWindowRect().Top(), right->GetScreenRect().Top() + 3);
    // It went in next to the free space, inside the bottom band, as it was.
    EXPECT_EQ(Rects(), start);
}

TEST(MiniFrame, KeptOnTheScreenItOverlapsMost)
{
    const std::vector<CRectangle> screens = {CRectangle(0, 0, 1000, 800), CRectangle(1000, 0, 2000, 800)};
    EXPECT_EQ(TamPaneFrameWnd::KeepOnScreen(CRectangle(1900, 700, 2100, 900), screens),
              CRectangle(1800, 600, 2000, 800));
    EXPECT_EQ(TamPaneFrameWnd::KeepOnScreen(CRectangle(-50, -50, 150, 150), screens), CRectangle(0, 0, 200, 200));
    // Larger than the screen: the top-left corner stays on it.
    EXPECT_EQ(TamPaneFrameWnd::KeepOnScreen(CRectangle(900, 10, 2100, 20), screens), CRectangle(1000, 10, 2200, 20));
    EXPECT_EQ(TamPaneFrameWnd::KeepOnScreen(CRectangle(5000, 5000, 5100, 5100), screens),
              CRectangle(900, 700, 1000, 800));
}

TEST_F(DockFrameTest, NamesAreUniqueAndBadDockingIsRefused)
{
    TamDockablePane* a = Pane("A");
    TamDockablePane twin;
    EXPECT_FALSE(twin.Create(*manager, "A"));
    EXPECT_FALSE(twin.Create(*manager, ""));
    EXPECT_FALSE(a->Create(*manager, "B")); // made already
    std::vector<TamDockablePane*> all;
    manager->FillDockablePaneVec(all);
    EXPECT_EQ(all, std::vector<TamDockablePane*>{a});

    TamDockablePane* b = Pane("B");
    EXPECT_FALSE(manager->DockIntoPane(a, b, CBRS_ALIGN_LEFT, 10)); // b is not docked
    EXPECT_FALSE(manager->DockIntoParent(a, CBRS_ALIGN_ANY, 10, true));
    EXPECT_FALSE(manager->DockIntoParent(&twin, CBRS_ALIGN_LEFT, 10, true));
    ASSERT_TRUE(manager->DockIntoParent(a, CBRS_ALIGN_TOP, 100, true));
    EXPECT_FALSE(manager->DockIntoPane(a, a, CBRS_ALIGN_LEFT, 10));
    EXPECT_EQ(a->GetCurrentAlignment(), CBRS_ALIGN_TOP);
    EXPECT_EQ(b->GetCurrentAlignment(), 0u);
}

TamDockSite* MakeSite()
{
    return new TamDockSite;
}

TEST_F(DockLayoutTest, DockSitesAndAutoHide)
{
    TamDockSite* site = reinterpret_cast<TamDockSite*>(1);
    EXPECT_FALSE(manager->AddDockSite({CBRS_ALIGN_LEFT, nullptr}, &site));
    EXPECT_EQ(site, nullptr);
    EXPECT_FALSE(manager->AddDockSite({CBRS_ALIGN_ANY, &MakeSite}, &site));
    ASSERT_EQ(Display().GetMessageBoxes().size(), 2u);
    EXPECT_EQ(Display().GetMessageBoxes()[0].text, "DockBar Create FAILED");
    ASSERT_TRUE(manager->AddDockSite({CBRS_ALIGN_LEFT, &MakeSite}, &site));
    ASSERT_NE(site, nullptr);
    EXPECT_EQ(manager->GetDockSite(CBRS_ALIGN_LEFT), site);
    EXPECT_FALSE(manager->AddDockSite({CBRS_ALIGN_LEFT, &MakeSite}, nullptr)); // one per edge
    const std::vector<CRectangle> start = Rects();

    // Pinned off with its pin button: a tab in the left strip, the layout shifts by the strip.
    const CRectangle pin = below->GetPinButtonRect();
    Display().InjectMouseButton(Handle(below), display::MouseButton::Left, true, pin.Left() + 2, pin.Top() + 2);
    Pump();
    EXPECT_TRUE(below->IsAutoHidden());
    std::vector<TamDockablePane*> hidden;
    manager->FillAutoHidePaneVec(hidden);
    EXPECT_EQ(hidden, std::vector<TamDockablePane*>{below});
    EXPECT_FALSE(below->GetCWnd()->IsWindowVisible());
    const int32_t strip = site->GetStripThickness(96);
    EXPECT_EQ(strip, 24);
    EXPECT_EQ(HostRect(left).Left(), strip);
    EXPECT_EQ(HostRect(site->GetCWnd()), CRectangle(0, 0, strip, kHeight));

    // A click on the tab slides it out over the layout, a second one back in.
    const CRectangle tab = site->GetTabRect(0);
    Display().InjectMouseButton(site->GetHandle(), display::MouseButton::Left, true, tab.Left() + 3, tab.Top() + 3);
    Pump();
    EXPECT_EQ(site->GetShownPane(), below);
    EXPECT_TRUE(below->GetCWnd()->IsWindowVisible());
    EXPECT_EQ(HostRect(below), CRectangle(strip, 0, strip + 200, kHeight));
    Display().InjectMouseButton(site->GetHandle(), display::MouseButton::Left, true, tab.Left() + 3, tab.Top() + 3);
    Pump();
    EXPECT_EQ(site->GetShownPane(), nullptr);
    EXPECT_FALSE(below->GetCWnd()->IsWindowVisible());

    // Pinned back: the strip goes and every rectangle is as before.
    EXPECT_TRUE(below->SetAutoHideMode(false));
    EXPECT_EQ(site->GetStripThickness(96), 0);
    EXPECT_EQ(Rects(), start);
    // No site on the right edge: a pane there cannot be pinned off.
    EXPECT_FALSE(right->SetAutoHideMode(true));

    // Docked somewhere else, or floated, straight from the strip: the strip lets it go.
    for (int floated = 0; floated < 2; ++floated) {
        ASSERT_TRUE(manager->DockIntoParent(left, CBRS_ALIGN_LEFT, 100, true));
        ASSERT_TRUE(left->SetAutoHideMode(true));
        EXPECT_EQ(site->GetStripThickness(96), 24);
        ASSERT_TRUE(floated ? left->FloatAt(CRectangle(10, 10, 200, 200))
                            : manager->DockIntoPane(left, right, CBRS_ALIGN_TOP, 0));
        hidden.clear();
        manager->FillAutoHidePaneVec(hidden);
        EXPECT_TRUE(hidden.empty());
        EXPECT_EQ(site->GetStripThickness(96), 0);
        EXPECT_EQ(HostRect(below).Left(), 0);
    }
}

} // namespace
} // namespace vesk::test
