#include "graphics/gif/GifReader_p.hpp"

#include "graphics/codecs/GifFormat_p.hpp"

#include <cstring>

namespace vesk {

bool GifReader::Open(const uint8_t* file, size_t size)
{
    if (size < 13 || !codecs::IsGifSignature({file, size}))
        return false;
    m_nScreenWidth = static_cast<uint16_t>(file[6] | file[7] << 8);
    m_nScreenHeight = static_cast<uint16_t>(file[8] | file[9] << 8);
    m_nScreenFlags = file[10];
    m_nBackground = file[11];
    size_t pos = 13;
    m_nGlobalColors = 0;
    m_pGlobalTable.reset();
    if (m_nScreenFlags & 0x80) {
        const uint32_t count = 2u << (m_nScreenFlags & 7);
        if (size - pos < count * 3)
            return false;
        m_pGlobalTable.reset(new uint8_t[count * 3]);
        std::memcpy(m_pGlobalTable.get(), file + pos, count * 3);
        m_nGlobalColors = count;
        pos += count * 3;
    }
    m_nDataLen = size - pos + 1;
    m_pData.reset(new uint8_t[m_nDataLen]);
    std::memcpy(m_pData.get(), file + pos, m_nDataLen - 1);
    m_pData[m_nDataLen - 1] = 0;
    m_nPos = 0;
    return true;
}

uint8_t GifReader::ReadByte()
{
    // Past the end every read gives 255.
    return m_nPos < m_nDataLen ? m_pData[m_nPos++] : 255;
}

uint16_t GifReader::ReadWord()
{
    const uint8_t low = ReadByte();
    return static_cast<uint16_t>(low | ReadByte() << 8);
}

bool GifReader::SkipSubBlocks()
{
    for (;;) {
        const size_t length = m_nPos < m_nDataLen ? m_pData[m_nPos] : 255;
        if (m_nPos + length + 1 > m_nDataLen)
            return false;
        m_nPos += length + 1;
        if (length == 0)
            return true;
    }
}

GifReader::Block GifReader::WalkToImage()
{
    for (;;) {
        const uint8_t kind = ReadByte();
        if (kind == 0x2C)
            return Block::Image;
        if (kind == 0x00 || kind == 0x3B)
            return Block::Trailer;
        if (kind != 0x21)
            return Block::Stop;
        switch (ReadByte()) {
        case 0x01: // plain text: a 13-byte header block, then text sub-blocks
            m_nPos += 13;
            break;
        case 0xF9: { // graphic control: fixed size, read in place
            ReadByte();
            const uint8_t flags = ReadByte();
            m_nDisposal = flags & 0x1C;
            m_bTransparent = flags & 1;
            m_nDelay = ReadWord();
            m_nTransparentIndex = ReadByte();
            ReadByte();
            continue;
        }
        case 0xFE: // comment
            break;
        case 0xFF: // application: an 11-byte identifier block, then data sub-blocks
            m_nPos += 12;
            break;
        default:
            return Block::Stop;
        }
        if (!SkipSubBlocks())
            return Block::Stop;
    }
}

void GifReader::ScanFirst()
{
    m_nPos = 0;
    switch (WalkToImage()) {
    case Block::Image:
        TakeIt();
        break;
    case Block::Trailer:
        // A file without frames ends the scan at its trailer.
        m_nPos = 0;
        break;
    case Block::Stop:
        break;
    }
}

GifFrame GifReader::FirstImage()
{
    Rewind();
    return NextImage();
}

GifFrame GifReader::NextImage()
{
    if (!m_pData)
        return {};
    // The trailer rewinds, so the animation repeats; a second trailer before any frame means
    // the file has none.
    bool rewound = false;
    for (;;) {
        switch (WalkToImage()) {
        case Block::Image:
            return TakeIt();
        case Block::Trailer:
            if (rewound)
                return {};
            rewound = true;
            m_nPos = 0;
            break;
        case Block::Stop:
            return {};
        }
    }
}

} // namespace vesk
