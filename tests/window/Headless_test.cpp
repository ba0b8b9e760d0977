#include "WindowFixture.hpp"

#include <vesk/graphics/Bitmap.hpp>

#include <cairo.h>

#include <atomic>
#include <thread>

using namespace vesk;
using namespace vesk::test;
using display::MouseButton;

namespace {

class HeadlessTest : public WindowTest
{
protected:
    NativeWindow Make(RecordingWnd& w, int x = 10, int y = 20, int width = 100, int height = 50)
    {
        EXPECT_TRUE(w.Create(WndKind::TopLevel, nullptr, TamPoint(x, y), TamSize(width, height), "t"));
        return w.GetSafeHwnd();
    }
};

} // namespace

TEST_F(HeadlessTest, ShowingSendsWhatAServerSendsThenOnePaint)
{
    RecordingWnd w;
    Make(w);
    w.seen.clear();
    w.ShowWindow(SW_SHOWNORMAL);
    PumpMessages();
    EXPECT_EQ(w.Messages(), (std::vector<uint32_t>{WM_SHOWWINDOW, WM_SIZE, WM_MOVE, WM_ACTIVATE, WM_SETFOCUS, WM_PAINT}));
    EXPECT_EQ(w.Of(WM_SIZE)[0].lParam, MakeLParam(100, 50));
    EXPECT_EQ(w.Of(WM_MOVE)[0].lParam, MakeLParam(10, 20));
    // The default handling validated the paint: nothing more is due.
    w.seen.clear();
    PumpMessages();
    EXPECT_TRUE(w.seen.empty());

    // Maximising and restoring each report the new size once, with its kind.
    w.MoveWindow(30, 40, 120, 60);
    PumpMessages();
    w.seen.clear();
    w.ShowWindow(SW_SHOWMAXIMIZED);
    PumpMessages();
    EXPECT_TRUE(w.IsZoomed());
    ASSERT_EQ(w.Of(WM_SIZE).size(), 1u);
    EXPECT_EQ(w.Of(WM_SIZE)[0].wParam, SIZE_MAXIMIZED);
    EXPECT_EQ(w.Of(WM_SIZE)[0].lParam, MakeLParam(1920, 1080));
    w.seen.clear();
    w.ShowWindow(SW_SHOWNORMAL);
    PumpMessages();
    EXPECT_EQ(w.GetWindowRect(), CRectangle(30, 40, 150, 100));
    ASSERT_EQ(w.Of(WM_SIZE).size(), 1u);
    EXPECT_EQ(w.Of(WM_SIZE)[0].wParam, SIZE_RESTORED);
    EXPECT_EQ(w.Of(WM_SIZE)[0].lParam, MakeLParam(120, 60));
    w.ShowWindow(SW_SHOWMINIMIZED);
    EXPECT_TRUE(w.IsIconic());
    EXPECT_TRUE(w.IsWindowVisible());
    w.ShowWindow(SW_HIDE);
    EXPECT_FALSE(w.IsWindowVisible());
}

TEST_F(HeadlessTest, TitleAndShowStateSetThroughCWnd)
{
    RecordingWnd w;
    const NativeWindow h = Make(w);
    w.SetWindowText("Grüße");
    EXPECT_EQ(Headless().GetTitle(h), "Grüße");
    // SW_SHOW brings a hidden window back in the state it was hidden in.
    for (const int state : {SW_SHOWMINIMIZED, SW_SHOWMAXIMIZED}) {
        w.ShowWindow(state);
        w.ShowWindow(SW_HIDE);
        EXPECT_FALSE(w.IsWindowVisible());
        w.ShowWindow(SW_SHOW);
        EXPECT_TRUE(w.IsWindowVisible());
        EXPECT_EQ(w.IsIconic(), state == SW_SHOWMINIMIZED);
        EXPECT_EQ(w.IsZoomed(), state == SW_SHOWMAXIMIZED);
    }
}

