#include "support/LinkProbe.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using vesk::Link;
using vesk::MakeLink;

namespace {

struct Counter {
    int64_t Wide(void*) const { return 0x100000005LL; }
    int32_t Twice(void* data) { return 2 * *static_cast<int32_t*>(data); }
};

int32_t Plain(void* object, void* data)
{
    return *static_cast<int32_t*>(object) + *static_cast<int32_t*>(data);
}

} // namespace

TEST(Link, CallsOnlyWhenSetAndKeepsThe32BitResult)
{
    int32_t seven = 7;
    int32_t three = 3;
    EXPECT_FALSE(Link(&seven, nullptr).IsSet());
    EXPECT_EQ(Link(&seven, nullptr).Call(&three), 0);
    EXPECT_EQ(Link(nullptr, &Plain).Call(&three), 0);
    EXPECT_EQ(Link(&seven, &Plain).Call(&three), 10);
    Counter counter;
    const Counter& constant = counter;
    EXPECT_EQ(MakeLink<&Counter::Twice>(&counter).Call(&three), 6);
    EXPECT_EQ(MakeLink<&Counter::Wide>(&constant).Call(nullptr), 5);
    EXPECT_TRUE(MakeLink<&Counter::Twice>(&counter) == MakeLink<&Counter::Twice>(&counter));
}

TEST(Link, OrdersByObjectThenHandler)
{
    int32_t objects[2] = {};
    const Link::Handler other = [](void*, void*) -> int32_t { return 0; };
    const auto address = [](Link::Handler h) { return reinterpret_cast<uintptr_t>(h); };
    const Link::Handler low = address(other) < address(&Plain) ? other : &Plain;
    const Link::Handler high = low == other ? &Plain : other;
    EXPECT_TRUE(Link(&objects[0], high) < Link(&objects[1], low));
    EXPECT_TRUE(Link(&objects[0], low) < Link(&objects[0], high));
    EXPECT_FALSE(Link(&objects[0], low) < Link(&objects[0], low));
    EXPECT_EQ(Link(&objects[0], low).DebugVal(),
              static_cast<int64_t>(reinterpret_cast<uintptr_t>(&objects[0]) + address(low)));
}

// A reader calling the link while another thread clears it sees either the handler's result
// or 0, never a half-cleared link.
TEST(Link, InterlockedClearIsSafeAgainstAConcurrentCall)
{
    int32_t one = 1;
    int32_t zero = 0;
    Link link(&one, &Plain);
    std::atomic<bool> started = false;
    std::atomic<int> bad = 0;
    std::thread reader([&] {
        for (int i = 0; i < 200000; ++i) {
            const int32_t result = link.Call(&zero);
            bad += result != 0 && result != 1;
            started = true;
        }
    });
    while (!started)
        std::this_thread::yield();
    link.InterlockedClear();
    reader.join();
    EXPECT_EQ(bad, 0);
    EXPECT_FALSE(link.IsSet());
    EXPECT_EQ(link.Call(&zero), 0);
}
