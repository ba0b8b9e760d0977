// Animated GIF files read back by giflib: frames, delays, the loop extension, palettes of at
// most 240 colours, and pixels close to the frames written.
#include "graphics/FileBytes.hpp"
#include "graphics/codecs/ImageCodec_p.hpp"

#include <gif_lib.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <set>
#include <vector>

using vesk::codecs::EncodeAnimatedGif;
using vesk::codecs::PixelImage;
using Bytes = std::vector<uint8_t>;

namespace {

struct Input
{
    const Bytes* bytes;
    size_t at = 0;
};

int Read(GifFileType* gif, GifByteType* out, int n)
{
    auto* in = static_cast<Input*>(gif->UserData);
    const size_t take = std::min(size_t(n), in->bytes->size() - in->at);
    std::memcpy(out, in->bytes->data() + in->at, take);
    in->at += take;
    return int(take);
}

vesk::test::GifFilePtr Slurp(const Bytes& file)
{
    Input in{&file};
    int error = 0;
    vesk::test::GifFilePtr gif(DGifOpen(&in, Read, &error));
    EXPECT_TRUE(gif && DGifSlurp(gif.get()) == GIF_OK);
    return gif;
}

// A photo-like frame: smooth colour gradients moving with `phase`, with some texture.
PixelImage Photo(int32_t width, int32_t height, double phase)
{
    PixelImage image{width, height, {}};
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const auto r = uint32_t(127.5 + 127.5 * std::sin(x * 0.05 + phase));
            const auto g = uint32_t(127.5 + 127.5 * std::cos(y * 0.07 - phase));
            const auto b = uint32_t((x * 3 + y * 5 + (x * y) % 7) % 256);
            image.pixels.push_back(0xFF000000u | r << 16 | g << 8 | b);
        }
    return image;
}

double Psnr(const PixelImage& frame, const SavedImage& saved)
{
    double squares = 0;
    const ColorMapObject* map = saved.ImageDesc.ColorMap;
    for (size_t i = 0; i < frame.pixels.size(); ++i) {
        const GifColorType c = map->Colors[saved.RasterBits[i]];
        const uint32_t p = frame.pixels[i];
        const double dr = c.Red - double(p >> 16 & 0xFF), dg = c.Green - double(p >> 8 & 0xFF), db = c.Blue - double(p & 0xFF);
        squares += dr * dr + dg * dg + db * db;
    }
    return 10 * std::log10(255.0 * 255.0 * 3 * double(frame.pixels.size()) / std::max(squares, 1e-9));
}

} // namespace

TEST(AnimatedGifEncode, FramesDelaysLoopAndPalettesReadBack)
{
    const PixelImage frames[3] = {Photo(96, 64, 0), Photo(96, 64, 1), Photo(96, 64, 2)};
    const PixelImage* list[3] = {&frames[0], &frames[1], &frames[2]};
    Bytes file;
    ASSERT_TRUE(EncodeAnimatedGif(list, 10, file));
    const auto gif = Slurp(file);
    ASSERT_TRUE(gif);
    EXPECT_EQ(gif->SWidth, 96);
    EXPECT_EQ(gif->SHeight, 64);
    ASSERT_EQ(gif->ImageCount, 3);

    // The loop extension comes before the first frame: NETSCAPE2.0, then sub-block 1, count 0.
    const SavedImage& first = gif->SavedImages[0];
    bool loops = false;
    for (int i = 0; i + 1 < first.ExtensionBlockCount; ++i) {
        const ExtensionBlock& app = first.ExtensionBlocks[i];
        const ExtensionBlock& data = first.ExtensionBlocks[i + 1];
        loops = loops || (app.Function == APPLICATION_EXT_FUNC_CODE && app.ByteCount == 11 &&
                          std::memcmp(app.Bytes, "NETSCAPE2.0", 11) == 0 && data.ByteCount == 3 &&
                          data.Bytes[0] == 1 && data.Bytes[1] == 0 && data.Bytes[2] == 0);
    }
    EXPECT_TRUE(loops);

    for (int f = 0; f < 3; ++f) {
        const SavedImage& saved = gif->SavedImages[f];
        GraphicsControlBlock control;
        ASSERT_EQ(DGifSavedExtensionToGCB(gif.get(), f, &control), GIF_OK);
        EXPECT_EQ(control.DelayTime, 10);
        EXPECT_EQ(control.TransparentColor, NO_TRANSPARENT_COLOR);
        ASSERT_TRUE(saved.ImageDesc.ColorMap);
        EXPECT_EQ(saved.ImageDesc.ColorMap->ColorCount, 256);
        const std::set<int> used(saved.RasterBits, saved.RasterBits + 96 * 64);
        EXPECT_LT(*used.rbegin(), 240);
        EXPECT_GT(used.size(), 200u) << "the palette should be used, not a few colours";
        for (int i = 240; i < 256; ++i)
            EXPECT_EQ(saved.ImageDesc.ColorMap->Colors[i].Red | saved.ImageDesc.ColorMap->Colors[i].Blue, 0);
        EXPECT_GT(Psnr(frames[f], saved), 27.0) << "frame " << f;
    }
}

TEST(AnimatedGifEncode, ScreenIsTheFirstFrameAndOthersAreCutToIt)
{
    const PixelImage small = Photo(20, 10, 0), large = Photo(40, 30, 1);
    PixelImage clear{20, 10, std::vector<uint32_t>(200, 0)};
    const PixelImage* list[3] = {&small, &large, &clear};
    Bytes file{0xAB}; // appended to what is there
    ASSERT_TRUE(EncodeAnimatedGif(list, 250, file));
    EXPECT_EQ(file[0], 0xAB);
    const auto gif = Slurp(Bytes(file.begin() + 1, file.end()));
    ASSERT_TRUE(gif);
    ASSERT_EQ(gif->ImageCount, 3);
    EXPECT_EQ(gif->SWidth, 20);
    EXPECT_EQ(gif->SavedImages[1].ImageDesc.Width, 20);
    EXPECT_EQ(gif->SavedImages[1].ImageDesc.Height, 10);
    // Alpha is not kept: a clear frame is black.
    const SavedImage& last = gif->SavedImages[2];
    const GifColorType c = last.ImageDesc.ColorMap->Colors[last.RasterBits[77]];
    EXPECT_EQ(c.Red | c.Green | c.Blue, 0);
    GraphicsControlBlock control;
    ASSERT_EQ(DGifSavedExtensionToGCB(gif.get(), 2, &control), GIF_OK);
    EXPECT_EQ(control.DelayTime, 250);
}

TEST(AnimatedGifEncode, NoFramesOrAFrameWithoutPixelsIsRefused)
{
    Bytes file;
    EXPECT_FALSE(EncodeAnimatedGif({}, 10, file));
    const PixelImage good = Photo(4, 4, 0), empty{};
    const PixelImage* withNull[2] = {&good, nullptr};
    const PixelImage* withEmpty[2] = {&good, &empty};
    EXPECT_FALSE(EncodeAnimatedGif(withNull, 10, file));
    EXPECT_FALSE(EncodeAnimatedGif(withEmpty, 10, file));
    EXPECT_TRUE(file.empty());
}
