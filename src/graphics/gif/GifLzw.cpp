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

// Copies a string from earlier output (or from the root strings). Whole 16-byte blocks when
// source and destination are that far apart; the bytes written past the string are
// overwritten by the next one.
inline void CopyString(uint8_t* dst, const uint8_t* src, uint32_t length)
{
    if (reinterpret_cast<uintptr_t>(dst) - reinterpret_cast<uintptr_t>(src) >= 16) {
        for (uint32_t i = 0; i < length; i += 16)
            std::memcpy(dst + i, src + i, 16);
    } else {
        for (uint32_t i = 0; i < length; ++i)
            dst[i] = src[i];
    }
}

// The one-byte strings of the roots: a root's pixel is its code as a byte (clear and end
// codes included). Padded for the 16-byte copies.
constexpr auto kRootBytes = [] {
    struct Bytes {
        uint8_t b[256 + 16];
    } bytes{};
    for (int i = 0; i < 256 + 16; ++i)
        bytes.b[i] = static_cast<uint8_t>(i);
    return bytes;
}();

constexpr uint32_t kFull = 4096; // the slot an entry goes to when none is added

} // namespace

// The decoder's state between its writing and its checking loop.
struct GifLzw::Run {
    const uint8_t* in;
    uint64_t totalBits;
    uint64_t usedBits;
    uint32_t minCodeSize, clear, roots;
    uint32_t next, size;
    // The previous code; `exact` when its string is what the output holds at prevPtr.
    uint32_t prev;
    bool havePrev, exact;
    const uint8_t* prevPtr;
    uint32_t prevLen;
    uint8_t prevFirst;
    uint8_t* out;
    GifLzwResult result;
};

