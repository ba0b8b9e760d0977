// Wu's colour quantiser: a histogram over 32 levels per channel with the first and second
// moments of the exact colours that fall in each cell, summed into cumulative tables so that
// the weight, colour sums and variance of any box come from eight look-ups. The box with the
// largest variance is cut repeatedly where the two halves' summed squared means are largest;
// each palette colour is the exact mean of its box's pixels.
#include "graphics/codecs/Quantize_p.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <memory>

namespace vesk::codecs {

namespace {

constexpr int kSide = 33; // 32 levels plus the zero row of the cumulative tables

struct Moments
{
    int64_t weight = 0, r = 0, g = 0, b = 0, squares = 0;

    Moments& operator+=(const Moments& o)
    {
        weight += o.weight, r += o.r, g += o.g, b += o.b, squares += o.squares;
        return *this;
    }
    Moments& operator-=(const Moments& o)
    {
        weight -= o.weight, r -= o.r, g -= o.g, b -= o.b, squares -= o.squares;
        return *this;
    }
    friend Moments operator-(Moments a, const Moments& o) { return a -= o; }
    double SquaredMeanSum() const
    {
        return weight ? (double(r) * double(r) + double(g) * double(g) + double(b) * double(b)) / double(weight) : 0.0;
    }
};

// Lower bounds exclusive, upper inclusive, in cumulative-table coordinates.
struct Box
{
    std::array<int, 3> lo{0, 0, 0}, hi{kSide - 1, kSide - 1, kSide - 1};
    int Volume() const { return (hi[0] - lo[0]) * (hi[1] - lo[1]) * (hi[2] - lo[2]); }
};

class CumulativeMoments
{
public:
    explicit CumulativeMoments(std::span<const uint32_t> pixels, bool keyTransparent)
        : m_table(std::make_unique<Moments[]>(size_t(kSide) * kSide * kSide))
    {
        for (uint32_t p : pixels) {
            if (IsKeyedOut(p, keyTransparent))
                continue;
            const int64_t r = p >> 16 & 0xFF, g = p >> 8 & 0xFF, b = p & 0xFF;
            Moments& m = At(int(r >> 3) + 1, int(g >> 3) + 1, int(b >> 3) + 1);
            m += Moments{1, r, g, b, r * r + g * g + b * b};
        }
        // Running sums along blue, then green, then red.
        for (int r = 1; r < kSide; ++r) {
            std::array<Moments, kSide> area{};
            for (int g = 1; g < kSide; ++g) {
                Moments line;
                for (int b = 1; b < kSide; ++b) {
                    line += At(r, g, b);
                    area[size_t(b)] += line;
                    At(r, g, b) = At(r - 1, g, b);
                    At(r, g, b) += area[size_t(b)];
                }
            }
        }
    }

    Moments Of(const Box& box) const
    {
        return Corner(box, 0) - Corner(box, 1);
    }

    // The moments of the part of `box` whose coordinate on `axis` is at most `cut`.
    Moments Below(Box box, int axis, int cut) const
    {
        box.hi[size_t(axis)] = cut;
        return Of(box);
    }

private:
    Moments& At(int r, int g, int b) { return m_table[size_t((r * kSide + g) * kSide + b)]; }
    const Moments& At(int r, int g, int b) const { return m_table[size_t((r * kSide + g) * kSide + b)]; }

    // Sum of the eight corners with an even (parity 0) or odd (1) number of lower bounds.
    Moments Corner(const Box& x, int parity) const
    {
        Moments sum;
        for (int corner = 0; corner < 8; ++corner) {
            if (std::popcount(unsigned(corner)) % 2 != parity)
                continue;
            sum += At(corner & 4 ? x.lo[0] : x.hi[0], corner & 2 ? x.lo[1] : x.hi[1], corner & 1 ? x.lo[2] : x.hi[2]);
        }
        return sum;
    }

    std::unique_ptr<Moments[]> m_table;
};

double Variance(const CumulativeMoments& moments, const Box& box)
{
    const Moments m = moments.Of(box);
    return double(m.squares) - m.SquaredMeanSum();
}

// Cuts `box` into itself and `other` at the plane that most reduces their summed variance;
// false when no plane leaves pixels on both sides.
bool Cut(const CumulativeMoments& moments, Box& box, Box& other)
{
    const Moments whole = moments.Of(box);
    double best = 0.0;
    int bestAxis = -1, bestCut = 0;
    for (int axis = 0; axis < 3; ++axis) {
        for (int cut = box.lo[size_t(axis)] + 1; cut < box.hi[size_t(axis)]; ++cut) {
            const Moments lower = moments.Below(box, axis, cut);
            const Moments upper = whole - lower;
            if (lower.weight == 0 || upper.weight == 0)
                continue;
            const double score = lower.SquaredMeanSum() + upper.SquaredMeanSum();
            if (score > best) {
                best = score;
                bestAxis = axis;
                bestCut = cut;
            }
        }
    }
    if (bestAxis < 0)
        return false;
    other = box;
    box.hi[size_t(bestAxis)] = bestCut;
    other.lo[size_t(bestAxis)] = bestCut;
    return true;
}

uint8_t Mean(int64_t sum, int64_t weight)
{
    return uint8_t((sum + weight / 2) / weight);
}

} // namespace

std::vector<Rgb> BuildPalette(std::span<const uint32_t> pixels, int maxColours, bool keyTransparent)
{
    const CumulativeMoments moments(pixels, keyTransparent);
    std::vector<Box> boxes(1);
    std::vector<double> variance(1, Variance(moments, boxes[0]));
    while (int(boxes.size()) < maxColours) {
        const size_t next = size_t(std::max_element(variance.begin(), variance.end()) - variance.begin());
        if (variance[next] <= 0.0)
            break;
        Box other;
        if (!Cut(moments, boxes[next], other)) {
            variance[next] = 0.0;
            continue;
        }
        boxes.push_back(other);
        variance[next] = boxes[next].Volume() > 1 ? Variance(moments, boxes[next]) : 0.0;
        variance.push_back(other.Volume() > 1 ? Variance(moments, other) : 0.0);
    }

    std::vector<Rgb> palette;
    for (const Box& box : boxes) {
        const Moments m = moments.Of(box);
        if (m.weight > 0)
            palette.push_back({Mean(m.r, m.weight), Mean(m.g, m.weight), Mean(m.b, m.weight)});
    }
    if (palette.empty())
        palette.push_back({});
    return palette;
}

QuantizedImage Quantize(std::span<const uint32_t> pixels, int32_t width, int maxColours, bool keyTransparent)
{
    QuantizedImage image;
    const bool transparent =
        keyTransparent && std::any_of(pixels.begin(), pixels.end(), [](uint32_t p) { return IsKeyedOut(p, true); });
    image.palette = BuildPalette(pixels, transparent ? maxColours - 1 : maxColours, transparent);
    image.indices.resize(pixels.size());
    DiffuseOntoPalette(pixels, width, image.palette, transparent, image.indices.data());
    if (transparent)
        image.transparentIndex = int(image.palette.size());
    return image;
}

} // namespace vesk::codecs
