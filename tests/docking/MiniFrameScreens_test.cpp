// Mini-frames and the monitors: a floating pane stays reachable when a monitor goes away.
#include "DockFrameFixture.hpp"

#include <vesk/docking/TamPaneFrameWnd.hpp>

namespace vesk::test {
namespace {

const display::ScreenInfo kFirst{0, 0, 1920, 1080, 96.0};
const display::ScreenInfo kSecond{1920, 0, 1280, 1024, 96.0};

TEST(MiniFrameScreens, KeepVisibleMovesOnlyFramesShowingLessThan64By24)
{
    const std::vector<CRectangle> screens{CRectangle(0, 0, 1920, 1080)};
    const CRectangle enough(1856, 1056, 2156, 1256); // exactly 64 x 24 on the screen
    EXPECT_EQ(TamPaneFrameWnd::KeepVisible(enough, screens), enough);
    EXPECT_EQ(TamPaneFrameWnd::KeepVisible(CRectangle(1857, 1056, 2157, 1256), screens),
              CRectangle(1620, 880, 1920, 1080));
    EXPECT_EQ(TamPaneFrameWnd::KeepVisible(CRectangle(1856, 1057, 2156, 1257), screens),
              CRectangle(1620, 880, 1920, 1080));
    // Narrower than 64 px: all of its width must show.
    EXPECT_EQ(TamPaneFrameWnd::KeepVisible(CRectangle(1880, 0, 1920, 400), screens), CRectangle(1880, 0, 1920, 400));
    EXPECT_EQ(TamPaneFrameWnd::KeepVisible(CRectangle(1881, 0, 1921, 400), screens), CRectangle(1880, 0, 1920, 400));
    // Off every screen: onto the first, whole.
    EXPECT_EQ(TamPaneFrameWnd::KeepVisible(CRectangle(-900, -50, -600, 150), screens), CRectangle(0, 0, 300, 200));
}

class MiniFrameScreensTest : public DockFrameTest {
protected:
    void TearDown() override
    {
        Display().SetScreens({kFirst});
        DockFrameTest::TearDown();
    }
};

TEST_F(MiniFrameScreensTest, RemovingAMonitorBringsItsMiniFramesBackAndOnlyThose)
{
    Display().SetScreens({kFirst, kSecond});
    Pump();
    TamDockablePane* away = Pane("Away");
    TamDockablePane* seam = Pane("Seam");
    TamDockablePane* home = Pane("Home");
    const CRectangle onSecond(2500, 300, 2800, 500);
    const CRectangle acrossSeam(1800, 100, 2100, 300); // 120 px on the first monitor
    ASSERT_TRUE(away->FloatAt(onSecond));
    ASSERT_TRUE(seam->FloatAt(CRectangle(0, 0, 300, 200)));
    ASSERT_TRUE(home->FloatAt(CRectangle(100, 100, 300, 300)));
    // Floating starts wholly on one screen; the user may drag a mini-frame across the seam.
    std::vector<TamPaneFrameWnd*> frames;
    manager->FillMiniFrameVec(frames);
    ASSERT_EQ(frames.size(), 3u);
    frames[1]->MoveWindow(acrossSeam.Left(), acrossSeam.Top(), 300, 200);
    Pump();
    CRectangle r;
    ASSERT_TRUE(away->GetMiniFrameScreenRect(r));
    EXPECT_EQ(r, onSecond);

    Display().SetScreens({kFirst});
    Pump();
    ASSERT_TRUE(away->GetMiniFrameScreenRect(r));
    EXPECT_EQ(r, CRectangle(1620, 300, 1920, 500));
    ASSERT_TRUE(seam->GetMiniFrameScreenRect(r));
    EXPECT_EQ(r, acrossSeam);
    ASSERT_TRUE(home->GetMiniFrameScreenRect(r));
    EXPECT_EQ(r, CRectangle(100, 100, 300, 300));

    // Floated again after hiding, it takes the rectangle it was moved to.
    away->HidePane();
    away->ShowPane();
    Pump();
    ASSERT_TRUE(away->GetMiniFrameScreenRect(r));
    EXPECT_EQ(r, CRectangle(1620, 300, 1920, 500));
}

TEST_F(MiniFrameScreensTest, ScreenChangeReachesTopLevelWindowsOnly)
{
    RecordingWnd top;
    ASSERT_TRUE(top.Create(WndKind::TopLevel, nullptr, TamPoint(0, 0), TamSize(100, 100)));
    RecordingWnd child;
    ASSERT_TRUE(child.Create(WndKind::Child, &top, TamPoint(0, 0), TamSize(10, 10)));
    Pump();
    top.seen.clear();
    Display().SetScreens({kSecond, kFirst});
    Pump();
    ASSERT_EQ(top.Of(WM_DISPLAYCHANGE).size(), 1u);
    EXPECT_EQ(top.Of(WM_DISPLAYCHANGE)[0].lParam, static_cast<LParam>(1280 | (1024 << 16)));
    EXPECT_TRUE(child.Of(WM_DISPLAYCHANGE).empty());
    EXPECT_EQ(Display().GetScreens().size(), 2u);
    child.DestroyWindow();
    top.DestroyWindow();
}

} // namespace
} // namespace vesk::test
