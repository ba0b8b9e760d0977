#include "graphics/GoldenImage.hpp"

#include "graphics/DeviceContext.hpp"

#include <vesk/graphics.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>

namespace vesk {
namespace {

constexpr int kSide = 48;

// Two pictures of one shape: the plain family's and the anti-aliased family's.
struct Pair
{
    Pair() : plain(TamSize(kSide, kSide)), hq(TamSize(kSide, kSide))
    {
        plain.ChangePen(Pen(TamColor(0u), 1, PenStyle::Null));
        plain.ChangeFillInBrush(Brush(TamColor(0u)));
        hq.ChangeFillInBrush(Brush(TamColor(0u)));
    }

    // Where the anti-aliased picture is fully covered the plain one must be covered, and
    // where it is untouched the plain one must be too. Only the anti-aliased edge may
    // differ: pixels next to a partly covered one (coverage rounds to 8 bits, and the plain
    // rasteriser places slanted edges to within a pixel).
    ::testing::AssertionResult SameCoverage(const std::string& what)
    {
        cairo_surface_t* a = plain.GethDC()->surface;
        cairo_surface_t* b = hq.GethDC()->surface;
        cairo_surface_flush(a);
        cairo_surface_flush(b);
        int64_t covered = 0;
        // The outermost ring is left out: its neighbours beyond the picture are unknown.
        for (int y = 1; y < kSide - 1; ++y)
            for (int x = 1; x < kSide - 1; ++x) {
                const uint32_t p = test::At(a, x, y) >> 24, q = test::At(b, x, y) >> 24;
                covered += p != 0;
                if (((q == 255 && p != 255) || (q == 0 && p != 0)) && !NearEdge(b, x, y))
                    return ::testing::AssertionFailure()
                           << what << ": pixel (" << x << ", " << y << ") plain alpha " << p
                           << ", anti-aliased alpha " << q;
            }
        return ::testing::AssertionSuccess() << covered;
    }

    VirtualDevice plain;
    VirtualDevice hq;

private:
    static bool NearEdge(cairo_surface_t* s, int x, int y)
    {
        for (int dy = -1; dy <= 1; ++dy)
            for (int dx = -1; dx <= 1; ++dx) {
                const uint32_t a = test::At(s, x + dx, y + dy) >> 24;
                if (a != 0 && a != 255)
                    return true;
            }
        return false;
    }
};

TEST(Differential, RectanglesCoverTheSamePixels)
{
    std::mt19937 rng(1);
    std::uniform_int_distribution<int> coord(-8, kSide + 8);
    for (int i = 0; i < 60; ++i) {
        Pair pair;
        const CRectangle r(coord(rng), coord(rng), coord(rng), coord(rng));
        pair.plain.DrawRect(r);
        const int l = std::min(r.Left(), r.Right()), t = std::min(r.Top(), r.Bottom());
        const int rr = std::max(r.Left(), r.Right()) + 1, b = std::max(r.Top(), r.Bottom()) + 1;
        pair.hq.FillTransparentPolygon(CPolygon{{l, t}, {rr, t}, {rr, b}, {l, b}}, TransparentColor(TamColor(0u), 100));
        ASSERT_TRUE(pair.SameCoverage(std::string(r.GetStr())));
    }
}

TEST(Differential, StarPolygonsCoverTheSamePixels)
{
    std::mt19937 rng(2);
    std::uniform_int_distribution<int> count(3, 12);
    std::uniform_real_distribution<double> angle(0, 2 * M_PI), radius(2, 30), centre(4, kSide - 4);
    for (int i = 0; i < 80; ++i) {
        Pair pair;
        std::vector<double> angles(count(rng));
        for (double& a : angles)
            a = angle(rng);
        std::sort(angles.begin(), angles.end());
        const double cx = centre(rng), cy = centre(rng);
        CPolygon p;
        for (double a : angles) {
            const double r = radius(rng);
            p.Add(TamPoint(int(std::lround(cx + r * std::cos(a))), int(std::lround(cy + r * std::sin(a)))));
        }
        pair.plain.DrawPolygon(p);
        pair.hq.FillTransparentPolygon(p, TransparentColor(TamColor(0u), 100));
        ASSERT_TRUE(pair.SameCoverage("polygon " + std::to_string(i)));
    }
}

TEST(Differential, EllipsesCoverTheSamePixels)
{
    std::mt19937 rng(3);
    std::uniform_int_distribution<int> coord(-4, kSide + 4);
    for (int i = 0; i < 60; ++i) {
        Pair pair;
        const CRectangle r(coord(rng), coord(rng), coord(rng), coord(rng));
        pair.plain.DrawEllipse(r);
        // The ellipse covering the rectangle's pixels, as a fine polygon just inside it.
        const double l = std::min(r.Left(), r.Right()), t = std::min(r.Top(), r.Bottom());
        const double rx = (std::abs(r.Right() - r.Left()) + 1) / 2.0, ry = (std::abs(r.Bottom() - r.Top()) + 1) / 2.0;
        FPolygon e;
        for (int k = 0; k < 512; ++k) {
            const double a = 2 * M_PI * k / 512;
            e.Add(FPoint(l + rx + rx * std::cos(a), t + ry + ry * std::sin(a)));
        }
        pair.hq.DrawPolygonHQ(e);
        ASSERT_TRUE(pair.SameCoverage(std::string(r.GetStr())));
    }
}

TEST(Differential, HelperNoticesAMismatch)
{
    Pair pair;
    pair.plain.DrawRect(CRectangle(10, 10, 20, 20));
    pair.hq.FillTransparentPolygon(CPolygon{{10, 10}, {22, 10}, {22, 21}, {10, 21}}, TransparentColor(TamColor(0u), 100));
    EXPECT_FALSE(pair.SameCoverage("one column too wide"));

    VirtualDevice a(TamSize(4, 4)), b(TamSize(4, 4));
    b.DrawPixel(TamPoint(1, 1), TamColor(0x000010u));
    const test::ImageDiff d = test::CompareImages(a.GethDC()->surface, b.GethDC()->surface, 0);
    EXPECT_EQ(d.differing, 1);
    EXPECT_EQ(d.maxChannel, 255);
    EXPECT_EQ(test::CompareImages(a.GethDC()->surface, b.GethDC()->surface, 255).differing, 0);
}

} // namespace
} // namespace vesk
