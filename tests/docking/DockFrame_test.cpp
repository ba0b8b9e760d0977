// The dock framework's windows: placement from the solver, containers, resizing, floating,
// hiding, dock sites and print preview. (Exact returns after hiding, floating, resizing and
// changes of resolution on random layouts are the fidelity simulator's.)
#include "DockFrameFixture.hpp"

namespace vesk::test {
namespace {

// The left and right bands, and an outermost bottom band 120 tall.
class DockLayoutTest : public DockBandsTest {
protected:
    void SetUp() override
    {
        DockBandsTest::SetUp();
        bottom = Pane("Bottom");
        ASSERT_TRUE(manager->DockIntoParent(bottom, CBRS_ALIGN_BOTTOM, 120, true));
        Pump();
    }
    TamDockablePane* bottom = nullptr;
};

TEST_F(DockLayoutTest, WindowsStandWhereTheSolverPutsThemAtEverySize)
{
    EXPECT_EQ(Rects(), SolverRects());
    // Outermost bottom band spans the frame; the left band stands above it.
    EXPECT_EQ(HostRect(bottom), CRectangle(0, kHeight - 120, kWidth, kHeight));
    EXPECT_EQ(Width(HostRect(left)), 200);
    EXPECT_EQ(HostRect(left).Right(), HostRect(below).Right());
    // Three band dividers and one for the split, each with its own window where the solver says.
    const auto& dividers = manager->GetModel().GetSolution().dividers;
    ASSERT_EQ(manager->GetDividers().size(), 4u);
    ASSERT_EQ(dividers.size(), 4u);
    for (size_t i = 0; i < dividers.size(); ++i) {
        const LayoutRect& d = dividers[i].rect;
        EXPECT_EQ(HostRect(manager->GetDividers()[i]->GetCWnd()), CRectangle(d.x, d.y, d.x + d.cx, d.y + d.cy));
    }
    // The windows follow the frame, down to nothing.
    for (const TamSize size : {TamSize(333, 257), TamSize(1201, 911), TamSize(0, 0)}) {
        Display().InjectResize(frame->GetSafeHwnd(), size.Width(), size.Height());
        Pump();
        EXPECT_EQ(manager->GetHost()->GetClientSize(), size);
        EXPECT_EQ(Rects(), SolverRects()) << size.Width() << "x" << size.Height();
    }
    manager->SetDpi(144);
    EXPECT_EQ(Rects(), SolverRects());
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

TEST_F(DockLayoutTest, HiddenPanesHideTheirWindowAndTheCloseButtonHides)
{
    const std::vector<CRectangle> start = Rects();
    below->HidePane();
    EXPECT_FALSE(below->IsDocked());
    EXPECT_FALSE(below->GetCWnd()->IsWindowVisible());
    EXPECT_EQ(Height(HostRect(left)), kHeight - 125); // the left pane takes the band back
    below->ShowPane();
    EXPECT_TRUE(below->GetCWnd()->IsWindowVisible());

    const CRectangle close = right->GetCloseButtonRect();
    Display().InjectMouseButton(Handle(right), display::MouseButton::Left, true, close.Left() + 2, close.Top() + 2);
    Display().InjectMouseButton(Handle(right), display::MouseButton::Left, false, close.Left() + 2, close.Top() + 2);
    Pump();
    EXPECT_FALSE(right->IsDocked());
    EXPECT_EQ(manager->GetModel().GetPaneCount(), 3u);
    right->ShowPane();
    EXPECT_EQ(Rects(), start);
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

TEST_F(DockLayoutTest, FloatingKeepsTheNativeWindowAndWhatLivesInIt)
{
    const std::vector<CRectangle> start = Rects();
    const NativeWindow handle = right->GetCWnd()->GetSafeHwnd();
    CWnd inner;
    ASSERT_TRUE(inner.Create(WndKind::Child, right->GetCWnd(), TamPoint(2, 3), TamSize(4, 5)));
    auto innerStaysPut = [&] {
        EXPECT_EQ(right->GetCWnd()->GetSafeHwnd(), handle);
        ASSERT_NE(inner.GetSafeHwnd(), nullptr);
        EXPECT_EQ(inner.GetWindowRect().Left(), right->GetScreenRect().Left() + 2);
        EXPECT_EQ(inner.GetWindowRect().Top(), right->GetScreenRect().Top() + 3);
    };
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
    innerStaysPut();
    EXPECT_EQ(Rects(), SolverRects());

    // Hidden while floating: the mini-frame goes with it.
    right->HidePane();
    frames.clear();
    manager->FillMiniFrameVec(frames);
    EXPECT_TRUE(frames.empty());
    right->ShowPane();
    ASSERT_TRUE(right->GetMiniFrameScreenRect(mini));

    // Docked again at its band: the mini-frame goes, every rectangle is back.
    ASSERT_TRUE(manager->DockIntoParent(right, CBRS_ALIGN_RIGHT, 150, false));
    frames.clear();
    manager->FillMiniFrameVec(frames);
    EXPECT_TRUE(frames.empty());
    EXPECT_FALSE(right->GetMiniFrameScreenRect(mini));
    EXPECT_EQ(right->GetCWnd()->GetParent(), manager->GetHost());
    innerStaysPut();
    EXPECT_EQ(Rects(), start);
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
    for (const bool out : {true, false}) {
        Display().InjectMouseButton(site->GetHandle(), display::MouseButton::Left, true, tab.Left() + 3, tab.Top() + 3);
        Pump();
        EXPECT_EQ(site->GetShownPane(), out ? below : nullptr);
        EXPECT_EQ(below->GetCWnd()->IsWindowVisible(), out);
        if (out) {
            EXPECT_EQ(HostRect(below), CRectangle(strip, 0, strip + 200, kHeight));
        }
    }

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
