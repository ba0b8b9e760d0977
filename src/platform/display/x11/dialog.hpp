#pragma once

// The message box: a small dialog window with the text and a row of buttons drawn with Cairo
// and Pango, answered with the mouse or the keyboard (Enter, Escape, Tab and the arrows).

#include "platform/display/DisplayBackend.hpp"

#include <cstdint>
#include <vector>

namespace vesk::display::x11 {

// Where button `index` of `count` sits in a dialog of the given size: a row at the bottom,
// right-aligned.
WindowBox DialogButtonBox(int32_t dialogWidth, int32_t dialogHeight, int index, int count);

} // namespace vesk::display::x11
