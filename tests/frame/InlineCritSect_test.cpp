#include <vesk/frame.hpp>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace vesk {
namespace {

TEST(InlineCritSect, ReentrantAndExclusiveAcrossThreads)
{
    InlineCritSect lock;
    long counter = 0;
    auto work = [&] {
        for (int i = 0; i < 20000; ++i) {
            lock.Lock();
            lock.Lock(); // the holder may enter again
            ++counter;
            lock.Unlock();
            lock.Unlock();
        }
    };
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back(work);
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(counter, 4 * 20000);
}

} // namespace
} // namespace vesk
