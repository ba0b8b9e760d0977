// The image operations, each against values worked out from its formula, and the sharing of
// the record between copies.
#include <vesk/frame/VeskData.hpp>
#include <vesk/graphics/Bitmap.hpp>
#include <vesk/graphics/VirtualDevice.hpp>

#include "graphics/BitmapTestImages.hpp"
#include "support/EnvGuard.hpp"

#include <gtest/gtest.h>

#include <thread>

namespace vesk {
namespace {

using test::Argb;
using test::PixelAt;

TEST(BitmapSharing, CopiesShareOneRecordUntilTheLastRelease)
{
    Bitmap a = test::NoisyBitmap(3, 3);
    Bitmap b(a);
    Bitmap c;
    c = b;
    EXPECT_TRUE(a == c);
    EXPECT_FALSE(a != b);
    EXPECT_FALSE(a == Bitmap());
    a.MakeTransparent(0); // changes the shared picture for every copy
    EXPECT_EQ(PixelAt(c, 1, 1) >> 24, 0u);
    a.Delete();
    EXPECT_TRUE(a.Empty());
    EXPECT_FALSE(b.Empty());
    b = b; // self-assignment keeps the record
    c.Delete();
    EXPECT_EQ(b.GetSize(), TamSize(3, 3));
    EXPECT_TRUE(Bitmap() == Bitmap());
}

// Run under TSan: copies and releases from several threads at once never free a record
// twice or early (ASan would see the use after free).
TEST(BitmapSharing, CopiesAndReleasesFromSeveralThreads)
{
    Bitmap shared = test::NoisyBitmap(8, 8);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&shared] {
            for (int i = 0; i < 20000; ++i) {
                Bitmap copy(shared);
                Bitmap other;
                other = copy;
                copy.Delete();
                if (other.GetSize() != TamSize(8, 8))
                    ADD_FAILURE();
            }
        });
    for (std::thread& t : threads)
        t.join();
    EXPECT_EQ(shared.GetSize(), TamSize(8, 8));
}

TEST(BitmapViews, OpaqueViewIsThePictureOverTheBackground)
{
    Bitmap b = test::MakeBitmap(2, 1, [](int32_t x, int32_t) {
        return x == 0 ? Argb(0, 9, 9, 9) : Argb(128, 200, 100, 0);
    });
    const BitmapPixels magenta = b.GetHBitmap();
    ASSERT_EQ(magenta.width, 2);
    EXPECT_EQ(magenta.pixels[0], 0xFFFF00FFu);
    // 200 * 128 / 255 = 100 (premultiplied) + 255 * 127 / 255 = 127.
    EXPECT_EQ(magenta.pixels[1], Argb(255, 100 + 127, 50 + 0, 0 + 127));
    // The view is kept until dropped; then a new background counts.
    EXPECT_EQ(b.GetHBitmap(TamColor(0u)).pixels[0], 0xFFFF00FFu);
    b.DeleteHBitmap();
    EXPECT_EQ(b.GetPTempCBitmap(TamColor(0x00FF00u)).pixels[0], 0xFF00FF00u);
    // A view set from outside replaces the opaque view only; the picture stays.
    const std::vector<uint32_t> picture = test::PixelsOf(b);
    const uint32_t other[2] = {0x123456u, 0x654321u};
    b.SetHBitmap(BitmapPixels{2, 1, 0, other, true});
    EXPECT_EQ(b.GetHBitmap().pixels[1], 0xFF654321u);
    EXPECT_EQ(test::PixelsOf(b), picture);
    Bitmap viewOnly;
    viewOnly.SetHBitmap(BitmapPixels{2, 1, 0, other, true});
    EXPECT_FALSE(viewOnly.IsGdiplusBitmap());
    EXPECT_EQ(viewOnly.GetSize(), TamSize(2, 1));
    viewOnly.SetHBitmap(BitmapPixels{2, 1, 0, nullptr, true}); // ignored
    EXPECT_EQ(viewOnly.GetHBitmap().pixels[0], 0xFF123456u);

    Bitmap dib;
    ASSERT_TRUE(dib.CreateDIB(TamSize(4, 2)));
    EXPECT_FALSE(dib.IsGdiplusBitmap());
    EXPECT_EQ(dib.GetSize(), TamSize(4, 2));
    EXPECT_EQ(dib.GetPGdiplusBitmap().pixels, nullptr);
    ASSERT_TRUE(dib.CreatePGdiplusBitmap());
    EXPECT_EQ(PixelAt(dib, 3, 1), 0xFF000000u);
    EXPECT_FALSE(dib.CreateDIB(TamSize(0, 2)));
    EXPECT_TRUE(dib.Empty());
    EXPECT_FALSE(Bitmap().CreatePGdiplusBitmap());
    EXPECT_EQ(Bitmap().GetHBitmap().pixels, nullptr);
}

