#include "ProbeWindow.hpp"

#include <vesk/links.hpp>

using namespace vesk;
using namespace vesk::test;
using display::MouseButton;

namespace {

std::vector<std::string> g_aHookLog;
uint32_t g_nSwallow = 0; // message the second hook swallows

template <int N>
int Hook(NativeWindow, uint32_t message, WParam, LParam)
{
    g_aHookLog.push_back("hook" + std::to_string(N) + " " + std::to_string(message));
    return N == 2 && message == g_nSwallow;
}

// A wrapped window: a recording CWnd whose messages go through a ProbeWindow.
class RoutingTest : public WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        g_aHookLog.clear();
        g_nSwallow = 0;
        ASSERT_TRUE(wnd.Create(WndKind::TopLevel, nullptr, TamPoint(10, 10), TamSize(100, 50)));
        h = wnd.GetSafeHwnd();
        win.SetAsWrap(&wnd);
        wnd.seen.clear();
    }
    void TearDown() override
    {
        wnd.DestroyWindow();
        WindowTest::TearDown();
    }
    static WinMsgRouter& Router() { return *GlGetPWinMsgRouter(); }

    RecordingWnd wnd;
    ProbeWindow win;
    NativeWindow h = nullptr;
};

} // namespace

TEST_F(RoutingTest, WrappingRegistersInBothMapsAndSubclasses)
{
    EXPECT_TRUE(win.IsWrapped());
    EXPECT_TRUE(win.IsRegistered());
    EXPECT_EQ(Router().FindWindow(h), &win);
    EXPECT_EQ(Router().FindHandle(&win), h);
    EXPECT_EQ(wnd.GetWindowProc(), &Window::WinProc);
    EXPECT_EQ(win.GetOldWndProc(), &CWnd::StandardWndProc);
    EXPECT_FALSE(win.IsVisible());
    EXPECT_EQ(win.GetShowState(), 1);

    // A second Window on a maximised window: show state 3; wrapping without registering
    // leaves the maps and the procedure alone.
    RecordingWnd big;
    ASSERT_TRUE(big.Create(WndKind::TopLevel, nullptr, TamPoint(0, 0), TamSize(10, 10)));
    big.ShowWindow(SW_SHOWMAXIMIZED);
    {
        Window w;
        w.SetAsWrap(&big);
        EXPECT_EQ(w.GetShowState(), 3);
        EXPECT_TRUE(w.IsVisible());
        Window parentWrap;
        parentWrap.SetAsParentWrap(&big, false);
        EXPECT_FALSE(parentWrap.IsRegistered());
        EXPECT_EQ(Router().FindWindow(big.GetSafeHwnd()), &w);
    }
    // Each Window gave the procedure back and left the maps at its end.
    EXPECT_EQ(big.GetWindowProc(), &CWnd::StandardWndProc);
    EXPECT_EQ(Router().FindWindow(big.GetSafeHwnd()), nullptr);
    EXPECT_EQ(Router().GetWindowCount(), 1u);
}

TEST_F(RoutingTest, HooksRunInOrderAndOneThatSwallowsKeepsTheMessageFromEveryoneElse)
{
    GlPushWinProcHook(&Hook<1>);
    GlPushWinProcHook(&Hook<2>);
    GlPushWinProcHook(&Hook<3>);
    g_nSwallow = WM_MOUSEMOVE;
    EXPECT_EQ(SendMessage(h, WM_MOUSEMOVE, 0, MakeLParam(1, 1)), 1);
    EXPECT_EQ(g_aHookLog, (std::vector<std::string>{"hook1 512", "hook2 512"}));
    EXPECT_TRUE(win.log.empty());
    EXPECT_TRUE(wnd.seen.empty());

    // Not swallowed: every hook, then the window, then the saved procedure.
    g_aHookLog.clear();
    SendMessage(h, WM_USER + 1, 0, 0);
    EXPECT_EQ(g_aHookLog.size(), 3u);
    EXPECT_EQ(wnd.Messages(), (std::vector<uint32_t>{WM_USER + 1}));
    GlPullWinProcHook(&Hook<1>);
    GlPullWinProcHook(&Hook<2>);
    GlPullWinProcHook(&Hook<3>);
}

