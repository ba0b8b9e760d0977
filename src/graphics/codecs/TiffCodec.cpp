#include "graphics/codecs/ImageCodec_p.hpp"

#include <tiffio.h>

#include <algorithm>
#include <cstring>

namespace vesk::codecs {

namespace {

// libtiff reads and writes through client procedures; this is the file they see: bytes in
// memory, read-only (`input`) or growing (`output`).
struct MemoryFile
{
    std::span<const uint8_t> input;
    std::vector<uint8_t>* output = nullptr;
    size_t start = 0; // where the file begins in *output
    uint64_t position = 0;

    uint64_t Size() const { return output ? output->size() - start : input.size(); }
};

MemoryFile& FileOf(thandle_t handle)
{
    return *static_cast<MemoryFile*>(handle);
}

tmsize_t ReadProc(thandle_t handle, void* buffer, tmsize_t size)
{
    MemoryFile& f = FileOf(handle);
    if (size <= 0 || f.position >= f.Size())
        return 0;
    const uint64_t n = std::min<uint64_t>(uint64_t(size), f.Size() - f.position);
    const uint8_t* base = f.output ? f.output->data() + f.start : f.input.data();
    std::memcpy(buffer, base + f.position, size_t(n));
    f.position += n;
    return tmsize_t(n);
}

tmsize_t WriteProc(thandle_t handle, void* buffer, tmsize_t size)
{
    MemoryFile& f = FileOf(handle);
    if (!f.output || size < 0)
        return -1;
    const uint64_t end = f.position + uint64_t(size);
    if (end > uint64_t(kMaxImagePixels) * 8)
        return -1;
    if (f.start + end > f.output->size())
        f.output->resize(size_t(f.start + end));
    std::memcpy(f.output->data() + f.start + f.position, buffer, size_t(size));
    f.position = end;
    return size;
}

toff_t SeekProc(thandle_t handle, toff_t offset, int whence)
{
    MemoryFile& f = FileOf(handle);
    const int64_t base = whence == SEEK_CUR ? int64_t(f.position) : whence == SEEK_END ? int64_t(f.Size()) : 0;
    const int64_t target = base + int64_t(offset);
    if (target < 0)
        return toff_t(-1);
    f.position = uint64_t(target);
    return f.position;
}

int CloseProc(thandle_t)
{
    return 0;
}

toff_t SizeProc(thandle_t handle)
{
    return FileOf(handle).Size();
}

int MapProc(thandle_t, void**, toff_t*)
{
    return 0;
}

void UnmapProc(thandle_t, void*, toff_t) {}

// Damaged files are normal input here: libtiff's messages are dropped.
int Silent(TIFF*, void*, const char*, const char*, va_list)
{
    return 1;
}

TIFF* OpenMemory(MemoryFile& file, const char* mode)
{
    TIFFOpenOptions* options = TIFFOpenOptionsAlloc();
    TIFFOpenOptionsSetErrorHandlerExtR(options, Silent, nullptr);
    TIFFOpenOptionsSetWarningHandlerExtR(options, Silent, nullptr);
    TIFF* tif = TIFFClientOpenExt("memory", mode, &file, ReadProc, WriteProc, SeekProc, CloseProc,
                                  SizeProc, MapProc, UnmapProc, options);
    TIFFOpenOptionsFree(options);
    return tif;
}

bool SniffTiff(std::span<const uint8_t> head)
{
    return head.size() >= 4 && ((head[0] == 'I' && head[1] == 'I' && head[2] == 42 && head[3] == 0) ||
                                (head[0] == 'M' && head[1] == 'M' && head[2] == 0 && head[3] == 42));
}

// libtiff's RGBA reader converts every photometric kind and premultiplies unassociated alpha;
// it packs red in the low byte, so red and blue trade places for the picture form.
bool DecodeTiff(std::span<const uint8_t> data, PixelImage& image)
{
    image = PixelImage();
    MemoryFile file{data};
    TIFF* tif = OpenMemory(file, "rm");
    if (!tif)
        return false;
    uint32_t width = 0, height = 0;
    bool ok = TIFFGetField(tif, TIFFTAG_IMAGEWIDTH, &width) == 1 &&
              TIFFGetField(tif, TIFFTAG_IMAGELENGTH, &height) == 1 && IsAcceptableImageSize(width, height);
    if (ok) {
        image.pixels.resize(size_t(width) * height);
        ok = TIFFReadRGBAImageOriented(tif, width, height, image.pixels.data(), ORIENTATION_TOPLEFT, 1) == 1;
    }
    TIFFClose(tif);
    if (!ok) {
        image = PixelImage();
        return false;
    }
    image.width = int32_t(width);
    image.height = int32_t(height);
    for (uint32_t& p : image.pixels) {
        const uint32_t a = p >> 24;
        const uint32_t r = std::min(p & 0xFF, a), g = std::min((p >> 8) & 0xFF, a),
                       b = std::min((p >> 16) & 0xFF, a);
        p = a << 24 | r << 16 | g << 8 | b;
    }
    return true;
}

// RGBA with associated alpha: the premultiplied words are stored as they are, so a picture
// reads back bit for bit. LZW-compressed, one strip per 64 KiB or so.
bool WriteTiff(TIFF* tif, const PixelImage& image)
{
    const uint16_t extra[1] = {EXTRASAMPLE_ASSOCALPHA};
    TIFFSetField(tif, TIFFTAG_IMAGEWIDTH, uint32_t(image.width));
    TIFFSetField(tif, TIFFTAG_IMAGELENGTH, uint32_t(image.height));
    TIFFSetField(tif, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tif, TIFFTAG_SAMPLESPERPIXEL, 4);
    TIFFSetField(tif, TIFFTAG_EXTRASAMPLES, 1, extra);
    TIFFSetField(tif, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tif, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tif, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
    TIFFSetField(tif, TIFFTAG_ROWSPERSTRIP, TIFFDefaultStripSize(tif, 0));
    std::vector<uint8_t> row(size_t(image.width) * 4);
    for (int32_t y = 0; y < image.height; ++y) {
        const uint32_t* in = image.pixels.data() + size_t(y) * image.width;
        for (int32_t x = 0; x < image.width; ++x) {
            row[4 * x] = uint8_t(in[x] >> 16);
            row[4 * x + 1] = uint8_t(in[x] >> 8);
            row[4 * x + 2] = uint8_t(in[x]);
            row[4 * x + 3] = uint8_t(in[x] >> 24);
        }
        if (TIFFWriteScanline(tif, row.data(), uint32_t(y), 0) != 1)
            return false;
    }
    return TIFFWriteDirectory(tif) == 1;
}

bool EncodeTiff(const PixelImage& image, std::vector<uint8_t>& data)
{
    if (!IsWholeImage(image))
        return false;
    MemoryFile file{{}, &data, data.size()};
    TIFF* tif = OpenMemory(file, "w");
    if (!tif)
        return false;
    const bool ok = WriteTiff(tif, image);
    TIFFClose(tif);
    if (!ok)
        data.resize(file.start);
    return ok;
}

} // namespace

const ImageCodec kTiffCodec = {"tiff", SniffTiff, DecodeTiff, EncodeTiff};

} // namespace vesk::codecs
