// The player thread: composition with disposal, delays on a substituted clock, the stop
// handshake, background changes and the first frame with its transparent colour.
#include "graphics/FileBytes.hpp"
#include "graphics/GoldenImage.hpp"
#include "graphics/gif_builder.hpp"
#include "support/TempDir.hpp"

#include "graphics/DeviceContext.hpp"

#include <vesk/files/DirEntry.hpp>
#include <vesk/graphics.hpp>

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <vector>

namespace vesk {
namespace {

using gif_builder::Bytes;

class SteppingClock final : public GifClock {
public:
    uint64_t GetTicks() override { return now.load(); }
    void Sleep(uint32_t ms) override { now += ms; }
    std::atomic<uint64_t> now{5000};
};

// Records every canvas the player shows as rows of red channel values, with the clock's time.
class Recorder final : public GifPresenter {
public:
    explicit Recorder(GifClock& clock) : m_rClock(clock) {}
    void Present(OutputDevice& canvas, const TamSize& size) override
    {
        std::vector<uint32_t> reds;
        cairo_surface_t* s = canvas.GethDC()->surface;
        cairo_surface_flush(s);
        for (int y = 0; y < size.Height(); ++y)
            for (int x = 0; x < size.Width(); ++x)
                reds.push_back(test::At(s, x, y) >> 16 & 0xFF);
        std::lock_guard lock(m_aMutex);
        shown.push_back(reds);
        times.push_back(m_rClock.GetTicks());
        m_aChanged.notify_all();
    }
    // Waits until at least n canvases were shown.
    void WaitFor(size_t n)
    {
        std::unique_lock lock(m_aMutex);
        m_aChanged.wait(lock, [&] { return shown.size() >= n; });
    }
    size_t Count()
    {
        std::lock_guard lock(m_aMutex);
        return shown.size();
    }
    std::vector<uint32_t> Shown(size_t i)
    {
        std::lock_guard lock(m_aMutex);
        return shown[i];
    }
    std::vector<std::vector<uint32_t>> shown;
    std::vector<uint64_t> times;

private:
    GifClock& m_rClock;
    std::mutex m_aMutex;
    std::condition_variable m_aChanged;
};

void Frame(Bytes& gif, uint32_t left, uint32_t top, uint32_t w, uint32_t h, uint8_t value)
{
    gif_builder::Image(gif, left, top, w, h, 0, 8, gif_builder::Encode(Bytes(size_t{w} * h, value), 8));
}

struct Movie
{
    explicit Movie(const Bytes& gif)
    {
        test::WriteBytes(dir.File("m.anm"), gif);
        EXPECT_EQ(anim.Load(test::Entry(dir.File("m.gif"))), 1);
        anim.SetClock(&clock);
    }
    test::TempDir dir;
    SteppingClock clock;
    GifAnimation anim;
};

// 4 x 2 screen, grey table (index i is grey i):
// 1. the whole screen in 10 to 17, left in place, 30 ms;
// 2. two pixels of 50 at (1, 0), restored afterwards (to background or to previous: the same),
//    150 ms;
// 3. without graphic control: one pixel of 90 at (0, 1), left in place (the disposal is not
//    inherited), 150 ms (the delay is);
// 4. one pixel of 70 at (3, 1), left in place, no delay (the default 50 ms).
Bytes FourFrames(uint8_t restore)
{
    Bytes gif = gif_builder::Header(4, 2);
    gif_builder::GraphicControl(gif, 4, 3, 0);
    gif_builder::Image(gif, 0, 0, 4, 2, 0, 8, gif_builder::Encode(Bytes{10, 11, 12, 13, 14, 15, 16, 17}, 8));
    gif_builder::GraphicControl(gif, restore, 15, 0);
    Frame(gif, 1, 0, 2, 1, 50);
    Frame(gif, 0, 1, 1, 1, 90);
    gif_builder::GraphicControl(gif, 4, 0, 0);
    Frame(gif, 3, 1, 1, 1, 70);
    gif.push_back(0x3B);
    return gif;
}

TEST(GifPlayer, ComposesFramesWithDisposalAndWaitsInSteps)
{
    for (uint8_t restore : {8, 12}) {
        SCOPED_TRACE(restore);
        Movie m(FourFrames(restore));
        Recorder rec(m.clock);
        GifPlayer player(m.anim);
        ASSERT_TRUE(player.Play(&rec));
        rec.WaitFor(7);
        player.Stop();
        using Canvas = std::vector<uint32_t>;
        const Canvas first{10, 11, 12, 13, 14, 15, 16, 17};
        const std::vector<Canvas> expected{
            first,
            {10, 50, 50, 13, 14, 15, 16, 17},
            {10, 11, 12, 13, 90, 15, 16, 17}, // the second frame's area restored first
            {10, 11, 12, 13, 90, 15, 16, 70},
            first, // the animation starts again
            {10, 50, 50, 13, 14, 15, 16, 17},
            {10, 11, 12, 13, 90, 15, 16, 17},
        };
        ASSERT_GE(rec.shown.size(), expected.size());
        for (size_t i = 0; i < expected.size(); ++i)
            EXPECT_EQ(rec.shown[i], expected[i]) << "canvas " << i;
        // 30 ms, 150 ms and 50 ms wait 100, 200 and 100 ms.
        const std::vector<uint64_t> gaps{100, 200, 200, 100, 100, 200};
        for (size_t i = 0; i < gaps.size(); ++i)
            EXPECT_EQ(rec.times[i + 1] - rec.times[i], gaps[i]) << "gap " << i;
    }
}

TEST(GifPlayer, StatesAndTheStopHandshake)
{
    Movie m(FourFrames(8));
    Recorder rec(m.clock);
    {
        GifPlayer player(m.anim);
        EXPECT_EQ(player.GetState(), GifAnimation::STATE_IDLE);
        EXPECT_TRUE(player.Play(nullptr)); // nothing to show on: nothing happens
        EXPECT_EQ(player.GetState(), GifAnimation::STATE_IDLE);
        ASSERT_TRUE(player.Play(&rec));
        EXPECT_EQ(player.GetState(), GifAnimation::STATE_PLAYING);
        EXPECT_FALSE(player.Play(&rec)); // the loop is running
        rec.WaitFor(2);
        player.Stop();
        EXPECT_EQ(player.GetState(), GifAnimation::STATE_STOPPED);
        player.Stop(); // stopping a stopped player does nothing
        // Playing again starts from the first frame.
        const size_t before = rec.shown.size();
        while (player.IsPlaying())
            std::this_thread::yield();
        ASSERT_TRUE(player.Play(&rec));
        rec.WaitFor(before + 1);
        EXPECT_EQ(rec.Shown(before), (std::vector<uint32_t>{10, 11, 12, 13, 14, 15, 16, 17}));
        // The destructor stops a playing player.
    }
    {
        // With the real clock the player sleeps in its frame delay when the stop comes; Stop
        // returns once the player wakes and confirms.
        m.anim.SetClock(&GifClock::System());
        GifPlayer player(m.anim);
        const size_t before = rec.Count();
        ASSERT_TRUE(player.Play(&rec));
        rec.WaitFor(before + 1);
        player.Stop();
        EXPECT_EQ(player.GetState(), GifAnimation::STATE_STOPPED);
    }
    GifAnimation empty;
    GifPlayer idle(empty);
    EXPECT_TRUE(idle.Play(&rec)); // nothing loaded
    EXPECT_EQ(idle.GetState(), GifAnimation::STATE_IDLE);
}

TEST(GifPlayer, NewBackgroundRestartsThePlayer)
{
    Bytes gif = gif_builder::Header(4, 1);
    gif_builder::GraphicControl(gif, 4, 10, 0);
    Frame(gif, 0, 0, 2, 1, 10); // the right half shows the background
    gif.push_back(0x3B);
    Movie m(gif);
    Recorder rec(m.clock);
    GifPlayer player(m.anim);
    player.SetBackgroundTexture(Texture(TamColor(0x000040u)));
    ASSERT_TRUE(player.Play(&rec));
    rec.WaitFor(1);
    EXPECT_EQ(rec.Shown(0), (std::vector<uint32_t>{10, 10, 0x40, 0x40}));
    player.SetBackgroundTexture(Texture(TamColor(0x0000A0u)));
    EXPECT_EQ(player.GetState(), GifAnimation::STATE_PLAYING);
    rec.WaitFor(rec.Count() + 1);
    player.Stop();
    EXPECT_EQ(rec.shown.back(), (std::vector<uint32_t>{10, 10, 0xA0, 0xA0}));
}

TEST(GifPlayer, FirstFrameLeavesItsTransparentColourOut)
{
    Bytes gif = gif_builder::Header(3, 1);
    gif_builder::GraphicControl(gif, 1, 0, 7); // index 7 is transparent
    gif_builder::Image(gif, 0, 0, 3, 1, 0, 8, gif_builder::Encode(Bytes{7, 30, 7}, 8));
    gif.push_back(0x3B);
    Movie m(gif);
    GifPlayer player(m.anim);
    player.SetBackgroundTexture(Texture(TamColor(0xFF0000u))); // blue
    test::Canvas d(5, 3);
    ASSERT_TRUE(player.DrawFirstFrame(d, TamPoint(1, 1)));
    EXPECT_EQ(d.At(1, 1), 0xFF0000FFu);
    EXPECT_EQ(d.At(2, 1), 0xFF1E1E1Eu);
    EXPECT_EQ(d.At(3, 1), 0xFF0000FFu);
    EXPECT_EQ(d.At(0, 1), 0xFFFFFFFFu); // outside the frame: untouched
    EXPECT_EQ(d.At(1, 0), 0xFFFFFFFFu);

    // Without the transparency flag the frame is drawn opaque.
    Bytes plain = gif_builder::Header(3, 1);
    gif_builder::Image(plain, 0, 0, 3, 1, 0, 8, gif_builder::Encode(Bytes{7, 30, 7}, 8));
    plain.push_back(0x3B);
    Movie p(plain);
    GifPlayer opaque(p.anim);
    ASSERT_TRUE(opaque.DrawFirstFrame(d, TamPoint(1, 1)));
    EXPECT_EQ(d.At(1, 1), 0xFF070707u);

    GifAnimation none;
    GifPlayer nothing(none);
    EXPECT_FALSE(nothing.DrawFirstFrame(d, TamPoint(0, 0)));
}

} // namespace
} // namespace vesk
