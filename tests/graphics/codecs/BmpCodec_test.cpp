// The BMP codec: round trips of both forms it writes, files of every depth, header and
// compression it reads (made here with a small writer), and damaged input.
#include "graphics/codecs/Argb_p.hpp"
#include "graphics/codecs/ImageCodec_p.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <memory>
#include <vector>

using vesk::codecs::kBmpCodec;
using vesk::codecs::PixelImage;
using Bytes = std::vector<uint8_t>;

namespace {

void Put16(Bytes& b, uint32_t v)
{
    b.push_back(uint8_t(v));
    b.push_back(uint8_t(v >> 8));
}

void Put32(Bytes& b, uint32_t v)
{
    Put16(b, v & 0xFFFF);
    Put16(b, v >> 16);
}

// A BMP file: file header, info header of `infoSize` bytes (12 = core), optional masks after a
// 40-byte header, palette (BGR triples for the core header, BGRX otherwise), then `pixels`.
struct BmpFile {
    uint32_t infoSize = 40;
    int32_t width = 0, height = 0;
    uint16_t bits = 24;
    uint32_t compression = 0;
    std::vector<uint32_t> masks = {}; // in the header from 52 bytes on, else after it
    std::vector<uint32_t> palette = {};
    Bytes pixels = {};

    Bytes Build() const
    {
        Bytes info;
        Put32(info, infoSize);
        if (infoSize == 12) {
            Put16(info, uint32_t(width));
            Put16(info, uint32_t(height));
            Put16(info, 1);
            Put16(info, bits);
        } else {
            Put32(info, uint32_t(width));
            Put32(info, uint32_t(height));
            Put16(info, 1);
            Put16(info, bits);
            Put32(info, compression);
            for (int i = 0; i < 3; ++i) // image size, resolutions
                Put32(info, 0);
            Put32(info, infoSize == 40 ? uint32_t(palette.size()) : 0);
            Put32(info, 0);
            for (uint32_t m : masks)
                Put32(info, m);
            info.resize(std::max<size_t>(info.size(), infoSize), 0);
        }
        for (uint32_t c : palette) {
            info.push_back(uint8_t(c));
            info.push_back(uint8_t(c >> 8));
            info.push_back(uint8_t(c >> 16));
            if (infoSize != 12)
                info.push_back(0);
        }
        Bytes file{'B', 'M'};
        Put32(file, uint32_t(14 + info.size() + pixels.size()));
        Put32(file, 0);
        Put32(file, uint32_t(14 + info.size()));
        file.insert(file.end(), info.begin(), info.end());
        file.insert(file.end(), pixels.begin(), pixels.end());
        return file;
    }
};

PixelImage Decode(const Bytes& file)
{
    PixelImage image;
    image.width = -1;
    EXPECT_TRUE(kBmpCodec.decode(file, image));
    return image;
}

void ExpectRejected(const Bytes& file)
{
    PixelImage image;
    EXPECT_FALSE(kBmpCodec.decode(file, image));
    EXPECT_EQ(image.width, 0);
    EXPECT_TRUE(image.pixels.empty());
}

std::vector<uint32_t> Pixels(std::initializer_list<uint32_t> list)
{
    return list;
}

PixelImage RoundTrip(const PixelImage& image, uint16_t expectBits)
{
    Bytes file;
    EXPECT_TRUE(kBmpCodec.encode(image, file));
    EXPECT_GT(file.size(), 30u);
    EXPECT_EQ(file[28] | file[29] << 8, expectBits);
    return Decode(file);
}

} // namespace

TEST(BmpCodec, OpaquePicturesRoundTripAs24Bits)
{
    for (int32_t width : {1, 2, 3, 4}) { // every row padding
        PixelImage image{width, 3, {}};
        for (int32_t i = 0; i < width * 3; ++i)
            image.pixels.push_back(0xFF000000u | uint32_t(i * 0x10305 + 0x20B0C0) % 0x1000000);
        const PixelImage back = RoundTrip(image, 24);
        EXPECT_EQ(back.width, width);
        EXPECT_EQ(back.height, 3);
        EXPECT_EQ(back.pixels, image.pixels) << "width " << width;
    }
}

TEST(BmpCodec, EveryPremultipliedPixelRoundTripsThrough32Bits)
{
    // Every (alpha, channel <= alpha) pair, in each colour channel: straight alpha in the
    // file must give back the same premultiplied words.
    PixelImage image{256, 256, {}};
    for (uint32_t a = 0; a < 256; ++a)
        for (uint32_t c = 0; c < 256; ++c) {
            const uint32_t v = c <= a ? c : a;
            image.pixels.push_back(a << 24 | v << 16 | (a - v) << 8 | v / 2);
        }
    const PixelImage back = RoundTrip(image, 32);
    ASSERT_EQ(back.pixels.size(), image.pixels.size());
    for (size_t i = 0; i < image.pixels.size(); ++i)
        ASSERT_EQ(back.pixels[i], image.pixels[i]) << std::hex << image.pixels[i];
    // A damaged premultiplied pixel (channel above alpha) reads as 255, not beyond.
    EXPECT_EQ(vesk::codecs::StraightPixel(0x80FF0000u), 0x80FF0000u);
    // The alpha mask in the written header is what keeps a clear picture from reading as opaque.
    const PixelImage clear{3, 2, std::vector<uint32_t>(6, 0)};
    EXPECT_EQ(RoundTrip(clear, 32).pixels, clear.pixels);
}

