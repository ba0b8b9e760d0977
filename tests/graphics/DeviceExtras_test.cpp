// Arrows, grey edges, stretched wide text, font enumeration and metrics.
#include "graphics/GoldenImage.hpp"

#include <vesk/graphics.hpp>

#include <gtest/gtest.h>

#include <string>

namespace vesk {
namespace {

using test::Canvas;

// The device's picture as rows of '#' (pixel differs from white) and '.'.
std::string Picture(Canvas& d, int w, int h)
{
    std::string s;
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x)
            s += d.At(x, y) == 0xFFFFFFFFu ? '.' : '#';
        s += '\n';
    }
    return s;
}

std::string ArrowPicture(int w, int h, ArrowDirection direction)
{
    Canvas d(w, h);
    d.DrawArrow(CRectangle(0, 0, w - 1, h - 1), direction, TamColor(0u));
    return Picture(d, w, h);
}

TEST(Arrow, LargestCentredTriangleWithARightAngleAtItsTip)
{
    EXPECT_EQ(ArrowPicture(7, 4, ARROW_DOWN), "#######\n"
                                              ".#####.\n"
                                              "..###..\n"
                                              "...#...\n");
    EXPECT_EQ(ArrowPicture(6, 5, ARROW_UP), "......\n"
                                            "..#...\n"
                                            ".###..\n"
                                            "#####.\n"
                                            "......\n");
    EXPECT_EQ(ArrowPicture(4, 5, ARROW_RIGHT), "#...\n"
                                               "##..\n"
                                               "###.\n"
                                               "##..\n"
                                               "#...\n");
    EXPECT_EQ(ArrowPicture(3, 4, ARROW_LEFT), ".#.\n"
                                              "##.\n"
                                              ".#.\n"
                                              "...\n");
    EXPECT_EQ(ArrowPicture(1, 1, ARROW_DOWN), "#\n");
}

TEST(Arrow, GradientFillsOnlyTheTriangleAcrossTheWholeRectangle)
{
    Canvas d(9, 5);
    RectGradient g{ColorPair(TamColor(0xFF0000u), TamColor(0x0000FFu))}; // blue down to red
    d.DrawArrowGradient(CRectangle(0, 0, 8, 4), ARROW_DOWN, g);
    EXPECT_EQ(Picture(d, 9, 5), "#########\n"
                                ".#######.\n"
                                "..#####..\n"
                                "...###...\n"
                                "....#....\n");
    // The gradient runs down the rectangle (top edge to bottom edge, tiled beyond): the base
    // row is near the start colour, the middle row further on, and each row is one colour.
    const uint32_t base = d.At(4, 0), middle = d.At(4, 2);
    EXPECT_GT(base & 0xFF, middle & 0xFF);            // more blue at the top
    EXPECT_LT(base >> 16 & 0xFF, middle >> 16 & 0xFF); // more red further down
    EXPECT_EQ(d.At(0, 0), base);
    EXPECT_EQ(d.At(3, 3), d.At(5, 3));
}

TEST(GrayEdge, TwoRingsOfGreysMirroredWhenRaised)
{
    auto ring = [](bool sunken) {
        Canvas d(6, 6);
        d.Erase(CRectangle(0, 0, 5, 5), TamColor(0x1E140Au));
        d.DrawGrayEdge(CRectangle(0, 0, 5, 5), sunken);
        return std::vector<uint32_t>{d.At(0, 0), d.At(5, 5), d.At(1, 1), d.At(4, 4), d.At(2, 2), d.At(5, 0), d.At(4, 1)};
    };
    // Corners where the two sides meet belong to the bottom and right edges.
    EXPECT_EQ(ring(true), (std::vector<uint32_t>{0xFF808080, 0xFFFFFFFF, 0xFF404040, 0xFFD4D0C8, 0xFF0A141E,
                                                 0xFFFFFFFF, 0xFFD4D0C8}));
    EXPECT_EQ(ring(false), (std::vector<uint32_t>{0xFFD4D0C8, 0xFF404040, 0xFFFFFFFF, 0xFF808080, 0xFF0A141E,
                                                  0xFF404040, 0xFF808080}));
    Canvas tiny(2, 2);
    tiny.DrawGrayEdge(CRectangle(0, 0, 1, 1));
    EXPECT_EQ(tiny.At(0, 0), 0xFF808080u);
    EXPECT_EQ(tiny.At(1, 1), 0xFFFFFFFFu);
    tiny.DrawGrayEdge(CRectangle(INT32_MIN, INT32_MIN, INT32_MAX - 1, INT32_MAX - 1)); // clamped, no overflow
}

