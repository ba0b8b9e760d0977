#include "X11Fixture.hpp"
#include "support/SurfacePixels.hpp"

#include <atomic>
#include <thread>

namespace vesk::test {
namespace {

using namespace vesk::display;

class X11Paint : public X11Fixture {
protected:
    // Paints the window on its WM_PAINT messages with `scene`; records the dirty boxes.
    void PaintWith(NativeWindow window, std::function<void(cairo_t*)> scene)
    {
        s_onMessage = [this, window, scene](const Message& m) {
            if (m.window != window || m.message != WM_PAINT)
                return;
            WindowBox dirty;
            cairo_surface_t* surface = m_backend->BeginPaint(window, dirty);
            ASSERT_TRUE(surface);
            m_dirty.push_back(dirty);
            cairo_t* cr = cairo_create(surface);
            scene(cr);
            cairo_destroy(cr);
            m_backend->EndPaint(surface);
        };
    }

    std::vector<WindowBox> m_dirty;
};

// Opaque shapes, anti-aliased edges, a gradient and text: what a window's paint handler draws.
void Scene(cairo_t* cr)
{
    cairo_set_source_rgb(cr, 0.9, 0.85, 0.7);
    cairo_paint(cr);
    cairo_set_source_rgb(cr, 0.1, 0.3, 0.8);
    cairo_rectangle(cr, 10, 10, 60, 40);
    cairo_fill(cr);
    cairo_pattern_t* gradient = cairo_pattern_create_linear(80, 0, 150, 0);
    cairo_pattern_add_color_stop_rgb(gradient, 0, 1, 0, 0);
    cairo_pattern_add_color_stop_rgb(gradient, 1, 0, 0.6, 0);
    cairo_set_source(cr, gradient);
    cairo_arc(cr, 115, 40, 30, 0, 6.283);
    cairo_fill(cr);
    cairo_pattern_destroy(gradient);
    cairo_set_source_rgba(cr, 0, 0, 0, 0.5);
    cairo_set_line_width(cr, 2.5);
    cairo_move_to(cr, 5, 110);
    cairo_line_to(cr, 155, 75);
    cairo_stroke(cr);
    cairo_move_to(cr, 20, 100);
    cairo_set_font_size(cr, 14);
    cairo_show_text(cr, "Vesk 17");
}

cairo_surface_t* Reference(int width, int height, void (*scene)(cairo_t*))
{
    cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    cairo_t* cr = cairo_create(image);
    scene(cr);
    cairo_destroy(cr);
    cairo_surface_flush(image);
    return image;
}

// Pixels that differ between two ARGB32 surfaces of one size (all of them when sizes differ).
long DifferingPixels(cairo_surface_t* a, cairo_surface_t* b)
{
    int width = cairo_image_surface_get_width(a), height = cairo_image_surface_get_height(a);
    if (width != cairo_image_surface_get_width(b) || height != cairo_image_surface_get_height(b))
        return long{width} * height + 1;
    long differing = 0;
    for (int y = 0; y < height; ++y) {
        auto* rowA = reinterpret_cast<const uint32_t*>(cairo_image_surface_get_data(a) + y * cairo_image_surface_get_stride(a));
        auto* rowB = reinterpret_cast<const uint32_t*>(cairo_image_surface_get_data(b) + y * cairo_image_surface_get_stride(b));
        for (int x = 0; x < width; ++x)
            differing += rowA[x] != rowB[x];
    }
    return differing;
}

TEST_F(X11Paint, ScreenshotEqualsTheSceneInAnImageSurface)
{
    NativeWindow window = m_backend->CreateWindow(Params(20, 30, 160, 120));
    m_windows.push_back(window);
    PaintWith(window, Scene);
    m_backend->Show(window, ShowCommand::Normal);
    ASSERT_TRUE(PumpUntil([&] { return !m_dirty.empty(); }));
    EXPECT_EQ(EdgesOf(m_dirty[0]), (Edges{0, 0, 160, 120}));

    cairo_surface_t* expected = Reference(160, 120, Scene);
    cairo_surface_t* shown = m_backend->Snapshot(window);
    ASSERT_TRUE(shown);
    EXPECT_EQ(DifferingPixels(shown, expected), 0);
    cairo_surface_destroy(shown);

    // An invalidated part is all that the next paint is asked for.
    WindowBox part{30, 20, 50, 45};
    m_backend->Invalidate(window, &part);
    ASSERT_TRUE(PumpUntil([&] { return m_dirty.size() == 2; }));
    EXPECT_EQ(EdgesOf(m_dirty[1]), (Edges{30, 20, 50, 45}));

    // Hidden, the window gets no paint; shown again, it shows what it showed, though its
    // handler paints nothing any more.
    PaintWith(window, [](cairo_t*) { });
    m_backend->Show(window, ShowCommand::Hide);
    NativeWindow other = ShowWindow(300, 30, 40, 40);
    m_backend->Invalidate(window, nullptr);
    m_backend->Invalidate(other, nullptr);
    ASSERT_TRUE(PumpUntil([&] { return Count(other, WM_PAINT) == 2; }));
    EXPECT_EQ(m_dirty.size(), 2u);
    m_backend->Show(window, ShowCommand::Normal);
    ASSERT_TRUE(PumpUntil([&] { return m_dirty.size() == 3; }));
    shown = m_backend->Snapshot(window);
    EXPECT_EQ(DifferingPixels(shown, expected), 0);
    cairo_surface_destroy(shown);
    cairo_surface_destroy(expected);
}

TEST_F(X11Paint, BackgroundThreadAndUiThreadTakeTurns)
{
    NativeWindow window = ShowWindow(20, 30, 120, 90);
    PaintWith(window, [](cairo_t* cr) {
        cairo_set_source_rgb(cr, 0, 0, 1);
        cairo_paint(cr);
    });
    std::atomic<bool> done{false};
    // Like an animation player: paints frames from its own thread through GetSurface.
    std::thread player([&] {
        for (int frame = 0; frame < 300; ++frame) {
            cairo_surface_t* surface = m_backend->GetSurface(window);
            ASSERT_TRUE(surface);
            cairo_t* cr = cairo_create(surface);
            cairo_set_source_rgb(cr, frame % 2, 1, 0);
            cairo_rectangle(cr, 0, 0, 60, 45);
            cairo_fill(cr);
            cairo_destroy(cr);
            m_backend->ReleaseSurface(surface);
        }
        done = true;
    });
    int round = 0;
    while (!done) {
        m_backend->Invalidate(window, nullptr);
        m_backend->MoveWindow(window, 20, 30, 120 + round % 5, 90); // the back buffer is replaced
        m_backend->WaitEvents(5);
        m_backend->DispatchEvents();
        ++round;
    }
    player.join();
    m_backend->MoveWindow(window, 20, 30, 120, 90);
    cairo_surface_t* surface = m_backend->GetSurface(window);
    cairo_t* cr = cairo_create(surface);
    cairo_set_source_rgb(cr, 1, 0, 0);
    cairo_rectangle(cr, 0, 0, 60, 45);
    cairo_fill(cr);
    cairo_destroy(cr);
    m_backend->ReleaseSurface(surface);
    cairo_surface_t* shown = m_backend->Snapshot(window);
    EXPECT_EQ(cairo_image_surface_get_width(shown), 120);
    EXPECT_EQ(SurfacePixel(shown, 10, 10), 0xFFFF0000u); // what the last frame drew shows at once
    cairo_surface_destroy(shown);
}

TEST_F(X11Paint, WindowDestroyedInItsPaintHandler)
{
    NativeWindow window = ShowWindow(20, 30, 120, 90);
    m_backend->Invalidate(window, nullptr);
    bool painted = false;
    s_onMessage = [&](const Message& m) {
        if (m.message != WM_PAINT)
            return;
        WindowBox dirty;
        cairo_surface_t* surface = m_backend->BeginPaint(window, dirty);
        m_backend->DestroyWindow(window);
        cairo_t* cr = cairo_create(surface);
        cairo_paint(cr); // the surface stays valid until it is given back
        cairo_destroy(cr);
        m_backend->EndPaint(surface);
        painted = true;
    };
    ASSERT_TRUE(PumpUntil([&] { return painted; }));
    EXPECT_FALSE(m_backend->IsWindow(window));
    EXPECT_EQ(Count(window, WM_DESTROY), 1u);
    // Nothing is held: a new window paints without waiting.
    NativeWindow next = ShowWindow(20, 30, 50, 50);
    cairo_surface_t* surface = m_backend->GetSurface(next);
    EXPECT_TRUE(surface);
    m_backend->ReleaseSurface(surface);
}

} // namespace
} // namespace vesk::test
