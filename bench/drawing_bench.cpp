// The drawing surface against raw Cairo and pangocairo doing the same drawing on the same
// 256 x 256 ARGB picture. The anti-aliased (HQ) rows build their drawing state afresh for each
// call, as the device does; the raw rows draw on one context with save and restore. The plain
// rows compare with raw Cairo without anti-aliasing. Ratios: Vesk row time / Raw row time.
#include "graphics/DeviceContext.hpp"

#include <vesk/graphics.hpp>

#include <benchmark/benchmark.h>
#include <cairo.h>
#include <pango/pangocairo.h>

#include <cmath>

using namespace vesk;

namespace {

constexpr int kSide = 256;
const char* const kText = "The quick brown fox."; // 20 characters

std::vector<FPoint> Star()
{
    std::vector<FPoint> points;
    for (int i = 0; i < 100; ++i) {
        const double a = 2 * M_PI * i / 100, r = i % 2 ? 60 : 120;
        points.emplace_back(128 + r * std::cos(a), 128 + r * std::sin(a));
    }
    return points;
}

// A raw Cairo context on its own picture.
struct Raw
{
    Raw() : surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kSide, kSide)), cr(cairo_create(surface)) {}
    ~Raw()
    {
        cairo_destroy(cr);
        cairo_surface_destroy(surface);
    }
    cairo_surface_t* surface;
    cairo_t* cr;
};

// Times one raw Cairo drawing per iteration, between a save and a restore of the context's state.
template <class Draw>
void RawLoop(benchmark::State& state, cairo_antialias_t antialias, Draw draw)
{
    Raw r;
    for (auto _ : state) {
        cairo_save(r.cr);
        cairo_set_antialias(r.cr, antialias);
        draw(r.cr);
        cairo_restore(r.cr);
        benchmark::DoNotOptimize(cairo_status(r.cr));
    }
}

void VeskLineHQ(benchmark::State& state)
{
    VirtualDevice d(TamSize(kSide, kSide));
    const TransparentColor c(TamColor(0xFF0000u), 100);
    for (auto _ : state)
        benchmark::DoNotOptimize(d.DrawLineHQ(FPoint(10, 10), FPoint(240, 150), c, 2, LineCap::Round));
}

void RawLineHQ(benchmark::State& state)
{
    RawLoop(state, CAIRO_ANTIALIAS_BEST, [](cairo_t* cr) {
        cairo_set_source_rgba(cr, 0, 0, 1, 1);
        cairo_set_line_width(cr, 2);
        cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
        cairo_move_to(cr, 10, 10);
        cairo_line_to(cr, 240, 150);
        cairo_stroke(cr);
    });
}

void VeskRectHQ(benchmark::State& state)
{
    VirtualDevice d(TamSize(kSide, kSide));
    const TransparentColor c(TamColor(0xFF0000u), 100);
    for (auto _ : state)
        benchmark::DoNotOptimize(d.DrawRectHQ(FRectangle(10.5, 10.5, 200.5, 150.5), c));
}

void RawRectHQ(benchmark::State& state)
{
    RawLoop(state, CAIRO_ANTIALIAS_NONE, [](cairo_t* cr) {
        cairo_set_source_rgba(cr, 0, 0, 1, 1);
        cairo_rectangle(cr, 10.5, 10.5, 190, 140);
        cairo_fill(cr);
    });
}

void VeskEllipseHQ(benchmark::State& state)
{
    VirtualDevice d(TamSize(kSide, kSide));
    d.ChangeFillInBrush(Brush(TamColor(0x00FF00u)));
    for (auto _ : state)
        benchmark::DoNotOptimize(d.DrawEllipseHQ(FRectangle(10, 20, 240, 200), 80));
}

void RawEllipseHQ(benchmark::State& state)
{
    RawLoop(state, CAIRO_ANTIALIAS_NONE, [](cairo_t* cr) {
        cairo_set_source_rgba(cr, 0, 1, 0, 204 / 255.0);
        cairo_save(cr);
        cairo_translate(cr, 125, 110);
        cairo_scale(cr, 115, 90);
        cairo_arc(cr, 0, 0, 1, 0, 2 * M_PI);
        cairo_restore(cr);
        cairo_fill(cr);
    });
}

void VeskPolygonHQ(benchmark::State& state)
{
    VirtualDevice d(TamSize(kSide, kSide));
    d.ChangeFillInBrush(Brush(TamColor(0x0000FFu)));
    FPolygon p;
    for (const FPoint& q : Star())
        p.Add(q);
    for (auto _ : state)
        benchmark::DoNotOptimize(d.DrawPolygonHQ(p));
}

