#pragma once

// What the simulator measures on snapshots: how far panes moved, overlaps, broken minimum
// sizes, panes lost, and percentiles.
#include "Session.hpp"

#include <vector>

namespace vesk::fidelity {

// The displacement given to a pane that changed state (docked, floating, hidden).
constexpr int32_t kStateChanged = 1000000;

// The largest move of any edge between two rectangles.
int32_t Displacement(const CRectangle& a, const CRectangle& b);

struct Comparison {
    std::vector<int32_t> displacements; // one per pane visible before
    int32_t maxDisplacement = 0;
    bool allWithin1 = true;
};
// Every pane visible in `before` against itself in `after`.
Comparison Compare(const Snapshot& before, const Snapshot& after);
// The displacement of one pane between two snapshots.
int32_t PaneDisplacement(const Snapshot& before, const Snapshot& after, const std::string& name);

// Pairs of docked panes whose rectangles share area, and docked panes that share area with a
// divider bar of `bars`.
int32_t CountOverlaps(const Snapshot& shot, const std::vector<CRectangle>& bars = {});
// Docked panes below their minimum size at `dpi`.
int32_t CountMinBroken(const Snapshot& shot, int32_t dpi);
// Panes visible in `before` that are neither docked nor floating with at least
// `minVisible` of their mini-frame on one of `screens` in `after`.
int32_t CountLost(const Snapshot& before, const Snapshot& after, const std::vector<CRectangle>& screens,
                  const TamSize& minVisible);
// Whether at least `minVisible` of `rect` lies on one screen.
bool IsReachable(const CRectangle& rect, const std::vector<CRectangle>& screens, const TamSize& minVisible);

// The nearest-rank percentile `pct` (0 to 100) of `values`; 0 for none.
int32_t Percentile(std::vector<int32_t> values, int32_t pct);

// How a docked pane sits in the layout: alone in its band, beside a single pane, or beside a
// split.
enum class PaneClass : uint8_t { FillsBand, SingleSibling, Other };
PaneClass ClassifyPane(const TamDockingManager& manager, const TamDockablePane& pane);

} // namespace vesk::fidelity
