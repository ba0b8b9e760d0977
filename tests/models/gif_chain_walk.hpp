// A GIF frame's LZW data decoded the slow, literal way: codes read a byte at a time, every
// string written by walking its prefix chain down (each prefix below its code, else the
// stream is corrupt) and following the links back up, every pixel placed by its row and
// column with the row test "index <= stride * height". Shared by the graphics tests and the
// fuzz target as the reference for the fast decoder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace gif_chain_walk {

struct Frame {
    uint32_t width = 0, height = 0;
    bool interlaced = false;
};

// Decodes `data` (the joined sub-blocks) with minimum code size `m` (0 to 11). Returns false
// for a corrupt stream; else `pixels` holds stride x height indices (0 where nothing came).
inline bool Decode(const uint8_t* data, size_t size, unsigned m, const Frame& f, std::vector<uint8_t>& pixels)
{
    const uint32_t stride = ((f.width - 1u) | 3u) + 1u;
    const size_t total = size_t{stride} * f.height;
    std::vector<uint8_t> buf(total + 24576, 0); // pixels, then the table
    std::vector<uint16_t> prefix(4096), suffix(4096), link(4096);

    size_t pos = 0;
    uint32_t bits = 0, held = 0;
    const uint32_t clear = 1u << m, end = clear + 1, roots = clear + 2;
    uint32_t next = roots, codeSize = m + 1;
    auto getCode = [&](uint32_t& code) {
        while (held < codeSize) {
            if (pos >= size)
                return false;
            bits |= uint32_t{data[pos++]} << held;
            held += 8;
        }
        code = bits & ((1u << codeSize) - 1);
        bits >>= codeSize;
        held -= codeSize;
        return true;
    };

    uint32_t row = 0, col = 0, pass = 1;
    bool done = false;
    auto output = [&](uint8_t px) {
        if (done)
            return;
        const size_t index = size_t{row} * stride + col;
        if (index <= total)
            buf[index] = px;
        if (++col < f.width)
            return;
        col = 0;
        if (!f.interlaced) {
            ++row;
            return;
        }
        static const uint32_t step[5] = {0, 8, 8, 4, 2}, start[6] = {0, 0, 4, 2, 1, 0};
        row += step[pass];
        while (row >= f.height) {
            if (++pass > 4) {
                done = true;
                return;
            }
            row = start[pass];
        }
    };
    // Writes a code's string; its first pixel goes to `first`.
    auto outputString = [&](uint32_t code, uint8_t& first) {
        uint32_t cur = code;
        while (cur >= roots) {
            if (prefix[cur] >= cur)
                return false;
            link[prefix[cur]] = static_cast<uint16_t>(cur);
            cur = prefix[cur];
        }
        first = static_cast<uint8_t>(cur);
        output(first);
        while (cur != code) {
            cur = link[cur];
            output(static_cast<uint8_t>(suffix[cur]));
        }
        return true;
    };

    bool havePrev = false;
    uint32_t prev = 0, code = 0;
    auto add = [&](uint8_t first) {
        if (!havePrev || next >= 4096)
            return;
        prefix[next] = static_cast<uint16_t>(prev);
        suffix[next] = first;
        if (++next == (1u << codeSize) && codeSize < 12)
            ++codeSize;
    };
    while (getCode(code) && code != end) {
        uint8_t first = 0;
        if (code == clear) {
            codeSize = m + 1;
            next = roots;
            if (!getCode(code))
                break;
            if (code > roots)
                return false;
            output(static_cast<uint8_t>(code));
        } else if (code < next) {
            if (!outputString(code, first))
                return false;
            add(first);
        } else {
            if (!havePrev || !outputString(prev, first))
                return false;
            output(first);
            add(first);
        }
        prev = code;
        havePrev = true;
    }
    pixels.assign(buf.begin(), buf.begin() + static_cast<std::ptrdiff_t>(total));
    return true;
}

} // namespace gif_chain_walk
