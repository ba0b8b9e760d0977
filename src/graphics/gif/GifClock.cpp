#include <vesk/graphics/GifAnimation.hpp>
#include "platform/clock.hpp"

#include <chrono>
#include <thread>

namespace vesk {

GifClock::~GifClock() = default;

namespace {

class SystemGifClock final : public GifClock {
public:
    uint64_t GetTicks() override
    {
        return static_cast<uint64_t>(platform::TickCountMs());
    }
    void Sleep(uint32_t milliseconds) override { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }
};

} // namespace

GifClock& GifClock::System()
{
    static SystemGifClock clock;
    return clock;
}

uint64_t GifAnimation::WaitFrameDelay(GifClock& clock, uint64_t startTicks, uint32_t delayMs, const std::atomic<int>& state)
{
    // The first test compares the start with itself, so at least one step is always slept;
    // the coarse 100 ms steps are deliberate.
    uint64_t now = startTicks;
    while (now - startTicks < delayMs && state.load() != STATE_STOP_REQUESTED) {
        clock.Sleep(100);
        now = clock.GetTicks();
    }
    return now - startTicks;
}

} // namespace vesk
