#pragma once

// Window tests run on the headless display: the library is started for each test, and each
// test must leave no native window behind.

#include "platform/display/headless/HeadlessBackend.hpp"
#include "support/SurfacePixels.hpp"

#include <vesk/frame.hpp>
#include <vesk/window.hpp>

#include <cairo.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace vesk::test {

inline display::HeadlessBackend& Headless()
{
    static display::HeadlessBackend* backend = [] {
        setenv("VESK_PLATFORM", "headless", 1);
        return dynamic_cast<display::HeadlessBackend*>(&display::GetDisplayBackend());
    }();
    return *backend;
}

// Pixel (x, y) of what `window` shows, as 0xAARRGGBB; 0 when it shows nothing.
inline uint32_t ShownPixel(NativeWindow window, int x, int y)
{
    cairo_surface_t* shot = Headless().Snapshot(window);
    if (!shot)
        return 0;
    const uint32_t p = SurfacePixel(shot, x, y);
    cairo_surface_destroy(shot);
    return p;
}

class WindowTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_NE(&Headless(), nullptr);
        VeskInit();
        Headless().ClearMessageBoxes();
    }
    void TearDown() override
    {
        EXPECT_EQ(GetNativeWindowCount(), 0u) << "a native window was left behind";
        while (!PumpMessages()) // drops what is left, including a quit
            RunMessageLoop();
        VeskExit();
    }
};

// One message as a window saw it.
struct Seen
{
    uint32_t message;
    WParam wParam;
    LParam lParam;
    bool operator==(const Seen&) const = default;
};

// A CWnd that records the messages reaching its own handling.
class RecordingWnd : public CWnd
{
public:
    std::vector<Seen> seen;
    std::vector<uint32_t> Messages() const
    {
        std::vector<uint32_t> m;
        for (const Seen& s : seen)
            m.push_back(s.message);
        return m;
    }
    // The messages of one kind.
    std::vector<Seen> Of(uint32_t message) const
    {
        std::vector<Seen> m;
        for (const Seen& s : seen) {
            if (s.message == message)
                m.push_back(s);
        }
        return m;
    }

protected:
    intptr_t WindowProc(uint32_t message, WParam wParam, LParam lParam) override
    {
        seen.push_back({message, wParam, lParam});
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

} // namespace vesk::test
