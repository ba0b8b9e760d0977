// Bitmap against the libraries underneath it, on one generated 2-megapixel picture
// (1600 x 1250, smooth colour with fine noise, as a photograph):
// - Load: Bitmap::Load of the picture's PNG file against libpng reading the same file into
//   straight BGRA with its simplified interface (the peer neither premultiplies nor builds a
//   bitmap). Ratio: VeskLoadPng / LibpngReadPng.
// - StretchHQ halving and doubling against Cairo drawing the same picture scaled with the same
//   filter (CAIRO_FILTER_BEST, padded edges) into a new image surface. Ratios: VeskStretch* /
//   CairoStretch* of the same size.
#include <vesk/files/DirEntry.hpp>
#include <vesk/graphics/Bitmap.hpp>

#include "graphics/codecs/ImageCodec_p.hpp"

#include <benchmark/benchmark.h>
#include <cairo.h>
#include <png.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <unistd.h>

using namespace vesk;

namespace {

constexpr int32_t kWidth = 1600, kHeight = 1250;

codecs::PixelImage MakePhoto()
{
    codecs::PixelImage image{kWidth, kHeight, std::vector<uint32_t>(size_t(kWidth) * kHeight)};
    uint32_t noise = 12345;
    for (int32_t y = 0; y < kHeight; ++y)
        for (int32_t x = 0; x < kWidth; ++x) {
            noise = noise * 1103515245u + 12345u;
            const uint32_t n = (noise >> 16) & 7;
            const uint32_t r = (x * 255 / kWidth + n) & 0xFF, g = (y * 255 / kHeight + n) & 0xFF,
                           b = ((x + y) / 12 + n) & 0xFF;
            image.pixels[size_t(y) * kWidth + size_t(x)] = 0xFF000000u | r << 16 | g << 8 | b;
        }
    return image;
}

// The picture, its PNG file and a Bitmap of it, made once.
struct Fixture
{
    Fixture() : photo(MakePhoto())
    {
        std::vector<uint8_t> png;
        codecs::kPngCodec.encode(photo, png);
        char name[] = "/tmp/vesk-bitmap-bench-XXXXXX.png";
        const int fd = ::mkstemps(name, 4);
        path = name;
        if (fd >= 0) {
            if (::write(fd, png.data(), png.size()) != ssize_t(png.size()))
                path.clear();
            ::close(fd);
        }
        bitmap = Bitmap(TamSize(kWidth, kHeight), std::vector<uint32_t>(photo.pixels));
    }
    ~Fixture() { ::unlink(path.c_str()); }

    codecs::PixelImage photo;
    std::string path;
    Bitmap bitmap;
};

Fixture& Shared()
{
    static Fixture fixture;
    return fixture;
}

void VeskLoadPng(benchmark::State& state)
{
    const DirEntry entry(SString(Shared().path.c_str()));
    for (auto _ : state) {
        Bitmap b;
        b.Load(entry);
        if (b.GetSize() != TamSize(kWidth, kHeight))
            state.SkipWithError("load failed");
        benchmark::DoNotOptimize(b);
    }
}

void LibpngReadPng(benchmark::State& state)
{
    const std::string& path = Shared().path;
    for (auto _ : state) {
        png_image png;
        std::memset(&png, 0, sizeof png);
        png.version = PNG_IMAGE_VERSION;
        if (!png_image_begin_read_from_file(&png, path.c_str())) {
            state.SkipWithError("libpng failed");
            break;
        }
        png.format = PNG_FORMAT_BGRA;
        std::vector<uint32_t> pixels(size_t(png.width) * png.height);
        png_image_finish_read(&png, nullptr, pixels.data(), 0, nullptr);
        benchmark::DoNotOptimize(pixels.data());
    }
}

void VeskStretch(benchmark::State& state, double factor)
{
    const Bitmap& source = Shared().bitmap;
    for (auto _ : state)
        benchmark::DoNotOptimize(source.StretchHQ(FSize(int(kWidth * factor), int(kHeight * factor))));
}

void CairoStretch(benchmark::State& state, double factor)
{
    codecs::PixelImage& photo = Shared().photo;
    cairo_surface_t* from = cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(photo.pixels.data()),
                                                                CAIRO_FORMAT_ARGB32, kWidth, kHeight, kWidth * 4);
    const int w = int(kWidth * factor), h = int(kHeight * factor);
    for (auto _ : state) {
        cairo_surface_t* to = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, w, h);
        cairo_t* cr = cairo_create(to);
        cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
        cairo_scale(cr, double(w) / kWidth, double(h) / kHeight);
        cairo_set_source_surface(cr, from, 0, 0);
        cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_BEST);
        cairo_pattern_set_extend(cairo_get_source(cr), CAIRO_EXTEND_PAD);
        cairo_paint(cr);
        cairo_destroy(cr);
        cairo_surface_flush(to);
        benchmark::DoNotOptimize(cairo_image_surface_get_data(to));
        cairo_surface_destroy(to);
    }
    cairo_surface_destroy(from);
}

} // namespace

BENCHMARK(VeskLoadPng)->Unit(benchmark::kMillisecond);
BENCHMARK(LibpngReadPng)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(VeskStretch, Halve, 0.5)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(CairoStretch, Halve, 0.5)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(VeskStretch, Double, 2.0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(CairoStretch, Double, 2.0)->Unit(benchmark::kMillisecond);
