#pragma once

#include <array>
#include <cstdint>

namespace demo {

// The demo's panes, in the order of their keys F1 to F5.
enum PaneId : int { PANE_FOLDER, PANE_PREVIEW, PANE_PROPERTIES, PANE_COLOURS, PANE_LOG, PANE_COUNT };

struct Box
{
    int32_t x = 0, y = 0, width = 0, height = 0;
    bool operator==(const Box&) const = default;
};

using PaneBoxes = std::array<Box, PANE_COUNT>;
using PaneVisibility = std::array<bool, PANE_COUNT>;

// Places the panes in a client area of width x height: the folder in a left column, the
// preview in the centre, properties over colours in a right column and the log in a bottom
// strip, in fixed proportions. A hidden pane gets an empty box; the columns and the strip
// keep their share while any of their panes is shown, so a pane shown again returns to the
// place it had.
PaneBoxes ComputeLayout(int32_t width, int32_t height, const PaneVisibility& visible);

} // namespace demo
