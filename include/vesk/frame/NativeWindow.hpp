#pragma once

#include <cstdint>

namespace vesk {

// Handle of a window of the display backend; null for none. The backend defines what it points at.
using NativeWindow = struct NativeWindowImpl*;

// Message parameters are pointer-sized, so messages that carry an address can pass it.
// Messages that pack values keep a 32-bit layout in the low 32 bits (an LParam is the sign
// extension of the packed 32-bit value), so truncating to uint32_t or int32_t gives the packed
// bits.
using WParam = uintptr_t;
using LParam = intptr_t;

} // namespace vesk
