// SString against std::string on the same work: building, copying and comparing 1 MB texts.
// The std::string rows with a spin lock show what the per-call lock of SString costs.
#include "common/SpinLock.hpp"

#include "SteadyAllocator.hpp"

#include <vesk/text.hpp>

#include <benchmark/benchmark.h>

#include <string>

using vesk::SString;

namespace {

constexpr size_t kMegabyte = 1 << 20;
constexpr int kCopies = 10000;

const char* Chunk()
{
    static const std::string chunk(64, 'c');
    return chunk.c_str();
}

void AppendCharSString(benchmark::State& state)
{
    for (auto _ : state) {
        SString s;
        for (size_t i = 0; i < kMegabyte; ++i)
            s += 'x';
        benchmark::DoNotOptimize(s);
    }
}

void AppendCharStd(benchmark::State& state)
{
    for (auto _ : state) {
        std::string s;
        for (size_t i = 0; i < kMegabyte; ++i)
            s += 'x';
        benchmark::DoNotOptimize(s);
    }
}

void AppendCharStdLocked(benchmark::State& state)
{
    for (auto _ : state) {
        std::string s;
        std::atomic<uint32_t> word{0};
        for (size_t i = 0; i < kMegabyte; ++i) {
            vesk::SpinGuard lock(word);
            s += 'x';
        }
        benchmark::DoNotOptimize(s);
    }
}

void AppendChunkStdLocked(benchmark::State& state)
{
    const char* chunk = Chunk();
    for (auto _ : state) {
        std::string s;
        std::atomic<uint32_t> word{0};
        for (size_t i = 0; i < kMegabyte / 64; ++i) {
            vesk::SpinGuard lock(word);
            s += chunk;
        }
        benchmark::DoNotOptimize(s);
    }
}

void AppendChunkSString(benchmark::State& state)
{
    const char* chunk = Chunk();
    for (auto _ : state) {
        SString s;
        for (size_t i = 0; i < kMegabyte / 64; ++i)
            s += chunk;
        benchmark::DoNotOptimize(s);
    }
}

void AppendChunkStd(benchmark::State& state)
{
    const char* chunk = Chunk();
    for (auto _ : state) {
        std::string s;
        for (size_t i = 0; i < kMegabyte / 64; ++i)
            s += chunk;
        benchmark::DoNotOptimize(s);
    }
}

void CopySString(benchmark::State& state)
{
    const SString source(std::string(kMegabyte, 'm').c_str());
    for (auto _ : state)
        for (int i = 0; i < kCopies; ++i) {
            SString copy(source);
            benchmark::DoNotOptimize(copy);
        }
}

void CopyStd(benchmark::State& state)
{
    const std::string source(kMegabyte, 'm');
    for (auto _ : state)
        for (int i = 0; i < kCopies; ++i) {
            std::string copy(source);
            benchmark::DoNotOptimize(copy);
        }
}

void CompareSString(benchmark::State& state)
{
    const std::string text(kMegabyte, 'e');
    const SString a(text.c_str());
    const SString b(text.c_str()); // equal text in a separate record
    for (auto _ : state)
        benchmark::DoNotOptimize(a == b);
}

void CompareStd(benchmark::State& state)
{
    const std::string a(kMegabyte, 'e');
    const std::string b(kMegabyte, 'e');
    for (auto _ : state)
        benchmark::DoNotOptimize(a == b);
}

} // namespace

BENCHMARK(AppendCharSString)->Unit(benchmark::kMillisecond);
BENCHMARK(AppendCharStd)->Unit(benchmark::kMillisecond);
BENCHMARK(AppendCharStdLocked)->Unit(benchmark::kMillisecond);
BENCHMARK(AppendChunkSString)->Unit(benchmark::kMicrosecond);
BENCHMARK(AppendChunkStd)->Unit(benchmark::kMicrosecond);
BENCHMARK(AppendChunkStdLocked)->Unit(benchmark::kMicrosecond);
BENCHMARK(CopySString)->Unit(benchmark::kMicrosecond);
BENCHMARK(CopyStd)->Unit(benchmark::kMillisecond);
BENCHMARK(CompareSString)->Unit(benchmark::kMicrosecond);
BENCHMARK(CompareStd)->Unit(benchmark::kMicrosecond);
