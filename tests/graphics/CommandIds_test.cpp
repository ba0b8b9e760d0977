// The tool-bar command list: capacity, tool tips, image indexes and the screen scale; and the
// library state's dither patterns.
#include <vesk/frame/VeskData.hpp>
#include <vesk/graphics/BrushBitmaps.hpp>
#include <vesk/graphics/CommandIds.hpp>

#include "graphics/BitmapTestImages.hpp"
#include "support/EnvGuard.hpp"

#include <gtest/gtest.h>

#include <string>

namespace vesk {
namespace {

class LibraryAt
{
public:
    explicit LibraryAt(const char* dpi) : m_guard("VESK_DPI", dpi) { VeskInit(); }
    ~LibraryAt() { VeskExit(); }

private:
    test::EnvGuard m_guard;
};

TEST(CommandIds, EntriesToolTipsAndImageIndexes)
{
    LibraryAt library("96");
    CommandIds ids(3);
    EXPECT_EQ(ids.GetScale(), 1.0);
    const Bitmap icon = test::NoisyBitmap(16, 16);
    ids.Add(101, u"Open", icon, u"");
    ids.Add(102, u"Save", Bitmap(), u"Save the file");
    ids.AddSeparator();
    ids.Add(103, u"Full", icon, u"");
    EXPECT_EQ(ids.Count(), 3u); // the fourth entry is past the capacity
    EXPECT_EQ(ids[2], CommandIds::NONE);
    EXPECT_EQ(ids[3], CommandIds::NONE);
    EXPECT_EQ(ids.GetToolTipText(0), UString(u"Open"));
    EXPECT_EQ(ids.GetToolTipText(1), UString(u"Save the file"));
    EXPECT_EQ(ids.GetString(2), UString(u"$sep$"));
    EXPECT_EQ(ids.GetString(7), UString());
    EXPECT_EQ(ids.GetBitmapId(0), 0u);
    EXPECT_EQ(ids.GetBitmapId(1), CommandIds::NONE);
    EXPECT_EQ(ids.GetBitmapId(2), CommandIds::NONE);
    EXPECT_EQ(ids.GetImageList().Count(), 1u);
    EXPECT_EQ(ids.GetImageList().GetBitmap(0), icon); // unscaled: the same picture
    EXPECT_EQ(ids.GetImageList().GetTransparentColor(0), TamColor(0xFFFFFFu));
    EXPECT_EQ(ids.AddReserve(icon), 2u);
    EXPECT_EQ(ids.AddReserve(Bitmap()), 0u);

    const char16_t* list = ids.GetPWinStringList();
    const std::u16string expected(u"Open\0Save\0$sep$\0\0", 18);
    EXPECT_EQ(std::u16string(list, expected.size()), expected);

    CommandIds copy(ids);
    copy.SetString(0, u"Other");
    EXPECT_EQ(ids.GetString(0), UString(u"Open"));
    EXPECT_EQ(copy.GetBitmapId(0), 0u);
}

TEST(CommandIds, ImagesAreEnlargedAbove120Percent)
{
    const uint32_t pixels[4] = {1, 2, 3, 4};
    const struct { const char* dpi; double scale; int32_t side; } cases[] = {
        {"96", 1.0, 10}, {"115", 1.2, 10}, {"120", 1.25, 13}, {"144", 1.5, 15}, {"97", 1.01, 10},
    };
    for (const auto& c : cases) {
        LibraryAt library(c.dpi);
        CommandIds ids(4);
        EXPECT_DOUBLE_EQ(ids.GetScale(), c.scale) << c.dpi;
        ids.Add(1, u"a", test::NoisyBitmap(10, 10));
        ids.Add(2, u"b", Bitmap(BitmapPixels{2, 2, 0, pixels, true}).StretchHQ(FSize(10, 10)));
        const Bitmap opaque(BitmapPixels{2, 2, 0, pixels, true});
        ids.AddReserve(opaque);
        EXPECT_EQ(ids.GetImageList().GetBitmap(0).GetSize(), TamSize(c.side, c.side)) << c.dpi;
        const int32_t small = c.scale > 1.2 ? int32_t(2 * c.scale + 0.5) : 2;
        EXPECT_EQ(ids.GetImageList().GetBitmap(2).GetSize(), TamSize(small, small)) << c.dpi;
        // Opaque views are keyed on magenta, pictures on white.
        EXPECT_EQ(ids.GetImageList().GetTransparentColor(2), TamColor(0xFF00FFu));
    }
}

TEST(CommandIds, SetScaleEnlargesReservedImages)
{
    LibraryAt library("96");
    CommandIds ids(1);
    const uint32_t pixels[4] = {0x102030, 0x405060, 0x708090, 0xA0B0C0};
    const Bitmap opaque(BitmapPixels{2, 2, 0, pixels, true});
    const Bitmap picture = test::NoisyBitmap(10, 6);
    ids.SetScale(2.5);
    ids.AddReserve(opaque);
    ids.AddReserve(picture);
    Bitmap doubled = ids.GetImageList().GetBitmap(0);
    ASSERT_EQ(doubled.GetSize(), TamSize(5, 5));
    // An opaque view is scaled pixel by pixel: the corners keep their colours exactly.
    EXPECT_EQ(doubled.GetHBitmap().pixels[0] & 0xFFFFFF, 0x102030u);
    EXPECT_EQ(doubled.GetHBitmap().pixels[24] & 0xFFFFFF, 0xA0B0C0u);
    EXPECT_EQ(ids.GetImageList().GetBitmap(1).GetSize(), TamSize(25, 15));
    ids.SetScale(1.2); // not above 1.2: added as it is
    ids.AddReserve(picture);
    EXPECT_EQ(ids.GetImageList().GetBitmap(2), picture);
    ids.SetScale(1e12); // a size that cannot be held adds an empty image, without overflow
    EXPECT_EQ(ids.AddReserve(opaque), 4u);
    EXPECT_TRUE(ids.GetImageList().GetBitmap(3).Empty());
}

TEST(BrushBitmaps, DitherPatterns)
{
    EXPECT_TRUE(GetBrushBitmap(BRUSHBITMAP_LIGHT).Empty()); // no library state
    LibraryAt library("96");
    Bitmap light = GetBrushBitmap(BRUSHBITMAP_LIGHT);
    Bitmap sparse = GetBrushBitmap(BRUSHBITMAP_SPARSE);
    ASSERT_EQ(light.GetSize(), TamSize(8, 8));
    EXPECT_EQ(light, GetBrushBitmap(BRUSHBITMAP_LIGHT)); // kept by the library state
    auto bits = [](Bitmap& b, int y) {
        const BitmapPixels p = b.GetHBitmap();
        unsigned row = 0;
        for (int x = 0; x < 8; ++x)
            row = row << 1 | (p.pixels[y * p.stride + x] == 0xFFFFFFFFu);
        return row;
    };
    for (int y = 0; y < 8; ++y) {
        EXPECT_EQ(bits(light, y), y % 2 ? 0xAAu : 0x55u) << y;
        EXPECT_EQ(bits(sparse, y), y % 2 ? 0x22u : 0x88u) << y;
    }
    CreateBrushBitmaps();
    EXPECT_NE(light, GetBrushBitmap(BRUSHBITMAP_LIGHT));
    EXPECT_TRUE(GetBrushBitmap(BrushBitmapKind(2)).Empty());
}

} // namespace
} // namespace vesk
