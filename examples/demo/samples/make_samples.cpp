// Draws the demo's sample pictures with the library itself and writes them into the folder
// given on the command line: a PNG, a JPEG, a BMP, a TIFF and an animated GIF.

#include <vesk/files.hpp>
#include <vesk/frame.hpp>
#include <vesk/graphics.hpp>

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

using namespace vesk;

namespace {

// A landscape-like scene whose hue and sun position depend on `seed`.
Bitmap Scene(const TamSize& size, double seed)
{
    VirtualDevice dev(size);
    const int32_t w = size.Width(), h = size.Height();
    dev.Erase(CRectangle(0, 0, w - 1, h * 2 / 3), RectGradient(ColorPair(TamColor::FromHSL(seed, 0.6, 0.35),
                                                                          TamColor::FromHSL(seed, 0.7, 0.8))));
    dev.Erase(CRectangle(0, h * 2 / 3, w - 1, h - 1), TamColor::FromHSL(std::fmod(seed + 0.3, 1.0), 0.5, 0.35));
    dev.ChangeFillInBrush(Brush(TamColor(0x40D0FFu)));
    const double sx = w * (0.2 + 0.6 * seed), sy = h * 0.3;
    dev.DrawEllipseHQ(FRectangle(sx - h * 0.12, sy - h * 0.12, sx + h * 0.12, sy + h * 0.12), 100);
    for (int i = 0; i < 5; ++i) {
        const double x = w * i / 5.0;
        dev.ChangeFillInBrush(Brush(TamColor::FromHSL(std::fmod(seed + 0.5, 1.0), 0.4, 0.25 + 0.05 * i)));
        dev.DrawEllipseHQ(FRectangle(x, h * 0.55, x + w * 0.3, h * 0.85), 90);
    }
    return Bitmap(dev);
}

// One frame of a turning wheel: eight spokes, one of them lit.
Bitmap Wheel(int step)
{
    VirtualDevice dev(TamSize(96, 96));
    dev.Erase(CRectangle(0, 0, 95, 95), TamColor(0xF4F0ECu));
    for (int i = 0; i < 8; ++i) {
        const double a = (i + step) * 3.14159265 / 4;
        const TamColor c = i == 0 ? TamColor(0x2060E0u) : TamColor::FromHSL(0.6, 0.2, 0.55 + 0.04 * i);
        dev.DrawLineHQ(FPoint(48 + 14 * std::cos(a), 48 + 14 * std::sin(a)),
                       FPoint(48 + 40 * std::cos(a), 48 + 40 * std::sin(a)), TransparentColor(c, 100), 7.0, LineCap::Round);
    }
    return Bitmap(dev);
}

bool Write(Bitmap picture, const std::string& path)
{
    const bool ok = !picture.Empty() && picture.Save(DirEntry(SString(path.c_str()))) == ERR_OK;
    std::printf("%s %s\n", ok ? "wrote" : "cannot write", path.c_str());
    return ok;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string dir = argc > 1 ? argv[1] : ".";
    VeskInit();
    bool ok = Write(Scene(TamSize(320, 200), 0.58), dir + "/lake.png");
    ok = Write(Scene(TamSize(400, 260), 0.08), dir + "/dunes.jpg") && ok;
    ok = Write(Scene(TamSize(160, 120), 0.33), dir + "/meadow.bmp") && ok;
    ok = Write(Scene(TamSize(240, 240), 0.80), dir + "/dusk.tif") && ok;
    std::vector<Bitmap> frames;
    for (int i = 0; i < 8; ++i)
        frames.push_back(Wheel(i));
    const std::string gif = dir + "/wheel.gif";
    const bool gifOk = Bitmap::SaveAnimatedGif(DirEntry(SString(gif.c_str())), frames, 10) == ERR_OK;
    std::printf("%s %s\n", gifOk ? "wrote" : "cannot write", gif.c_str());
    VeskExit();
    return ok && gifOk ? 0 : 1;
}