void RawPolygonHQ(benchmark::State& state)
{
    const std::vector<FPoint> points = Star();
    RawLoop(state, CAIRO_ANTIALIAS_GOOD, [&](cairo_t* cr) {
        cairo_set_source_rgba(cr, 1, 0, 0, 1);
        for (const FPoint& q : points)
            cairo_line_to(cr, q.x, q.y);
        cairo_close_path(cr);
        cairo_set_fill_rule(cr, CAIRO_FILL_RULE_WINDING);
        cairo_fill(cr);
    });
}

void VeskTextHQ(benchmark::State& state)
{
    VirtualDevice d(TamSize(kSide, kSide));
    d.ChangeFont(Font("DejaVu Sans", 14));
    for (auto _ : state)
        benchmark::DoNotOptimize(d.DrawTextHQ(FPoint(10, 100), kText));
}

void RawTextHQ(benchmark::State& state)
{
    Raw r;
    PangoContext* context = pango_font_map_create_context(pango_cairo_font_map_get_default());
    PangoFontDescription* desc = pango_font_description_from_string("DejaVu Sans");
    pango_font_description_set_absolute_size(desc, 14 * PANGO_SCALE);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
    for (auto _ : state) {
        cairo_save(r.cr);
        pango_cairo_update_context(r.cr, context);
        pango_cairo_context_set_font_options(context, options);
        PangoLayout* layout = pango_layout_new(context);
        pango_layout_set_font_description(layout, desc);
        pango_layout_set_text(layout, kText, -1);
        cairo_set_source_rgb(r.cr, 0, 0, 0);
        cairo_move_to(r.cr, 10, 100);
        pango_cairo_show_layout(r.cr, layout);
        g_object_unref(layout);
        cairo_restore(r.cr);
        benchmark::DoNotOptimize(cairo_status(r.cr));
    }
    cairo_font_options_destroy(options);
    pango_font_description_free(desc);
    g_object_unref(context);
}

void VeskRect(benchmark::State& state)
{
    VirtualDevice d(TamSize(kSide, kSide));
    d.ChangePen(Pen(TamColor(0u)));
    d.ChangeFillInBrush(Brush(TamColor(0x00FF00u)));
    for (auto _ : state) {
        d.DrawRect(CRectangle(10, 10, 200, 150));
        benchmark::ClobberMemory();
    }
}

void RawRect(benchmark::State& state)
{
    RawLoop(state, CAIRO_ANTIALIAS_NONE, [](cairo_t* cr) {
        cairo_rectangle(cr, 10, 10, 191, 141);
        cairo_set_source_rgb(cr, 0, 1, 0);
        cairo_fill(cr);
        cairo_rectangle(cr, 10.5, 10.5, 190, 140);
        cairo_set_source_rgb(cr, 0, 0, 0);
        cairo_set_line_width(cr, 1);
        cairo_stroke(cr);
    });
}

void VeskLine(benchmark::State& state)
{
    VirtualDevice d(TamSize(kSide, kSide));
    d.ChangePen(Pen(TamColor(0u)));
    for (auto _ : state) {
        d.DrawLine(TamPoint(10, 10), TamPoint(240, 150));
        benchmark::ClobberMemory();
    }
}

void RawLine(benchmark::State& state)
{
    RawLoop(state, CAIRO_ANTIALIAS_NONE, [](cairo_t* cr) {
        cairo_move_to(cr, 10.5, 10.5);
        cairo_line_to(cr, 240.5, 150.5);
        cairo_set_source_rgb(cr, 0, 0, 0);
        cairo_set_line_width(cr, 1);
        cairo_stroke(cr);
    });
}

} // namespace

BENCHMARK(VeskLineHQ);
BENCHMARK(RawLineHQ);
BENCHMARK(VeskRectHQ);
BENCHMARK(RawRectHQ);
BENCHMARK(VeskEllipseHQ);
BENCHMARK(RawEllipseHQ);
BENCHMARK(VeskPolygonHQ);
BENCHMARK(RawPolygonHQ);
BENCHMARK(VeskTextHQ);
BENCHMARK(RawTextHQ);
BENCHMARK(VeskRect);
BENCHMARK(RawRect);
BENCHMARK(VeskLine);
BENCHMARK(RawLine);
