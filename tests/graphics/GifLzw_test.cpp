// The LZW decoder against the encoder under every clear policy, and against the literal chain
// walk on random and hand-made code streams (deferred clears, full tables, codes at and
// beyond the next free entry, stale entries after a clear, corrupt chains). Streams of other
// encoders are decoded through the GIF corpus (GifCorpus_test, with giflib as the oracle).
#include "graphics/gif/GifLzw_p.hpp"

#include "graphics/gif_builder.hpp"
#include "models/gif_chain_walk.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

using namespace vesk::detail;
using gif_builder::Bytes;
using gif_builder::CodeWriter;

namespace {

struct Decoded {
    GifLzwResult result;
    Bytes pixels;
};

Decoded Decode(const Bytes& stream, unsigned m, size_t limit)
{
    static GifLzw lzw;
    Bytes in = stream;
    in.resize(stream.size() + GIF_LZW_INPUT_PAD);
    Decoded d;
    d.pixels.assign(limit + GIF_LZW_SLACK, 0);
    d.result = lzw.Decode(in.data(), stream.size(), m, d.pixels.data(), limit);
    // What lies past the pixels written is scratch; the frame reader zeroes it.
    std::fill(d.pixels.begin() + static_cast<std::ptrdiff_t>(d.result.written), d.pixels.end(), 0);
    d.pixels.resize(limit);
    return d;
}

// The reference decode of one row of `limit` pixels; false when it finds the stream corrupt.
bool Reference(const Bytes& stream, unsigned m, size_t limit, Bytes& pixels)
{
    const gif_chain_walk::Frame frame{static_cast<uint32_t>(limit), 1, false};
    if (!gif_chain_walk::Decode(stream.data(), stream.size(), m, frame, pixels))
        return false;
    pixels.resize(limit);
    return true;
}

TEST(GifLzw, EncoderRoundTripsUnderEveryClearPolicy)
{
    std::mt19937 rng(7);
    const gif_builder::Policy policies[] = {{true, 0}, {true, 700}, {false, -1}, {false, 0}};
    for (unsigned m : {2u, 3u, 5u, 8u}) {
        // Noise fills the table quickly; runs make long strings and codes at the next entry.
        Bytes noise(60000), runs(60000);
        for (auto& p : noise)
            p = static_cast<uint8_t>(rng() % (1u << m));
        for (size_t i = 0; i < runs.size(); ++i)
            runs[i] = static_cast<uint8_t>((i / (1 + rng() % 300) + i / 997) % (1u << m));
        for (const auto& policy : policies) {
            for (const Bytes* pixels : {&noise, &runs}) {
                SCOPED_TRACE(testing::Message() << "m=" << m << " deferred=" << policy.deferred);
                const Bytes stream = gif_builder::Encode(*pixels, m, policy);
                const Decoded d = Decode(stream, m, pixels->size());
                EXPECT_TRUE(d.result.ended);
                EXPECT_FALSE(d.result.corrupt);
                EXPECT_EQ(d.result.bytesUsed, stream.size());
                ASSERT_TRUE(d.pixels == *pixels);
                Bytes reference;
                ASSERT_TRUE(Reference(stream, m, pixels->size(), reference));
                EXPECT_TRUE(reference == *pixels);
            }
        }
    }
}

// Codes of the given sizes, packed.
Bytes Codes(std::initializer_list<std::pair<uint32_t, uint32_t>> codes)
{
    CodeWriter w;
    for (const auto& [code, size] : codes)
        w.Put(code, size);
    return w.Finish();
}

TEST(GifLzw, HandMadeStreamsFollowTheChainWalk)
{
    // m = 2: clear 4, end 5, first entry 6, codes of 3 bits.
    struct Case {
        const char* what;
        Bytes stream;
        size_t limit;
        bool corrupt;
        Bytes pixels;
    };
    const Case cases[] = {
        {"after a clear, clear + 2 is a pixel", Codes({{4, 3}, {6, 3}, {5, 3}}), 2, false, {6, 0}},
        {"after a clear, above clear + 2 is corrupt", Codes({{4, 3}, {7, 3}, {5, 3}}), 2, true, {}},
        {"an entry whose prefix is itself", Codes({{4, 3}, {6, 3}, {1, 3}, {6, 3}, {5, 3}}), 4, true, {}},
        {"a code beyond the table repeats the previous string", Codes({{4, 3}, {1, 3}, {7, 3}, {5, 3}}), 3, false, {1, 1, 1}},
        {"a first code beyond the table is corrupt", Codes({{7, 3}, {5, 3}}), 2, true, {}},
        {"a second clear is a pixel of its own value", Codes({{4, 3}, {4, 3}, {2, 3}, {5, 3}}), 2, false, {4, 2}},
        {"a stale entry whose prefix is itself, reached after a clear",
         Codes({{4, 3}, {6, 3}, {1, 3}, {4, 3}, {6, 3}, {7, 3}, {5, 3}}), 8, true, {}},
        {"corruption after the last pixel still counts", Codes({{4, 3}, {6, 3}, {1, 3}, {6, 3}, {5, 3}}), 1, true, {}},
        {"no end code: the rest stays 0", Codes({{4, 3}, {3, 3}}), 4, false, {3, 0, 0, 0}},
        {"m = 0: one-bit codes, 1 is the clear", Codes({{1, 1}, {0, 1}, {0, 1}, {1, 1}, {1, 1}}), 4, false, {0, 0, 1, 0}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const unsigned m = std::string(c.what).find("m = 0") == 0 ? 0 : 2;
        const Decoded d = Decode(c.stream, m, c.limit);
        EXPECT_EQ(d.result.corrupt, c.corrupt);
        if (!c.corrupt) {
            EXPECT_EQ(d.pixels, c.pixels);
        }
        Bytes reference;
        EXPECT_EQ(Reference(c.stream, m, c.limit, reference), !c.corrupt);
        if (!c.corrupt) {
            EXPECT_EQ(reference, c.pixels);
        }
    }
}

// A random code stream that follows the decoder's table size, mostly with codes that name
// entries, sometimes the next free one, codes beyond it, clears and odd codes after them.
Bytes RandomStream(std::mt19937& rng, unsigned m)
{
    CodeWriter w;
    const uint32_t clear = 1u << m, roots = clear + 2;
    uint32_t next = roots, size = m + 1;
    bool havePrev = false;
    const int count = 1 + static_cast<int>(rng() % 6000);
    for (int i = 0; i < count; ++i) {
        const uint32_t r = rng() % 1000, mask = (1u << size) - 1;
        uint32_t code;
        if (r < 15) {
            w.Put(clear, size);
            size = m + 1;
            next = roots;
            const uint32_t s = rng() % 100;
            code = s < 90 ? rng() % roots : s < 97 ? roots : (roots + 1 + rng() % 4) & ((1u << size) - 1);
            w.Put(code, size);
            havePrev = true;
            continue;
        }
        code = r < 880 ? rng() % next : r < 950 ? next : r < 995 ? rng() & mask : clear + 1;
        if (code == clear)
            code = 0;
        w.Put(code, size);
        if (code == clear + 1)
            break;
        if (havePrev && next < 4096 && ++next == (1u << size) && size < 12)
            ++size;
        havePrev = true;
    }
    return w.Finish();
}

TEST(GifLzw, RandomStreamsMatchTheChainWalk)
{
    std::mt19937 rng(2024);
    int corrupt = 0, clean = 0;
    for (int i = 0; i < 1500; ++i) {
        const unsigned m = rng() % 12;
        const Bytes stream = RandomStream(rng, m);
        const size_t limit = rng() % 2 ? rng() % 40000 : rng() % 300;
        SCOPED_TRACE(testing::Message() << "stream " << i << " m=" << m << " limit=" << limit);
        const Decoded d = Decode(stream, m, limit);
        Bytes reference;
        const bool ok = Reference(stream, m, limit, reference);
        ASSERT_EQ(!d.result.corrupt, ok);
        if (ok) {
            ASSERT_TRUE(d.pixels == reference);
        }
        ++(ok ? clean : corrupt);
    }
    // Both outcomes must be well represented for the comparison to mean something.
    EXPECT_GT(corrupt, 150);
    EXPECT_GT(clean, 150);
}

} // namespace
