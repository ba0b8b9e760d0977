#pragma once

// GIF files written into memory through giflib, one quantised frame at a time.

#include "graphics/codecs/Quantize_p.hpp"

#include <cstdint>
#include <vector>

struct GifFileType;

namespace vesk::codecs {

class GifWriter
{
public:
    // Starts a GIF89a file with a logical screen of `width` x `height` and no global colour
    // table; `loopForever` adds the NETSCAPE2.0 application extension with loop count 0.
    GifWriter(std::vector<uint8_t>& out, int32_t width, int32_t height, bool loopForever);
    ~GifWriter();
    GifWriter(const GifWriter&) = delete;
    GifWriter& operator=(const GifWriter&) = delete;

    // A graphics control extension with `delay` (hundredths of a second) and the image's
    // transparent index, then the image at the screen's top-left corner with a local colour
    // table of `tableSize` entries (a power of two; entries past the palette are black).
    bool AddFrame(QuantizedImage& image, int32_t width, int32_t height, uint16_t delay, int tableSize);

    // Writes the trailer; false if anything failed, and then `out` is as it was before.
    bool Finish();

private:
    std::vector<uint8_t>& m_out;
    size_t m_start;
    GifFileType* m_gif = nullptr;
    bool m_ok = false;
};

// The smallest colour table (a power of two, at least 2) with room for `entries`.
int ColourTableSize(size_t entries);

} // namespace vesk::codecs
