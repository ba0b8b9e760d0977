#include <vesk/graphics.hpp>

#include <gtest/gtest.h>

namespace vesk {
namespace {

TamColor Rgb(uint32_t r, uint32_t g, uint32_t b)
{
    return TamColor(r | g << 8 | b << 16);
}

void ExpectRgb(const TamColor& c, int r, int g, int b)
{
    EXPECT_EQ(c.Get8BitRed(), r);
    EXPECT_EQ(c.Get8BitGreen(), g);
    EXPECT_EQ(c.Get8BitBlue(), b);
}

TEST(TamColor, ConversionsAndViews)
{
    ExpectRgb(TamColor(), 255, 255, 255);
    ExpectRgb(TamColor(int32_t(0xFF112233)), 0x33, 0x22, 0x11); // high byte ignored
    ExpectRgb(TamColor(0xAB00112233ul), 0x33, 0x22, 0x11);
    ExpectRgb(TamColor(0xFFFFu, 0x80FFu, 0x1FFFFu), 255, 128, 255); // wider values capped
    TamColor c = Rgb(1, 2, 255);
    EXPECT_EQ(c.GetRed(), 256);
    EXPECT_EQ(c.GetLong(), 0xFF0201u);
    EXPECT_EQ(c.GetLongReversed(), 0x0102FFu);
    c.SetBlue(0x12FF);
    EXPECT_EQ(c.Get8BitBlue(), 0x12);
    EXPECT_DOUBLE_EQ(Rgb(3, 4, 0).GetLen(), 5.0);
}

TEST(TamColor, LuminanceAndGrayKeepTheirArithmetic)
{
    // Green weighs 0.751, so white is slightly brighter than 1.
    EXPECT_DOUBLE_EQ(Rgb(255, 255, 255).GetLuminance(), (0.2126 + 0.751 + 0.0722) * 65280 / 65536);
    ExpectRgb(Rgb(255, 0, 0).GetGrayValue(), 76, 76, 76);
    // The weights do not sum to exactly 1 in floating point: mid grey loses one step.
    ExpectRgb(Rgb(128, 128, 128).GetGrayValue(), 127, 127, 127);
}

TEST(TamColor, GdiplusColorScalesOpacityInIntegers)
{
    TamColor red = Rgb(255, 0, 0);
    EXPECT_EQ(red.GetGdiplusColor(50), 0x7FFF0000u);
    EXPECT_EQ(red.GetGdiplusColor(-100), 0x01FF0000u);       // -255 keeps its low byte
    EXPECT_EQ(red.GetGdiplusColor(10000000), 0x38FF0000u);   // the product wraps at 32 bits
}

TEST(TamColor, BrightnessDarkenAndLighten)
{
    TamColor c = Rgb(200, 100, 3);
    ExpectRgb(c.ChangeBrightness(50), 100, 50, 1);
    ExpectRgb(c, 100, 50, 1);
    ExpectRgb(Rgb(200, 100, 0).ChangeBrightness(200), 255, 200, 0);
    ExpectRgb(Rgb(200, 100, 3).Darken(25), 150, 75, 2);
    ExpectRgb(Rgb(200, 100, 3).Darken(150), 0, 0, 0);

    ExpectRgb(Rgb(200, 100, 0).Lighten(50, 0), 255, 150, 0);
    ExpectRgb(Rgb(200, 100, 0).Lighten(-150, 0), 255, 255, 0); // below zero wraps to white
    ExpectRgb(Rgb(100, 0, 200).Lighten(50, 1), 177, 127, 227);
    ExpectRgb(Rgb(100, 0, 200).Lighten(500, 1), 255, 255, 255);
    ExpectRgb(Rgb(100, 0, 200).Lighten(50, 2), 100, 0, 200);
    // 100 * 2.55 is 254.99999 in floating point, so it stays below the cap.
    ExpectRgb(Rgb(100, 100, 100).Lighten(10, 155, 160), 110, 254, 255);
}

TEST(TamColor, FromHSL)
{
    ExpectRgb(TamColor::FromHSL(0, 0, 0.5), 127, 127, 127);
    ExpectRgb(TamColor::FromHSL(0, 1, 0.5), 255, 0, 0);
    ExpectRgb(TamColor::FromHSL(1.0 / 3.0, 1, 0.5), 0, 255, 0);
    ExpectRgb(TamColor::FromHSL(2.0 / 3.0, 1, 0.5), 0, 0, 255);
    ExpectRgb(TamColor::FromHSL(0.5, 0.5, 0.75), 159, 223, 223);
    ExpectRgb(TamColor::FromHSL(0.1, 0.4, 0.3), 107, 82, 45);
    ExpectRgb(TamColor::FromHSL(0, 0, 2.0), 254, 254, 254); // 510 keeps its low byte
}

TEST(TamColor, HtmlText)
{
    ExpectRgb(TamColor(SString("#12ab3G")), 18, 171, 64);
    ExpectRgb(TamColor(SString("x00FF80 and more")), 0, 255, 128); // the first character is not checked
    ExpectRgb(TamColor(SString("#GZ-+zz")), 16 * 16 + 35, 0, 0);   // no range check, junk reads 0
    ExpectRgb(TamColor(SString("#12345")), 255, 255, 255);
    ExpectRgb(TamColor(SString("")), 255, 255, 255);

    EXPECT_STREQ(Rgb(1, 2, 255).GetHTMLStr(), "#0102FF");
    for (const char* text : {"#000000", "#0A1B2C", "#F00F80"})
        EXPECT_STREQ(TamColor(SString(text)).GetHTMLStr(), text);
    EXPECT_STREQ(TamColor(SString("#GG0000")).GetHTMLStr(), "#1100000"); // 272 needs three digits
    EXPECT_STREQ(Rgb(7, 80, 255).GetTestStr(), "r=7 g=80 b=255");
    EXPECT_STREQ(RGBAlpha(7, 80, 255, 0).GetStr(), "r=7g=80b=255a=0");
}

} // namespace
} // namespace vesk
