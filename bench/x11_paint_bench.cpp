// A full repaint of a 1280 x 1024 window through the X11 backend (paint into its back buffer,
// copy to the window through cairo-xcb, and a round trip so the server has drawn it) against
// raw Cairo filling an image surface of the same size, the headless backend's whole cost.
// The program starts its own Xvfb. Ratio: X11 row time / Raw row time.
#include "platform/display/DisplayBackend.hpp"
#include "support/XServer.hpp"

#include <benchmark/benchmark.h>
#include <cairo.h>

using namespace vesk;

namespace {

constexpr int kWidth = 1280, kHeight = 1024;

void Fill(cairo_t* cr, int round)
{
    cairo_set_source_rgb(cr, (round & 1) * 0.5, 0.4, 0.8);
    cairo_paint(cr);
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_rectangle(cr, 100, 100, 400, 300);
    cairo_fill(cr);
}

void BM_RawCairoRepaint(benchmark::State& state)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kWidth, kHeight);
    int round = 0;
    for (auto _ : state) {
        cairo_t* cr = cairo_create(surface);
        Fill(cr, ++round);
        cairo_destroy(cr);
        cairo_surface_flush(surface);
    }
    cairo_surface_destroy(surface);
}
BENCHMARK(BM_RawCairoRepaint)->Unit(benchmark::kMicrosecond);

void BM_X11Repaint(benchmark::State& state)
{
    std::unique_ptr<test::XServer> server = test::XServer::Start();
    std::unique_ptr<display::DisplayBackend> backend
        = server ? display::CreateX11Backend(server->Display().c_str()) : nullptr;
    if (!backend) {
        state.SkipWithError("Xvfb did not start");
        return;
    }
    display::WindowParams params;
    params.width = kWidth;
    params.height = kHeight;
    NativeWindow window = backend->CreateWindow(params);
    backend->Show(window, display::ShowCommand::Normal);
    int round = 0;
    for (auto _ : state) {
        cairo_surface_t* surface = backend->GetSurface(window);
        cairo_t* cr = cairo_create(surface);
        Fill(cr, ++round);
        cairo_destroy(cr);
        backend->ReleaseSurface(surface);
        backend->GetFocus(); // a round trip: the server has copied the picture
    }
    backend->DestroyWindow(window);
}
BENCHMARK(BM_X11Repaint)->Unit(benchmark::kMicrosecond);

} // namespace
