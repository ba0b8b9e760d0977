#include "platform/display/x11/cursors.hpp"

namespace vesk::display::x11 {

namespace {

// Cursor names in CursorShape order; each is also a glyph of the core cursor font, which
// xcb-cursor falls back to when no theme is installed.
constexpr const char* kNames[] = {
    "left_ptr", "watch", "xterm", "crosshair", "hand2", "sb_h_double_arrow", "sb_v_double_arrow", "fleur", "pirate",
};
static_assert(std::size(kNames) == static_cast<size_t>(CursorShape::No) + 1);

} // namespace

Cursors::Cursors(xcb_connection_t* xcb, xcb_screen_t* screen) : m_xcb(xcb)
{
    if (xcb_cursor_context_new(xcb, screen, &m_context) < 0)
        m_context = nullptr;
}

Cursors::~Cursors()
{
    for (xcb_cursor_t cursor : m_cursors)
        if (cursor != XCB_NONE)
            xcb_free_cursor(m_xcb, cursor);
    if (m_context)
        xcb_cursor_context_free(m_context);
}

xcb_cursor_t Cursors::Get(CursorShape shape)
{
    auto index = static_cast<size_t>(shape);
    if (!m_context || index >= m_cursors.size())
        return XCB_NONE;
    std::lock_guard lock(m_mutex);
    if (m_cursors[index] == XCB_NONE)
        m_cursors[index] = xcb_cursor_load_cursor(m_context, kNames[index]);
    return m_cursors[index];
}

} // namespace vesk::display::x11