TEST(BmpCodec, ReadsPalettedDepthsBottomUpAndTopDown)
{
    const uint32_t red = 0xFF0000, green = 0x00FF00, blue = 0x0000FF, grey = 0x808080;
    // 1 bit: a 9x2 picture, rows padded to 4 bytes; bottom row stored first.
    BmpFile one{.width = 9, .height = 2, .bits = 1, .palette = {red, blue}};
    one.pixels = {0xA0, 0x80, 0, 0, 0x01, 0x00, 0, 0};
    PixelImage image = Decode(one.Build());
    ASSERT_EQ(image.pixels.size(), 18u);
    EXPECT_EQ(image.pixels[0], 0xFFFF0000u);     // top row from the second stored row
    EXPECT_EQ(image.pixels[7], 0xFF0000FFu);     // 0x01: bit 7 of the row
    EXPECT_EQ(image.pixels[9], 0xFF0000FFu);     // bottom row, 0xA0
    EXPECT_EQ(image.pixels[10], 0xFFFF0000u);
    EXPECT_EQ(image.pixels[11], 0xFF0000FFu);
    EXPECT_EQ(image.pixels[17], 0xFF0000FFu);    // ninth pixel, from the second byte

    // 4 bits, top-down, an index past the palette reads as black.
    BmpFile four{.width = 3, .height = -2, .bits = 4, .palette = {red, green, blue}};
    four.pixels = {0x21, 0x50, 0, 0, 0x00, 0x10, 0, 0};
    image = Decode(four.Build());
    EXPECT_EQ(image.height, 2);
    EXPECT_EQ(image.pixels, Pixels({0xFF0000FF, 0xFF00FF00, 0xFF000000, 0xFFFF0000, 0xFFFF0000, 0xFF00FF00}));

    // 8 bits through the core header, whose palette holds BGR triples and here ends where
    // the pixels begin.
    BmpFile eight{.infoSize = 12, .width = 2, .height = 1, .bits = 8, .palette = {grey, green, blue}};
    eight.pixels = {2, 0, 0, 0};
    image = Decode(eight.Build());
    EXPECT_EQ(image.pixels, Pixels({0xFF0000FF, 0xFF808080}));
}

TEST(BmpCodec, ReadsDirectColourDepthsAndBitFields)
{
    // 16 bits without masks is 5-5-5; fives scale as v * 255 / 31 rounded.
    BmpFile rgb555{.width = 2, .height = 1, .bits = 16};
    rgb555.pixels = {0xFF, 0x7F, 0x10, 0x42};
    EXPECT_EQ(Decode(rgb555.Build()).pixels, Pixels({0xFFFFFFFF, 0xFF848484}));

    // 16 bits 5-6-5 with the masks after a 40-byte header.
    BmpFile rgb565{.width = 2, .height = 1, .bits = 16, .compression = 3, .masks = {0xF800, 0x07E0, 0x001F}};
    rgb565.pixels = {0x00, 0xF8, 0x00, 0x04};
    EXPECT_EQ(Decode(rgb565.Build()).pixels, Pixels({0xFFFF0000, 0xFF008200}));

    BmpFile bgr{.width = 1, .height = 1, .bits = 24, .pixels = {0x11, 0x22, 0x33, 0}};
    EXPECT_EQ(Decode(bgr.Build()).pixels, Pixels({0xFF332211}));

    // 32 bits whose fourth byte is zero throughout are opaque, not transparent.
    BmpFile xrgb{.width = 2, .height = 1, .bits = 32, .pixels = {1, 2, 3, 0, 4, 5, 6, 0}};
    EXPECT_EQ(Decode(xrgb.Build()).pixels, Pixels({0xFF030201, 0xFF060504}));

    // ...but one non-zero alpha byte makes it an alpha channel, read straight and premultiplied.
    BmpFile argb{.width = 2, .height = 1, .bits = 32, .pixels = {0, 0, 200, 0, 10, 20, 30, 128}};
    EXPECT_EQ(Decode(argb.Build()).pixels, Pixels({0x00000000, 0x800F0A05}));

    // A named alpha mask is taken as it stands even when it is zero throughout.
    BmpFile named{.width = 1, .height = 1, .bits = 32, .compression = 6,
                  .masks = {0xFF0000, 0xFF00, 0xFF, 0xFF000000}, .pixels = {1, 2, 3, 0}};
    EXPECT_EQ(Decode(named.Build()).pixels, Pixels({0}));

    // Masks in unusual places: a 56-byte header with red in the low byte and alpha on top.
    BmpFile abgr{.infoSize = 56, .width = 1, .height = 1, .bits = 32, .compression = 3,
                 .masks = {0x000000FF, 0x0000FF00, 0x00FF0000, 0xFF000000}, .pixels = {0x40, 0x20, 0x10, 0xFF}};
    EXPECT_EQ(Decode(abgr.Build()).pixels, Pixels({0xFF402010}));

    // A 124-byte header whose masks are 10 bits wide and have no alpha.
    BmpFile wide{.infoSize = 124, .width = 1, .height = 1, .bits = 32, .compression = 3,
                 .masks = {0x3FF00000, 0x000FFC00, 0x000003FF, 0}};
    wide.pixels = {0xFF, 0x03, 0x00, 0x20}; // red 512, green 0, blue 1023
    EXPECT_EQ(Decode(wide.Build()).pixels, Pixels({0xFF8000FF}));
}

