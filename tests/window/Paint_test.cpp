#include "ProbeWindow.hpp"

#include <cairo.h>

#include <atomic>
#include <chrono>
#include <thread>

using namespace vesk;
using namespace vesk::test;

namespace {

class PaintTest : public WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        ASSERT_TRUE(wnd.Create(WndKind::TopLevel, nullptr, TamPoint(0, 0), TamSize(40, 30)));
        h = wnd.GetSafeHwnd();
        win.SetAsWrap(&wnd);
        wnd.ShowWindow(SW_SHOW);
        PumpMessages();
        win.Clear();
        wnd.seen.clear();
    }
    void TearDown() override
    {
        wnd.DestroyWindow();
        WindowTest::TearDown();
    }
    uint32_t Pixel(int x, int y) { return ShownPixel(h, x, y); }

    RecordingWnd wnd;
    ProbeWindow win;
    NativeWindow h = nullptr;
};

} // namespace

TEST_F(PaintTest, PaintGetsTheDirtyRectangleAndDrawsIntoTheWindow)
{
    win.onPaint = [&] { win.Erase(CRectangle(2, 3, 5, 6), TamColor(0, 0, 0xFFFF)); };
    const CRectangle r(2, 3, 9, 4);
    win.Invalidate(r);
    win.Invalidate(CRectangle(1, 1, 1, 1));
    PumpMessages();
    // The two boxes were joined; the paint rectangle has inclusive edges.
    EXPECT_EQ(win.log, (std::vector<std::string>{"Paint 1,1,9,4"}));
    EXPECT_EQ(Pixel(2, 3), 0xFF0000FFu);
    EXPECT_EQ(Pixel(5, 6), 0xFF0000FFu);
    EXPECT_EQ(Pixel(6, 6), 0xFFFFFFFFu);
    // The paint went through the library: the wrapped window did not see it.
    EXPECT_TRUE(wnd.Of(WM_PAINT).empty());

    // Drawing outside a paint lands on the window as well.
    win.onPaint = nullptr;
    win.Erase(CRectangle(10, 10, 10, 10), TamColor(0xFFFF, 0, 0));
    win.ReleaseDevice();
    EXPECT_EQ(Pixel(10, 10), 0xFFFF0000u);
}

TEST_F(PaintTest, SuppressedPaintingIsLeftToTheWrappedWindow)
{
    win.SetPaintSuppressed(true);
    win.Invalidate();
    PumpMessages();
    EXPECT_TRUE(win.log.empty());
    EXPECT_EQ(wnd.Of(WM_PAINT).size(), 1u);
    // Its default handling validated the window: no paint is due any more.
    PumpMessages();
    EXPECT_EQ(wnd.Of(WM_PAINT).size(), 1u);
}

TEST_F(PaintTest, AWindowDestroyedInsideItsPaintHandlerLeavesNothingBehind)
{
    auto* doomedWnd = new RecordingWnd;
    ASSERT_TRUE(doomedWnd->Create(WndKind::TopLevel, nullptr, TamPoint(0, 0), TamSize(8, 8)));
    auto* doomed = new ProbeWindow;
    doomed->SetAsWrap(doomedWnd);
    doomed->onPaint = [doomed, doomedWnd] {
        doomed->Erase(CRectangle(0, 0, 3, 3), TamColor(0, 0xFFFF, 0));
        RecordingWnd* wndToo = doomedWnd; // this closure goes with the Window
        delete doomed;
        delete wndToo;
    };
    doomedWnd->ShowWindow(SW_SHOW);
    PumpMessages();
    EXPECT_EQ(GetNativeWindowCount(), 1u);

    // The paint lock of the window was let go, and painting elsewhere goes on, also from
    // another thread.
    std::thread other([&] {
        cairo_surface_t* s = Headless().GetSurface(h);
        EXPECT_NE(s, nullptr);
        Headless().ReleaseSurface(s);
    });
    other.join();
    win.Clear();
    win.Invalidate();
    PumpMessages();
    EXPECT_EQ(win.log, (std::vector<std::string>{"Paint 0,0,39,29"}));
}

// A player thread draws on the window through a device of its own while the user-interface
// thread repaints: the two take turns on the window's surface. The first paint dawdles, so a
// player that did not wait for it would get its context while it runs.
TEST_F(PaintTest, AnotherThreadDrawsThroughItsOwnDeviceWhileTheWindowPaints)
{
    std::atomic<bool> started{false}, painting{false}, overlapped{false};
    win.onPaint = [&] {
        painting = true;
        if (!started.exchange(true))
            std::this_thread::sleep_for(std::chrono::milliseconds(30));
        win.Erase(CRectangle(0, 0, 19, 29), TamColor(0xFFFF, 0, 0));
        painting = false;
    };
    Window player;
    player.SetAsParentWrap(&wnd, false);
    std::atomic<bool> done{false};
    std::thread thread([&] {
        while (!started)
            std::this_thread::yield();
        for (int i = 0; i < 200; ++i) {
            player.InitDevice();
            overlapped = overlapped || painting;
            player.Erase(CRectangle(0, 0, 39, 29), TamColor(0, 0xFFFF, 0)); // over the paint's half too
            player.ReleaseDevice();
        }
        done = true;
    });
    int paints = 0;
    while (!done || paints < 20) {
        win.Invalidate();
        PumpMessages();
        ++paints;
    }
    thread.join();
    win.Invalidate(); // the player may have drawn last
    PumpMessages();
    EXPECT_FALSE(overlapped);
    EXPECT_EQ(Pixel(0, 0), 0xFFFF0000u);
    EXPECT_EQ(Pixel(39, 0), 0xFF00FF00u);
}
