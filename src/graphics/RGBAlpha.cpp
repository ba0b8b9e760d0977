#include <vesk/graphics/RGBAlpha.hpp>

#include <vesk/graphics/TamColor.hpp>

#include "graphics/ColorMath_p.hpp"

namespace vesk {

void RGBAlpha::MixTransparent(const TamColor& background)
{
    double a = GetAlpha() / 255.0;
    SetRed(TruncToByte(background.Get8BitRed() * (1 - a) + GetRed() * a));
    SetGreen(TruncToByte(background.Get8BitGreen() * (1 - a) + GetGreen() * a));
    SetBlue(TruncToByte(background.Get8BitBlue() * (1 - a) + GetBlue() * a));
}

void RGBAlpha::PreMultiplyAlpha()
{
    uint32_t alpha = GetAlpha();
    SetRed(static_cast<uint8_t>(GetRed() * alpha / 255));
    SetGreen(static_cast<uint8_t>(GetGreen() * alpha / 255));
    SetBlue(static_cast<uint8_t>(GetBlue() * alpha / 255));
}

} // namespace vesk
