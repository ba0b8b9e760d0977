// GIF decoding to palette indices: the library's reader and decoder against giflib's
// DGifSlurp, on the same files in memory. Throughput is in MB (10^6 bytes) of decoded pixels
// (width x height of every frame) per second.
//   photo: landscape-pan.gif, a dithered photo-like pan (short strings, frequent clears);
//   screen: screen-scroll.gif, a user-interface capture (long runs, 12-bit codes).
#include "graphics/gif/GifReader_p.hpp"

#include <benchmark/benchmark.h>
#include <gif_lib.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

using namespace vesk;

namespace {

std::vector<uint8_t> ReadFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

const std::vector<uint8_t>& Photo()
{
    static const std::vector<uint8_t> bytes = ReadFile(VESK_GIF_PHOTO);
    return bytes;
}

const std::vector<uint8_t>& Screen()
{
    static const std::vector<uint8_t> bytes = ReadFile(VESK_GIF_SCREEN);
    return bytes;
}

struct MemoryInput {
    const std::vector<uint8_t>* bytes;
    size_t pos;
};

int ReadMemory(GifFileType* gif, GifByteType* out, int n)
{
    auto* in = static_cast<MemoryInput*>(gif->UserData);
    const size_t take = std::min(static_cast<size_t>(n), in->bytes->size() - in->pos);
    std::memcpy(out, in->bytes->data() + in->pos, take);
    in->pos += take;
    return static_cast<int>(take);
}

std::pair<size_t, size_t> Count(const std::vector<uint8_t>& bytes)
{
    MemoryInput in{&bytes, 0};
    int error = 0;
    GifFileType* gif = DGifOpen(&in, ReadMemory, &error);
    size_t frames = 0, pixels = 0;
    if (gif && DGifSlurp(gif) == GIF_OK) {
        frames = static_cast<size_t>(gif->ImageCount);
        for (size_t i = 0; i < frames; ++i)
            pixels += size_t(gif->SavedImages[i].ImageDesc.Width) * size_t(gif->SavedImages[i].ImageDesc.Height);
    }
    DGifCloseFile(gif, &error);
    return {frames, pixels};
}

void ReportRate(benchmark::State& state, size_t pixels)
{
    state.counters["MB/s"] = benchmark::Counter(static_cast<double>(pixels) / 1e6 * static_cast<double>(state.iterations()),
                                                benchmark::Counter::kIsRate);
}

void BM_Vesk(benchmark::State& state, const std::vector<uint8_t>& (*file)())
{
    const std::vector<uint8_t>& bytes = file();
    GifReader reader;
    if (!reader.Open(bytes.data(), bytes.size()))
        return state.SkipWithError("not a GIF");
    // Frames and pixels as giflib counts them.
    const auto [frames, pixels] = Count(bytes);
    for (auto _ : state) {
        GifFrame f = reader.FirstImage();
        benchmark::DoNotOptimize(f.GetPixels());
        for (size_t i = 1; i < frames; ++i) {
            f = reader.NextImage();
            benchmark::DoNotOptimize(f.GetPixels());
        }
    }
    ReportRate(state, pixels);
}

void BM_Giflib(benchmark::State& state, const std::vector<uint8_t>& (*file)())
{
    const std::vector<uint8_t>& bytes = file();
    const size_t pixels = Count(bytes).second;
    for (auto _ : state) {
        MemoryInput in{&bytes, 0};
        int error = 0;
        GifFileType* gif = DGifOpen(&in, ReadMemory, &error);
        if (!gif || DGifSlurp(gif) != GIF_OK)
            return state.SkipWithError("giflib failed");
        benchmark::DoNotOptimize(gif->SavedImages[0].RasterBits);
        DGifCloseFile(gif, &error);
    }
    ReportRate(state, pixels);
}

BENCHMARK_CAPTURE(BM_Vesk, photo, Photo)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Giflib, photo, Photo)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Vesk, screen, Screen)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Giflib, screen, Screen)->Unit(benchmark::kMillisecond);

} // namespace