TEST_F(HeadlessTest, ChildrenFollowTheirParentOnScreenAndIntoDestruction)
{
    RecordingWnd parent, child, popup;
    Make(parent, 100, 200);
    ASSERT_TRUE(child.Create(WndKind::Child, &parent, TamPoint(5, 6), TamSize(10, 10)));
    ASSERT_TRUE(popup.Create(WndKind::Popup, &parent, TamPoint(0, 0), TamSize(10, 10)));
    RecordingWnd orphan;
    EXPECT_FALSE(orphan.Create(WndKind::Child, nullptr, TamPoint(0, 0), TamSize(1, 1)));
    EXPECT_EQ(child.GetWindowRect(), CRectangle(105, 206, 115, 216));
    EXPECT_EQ(GetNativeWindowCount(), 3u);

    const NativeWindow childHandle = child.GetSafeHwnd();
    parent.DestroyWindow();
    EXPECT_EQ(GetNativeWindowCount(), 0u);
    EXPECT_EQ(parent.Messages().back(), WM_DESTROY);
    EXPECT_EQ(child.Messages().back(), WM_DESTROY);
    EXPECT_EQ(popup.Messages().back(), WM_DESTROY);
    EXPECT_EQ(child.GetSafeHwnd(), nullptr);
    EXPECT_FALSE(parent.DestroyWindow());

    // A handle that is gone stays harmless for every call, and is not handed out again.
    auto& backend = Headless();
    backend.MoveWindow(childHandle, 0, 0, 5, 5);
    backend.Invalidate(childHandle, nullptr);
    backend.InjectMouseMove(childHandle, 1, 1);
    EXPECT_EQ(backend.GetSurface(childHandle), nullptr);
    EXPECT_EQ(backend.Snapshot(childHandle), nullptr);
    EXPECT_EQ(SendMessage(childHandle, WM_USER, 0, 0), 0);
    RecordingWnd next;
    Make(next);
    EXPECT_GT(reinterpret_cast<uintptr_t>(next.GetSafeHwnd()), reinterpret_cast<uintptr_t>(childHandle));
}

TEST_F(HeadlessTest, AChildMovesToAnotherParentWithItsPictureAndChildren)
{
    RecordingWnd first, second, child, inner;
    Make(first, 100, 200);
    Make(second, 500, 600);
    ASSERT_TRUE(child.Create(WndKind::Child, &first, TamPoint(5, 6), TamSize(10, 10)));
    ASSERT_TRUE(inner.Create(WndKind::Child, &child, TamPoint(1, 2), TamSize(3, 3)));
    cairo_surface_t* s = Headless().GetSurface(child.GetSafeHwnd());
    ASSERT_NE(s, nullptr);
    cairo_t* cr = cairo_create(s);
    cairo_set_source_rgb(cr, 0, 0, 1);
    cairo_paint(cr);
    cairo_destroy(cr);
    Headless().ReleaseSurface(s);

    ASSERT_TRUE(child.SetParent(&second, TamPoint(7, 8)));
    EXPECT_EQ(child.GetParent(), &second);
    EXPECT_EQ(child.GetWindowRect(), CRectangle(507, 608, 517, 618));
    EXPECT_EQ(inner.GetWindowRect(), CRectangle(508, 610, 511, 613));
    EXPECT_EQ(ShownPixel(child.GetSafeHwnd(), 4, 4), 0xFF0000FFu);
    // The old parent no longer takes it along; the new one does.
    first.DestroyWindow();
    EXPECT_NE(child.GetSafeHwnd(), nullptr);
    // No cycles, no top-level windows, no unknown parents.
    EXPECT_FALSE(child.SetParent(&inner, TamPoint(0, 0)));
    EXPECT_FALSE(child.SetParent(&child, TamPoint(0, 0)));
    EXPECT_FALSE(second.SetParent(&child, TamPoint(0, 0)));
    EXPECT_FALSE(child.SetParent(&first, TamPoint(0, 0)));
    EXPECT_EQ(child.GetParent(), &second);
    second.DestroyWindow();
    EXPECT_EQ(child.GetSafeHwnd(), nullptr);
    EXPECT_EQ(inner.GetSafeHwnd(), nullptr);
}

TEST_F(HeadlessTest, MouseInputIsPackedWithKeyStateAndSignedCoordinates)
{
    RecordingWnd w;
    const NativeWindow h = Make(w);
    auto& backend = Headless();
    backend.InjectMouseMove(h, -3, 40000);
    backend.InjectMouseButton(h, MouseButton::Left, true, 7, 8, display::HEADLESS_SHIFT);
    backend.InjectMouseButton(h, MouseButton::Left, false, 7, 8);
    backend.InjectMouseButton(h, MouseButton::Left, true, 9, 9, display::HEADLESS_CONTROL); // within reach: double
    backend.InjectMouseButton(h, MouseButton::Right, true, 1, 2);
    backend.InjectMouseButton(h, MouseButton::Middle, true, 1, 2);
    backend.InjectWheel(h, 4, 5, -2);
    w.seen.clear();
    PumpMessages();
    const std::vector<Seen> expected = {
        {WM_MOUSEMOVE, 0, MakeLParam(-3, 40000)},
        {WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, MakeLParam(7, 8)},
        {WM_LBUTTONUP, 0, MakeLParam(7, 8)},
        {WM_LBUTTONDBLCLK, MK_LBUTTON | MK_CONTROL, MakeLParam(9, 9)},
        {WM_RBUTTONDOWN, MK_LBUTTON | MK_RBUTTON, MakeLParam(1, 2)},
        {WM_MBUTTONDOWN, MK_LBUTTON | MK_RBUTTON | MK_MBUTTON, MakeLParam(1, 2)},
        {WM_MOUSEWHEEL, (0xFF10u << 16) | MK_LBUTTON | MK_RBUTTON | MK_MBUTTON, MakeLParam(14, 25)},
    };
    EXPECT_EQ(w.seen, expected);
    EXPECT_EQ(HiWordSigned(w.seen[0].lParam), -25536); // 40000 does not fit: it wraps as a short
    for (MouseButton b : {MouseButton::Left, MouseButton::Right, MouseButton::Middle})
        backend.InjectMouseButton(h, b, false, 0, 0);
    PumpMessages();
}