bool GifLzw::WalkStale(uint32_t roots, uint32_t code, const uint8_t*& string, uint32_t& length)
{
    // Walks the table as it stands, which for a code at or beyond the next free one may hold an
    // entry from before the last clear or a zeroed one. Each prefix must be below its code.
    uint8_t* w = m_aWalk + sizeof(m_aWalk);
    while (code >= roots) {
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

template <bool Write>
void GifLzw::Loop(Run& run, const uint8_t* limit)
{
    // The state lives in locals here: stores through the byte pointer could otherwise alias it.
    const uint8_t* const in = run.in;
    const uint64_t totalBits = run.totalBits;
    uint64_t usedBits = run.usedBits;
    const uint32_t clear = run.clear, roots = run.roots;
    uint32_t next = run.next, size = run.size;
    uint32_t prev = run.prev;
    // Entries are added while next is below this: 0 before the first code, else 4096.
    uint32_t addLimit = run.havePrev ? kFull : 0;
    // The length the next entry gets: the previous string's plus one, or 0 when that string
    // is not in the output (then the entry's walk breaks).
    uint32_t newLength = run.exact ? run.prevLen + 1 : 0;
    uint8_t prevFirst = run.prevFirst;
    const uint8_t* prevPtr = run.prevPtr;
    uint8_t* o = run.out;

    // Adds "previous string + first"; with no previous code or a full table the entry goes to
    // the spare slot. The code size grows when the next free code reaches its limit.
    auto add = [&](uint8_t first) {
        const uint32_t slot = next < addLimit ? next : kFull;
        m_aPrefix[slot] = static_cast<uint16_t>(prev);
        m_aSuffix[slot] = first;
        m_aString[slot] = prevPtr;
        m_aInfo[slot] = newLength | uint32_t{prevFirst} << 16;
        if (slot != kFull && ++next == (1u << size) && size < 12)
            ++size;
    };
    auto read = [&](uint32_t& code) {
        if (usedBits + size > totalBits)
            return false;
        code = static_cast<uint32_t>(LoadLE64(in + (usedBits >> 3)) >> (usedBits & 7)) & ((1u << size) - 1);
        usedBits += size;
        return true;
    };

    GifLzwResult& result = run.result;
    uint32_t code;
    for (;;) {
        if (Write && o >= limit)
            break;
        if (!read(code))
            break;
        uint32_t info;
        if (code < next && ((info = m_aInfo[code]) & 0xFFFF) != 0) {
            const uint32_t length = info & 0xFFFF;
            const uint8_t first = static_cast<uint8_t>(info >> 16);
            if constexpr (Write)
                CopyString(o, m_aString[code], length);
            add(first);
            prev = code;
            addLimit = kFull;
            newLength = Write ? length + 1 : 1;
            prevFirst = first;
            prevPtr = o;
            if constexpr (Write)
                o += length;
        } else if (code < next) {
            if (code == clear + 1) {
                result.ended = true;
                break;
            }
            if (code != clear) {
                result.corrupt = true; // an entry whose walk does not descend
                break;
            }
            // The code after a clear is taken as a pixel as it stands, up to clear + 2.
            size = run.minCodeSize + 1;
            next = roots;
            if (!read(code))
                break;
            if (code > roots) {
                result.corrupt = true;
                break;
            }
            if constexpr (Write)
                *o = static_cast<uint8_t>(code);
            prev = code;
            addLimit = kFull;
            newLength = code < roots ? 2 : 0;
            prevFirst = static_cast<uint8_t>(code);
            prevPtr = o;
            if constexpr (Write)
                o += 1;
        } else {
            // A code at or beyond the next free entry: the previous string and its first pixel.
            const uint8_t* string = prevPtr;
            uint32_t length = newLength - 1;
            const bool exact = newLength != 0;
            if (addLimit == 0 || (!exact && !WalkStale(roots, prev, string, length))) {
                result.corrupt = true;
                break;
            }
            const uint8_t first = exact ? prevFirst : string[0];
            if constexpr (Write) {
                if (exact)
                    CopyString(o, string, length);
                else
                    std::memcpy(o, string, length);
                o[length] = first;
            }
            const bool nowExact = exact && code == next;
            add(first);
            prev = code;
            newLength = nowExact ? (Write ? length + 2 : 1) : 0;
            prevFirst = first;
            prevPtr = o;
            if constexpr (Write)
                o += length + 1;
        }
    }
    run.usedBits = usedBits;
    run.next = next;
    run.size = size;
    run.prev = prev;
    run.havePrev = addLimit != 0;
    run.exact = newLength != 0;
    run.prevLen = newLength ? newLength - 1 : 0;
    run.prevFirst = prevFirst;
    run.prevPtr = prevPtr;
    run.out = o;
}

GifLzwResult GifLzw::Decode(const uint8_t* in, size_t size, unsigned minCodeSize, uint8_t* out, size_t limit)
{
    std::memset(m_aPrefix, 0, sizeof(m_aPrefix));
    std::memset(m_aSuffix, 0, sizeof(m_aSuffix));
    const uint32_t clear = 1u << minCodeSize;
    for (uint32_t code = 0; code < clear; ++code) {
        m_aString[code] = kRootBytes.b + (code & 255);
        m_aInfo[code] = 1 | (code & 255) << 16;
    }
    // Clear and end are roots too, but never copied: length 0 sends them to their own branch.
    m_aInfo[clear] = m_aInfo[clear + 1] = 0;

    Run run{in, uint64_t{size} * 8, 0, minCodeSize, clear, clear + 2, clear + 2, minCodeSize + 1, 0, false, false,
            out, 0, 0, out, {}};
    if (limit > 0)
        Loop<true>(run, out + limit);
    const size_t written = static_cast<size_t>(run.out - out);
    run.result.written = written < limit ? written : limit;
    // Once the output is full the codes are only checked: a corrupt stream is found wherever
    // it breaks.
    if (!run.result.ended && !run.result.corrupt && written >= limit)
        Loop<false>(run, nullptr);
    run.result.bytesUsed = static_cast<size_t>((run.usedBits + 7) / 8);
    return run.result;
}

} // namespace vesk::detail
