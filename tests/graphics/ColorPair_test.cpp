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
    EXPECT_EQ(pair[-2], kBlack);
    pair[-1] = kWhite;
    EXPECT_EQ(pair[3], kWhite);
    const ColorPair& view = pair;
    EXPECT_EQ(view[2], kBlack);
    EXPECT_EQ(view[-3], kWhite);
}

TEST(ColorPair, PercentSignChoosesRaisedOrSunken)
{
    TamColor light = kBase;
    light.Lighten(50, 1);
    TamColor dark = kBase;
    dark.Darken(50);
    EXPECT_EQ(ColorPair(kBase, 50), ColorPair(light, dark));
    EXPECT_EQ(ColorPair(kBase, -50), ColorPair(dark, light));
    EXPECT_EQ(ColorPair(kBase, 0), ColorPair(kBase, kBase));
    EXPECT_EQ(ColorPair(kBase, 250), ColorPair(kWhite, kBlack));
    EXPECT_EQ(ColorPair(kBase, INT_MIN), ColorPair(kBlack, kWhite));
}

TEST(RGBAlpha, BytesMixAndPremultiply)
{
    EXPECT_EQ(static_cast<uint32_t>(RGBAlpha(1, 2, 3, 4)), 0x04030201u);
    EXPECT_EQ(RGBAlpha(0xAA332211u, 0x80), RGBAlpha(0x11, 0x22, 0x33, 0x80));

    TamColor background(uint32_t(0 | 100 << 8 | 255 << 16));
    RGBAlpha clear(200, 200, 200, 0);
    clear.MixTransparent(background);
    EXPECT_EQ(clear, RGBAlpha(0, 100, 255, 0));
    RGBAlpha part(200, 0, 0, 51); // a = 0.2
    part.MixTransparent(background);
    EXPECT_EQ(part, RGBAlpha(40, 80, 204, 51));

    RGBAlpha p(253, 100, 50, 128);
    p.PreMultiplyAlpha();
    EXPECT_EQ(p, RGBAlpha(126, 50, 25, 128)); // 126.996 truncated
    RGBAlpha opaque(255, 254, 1, 255); // full alpha keeps every channel
    opaque.PreMultiplyAlpha();
    EXPECT_EQ(opaque, RGBAlpha(255, 254, 1, 255));
}

} // namespace
} // namespace vesk
