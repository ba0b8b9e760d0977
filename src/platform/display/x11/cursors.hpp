#pragma once

// Cursors by shape, loaded once from the cursor theme (or the core cursor font) through
// xcb-cursor.

#include "platform/display/DisplayBackend.hpp"

#include <xcb/xcb.h>
#include <xcb/xcb_cursor.h>

#include <array>
#include <mutex>

namespace vesk::display::x11 {

class Cursors
{
public:
    Cursors(xcb_connection_t* xcb, xcb_screen_t* screen);
    ~Cursors();
    Cursors(const Cursors&) = delete;
    Cursors& operator=(const Cursors&) = delete;

    // XCB_NONE when the shape cannot be loaded (the window then keeps its parent's cursor).
    xcb_cursor_t Get(CursorShape shape);

private:
    xcb_connection_t* m_xcb;
    xcb_cursor_context_t* m_context = nullptr;
    std::mutex m_mutex;
    std::array<xcb_cursor_t, static_cast<size_t>(CursorShape::No) + 1> m_cursors{};
};

} // namespace vesk::display::x11
