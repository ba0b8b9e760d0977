// The quantiser's two halves: palettes that fit the picture, and diffusion that keeps the
// average colour of areas the palette cannot show. Rich pictures filling a 240-colour palette
// are checked through giflib in AnimatedGifEncode_test.
#include "graphics/codecs/Quantize_p.hpp"

#include <gtest/gtest.h>

#include <algorithm>

using namespace vesk::codecs;

TEST(Quantize, PaletteFindsClustersAndTheirMeans)
{
    // Three tight clusters, one with a known mean, and a keyed-out colour that must not count.
    std::vector<uint32_t> pixels;
    for (int i = 0; i < 300; ++i) {
        pixels.push_back(0xFF000000u | uint32_t(i % 3 ? 201 : 200) << 16 | 10u << 8 | 10u); // red 200.67
        pixels.push_back(0xFF102030u + uint32_t(i % 2));
        pixels.push_back(0xFF00FF00u);
        pixels.push_back(0x10FFFFFFu);
    }
    const std::vector<Rgb> three = BuildPalette(pixels, 3, true);
    ASSERT_EQ(three.size(), 3u);
    EXPECT_NE(std::find(three.begin(), three.end(), Rgb{201, 10, 10}), three.end());
    EXPECT_NE(std::find(three.begin(), three.end(), Rgb{0, 255, 0}), three.end());
    EXPECT_EQ(std::count(three.begin(), three.end(), Rgb{255, 255, 255}), 0);

    // Without the key the white counts; with room for more the palette still holds only
    // colours that occur.
    const std::vector<Rgb> all = BuildPalette(pixels, 16, false);
    EXPECT_NE(std::find(all.begin(), all.end(), Rgb{255, 255, 255}), all.end());
    EXPECT_LE(all.size(), 6u);
}

TEST(Quantize, DiffusionSpreadsErrorsAsWorkedOutByHand)
{
    // Grey 100 onto black and white, 4x2. Row 0 left to right: 100 -> black (error 100, 7/16
    // ahead: 144 -> white, error -111; 100 - 49 = 51 -> black; 100 + 22 -> black). Row 1 right
    // to left with the shares from above (in sixteenths 167, -302, 510, 661): 141 -> white,
    // 82 -> black, 117 -> black, 162 -> white.
    const std::vector<uint32_t> pixels(8, 0xFF646464u);
    std::vector<uint8_t> indices(8);
    DiffuseOntoPalette(pixels, 4, {{0, 0, 0}, {255, 255, 255}}, false, indices.data());
    EXPECT_EQ(indices, (std::vector<uint8_t>{0, 1, 0, 0, 1, 0, 0, 1}));
}

TEST(Quantize, DiffusionKeepsTheAverageOfFlatAreas)
{
    // Flat grey 96 over black and white: a nearest-colour map would make it all black;
    // diffusion mixes in about 96/255 white, spread out rather than in one band.
    const std::vector<uint32_t> pixels(64 * 64, 0xFF606060u);
    std::vector<uint8_t> indices(pixels.size());
    DiffuseOntoPalette(pixels, 64, {{0, 0, 0}, {255, 255, 255}}, false, indices.data());
    const auto white = std::count(indices.begin(), indices.end(), 1);
    EXPECT_NEAR(double(white) / double(indices.size()), 96.0 / 255.0, 0.01);
    for (int y = 0; y < 64; y += 8) {
        const auto band = std::count(indices.begin() + y * 64, indices.begin() + y * 64 + 8 * 64, 1);
        EXPECT_NEAR(double(band), 8 * 64 * 96.0 / 255.0, 12.0) << "rows from " << y;
    }
}

TEST(Quantize, TransparentPixelsGetTheIndexPastThePalette)
{
    std::vector<uint32_t> pixels = {0xFFFF0000u, 0x7F00FF00u, 0x800000FFu, 0x00000000u};
    const QuantizedImage keyed = Quantize(pixels, 2, 255, true);
    ASSERT_EQ(keyed.palette.size(), 2u);
    EXPECT_EQ(keyed.transparentIndex, 2);
    EXPECT_EQ(keyed.indices, (std::vector<uint8_t>{keyed.indices[0], 2, keyed.indices[2], 2}));
    EXPECT_EQ(keyed.palette[keyed.indices[2]], (Rgb{0, 0, 255}));

    pixels = {0xFFFF0000u};
    EXPECT_EQ(Quantize(pixels, 1, 255, true).transparentIndex, -1);
}
