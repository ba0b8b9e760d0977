// RLE8 and RLE4: pairs of (count, value) runs, and escapes after a zero count: 0 end of line,
// 1 end of picture, 2 a (right, up) move, 3 and more that many literal pixels padded to a
// 16-bit boundary. Runs and moves past the right edge are clipped rather than refused.
#include "graphics/codecs/BmpDecode_p.hpp"

#include <algorithm>

namespace vesk::codecs::bmp {

namespace {

class RleCanvas
{
public:
    RleCanvas(const Header& header, const Palette& palette, PixelImage& image)
        : m_header(header), m_palette(palette), m_image(image)
    {
    }

    void Put(uint8_t index)
    {
        if (m_x < m_header.width && m_row < m_header.height)
            m_image.pixels[size_t(ImageRow(m_header, m_row)) * size_t(m_header.width) + size_t(m_x)] = m_palette[index];
        ++m_x;
    }
    void NextLine()
    {
        m_x = 0;
        ++m_row;
    }
    void Move(uint8_t right, uint8_t up)
    {
        m_x += right;
        m_row += up;
    }
    bool Done() const { return m_row >= m_header.height; }

private:
    const Header& m_header;
    const Palette& m_palette;
    PixelImage& m_image;
    int64_t m_x = 0;
    int64_t m_row = 0;
};

} // namespace

bool DecodeRle(std::span<const uint8_t> stream, const Header& header, const Palette& palette, PixelImage& image)
{
    const bool four = header.compression == kRle4;
    RleCanvas canvas(header, palette, image);
    size_t at = 0;
    while (!canvas.Done()) {
        if (stream.size() - at < 2)
            return false;
        const uint8_t count = stream[at], value = stream[at + 1];
        at += 2;
        if (count > 0) {
            for (int i = 0; i < count; ++i)
                canvas.Put(four ? (i % 2 ? value & 0x0F : value >> 4) : value);
        } else if (value == 0) {
            canvas.NextLine();
        } else if (value == 1) {
            return true;
        } else if (value == 2) {
            if (stream.size() - at < 2)
                return false;
            canvas.Move(stream[at], stream[at + 1]);
            at += 2;
        } else {
            const size_t bytes = four ? (value + 1u) / 2 : value;
            const size_t padded = (bytes + 1) & ~size_t(1);
            if (stream.size() - at < bytes)
                return false;
            for (int i = 0; i < value; ++i)
                canvas.Put(four ? (i % 2 ? stream[at + i / 2] & 0x0F : stream[at + i / 2] >> 4) : stream[at + i]);
            at += std::min(padded, stream.size() - at);
        }
    }
    return true;
}

} // namespace vesk::codecs::bmp