TEST(BitmapViews, ConstructorsFromPixelsIconsAndDevices)
{
    const uint32_t color[4] = {0xFF010203u, 0xFF040506u, 0xFF070809u, 0xFF0A0B0Cu};
    const uint32_t mask[4] = {0, 0xFFFFFFFFu, 0, 0xFF000000u}; // white = transparent
    Bitmap icon(BitmapPixels{2, 2, 0, color, false}, BitmapPixels{2, 2, 0, mask, false});
    EXPECT_EQ(test::PixelsOf(icon), (std::vector<uint32_t>{0xFF010203u, 0, 0xFF070809u, 0xFF0A0B0Cu}));

    // A stride wider than the picture skips the rest of each row.
    const uint32_t wide[6] = {1, 2, 99, 3, 4, 99};
    Bitmap opaque(BitmapPixels{2, 2, 3, wide, true});
    EXPECT_EQ(opaque.GetHBitmap().pixels[3], 0xFF000004u);
    EXPECT_TRUE(Bitmap(BitmapPixels{2, 2, 1, wide, true}).Empty());
    EXPECT_TRUE(Bitmap(TamSize(2, 2), std::vector<uint32_t>(3)).Empty());

    VirtualDevice device(TamSize(3, 2));
    device.DrawPixel(TamPoint(2, 1), TamColor(0x0000FFu));
    Bitmap fromDevice(device);
    EXPECT_EQ(fromDevice.GetSize(), TamSize(3, 2));
    EXPECT_EQ(PixelAt(fromDevice, 2, 1), 0xFFFF0000u);
}

// Opaque pixels keep the arithmetic free of premultiplication rounding.
Bitmap Wide3x2()
{
    return test::MakeBitmap(3, 2, [](int32_t x, int32_t y) {
        return Argb(255, uint32_t(10 + 100 * x), uint32_t(200 - 50 * y), uint32_t(31 * (x + y)));
    });
}

TEST(BitmapColorMatrix, DarkenedScalesColoursInTheExchangedRectangle)
{
    const Bitmap source = Wide3x2();
    const Bitmap dark = source.GetDarkened(0.5f);
    ASSERT_EQ(dark.GetSize(), TamSize(3, 2));
    // (110, 200, 31) * 0.5, truncated.
    EXPECT_EQ(PixelAt(dark, 1, 0), Argb(255, 55, 100, 15));
    EXPECT_EQ(PixelAt(dark, 1, 1), Argb(255, 55, 75, 31));
    // Only the 2 x 2 square shared by (0, 0, 3, 2) and (0, 0, 2, 3) is drawn.
    EXPECT_EQ(PixelAt(dark, 2, 0), 0u);
    EXPECT_EQ(PixelAt(dark, 2, 1), 0u);
    // Brightening saturates; alpha stays.
    EXPECT_EQ(PixelAt(source.GetDarkened(3.0f), 1, 1), Argb(255, 255, 255, 186));
    const Bitmap half = test::MakeBitmap(1, 1, [](int32_t, int32_t) { return Argb(128, 255, 0, 0); });
    EXPECT_EQ(PixelAt(half.GetDarkened(1.0f), 0, 0), Argb(128, 255, 0, 0));
    EXPECT_TRUE(Bitmap().GetDarkened(1.0f).Empty());
}

TEST(BitmapColorMatrix, GreyscaleWeighsRedGreenBlue)
{
    const Bitmap grey = test::MakeBitmap(2, 3, [](int32_t x, int32_t y) {
        return x == 0 ? Argb(255, 100, 200, 50) : Argb(255, 255, 255, uint32_t(255 * (y == 0)));
    }).GetGreyscaleBmp();
    // 0.3 * 100 + 0.6 * 200 + 0.1 * 50 = 155.
    EXPECT_EQ(PixelAt(grey, 0, 0), Argb(255, 155, 155, 155));
    EXPECT_EQ(PixelAt(grey, 1, 0), Argb(255, 255, 255, 255));
    // 0.3 * 255 + 0.6 * 255 = 229.5, truncated.
    EXPECT_EQ(PixelAt(grey, 1, 1), Argb(255, 229, 229, 229));
    EXPECT_EQ(PixelAt(grey, 0, 2), 0u); // row 2 lies outside the 2 x 2 square
}

