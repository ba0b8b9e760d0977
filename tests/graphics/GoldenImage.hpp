#pragma once

// Picture checks of the drawing tests: scenes are compared with PNG goldens in tests/golden/
// through one comparison (largest per-channel difference and a budget of differing pixels).
// On a mismatch the actual picture and a difference picture are written next to the test
// program; VESK_UPDATE_GOLDENS=1 rewrites the goldens instead.

#include <vesk/graphics/VirtualDevice.hpp>

#include "graphics/DeviceContext.hpp"

#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace vesk::test {

inline std::string GoldenDir()
{
    return VESK_GOLDEN_DIR;
}

// Use the test tree's fonts; must run before the first text is laid out.
inline bool PinFonts()
{
    static const std::string conf = GoldenDir() + "/fonts.conf";
    return setenv("FONTCONFIG_FILE", conf.c_str(), 1) == 0;
}

struct ImageDiff
{
    int maxChannel = 0;       // largest difference of one channel anywhere
    int64_t differing = 0;    // pixels with a channel differing by more than the tolerance
    bool sizeDiffers = false;
};

inline uint32_t At(cairo_surface_t* s, int x, int y)
{
    const unsigned char* row = cairo_image_surface_get_data(s) + size_t(y) * cairo_image_surface_get_stride(s);
    return reinterpret_cast<const uint32_t*>(row)[x];
}

// A device of w x h on opaque white, read as premultiplied ARGB words.
struct Canvas : VirtualDevice
{
    Canvas(int w, int h) : VirtualDevice(TamSize(w, h)) { Erase(CRectangle(0, 0, w - 1, h - 1), TamColor()); }
    cairo_surface_t* Picture() { return GethDC()->surface; }
    uint32_t At(int x, int y) { return test::At(Picture(), x, y); }
};

// Compares two ARGB32 pictures; `diff`, when given, receives red where pixels differ.
inline ImageDiff CompareImages(cairo_surface_t* a, cairo_surface_t* b, int tolerance,
                               cairo_surface_t* diff = nullptr)
{
    ImageDiff d;
    cairo_surface_flush(a);
    cairo_surface_flush(b);
    const int w = cairo_image_surface_get_width(a), h = cairo_image_surface_get_height(a);
    if (w != cairo_image_surface_get_width(b) || h != cairo_image_surface_get_height(b)) {
        d.sizeDiffers = true;
        return d;
    }
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const uint32_t p = At(a, x, y), q = At(b, x, y);
            int m = 0;
            for (int shift = 0; shift < 32; shift += 8)
                m = std::max(m, std::abs(int(p >> shift & 0xFF) - int(q >> shift & 0xFF)));
            d.maxChannel = std::max(d.maxChannel, m);
            if (m > tolerance) {
                ++d.differing;
                if (diff) {
                    cairo_t* cr = cairo_create(diff);
                    cairo_set_source_rgb(cr, 1, 0, 0);
                    cairo_rectangle(cr, x, y, 1, 1);
                    cairo_fill(cr);
                    cairo_destroy(cr);
                }
            }
        }
    return d;
}

// Whether `actual` matches golden `name`.png: at most `budget` pixels differ by more than
// `tolerance` in a channel.
inline ::testing::AssertionResult MatchesGolden(cairo_surface_t* actual, const std::string& name,
                                                int tolerance = 0, int64_t budget = 0)
{
    const std::string golden = GoldenDir() + "/" + name + ".png";
    const char* update = std::getenv("VESK_UPDATE_GOLDENS");
    if (update && std::string(update) == "1") {
        cairo_surface_write_to_png(actual, golden.c_str());
        return ::testing::AssertionSuccess() << "golden rewritten";
    }
    cairo_surface_t* expected = cairo_image_surface_create_from_png(golden.c_str());
    if (cairo_surface_status(expected) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(expected);
        return ::testing::AssertionFailure() << "cannot read " << golden;
    }
    const int w = cairo_image_surface_get_width(actual), h = cairo_image_surface_get_height(actual);
    cairo_surface_t* diff = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, w, h);
    // The difference picture shows the expected one faintly under the red differences.
    cairo_t* cr = cairo_create(diff);
    cairo_set_source_surface(cr, expected, 0, 0);
    cairo_paint_with_alpha(cr, 0.25);
    cairo_destroy(cr);
    const ImageDiff d = CompareImages(actual, expected, tolerance, diff);
    ::testing::AssertionResult result = ::testing::AssertionSuccess();
    if (d.sizeDiffers || d.differing > budget) {
        std::filesystem::create_directories("golden-failures");
        cairo_surface_write_to_png(actual, ("golden-failures/" + name + ".actual.png").c_str());
        cairo_surface_write_to_png(diff, ("golden-failures/" + name + ".diff.png").c_str());
        result = ::testing::AssertionFailure()
                 << name << ": " << (d.sizeDiffers ? "size differs; " : "") << d.differing
                 << " pixels differ (budget " << budget << "), largest channel difference "
                 << d.maxChannel << "; see golden-failures/" << name << ".*.png";
    }
    cairo_surface_destroy(diff);
    cairo_surface_destroy(expected);
    return result;
}

} // namespace vesk::test
