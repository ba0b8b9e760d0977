#include "ColoursPane.hpp"

#include <algorithm>

using namespace vesk;

namespace demo {

void ColoursPane::Render(OutputDevice& dev, const TamSize& size)
{
    int32_t y = DrawFrame(dev, size);
    const int32_t width = size.Width() - 12;
    if (width < 16)
        return;

    // The sixteen fixed colours of the table, in one row of swatches.
    DrawLine(dev, 6, y, "Colour table");
    y += LINE_HEIGHT;
    const int32_t cell = std::max(1, width / 16);
    for (int i = COL_BLACK; i <= COL_WHITE; ++i) {
        const int32_t x = 6 + (i - COL_BLACK) * cell;
        dev.Erase(CRectangle(x, y, x + cell - 2, y + 13), TamColor(static_cast<ColorName>(i)));
    }
    y += 18;

    // Twenty-four hues at full saturation and half lightness.
    DrawLine(dev, 6, y, "HSL hues");
    y += LINE_HEIGHT;
    for (int i = 0; i < 24; ++i) {
        const int32_t x0 = 6 + width * i / 24, x1 = 6 + width * (i + 1) / 24 - 1;
        dev.Erase(CRectangle(x0, y, x1, y + 13), TamColor::FromHSL(i / 24.0, 1.0, 0.5));
    }
    y += 18;

    const TamColor from(0x00C0FFu), to(0xA03020u);
    DrawLine(dev, 6, y, "Gradient, plain");
    y += LINE_HEIGHT;
    dev.Erase(CRectangle(6, y, 6 + width - 1, y + 13), HorizontalGradient(ColorPair(from, to)));
    y += 18;

    // The anti-aliased family has no gradient fill of its own here: strips of interpolated
    // colour on fractional edges give the same ramp.
    DrawLine(dev, 6, y, "Gradient, anti-aliased");
    y += LINE_HEIGHT;
    constexpr int kStrips = 48;
    for (int i = 0; i < kStrips; ++i) {
        const double t = i / double(kStrips - 1);
        auto mix = [t](uint16_t a, uint16_t b) { return static_cast<uint32_t>(a + (b - a) * t); };
        const TamColor c(mix(from.GetRed(), to.GetRed()), mix(from.GetGreen(), to.GetGreen()),
                         mix(from.GetBlue(), to.GetBlue()));
        const double x0 = 6 + width * i / double(kStrips), x1 = 6 + width * (i + 1) / double(kStrips);
        dev.DrawRectHQ(FRectangle(x0, y, x1, y + 14), TransparentColor(c, 100));
    }
}

} // namespace demo
