#pragma once

// The operations the simulator applies to a fresh seeded layout, each undone again, and what
// it measured on the way.
#include "Metrics.hpp"

#include <vesk/docking/TamDockParentWnd.hpp>

#include <array>
#include <cstdint>

namespace vesk::fidelity {

enum class OpKind : uint8_t {
    HideShow,
    FloatRedock,
    SaveLoad,
    Resize,
    Dpi,
    MonitorRemoval,
    DividerDrag,
    Chain,
    Count
};
const char* OpName(OpKind kind);
constexpr size_t kOpCount = static_cast<size_t>(OpKind::Count);
constexpr size_t kStepCount = static_cast<size_t>(DockPlacementStep::Emergency) + 1;
const char* StepName(DockPlacementStep step);

struct OpRecord {
    OpKind kind = OpKind::HideShow;
    uint64_t seed = 0;
    bool ran = false; // false: the layout had nothing to operate on, or building it failed
    // The pane operated on (hide/show, float/redock).
    bool hasPane = false;
    PaneClass paneClass = PaneClass::Other;
    int32_t paneDisplacement = 0;
    // How often each DockWithPosition rule placed the pane (hide/show, float/redock, chains).
    std::array<int32_t, kStepCount> steps{};
    // Every pane visible before against the end.
    Comparison all;
    // Summed over every state passed through.
    int32_t overlaps = 0;
    int32_t minBroken = 0; // only in states whose frame holds every minimum size
    int32_t lost = 0;
    // Panes floated again and those that got their identical rectangle.
    int32_t floatAgain = 0, floatAgainIdentical = 0;
    // Save then load: layout values compared, and those read back byte for byte.
    int32_t layoutValues = 0, layoutValuesIdentical = 0;
    // After a monitor went away: mini-frames and those with 64 x 24 px on a screen.
    int32_t frames = 0, framesReachable = 0;
    // Chains: cycles, cycles that returned the pane within 1 px, cycles that returned every
    // visible pane within 1 px, and the largest move of any pane from the chain's start.
    int32_t cycles = 0, cyclesReturned = 0, cyclesAllBack = 0, drift = 0;
};

// Builds the layout of `seed` in a fresh frame and runs one operation on it.
OpRecord RunOperation(OpKind kind, uint64_t seed);

} // namespace vesk::fidelity
