// The animation window: sized to its first frame, painted with its border and first frame,
// played into the window from the player thread, stopped and destroyed while playing.
#include "WindowFixture.hpp"
#include "graphics/gif_builder.hpp"
#include "support/TempDir.hpp"

#include <vesk/files/DirEntry.hpp>


#include <chrono>
#include <fstream>
#include <thread>

using namespace vesk;
using namespace vesk::test;

namespace {

using gif_builder::Bytes;

class SteppingClock final : public GifClock
{
public:
    uint64_t GetTicks() override { return now.load(); }
    void Sleep(uint32_t ms) override
    {
        now += ms;
        std::this_thread::yield();
    }
    std::atomic<uint64_t> now{0};
};

class AnimatedGifTest : public WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        ASSERT_TRUE(frame.Create(WndKind::TopLevel, nullptr, TamPoint(0, 0), TamSize(60, 40)));
        parent.SetAsWrap(&frame);
        frame.ShowWindow(SW_SHOW);
        // Two 4 x 2 frames of grey 40 and grey 200 (index i is grey i).
        Bytes gif = gif_builder::Header(4, 2);
        for (uint8_t grey : {40, 200}) {
            gif_builder::GraphicControl(gif, 4, 10, 0);
            gif_builder::Image(gif, 0, 0, 4, 2, 0, 8, gif_builder::Encode(Bytes(8, grey), 8));
        }
        gif.push_back(0x3B);
        std::ofstream(dir.File("spin.anm"), std::ios::binary)
            .write(reinterpret_cast<const char*>(gif.data()), static_cast<std::streamsize>(gif.size()));
    }
    void TearDown() override
    {
        frame.DestroyWindow();
        WindowTest::TearDown();
    }
    // Waits (pumping messages) until the pixel shows `argb`; false after two seconds.
    static bool WaitForPixel(NativeWindow window, int x, int y, uint32_t argb)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(2);
        while (ShownPixel(window, x, y) != argb) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            PumpMessages();
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return true;
    }

    CWnd frame;
    Window parent;
    TempDir dir;
    SteppingClock clock;
};

TEST_F(AnimatedGifTest, SizedToTheFirstFramePaintedWithItsBorder)
{
    AnimatedGif anim(&parent, 2, TamPoint(5, 6));
    EXPECT_EQ(anim.Load(DirEntry(SString(dir.File("missing.gif").c_str()))), 0);
    ASSERT_EQ(anim.Load(DirEntry(SString(dir.File("spin.gif").c_str()))), 1);
    CWnd* wnd = anim.GetCWnd();
    ASSERT_NE(wnd, nullptr);
    EXPECT_EQ(wnd->GetClientSize(), TamSize(8, 6)); // 4 x 2 and a border of 2 around
    const CRectangle box = wnd->GetWindowRect(), outer = frame.GetWindowRect();
    EXPECT_EQ(box.Left() - outer.Left(), 5);
    EXPECT_EQ(box.Top() - outer.Top(), 6);
    wnd->ShowWindow(SW_SHOW);
    PumpMessages();
    const NativeWindow h = anim.GetHandle();
    EXPECT_EQ(ShownPixel(h, 0, 0), 0xFF808080u); // sunken: dark on the top and left
    EXPECT_EQ(ShownPixel(h, 7, 5), 0xFFFFFFFFu);
    EXPECT_EQ(ShownPixel(h, 2, 2), 0xFF282828u); // the first frame, grey 40
    EXPECT_EQ(ShownPixel(h, 5, 3), 0xFF282828u);
}

TEST_F(AnimatedGifTest, PlaysIntoTheWindowFromItsThreadAndStops)
{
    AnimatedGif anim(&parent, 1);
    anim.GetAnimation().SetClock(&clock);
    EXPECT_TRUE(anim.Play()); // nothing loaded: nothing happens
    EXPECT_EQ(anim.GetState(), GifAnimation::STATE_IDLE);
    ASSERT_EQ(anim.Load(DirEntry(SString(dir.File("spin.anm").c_str()))), 1);
    anim.GetCWnd()->ShowWindow(SW_SHOW);
    PumpMessages();
    const NativeWindow h = anim.GetHandle();
    ASSERT_TRUE(anim.Play());
    EXPECT_FALSE(anim.Play()); // the loop is running
    // Both frames reach the window, inside the border.
    EXPECT_TRUE(WaitForPixel(h, 1, 1, 0xFFC8C8C8u));
    EXPECT_TRUE(WaitForPixel(h, 4, 2, 0xFF282828u));
    // Repainting while playing leaves the picture to the player.
    anim.Invalidate();
    PumpMessages();
    anim.Stop();
    EXPECT_EQ(anim.GetState(), GifAnimation::STATE_STOPPED);
    // A new background restarts nothing while stopped; a stopped window paints its first frame.
    anim.SetBackgroundTexture(Texture(TamColor(0x0000FFu)));
    EXPECT_EQ(anim.GetState(), GifAnimation::STATE_STOPPED);
    while (anim.IsPlaying())
        std::this_thread::yield();
    anim.Invalidate();
    EXPECT_TRUE(WaitForPixel(h, 1, 1, 0xFF282828u));
}

TEST_F(AnimatedGifTest, DestroyedWhilePlaying)
{
    for (int i = 0; i < 3; ++i) {
        auto anim = std::make_unique<AnimatedGif>(&parent, 0);
        anim->GetAnimation().SetClock(&clock);
        ASSERT_EQ(anim->Load(DirEntry(SString(dir.File("spin.anm").c_str()))), 1);
        anim->GetCWnd()->ShowWindow(SW_SHOW);
        ASSERT_TRUE(anim->Play());
        std::this_thread::sleep_for(std::chrono::milliseconds(i));
        anim.reset(); // stops the player, then the window goes
    }
    PumpMessages();
}

} // namespace
