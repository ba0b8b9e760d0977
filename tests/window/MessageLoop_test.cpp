#include "ProbeWindow.hpp"

#include <chrono>
#include <map>
#include <thread>

using namespace vesk;
using namespace vesk::test;

namespace {

// A window whose handling of each message is given by the test.
class ScriptedWnd : public CWnd
{
public:
    std::map<uint32_t, std::function<void(WParam, LParam)>> on;

protected:
    intptr_t WindowProc(uint32_t message, WParam wParam, LParam lParam) override
    {
        auto it = on.find(message);
        if (it != on.end())
            it->second(wParam, lParam);
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class LoopTest : public WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        ASSERT_TRUE(wnd.Create(WndKind::TopLevel, nullptr, TamPoint(0, 0), TamSize(20, 20)));
        h = wnd.GetSafeHwnd();
    }
    void TearDown() override
    {
        wnd.DestroyWindow();
        WindowTest::TearDown();
    }
    ScriptedWnd wnd;
    NativeWindow h = nullptr;
};

} // namespace

TEST_F(LoopTest, MessagesPostedFromOtherThreadsArriveInOrderPerThread)
{
    constexpr int threads = 4, perThread = 500;
    std::vector<int> next(threads, 0);
    int received = 0;
    bool inOrder = true;
    wnd.on[WM_USER] = [&](WParam thread, LParam n) {
        inOrder = inOrder && next[thread] == n;
        next[thread] = static_cast<int>(n) + 1;
        if (++received == threads * perThread)
            PostQuitMessage(5);
    };
    std::vector<std::thread> posters;
    for (int t = 0; t < threads; ++t) {
        posters.emplace_back([this, t] {
            for (int i = 0; i < perThread; ++i)
                PostMessage(h, WM_USER, t, i);
        });
    }
    EXPECT_EQ(RunMessageLoop(), 5);
    for (std::thread& t : posters)
        t.join();
    EXPECT_EQ(received, threads * perThread);
    EXPECT_TRUE(inOrder);
    // Posting to a window that is gone is dropped on delivery.
    PostMessage(reinterpret_cast<NativeWindow>(uintptr_t{0xBAD}), WM_USER, 0, 0);
    EXPECT_TRUE(PumpMessages());
}

TEST_F(LoopTest, LoopsNestAndEachQuitEndsTheInnermost)
{
    std::vector<int> results;
    wnd.on[WM_USER] = [&](WParam, LParam) {
        PostMessage(h, WM_USER + 1, 0, 0);
        results.push_back(RunMessageLoop()); // a modal loop inside a handler
        PostQuitMessage(3);
    };
    wnd.on[WM_USER + 1] = [&](WParam, LParam) { PostQuitMessage(7); };
    PostMessage(h, WM_USER, 0, 0);
    results.push_back(RunMessageLoop());
    EXPECT_EQ(results, (std::vector<int>{7, 3}));
    // A waiting quit stops PumpMessages and stays for the loop.
    PostQuitMessage(1);
    EXPECT_FALSE(PumpMessages());
    EXPECT_EQ(RunMessageLoop(), 1);
}

TEST_F(LoopTest, AMessagePostedByItsHandlerWaitsForTheNextPass)
{
    wnd.ShowWindow(SW_SHOW);
    PumpMessages();
    int posts = 0, paints = 0;
    wnd.on[WM_USER] = [&](WParam, LParam) {
        if (++posts < 100) // bounded, so a loop that never yields still ends
            PostMessage(h, WM_USER, 0, 0);
    };
    wnd.on[WM_PAINT] = [&](WParam, LParam) { ++paints; };
    wnd.Invalidate();
    PostMessage(h, WM_USER, 0, 0);
    EXPECT_TRUE(PumpMessages());
    EXPECT_EQ(posts, 1);
    EXPECT_EQ(paints, 1);
    EXPECT_TRUE(PumpMessages());
    EXPECT_EQ(posts, 2);
}

