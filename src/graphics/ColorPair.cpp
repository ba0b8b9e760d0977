#include <vesk/graphics/ColorPair.hpp>

#include <algorithm>

namespace vesk {

ColorPair::ColorPair(const TamColor& color, int percent) : m_aColors{color, color}
{
    // Work in double so that the negation of INT_MIN stays defined.
    double f = percent / 100.0;
    int light = percent >= 0 ? 0 : 1;
    if (percent < 0)
        f = -f;
    m_aColors[light].LightenTowardWhite(std::min(f, 1.0));
    m_aColors[1 - light].Scale(std::max(1 - f, 0.0));
}

} // namespace vesk
