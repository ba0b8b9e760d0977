// Colour reduction for GIF frames: the library's quantiser (Wu's palette, 240 colours, with
// Floyd-Steinberg diffusion) against giflib's GifQuantizeBuffer (median cut, up to 256
// colours, no diffusion), on the same frames. Each run reports the PSNR of the reduced frame
// against the original in dB.
//   photo: the first frame of landscape-pan.gif, decoded by giflib;
//   noise: 640x480 gradients with seeded noise, nearly every pixel a colour of its own.
#include "graphics/codecs/Quantize_p.hpp"

#include <benchmark/benchmark.h>
#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

using namespace vesk::codecs;

namespace {

struct Frame
{
    int width = 0, height = 0;
    std::vector<uint32_t> argb;
    std::vector<GifByteType> r, g, b;

    void Add(uint32_t pixel)
    {
        argb.push_back(pixel);
        r.push_back(GifByteType(pixel >> 16));
        g.push_back(GifByteType(pixel >> 8));
        b.push_back(GifByteType(pixel));
    }
};

Frame Photo()
{
    Frame frame;
    int error = 0;
    GifFileType* gif = DGifOpenFileName(VESK_GIF_PHOTO, &error);
    if (gif && DGifSlurp(gif) == GIF_OK && gif->ImageCount > 0) {
        const SavedImage& image = gif->SavedImages[0];
        const ColorMapObject* map = image.ImageDesc.ColorMap ? image.ImageDesc.ColorMap : gif->SColorMap;
        frame.width = image.ImageDesc.Width;
        frame.height = image.ImageDesc.Height;
        for (int i = 0; map && i < frame.width * frame.height; ++i) {
            const GifColorType c = map->Colors[image.RasterBits[i] % map->ColorCount];
            frame.Add(0xFF000000u | uint32_t(c.Red) << 16 | uint32_t(c.Green) << 8 | c.Blue);
        }
    }
    DGifCloseFile(gif, &error);
    return frame;
}

Frame Noise()
{
    Frame frame{640, 480, {}, {}, {}, {}};
    std::mt19937 random(16);
    std::normal_distribution<double> noise(0.0, 12.0);
    auto channel = [&](double v) { return uint32_t(std::clamp(v + noise(random), 0.0, 255.0)); };
    for (int y = 0; y < frame.height; ++y)
        for (int x = 0; x < frame.width; ++x)
            frame.Add(0xFF000000u | channel(x * 255.0 / 640) << 16 | channel(y * 255.0 / 480) << 8 |
                      channel(128 + 100 * std::sin(x * 0.02 + y * 0.03)));
    return frame;
}

const Frame& Frames(int which)
{
    static const Frame photo = Photo(), noise = Noise();
    return which == 0 ? photo : noise;
}

double Psnr(const Frame& frame, const std::vector<uint8_t>& indices, auto colour)
{
    double squares = 0;
    for (size_t i = 0; i < indices.size(); ++i) {
        const auto [r, g, b] = colour(indices[i]);
        const double dr = r - frame.r[i], dg = g - frame.g[i], db = b - frame.b[i];
        squares += dr * dr + dg * dg + db * db;
    }
    return squares ? 10 * std::log10(255.0 * 255.0 * 3 * double(indices.size()) / squares) : 99.0;
}

void BM_Vesk(benchmark::State& state)
{
    const Frame& frame = Frames(int(state.range(0)));
    if (frame.argb.empty())
        return state.SkipWithError("no frame");
    QuantizedImage out;
    for (auto _ : state) {
        out = Quantize(frame.argb, frame.width, 240, false);
        benchmark::DoNotOptimize(out.indices.data());
    }
    state.counters["PSNR"] = Psnr(frame, out.indices, [&](uint8_t i) {
        return std::array<int, 3>{out.palette[i].r, out.palette[i].g, out.palette[i].b};
    });
    state.counters["colours"] = double(out.palette.size());
}

void BM_GifQuantizeBuffer(benchmark::State& state)
{
    const Frame& frame = Frames(int(state.range(0)));
    if (frame.argb.empty())
        return state.SkipWithError("no frame");
    std::vector<GifByteType> indices(frame.argb.size());
    GifColorType palette[256];
    int size = 256;
    for (auto _ : state) {
        size = 256;
        // giflib only reads the planes but takes them without const.
        if (GifQuantizeBuffer(unsigned(frame.width), unsigned(frame.height), &size, const_cast<GifByteType*>(frame.r.data()),
                              const_cast<GifByteType*>(frame.g.data()), const_cast<GifByteType*>(frame.b.data()),
                              indices.data(), palette) != GIF_OK)
            return state.SkipWithError("GifQuantizeBuffer failed");
        benchmark::DoNotOptimize(indices.data());
    }
    state.counters["PSNR"] = Psnr(frame, indices, [&](uint8_t i) {
        return std::array<int, 3>{palette[i].Red, palette[i].Green, palette[i].Blue};
    });
    state.counters["colours"] = size;
}

} // namespace

BENCHMARK(BM_Vesk)->ArgName("noise")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GifQuantizeBuffer)->ArgName("noise")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
