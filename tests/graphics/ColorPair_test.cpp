#include <vesk/graphics.hpp>

#include <gtest/gtest.h>

#include <climits>

namespace vesk {
namespace {

const TamColor kBase(uint32_t(100 | 0 << 8 | 200 << 16));
const TamColor kBlack(0u);
const TamColor kWhite;

TEST(ColorPair, IndexUsesTheLowBit)
{
    ColorPair pair(kBlack, kBase);
    EXPECT_EQ(pair[0], kBlack);
    EXPECT_EQ(pair[1], kBase);
    EXPECT_EQ(pair[3], kBase);
    EXPECT_EQ(pair[-2], kBlack);
    EXPECT_EQ(pair[-1], kBase);
    pair[5] = kWhite;
    EXPECT_EQ(pair[1], kWhite);
    EXPECT_EQ(ColorPair()[0], kWhite);
    EXPECT_EQ(ColorPair()[1], kWhite);
}

TEST(ColorPair, PercentSignChoosesRaisedOrSunken)
{
    ColorPair flat(kBase, 0);
    EXPECT_EQ(flat[0], kBase);
    EXPECT_EQ(flat[1], kBase);

    TamColor light = kBase;
    light.Lighten(50, 1);
    TamColor dark = kBase;
    dark.Darken(50);
    ColorPair raised(kBase, 50);
    EXPECT_EQ(raised[0], light);
    EXPECT_EQ(raised[1], dark);
    ColorPair sunken(kBase, -50);
    EXPECT_EQ(sunken[0], dark);
    EXPECT_EQ(sunken[1], light);

    ColorPair extreme(kBase, INT_MIN);
    EXPECT_EQ(extreme[0], kBlack);
    EXPECT_EQ(extreme[1], kWhite);
    ColorPair full(kBase, 250);
    EXPECT_EQ(full[0], kWhite);
    EXPECT_EQ(full[1], kBlack);
}

TEST(RGBAlpha, ByteLayout)
{
    RGBAlpha c(1, 2, 3, 4);
    EXPECT_EQ(static_cast<uint32_t>(c), 0x04030201u);
    EXPECT_EQ(RGBAlpha(0xAA332211u, 0x80), RGBAlpha(0x11, 0x22, 0x33, 0x80));
    EXPECT_EQ(RGBAlpha(0x44332211u).GetAlpha(), 0x44);
    EXPECT_EQ(static_cast<uint32_t>(RGBAlpha()), 0u);
    c.SetGreen(0xEE);
    c.SetAlpha(0xFF);
    EXPECT_EQ(static_cast<uint32_t>(c), 0xFF03EE01u);
    EXPECT_EQ(c.GetRed(), 1);
    EXPECT_EQ(c.GetBlue(), 3);
}

TEST(RGBAlpha, MixAndPremultiplyKeepAlpha)
{
    TamColor background(uint32_t(0 | 100 << 8 | 255 << 16));
    RGBAlpha clear(200, 200, 200, 0);
    clear.MixTransparent(background);
    EXPECT_EQ(clear, RGBAlpha(0, 100, 255, 0));
    RGBAlpha opaque(200, 200, 200, 255);
    opaque.MixTransparent(background);
    EXPECT_EQ(opaque, RGBAlpha(200, 200, 200, 255));
    RGBAlpha half(200, 0, 0, 51); // a = 0.2
    half.MixTransparent(background);
    EXPECT_EQ(half, RGBAlpha(40, 80, 204, 51));

    RGBAlpha p(200, 100, 50, 128);
    p.PreMultiplyAlpha();
    EXPECT_EQ(p, RGBAlpha(100, 50, 25, 128));
}

} // namespace
} // namespace vesk
