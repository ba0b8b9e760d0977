#include <vesk/frame.hpp>

#include <gtest/gtest.h>

#include <cstdlib>

namespace vesk {
namespace {

TEST(LibraryLoader, VersionedPluginReportsItsVersion)
{
    LibraryLoader loader(VESK_PLUGIN_VERSIONED);
    ASSERT_NE(loader.GetHandle(), nullptr);
    int major = 0;
    int minor = 0;
    EXPECT_TRUE(loader.FillVersion(major, minor));
    EXPECT_EQ(major, 3);
    EXPECT_EQ(minor, 14);
    EXPECT_EQ(loader.GetMajorVersion(), 3);
}

TEST(LibraryLoader, PluginWithoutVersionGivesMinusOne)
{
    LibraryLoader loader(VESK_PLUGIN_PLAIN);
    ASSERT_NE(loader.GetHandle(), nullptr);
    int major = 0;
    int minor = 0;
    EXPECT_FALSE(loader.FillVersion(major, minor));
    EXPECT_EQ(major, -1);
    EXPECT_EQ(minor, -1);
    EXPECT_EQ(loader.GetMajorVersion(), -1);
}

TEST(LibraryLoader, BOOLFuncReportsNonZeroResults)
{
    LibraryLoader loader(VESK_PLUGIN_VERSIONED);
    EXPECT_TRUE(loader.BOOLFunc("PluginSaysYes")); // returns 7, not just 1
    EXPECT_FALSE(loader.BOOLFunc("PluginSaysNo"));
    EXPECT_FALSE(loader.BOOLFunc("NoSuchFunction"));
    EXPECT_NE(loader.GetProcAddress("DllGetVersion"), nullptr);
    EXPECT_EQ(loader.GetProcAddress("NoSuchFunction"), nullptr);
}

TEST(LibraryLoader, FailedLoadLeavesAnEmptyLoader)
{
    for (const char* name : {"/nonexistent/libnothing.so", "", static_cast<const char*>(nullptr)}) {
        LibraryLoader loader(name);
        EXPECT_EQ(loader.GetHandle(), nullptr);
        EXPECT_EQ(loader.GetProcAddress("DllGetVersion"), nullptr);
        EXPECT_FALSE(loader.BOOLFunc("PluginSaysYes"));
        int major = 0;
        int minor = 0;
        EXPECT_FALSE(loader.FillVersion(major, minor));
        EXPECT_EQ(major, -1);
        EXPECT_EQ(minor, -1);
    }
}

TEST(LibraryLoader, Kernel32LoaderNamesTheCLibrary)
{
    Kernel32Loader loader;
    ASSERT_NE(loader.GetHandle(), nullptr);
    EXPECT_EQ(loader.GetProcAddress("getenv"), reinterpret_cast<void*>(&::getenv));
}

} // namespace
} // namespace vesk