TEST_F(HeadlessTest, CapturedPointerInputGoesToTheCapturingWindowInItsCoordinates)
{
    RecordingWnd a, b;
    const NativeWindow ha = Make(a, 10, 20), hb = Make(b, 300, 100);
    auto& backend = Headless();
    a.SetCapture();
    EXPECT_EQ(backend.GetCapture(), ha);
    backend.InjectMouseMove(hb, 5, 6);
    backend.InjectMouseButton(hb, MouseButton::Left, true, 5, 6);
    backend.InjectMouseButton(hb, MouseButton::Left, false, 5, 6);
    backend.InjectWheel(hb, 5, 6, 1);
    a.seen.clear();
    b.seen.clear();
    PumpMessages();
    EXPECT_TRUE(b.seen.empty());
    const LParam inA = MakeLParam(295, 86);
    const std::vector<Seen> expected = {
        {WM_MOUSEMOVE, 0, inA},
        {WM_LBUTTONDOWN, MK_LBUTTON, inA},
        {WM_LBUTTONUP, 0, inA},
        {WM_MOUSEWHEEL, MakeWParam(0, WHEEL_DELTA), MakeLParam(305, 106)}, // screen coordinates
    };
    EXPECT_EQ(a.seen, expected);

    CWnd::ReleaseCapture();
    EXPECT_EQ(backend.GetCapture(), nullptr);
    backend.InjectMouseButton(hb, MouseButton::Left, true, 5, 6);
    PumpMessages();
    EXPECT_EQ(b.Of(WM_LBUTTONDOWN), (std::vector<Seen>{{WM_LBUTTONDOWN, MK_LBUTTON, MakeLParam(5, 6)}}));
    backend.InjectMouseButton(hb, MouseButton::Left, false, 5, 6);
    PumpMessages();
}

TEST_F(HeadlessTest, KeysCarryRepeatScanAndTransitionBits)
{
    RecordingWnd w;
    const NativeWindow h = Make(w);
    auto& backend = Headless();
    backend.InjectKey(h, 'Q', true, u'q');
    backend.InjectKey(h, 'Q', false);
    backend.InjectKey(h, VK_LEFT, true, 0, display::HEADLESS_ALT);
    w.seen.clear();
    PumpMessages();
    const std::vector<Seen> expected = {
        {WM_KEYDOWN, 'Q', 0x00100001},
        {WM_CHAR, u'q', 0x00100001},
        {WM_KEYUP, 'Q', static_cast<int32_t>(0xC0100001u)},
        {WM_SYSKEYDOWN, VK_LEFT, 0x21000001},
    };
    EXPECT_EQ(w.seen, expected);
    EXPECT_EQ(GetKeyState('Q'), 1); // up again, toggled once
    EXPECT_LT(GetKeyState(VK_LEFT), 0);
    backend.InjectKey(h, VK_LEFT, false, 0, display::HEADLESS_ALT);
    PumpMessages();
}

TEST_F(HeadlessTest, CloseResizeExposeAndFocusArriveAsMessages)
{
    RecordingWnd a, b;
    const NativeWindow ha = Make(a), hb = Make(b);
    a.ShowWindow(SW_SHOW);
    b.ShowWindow(SW_SHOW);
    PumpMessages();
    EXPECT_EQ(CWnd::GetFocus(), hb);
    a.seen.clear();
    b.seen.clear();

    auto& backend = Headless();
    backend.InjectFocus(ha);
    backend.InjectResize(ha, 64, 32);
    const display::WindowBox box{1, 2, 3, 4};
    backend.InjectExpose(hb, &box);
    PumpMessages();
    EXPECT_EQ(b.Messages(), (std::vector<uint32_t>{WM_KILLFOCUS, WM_ACTIVATE, WM_PAINT}));
    EXPECT_EQ(b.Of(WM_ACTIVATE)[0].wParam, 0u);
    EXPECT_EQ(a.Messages(), (std::vector<uint32_t>{WM_ACTIVATE, WM_SETFOCUS, WM_SIZE, WM_PAINT}));
    EXPECT_EQ(a.Of(WM_SIZE)[0].lParam, MakeLParam(64, 32));

    // The window manager's close button: the default handling destroys the window.
    backend.InjectClose(ha);
    PumpMessages();
    EXPECT_EQ(a.Of(WM_CLOSE).size(), 1u);
    EXPECT_EQ(a.GetSafeHwnd(), nullptr);
    EXPECT_EQ(GetNativeWindowCount(), 1u);
}