TEST(BitmapKeying, ColourDistanceIsTakenModulo256)
{
    const TamColor key(0x204060u); // red 0x60, green 0x40, blue 0x20
    auto keyed = [&key](uint32_t pixel, int tolerance) {
        Bitmap b = test::MakeBitmap(1, 1, [pixel](int32_t, int32_t) { return pixel; });
        b.MakeColorTransparent(key, 12345, tolerance);
        return PixelAt(b, 0, 0);
    };
    EXPECT_EQ(keyed(Argb(255, 0x60, 0x40, 0x20), 0), 0u);
    EXPECT_NE(keyed(Argb(255, 0x61, 0x40, 0x20), 0), 0u);
    // (3, 4, 0) away: length 5.
    EXPECT_EQ(keyed(Argb(255, 0x63, 0x44, 0x20), 5), 0u);
    EXPECT_NE(keyed(Argb(255, 0x63, 0x44, 0x20), 4), 0u);
    // One below the key is 255 away, one above is 1 away.
    EXPECT_NE(keyed(Argb(255, 0x5F, 0x40, 0x20), 254), 0u);
    EXPECT_EQ(keyed(Argb(255, 0x5F, 0x40, 0x20), 255), 0u);
    EXPECT_EQ(keyed(Argb(255, 0x61, 0x40, 0x20), 1), 0u);
    EXPECT_NE(keyed(Argb(255, 0x60, 0x40, 0x20), -1), 0u);

    // Works from the opaque view too, and the old view is not handed out again.
    const uint32_t pixels[2] = {0x204060u, 0x204061u};
    Bitmap opaque(BitmapPixels{2, 1, 0, pixels, true});
    opaque.MakeColorTransparent(TamColor(0x604020u), 0, 0);
    EXPECT_EQ(test::PixelsOf(opaque), (std::vector<uint32_t>{0, 0xFF204061u}));
    EXPECT_EQ(opaque.GetHBitmap().pixels[0], 0xFFFF00FFu);
}

TEST(BitmapKeying, OpacityAndKeyingThroughAnotherBitmap)
{
    Bitmap b = test::MakeBitmap(2, 1, [](int32_t x, int32_t) { return x == 0 ? Argb(255, 200, 100, 50) : Argb(0, 0, 0, 0); });
    b.MakeTransparent(50); // 50 * 255 / 100 = 127
    // Stored premultiplied: (200, 100, 50) * 127 / 255, rounded.
    EXPECT_EQ(b.GetPGdiplusBitmap().pixels[0], Argb(127, 100, 50, 25));
    EXPECT_EQ(PixelAt(b, 1, 0), Argb(127, 0, 0, 0));
    b.MakeTransparent(101); // 257, low 8 bits: 1
    EXPECT_EQ(b.GetPGdiplusBitmap().pixels[0] >> 24, 1u);
    // The product wraps at 32 bits and is divided signed: -17449672, low 8 bits 56.
    b.MakeTransparent(10000000);
    EXPECT_EQ(b.GetPGdiplusBitmap().pixels[0] >> 24, 56u);

    Bitmap picture = test::MakeBitmap(3, 2, [](int32_t x, int32_t y) { return Argb(255, uint32_t(x), uint32_t(y), 7); });
    // The mask is narrower: only its 2 x 2 part is looked at; red 0x11 in the low byte.
    Bitmap mask = test::MakeBitmap(2, 2, [](int32_t x, int32_t y) { return x == y ? Argb(255, 0x11, 0x22, 0x33) : Argb(255, 0, 0, 0); });
    picture.MakeTransparent(mask, 0x332211ul);
    EXPECT_EQ(PixelAt(picture, 0, 0), 0u);
    EXPECT_EQ(PixelAt(picture, 1, 1), 0u);
    EXPECT_EQ(PixelAt(picture, 1, 0), Argb(255, 1, 0, 7));
    EXPECT_EQ(PixelAt(picture, 2, 1), Argb(255, 2, 1, 7));

    const Bitmap clear = Bitmap::CreateTransparentBG(TamSize(5, 3));
    EXPECT_EQ(clear.GetSize(), TamSize(5, 3));
    EXPECT_EQ(test::PixelsOf(clear), std::vector<uint32_t>(15, 0));
    EXPECT_TRUE(Bitmap::CreateTransparentBG(TamSize(0, 3)).Empty());
    EXPECT_TRUE(Bitmap::CreateTransparentBG(TamSize(100000, 100000)).Empty());
}

// The library state at a resolution; VESK_DPI stands in for the display.
class DpiState
{
public:
    explicit DpiState(const char* dpi) : m_guard("VESK_DPI", dpi) { VeskInit(); }
    ~DpiState() { VeskExit(); }

private:
    test::EnvGuard m_guard;
};

