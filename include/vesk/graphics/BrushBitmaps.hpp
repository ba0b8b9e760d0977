#pragma once

#include <vesk/export.hpp>
#include <vesk/graphics/Bitmap.hpp>

namespace vesk {

// The two dither patterns the library state keeps: 8 x 8 one-bit pictures, black where a bit
// is 0 and white where it is 1, the leftmost pixel in the high bit of each row byte.
enum BrushBitmapKind : int
{
    BRUSHBITMAP_LIGHT = 0,  // rows 0x55, 0xAA, ...: every second pixel
    BRUSHBITMAP_SPARSE = 1, // rows 0x88, 0x22, ...: one pixel in four
};

// The pattern's opaque view; made with the library state's first request and owned by it.
// Empty without a library state or for another kind.
VESK_API Bitmap GetBrushBitmap(BrushBitmapKind kind);
// Makes both patterns anew in the library state (nothing without one).
VESK_API void CreateBrushBitmaps();

} // namespace vesk
