#include "WindowFixture.hpp"

#include <chrono>
#include <future>
#include <memory>
#include <thread>

using namespace vesk;
using namespace vesk::test;

namespace {

class CountingWindow : public OwnedWindow
{
public:
    int paints = 0;

protected:
    void Paint(const CRectangle&) override { ++paints; }
};

// Set while a test watches for the end of one window: whether another thread could take the
// window's surface (so its paint lock was free) when WM_DESTROY reached it.
NativeWindow g_hWatched = nullptr;
std::thread g_aTaker;
bool g_bSurfaceFree = false;

int WatchDestroy(NativeWindow window, uint32_t message, WParam, LParam)
{
    if (window != g_hWatched || message != WM_DESTROY)
        return 0;
    auto taken = std::make_shared<std::promise<bool>>();
    std::future<bool> result = taken->get_future();
    g_aTaker = std::thread([window, taken] {
        cairo_surface_t* s = Headless().GetSurface(window);
        Headless().ReleaseSurface(s);
        taken->set_value(s != nullptr);
    });
    // A lock still held is only let go after this returns, so the wait is bounded; the taker
    // finishes then and is joined by the test.
    g_bSurfaceFree = result.wait_for(std::chrono::seconds(10)) == std::future_status::ready && result.get();
    return 0;
}

using OwnedWindowTest = WindowTest;

TEST_F(OwnedWindowTest, RoutesMessagesAndGivesEverythingBackOnDestruction)
{
    WinMsgRouter& router = *GlGetPWinMsgRouter();
    auto win = std::make_unique<CountingWindow>();
    ASSERT_TRUE(win->CreateOwned(WndKind::TopLevel, nullptr, TamPoint(0, 0), TamSize(40, 30), "owned"));
    const NativeWindow h = win->GetHandle();
    EXPECT_EQ(router.FindWindow(h), win.get());
    win->Wnd().ShowWindow(SW_SHOW);
    win->Invalidate();
    PumpMessages();
    EXPECT_EQ(win->paints, 1);

    // Drawing outside a paint holds the window's surface until the device is released.
    win->Erase(CRectangle(0, 0, 5, 5), TamColor(0x00FF00u));
    g_hWatched = h;
    router.PushWinProcHook(&WatchDestroy);
    win.reset();
    router.PullWinProcHook(&WatchDestroy);
    g_hWatched = nullptr;
    ASSERT_TRUE(g_aTaker.joinable());
    g_aTaker.join();
    EXPECT_TRUE(g_bSurfaceFree) << "the device still held the window's surface when it was destroyed";
    EXPECT_EQ(router.FindWindow(h), nullptr);
    EXPECT_FALSE(Headless().IsWindow(h));
}

TEST_F(OwnedWindowTest, CreatingAgainReplacesTheWindow)
{
    WinMsgRouter& router = *GlGetPWinMsgRouter();
    CountingWindow win;
    ASSERT_TRUE(win.CreateOwned(WndKind::TopLevel, nullptr, TamPoint(0, 0), TamSize(20, 20)));
    const NativeWindow first = win.GetHandle();
    win.Erase(CRectangle(0, 0, 19, 19), TamColor(0x00FF00u)); // holds the first window's surface

    ASSERT_TRUE(win.CreateOwned(WndKind::TopLevel, nullptr, TamPoint(0, 0), TamSize(20, 20)));
    const NativeWindow second = win.GetHandle();
    EXPECT_NE(second, first);
    EXPECT_FALSE(Headless().IsWindow(first));
    EXPECT_EQ(GetNativeWindowCount(), 1u);
    EXPECT_EQ(router.FindWindow(first), nullptr);
    EXPECT_EQ(router.FindWindow(second), &win);
    // The device draws on the new window, not through a context left from the old one.
    win.Erase(CRectangle(0, 0, 19, 19), TamColor(0x0000FFu)); // red: the value is 0x00BBGGRR
    win.ReleaseDevice();
    EXPECT_EQ(ShownPixel(second, 5, 5), 0xFFFF0000u);

    // A failed creation leaves no window either.
    EXPECT_FALSE(win.CreateOwned(WndKind::Child, nullptr, TamPoint(0, 0), TamSize(20, 20)));
    EXPECT_FALSE(Headless().IsWindow(second));
    EXPECT_EQ(win.GetHandle(), nullptr);
}

} // namespace
