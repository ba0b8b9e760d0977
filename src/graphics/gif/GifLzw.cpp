#include "graphics/gif/GifLzw_p.hpp"

#include <bit>
#include <cstring>

namespace vesk::detail {

namespace {

// Eight input bytes as a little-endian word.
inline uint64_t LoadLE64(const uint8_t* p)
{
    uint64_t word;
    std::memcpy(&word, p, 8);
    if constexpr (std::endian::native == std::endian::big)
        word = __builtin_bswap64(word);
    return word;
}

// Copies a string from earlier output. Whole 16-byte blocks when source and destination are
// that far apart (the bytes written past the string are overwritten by the next one).
inline void CopyString(uint8_t* dst, const uint8_t* src, uint32_t length)
{
    if (dst - src >= 16) {
        for (uint32_t i = 0; i < length; i += 16)
            std::memcpy(dst + i, src + i, 16);
    } else {
        for (uint32_t i = 0; i < length; ++i)
            dst[i] = src[i];
    }
}

} // namespace

// The decoder's position in the stream and the state of its table.
struct GifLzw::Run {
    const uint8_t* in;
    uint64_t totalBits;
    uint64_t usedBits = 0;
    unsigned minCodeSize;
    uint32_t clear, end, roots;
    uint32_t next = 0, size = 0, mask = 0;
    // The previous code; `exact` when its string is what the output holds at prevPos.
    uint32_t prev = 0, prevPos = 0, prevLen = 0;
    bool havePrev = false, exact = false;

    // Codes are packed least significant bit first; false when the input holds too few bits.
    bool Read(uint32_t& code)
    {
        if (usedBits + size > totalBits)
            return false;
        code = static_cast<uint32_t>(LoadLE64(in + (usedBits >> 3)) >> (usedBits & 7)) & mask;
        usedBits += size;
        return true;
    }

    void Reset()
    {
        size = minCodeSize + 1;
        mask = (1u << size) - 1;
        next = roots;
    }

    void Remember(uint32_t code, bool isExact, size_t pos, uint32_t length)
    {
        prev = code;
        havePrev = true;
        exact = isExact;
        prevPos = static_cast<uint32_t>(pos);
        prevLen = length;
    }
};

namespace {

// Adds the entry "previous string + first". The table holds 4096 entries; a full table takes
// no more until the next clear.
template <class Run>
inline void Add(Run& run, uint16_t* prefix, uint8_t* suffix, uint32_t* pos, uint16_t* len, uint8_t first)
{
    if (!run.havePrev || run.next >= 4096)
        return;
    prefix[run.next] = static_cast<uint16_t>(run.prev);
    suffix[run.next] = first;
    pos[run.next] = run.prevPos;
    // Only a previous string that the output holds gives an entry whose walk descends.
    len[run.next] = run.exact ? static_cast<uint16_t>(run.prevLen + 1) : 0;
    if (++run.next == (1u << run.size) && run.size < 12) {
        ++run.size;
        run.mask = (1u << run.size) - 1;
    }
}

} // namespace

bool GifLzw::WalkStale(const Run& run, uint32_t code, const uint8_t*& string, uint32_t& length)
{
    // Walks the table as it stands, which for a code at or beyond the next free one may hold an
    // entry from before the last clear or a zeroed one. Each prefix must be below its code.
    uint8_t* w = m_aWalk + sizeof(m_aWalk);
    while (code >= run.roots) {
        const uint32_t prefix = m_aPrefix[code];
        if (prefix >= code)
            return false;
        *--w = m_aSuffix[code];
        code = prefix;
    }
    *--w = static_cast<uint8_t>(code);
    string = w;
    length = static_cast<uint32_t>(m_aWalk + sizeof(m_aWalk) - w);
    return true;
}

GifLzwResult GifLzw::Decode(const uint8_t* in, size_t size, unsigned minCodeSize, uint8_t* out, size_t limit)
{
    std::memset(m_aPrefix, 0, sizeof(m_aPrefix));
    std::memset(m_aSuffix, 0, sizeof(m_aSuffix));
    const uint32_t clear = 1u << minCodeSize;
    Run run{in, uint64_t{size} * 8, 0, minCodeSize, clear, clear + 1, clear + 2};
    run.Reset();

    GifLzwResult result;
    size_t o = 0;
    // While `write`, pixels go to the output; once it is full the codes are only checked.
    bool write = limit > 0;
    uint32_t code;
    while (run.Read(code)) {
        if (code < run.clear) {
            if (write)
                out[o] = static_cast<uint8_t>(code);
            Add(run, m_aPrefix, m_aSuffix, m_aPos, m_aLen, static_cast<uint8_t>(code));
            run.Remember(code, true, o, 1);
            o += 1;
        } else if (code < run.roots) {
            if (code == run.end) {
                result.ended = true;
                break;
            }
            // The code after a clear is taken as a pixel as it stands, up to clear + 2.
            run.Reset();
            if (!run.Read(code))
                break;
            if (code > run.roots) {
                result.corrupt = true;
                break;
            }
            if (write)
                out[o] = static_cast<uint8_t>(code);
            run.Remember(code, code < run.roots, o, 1);
            o += 1;
        } else if (code < run.next) {
            const uint32_t length = m_aLen[code];
            if (length == 0) {
                result.corrupt = true;
                break;
            }
            uint8_t first = 0;
            if (write) {
                CopyString(out + o, out + m_aPos[code], length);
                first = out[o];
            }
            Add(run, m_aPrefix, m_aSuffix, m_aPos, m_aLen, first);
            run.Remember(code, true, o, length);
            o += length;
        } else {
            // A code at or beyond the next free entry: the previous string and its first pixel.
            if (!run.havePrev) {
                result.corrupt = true;
                break;
            }
            const uint8_t* string = out + run.prevPos;
            uint32_t length = run.prevLen;
            if (!run.exact && !WalkStale(run, run.prev, string, length)) {
                result.corrupt = true;
                break;
            }
            uint8_t first = 0;
            if (write) {
                if (run.exact)
                    CopyString(out + o, string, length);
                else
                    std::memcpy(out + o, string, length);
                first = string[0];
                out[o + length] = first;
            }
            const bool exact = run.exact && code == run.next;
            Add(run, m_aPrefix, m_aSuffix, m_aPos, m_aLen, first);
            run.Remember(code, exact, o, length + 1);
            o += length + 1;
        }
        if (write && o >= limit) {
            write = false;
            result.written = limit;
        }
        if (!write) {
            // Positions no longer matter, only which entries hold a descending walk.
            o = 0;
            run.prevLen = 1;
        }
    }
    if (write)
        result.written = o;
    result.bytesUsed = static_cast<size_t>((run.usedBits + 7) / 8);
    return result;
}

} // namespace vesk::detail
