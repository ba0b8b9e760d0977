#pragma once

// ICCCM and EWMH properties of top-level windows: titles, protocols, size and state hints,
// and the requests a window manager answers.

#include "platform/display/x11/backend.hpp"

#include <string>

namespace vesk::display::x11 {

// Protocols (WM_DELETE_WINDOW, _NET_WM_PING), class, process id, position and size hints,
// window type, owner (transient-for) and title of a new top-level or popup window.
void InitTopLevelProperties(Connection& connection, const WindowRecord& record, const std::string& title);

// WM_NAME and _NET_WM_NAME, both UTF-8.
void WriteTitle(Connection& connection, xcb_window_t window, const std::string& utf8);

// The show state a window manager reports in _NET_WM_STATE (hidden: minimised; maximised
// both ways: maximised; otherwise normal).
ShowCommand ReadNetState(Connection& connection, xcb_window_t window);

} // namespace vesk::display::x11
