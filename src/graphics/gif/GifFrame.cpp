#include "graphics/gif/GifReader_p.hpp"

#include "graphics/codecs/GifFormat_p.hpp"
#include "graphics/codecs/InfoHeader_p.hpp"

#include <cstring>

namespace vesk {

GifFrame::GifFrame() = default;
GifFrame::GifFrame(GifFrame&&) noexcept = default;
GifFrame& GifFrame::operator=(GifFrame&&) noexcept = default;
GifFrame::~GifFrame() = default;

namespace {

static_assert(GifFrame::HEADER_BYTES == codecs::kInfoHeaderBytes);

// The bitmap-information header of an 8-bit frame stored top-down.
void WriteHeader(uint8_t* h, uint16_t width, uint16_t height)
{
    codecs::InfoHeader header;
    header.width = width;
    header.height = -int32_t(height);
    header.bitsPerPixel = 8;
    header.coloursUsed = header.coloursImportant = 256;
    codecs::StoreInfoHeader(h, header);
}

} // namespace

size_t GifReader::GatherCodes()
{
    // Joins the frame's sub-blocks. A zero length ends the chain; so does a block that would
    // run past the data, whose bytes are not taken. Returns where the chain stopped.
    m_aCodes.clear();
    size_t pos = m_nPos;
    for (;;) {
        const size_t length = pos < m_nDataLen ? m_pData[pos] : 255;
        if (length == 0 || pos + length + 1 > m_nDataLen)
            break;
        m_aCodes.insert(m_aCodes.end(), m_pData.get() + pos + 1, m_pData.get() + pos + 1 + length);
        pos += length + 1;
    }
    m_aCodes.resize(m_aCodes.size() + detail::GIF_LZW_INPUT_PAD, 0);
    return pos;
}

size_t GifReader::PositionAfter(size_t start, size_t bytes) const
{
    // The read position after `bytes` code bytes: a length byte is only read when a byte of
    // its block is needed.
    size_t pos = start;
    while (bytes > 0) {
        const size_t length = m_pData[pos];
        if (bytes <= length)
            return pos + 1 + bytes;
        bytes -= length;
        pos += length + 1;
    }
    return pos;
}

void GifReader::SkipImageData(bool hasLocalTable, uint8_t flags)
{
    if (hasLocalTable)
        m_nPos += size_t{3} << ((flags & 7) + 1);
    ReadByte();
    SkipSubBlocks();
}

GifFrame GifReader::TakeIt()
{
    m_nLeft = ReadWord();
    m_nTop = ReadWord();
    m_nWidth = ReadWord();
    m_nHeight = ReadWord();
    m_nFrameFlags = ReadByte();
    // Width 0 wraps to a stride of 0.
    const uint32_t stride = ((m_nWidth - 1u) | 3u) + 1u;
    const uint64_t pixels = uint64_t{stride} * m_nHeight;
    const bool local = m_nFrameFlags & 0x80;
    if (pixels + GifFrame::FIXED_BYTES > m_nMaxBufferBytes) {
        // Refused before anything is allocated; the walk goes on after the frame's data.
        SkipImageData(local, m_nFrameFlags);
        return {};
    }

    uint8_t table[256 * 3] = {};
    const uint8_t* colors = m_pGlobalTable.get();
    uint32_t count = m_nGlobalColors;
    if (local) {
        count = 2u << (m_nFrameFlags & 7);
        for (uint32_t i = 0; i < count * 3; ++i)
            table[i] = ReadByte();
        colors = table;
    } else if (colors) {
        std::memcpy(table, colors, count * 3);
    }
    if (m_bTransparent) {
        const uint8_t* c = table + m_nTransparentIndex * 3;
        m_nTransparentColor = c[0] | c[1] << 8 | c[2] << 16;
    }

    const unsigned minCodeSize = ReadByte();
    if (minCodeSize >= 12) {
        // Codes are at most 12 bits: such a frame cannot be decoded.
        SkipSubBlocks();
        return {};
    }

    GifFrame frame;
    frame.m_pBuffer.reset(new uint8_t[pixels + GifFrame::FIXED_BYTES]);
    frame.m_nStride = stride;
    frame.m_nLeft = m_nLeft;
    frame.m_nTop = m_nTop;
    frame.m_nWidth = m_nWidth;
    frame.m_nHeight = m_nHeight;
    uint8_t* buffer = frame.m_pBuffer.get();
    WriteHeader(buffer, m_nWidth, m_nHeight);
    uint8_t* palette = buffer + GifFrame::HEADER_BYTES;
    for (uint32_t i = 0; i < 256; ++i) {
        palette[4 * i] = table[3 * i + 2];
        palette[4 * i + 1] = table[3 * i + 1];
        palette[4 * i + 2] = table[3 * i];
        palette[4 * i + 3] = 0;
    }
    uint8_t* pixelArea = palette + GifFrame::PALETTE_BYTES;
    // The table area follows the pixels; besides its layout role it catches output that runs
    // past the last row (the row test lets one pixel through, and a string crossing the end
    // is written whole).
    std::memset(pixelArea + pixels, 0, GifFrame::TABLE_BYTES);

    const size_t chainStart = m_nPos;
    const size_t chainEnd = GatherCodes();
    const size_t limit = size_t{m_nWidth} * m_nHeight;
    // Rows that fill the pixel area in order are decoded in place; others through a line.
    const bool inPlace = !(m_nFrameFlags & 0x40) && stride == m_nWidth;
    uint8_t* out = pixelArea;
    if (!inPlace) {
        m_aLinear.resize(limit + detail::GIF_LZW_SLACK);
        out = m_aLinear.data();
    }
    const detail::GifLzwResult result =
        m_pLzw->Decode(m_aCodes.data(), m_aCodes.size() - detail::GIF_LZW_INPUT_PAD, minCodeSize, out, limit);
    if (result.corrupt) {
        m_nPos = PositionAfter(chainStart, result.bytesUsed);
        return {};
    }
    // After the end code the block terminator follows; codes that run out stop on it.
    m_nPos = (result.ended ? PositionAfter(chainStart, result.bytesUsed) : chainEnd) + 1;
    // Pixels the stream did not reach stay 0.
    std::memset(out + result.written, 0, limit - result.written);
    if (!inPlace)
        StoreFrame(frame, pixelArea, out);
    return frame;
}

void GifReader::StoreFrame(GifFrame& frame, uint8_t* pixelArea, const uint8_t* linear)
{
    const uint32_t stride = frame.m_nStride;
    const uint32_t width = frame.m_nWidth;
    std::memset(pixelArea, 0, size_t{stride} * frame.m_nHeight);
    if (m_nFrameFlags & 0x40) {
        codecs::InterlacedRows(frame.m_nHeight, m_aRows);
        for (size_t i = 0; i < m_aRows.size(); ++i)
            std::memcpy(pixelArea + size_t{m_aRows[i]} * stride, linear + i * width, width);
    } else {
        for (uint32_t row = 0; row < frame.m_nHeight; ++row)
            std::memcpy(pixelArea + size_t{row} * stride, linear + size_t{row} * width, width);
    }
}

} // namespace vesk
