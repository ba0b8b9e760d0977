#include "platform/display/DisplayBackend.hpp"
#include "platform/display/headless/HeadlessBackend.hpp"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace vesk::display {

std::unique_ptr<DisplayBackend> CreateHeadlessBackend()
{
    return std::make_unique<HeadlessBackend>();
}

namespace {

std::unique_ptr<DisplayBackend> SelectBackend()
{
    const char* platform = std::getenv("VESK_PLATFORM");
    if (platform && std::strcmp(platform, "headless") == 0)
        return CreateHeadlessBackend();
    const char* display = std::getenv("DISPLAY");
    const bool wantX11 = platform && std::strcmp(platform, "x11") == 0;
    if (display && *display) {
        if (auto x11 = CreateX11Backend(display))
            return x11;
        std::fprintf(stderr, "vesk: cannot open X display \"%s\"; using the headless display\n", display);
    } else {
        std::fprintf(stderr, wantX11 ? "vesk: VESK_PLATFORM=x11 but DISPLAY is not set; using the headless display\n"
                                     : "vesk: DISPLAY is not set; using the headless display\n");
    }
    return CreateHeadlessBackend();
}

} // namespace

DisplayBackend& GetDisplayBackend()
{
    // Made once, on first use, and kept for the life of the process: windows of any library
    // start may still refer to it.
    static DisplayBackend* const backend = SelectBackend().release();
    return *backend;
}

} // namespace vesk::display