TEST_F(RoutingTest, TheProcedureAnswersOneForWhatItDoesNotPassOn)
{
    // Handled by the dispatcher: the saved procedure does not see it.
    EXPECT_EQ(SendMessage(h, WM_LBUTTONDOWN, MK_LBUTTON, MakeLParam(2, 3)), 1);
    EXPECT_TRUE(wnd.Of(WM_LBUTTONDOWN).empty());
    // 716 ends in the library with 0.
    EXPECT_EQ(Window::WinProc(h, 0x2CC, 0, 0), 0);
    EXPECT_TRUE(wnd.Of(0x2CC).empty());
    // Unknown to the router: 1, nothing called.
    EXPECT_EQ(Window::WinProc(reinterpret_cast<NativeWindow>(uintptr_t{0xDEAD}), WM_USER, 0, 0), 1);
    // Passed on: the saved procedure's result.
    EXPECT_EQ(Window::WinProc(h, WM_USER, 0, 0), 0);
    EXPECT_EQ(wnd.Of(WM_USER).size(), 1u);
    // Without a router nothing is routed.
    VeskExit();
    EXPECT_EQ(Window::WinProc(h, WM_USER, 0, 0), 1);
    EXPECT_EQ(wnd.Of(WM_USER).size(), 1u);
    VeskInit();
}

TEST_F(RoutingTest, TheDispatcherCallsOneHandlerPerMessage)
{
    struct Row
    {
        uint32_t message;
        WParam wParam;
        LParam lParam;
        std::string handler;
        bool passedOn;
    };
    const Row rows[] = {
        {WM_MOVE, 0, 0, "Move", true},
        {WM_ACTIVATE, 1, 0, "Activate 1", true},
        {WM_ACTIVATE, 0, 0, "Activate 0", true},
        {WM_ERASEBKGND, 0, 0, "Erase", true},
        {WM_ACTIVATEAPP, 1, 0, "ActivateApp 1", true},
        {WM_NCLBUTTONDBLCLK, 0, 0, "NcDClick", true},
        {WM_MOUSEMOVE, MK_RBUTTON | MK_SHIFT | MK_XBUTTON1, MakeLParam(-4, -32768), "Move -4,-32768 b2 m4096 c0 0",
         false},
        {WM_LBUTTONDOWN, MK_LBUTTON, MakeLParam(1, 2), "Down 1,2 b1 m0 c1 1", false},
        {WM_RBUTTONDOWN, MK_RBUTTON | MK_CONTROL, MakeLParam(1, 2), "Down 1,2 b2 m8192 c1 2", false},
        {WM_MBUTTONDOWN, MK_MBUTTON, MakeLParam(1, 2), "Down 1,2 b4 m0 c1 4", false},
        {WM_LBUTTONUP, 0, MakeLParam(1, 2), "Up 1,2 b0 m0 c0 1", false},
        {WM_RBUTTONUP, 0, MakeLParam(1, 2), "Up 1,2 b0 m0 c0 2", false},
        {WM_MBUTTONUP, 0, MakeLParam(1, 2), "Up 1,2 b0 m0 c0 4", false},
        {WM_LBUTTONDBLCLK, MK_LBUTTON, MakeLParam(1, 2), "Down 1,2 b1 m0 c2 1", false},
        {WM_RBUTTONDBLCLK, MK_RBUTTON, MakeLParam(1, 2), "Down 1,2 b2 m0 c2 2", false},
        {WM_MBUTTONDBLCLK, MK_MBUTTON, MakeLParam(1, 2), "Down 1,2 b4 m0 c2 4", false},
        // Screen (15, 17) over a window whose client area starts at (10, 10).
        {WM_MOUSEWHEEL, (120u << 16) | MK_LBUTTON, MakeLParam(15, 17), "Wheel120 5,7 b1 m0 c0 0", false},
        {WM_MOUSEWHEEL, 0xFF880000u, MakeLParam(10, 10), "Wheel-120 0,0 b0 m0 c0 0", false},
        {WM_ENTERMENULOOP, 0, 0, "EnterMenu", true},
        {WM_EXITMENULOOP, 0, 0, "ExitMenu", true},
        {WM_MOUSEHOVER, 0, MakeLParam(8, 9), "Hover 8,9 b0 m0 c0 0", false},
        {WM_MOUSELEAVE, 0, 0, "Leave", false},
        {WM_KEYDOWN, (VK_F1 + 4), 1, "Key F5 0", true},
        {WM_SYSKEYDOWN, VK_RETURN, 1 | (1 << 29), "Key Alt+Enter 0", true},
        {WM_CHAR, u'x', 1, "Key  120", true},
        {WM_KEYUP, (VK_F1 + 4), static_cast<int32_t>(0xC0000001u), "KeyUp F5", true},
    };
    for (const Row& row : rows) {
        win.Clear();
        wnd.seen.clear();
        SendMessage(h, row.message, row.wParam, row.lParam);
        EXPECT_EQ(win.log, std::vector<std::string>{row.handler}) << "message " << row.message;
        EXPECT_EQ(wnd.seen.size(), row.passedOn ? 1u : 0u) << "message " << row.message;
    }
    // Erasing handled by the window is not passed on.
    win.eraseHandled = true;
    wnd.seen.clear();
    SendMessage(h, WM_ERASEBKGND, 0, 0);
    EXPECT_TRUE(wnd.seen.empty());
    // Messages without a handler go straight on.
    win.Clear();
    SendMessage(h, WM_TIMER, 1, 0);
    EXPECT_TRUE(win.log.empty());
}