TEST(BitmapScaling, ScaleHQFollowsTheScreenResolution)
{
    const Bitmap b = test::NoisyBitmap(16, 16);
    const Bitmap wide = test::NoisyBitmap(10, 3);
    const struct { const char* dpi; int32_t side; TamSize wide; } cases[] = {
        {"96", 16, {10, 3}},   // 100 %
        {"115", 16, {10, 3}},  // 119.8 % rounds to 120: not above 1.2
        {"120", 20, {13, 4}},  // 125 %: 12.5 + 0.5 and 3.75 + 0.5, floored
        {"144", 24, {15, 5}},  // 150 %
    };
    for (const auto& c : cases) {
        DpiState state(c.dpi);
        const Bitmap scaled = b.ScaleHQ();
        EXPECT_EQ(scaled.GetSize(), TamSize(c.side, c.side)) << c.dpi;
        EXPECT_EQ(scaled == b, c.side == 16) << c.dpi; // unscaled: the same record
        EXPECT_EQ(wide.ScaleHQ().GetSize(), c.wide) << c.dpi;
        EXPECT_EQ(wide.Scale().GetSize(), c.wide) << c.dpi;
    }
    EXPECT_EQ(b.ScaleHQ(), b); // no library state
}

TEST(BitmapScaling, StretchKeepsFlatColourAndAverages)
{
    const Bitmap flat = test::MakeBitmap(4, 4, [](int32_t, int32_t) { return Argb(255, 10, 20, 30); });
    for (FSize size : {FSize(2, 2), FSize(9.9, 7)}) {
        const Bitmap s = flat.StretchHQ(size);
        ASSERT_EQ(s.GetSize(), TamSize(int32_t(size.width), int32_t(size.height)));
        for (int32_t y = 0; y < s.GetSize().Height(); ++y)
            for (int32_t x = 0; x < s.GetSize().Width(); ++x)
                ASSERT_EQ(PixelAt(s, x, y), Argb(255, 10, 20, 30)) << x << "," << y;
    }
    // Halving stripes of 0 and 200 gives about 100 everywhere.
    const Bitmap stripes = test::MakeBitmap(8, 8, [](int32_t x, int32_t) { return Argb(255, x % 2 ? 200u : 0u, 0, 0); });
    const uint32_t red = (PixelAt(stripes.StretchHQ(FSize(4, 8)), 1, 3) >> 16) & 0xFF;
    EXPECT_NEAR(double(red), 100.0, 20.0);
    EXPECT_TRUE(flat.StretchHQ(FSize(0.5, 3)).Empty());
    EXPECT_TRUE(flat.StretchHQ(FSize(40000, 3)).Empty());
    EXPECT_TRUE(Bitmap().StretchHQ(FSize(3, 3)).Empty());

    VirtualDevice device(TamSize(1, 1));
    const uint32_t pixels[2] = {0xFF00FFu, 0x123456u};
    const Bitmap opaque(BitmapPixels{2, 1, 0, pixels, true});
    const Bitmap nearest = opaque.Stretch(&device, TamSize(4, 2), false, true);
    EXPECT_EQ(test::PixelsOf(nearest), (std::vector<uint32_t>{0, 0, 0xFF123456u, 0xFF123456u, 0, 0, 0xFF123456u, 0xFF123456u}));
    EXPECT_TRUE(opaque.Stretch(nullptr, TamSize(4, 2), false, false).Empty());
}

TEST(BitmapScaling, CutOutAndComposition)
{
    const Bitmap b = test::MakeBitmap(6, 4, [](int32_t x, int32_t y) { return Argb(255, uint32_t(x * 40), uint32_t(y * 60), 0); });
    FSize size(3, 10);
    const Bitmap part = b.GetBitmapHQ(FPoint(2, 1), size);
    EXPECT_EQ(size, FSize(3, 3)); // cut to the picture
    ASSERT_EQ(part.GetSize(), TamSize(3, 3));
    EXPECT_EQ(PixelAt(part, 0, 0), PixelAt(b, 2, 1));
    EXPECT_EQ(PixelAt(part, 2, 2), PixelAt(b, 4, 3));
    FSize outside(2, 2);
    EXPECT_TRUE(b.GetBitmapHQ(FPoint(6, 0), outside).Empty());
    FSize tooMany(30000, 30000); // each side fits, the pixel count does not
    EXPECT_TRUE(b.GetBitmapHQ(FPoint(-29990, -29990), tooMany).Empty());

    const Bitmap blue = test::MakeBitmap(1, 1, [](int32_t, int32_t) { return Argb(255, 0, 0, 255); });
    FSize where(2, 2);
    const Bitmap drawn = b.DrawBitmapHQ(FPoint(1, 1), where, blue);
    EXPECT_EQ(PixelAt(drawn, 1, 1), Argb(255, 0, 0, 255));
    EXPECT_EQ(PixelAt(drawn, 2, 2), Argb(255, 0, 0, 255));
    EXPECT_EQ(PixelAt(drawn, 3, 2), PixelAt(b, 3, 2));
    EXPECT_EQ(PixelAt(drawn, 0, 0), PixelAt(b, 0, 0));
    EXPECT_NE(drawn, b);
    EXPECT_EQ(PixelAt(b, 1, 1), Argb(255, 40, 60, 0)); // the original is untouched
}

} // namespace
} // namespace vesk