TEST_F(LoopTest, TimersRepeatUntilKilledAndEndWithTheirWindow)
{
    ScriptedWnd other;
    ASSERT_TRUE(other.Create(WndKind::Popup, &wnd, TamPoint(0, 0), TamSize(1, 1)));
    int otherTicks = 0;
    other.on[WM_TIMER] = [&](WParam, LParam) { ++otherTicks; };
    ASSERT_TRUE(other.SetTimer(9, 1));
    other.DestroyWindow();

    std::vector<WParam> ticks;
    wnd.on[WM_TIMER] = [&](WParam id, LParam) {
        ticks.push_back(id);
        if (ticks.size() == 3) {
            EXPECT_TRUE(wnd.KillTimer(4));
            EXPECT_FALSE(wnd.KillTimer(4));
            PostQuitMessage(0);
        }
    };
    ASSERT_TRUE(wnd.SetTimer(4, 1));
    EXPECT_EQ(RunMessageLoop(), 0);
    EXPECT_EQ(ticks, (std::vector<WParam>{4, 4, 4}));
    EXPECT_EQ(otherTicks, 0);
    EXPECT_FALSE(other.SetTimer(1, 1)); // no window, no timer
}

TEST_F(LoopTest, HoverAndLeaveComeOnceAndOnlyWhenAskedFor)
{
    ProbeWindow win;
    win.SetAsWrap(&wnd);
    Window::SetHoverTime(1);
    win.onMouse = [&] {
        if (win.log.back().rfind("Hover", 0) == 0)
            PostQuitMessage(0);
    };
    // Without tracking the display's leave does not reach the window.
    Headless().InjectMouseLeave(h);
    PumpMessages();
    EXPECT_TRUE(win.log.empty());

    win.InitMouseTracking(TME_HOVER | TME_LEAVE);
    Headless().InjectMouseMove(h, 3, 4);
    EXPECT_EQ(RunMessageLoop(), 0);
    EXPECT_EQ(win.log.back(), "Hover 3,4 b0 m0 c0 0");
    // The hover was the answer: resting again brings no second one.
    Headless().InjectMouseMove(h, 5, 5);
    PumpMessages();
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    PumpMessages();
    Headless().InjectMouseLeave(h);
    Headless().InjectMouseLeave(h);
    PumpMessages();
    EXPECT_EQ(win.log, (std::vector<std::string>{"Move 3,4 b0 m0 c0 0", "Hover 3,4 b0 m0 c0 0",
                                                 "Move 5,5 b0 m0 c0 0", "Leave"}));
    Window::SetHoverTime(400);
}

TEST_F(LoopTest, ClosingTheMainFrameEndsTheLoopAndTheViewFollowsItsSize)
{
    CFrameWnd frame;
    ASSERT_TRUE(frame.CreateFrame("Main", TamPoint(5, 5), TamSize(200, 100)));
    CWnd view;
    ASSERT_TRUE(view.Create(WndKind::Child, &frame, TamPoint(0, 0), TamSize(1, 1)));
    frame.SetView(&view);
    EXPECT_EQ(view.GetClientSize(), TamSize(200, 100));
    SetVeskMainFrame(frame.GetSafeHwnd());
    frame.ShowWindow(SW_SHOW);
    Headless().InjectResize(frame.GetSafeHwnd(), 300, 150);
    PumpMessages();
    EXPECT_EQ(view.GetClientSize(), TamSize(300, 150));

    Headless().InjectClose(frame.GetSafeHwnd());
    EXPECT_EQ(RunMessageLoop(), 0);
    EXPECT_EQ(frame.GetSafeHwnd(), nullptr);
    EXPECT_EQ(view.GetSafeHwnd(), nullptr);
    EXPECT_EQ(GetPVeskData()->GetMainWnd(), nullptr);
}

TEST(MessageBoxFunction, DrawingErrorsGoToTheDisplaysMessageBox)
{
    VeskInit();
    Headless().ClearMessageBoxes();
    ProbeWindow device; // the first window takes over the drawing errors' box
    device.IncGdiPlusError();
    device.IncGdiPlusError();
    const auto boxes = Headless().GetMessageBoxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text, "Error in GDI Plus drawing");
    EXPECT_EQ(boxes[0].caption, "VESK Error");
    EXPECT_EQ(boxes[0].type, MB_OK);
    VeskExit();
}
