// The Bitmap entry points of the icon and animated-GIF writers: the extension rule, skipped
// frames and the failure values. The byte layouts themselves are checked by the codec tests.
#include <vesk/files/DirEntry.hpp>
#include <vesk/graphics/Bitmap.hpp>

#include "graphics/BitmapTestImages.hpp"
#include "graphics/FileBytes.hpp"
#include "support/TempDir.hpp"

#include <gif_lib.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace vesk {
namespace {

using test::Entry;
using test::LockedFolder;

TEST(BitmapWriters, IconFileFailureValues)
{
    test::TempDir dir;
    Bitmap icon = test::NoisyBitmap(16, 16);
    ASSERT_TRUE(icon.SaveAsIcon(Entry(dir.File("i.ico"))));
    EXPECT_FALSE(test::ReadBytes(dir.File("i.ico")).empty());
    EXPECT_TRUE(Bitmap().SaveAsIcon(Entry(dir.File("none.ico")))); // nothing to write
    EXPECT_FALSE(std::filesystem::exists(dir.File("none.ico")));
    if (const std::string locked = LockedFolder(dir); !locked.empty()) {
        EXPECT_FALSE(icon.SaveAsIcon(Entry(locked + "/i.ico")));
        EXPECT_TRUE(std::filesystem::is_empty(locked));
    }
    test::Unlock(dir);
}

TEST(BitmapWriters, AnimatedGifNamingSkippingAndFailures)
{
    test::TempDir dir;
    std::vector<Bitmap> frames;
    for (int i = 0; i < 3; ++i) {
        frames.push_back(test::NoisyBitmap(12, 9));
        if (i == 1)
            frames.push_back(Bitmap()); // skipped
    }
    // The extension becomes "gif".
    ASSERT_EQ(Bitmap::SaveAnimatedGif(Entry(dir.File("anim.png")), frames, 10), ERR_OK);
    EXPECT_FALSE(std::filesystem::exists(dir.File("anim.png")));
    int error = 0;
    const test::GifFilePtr gif(DGifOpenFileName(dir.File("anim.gif").c_str(), &error));
    ASSERT_TRUE(gif);
    ASSERT_EQ(DGifSlurp(gif.get()), GIF_OK);
    EXPECT_EQ(gif->ImageCount, 3);

    EXPECT_EQ(Bitmap::SaveAnimatedGif(Entry(dir.File("none.gif")), {}, 10), ERR_FAILURE);
    EXPECT_EQ(Bitmap::SaveAnimatedGif(Entry(dir.File("first.gif")), {Bitmap(), frames[0]}, 10), ERR_FAILURE);
    EXPECT_FALSE(std::filesystem::exists(dir.File("none.gif")));
    EXPECT_FALSE(std::filesystem::exists(dir.File("first.gif")));
    if (const std::string locked = LockedFolder(dir); !locked.empty()) {
        EXPECT_EQ(Bitmap::SaveAnimatedGif(Entry(locked + "/a.gif"), frames, 10), ERR_FAILURE);
        EXPECT_TRUE(std::filesystem::is_empty(locked));
    }
    test::Unlock(dir);
}

} // namespace
} // namespace vesk