TEST_F(RoutingTest, ScrollMessagesGoToTheScrollBarOfTheirHandle)
{
    struct Bar : ScrollBar
    {
        std::vector<std::pair<uint32_t, int32_t>> calls;
        bool ProcessScroll(uint32_t code, int32_t pos) override
        {
            calls.emplace_back(code, pos);
            return true;
        }
    } bar;
    const auto barHandle = reinterpret_cast<NativeWindow>(uintptr_t{0x77});
    Router().AddScrollBar(barHandle, &bar);
    SendMessage(h, WM_VSCROLL, (uint32_t(-3) << 16) | 5, reinterpret_cast<LParam>(barHandle));
    EXPECT_TRUE(wnd.Of(WM_VSCROLL).empty());
    SendMessage(h, WM_HSCROLL, 1, 0x78); // not a known bar: passed on
    EXPECT_EQ(wnd.Of(WM_HSCROLL).size(), 1u);
    ASSERT_EQ(bar.calls.size(), 1u);
    EXPECT_EQ(bar.calls[0], std::make_pair(5u, -3));
    Router().RemoveScrollBar(barHandle);
}

TEST_F(RoutingTest, KeyDownReachesTheGlobalChainOnlyWhenTheWindowLeftItKeyUpAlways)
{
    // The chains get the key event.
    struct Sink
    {
        int32_t Call(void* data)
        {
            events.push_back(static_cast<KeyEvent*>(data)->GetKeyCode().GetCode());
            return 0;
        }
        std::vector<uint16_t> events;
    } downSink, upSink;
    GlAddOnKeyDownHdl(MakeLink<&Sink::Call>(&downSink));
    GlAddOnKeyUpHdl(MakeLink<&Sink::Call>(&upSink));

    SendMessage(h, WM_KEYDOWN, 'A', 1);
    win.handleKeys = true;
    SendMessage(h, WM_KEYDOWN, 'B', 1);
    SendMessage(h, WM_KEYUP, 'B', static_cast<int32_t>(0xC0000001u));
    win.handleKeys = false;
    SendMessage(h, WM_KEYUP, 'C', static_cast<int32_t>(0xC0000001u));
    SendMessage(h, WM_CHAR, 'c', 1); // characters stay with the window
    EXPECT_EQ(downSink.events, (std::vector<uint16_t>{'A'}));
    EXPECT_EQ(upSink.events, (std::vector<uint16_t>{'B', 'C'}));
    GlRemoveOnKeyDownHdl(MakeLink<&Sink::Call>(&downSink));
    GlRemoveOnKeyUpHdl(MakeLink<&Sink::Call>(&upSink));
}

TEST_F(RoutingTest, MouseMovesShowTheWindowsCursorOrTheWaitCursorWhileBusy)
{
    auto& backend = Headless();
    win.SetPointer(WinCursor::Hand);
    SendMessage(h, WM_MOUSEMOVE, 0, 0);
    EXPECT_EQ(backend.GetCursor(h), display::CursorShape::Hand);
    GlIncBusy();
    GlIncBusy();
    SendMessage(h, WM_MOUSEMOVE, 0, 0);
    EXPECT_EQ(backend.GetCursor(h), display::CursorShape::Wait);
    GlDecBusy();
    SendMessage(h, WM_MOUSEMOVE, 0, 0);
    EXPECT_EQ(backend.GetCursor(h), display::CursorShape::Wait);
    GlDecBusy();
    GlDecBusy(); // stays at 0
    EXPECT_EQ(GlGetBusyCount(), 0u);
    SendMessage(h, WM_MOUSEMOVE, 0, 0);
    EXPECT_EQ(backend.GetCursor(h), display::CursorShape::Hand);
}

