#pragma once

// Helpers shared by the dock parent's sources.
#include <vesk/values/CRectangle.hpp>
#include <vesk/values/TamSize.hpp>

#include <cstdint>

namespace vesk {

class DockPosition;

// A candidate place along one side of an area: top-left and size.
struct DockCandidate {
    int32_t x = 0;
    int32_t y = 0;
    int32_t w = 0;
    int32_t h = 0;
};

// The candidate for a pane of `size` along side `side` (CBRS_ALIGN_*) of `area`.
DockCandidate DockCandidateRect(const CRectangle& area, const TamSize& size, uint32_t side);
// A minimum size at 96 DPI in pixels at `dpi`.
TamSize DockMinSizeAt(const TamSize& min96, int32_t dpi);
// The docked rectangle of a position as a window rectangle (right = left + width).
CRectangle DockWindowRect(const DockPosition& pos);

} // namespace vesk
