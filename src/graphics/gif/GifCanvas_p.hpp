#pragma once

// Turning decoded GIF frames into pictures: opaque copies onto the player's canvas, and the
// first frame with its transparent colour keyed out.

#include <vesk/graphics/GifAnimation.hpp>
#include <vesk/values/TamPoint.hpp>

#include <cairo.h>

namespace vesk {

class OutputDevice;

// The frame's pixels as an ARGB32 image surface; `keyColor` (red | green << 8 | blue << 16)
// becomes fully transparent unless it is kNoKey. Null for an empty frame.
inline constexpr uint32_t kNoKey = 0xFFFFFFFFu;
cairo_surface_t* FrameSurface(const GifFrame& frame, uint32_t keyColor = kNoKey);

// Draws `frame` on `device` with its top-left corner at `at`; opaque replaces what is there,
// otherwise the frame is blended over it.
void DrawFrame(OutputDevice& device, const GifFrame& frame, const TamPoint& at, bool opaque,
               uint32_t keyColor = kNoKey);

} // namespace vesk
