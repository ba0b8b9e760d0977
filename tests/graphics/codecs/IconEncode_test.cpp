// Icon files against layouts worked out by hand.
#include "graphics/FileBytes.hpp"
#include "graphics/codecs/ImageCodec_p.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

using vesk::codecs::EncodeIcon;
using vesk::codecs::PixelImage;
using Bytes = std::vector<uint8_t>;

namespace {

using vesk::test::Le32;

Bytes Icon(const PixelImage& image)
{
    Bytes file;
    EXPECT_TRUE(EncodeIcon(image, file));
    return file;
}

} // namespace

TEST(IconEncode, SmallIconIsLaidOutByteForByte)
{
    // Top row: opaque red, opaque magenta; bottom row: transparent, green at half alpha
    // (premultiplied 0x80, straight 0xFF).
    const PixelImage image{2, 2, {0xFFFF0000, 0xFFFF00FF, 0x00000000, 0x80008000}};
    const Bytes expected = {
        0, 0, 1, 0, 1, 0,                   // reserved, icon, one image
        2, 2, 0, 0, 1, 0, 32, 0,            // 2x2, no colour count, 1 plane, 32 bits
        64, 0, 0, 0, 22, 0, 0, 0,           // 8 mask + 16 colour + 40 header bytes, at 22
        40, 0, 0, 0, 2, 0, 0, 0, 4, 0, 0, 0, // header size, width, height doubled
        1, 0, 32, 0, 0, 0, 0, 0, 24, 0, 0, 0, // planes, bits, no compression, 24 pixel bytes
        0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
        0, 0, 0, 0, 0x00, 0xFF, 0x00, 0x80, // bottom colour row first: transparent, green
        0x00, 0x00, 0xFF, 0xFF, 0, 0, 0, 0, // top row: red; magenta written as 0
        0x80, 0, 0, 0,                      // mask, bottom row: the transparent pixel
        0x00, 0, 0, 0,                      // top row: both opaque
    };
    EXPECT_EQ(Icon(image), expected);
}

TEST(IconEncode, MagentaScanAlsoCoversMaskBytesAcrossRows)
{
    // Each 16-pixel mask row is 2 bytes: FF 00 then FF 00 read as the word 0x00FF00FF, which
    // the magenta scan clears; the third and fourth rows, FF 80 FF 00, stay.
    PixelImage image{16, 4, std::vector<uint32_t>(64, 0xFF000000)};
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 8; ++x)
            image.pixels[size_t(y * 16 + x)] = 0;
    image.pixels[2 * 16 + 8] = 0;
    const Bytes file = Icon(image);
    const size_t mask = 62 + 16 * 4 * 4;
    ASSERT_EQ(file.size(), mask + 4 * 4);
    EXPECT_EQ(Le32(file, mask), 0xFFu);        // bottom row
    EXPECT_EQ(Le32(file, mask + 4), 0x80FFu);
    EXPECT_EQ(Le32(file, mask + 8), 0u);       // cleared
    EXPECT_EQ(Le32(file, mask + 12), 0u);

    // 8-pixel rows still take 16 bits each: clear, opaque, clear, opaque rows are the words
    // 0x000000FF twice, not FF 00 FF 00.
    PixelImage narrow{8, 4, std::vector<uint32_t>(32, 0xFF000000)};
    std::fill(narrow.pixels.begin(), narrow.pixels.begin() + 8, 0);
    std::fill(narrow.pixels.begin() + 16, narrow.pixels.begin() + 24, 0);
    const Bytes small = Icon(narrow);
    const size_t narrowMask = 62 + 4 * 32;
    ASSERT_EQ(small.size(), narrowMask + 16);
    EXPECT_EQ(Le32(small, narrowMask), 0u);
    EXPECT_EQ(Le32(small, narrowMask + 4), 0xFFu);
    EXPECT_EQ(Le32(small, narrowMask + 8), 0u);
    EXPECT_EQ(Le32(small, narrowMask + 12), 0xFFu);
}

TEST(IconEncode, RefusesPicturesWithoutPixels)
{
    Bytes file;
    EXPECT_FALSE(EncodeIcon(PixelImage{}, file));
    EXPECT_FALSE(EncodeIcon(PixelImage{4, 4, {}}, file));
    EXPECT_TRUE(file.empty());
}
