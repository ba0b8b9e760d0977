// Reading and writing image files: round trips through every codec, the extension dispatch,
// damaged input and failed writes.
#include <vesk/files/DirEntry.hpp>
#include <vesk/graphics/Bitmap.hpp>
#include <vesk/zlib.hpp>

#include "graphics/BitmapTestImages.hpp"
#include "graphics/FileBytes.hpp"
#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

namespace vesk {
namespace {

using test::Entry;
using test::PixelsOf;
using test::ReadBytes;
using test::WriteBytes;

Bitmap LoadFile(const std::string& path)
{
    Bitmap b;
    EXPECT_EQ(b.Load(Entry(path)), ERR_OK);
    return b;
}

double Psnr(const Bitmap& a, const Bitmap& b)
{
    const std::vector<uint32_t> pa = PixelsOf(a), pb = PixelsOf(b);
    double sum = 0;
    for (size_t i = 0; i < pa.size(); ++i)
        for (int shift : {0, 8, 16}) {
            const double d = double((pa[i] >> shift) & 0xFF) - double((pb[i] >> shift) & 0xFF);
            sum += d * d;
        }
    const double mse = sum / (3.0 * double(pa.size()));
    return mse == 0 ? 99 : 10 * std::log10(255.0 * 255.0 / mse);
}

TEST(BitmapFile, LosslessFormatsRoundTripEveryPixel)
{
    test::TempDir dir;
    const Bitmap original = test::NoisyBitmap(37, 23);
    for (const char* name : {"a.png", "b.PNG", "c.tif", "d.TIFF"}) {
        const std::string path = dir.File(name);
        Bitmap source = original;
        ASSERT_EQ(source.Save(Entry(path)), ERR_OK) << name;
        const Bitmap back = LoadFile(path);
        EXPECT_EQ(back.GetSize(), TamSize(37, 23)) << name;
        EXPECT_EQ(PixelsOf(back), PixelsOf(original)) << name;
    }
}

// Writing reads the bitmap only: an opaque view (either form) is encoded as opaque pixels and
// gains no picture, and a second save replaces the first file.
TEST(BitmapFile, SavingLeavesTheBitmapAsItWas)
{
    test::TempDir dir;
    const std::string path = dir.File("o.png");
    const uint32_t alpha[2] = {0x80112233u, 0x12445566u};
    ASSERT_EQ(Bitmap(BitmapPixels{2, 1, 0, alpha, false}).Save(Entry(path)), ERR_OK);
    EXPECT_EQ(PixelsOf(LoadFile(path)), (std::vector<uint32_t>{0xFF112233u, 0xFF445566u}));
    const uint32_t pixels[2] = {0x00102030u, 0x00405060u};
    Bitmap opaque(BitmapPixels{2, 1, 0, pixels, true});
    ASSERT_EQ(opaque.Save(Entry(path)), ERR_OK);
    EXPECT_EQ(PixelsOf(LoadFile(path)), (std::vector<uint32_t>{0xFF102030u, 0xFF405060u}));
    ASSERT_EQ(Bitmap::SaveAnimatedGif(Entry(dir.File("o.gif")), {opaque, opaque}, 5), ERR_OK);
    Bitmap keyed = test::NoisyBitmap(2, 1);
    keyed.MakeTransparent(opaque, 0x302010ul);
    EXPECT_EQ(PixelsOf(keyed)[0], 0u);
    EXPECT_FALSE(opaque.IsGdiplusBitmap());

    Bitmap other = test::NoisyBitmap(3, 3);
    ASSERT_EQ(other.Save(Entry(path)), ERR_OK);
    EXPECT_EQ(PixelsOf(LoadFile(path)), PixelsOf(other));
}

TEST(BitmapFile, JpegStaysCloseToTheOriginal)
{
    test::TempDir dir;
    // Smooth opaque content, as photographs are.
    Bitmap original = test::MakeBitmap(64, 48, [](int32_t x, int32_t y) {
        return test::Argb(255, uint32_t(x * 4), uint32_t(y * 5), uint32_t((x + y) * 2));
    });
    for (const char* name : {"a.jpg", "b.JPEG"}) {
        ASSERT_EQ(original.Save(Entry(dir.File(name))), ERR_OK);
        const Bitmap back = LoadFile(dir.File(name));
        ASSERT_EQ(back.GetSize(), TamSize(64, 48));
        EXPECT_GT(Psnr(original, back), 38.0) << name;
    }
    const std::vector<uint8_t> data = original.CreateJPEGData(95);
    ASSERT_GT(data.size(), 3u);
    EXPECT_EQ(data[0], 0xFF);
    Bitmap fromData;
    ASSERT_TRUE(fromData.ConstructFromJPEGData(data));
    EXPECT_GT(Psnr(original, fromData), 40.0);
    EXPECT_LT(original.CreateJPEGData(10).size(), data.size()); // quality reaches the encoder
    EXPECT_TRUE(Bitmap().CreateJPEGData().empty());
}

// The image extensions (jpg, jpeg, png, tif, tiff, gif) sniff the content, so a PNG named
// .jpg still loads; every other extension (here .ico and .dat) reads only BMP.
TEST(BitmapFile, ExtensionChoosesBetweenSniffingAndBmp)
{
    test::TempDir dir;
    Bitmap source = test::NoisyBitmap(5, 4);
    ASSERT_EQ(source.Save(Entry(dir.File("p.png"))), ERR_OK);
    const std::vector<uint8_t> png = ReadBytes(dir.File("p.png"));
    for (const char* name : {"x.jpg", "x.gif", "x.TIF"}) {
        WriteBytes(dir.File(name), png);
        EXPECT_EQ(PixelsOf(LoadFile(dir.File(name))), PixelsOf(source)) << name;
    }
    for (const char* name : {"x.ico", "x.dat"}) {
        WriteBytes(dir.File(name), png);
        EXPECT_TRUE(LoadFile(dir.File(name)).Empty()) << name;
        // ... and writes BMP.
        ASSERT_EQ(source.Save(Entry(dir.File(name))), ERR_OK) << name;
        EXPECT_EQ(ReadBytes(dir.File(name))[0], 'B') << name;
        EXPECT_EQ(PixelsOf(LoadFile(dir.File(name))), PixelsOf(source)) << name;
    }
    ASSERT_EQ(source.Save(Entry(dir.File("f.GIF"))), ERR_OK);
    EXPECT_EQ(ReadBytes(dir.File("f.GIF"))[0], 'G');
    for (const char* ext : {"JpEg", "bmp", "Tif"})
        EXPECT_TRUE(Bitmap::IsValidExtension(ext)) << ext;
    EXPECT_FALSE(Bitmap::IsValidExtension("ico") || Bitmap::IsValidExtension(""));
    EXPECT_EQ(Bitmap::GetEncoderClsid(u"image/png"), ERR_OK);
    EXPECT_EQ(Bitmap::GetEncoderClsid(u"image/tiff"), ERR_OK);
    EXPECT_EQ(Bitmap::GetEncoderClsid(u"image/PNG"), ERR_FAILURE);
    EXPECT_EQ(Bitmap::GetEncoderClsid(u"image/x-icon"), ERR_FAILURE);
}

// Every prefix of a valid file and a file with its middle overwritten must read as an empty
// bitmap or a picture of the right size; never more.
TEST(BitmapFile, DamagedFilesReadAsEmptyBitmaps)
{
    test::TempDir dir;
    Bitmap source = test::NoisyBitmap(40, 30);
    for (const char* name : {"d.png", "d.jpg", "d.tif"}) {
        const std::string path = dir.File(name);
        ASSERT_EQ(source.Save(Entry(path)), ERR_OK);
        const std::vector<uint8_t> whole = ReadBytes(path);
        for (size_t cut : {size_t(0), size_t(3), size_t(8), size_t(20), whole.size() / 2, whole.size() - 1}) {
            WriteBytes(path, std::vector<uint8_t>(whole.begin(), whole.begin() + std::ptrdiff_t(cut)));
            const Bitmap b = LoadFile(path);
            EXPECT_TRUE(b.Empty() || b.GetSize() == TamSize(40, 30)) << name << " cut at " << cut;
        }
        std::vector<uint8_t> damaged = whole;
        for (size_t i = 16; i < damaged.size() && i < 200; ++i)
            damaged[i] = uint8_t(i * 7);
        WriteBytes(path, damaged);
        const Bitmap b = LoadFile(path);
        EXPECT_TRUE(b.Empty() || b.GetSize() == TamSize(40, 30)) << name;
    }
    EXPECT_TRUE(LoadFile(dir.File("missing.png")).Empty());
    EXPECT_TRUE(LoadFile(dir.Path()).Empty()); // a folder
    Bitmap notJpeg;
    EXPECT_FALSE(notJpeg.ConstructFromJPEGData(std::vector<uint8_t>{0xFF, 0xD8, 0xFF, 0xE0}));
    EXPECT_TRUE(notJpeg.Empty());
}

// The header of a 1 x 1 PNG with its size fields (big-endian, bytes 16 to 23) replaced; the
// chunk's checksum is fixed so that only the size can refuse it.
std::vector<uint8_t> PngWithSize(const std::vector<uint8_t>& png, uint32_t w, uint32_t h);

TEST(BitmapFile, HugeHeadersAreRefusedBeforeAllocating)
{
    std::vector<uint8_t> png;
    const codecs::PixelImage one{1, 1, {0xFF102030u}};
    ASSERT_TRUE(codecs::kPngCodec.encode(one, png));
    codecs::PixelImage out;
    for (auto [w, h] : {std::pair<uint32_t, uint32_t>{100000, 100000}, {65536, 65537}, {32768, 1}, {1, 0x7FFFFFFF}}) {
        EXPECT_FALSE(codecs::kPngCodec.decode(PngWithSize(png, w, h), out)) << w << "x" << h;
        EXPECT_TRUE(out.pixels.empty());
    }
    // The same surgery with the true size reads, so the size alone refused the others.
    EXPECT_TRUE(codecs::kPngCodec.decode(PngWithSize(png, 1, 1), out));

    std::vector<uint8_t> tiff;
    ASSERT_TRUE(codecs::kTiffCodec.encode(one, tiff));
    // Little-endian TIFF: the width entry (tag 256) of the first directory becomes a LONG
    // holding 100000.
    ASSERT_EQ(tiff[0], 'I');
    const size_t ifd = tiff[4] | tiff[5] << 8 | tiff[6] << 16 | size_t(tiff[7]) << 24;
    for (size_t i = ifd + 2; i + 12 <= tiff.size() && i < ifd + 2 + 12 * size_t(tiff[ifd]); i += 12)
        if (tiff[i] == 0x00 && tiff[i + 1] == 0x01) {
            const uint8_t entry[10] = {4, 0, 1, 0, 0, 0, 0xA0, 0x86, 0x01, 0x00};
            std::copy(entry, entry + 10, tiff.begin() + std::ptrdiff_t(i + 2));
        }
    EXPECT_FALSE(codecs::kTiffCodec.decode(tiff, out));
    EXPECT_FALSE(codecs::IsAcceptableImageSize(0, 5));
    EXPECT_TRUE(codecs::IsAcceptableImageSize(32767, 2048));
    EXPECT_FALSE(codecs::IsAcceptableImageSize(32767, 2049));
}

std::vector<uint8_t> PngWithSize(const std::vector<uint8_t>& png, uint32_t w, uint32_t h)
{
    std::vector<uint8_t> out = png;
    for (int i = 0; i < 4; ++i) {
        out[16 + i] = uint8_t(w >> (24 - 8 * i));
        out[20 + i] = uint8_t(h >> (24 - 8 * i));
    }
    // CRC-32 over the chunk type and data (bytes 12 to 28), stored after them.
    const uint32_t crc = uint32_t(crc32(0, out.data() + 12, 17));
    for (int i = 0; i < 4; ++i)
        out[29 + i] = uint8_t(crc >> (24 - 8 * i));
    return out;
}

TEST(BitmapFile, FailedSavesLeaveNothingBehind)
{
    test::TempDir dir;
    Bitmap b = test::NoisyBitmap(4, 4);
    if (const std::string locked = test::LockedFolder(dir); !locked.empty()) {
        EXPECT_EQ(b.Save(Entry(locked + "/x.png")), ERR_FAILURE);
        EXPECT_TRUE(std::filesystem::is_empty(locked));
    }
    test::Unlock(dir);

    // A failed save over an existing file keeps the old file whole.
    const std::string path = dir.File("keep.png");
    ASSERT_EQ(b.Save(Entry(path)), ERR_OK);
    const std::vector<uint8_t> before = ReadBytes(path);
    EXPECT_EQ(Bitmap().Save(Entry(path)), ERR_FAILURE);
    EXPECT_EQ(b.Save(Entry(dir.File("no/such/folder.png"))), ERR_FAILURE);
    EXPECT_EQ(ReadBytes(path), before);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.Path()), {}), 2); // locked, keep.png
}

// Files of 16 MiB and more are mapped instead of read; the picture is the same. JPEG and TIFF
// readers ignore what follows the image.
TEST(BitmapFile, LargeFilesReadThroughTheMapping)
{
    test::TempDir dir;
    Bitmap source = test::NoisyBitmap(9, 7);
    for (const char* name : {"big.tif", "big.jpg"}) {
        const std::string path = dir.File(name);
        ASSERT_EQ(source.Save(Entry(path)), ERR_OK);
        const std::vector<uint32_t> small = PixelsOf(LoadFile(path));
        ASSERT_FALSE(small.empty());
        std::filesystem::resize_file(path, 16 * 1024 * 1024 + 1);
        EXPECT_EQ(PixelsOf(LoadFile(path)), small) << name;
    }
}

} // namespace
} // namespace vesk