TEST(BmpCodec, ReadsRunLengthEncodedPictures)
{
    const std::vector<uint32_t> palette = {0x000000, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};
    // RLE8, 6x3: bottom row a run of 3 then an odd-length literal (padded); one pixel on the
    // next row, a move of (3, 1) to (4, 2); two pixels and the end. Skipped pixels stay
    // transparent.
    BmpFile rle8{.width = 6, .height = 3, .bits = 8, .compression = 1, .palette = palette};
    rle8.pixels = {3, 1, 0, 3, 2, 3, 4, 0, 0, 0, 1, 3, 0, 2, 3, 1, 2, 3, 0, 1, 9, 9};
    PixelImage image = Decode(rle8.Build());
    const uint32_t R = 0xFFFF0000, G = 0xFF00FF00, B = 0xFF0000FF, W = 0xFFFFFFFF;
    EXPECT_EQ(image.pixels, Pixels({0, 0, 0, 0, B, B, //
                                    B, 0, 0, 0, 0, 0, //
                                    R, R, R, G, B, W}));

    // RLE4, 5x2: runs alternate their two nibbles; a literal of 3 nibbles is padded to 2 bytes;
    // end of line, then a run wider than the row is clipped.
    BmpFile rle4{.width = 5, .height = 2, .bits = 4, .compression = 2, .palette = palette};
    rle4.pixels = {2, 0x12, 0, 3, 0x34, 0x10, 0, 0, 7, 0x44, 0, 1};
    image = Decode(rle4.Build());
    EXPECT_EQ(image.pixels, Pixels({W, W, W, W, W, //
                                    R, G, B, W, R}));
}

TEST(BmpCodec, RefusesDamagedTruncatedAndHugeFiles)
{
    BmpFile good{.width = 3, .height = 2, .bits = 8, .palette = {1, 2, 3}};
    good.pixels.assign(8, 1);
    const Bytes file = good.Build();
    ASSERT_TRUE(kBmpCodec.decode(file, *std::make_unique<PixelImage>()));
    for (size_t n = 0; n + 1 < file.size(); ++n) // the last row's padding may be missing
        ExpectRejected(Bytes(file.begin(), file.begin() + std::ptrdiff_t(n)));

    // Sizes far past what is allocated, or whose byte counts overflow 32 bits.
    for (auto [w, h] : {std::pair{100000, 100000}, {65536, 65536}, {32767, -32767}, {0, 5}, {5, 0}, {-4, 4},
                        {2, INT32_MIN}}) {
        BmpFile huge{.width = w, .height = h, .bits = 32};
        huge.pixels.assign(64, 0);
        ExpectRejected(huge.Build());
    }

    // Depths and compressions that do not go together, unknown header sizes.
    for (auto [bits, compression] : {std::pair{24, 3}, {8, 2}, {4, 1}, {2, 0}, {32, 4}, {8, 5}, {0, 0}}) {
        BmpFile odd{.width = 1, .height = 1, .bits = uint16_t(bits), .compression = uint32_t(compression)};
        odd.pixels.assign(16, 0);
        ExpectRejected(odd.Build());
    }
    BmpFile unknown = good;
    unknown.infoSize = 64;
    ExpectRejected(unknown.Build());

    // A run-length stream that stops before the picture ends.
    BmpFile cut{.width = 4, .height = 4, .bits = 8, .compression = 1, .palette = {1}, .pixels = {4, 0, 0, 0, 4, 0}};
    ExpectRejected(cut.Build());

    Bytes out;
    EXPECT_FALSE(kBmpCodec.encode(PixelImage{}, out));
    EXPECT_FALSE(kBmpCodec.encode(PixelImage{2, 2, {1, 2, 3}}, out));
    EXPECT_TRUE(out.empty());
    EXPECT_TRUE(kBmpCodec.sniff(Bytes{'B', 'M', 0}));
    EXPECT_FALSE(kBmpCodec.sniff(Bytes{'B'}) || kBmpCodec.sniff(Bytes{'G', 'I', 'F'}));
}