TEST_F(HeadlessTest, MessageBoxesAreRecordedAndAnswerWithTheirDefaultButton)
{
    EXPECT_EQ(VeskMessageBox(nullptr, "Save?", "Editor", MB_YESNOCANCEL), IDYES);
    EXPECT_EQ(VeskMessageBox(nullptr, "x", "y", MB_YESNOCANCEL | MB_DEFBUTTON3), IDCANCEL);
    EXPECT_EQ(VeskMessageBox(nullptr, "x", "y", MB_OKCANCEL | MB_DEFBUTTON2), IDCANCEL);
    EXPECT_EQ(VeskMessageBox(nullptr, "x", "y", MB_OKCANCEL | MB_DEFBUTTON3), IDCANCEL); // past the last
    EXPECT_EQ(VeskMessageBox(nullptr, "x", "y", MB_CANCELTRYCONTINUE), IDCANCEL);
    EXPECT_EQ(VeskMessageBox(nullptr, "x", "y", MB_CANCELTRYCONTINUE | MB_DEFBUTTON2), IDTRYAGAIN);
    EXPECT_EQ(VeskMessageBox(nullptr, "x", "y", 0xF), IDOK); // unknown types offer OK alone
    const auto boxes = Headless().GetMessageBoxes();
    ASSERT_EQ(boxes.size(), 7u);
    EXPECT_EQ(boxes[0].text, "Save?");
    EXPECT_EQ(boxes[0].caption, "Editor");
    EXPECT_EQ(boxes[0].type, MB_YESNOCANCEL);
}

TEST_F(HeadlessTest, PicturesShowWhatWasPainted)
{
    RecordingWnd w;
    const NativeWindow h = Make(w, 0, 0, 4, 3);
    cairo_surface_t* s = Headless().GetSurface(h);
    ASSERT_NE(s, nullptr);
    cairo_t* cr = cairo_create(s);
    cairo_set_source_rgb(cr, 1, 0, 0);
    cairo_rectangle(cr, 1, 1, 1, 1);
    cairo_fill(cr);
    cairo_destroy(cr);
    Headless().ReleaseSurface(s);

    Bitmap picture;
    ASSERT_TRUE(GetWindowPicture(h, picture));
    const BitmapPixels shown = picture.GetPGdiplusBitmap();
    ASSERT_EQ(shown.width, 4);
    ASSERT_EQ(shown.height, 3);
    const int32_t stride = shown.stride ? shown.stride : shown.width;
    EXPECT_EQ(shown.pixels[stride + 1], 0xFFFF0000u);
    EXPECT_EQ(shown.pixels[stride + 2], 0xFFFFFFFFu);
    EXPECT_EQ(shown.pixels[2 * stride + 1], 0xFFFFFFFFu);
    EXPECT_FALSE(GetWindowPicture(nullptr, picture));
    EXPECT_TRUE(picture.Empty());

    // Written to a file, the same picture.
    const std::string path = ::testing::TempDir() + "/vesk_headless_shot.png";
    ASSERT_TRUE(SaveWindowPicture(h, path.c_str()));
    EXPECT_FALSE(SaveWindowPicture(nullptr, path.c_str()));
    cairo_surface_t* png = cairo_image_surface_create_from_png(path.c_str());
    ASSERT_EQ(cairo_surface_status(png), CAIRO_STATUS_SUCCESS);
    ASSERT_EQ(cairo_image_surface_get_width(png), 4);
    EXPECT_EQ(SurfacePixel(png, 1, 1), 0xFFFF0000u);
    EXPECT_EQ(SurfacePixel(png, 0, 1), 0xFFFFFFFFu);
    cairo_surface_destroy(png);
    std::remove(path.c_str());
}

TEST_F(HeadlessTest, WakeEndsAWaitFromAnotherThread)
{
    std::atomic<bool> returned{false};
    std::thread waiter([&] {
        Headless().WaitEvents(-1);
        returned = true;
    });
    while (!returned) {
        Headless().Wake();
        std::this_thread::yield();
    }
    waiter.join();
    EXPECT_TRUE(returned);
}
