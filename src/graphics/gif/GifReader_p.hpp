#pragma once

// The GIF reader behind GifAnimation: header and global table, the block walk and the frames.
#include <vesk/graphics/GifAnimation.hpp>

#include "graphics/gif/GifLzw_p.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace vesk {

class GifReader {
public:
    // Takes a whole file: header, global colour table, then the rest as the data. False for a
    // short header, one that does not start with "GIF8", '7' or '9', 'a', or a short table.
    bool Open(const uint8_t* file, size_t size);
    // From the start of the data up to and including the first frame, which is decoded (and
    // dropped) so that its graphic control values and size are known.
    void ScanFirst();
    // Moves the read position back to the start of the data.
    void Rewind() { m_nPos = 0; }
    GifFrame FirstImage();
    GifFrame NextImage();

    // Logical screen.
    uint16_t m_nScreenWidth = 0, m_nScreenHeight = 0;
    uint8_t m_nScreenFlags = 0, m_nBackground = 0;
    uint32_t m_nGlobalColors = 0;
    std::unique_ptr<uint8_t[]> m_pGlobalTable;

    // The frame last met.
    uint16_t m_nLeft = 0, m_nTop = 0, m_nWidth = 10, m_nHeight = 10;
    uint8_t m_nFrameFlags = 0;

    // Frames whose buffer would be larger are refused; lowered by the fuzz target to keep its
    // runs fast.
    uint64_t m_nMaxBufferBytes = GifFrame::MAX_BUFFER_BYTES;

    // Graphic control values of the frame to come.
    uint8_t m_nDisposal = 0;
    bool m_bTransparent = false;
    uint16_t m_nDelay = 0;
    uint8_t m_nTransparentIndex = 0;
    uint32_t m_nTransparentColor = 0;

private:
    enum class Block { Image, Trailer, Stop };

    uint8_t ReadByte();
    uint16_t ReadWord();
    bool SkipSubBlocks();
    Block WalkToImage();
    GifFrame TakeIt();
    void SkipImageData(bool hasLocalTable, uint8_t flags);
    size_t GatherCodes();
    size_t PositionAfter(size_t start, size_t bytes) const;
    void StoreFrame(GifFrame& frame, uint8_t* pixelArea, const uint8_t* linear);

    // Everything after the header and the global table, and one zero byte more: a file cut
    // before its trailer ends in a 0 byte, which rewinds like the trailer.
    std::unique_ptr<uint8_t[]> m_pData;
    size_t m_nDataLen = 0;
    size_t m_nPos = 0;

    // The sub-blocks of the current frame joined, and the decoder with its table.
    std::vector<uint8_t> m_aCodes;
    std::vector<uint8_t> m_aLinear;
    std::vector<uint32_t> m_aRows;
    std::unique_ptr<detail::GifLzw> m_pLzw = std::make_unique<detail::GifLzw>();
};

} // namespace vesk
