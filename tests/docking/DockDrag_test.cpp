// Divider drags and drag-to-dock through injected mouse and key messages. (Clamping by minimum
// sizes is the layout model's, drags and back on random layouts the fidelity simulator's.)
#include "DockFrameFixture.hpp"

namespace vesk::test {
namespace {

uint32_t HookCount()
{
    return GlGetPWinMsgRouter()->GetHookCount();
}

class DockDragTest : public DockBandsTest {
protected:
    void SetUp() override
    {
        DockBandsTest::SetUp();
        hooks = HookCount();
    }
    NativeWindow SplitDivider() const
    {
        // The bar between the two stacked panes of the left band.
        return manager->GetContainers()[0]->GetDivider()->GetHandle();
    }

    uint32_t hooks = 0;
};

TEST_F(DockDragTest, DividerDragMovesExactlyItsTwoNeighbours)
{
    const CRectangle l = HostRect(left), b = HostRect(below), r = HostRect(right);
    const NativeWindow divider = SplitDivider();
    ASSERT_NE(divider, nullptr);
    const CRectangle bar = HostRect(CWnd::FromHandle(divider));
    Display().InjectMouseButton(divider, display::MouseButton::Left, true, 50, 2);
    Pump();
    EXPECT_TRUE(manager->IsDragging());
    EXPECT_EQ(HookCount(), hooks + 1);
    Display().InjectMouseMove(HostHandle(), bar.Left() + 60, bar.Top() + 12);
    Pump();
    Display().InjectMouseMove(HostHandle(), bar.Left() + 70, bar.Top() + 32);
    Pump();
    // While dragging only the bar moves.
    EXPECT_EQ(HostRect(left), l);
    EXPECT_EQ(HostRect(CWnd::FromHandle(divider)).Top(), l.Bottom() + 30);
    Display().InjectMouseButton(HostHandle(), display::MouseButton::Left, false, bar.Left() + 70, bar.Top() + 32);
    Pump();
    EXPECT_FALSE(manager->IsDragging());
    EXPECT_EQ(HookCount(), hooks);
    EXPECT_EQ(HostRect(left), CRectangle(l.Left(), l.Top(), l.Right(), l.Bottom() + 30));
    EXPECT_EQ(HostRect(below), CRectangle(b.Left(), b.Top() + 30, b.Right(), b.Bottom()));
    EXPECT_EQ(HostRect(right), r);
    EXPECT_EQ(Rects(), SolverRects());
}

TEST_F(DockDragTest, EscapePutsTheDividerBack)
{
    const std::vector<CRectangle> start = Rects();
    const NativeWindow divider = SplitDivider();
    const CRectangle bar = HostRect(CWnd::FromHandle(divider));
    Display().InjectMouseButton(divider, display::MouseButton::Left, true, 50, 2);
    Pump();
    Display().InjectMouseMove(HostHandle(), bar.Left() + 50, bar.Top() + 80);
    Pump();
    EXPECT_NE(HostRect(CWnd::FromHandle(divider)), bar);
    Display().InjectKey(divider, VK_ESCAPE, true);
    Pump();
    EXPECT_FALSE(manager->IsDragging());
    EXPECT_EQ(HookCount(), hooks);
    // The release after it is an ordinary click that changes nothing.
    Display().InjectMouseButton(divider, display::MouseButton::Left, false, 50, 80);
    Pump();
    EXPECT_EQ(Rects(), start);
    EXPECT_EQ(HostRect(CWnd::FromHandle(divider)), bar);
}

TEST_F(DockDragTest, CaptionDragDocksOntoAPanesEdgeAsPreviewed)
{
    // Over the lower part of the left pane, nearest its right side.
    const CRectangle l = HostRect(left);
    const TamPoint target(l.Right() - 10, l.Top() + 100);
    const CRectangle was = HostRect(right);
    Display().InjectMouseButton(Handle(right), display::MouseButton::Left, true, 10, 5);
    Pump();
    Display().InjectMouseMove(HostHandle(), was.Left() + 12, was.Top() + 5);
    Pump();
    EXPECT_TRUE(right->IsDocked()); // not yet: 2 pixels
    Display().InjectMouseMove(HostHandle(), was.Left() + 10, was.Top() + 25);
    Pump();
    EXPECT_FALSE(right->IsDocked()); // lifted out, by a move straight down
    Display().InjectMouseMove(HostHandle(), target.x, target.y);
    Pump();
    CRectangle preview;
    ASSERT_TRUE(manager->GetDropPreview(preview));
    Display().InjectMouseButton(HostHandle(), display::MouseButton::Left, false, target.x, target.y);
    Pump();
    EXPECT_EQ(HookCount(), hooks);
    ASSERT_TRUE(right->IsDocked());
    EXPECT_EQ(HostRect(right), preview);
    EXPECT_EQ(right->GetCurrentAlignment(), CBRS_ALIGN_LEFT);
    EXPECT_EQ(HostRect(right).Left(), HostRect(left).Right() + TamPaneDivider::GetDefaultWidth(96));
    EXPECT_EQ(HostRect(right).Bottom(), HostRect(left).Bottom());
    EXPECT_EQ(Rects(), SolverRects());
}

TEST_F(DockDragTest, CaptionDragToTheFrameEdgeAndEscape)
{
    const std::vector<CRectangle> start = Rects();
    const NativeWindow caption = Handle(below);
    // Escape while lifted: the pane goes back exactly.
    Display().InjectMouseButton(caption, display::MouseButton::Left, true, 10, 5);
    Pump();
    Display().InjectMouseMove(HostHandle(), 300, 300);
    Pump();
    EXPECT_FALSE(below->IsDocked());
    Display().InjectKey(manager->GetHost()->GetSafeHwnd(), VK_ESCAPE, true);
    Pump();
    EXPECT_EQ(HookCount(), hooks);
    EXPECT_EQ(Rects(), start);

    // Dropped close to the frame's top edge: an outermost band there.
    Drag(caption, TamPoint(10, 5), {TamPoint(300, 300), TamPoint(400, 5)});
    ASSERT_TRUE(below->IsDocked());
    EXPECT_EQ(below->GetCurrentAlignment(), CBRS_ALIGN_TOP);
    EXPECT_EQ(HostRect(below).Top(), 0);
    EXPECT_EQ(Width(HostRect(below)), kWidth);
    EXPECT_EQ(Rects(), SolverRects());
}

TEST_F(DockDragTest, DroppedOverNothingItFloatsAndDocksBackFromTheMiniFrame)
{
    const CRectangle was = below->GetScreenRect();
    const CRectangle at = HostRect(below);
    Drag(Handle(below), TamPoint(10, 5), {TamPoint(400, 300)}); // middle of the free space
    ASSERT_TRUE(below->IsFloating());
    CRectangle mini;
    ASSERT_TRUE(below->GetMiniFrameScreenRect(mini));
    EXPECT_EQ(Width(mini), Width(was));
    EXPECT_EQ(mini.Left() - was.Left(), 400 - (at.Left() + 10));
    EXPECT_EQ(mini.Top() - was.Top(), 300 - (at.Top() + 5));

    // From the mini-frame onto the right pane's left side.
    const CRectangle r = HostRect(right);
    Drag(Handle(below), TamPoint(10, 5), {TamPoint(r.Left() + 5, 300)});
    ASSERT_TRUE(below->IsDocked());
    EXPECT_FALSE(below->GetMiniFrameScreenRect(mini));
    EXPECT_EQ(HostRect(below).Left(), r.Left());
    EXPECT_EQ(HostRect(below).Right() + TamPaneDivider::GetDefaultWidth(96), HostRect(right).Left());
}

TEST_F(DockDragTest, PaneDestroyedWhileDragging)
{
    const NativeWindow caption = Handle(below);
    Display().InjectMouseButton(caption, display::MouseButton::Left, true, 10, 5);
    Pump();
    Display().InjectMouseMove(HostHandle(), 300, 300);
    Pump();
    ASSERT_TRUE(manager->IsDragging());
    panes.pop_back(); // `below`
    EXPECT_FALSE(manager->IsDragging());
    EXPECT_EQ(HookCount(), hooks);
    Display().InjectMouseMove(HostHandle(), 10, 10);
    Pump();
    EXPECT_EQ(Height(HostRect(left)), kHeight);
    EXPECT_EQ(manager->GetModel().GetPaneCount(), 2u);
}

} // namespace
} // namespace vesk::test
