// The GIF entry of the codec table, through giflib. Reading gives the first frame on its
// logical screen: the frame's pixels at its place, its transparent index and everything
// outside it transparent. Writing gives one frame of up to 255 colours with diffusion;
// pixels with alpha below one half become the transparent index.
#include "graphics/codecs/Argb_p.hpp"
#include "graphics/codecs/GifFormat_p.hpp"
#include "graphics/codecs/GifWrite_p.hpp"
#include "graphics/codecs/ImageCodec_p.hpp"

#include <gif_lib.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace vesk::codecs {

namespace {

struct MemoryInput
{
    std::span<const uint8_t> data;
    size_t at = 0;
};

int ReadMemory(GifFileType* gif, GifByteType* out, int length)
{
    auto* in = static_cast<MemoryInput*>(gif->UserData);
    const size_t take = std::min(size_t(length), in->data.size() - in->at);
    if (take > 0)
        std::memcpy(out, in->data.data() + in->at, take);
    in->at += take;
    return int(take);
}

struct GifCloser
{
    void operator()(GifFileType* gif) const
    {
        int error = 0;
        DGifCloseFile(gif, &error);
    }
};
using GifHandle = std::unique_ptr<GifFileType, GifCloser>;

// Walks the records up to the first image descriptor, keeping the transparent index of the
// graphics control extension before it.
bool FindFirstImage(GifFileType* gif, int& transparent)
{
    transparent = NO_TRANSPARENT_COLOR;
    for (;;) {
        GifRecordType record;
        if (DGifGetRecordType(gif, &record) == GIF_ERROR)
            return false;
        if (record == IMAGE_DESC_RECORD_TYPE)
            return DGifGetImageDesc(gif) == GIF_OK;
        if (record != EXTENSION_RECORD_TYPE)
            return false; // the trailer, or garbage
        int code = 0;
        GifByteType* block = nullptr;
        if (DGifGetExtension(gif, &code, &block) == GIF_ERROR)
            return false;
        if (code == GRAPHICS_EXT_FUNC_CODE && block && block[0] >= 4) {
            GraphicsControlBlock control;
            if (DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK)
                transparent = control.TransparentColor;
        }
        while (block)
            if (DGifGetExtensionNext(gif, &block) == GIF_ERROR)
                return false;
    }
}

bool DecodeFirstFrame(GifFileType* gif, PixelImage& image)
{
    int transparent = NO_TRANSPARENT_COLOR;
    if (!IsAcceptableImageSize(gif->SWidth, gif->SHeight) || !FindFirstImage(gif, transparent))
        return false;
    const GifImageDesc& frame = gif->Image;
    const ColorMapObject* map = frame.ColorMap ? frame.ColorMap : gif->SColorMap;
    if (!map || frame.Width <= 0 || frame.Height <= 0)
        return false;
    uint32_t colours[256];
    for (int i = 0; i < 256; ++i) {
        const GifColorType c = i < map->ColorCount ? map->Colors[i] : GifColorType{0, 0, 0};
        colours[i] = i == transparent ? 0 : 0xFF000000u | uint32_t(c.Red) << 16 | uint32_t(c.Green) << 8 | c.Blue;
    }

    image.width = gif->SWidth;
    image.height = gif->SHeight;
    image.pixels.assign(size_t(image.width) * size_t(image.height), 0);
    std::vector<GifPixelType> line(size_t(frame.Width));
    std::vector<uint32_t> interlaced;
    if (frame.Interlace)
        InterlacedRows(uint32_t(frame.Height), interlaced);
    for (int stored = 0; stored < frame.Height; ++stored) {
        if (DGifGetLine(gif, line.data(), frame.Width) == GIF_ERROR)
            return false;
        const int64_t y = int64_t(frame.Top) + (frame.Interlace ? int64_t(interlaced[size_t(stored)]) : stored);
        if (y >= image.height)
            continue;
        uint32_t* row = image.pixels.data() + size_t(y) * size_t(image.width);
        for (int x = 0; x < frame.Width && frame.Left + x < image.width; ++x)
            row[frame.Left + x] = colours[line[size_t(x)]];
    }
    return true;
}

bool SniffGif(std::span<const uint8_t> head)
{
    return IsGifSignature(head);
}

bool DecodeGif(std::span<const uint8_t> data, PixelImage& image)
{
    image = PixelImage{};
    MemoryInput input{data};
    int error = 0;
    const GifHandle gif(DGifOpen(&input, ReadMemory, &error));
    if (!gif || !DecodeFirstFrame(gif.get(), image)) {
        image = PixelImage{};
        return false;
    }
    return true;
}

bool EncodeGif(const PixelImage& image, std::vector<uint8_t>& data)
{
    if (!IsWholeImage(image))
        return false;
    std::vector<uint32_t> straight(image.pixels.size());
    std::transform(image.pixels.begin(), image.pixels.end(), straight.begin(), StraightPixel);
    QuantizedImage quantized = Quantize(straight, image.width, 255, true);
    GifWriter writer(data, image.width, image.height, false);
    const size_t entries = quantized.palette.size() + (quantized.transparentIndex >= 0 ? 1 : 0);
    writer.AddFrame(quantized, image.width, image.height, 0, ColourTableSize(entries));
    return writer.Finish();
}

} // namespace

const ImageCodec kGifCodec = {"gif", SniffGif, DecodeGif, EncodeGif};

} // namespace vesk::codecs
