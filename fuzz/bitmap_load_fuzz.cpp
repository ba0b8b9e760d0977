// Reads any bytes as an image file through Bitmap::Load: the first byte picks the extension
// (png, jpg, tif, gif, bmp and one that is none of them), the rest is the file. A picture that
// loads must have an acceptable size and be readable to its last pixel; the same bytes given
// as memory must read the same.
#include <vesk/files/DirEntry.hpp>
#include <vesk/graphics/Bitmap.hpp>

#include "graphics/codecs/ImageCodec_p.hpp"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <unistd.h>

using namespace vesk;

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

const std::string& Folder()
{
    static const std::string folder = [] {
        char name[] = "/tmp/vesk-bitmap-fuzz-XXXXXX";
        Require(::mkdtemp(name) != nullptr);
        return std::string(name);
    }();
    return folder;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    static const char* const kExtensions[] = {"png", "jpg", "tif", "gif", "bmp", "dat"};
    const std::string path = Folder() + "/input." + kExtensions[data[0] % 6];
    FILE* file = std::fopen(path.c_str(), "wb");
    Require(file != nullptr);
    Require(std::fwrite(data + 1, 1, size - 1, file) == size - 1 || size == 1);
    std::fclose(file);

    Bitmap bitmap;
    Require(bitmap.Load(DirEntry(SString(path.c_str()))) == ERR_OK);
    const BitmapPixels picture = bitmap.GetPGdiplusBitmap();
    if (picture.pixels) {
        Require(codecs::IsAcceptableImageSize(picture.width, picture.height));
        volatile uint32_t sink = picture.pixels[size_t(picture.width) * size_t(picture.height) - 1];
        (void)sink;
    }
    Bitmap memory;
    memory.ConstructFromJPEGData({data + 1, size - 1});
    if (data[0] % 6 < 4)
        Require(memory.GetSize() == bitmap.GetSize());
    ::unlink(path.c_str());
    return 0;
}
