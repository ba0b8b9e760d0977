// Bitmaps on devices: drawing with alpha, keying, scaling, copying back, the HQ pair, and
// bitmap brushes and textures.
#include "graphics/GoldenImage.hpp"

#include <vesk/graphics.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace vesk {
namespace {

constexpr uint32_t kRed = 0xFFFF0000, kBlue = 0xFF0000FF, kWhite = 0xFFFFFFFF, kMagenta = 0xFFFF00FF;

Bitmap Picture(int32_t w, int32_t h, std::vector<uint32_t> premultiplied)
{
    return Bitmap(TamSize(w, h), std::move(premultiplied));
}

using test::Canvas;

TEST(DeviceBitmap, DrawsOverWhatIsThereKeysAndScales)
{
    Canvas d(6, 6);
    // Opaque red, and blue at half alpha (premultiplied).
    d.DrawBitmap(TamPoint(1, 1), Picture(2, 1, {kRed, 0x80000080}));
    EXPECT_EQ(d.At(1, 1), kRed);
    EXPECT_EQ(d.At(2, 1), 0xFF7F7FFFu); // blue over white: 0x80 + 255 * 127 / 255
    EXPECT_EQ(d.At(3, 1), kWhite);
    EXPECT_EQ(d.At(0, 0), kWhite);

    d.DrawBitmapTransparent(TamPoint(0, 3), Picture(3, 1, {kMagenta, kBlue, kMagenta}));
    EXPECT_EQ(d.At(0, 3), kWhite);
    EXPECT_EQ(d.At(1, 3), kBlue);
    EXPECT_EQ(d.At(2, 3), kWhite);
    d.DrawBitmapTransparent(TamPoint(0, 3), Picture(1, 1, {kMagenta}), TamColor(0x0000FFu));
    EXPECT_EQ(d.At(0, 3), kMagenta); // another key colour keeps magenta
    d.DrawBitmapTransparent(TamPoint(0, 4), Picture(2, 1, {kBlue, kRed}), TamColor(0xFF0000u)); // key blue
    EXPECT_EQ(d.At(0, 4), kWhite);
    EXPECT_EQ(d.At(1, 4), kRed);

    Canvas s(5, 5);
    s.DrawBitmapScaled(CRectangle(1, 1, 4, 4), Picture(2, 2, {kRed, kBlue, kBlue, kRed}));
    const char* expected[] = {"WWWWW", "WRRBB", "WRRBB", "WBBRR", "WBBRR"};
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 5; ++x) {
            const char c = expected[y][x];
            EXPECT_EQ(s.At(x, y), c == 'W' ? kWhite : c == 'R' ? kRed : kBlue) << x << "," << y;
        }

    Bitmap empty;
    s.DrawBitmap(TamPoint(0, 0), empty); // nothing to draw
    s.DrawBitmapScaled(CRectangle(0, 0, 4, 4), empty);
    EXPECT_EQ(s.At(0, 0), kWhite);
}

TEST(DeviceBitmap, CopiesComeBackPixelForPixel)
{
    Canvas a(8, 8);
    a.Erase(CRectangle(2, 2, 5, 4), TamColor(0x336699u));
    a.DrawPixel(TamPoint(3, 3), TamColor(0x0000FFu));
    const Bitmap copy = a.GetBitmap(CRectangle(1, 1, 6, 6));
    EXPECT_EQ(copy.GetSize(), TamSize(6, 6));
    Canvas b(8, 8);
    b.DrawBitmap(TamPoint(1, 1), copy);
    for (int y = 1; y < 7; ++y)
        for (int x = 1; x < 7; ++x)
            EXPECT_EQ(b.At(x, y), a.At(x, y)) << x << "," << y;
    // Beyond the picture the copy is transparent, so drawing it changes nothing there.
    const Bitmap edge = a.GetBitmap(CRectangle(6, 6, 9, 9));
    EXPECT_EQ(edge.GetSize(), TamSize(4, 4));
    Canvas c(4, 4);
    c.Erase(CRectangle(0, 0, 3, 3), TamColor(0x00FF00u));
    c.DrawBitmap(TamPoint(0, 0), edge);
    EXPECT_EQ(c.At(0, 0), kWhite);
    EXPECT_EQ(c.At(3, 3), 0xFF00FF00u);

    OutputDevice none;
    EXPECT_TRUE(none.GetBitmap(CRectangle(0, 0, 3, 3)).Empty());
    EXPECT_TRUE(none.GetBitmapHQ(FPoint(0, 0), FSize(3, 3)).Empty());
    EXPECT_FALSE(none.DrawBitmapHQ(FPoint(0, 0), FSize(3, 3), copy));
}

