#pragma once

// The LZW decoder of GIF frames.
#include <cstddef>
#include <cstdint>

namespace vesk::detail {

// What decoding one LZW stream came to.
struct GifLzwResult {
    // A first code after a clear above clear + 2, or a string whose prefix chain does not descend.
    bool corrupt = false;
    // The end code was read; otherwise the codes ran out first.
    bool ended = false;
    // Input bytes the codes read have touched.
    size_t bytesUsed = 0;
    // Pixels written (at most the limit); the output past them holds scratch.
    size_t written = 0;
};

// Bytes an output buffer needs beyond its limit: a string that crosses the limit is written
// whole (up to 4097 bytes), and copies move 16 bytes at a time.
inline constexpr size_t GIF_LZW_SLACK = 4097 + 32;
// Readable bytes the input needs beyond its end (codes are read 8 bytes at a time).
inline constexpr size_t GIF_LZW_INPUT_PAD = 8;

// An LZW decoder with the table of one stream. The strings of a code are defined by the
// prefix chain walk: a code's string is its prefix's string plus its suffix, down to a root
// (a code below clear + 2, whose string is its own value as a byte); a chain that does not
// descend is corrupt. The decoder produces the same pixels without walking chains: every
// string it knows is somewhere in the output already, so it copies it from there.
class GifLzw {
public:
    // Decodes the codes in `in` (`size` bytes followed by GIF_LZW_INPUT_PAD readable bytes) with
    // the minimum code size `minCodeSize` (0 to 11) into `out`, which holds `limit` pixels plus
    // GIF_LZW_SLACK bytes. Pixels beyond the limit are dropped, but the codes are still read to
    // the end code so that a corrupt stream is found wherever it breaks.
    GifLzwResult Decode(const uint8_t* in, size_t size, unsigned minCodeSize, uint8_t* out, size_t limit);

private:
    struct Run;
    template <bool Write>
    void Loop(Run& run, const uint8_t* limit);
    bool WalkStale(uint32_t roots, uint32_t code, const uint8_t*& string, uint32_t& length);

    // The chain walk's table: prefix and suffix of every entry, and a spare slot. Entries are
    // not cleared by a clear code, so a code beyond the table can reach an earlier string.
    uint16_t m_aPrefix[4097];
    uint8_t m_aSuffix[4097];
    // Where each entry's string can be copied from (the output, or the root bytes), and its
    // length with its first byte (bits 16 to 23); length 0 marks an entry whose walk breaks,
    // and the clear and end codes.
    const uint8_t* m_aString[4097];
    uint32_t m_aInfo[4097];
    // The reversed walk of an entry that is not in the output.
    uint8_t m_aWalk[4097];
};

} // namespace vesk::detail
