#pragma once

// One connection to an X server: the default screen, the atoms the backend uses, the EWMH
// helper state and the wake-up descriptor that lets other threads end a wait for events.

#include <xcb/xcb.h>
#include <xcb/xcb_ewmh.h>

#include <cstdint>
#include <memory>

namespace vesk::display::x11 {

struct Atoms
{
    xcb_atom_t wmProtocols = XCB_NONE;
    xcb_atom_t wmDeleteWindow = XCB_NONE;
    xcb_atom_t wmChangeState = XCB_NONE;
};

class Connection
{
public:
    // Null when the display cannot be opened.
    static std::unique_ptr<Connection> Open(const char* displayName);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    xcb_connection_t* Xcb() const { return m_xcb; }
    xcb_screen_t* Screen() const { return m_screen; }
    xcb_window_t Root() const { return m_screen->root; }
    xcb_visualtype_t* Visual() const { return m_visual; }
    xcb_ewmh_connection_t& Ewmh() { return m_ewmh; }
    const Atoms& Atom() const { return m_atoms; }

    // The server closed the connection or it failed; every later request is a no-op.
    bool Broken() const { return xcb_connection_has_error(m_xcb) != 0; }
    // True when a window manager announces itself on the root window (EWMH check window).
    // The server is asked once; the answer holds until NoteEvent learns that a manager came or
    // went. User-interface thread only, like the event dispatch.
    bool HasWindowManager();
    // Forgets the window manager answer on a change of the root's check property (a manager
    // came or was replaced) or the destruction of the check window (the manager went).
    void NoteEvent(const xcb_generic_event_t& event);

    // Waits until the server has sent something, Wake is called or timeoutMs passes
    // (negative: no limit). Clears a pending wake.
    void WaitReadable(int timeoutMs);
    // Ends a WaitReadable from any thread.
    void Wake();

private:
    Connection(xcb_connection_t* xcb, xcb_screen_t* screen, int wakeFd);
    // The live check window of the running window manager, or XCB_NONE.
    xcb_window_t AskWindowManager();

    xcb_connection_t* m_xcb;
    xcb_screen_t* m_screen;
    xcb_visualtype_t* m_visual = nullptr;
    xcb_ewmh_connection_t m_ewmh{};
    Atoms m_atoms;
    int m_wakeFd;
    enum class WmState : uint8_t { Unknown, Absent, Present } m_eWm = WmState::Unknown;
    xcb_window_t m_wmCheck = XCB_NONE;
    bool m_bWatchingRoot = false;
};

} // namespace vesk::display::x11
