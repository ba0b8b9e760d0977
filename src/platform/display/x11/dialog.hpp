#pragma once

// The message box: a small dialog window with the text and a row of buttons drawn with Cairo
// and Pango, answered with the mouse or the keyboard (Enter, Escape, Tab and the arrows).

#include "platform/display/DisplayBackend.hpp"

#include <cstdint>
#include <vector>

namespace vesk::display::x11 {

// The buttons of a message-box type, as their result codes, left to right (MB_OK's for
// unknown types).
std::vector<int> DialogButtons(uint32_t type);

// Where button `index` of `count` sits in a dialog of the given size: a row at the bottom,
// right-aligned.
WindowBox DialogButtonBox(int32_t dialogWidth, int32_t dialogHeight, int index, int count);

} // namespace vesk::display::x11
