// Floyd-Steinberg error diffusion (7/16 ahead, 3/16, 5/16 and 1/16 on the next row), walking
// rows in alternate directions so that errors do not drift to one side. Nearest colours are
// looked up in a cache over cells of the colour cube, filled on first use by a search of the
// palette sorted on green.
#include "graphics/codecs/Quantize_p.hpp"

#include <algorithm>
#include <array>
#include <climits>

namespace vesk::codecs {

namespace {

class NearestColour
{
public:
    explicit NearestColour(const std::vector<Rgb>& palette) : m_cache(size_t(1) << 18, 0)
    {
        for (size_t i = 0; i < palette.size(); ++i)
            m_byGreen.push_back({palette[i].g, palette[i].r, palette[i].b, int(i)});
        std::sort(m_byGreen.begin(), m_byGreen.end());
    }

    // The palette entry for a colour as (index + 1) << 24 | red << 16 | green << 8 | blue.
    uint32_t Find(int r, int g, int b)
    {
        uint32_t& cached = m_cache[size_t((r >> 2) << 12 | (g >> 2) << 6 | (b >> 2))];
        if (cached == 0)
            cached = Search((r & ~3) + 2, (g & ~3) + 2, (b & ~3) + 2);
        return cached;
    }

private:
    // Outward from the colours nearest in green, until green alone is farther than the best.
    uint32_t Search(int r, int g, int b) const
    {
        const auto start = std::lower_bound(m_byGreen.begin(), m_byGreen.end(), std::array<int, 4>{g, 0, 0, 0});
        int best = INT_MAX;
        std::array<int, 4> found{};
        auto consider = [&](const std::array<int, 4>& c) {
            const int dg = (c[0] - g) * (c[0] - g);
            if (dg >= best)
                return false;
            const int d = dg + (c[1] - r) * (c[1] - r) + (c[2] - b) * (c[2] - b);
            if (d < best)
                best = d, found = c;
            return true;
        };
        for (auto up = start; up != m_byGreen.end() && consider(*up); ++up) {
        }
        for (auto down = start; down != m_byGreen.begin() && consider(*(down - 1)); --down) {
        }
        return uint32_t(found[3] + 1) << 24 | uint32_t(found[1]) << 16 | uint32_t(found[0]) << 8 | uint32_t(found[2]);
    }

    // Nearest colours of the cube's 64x64x64 cells (0 until needed), each for the cell's
    // centre: dithering corrects the difference of at most two levels a channel that this
    // leaves, through the error it carries on.
    std::vector<uint32_t> m_cache;
    std::vector<std::array<int, 4>> m_byGreen; // green, red, blue, palette index
};

int Clamp(int v)
{
    return v < 0 ? 0 : v > 255 ? 255 : v;
}

struct Error
{
    int r = 0, g = 0, b = 0;
};

// One row, in either direction: the error ahead is carried in `ahead`, and the next row's
// three shares below are summed in registers and each stored once, when complete.
template <bool keyTransparent>
void DiffuseRow(const uint32_t* pixels, uint8_t* indices, const Error* current, Error* next, size_t width,
                ptrdiff_t step, uint8_t transparent, NearestColour& nearest)
{
    Error ahead, belowBack, below;
    size_t x = step > 0 ? 0 : width - 1;
    for (size_t i = 0; i < width; ++i, x += size_t(step)) {
        const uint32_t p = pixels[x];
        Error error;
        if (IsKeyedOut(p, keyTransparent)) {
            indices[x] = transparent;
        } else {
            const Error& e = current[x + 1];
            const int r = Clamp(int(p >> 16 & 0xFF) + ((e.r + ahead.r + 8) >> 4));
            const int g = Clamp(int(p >> 8 & 0xFF) + ((e.g + ahead.g + 8) >> 4));
            const int b = Clamp(int(p & 0xFF) + ((e.b + ahead.b + 8) >> 4));
            const uint32_t entry = nearest.Find(r, g, b);
            indices[x] = uint8_t((entry >> 24) - 1);
            error = {r - int(entry >> 16 & 0xFF), g - int(entry >> 8 & 0xFF), b - int(entry & 0xFF)};
        }
        // The pixel behind this one on the next row now has all its shares.
        next[x + 1 - size_t(step)] = {belowBack.r + 3 * error.r, belowBack.g + 3 * error.g, belowBack.b + 3 * error.b};
        belowBack = {below.r + 5 * error.r, below.g + 5 * error.g, below.b + 5 * error.b};
        below = error;
        ahead = {7 * error.r, 7 * error.g, 7 * error.b};
    }
    next[x + 1 - size_t(step)] = belowBack;
}

template <bool keyTransparent>
void Diffuse(std::span<const uint32_t> pixels, size_t width, size_t palette, NearestColour& nearest, uint8_t* indices)
{
    const size_t height = width ? pixels.size() / width : 0;
    // Errors in sixteenths, one pixel of margin on each side.
    std::vector<Error> errors(2 * (width + 2));
    Error* current = errors.data();
    Error* next = current + width + 2;
    for (size_t y = 0; y < height; ++y) {
        DiffuseRow<keyTransparent>(pixels.data() + y * width, indices + y * width, current, next, width,
                                   y % 2 == 0 ? 1 : -1, uint8_t(palette), nearest);
        std::swap(current, next);
    }
}

} // namespace

void DiffuseOntoPalette(std::span<const uint32_t> pixels, int32_t width, const std::vector<Rgb>& palette,
                        bool keyTransparent, uint8_t* indices)
{
    NearestColour nearest(palette);
    if (keyTransparent)
        Diffuse<true>(pixels, size_t(width), palette.size(), nearest, indices);
    else
        Diffuse<false>(pixels, size_t(width), palette.size(), nearest, indices);
}

} // namespace vesk::codecs
