#include <vesk/graphics/TamColor.hpp>

#include <vesk/frame/VeskData.hpp>

#include "graphics/ColorMath_p.hpp"

#include <algorithm>
#include <cmath>

namespace vesk {

namespace {

// Mode 0 of Lighten for one channel: scaled up; overflow and negative results become 255.
uint16_t ScaleUpChannel(uint16_t channel, int percent)
{
    int32_t v = TruncToInt32(channel * (1.0 + percent / 100.0));
    return (v > 254 || v < 0) ? 255 : static_cast<uint16_t>(v);
}

} // namespace

TamColor::TamColor(uint32_t colorRef)
    : m_nRed(colorRef & 0xFF), m_nGreen((colorRef >> 8) & 0xFF), m_nBlue((colorRef >> 16) & 0xFF)
{
}

TamColor::TamColor(uint32_t red, uint32_t green, uint32_t blue)
    : m_nRed(static_cast<uint16_t>(std::min<uint32_t>(red >> 8, 255))),
      m_nGreen(static_cast<uint16_t>(std::min<uint32_t>(green >> 8, 255))),
      m_nBlue(static_cast<uint16_t>(std::min<uint32_t>(blue >> 8, 255)))
{
}

TamColor::TamColor(ColorName name) : m_nRed(0), m_nGreen(0), m_nBlue(0)
{
    if (const VeskData* data = GetPVeskData()) {
        ColorTableEntry entry = data->GetColorTableEntry(name);
        m_nRed = entry.m_nRed >> 8;
        m_nGreen = entry.m_nGreen >> 8;
        m_nBlue = entry.m_nBlue >> 8;
    }
}

uint32_t TamColor::GetLong() const
{
    return uint32_t{m_nBlue} * 65536u + uint32_t{m_nGreen} * 256u + m_nRed;
}

uint32_t TamColor::GetLongReversed() const
{
    return uint32_t{m_nRed} * 65536u + uint32_t{m_nGreen} * 256u + m_nBlue;
}

double TamColor::GetLen() const
{
    return std::sqrt(ScalarProduct(*this));
}

double TamColor::ScalarProduct(const TamColor& other) const
{
    return double(m_nRed) * other.m_nRed + double(m_nGreen) * other.m_nGreen +
           double(m_nBlue) * other.m_nBlue;
}

double TamColor::GetLuminance() const
{
    return (0.2126 * (m_nRed * 256) + 0.751 * (m_nGreen * 256) + 0.0722 * (m_nBlue * 256)) / 65536;
}

TamColor TamColor::GetGrayValue() const
{
    int32_t gray = TruncToInt32(0.3 * (m_nRed * 256) + 0.6 * (m_nGreen * 256) + 0.1 * (m_nBlue * 256)) >> 8;
    TamColor result;
    result.m_nRed = result.m_nGreen = result.m_nBlue = static_cast<uint16_t>(std::min(gray, 255));
    return result;
}

uint32_t TamColor::GetGdiplusColor(int opacityPercent) const
{
    // The product wraps around at 32 bits and is then divided as a signed value.
    int32_t alpha = static_cast<int32_t>(static_cast<uint32_t>(opacityPercent) * 255u) / 100;
    return (static_cast<uint32_t>(alpha) & 0xFF) << 24 | uint32_t{m_nRed} << 16 |
           uint32_t{m_nGreen} << 8 | m_nBlue;
}

TamColor TamColor::ChangeBrightness(int percent)
{
    for (uint16_t* channel : {&m_nRed, &m_nGreen, &m_nBlue})
        *channel = TruncToChannel(std::min(double(*channel) * percent / 100.0, 255.0));
    return *this;
}

TamColor TamColor::Darken(int percent)
{
    Scale(std::max(1.0 - percent / 100.0, 0.0));
    return *this;
}

TamColor TamColor::Lighten(int percent, int mode)
{
    if (mode == 0)
        return Lighten(percent, percent, percent);
    if (mode == 1)
        LightenTowardWhite(std::min(percent / 100.0, 1.0));
    return *this;
}

TamColor TamColor::Lighten(int redPercent, int greenPercent, int bluePercent)
{
    m_nRed = ScaleUpChannel(m_nRed, redPercent);
    m_nGreen = ScaleUpChannel(m_nGreen, greenPercent);
    m_nBlue = ScaleUpChannel(m_nBlue, bluePercent);
    return *this;
}

void TamColor::LightenTowardWhite(double factor)
{
    for (uint16_t* channel : {&m_nRed, &m_nGreen, &m_nBlue})
        *channel = TruncToChannel(*channel + (255 - *channel) * factor);
}

void TamColor::Scale(double factor)
{
    for (uint16_t* channel : {&m_nRed, &m_nGreen, &m_nBlue})
        *channel = TruncToChannel(*channel * factor);
}

namespace {

double Hue2RGB(double p, double q, double t)
{
    if (t < 0)
        t += 1;
    else if (t > 1)
        t -= 1;
    if (6 * t < 1)
        return p + (q - p) * 6 * t;
    if (2 * t < 1)
        return q;
    if (3 * t < 2)
        return p + (q - p) * (2.0 / 3.0 - t) * 6;
    return p;
}

} // namespace

TamColor TamColor::FromHSL(double h, double s, double l)
{
    double red = l;
    double green = l;
    double blue = l;
    if (s != 0) {
        double q = l < 0.5 ? l * (1 + s) : l + s - l * s;
        double p = 2 * l - q;
        red = Hue2RGB(p, q, h + 1.0 / 3.0);
        green = Hue2RGB(p, q, h);
        blue = Hue2RGB(p, q, h - 1.0 / 3.0);
    }
    TamColor result;
    result.m_nRed = TruncToByte(red * 255);
    result.m_nGreen = TruncToByte(green * 255);
    result.m_nBlue = TruncToByte(blue * 255);
    return result;
}

int TamColor::GetHexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    // Upper case is not limited to "F": "G" reads as 16, so a channel may pass 255.
    if (c >= 'A' && c <= 'Z')
        return c - 'A' + 10;
    return 0;
}

} // namespace vesk
