// The Bitmap entry points of the BMP, GIF, icon and animated-GIF writers: what reaches the
// file, the extension rules and the failure values. The byte layouts themselves are checked
// by the codec tests.
#include <vesk/files/DirEntry.hpp>
#include <vesk/graphics/Bitmap.hpp>

#include "graphics/BitmapTestImages.hpp"
#include "support/TempDir.hpp"

#include <gif_lib.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <cstring>
#include <iterator>
#include <memory>

#include <unistd.h>

namespace vesk {
namespace {

DirEntry Entry(const std::string& path)
{
    return DirEntry(SString(path.c_str()));
}

std::vector<uint8_t> ReadBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::vector<uint8_t>(std::istreambuf_iterator<char>(in), {});
}

uint32_t Le32(const std::vector<uint8_t>& b, size_t at)
{
    return b[at] | b[at + 1] << 8 | b[at + 2] << 16 | uint32_t(b[at + 3]) << 24;
}

// A folder the test cannot write into; empty when the process may write anywhere (root).
std::string LockedFolder(const test::TempDir& dir)
{
    const std::string locked = dir.File("locked");
    std::filesystem::create_directory(locked);
    std::filesystem::permissions(locked, std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    return ::access(locked.c_str(), W_OK) == 0 ? std::string() : locked;
}

TEST(BitmapWriters, BmpAndGifRoundTrip)
{
    test::TempDir dir;
    Bitmap noisy = test::NoisyBitmap(13, 6);
    for (const char* name : {"a.bmp", "a.ico", "a.dat"}) { // anything but the image extensions is BMP
        ASSERT_EQ(noisy.Save(Entry(dir.File(name))), ERR_OK) << name;
        EXPECT_EQ(ReadBytes(dir.File(name))[0], 'B') << name;
        Bitmap back;
        back.Load(Entry(dir.File(name)));
        EXPECT_EQ(test::PixelsOf(back), test::PixelsOf(noisy)) << name;
    }
    Bitmap few = test::MakeBitmap(8, 5, [](int32_t x, int32_t y) { return test::Argb(255, x % 2 ? 255u : 0u, uint32_t(y * 60), 9); });
    ASSERT_EQ(few.Save(Entry(dir.File("f.GIF"))), ERR_OK);
    Bitmap back;
    back.Load(Entry(dir.File("f.GIF")));
    EXPECT_EQ(test::PixelsOf(back), test::PixelsOf(few));
}

TEST(BitmapWriters, IconFileOfASixteenPixelPicture)
{
    test::TempDir dir;
    Bitmap icon = test::MakeBitmap(16, 16, [](int32_t x, int32_t) { return x == 0 ? test::Argb(255, 255, 0, 255) : test::Argb(255, 1, 2, 3); });
    ASSERT_TRUE(icon.SaveAsIcon(Entry(dir.File("i.ico"))));
    const std::vector<uint8_t> bytes = ReadBytes(dir.File("i.ico"));
    // Header, directory entry, image header, 16 x 16 x 4 colour bytes, 16 rows of 4 mask bytes.
    ASSERT_EQ(bytes.size(), 6u + 16 + 40 + 1024 + 64);
    EXPECT_EQ(Le32(bytes, 6 + 12), 22u);          // image offset
    EXPECT_EQ(Le32(bytes, 22 + 8), 32u);          // height field: twice the height
    EXPECT_EQ(Le32(bytes, 62), 0u);               // a magenta word is written as 0
    EXPECT_EQ(Le32(bytes, 66), 0xFF010203u);

    EXPECT_TRUE(Bitmap().SaveAsIcon(Entry(dir.File("none.ico")))); // nothing to write
    EXPECT_FALSE(std::filesystem::exists(dir.File("none.ico")));
    if (const std::string locked = LockedFolder(dir); !locked.empty()) {
        EXPECT_FALSE(icon.SaveAsIcon(Entry(locked + "/i.ico")));
        EXPECT_TRUE(std::filesystem::is_empty(locked));
    }
    std::filesystem::permissions(dir.File("locked"), std::filesystem::perms::owner_all);
}

struct GifCloser
{
    void operator()(GifFileType* gif) const
    {
        int error = 0;
        DGifCloseFile(gif, &error);
    }
};

TEST(BitmapWriters, AnimatedGifReadsBackThroughGiflib)
{
    test::TempDir dir;
    std::vector<Bitmap> frames;
    for (int i = 0; i < 3; ++i) {
        frames.push_back(test::MakeBitmap(12, 9, [i](int32_t x, int32_t y) {
            return test::Argb(255, uint32_t(x * 20 + i * 30), uint32_t(y * 25), uint32_t(i * 80));
        }));
        if (i == 1)
            frames.push_back(Bitmap()); // skipped
    }
    // The extension becomes "gif".
    ASSERT_EQ(Bitmap::SaveAnimatedGif(Entry(dir.File("anim.png")), frames, 10), ERR_OK);
    EXPECT_FALSE(std::filesystem::exists(dir.File("anim.png")));
    int error = 0;
    std::unique_ptr<GifFileType, GifCloser> gif(DGifOpenFileName(dir.File("anim.gif").c_str(), &error));
    ASSERT_TRUE(gif);
    ASSERT_EQ(DGifSlurp(gif.get()), GIF_OK);
    ASSERT_EQ(gif->ImageCount, 3);
    for (int i = 0; i < gif->ImageCount; ++i) {
        GraphicsControlBlock gcb;
        ASSERT_EQ(DGifSavedExtensionToGCB(gif.get(), i, &gcb), GIF_OK);
        EXPECT_EQ(gcb.DelayTime, 10) << i;
        const ColorMapObject* map = gif->SavedImages[i].ImageDesc.ColorMap ? gif->SavedImages[i].ImageDesc.ColorMap : gif->SColorMap;
        ASSERT_NE(map, nullptr);
        EXPECT_LE(map->ColorCount, 256);
    }
    bool loop = false;
    for (int i = 0; i + 1 < gif->SavedImages[0].ExtensionBlockCount; ++i) {
        const ExtensionBlock& b = gif->SavedImages[0].ExtensionBlocks[i];
        const ExtensionBlock& next = gif->SavedImages[0].ExtensionBlocks[i + 1];
        if (b.Function == APPLICATION_EXT_FUNC_CODE && b.ByteCount == 11 && std::memcmp(b.Bytes, "NETSCAPE2.0", 11) == 0)
            loop = next.ByteCount == 3 && next.Bytes[1] == 0 && next.Bytes[2] == 0;
    }
    EXPECT_TRUE(loop);

    EXPECT_EQ(Bitmap::SaveAnimatedGif(Entry(dir.File("none.gif")), {}, 10), ERR_FAILURE);
    EXPECT_EQ(Bitmap::SaveAnimatedGif(Entry(dir.File("first.gif")), {Bitmap(), frames[0]}, 10), ERR_FAILURE);
    EXPECT_FALSE(std::filesystem::exists(dir.File("none.gif")));
    EXPECT_FALSE(std::filesystem::exists(dir.File("first.gif")));
    if (const std::string locked = LockedFolder(dir); !locked.empty()) {
        EXPECT_EQ(Bitmap::SaveAnimatedGif(Entry(locked + "/a.gif"), frames, 10), ERR_FAILURE);
        EXPECT_TRUE(std::filesystem::is_empty(locked));
    }
    std::filesystem::permissions(dir.File("locked"), std::filesystem::perms::owner_all);
}

} // namespace
} // namespace vesk
