#include <vesk/frame.hpp>

#include <gtest/gtest.h>

#include <cstdlib>
#include <atomic>
#include <chrono>
#include <thread>

namespace vesk {
namespace {

TEST(LibraryLoader, VersionAndFunctionsOfPlugins)
{
    LibraryLoader versioned(VESK_PLUGIN_VERSIONED);
    int major = 0;
    int minor = 0;
    EXPECT_TRUE(versioned.FillVersion(major, minor));
    EXPECT_EQ(major, 3);
    EXPECT_EQ(minor, 14);
    EXPECT_TRUE(versioned.BOOLFunc("PluginSaysYes")); // returns 7, not just 1
    EXPECT_FALSE(versioned.BOOLFunc("PluginSaysNo"));
    EXPECT_FALSE(versioned.BOOLFunc("NoSuchFunction"));

    LibraryLoader plain(VESK_PLUGIN_PLAIN);
    ASSERT_NE(plain.GetHandle(), nullptr);
    EXPECT_FALSE(plain.FillVersion(major, minor));
    EXPECT_EQ(major, -1);
    EXPECT_EQ(minor, -1);
}

TEST(LibraryLoader, FailedLoadLeavesAnEmptyLoader)
{
    for (const char* name : {"/nonexistent/libnothing.so", "", static_cast<const char*>(nullptr)}) {
        LibraryLoader loader(name);
        EXPECT_EQ(loader.GetHandle(), nullptr);
        EXPECT_EQ(loader.GetProcAddress("DllGetVersion"), nullptr);
        EXPECT_FALSE(loader.BOOLFunc("PluginSaysYes"));
        EXPECT_EQ(loader.GetMajorVersion(), -1);
    }
    Kernel32Loader libc;
    EXPECT_EQ(libc.GetProcAddress("getenv"), reinterpret_cast<void*>(&::getenv));
}

TEST(InlineCritSect, HolderMayEnterAgainAndExcludesOthers)
{
    InlineCritSect lock;
    lock.Lock();
    lock.Lock();
    lock.Unlock();
    std::atomic<bool> entered = false;
    std::thread other([&] {
        lock.Lock(); // waits for the last Unlock below
        entered = true;
        lock.Unlock();
    });
    // Still held once: the other thread must not get in, however long it is given.
    for (int i = 0; i < 20 && !entered; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_FALSE(entered);
    lock.Unlock();
    other.join();
    EXPECT_TRUE(entered);
}

} // namespace
} // namespace vesk
