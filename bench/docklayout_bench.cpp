// Solving random dock layouts of 12 and 100 panes, and building their layout trees, against a
// peer that only writes the same number of pane rectangles into a vector (the least any solver
// must do). Each row reports the CPU time per_pane; compare the /100 rows with the /12 rows:
// the time per pane should grow by no more than 2x.
#include "SteadyAllocator.hpp"

#include "docking/layout/LayoutTree.hpp"
#include "models/layout_random.hpp"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

const vesk::TamSize kFrame(3840, 2160);

void BuildLayout(vesk::LayoutModel& model, int panes)
{
    std::mt19937 rng{uint32_t(panes)};
    layout_random::Build(model, rng, panes);
}

void PerPane(benchmark::State& state, int panes)
{
    state.counters["per_pane"] =
        benchmark::Counter(double(panes), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_SolveLayout(benchmark::State& state)
{
    const int panes = int(state.range(0));
    vesk::LayoutModel model(kFrame, 96);
    BuildLayout(model, panes);
    for (auto _ : state) {
        vesk::LayoutSolution solution = model.Solve(kFrame, 96);
        benchmark::DoNotOptimize(solution);
    }
    PerPane(state, panes);
}
BENCHMARK(BM_SolveLayout)->Arg(12)->Arg(100);

void BM_BuildLayoutTree(benchmark::State& state)
{
    const int panes = int(state.range(0));
    vesk::LayoutModel model(kFrame, 96);
    BuildLayout(model, panes);
    for (auto _ : state) {
        vesk::DockElementVec elements = vesk::BuildDockElements(model);
        benchmark::DoNotOptimize(elements);
    }
    PerPane(state, panes);
}
BENCHMARK(BM_BuildLayoutTree)->Arg(12)->Arg(100);

// The peer: as many rectangles written into a fresh vector.
void BM_FillRectsPeer(benchmark::State& state)
{
    const int panes = int(state.range(0));
    for (auto _ : state) {
        std::vector<vesk::LayoutPaneRect> rects;
        for (int i = 0; i < panes; ++i)
            rects.push_back(vesk::LayoutPaneRect{nullptr, vesk::LayoutRect{i, i, 100, 100}});
        benchmark::DoNotOptimize(rects);
    }
    PerPane(state, panes);
}
BENCHMARK(BM_FillRectsPeer)->Arg(12)->Arg(100);

} // namespace
