// Builds GIF files for the tests: an LZW encoder with the clear policies encoders use, a code
// writer for hand-made (also broken) streams, and the block framing.
#pragma once

#include <cstdint>
#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace gif_builder {

using Bytes = std::vector<uint8_t>;

// Packs codes least significant bit first.
class CodeWriter {
public:
    void Put(uint32_t code, uint32_t size)
    {
        m_bits |= uint64_t{code} << m_held;
        m_held += size;
        while (m_held >= 8) {
            bytes.push_back(static_cast<uint8_t>(m_bits));
            m_bits >>= 8;
            m_held -= 8;
        }
    }
    Bytes Finish()
    {
        if (m_held)
            bytes.push_back(static_cast<uint8_t>(m_bits));
        m_held = 0;
        return bytes;
    }
    Bytes bytes;

private:
    uint64_t m_bits = 0;
    uint32_t m_held = 0;
};

// When the encoder clears its table: as soon as it is full, after `deferred` more codes with a
// full table, or never.
struct Policy {
    bool leadingClear = true;
    int deferred = 0; // -1: never clear
};

// Compresses indices (each below 2^m) with the minimum code size m.
inline Bytes Encode(const Bytes& pixels, unsigned m, Policy policy = {})
{
    CodeWriter w;
    const uint32_t clear = 1u << m, end = clear + 1;
    uint32_t next = clear + 2, size = m + 1;
    int fullCodes = 0;
    std::map<std::pair<uint32_t, uint8_t>, uint32_t> dict;
    if (policy.leadingClear)
        w.Put(clear, size);
    // Every code emitted names a new string (the decoder adds it one code later, and widens
    // its codes when that entry fills the current size).
    auto emit = [&](uint32_t code) {
        w.Put(code, size);
        if (next < 4096) {
            if (++next == (1u << size) + 1 && size < 12)
                ++size;
        } else if (policy.deferred >= 0 && ++fullCodes > policy.deferred) {
            w.Put(clear, size);
            dict.clear();
            next = clear + 2;
            size = m + 1;
            fullCodes = 0;
        }
    };
    if (pixels.empty()) {
        w.Put(end, size);
        return w.Finish();
    }
    uint32_t cur = pixels[0];
    for (size_t i = 1; i < pixels.size(); ++i) {
        const auto key = std::make_pair(cur, pixels[i]);
        const auto it = dict.find(key);
        if (it != dict.end()) {
            cur = it->second;
            continue;
        }
        if (next < 4096)
            dict[key] = next;
        emit(cur);
        cur = pixels[i];
    }
    w.Put(cur, size);
    if (next < 4096 && ++next == (1u << size) + 1 && size < 12)
        ++size;
    w.Put(end, size);
    return w.Finish();
}

// Sub-blocks of up to 255 bytes and the terminator.
inline void PutBlocks(Bytes& out, const Bytes& data, size_t blockSize = 255)
{
    for (size_t i = 0; i < data.size(); i += blockSize) {
        const size_t n = std::min(blockSize, data.size() - i);
        out.push_back(static_cast<uint8_t>(n));
        out.insert(out.end(), data.begin() + static_cast<std::ptrdiff_t>(i), data.begin() + static_cast<std::ptrdiff_t>(i + n));
    }
    out.push_back(0);
}

inline void Put16(Bytes& out, uint32_t v)
{
    out.push_back(static_cast<uint8_t>(v));
    out.push_back(static_cast<uint8_t>(v >> 8));
}

// Header and logical screen; a global table of 2^(bits) grey entries when bits > 0.
inline Bytes Header(uint32_t width, uint32_t height, unsigned bits = 8)
{
    Bytes out = {'G', 'I', 'F', '8', '9', 'a'};
    Put16(out, width);
    Put16(out, height);
    out.push_back(static_cast<uint8_t>(bits ? 0x80 | (bits - 1) : 0));
    out.push_back(0);
    out.push_back(0);
    for (uint32_t i = 0; bits && i < (1u << bits); ++i)
        out.insert(out.end(), {static_cast<uint8_t>(i), static_cast<uint8_t>(i), static_cast<uint8_t>(i)});
    return out;
}

inline void GraphicControl(Bytes& out, uint8_t flags, uint16_t delay, uint8_t transparent)
{
    out.insert(out.end(), {0x21, 0xF9, 4, flags});
    Put16(out, delay);
    out.insert(out.end(), {transparent, 0});
}

// An image descriptor with its (already encoded) data.
inline void Image(Bytes& out, uint32_t left, uint32_t top, uint32_t width, uint32_t height, uint8_t flags,
                  unsigned m, const Bytes& lzw)
{
    out.push_back(0x2C);
    Put16(out, left);
    Put16(out, top);
    Put16(out, width);
    Put16(out, height);
    out.push_back(flags);
    out.push_back(static_cast<uint8_t>(m));
    PutBlocks(out, lzw);
}

} // namespace gif_builder
