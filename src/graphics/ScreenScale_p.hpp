#pragma once

#include <vesk/frame/VeskData.hpp>

#include <algorithm>

namespace vesk {

// The factor images are enlarged by on a high-resolution screen: min(ScaleX(100),
// ScaleY(100)) / 100 when both exceed 100, else 1 (also without library state).
inline double ScreenScaleFactor()
{
    const VeskData* data = GetPVeskData();
    if (!data)
        return 1.0;
    const int sx = data->ScaleX(100), sy = data->ScaleY(100);
    return sx > 100 && sy > 100 ? std::min(sx, sy) / 100.0 : 1.0;
}

} // namespace vesk
