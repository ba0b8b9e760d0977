// Reads any bytes as an animation: the header, the block walk and up to 32 frames, each
// buffer read whole under the sanitizers. The same bytes, taken as a minimum code size, a
// frame width and an LZW stream, must decode to exactly the pixels of the literal chain walk.
#include "graphics/codecs/GifFormat_p.hpp"
#include "graphics/gif/GifReader_p.hpp"

#include "models/gif_chain_walk.hpp"

#include <cstdint>
#include <cstdlib>
#include <vector>

using namespace vesk;

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

// Reads the buffer from its first byte to the last pixel: the sanitizer checks the range.
unsigned Touch(const GifFrame& frame)
{
    const size_t bytes = GifFrame::HEADER_BYTES + GifFrame::PALETTE_BYTES + size_t{frame.GetStride()} * frame.GetHeight();
    std::vector<uint8_t> copy(frame.GetHeader(), frame.GetHeader() + bytes);
    return copy.back();
}

void ReadAnimation(const uint8_t* data, size_t size)
{
    GifReader reader;
    reader.m_nMaxBufferBytes = 1 << 17; // the limit itself is tested; large frames only slow runs
    if (!reader.Open(data, size))
        return;
    reader.ScanFirst();
    GifFrame frame = reader.FirstImage();
    volatile unsigned sink = 0;
    for (int i = 0; i < 32 && !frame.IsEmpty(); ++i) {
        Require(frame.GetStride() % 4 == 0 && frame.GetStride() >= frame.GetWidth());
        sink = sink + Touch(frame);
        frame = reader.NextImage();
    }
}

void CompareWithChainWalk(const uint8_t* data, size_t size)
{
    if (size < 3)
        return;
    const unsigned m = data[0] % 12;
    const uint32_t width = data[1] | (data[2] & 0x0F) << 8;
    const bool interlaced = data[2] & 0x40;
    const uint32_t height = interlaced ? 1 + data[2] % 13 : 1;
    std::vector<uint8_t> codes(data + 3, data + size);

    std::vector<uint8_t> expected;
    const gif_chain_walk::Frame frame{width, height, interlaced};
    const bool ok = gif_chain_walk::Decode(codes.data(), codes.size(), m, frame, expected);

    static detail::GifLzw lzw;
    const size_t limit = size_t{width} * height;
    std::vector<uint8_t> out(limit + detail::GIF_LZW_SLACK);
    codes.resize(codes.size() + detail::GIF_LZW_INPUT_PAD);
    const detail::GifLzwResult result = lzw.Decode(codes.data(), size - 3, m, out.data(), limit);
    Require(result.corrupt == !ok);
    Require(result.written <= limit && result.bytesUsed <= size - 3);
    if (!ok)
        return;
    // The decoder writes rows in the order they arrive; the model places them itself, so this
    // also checks the shared interlaced-row order.
    const uint32_t stride = ((width - 1u) | 3u) + 1u;
    std::vector<uint32_t> rows;
    if (interlaced)
        codecs::InterlacedRows(height, rows);
    for (uint32_t line = 0; line < height; ++line) {
        const uint32_t row = interlaced ? rows[line] : line;
        for (uint32_t x = 0; x < width; ++x) {
            const size_t i = size_t{line} * width + x;
            Require(expected[size_t{row} * stride + x] == (i < result.written ? out[i] : 0));
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    ReadAnimation(data, size);
    CompareWithChainWalk(data, size);
    return 0;
}