TEST(StretchTextW, MatchesTheByteFormAndSpreadsToTheSpan)
{
    ASSERT_TRUE(test::PinFonts());
    Canvas a(160, 30), b(160, 30), c(160, 30), one(160, 30), p(160, 30), q(160, 30);
    for (Canvas* d : {&a, &b, &c, &one, &p, &q})
        d->ChangeFont(Font("DejaVu Sans", 16));
    a.DrawStretchText(TamPoint(2, 2), "Wide text", 150);
    b.DrawStretchTextW(TamPoint(2, 2), UString("Wide text"), 150);
    EXPECT_FALSE(test::CompareImages(a.Picture(), b.Picture(), 0).differing);
    // "AB" spread to 100 pixels: B starts at A's share of the span.
    c.DrawStretchTextW(TamPoint(0, 0), UString("AB"), 100);
    const int32_t wa = one.GetTextSizeW(UString("A")).Width(), wb = one.GetTextSizeW(UString("B")).Width();
    one.DrawTextW(TamPoint(0, 0), UString("A"));
    one.DrawTextW(TamPoint(int32_t(int64_t(wa) * 100 / (wa + wb)), 0), UString("B"));
    EXPECT_FALSE(test::CompareImages(c.Picture(), one.Picture(), 0).differing);
    // A surrogate pair is one character (two halves would show two replacement marks).
    const char16_t pairX[] = {0xD835, 0xDD38, u'x', 0}, pair[] = {0xD835, 0xDD38, 0};
    p.DrawStretchTextW(TamPoint(0, 0), UString(pairX));
    q.DrawTextW(TamPoint(0, 0), UString(pair));
    q.DrawTextW(TamPoint(q.GetTextSizeW(UString(pair)).Width(), 0), UString("x"));
    EXPECT_FALSE(test::CompareImages(p.Picture(), q.Picture(), 0).differing);
    // A lone surrogate still draws without harm.
    const char16_t lone[] = {0xD800, u'x', 0};
    p.DrawStretchTextW(TamPoint(0, 0), UString(lone), 50);
}

TEST(FontEnumeration, SortedFamiliesWithTheirHeights)
{
    ASSERT_TRUE(test::PinFonts());
    OutputDevice none;
    EXPECT_EQ(none.GetDevFontCount(), 0);
    VirtualDevice d(TamSize(4, 4));
    const int32_t n = d.GetDevFontCount();
    ASSERT_GT(n, 0);
    bool dejaVu = false;
    for (int32_t i = 0; i < n; ++i) {
        if (i > 0) {
            EXPECT_LT(std::string(d.GetDevFont(i - 1)), std::string(d.GetDevFont(i)));
        }
        dejaVu |= std::string(d.GetDevFont(i)) == "DejaVu Sans";
        if (std::string(d.GetDevFont(i)) == "DejaVu Sans") { // scalable: the usual ladder
            ASSERT_EQ(d.GetDevFontSizeCount(i), 16);
            EXPECT_EQ(d.GetDevFontSize(i, 0), 8);
            EXPECT_EQ(d.GetDevFontSize(i, 15), 72);
            EXPECT_EQ(d.GetDevFontSize(i, 16), 0);
            EXPECT_EQ(d.GetDevFontSize(i, -1), 0);
        }
    }
    EXPECT_TRUE(dejaVu);
    EXPECT_EQ(std::string(d.GetDevFont(n)), "");
    EXPECT_EQ(d.GetDevFontSizeCount(-1), 0);
}

TEST(FontMetrics, AgreeWithTheTextBoxAndGrowWithTheFont)
{
    ASSERT_TRUE(test::PinFonts());
    OutputDevice none;
    FontMetric m;
    GlyphMetric gm;
    EXPECT_FALSE(none.GetFontMetric(m));
    EXPECT_FALSE(none.GetGlyphMetric(u'x', gm));
    EXPECT_EQ(none.GetColorCount(), 0u);

    VirtualDevice d(TamSize(4, 4));
    EXPECT_EQ(d.GetColorCount(), 1u << 24);
    d.ChangeFont(Font("DejaVu Sans", 20));
    ASSERT_TRUE(d.GetFontMetric(m));
    EXPECT_EQ(m.height, d.GetTextSize("Xg").Height());
    EXPECT_EQ(m.ascent + m.descent, m.height);
    EXPECT_GT(m.descent, 0);
    EXPECT_EQ(m.internalLeading, m.height - 20);
    EXPECT_GT(m.aveCharWidth, 0);
    EXPECT_GE(m.maxCharWidth, d.GetTextSize("W").Width());

    ASSERT_TRUE(d.GetGlyphMetric(u'W', gm));
    EXPECT_EQ(gm.cellIncX, d.GetTextSize("W").Width());
    EXPECT_GT(gm.blackBoxX, 0);
    EXPECT_LE(gm.origin.y, m.ascent); // no taller than the line above the baseline
    GlyphMetric g;
    ASSERT_TRUE(d.GetGlyphMetric(u'g', g));
    EXPECT_GT(g.blackBoxY, g.origin.y); // the descender reaches below the baseline
    GlyphMetric space;
    ASSERT_TRUE(d.GetGlyphMetric(u' ', space));
    EXPECT_EQ(space.blackBoxX, 0);
    EXPECT_GT(space.cellIncX, 0);

    FontMetric big;
    d.ChangeFont(Font("DejaVu Sans", 40));
    ASSERT_TRUE(d.GetFontMetric(big));
    EXPECT_GT(big.height, m.height);
    EXPECT_GT(big.aveCharWidth, m.aveCharWidth);
}

} // namespace
} // namespace vesk
