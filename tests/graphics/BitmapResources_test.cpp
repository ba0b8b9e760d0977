// Images embedded with vesk_add_image_resources (see tests/CMakeLists.txt).
#include <vesk/files/DirEntry.hpp>
#include <vesk/graphics/Bitmap.hpp>

#include "graphics/BitmapTestImages.hpp"

#include <gtest/gtest.h>

namespace vesk {
namespace {

TEST(BitmapResources, EmbeddedPngsReadLikeTheirFiles)
{
    for (auto [id, name] : {std::pair<unsigned, const char*>{7001, "clip.png"}, {7002, "text.png"}}) {
        Bitmap file;
        file.Load(DirEntry(SString((std::string(VESK_GOLDEN_DIR) + "/" + name).c_str())));
        ASSERT_FALSE(file.Empty()) << name;
        const Bitmap png = Bitmap::FromPngRes(id);
        EXPECT_EQ(test::PixelsOf(png), test::PixelsOf(file)) << name;
        EXPECT_EQ(test::PixelsOf(Bitmap(id)), test::PixelsOf(file)) << name;
    }
    EXPECT_TRUE(Bitmap::FromPngRes(7003).Empty());
    EXPECT_TRUE(Bitmap(7003u).Empty());

    Bitmap withView = Bitmap::BMPFromPngRes(7001);
    EXPECT_TRUE(withView.IsGdiplusBitmap());
    const BitmapPixels view = withView.GetHBitmap(TamColor(0u));
    ASSERT_NE(view.pixels, nullptr);
    EXPECT_EQ(view.pixels[0] >> 24, 255u);
}

// A later table wins over an earlier one; a table that is not PNG still reads through
// Bitmap(id) but not through FromPngRes.
TEST(BitmapResources, LaterRegistrationsWin)
{
    std::vector<uint8_t> tiff;
    ASSERT_TRUE(codecs::kTiffCodec.encode(codecs::PixelImage{1, 1, {0xFF0000FFu}}, tiff));
    static std::vector<uint8_t> kept;
    kept = tiff;
    static const ImageResource table[] = {{7002, nullptr, 0}, {7100, kept.data(), kept.size()}};
    GlRegisterImageResources(table, 2);
    EXPECT_FALSE(Bitmap::FromPngRes(7002).Empty()); // a null entry is passed over
    EXPECT_TRUE(Bitmap::FromPngRes(7100).Empty());
    EXPECT_EQ(test::PixelsOf(Bitmap(7100u)), std::vector<uint32_t>{0xFF0000FFu});
    GlRegisterImageResources(nullptr, 5);
}

} // namespace
} // namespace vesk
