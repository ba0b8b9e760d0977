// Writing and reading 100,000 dock position records of five neighbours each, against a plain
// memcpy of the same stored bytes. Compare the bytes_per_second of the three rows.
#include <vesk/docking.hpp>

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr int RECORDS = 100000;
// Distinct positions, written over and over.
constexpr int DISTINCT = 1000;

std::vector<vesk::DockPosition> MakePositions()
{
    const uint32_t sides[] = {vesk::CBRS_ALIGN_LEFT, vesk::CBRS_ALIGN_TOP, vesk::CBRS_ALIGN_RIGHT,
                              vesk::CBRS_ALIGN_BOTTOM};
    std::vector<vesk::DockPosition> positions(DISTINCT);
    for (int i = 0; i < DISTINCT; ++i) {
        vesk::DockPosition& p = positions[size_t(i)];
        p.SetName(("Pane " + std::to_string(i)).c_str());
        p.SetSize(vesk::TamSize(200 + i % 300, 100 + i % 200));
        p.SetMarginAlign(sides[i % 4]);
        for (int n = 0; n < 5; ++n)
            p.AddNeighbour(("Neighbour " + std::to_string(i * 5 + n)).c_str(), sides[(i + n) % 4],
                           vesk::NeighbourContactType(n % 4), n == 3, n == 4);
        p.SetPos(vesk::TamPoint(i, 2 * i));
    }
    return positions;
}

vesk::DataBuffer WriteAll(const std::vector<vesk::DockPosition>& positions)
{
    vesk::DataBuffer buffer;
    for (int i = 0; i < RECORDS; ++i)
        positions[size_t(i % DISTINCT)].WriteToDataBuffer(buffer);
    return buffer;
}

void BM_DockPositionWrite(benchmark::State& state)
{
    const std::vector<vesk::DockPosition> positions = MakePositions();
    int64_t bytes = 0;
    for (auto _ : state) {
        vesk::DataBuffer buffer = WriteAll(positions);
        bytes = buffer.GetContentSize();
        benchmark::DoNotOptimize(bytes);
    }
    state.SetBytesProcessed(state.iterations() * bytes);
}
BENCHMARK(BM_DockPositionWrite)->Unit(benchmark::kMillisecond);

void BM_DockPositionRead(benchmark::State& state)
{
    vesk::DataBuffer buffer = WriteAll(MakePositions());
    vesk::DockPosition p;
    for (auto _ : state) {
        buffer.SetPos(vesk::DATABUFFER_CONTENT_START);
        for (int i = 0; i < RECORDS; ++i) {
            if (!p.ReadFromDataBuffer(buffer))
                state.SkipWithError("record did not read");
        }
        benchmark::DoNotOptimize(p);
    }
    state.SetBytesProcessed(state.iterations() * buffer.GetContentSize());
}
BENCHMARK(BM_DockPositionRead)->Unit(benchmark::kMillisecond);

// The peer: copying the same stored bytes with memcpy.
void BM_MemcpyPeer(benchmark::State& state)
{
    const std::vector<uint8_t> stored = WriteAll(MakePositions()).GetBytes();
    std::vector<uint8_t> copy(stored.size());
    for (auto _ : state) {
        std::memcpy(copy.data(), stored.data(), stored.size());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * int64_t(stored.size()));
}
BENCHMARK(BM_MemcpyPeer)->Unit(benchmark::kMillisecond);

} // namespace
