// Seeded random dock layouts for the layout model: shared by the model tests and the benchmark.
#pragma once

#include "docking/layout/LayoutModel.hpp"

#include <random>
#include <string>

namespace layout_random {

// How many layouts a test checks: `plain` in the plain build, a tenth in instrumented builds.
constexpr int Count(int plain)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return plain / 10;
#else
    return plain;
#endif
}

inline vesk::LayoutEdge RandomEdge(std::mt19937& rng)
{
    return static_cast<vesk::LayoutEdge>(rng() % 4);
}

inline vesk::TamSize RandomMin(std::mt19937& rng)
{
    return vesk::TamSize(int32_t(rng() % 81), int32_t(rng() % 81));
}

inline std::string PaneName(int i)
{
    return "Pane" + std::to_string(i);
}

// Fills an empty model with `panes` panes named Pane0, Pane1, ...: the first is a band, every
// further one a new band (inner or outermost, one time in four) or a split of a random pane.
inline void Build(vesk::LayoutModel& model, std::mt19937& rng, int panes)
{
    for (int i = 0; i < panes; ++i) {
        const std::string name = PaneName(i);
        if (i == 0 || rng() % 4 == 0) {
            model.AddBand(RandomEdge(rng), name.c_str(), int32_t(20 + rng() % 300), RandomMin(rng), rng() % 2 == 0);
        } else {
            const std::string target = PaneName(int(rng() % uint32_t(i)));
            model.DockIntoPane(name.c_str(), target.c_str(), RandomEdge(rng), int32_t(rng() % 200), RandomMin(rng));
        }
    }
}

} // namespace layout_random
