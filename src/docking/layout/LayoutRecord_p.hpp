#pragma once

// Bounds on what a saved layout may hold, shared by the layout model's record and the manager's
// layout value that wraps it. Larger counts or longer names are damage: the reader refuses them
// before it allocates.
#include <cstdint>

namespace vesk::layout_record {

constexpr uint32_t kMaxBands = 256;
constexpr int32_t kMaxNodes = 4096;
constexpr int32_t kMaxDepth = 64;
// Pane names, in the model's leaves and in the away panes' records.
constexpr int32_t kMaxName = 1024;
// Pane records in one list of floating, pinned or hidden panes.
constexpr uint32_t kMaxAwayPanes = 4096;
// Dock sites with pinned panes: one per edge.
constexpr uint32_t kMaxDockSites = 4;

} // namespace vesk::layout_record