TEST(DeviceBitmap, HQStretchesSmoothlyWithSoftEdges)
{
    Canvas d(6, 6);
    ASSERT_TRUE(d.DrawBitmapHQ(FPoint(0.5, 0.5), FSize(4, 4), Picture(1, 1, {kRed})));
    EXPECT_EQ(d.At(2, 2), kRed);
    const uint32_t corner = d.At(0, 0); // a quarter covered: between white and red
    EXPECT_EQ(corner >> 16 & 0xFF, 0xFFu);
    EXPECT_GT(corner & 0xFF, 0x80u);
    EXPECT_LT(corner & 0xFF, 0xFFu);
    EXPECT_EQ(d.At(5, 5), kWhite);
    EXPECT_FALSE(d.DrawBitmapHQ(FPoint(NAN, 0), FSize(4, 4), Picture(1, 1, {kRed})));

    Canvas u(6, 6);
    u.Erase(CRectangle(0, 0, 5, 5), TamColor(0x204060u));
    // Near the edge: the filter reaches beyond the picture, where the edge pixels repeat.
    const Bitmap part = u.GetBitmapHQ(FPoint(0.5, 4.25), FSize(3.9, 2));
    ASSERT_EQ(part.GetSize(), TamSize(3, 2));
    Canvas v(3, 2);
    v.DrawBitmap(TamPoint(0, 0), part);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 3; ++x)
            EXPECT_EQ(v.At(x, y), 0xFF604020u);
    EXPECT_TRUE(u.GetBitmapHQ(FPoint(0, 0), FSize(0.5, 3)).Empty());
}

TEST(DeviceBitmap, BrushesAndTexturesTileFromTheDeviceOrigin)
{
    const Bitmap checker = Picture(2, 2, {kRed, kBlue, kBlue, kRed});
    const Brush brush(checker);
    EXPECT_EQ(brush.GetKind(), BrushKind::Bitmap);
    EXPECT_EQ(brush.GetColor(), TamColor(0x7F007Fu)); // the mean of two reds and two blues, truncated
    EXPECT_EQ(Brush(Picture(1, 1, {0x80000000})).GetColor(), TamColor(0x7F7F7Fu)); // half black over white

    Canvas d(6, 6);
    d.FillRgn(Region(CRectangle(1, 1, 4, 4)), brush);
    for (int y = 1; y <= 4; ++y)
        for (int x = 1; x <= 4; ++x)
            EXPECT_EQ(d.At(x, y), (x + y) % 2 ? kBlue : kRed) << x << "," << y;
    EXPECT_EQ(d.At(0, 0), kWhite);

    Canvas e(4, 4);
    e.ChangeBackgroundBitmap(checker);
    EXPECT_EQ(e.GetBackgroundTexture().GetKind(), Texture::Kind::Bitmap);
    e.Erase(CRectangle(1, 0, 2, 1));
    EXPECT_EQ(e.At(1, 0), kBlue);
    EXPECT_EQ(e.At(2, 0), kRed);
    EXPECT_EQ(e.At(3, 0), kWhite);

    Canvas f(2, 2);
    f.FillRgn(Region(CRectangle(0, 0, 1, 1)), Brush(Bitmap())); // fills nothing
    EXPECT_EQ(f.At(0, 0), kWhite);
}

} // namespace
} // namespace vesk
