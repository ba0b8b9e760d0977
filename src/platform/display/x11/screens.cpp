#include "platform/display/x11/backend.hpp"

#include <xcb/xcb_xrm.h>

#include <cstdlib>

namespace vesk::display::x11 {

namespace {

// The desktop's font resolution (Xft.dpi in the server's resource database), else the one
// the screen's physical size gives, else 96.
double ScreenDpi(xcb_connection_t* xcb, xcb_screen_t* screen)
{
    if (xcb_xrm_database_t* database = xcb_xrm_database_from_resource_manager(xcb, screen)) {
        char* value = nullptr;
        double dpi = 0;
        if (xcb_xrm_resource_get_string(database, "Xft.dpi", nullptr, &value) >= 0 && value)
            dpi = std::strtod(value, nullptr);
        std::free(value);
        xcb_xrm_database_free(database);
        if (dpi > 0)
            return dpi;
    }
    if (screen->width_in_millimeters > 0)
        return screen->width_in_pixels * 25.4 / screen->width_in_millimeters;
    return 96.0;
}

} // namespace

std::vector<ScreenInfo> X11Backend::GetScreens() const
{
    const xcb_screen_t* screen = m_connection->Screen();
    ScreenInfo info;
    info.width = screen->width_in_pixels;
    info.height = screen->height_in_pixels;
    info.dpi = ScreenDpi(m_connection->Xcb(), m_connection->Screen());
    return {info};
}

} // namespace vesk::display::x11
