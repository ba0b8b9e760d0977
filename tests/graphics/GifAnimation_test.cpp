// The reader: the "anm" file rule, header and table checks, the block walk and its stops,
// the frame buffer, the buffer limit and the delay rule. Frames, interlaced rows and the wrap
// after the last frame are compared with giflib over the corpus (GifCorpus_test).
#include <vesk/files.hpp>
#include <vesk/graphics.hpp>

#include "graphics/FileBytes.hpp"
#include "graphics/gif/GifReader_p.hpp"
#include "graphics/gif_builder.hpp"
#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <cstring>

using namespace vesk;
using gif_builder::Bytes;

namespace {

// A frame of w x h whose pixels count up from `base`, with min code size 8.
void PutFrame(Bytes& gif, uint32_t w, uint32_t h, uint8_t base = 0, uint8_t flags = 0)
{
    Bytes pixels(size_t{w} * h);
    for (size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<uint8_t>(base + i);
    gif_builder::Image(gif, 0, 0, w, h, flags, 8, gif_builder::Encode(pixels, 8));
}

std::vector<uint8_t> Row(const GifFrame& f, uint32_t row)
{
    const uint8_t* p = f.GetPixels() + size_t{row} * f.GetStride();
    return {p, p + f.GetWidth()};
}

bool Open(GifReader& reader, const Bytes& gif)
{
    return reader.Open(gif.data(), gif.size());
}

TEST(GifAnimation, LoadReadsTheAnmFileWhateverTheExtension)
{
    test::TempDir dir;
    Bytes gif = gif_builder::Header(4, 2);
    PutFrame(gif, 4, 2);
    gif.push_back(0x3B);
    test::WriteBytes(dir.File("movie.anm"), gif);
    test::WriteBytes(dir.File("other.gif"), gif);

    GifAnimation anim;
    EXPECT_FALSE(anim.IsLoaded());
    // Before any frame the frame geometry is (0, 0) and 10 x 10.
    EXPECT_EQ(anim.GetFrameLeft() + anim.GetFrameTop(), 0);
    EXPECT_EQ(anim.GetFrameWidth(), 10);
    EXPECT_EQ(anim.GetFrameHeight(), 10);
    EXPECT_EQ(anim.Load(test::Entry(dir.File("movie.gif"))), 1);
    EXPECT_TRUE(anim.IsLoaded());
    EXPECT_EQ(anim.GetScreenWidth(), 4);
    EXPECT_EQ(anim.GetFrameWidth(), 4); // the first frame was met by the scan
    EXPECT_EQ(Row(anim.FirstImage(), 1), (std::vector<uint8_t>{4, 5, 6, 7}));
    // Only the "anm" file counts.
    EXPECT_EQ(anim.Load(test::Entry(dir.File("other.gif"))), 0);
    EXPECT_FALSE(anim.IsLoaded());
    EXPECT_TRUE(anim.FirstImage().IsEmpty());
}

TEST(GifAnimation, HeaderAndGlobalTableChecks)
{
    Bytes good = gif_builder::Header(1, 1, 2);
    good.push_back(0x3B);
    GifReader reader;
    EXPECT_TRUE(Open(reader, good));
    Bytes v87 = good;
    v87[4] = '7';
    EXPECT_TRUE(Open(reader, v87));
    for (auto [at, byte] : {std::pair{4, '8'}, {5, 'b'}, {0, 'g'}, {3, '9'}}) {
        Bytes bad = good;
        bad[static_cast<size_t>(at)] = static_cast<uint8_t>(byte);
        EXPECT_FALSE(Open(reader, bad)) << at;
    }
    EXPECT_FALSE(Open(reader, Bytes(good.begin(), good.begin() + 12)));
    // Exactly the table's bytes and no more is enough; one short is not.
    const Bytes table(good.begin(), good.begin() + 13 + 12);
    EXPECT_TRUE(Open(reader, table));
    EXPECT_FALSE(Open(reader, Bytes(table.begin(), table.end() - 1)));
    EXPECT_EQ(reader.m_nGlobalColors, 0u);
}

TEST(GifAnimation, BlockWalkSkipsEveryExtensionKindAndTakesTheLastControl)
{
    Bytes gif = gif_builder::Header(2, 2);
    gif.insert(gif.end(), {0x21, 0x01, 12, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 3, 'a', 'b', 'c', 0});
    gif.insert(gif.end(), {0x21, 0xFE, 2, 'h', 'i', 1, '!', 0});
    gif.insert(gif.end(), {0x21, 0xFF, 11, 'N', 'E', 'T', 'S', 'C', 'A', 'P', 'E', '2', '.', '0', 3, 1, 0, 0, 0});
    gif_builder::GraphicControl(gif, 0x04, 7, 1);
    gif_builder::GraphicControl(gif, 0x0D, 15, 200); // disposal 3, transparent
    PutFrame(gif, 2, 2, 1);
    gif.push_back(0x3B);
    const size_t entry200 = 13 + 200 * 3;
    gif[entry200] = 1, gif[entry200 + 1] = 2, gif[entry200 + 2] = 3;
    GifReader reader;
    ASSERT_TRUE(Open(reader, gif));
    const GifFrame f = reader.FirstImage();
    ASSERT_FALSE(f.IsEmpty());
    EXPECT_EQ(Row(f, 1), (std::vector<uint8_t>{3, 4}));
    EXPECT_EQ(reader.m_nDisposal, 12);
    EXPECT_EQ(reader.m_nDelay, 15);
    EXPECT_TRUE(reader.m_bTransparent);
    EXPECT_EQ(reader.m_nTransparentIndex, 200);
    EXPECT_EQ(reader.m_nTransparentColor, 1u | 2u << 8 | 3u << 16);
}

TEST(GifAnimation, WalkStopsAtUnknownBlocksAndChainsPastTheEnd)
{
    const Bytes head = gif_builder::Header(2, 2);
    const std::vector<Bytes> stops = {
        {0x21, 0x2A, 1, 0, 0},     // unknown extension label
        {0x21, 0x00, 0},           // label 0
        {0x40},                    // a byte above the trailer's
        {0x21, 0xFE, 200, 1, 2},   // comment chain past the data
    };
    for (const Bytes& stop : stops) {
        Bytes gif = head;
        gif.insert(gif.end(), stop.begin(), stop.end());
        PutFrame(gif, 2, 2);
        gif.push_back(0x3B);
        GifReader reader;
        ASSERT_TRUE(Open(reader, gif));
        reader.ScanFirst();
        EXPECT_TRUE(reader.FirstImage().IsEmpty()) << int(stop[1]);
    }
}

TEST(GifAnimation, ReadPositionAfterTheEndCodeIsOneBytePastTheLastCodeByte)
{
    // The end code closes the first sub-block; a second sub-block follows. Skipping one byte as
    // the terminator lands on its data, the trailer byte, which rewinds to the first frame.
    Bytes gif = gif_builder::Header(2, 1);
    const Bytes lzw = gif_builder::Encode({5, 6}, 8);
    gif.insert(gif.end(), {0x2C, 0, 0, 0, 0, 2, 0, 1, 0, 0, 8, static_cast<uint8_t>(lzw.size())});
    gif.insert(gif.end(), lzw.begin(), lzw.end());
    gif.insert(gif.end(), {1, 0x3B, 0});
    PutFrame(gif, 2, 1, 77);
    gif.push_back(0x3B);
    GifReader reader;
    ASSERT_TRUE(Open(reader, gif));
    EXPECT_EQ(Row(reader.NextImage(), 0)[0], 5);
    EXPECT_EQ(Row(reader.NextImage(), 0)[0], 5);
}

TEST(GifAnimation, FrameBufferLayoutAndPadding)
{
    Bytes gif = gif_builder::Header(8, 8, 0);
    // A local table of 4 colours, a 5 x 3 frame at (2, 1): rows of stride 8.
    const Bytes pixels = {0, 1, 2, 3, 0, 1, 2, 3, 0, 1, 2, 3, 0, 1, 2};
    gif.insert(gif.end(), {0x2C, 2, 0, 1, 0, 5, 0, 3, 0, 0x81, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120, 2});
    gif_builder::PutBlocks(gif, gif_builder::Encode(pixels, 2), 3);
    gif.push_back(0x3B);
    GifReader reader;
    ASSERT_TRUE(Open(reader, gif));
    const GifFrame f = reader.FirstImage();
    ASSERT_FALSE(f.IsEmpty());
    EXPECT_EQ(f.GetStride(), 8u);
    EXPECT_EQ(f.GetLeft(), 2);
    EXPECT_EQ(f.GetTop(), 1);
    int32_t header[10];
    std::memcpy(header, f.GetHeader(), 40);
    EXPECT_EQ(header[0], 40);
    EXPECT_EQ(header[1], 5);
    EXPECT_EQ(header[2], -3);
    EXPECT_EQ(header[3], 1 | 8 << 16); // planes, bits per pixel
    EXPECT_EQ(header[4], 0);
    EXPECT_EQ(header[8], 256);
    EXPECT_EQ(header[9], 256);
    const uint8_t* pal = f.GetPalette();
    EXPECT_EQ((std::vector<uint8_t>(pal, pal + 8)), (std::vector<uint8_t>{30, 20, 10, 0, 60, 50, 40, 0}));
    EXPECT_EQ(pal[4 * 4], 0); // entries past the table are black
    for (uint32_t row = 0; row < 3; ++row) {
        EXPECT_EQ(Row(f, row), Bytes(pixels.begin() + 5 * row, pixels.begin() + 5 * row + 5));
        for (uint32_t x = 5; x < 8; ++x)
            EXPECT_EQ(f.GetPixels()[row * 8 + x], 0);
    }
}

TEST(GifAnimation, OversizeAndUndecodableFramesAreSkipped)
{
    Bytes gif = gif_builder::Header(4, 4);
    // 65535 x 65535 would need 4 GiB; a minimum code size of 12 cannot be decoded.
    gif_builder::Image(gif, 0, 0, 65535, 65535, 0, 8, gif_builder::Encode({1, 2, 3}, 8));
    gif_builder::Image(gif, 0, 0, 2, 1, 0, 12, {0xFF, 0xFF});
    PutFrame(gif, 2, 1, 9);
    gif.push_back(0x3B);
    GifReader reader;
    ASSERT_TRUE(Open(reader, gif));
    EXPECT_TRUE(reader.NextImage().IsEmpty());
    EXPECT_EQ(reader.m_nWidth, 65535);
    EXPECT_TRUE(reader.NextImage().IsEmpty());
    EXPECT_EQ(Row(reader.NextImage(), 0), (std::vector<uint8_t>{9, 10}));

    GifAnimation anim;
    EXPECT_TRUE(anim.IsScreenDrawable());
}

TEST(GifAnimation, DamagedDataEndsTheFrameWithZeros)
{
    // No end code before the terminator: the frame keeps what came, the walk goes on.
    Bytes gif = gif_builder::Header(4, 1);
    Bytes lzw = gif_builder::Encode({7, 7, 7, 7}, 8);
    lzw.resize(3); // the clear, the first code and part of the next
    gif_builder::Image(gif, 0, 0, 4, 1, 0, 8, lzw);
    PutFrame(gif, 4, 1, 1);
    // A chain that runs past the end of the file.
    gif.insert(gif.end(), {0x2C, 0, 0, 0, 0, 4, 0, 1, 0, 0, 8, 250, 0, 1});
    GifReader reader;
    ASSERT_TRUE(Open(reader, gif));
    EXPECT_EQ(Row(reader.NextImage(), 0), (std::vector<uint8_t>{7, 0, 0, 0}));
    EXPECT_EQ(Row(reader.NextImage(), 0), (std::vector<uint8_t>{1, 2, 3, 4}));
    EXPECT_EQ(Row(reader.NextImage(), 0), (std::vector<uint8_t>{0, 0, 0, 0}));
}

// A clock that only moves when slept.
class FakeClock final : public GifClock {
public:
    uint64_t GetTicks() override { return now; }
    void Sleep(uint32_t ms) override
    {
        now += ms;
        ++sleeps;
    }
    uint64_t now = 1000;
    int sleeps = 0;
};

TEST(GifAnimation, DelaysAreWaitedInSteps100Ms)
{
    std::atomic<int> state{GifAnimation::STATE_PLAYING};
    FakeClock clock;
    const std::pair<uint32_t, uint64_t> cases[] = {{30, 100}, {50, 100}, {100, 100}, {150, 200}, {1000, 1000}};
    for (const auto& [delay, waited] : cases)
        EXPECT_EQ(GifAnimation::WaitFrameDelay(clock, clock.now, delay, state), waited) << delay;
    state = GifAnimation::STATE_STOP_REQUESTED;
    clock.sleeps = 0;
    EXPECT_EQ(GifAnimation::WaitFrameDelay(clock, clock.now, 500, state), 0u);
    EXPECT_EQ(clock.sleeps, 0);

    // Frame delays in hundredths; 0 takes the default of 50 ms.
    Bytes gif = gif_builder::Header(1, 1);
    gif_builder::GraphicControl(gif, 0, 0, 0);
    PutFrame(gif, 1, 1);
    gif_builder::GraphicControl(gif, 0, 15, 0);
    PutFrame(gif, 1, 1);
    gif.push_back(0x3B);
    test::TempDir dir;
    test::WriteBytes(dir.File("d.anm"), gif);
    GifAnimation anim;
    anim.SetClock(&clock);
    EXPECT_EQ(&anim.GetClock(), &clock);
    ASSERT_EQ(anim.Load(test::Entry(dir.File("d"))), 1);
    anim.FirstImage();
    EXPECT_EQ(anim.GetFrameDelayMs(), 50u);
    anim.NextImage();
    EXPECT_EQ(anim.GetFrameDelayMs(), 150u);
    anim.ClearDisposal();
    EXPECT_EQ(anim.GetDisposal(), 0);
}

} // namespace