TEST_F(RoutingTest, TheToolTipSeesEveryRoutedMessage)
{
    struct Tip : ToolTip
    {
        std::vector<WinMsg> seen;
        void RelayEvent(const WinMsg& m) override { seen.push_back(m); }
    } tip;
    win.SetToolTip(&tip);
    SendMessage(h, WM_MOUSEMOVE, 3, 4);
    SendMessage(h, WM_USER, 5, 6);
    ASSERT_EQ(tip.seen.size(), 2u);
    EXPECT_EQ(tip.seen[0].hwnd, h);
    EXPECT_EQ(tip.seen[1].message, WM_USER);
    EXPECT_EQ(tip.seen[1].wParam, 5u);
    EXPECT_EQ(tip.seen[1].lParam, 6);
    win.SetToolTip(nullptr);
}

namespace {

std::vector<uint32_t> g_aSavedProcLog;

// A procedure that outlives its CWnd's registration: it records every message it is given.
intptr_t LoggingProc(NativeWindow window, uint32_t message, WParam wParam, LParam lParam)
{
    g_aSavedProcLog.push_back(message);
    return CWnd::StandardWndProc(window, message, wParam, lParam);
}

} // namespace

TEST_F(RoutingTest, AWindowDestroyedInItsOwnHandlerIsNotPassedOn)
{
    RecordingWnd other;
    ASSERT_TRUE(other.Create(WndKind::TopLevel, nullptr, TamPoint(0, 0), TamSize(5, 5)));
    other.SetWindowProc(&LoggingProc);
    ProbeWindow w;
    w.SetAsWrap(&other);
    const NativeWindow oh = other.GetSafeHwnd();
    g_aSavedProcLog.clear();
    // A move is passed on after its handler, unless the handler destroyed the window.
    w.onNote = [&] { other.DestroyWindow(); };
    EXPECT_EQ(SendMessage(oh, WM_MOVE, 0, 0), 1);
    EXPECT_EQ(other.GetSafeHwnd(), nullptr);
    EXPECT_FALSE(w.IsRegistered());
    EXPECT_EQ(Router().FindWindow(oh), nullptr);
    // The saved procedure saw the destruction, and nothing of the move.
    EXPECT_EQ(g_aSavedProcLog, (std::vector<uint32_t>{WM_DESTROY}));
    // Messages for the handle that is gone end in the library.
    EXPECT_EQ(Window::WinProc(oh, WM_USER, 0, 0), 1);
    EXPECT_EQ(g_aSavedProcLog.size(), 1u);
}

TEST_F(RoutingTest, AWindowDeletedInItsOwnHandlerEndsCleanly)
{
    auto* doomed = new RecordingWnd;
    ASSERT_TRUE(doomed->Create(WndKind::TopLevel, nullptr, TamPoint(0, 0), TamSize(5, 5)));
    auto* w = new ProbeWindow;
    w->SetAsWrap(doomed);
    const NativeWindow dh = doomed->GetSafeHwnd();
    w->onMouse = [w, doomed] {
        RecordingWnd* wndToo = doomed; // this closure goes with the Window
        delete w;
        delete wndToo;
    };
    EXPECT_EQ(SendMessage(dh, WM_LBUTTONDOWN, 0, 0), 1);
    EXPECT_EQ(Router().FindWindow(dh), nullptr);
}

TEST_F(RoutingTest, TranslateWinStylesAddsThePlatformBitsOfEachLibraryBit)
{
    unsigned long style = 0;
    Window::TranslateWinStyles(style, 0x21);
    EXPECT_EQ(style, 0xC00000ul | 0x800000ul);
    const std::pair<int, unsigned long> table[] = {
        {0x1, 0x800000},   {0x10, 0x40000},   {0x20, 0xC00000},  {0x40, 0x30000},   {0x100, 0x80000},
        {0x10000, 0x1400}, {0x20000, 0x4100}, {0x40000, 0x2800}, {0x80000, 0x8200}, {0x800000, 0x80},
    };
    for (const auto& [library, platform] : table) {
        style = 0x1;
        Window::TranslateWinStyles(style, library);
        EXPECT_EQ(style, platform | 0x1) << std::hex << library;
    }
    style = 0;
    Window::TranslateWinStyles(style, ~(0x1 | 0x10 | 0x20 | 0x40 | 0x100 | 0x10000 | 0x20000 | 0x40000 | 0x80000 | 0x800000));
    EXPECT_EQ(style, 0ul);
}
