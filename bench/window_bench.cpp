// Message routing and painting on the headless display against their floors: a mouse move
// through the library's window procedure (three hooks, the router's map, the dispatcher, the
// virtual handler) against one hash-map look-up plus one virtual call; a full repaint of a
// 1920 x 1080 window against raw Cairo filling a surface of that size.

#include <vesk/frame.hpp>
#include <vesk/window.hpp>

#include <benchmark/benchmark.h>
#include <cairo.h>

#include <cstdlib>
#include <unordered_map>

using namespace vesk;

namespace {

constexpr int MESSAGES = 1'000'000;

int PassHook(NativeWindow, uint32_t, WParam, LParam)
{
    return 0;
}

class MoveCounter : public Window
{
public:
    int64_t moves = 0;

protected:
    void MouseMove(const MouseEvent& e) override { moves += e.GetPosPixel().x; }
};

// The library started on the headless display with one wrapped window.
struct Scene
{
    explicit Scene(int width, int height)
    {
        setenv("VESK_PLATFORM", "headless", 1);
        VeskInit();
        wnd.Create(WndKind::TopLevel, nullptr, TamPoint(0, 0), TamSize(width, height));
        win.SetAsWrap(&wnd);
        wnd.ShowWindow(SW_SHOW);
        PumpMessages();
    }
    ~Scene()
    {
        wnd.DestroyWindow();
        VeskExit();
    }
    CWnd wnd;
    MoveCounter win;
};

void BM_MouseMoveThroughWindowProc(benchmark::State& state)
{
    Scene scene(200, 100);
    for (WinProcHook hook : {&PassHook, &PassHook, &PassHook})
        GlPushWinProcHook(hook);
    const NativeWindow h = scene.wnd.GetSafeHwnd();
    for (auto _ : state) {
        for (int i = 0; i < MESSAGES; ++i)
            Window::WinProc(h, WM_MOUSEMOVE, 0, MakeLParam(i & 0xFF, 7));
    }
    benchmark::DoNotOptimize(scene.win.moves);
    state.SetItemsProcessed(state.iterations() * MESSAGES);
}

// The peer: what any router must at least do per message.
struct Handler
{
    virtual ~Handler() = default;
    virtual void OnMove(int32_t x, int32_t y) = 0;
};
struct CountingHandler final : Handler
{
    int64_t moves = 0;
    void OnMove(int32_t x, int32_t) override { moves += x; }
};

void BM_MouseMoveHashAndVirtualCall(benchmark::State& state)
{
    CountingHandler handler;
    std::unordered_map<NativeWindow, Handler*> map(WINMSGROUTER_HASHSIZE);
    const auto h = reinterpret_cast<NativeWindow>(uintptr_t{1});
    map[h] = &handler;
    for (auto _ : state) {
        for (int i = 0; i < MESSAGES; ++i) {
            NativeWindow window = h;
            benchmark::DoNotOptimize(window);
            auto it = map.find(window);
            if (it != map.end())
                it->second->OnMove(i & 0xFF, 7);
        }
    }
    benchmark::DoNotOptimize(handler.moves);
    state.SetItemsProcessed(state.iterations() * MESSAGES);
}

class FillingWindow : public Window
{
protected:
    void Paint(const CRectangle& r) override { Erase(r, TamColor(0x2000, 0x8000, 0xC000)); }
};

void BM_RepaintHeadless1080p(benchmark::State& state)
{
    setenv("VESK_PLATFORM", "headless", 1);
    VeskInit();
    {
        CWnd wnd;
        FillingWindow win;
        wnd.Create(WndKind::TopLevel, nullptr, TamPoint(0, 0), TamSize(1920, 1080));
        win.SetAsWrap(&wnd);
        wnd.ShowWindow(SW_SHOW);
        PumpMessages();
        for (auto _ : state) {
            win.Invalidate();
            PumpMessages();
        }
    }
    VeskExit();
}

void BM_RepaintRawCairo1080p(benchmark::State& state)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 1920, 1080);
    for (auto _ : state) {
        cairo_t* cr = cairo_create(surface);
        cairo_set_source_rgb(cr, 0x20 / 255.0, 0x80 / 255.0, 0xC0 / 255.0);
        cairo_rectangle(cr, 0, 0, 1920, 1080);
        cairo_fill(cr);
        cairo_destroy(cr);
        cairo_surface_flush(surface);
    }
    cairo_surface_destroy(surface);
}

} // namespace

BENCHMARK(BM_MouseMoveThroughWindowProc)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MouseMoveHashAndVirtualCall)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RepaintHeadless1080p)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RepaintRawCairo1080p)->Unit(benchmark::kMicrosecond);
