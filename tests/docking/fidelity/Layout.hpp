#pragma once

// Seeded random layouts built through the manager's public docking operations: bands at every
// edge (outermost or next to the free space) and panes docked into panes on every side, which
// nests splits.
#include "Session.hpp"

namespace vesk::fidelity {

struct LayoutChoice {
    TamSize client;
    int32_t paneCount = 0;
};

// The frame size (640 x 480 to 3840 x 2160) and pane count (3 to 12) for a seed.
LayoutChoice ChooseLayout(Rng& rng);
// Makes and docks the panes; false when the manager refused a docking it should take.
bool BuildLayout(Session& session, int32_t paneCount, Rng& rng);

} // namespace vesk::fidelity
