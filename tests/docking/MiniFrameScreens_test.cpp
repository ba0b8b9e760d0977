// Mini-frames and the monitors: a floating pane stays reachable when a monitor goes away, and
// only the frames that would be out of reach move. (Floating again where it was moved to is
// the fidelity simulator's.)
#include "DockFrameFixture.hpp"

#include <vesk/docking/TamPaneFrameWnd.hpp>

namespace vesk::test {
namespace {

const display::ScreenInfo kFirst{0, 0, 1920, 1080, 96.0};
const display::ScreenInfo kSecond{1920, 0, 1280, 1024, 96.0};

TEST(MiniFrameScreens, KeptOnAScreenAndVisibleBy64By24)
{
    const std::vector<CRectangle> two = {CRectangle(0, 0, 1000, 800), CRectangle(1000, 0, 2000, 800)};
    const std::vector<CRectangle> one{CRectangle(0, 0, 1920, 1080)};
    struct Case {
        bool visibleOnly; // KeepVisible, else KeepOnScreen
        const std::vector<CRectangle>& screens;
        CRectangle from, to;
    };
    const Case cases[] = {
        // Onto the screen it overlaps most; one larger than the screen keeps its top-left corner.
        {false, two, CRectangle(1900, 700, 2100, 900), CRectangle(1800, 600, 2000, 800)},
        {false, two, CRectangle(-50, -50, 150, 150), CRectangle(0, 0, 200, 200)},
        {false, two, CRectangle(900, 10, 2100, 20), CRectangle(1000, 10, 2200, 20)},
        {false, two, CRectangle(5000, 5000, 5100, 5100), CRectangle(900, 700, 1000, 800)},
        // Moved only when less than 64 x 24 px show; a frame narrower than 64 px shows whole.
        {true, one, CRectangle(1856, 1056, 2156, 1256), CRectangle(1856, 1056, 2156, 1256)},
        {true, one, CRectangle(1857, 1056, 2157, 1256), CRectangle(1620, 880, 1920, 1080)},
        {true, one, CRectangle(1856, 1057, 2156, 1257), CRectangle(1620, 880, 1920, 1080)},
        {true, one, CRectangle(1880, 0, 1920, 400), CRectangle(1880, 0, 1920, 400)},
        {true, one, CRectangle(1881, 0, 1921, 400), CRectangle(1880, 0, 1920, 400)},
        {true, one, CRectangle(-900, -50, -600, 150), CRectangle(0, 0, 300, 200)},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.visibleOnly ? TamPaneFrameWnd::KeepVisible(c.from, c.screens)
                                : TamPaneFrameWnd::KeepOnScreen(c.from, c.screens),
                  c.to)
            << c.from.Left() << "," << c.from.Top();
    }
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
