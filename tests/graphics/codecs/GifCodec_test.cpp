// The GIF codec: one-frame round trips, first frames of hand-made files (interlaced, placed
// on a larger screen, with a transparent index), and damaged input.
#include "graphics/codecs/ImageCodec_p.hpp"

#include "graphics/gif_builder.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

using vesk::codecs::kGifCodec;
using vesk::codecs::PixelImage;
using gif_builder::Bytes;

namespace {

PixelImage Decode(const Bytes& file)
{
    PixelImage image;
    EXPECT_TRUE(kGifCodec.decode(file, image));
    return image;
}

uint32_t Grey(uint32_t v)
{
    return 0xFF000000u | v << 16 | v << 8 | v;
}

} // namespace

TEST(GifCodec, PicturesOfFewColoursRoundTripExactly)
{
    // 200 colours, each in a cube cell of its own, so the palette holds every one of them
    // and diffusion has no error to carry; half-transparent and clear pixels become clear.
    PixelImage image{20, 11, {}};
    for (uint32_t i = 0; i < 200; ++i)
        image.pixels.push_back(0xFF000000u | (i % 8 * 32 + 7) << 16 | (i / 8 % 5 * 48) << 8 | (i / 40 * 50 + 3));
    for (uint32_t a : {0u, 0x7Fu, 0x60u, 0u})
        image.pixels.push_back(a << 24 | a << 8);
    image.pixels.resize(220, 0x80402010); // half alpha counts as opaque: straight 0x804020
    Bytes file;
    ASSERT_TRUE(kGifCodec.encode(image, file));
    ASSERT_TRUE(kGifCodec.sniff(file));
    const PixelImage back = Decode(file);
    ASSERT_EQ(back.width, 20);
    ASSERT_EQ(back.height, 11);
    for (size_t i = 0; i < 220; ++i) {
        const uint32_t expected = i < 200 ? image.pixels[i] : i < 204 ? 0u : 0xFF804020u;
        ASSERT_EQ(back.pixels[i], expected) << i;
    }
}

TEST(GifCodec, ReadsTheFirstFrameOnItsLogicalScreen)
{
    // A 4x9 interlaced frame at (1, 2) on a 6x12 screen, index 7 transparent; a second frame
    // follows and is not read.
    Bytes pixels;
    for (uint8_t stored = 0; stored < 9; ++stored)
        for (uint8_t x = 0; x < 4; ++x)
            pixels.push_back(x == 3 && stored == 0 ? 7 : uint8_t(16 * stored + x + 8));
    Bytes file = gif_builder::Header(6, 12);
    gif_builder::GraphicControl(file, 1, 0, 7);
    gif_builder::Image(file, 1, 2, 4, 9, 0x40, 8, gif_builder::Encode(pixels, 8));
    gif_builder::Image(file, 0, 0, 1, 1, 0, 8, gif_builder::Encode(Bytes{1}, 8));
    file.push_back(0x3B);

    const PixelImage image = Decode(file);
    ASSERT_EQ(image.width, 6);
    ASSERT_EQ(image.height, 12);
    // Stored rows 0..8 fill frame rows 0, 8, 4, 2, 6, 1, 3, 5, 7.
    const int frameRow[9] = {0, 8, 4, 2, 6, 1, 3, 5, 7};
    for (int stored = 0; stored < 9; ++stored)
        for (int x = 0; x < 4; ++x) {
            const uint32_t expected = x == 3 && stored == 0 ? 0u : Grey(uint32_t(16 * stored + x + 8));
            EXPECT_EQ(image.pixels[size_t((2 + frameRow[stored]) * 6 + 1 + x)], expected) << stored << "," << x;
        }
    EXPECT_EQ(image.pixels[0], 0u);          // outside the frame
    EXPECT_EQ(image.pixels[2 * 6 + 5], 0u);
    EXPECT_EQ(image.pixels[11 * 6 + 2], 0u);
}

TEST(GifCodec, RefusesDamagedTruncatedAndHugeFiles)
{
    PixelImage image{7, 5, std::vector<uint32_t>(35, 0xFF336699)};
    image.pixels[3] = 0xFF000000;
    Bytes file;
    ASSERT_TRUE(kGifCodec.encode(image, file));
    // Cut anywhere before the end of the pixel data.
    for (size_t n = 0; n + 3 < file.size(); ++n) {
        PixelImage out;
        EXPECT_FALSE(kGifCodec.decode(Bytes(file.begin(), file.begin() + std::ptrdiff_t(n)), out)) << n;
        EXPECT_TRUE(out.pixels.empty());
    }

    Bytes huge = gif_builder::Header(65535, 65535);
    gif_builder::Image(huge, 0, 0, 1, 1, 0, 8, gif_builder::Encode(Bytes{1}, 8));
    huge.push_back(0x3B);
    PixelImage out;
    EXPECT_FALSE(kGifCodec.decode(huge, out));

    Bytes noImage = gif_builder::Header(2, 2);
    noImage.push_back(0x3B);
    EXPECT_FALSE(kGifCodec.decode(noImage, out));

    Bytes noColours = gif_builder::Header(2, 2, 0);
    gif_builder::Image(noColours, 0, 0, 2, 2, 0, 2, gif_builder::Encode(Bytes{1, 1, 1, 1}, 2));
    EXPECT_FALSE(kGifCodec.decode(noColours, out));

    EXPECT_FALSE(kGifCodec.encode(PixelImage{}, file));
    EXPECT_FALSE(kGifCodec.sniff(Bytes{'G', 'I', 'F', '8', '8', 'a'}));
}
