#include "platform/display/x11/properties.hpp"

#include <xcb/xcb_icccm.h>

#include <unistd.h>

namespace vesk::display::x11 {

namespace {

constexpr uint32_t kNetWmStateRemove = 0;
constexpr uint32_t kNetWmStateAdd = 1;
constexpr uint32_t kSourceApplication = 1;

// A request to the window manager: a client message about `window` sent to the root window.
void SendToRoot(Connection& connection, xcb_window_t window, xcb_atom_t type, uint32_t d0, uint32_t d1 = 0,
                uint32_t d2 = 0, uint32_t d3 = 0)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = type;
    event.data.data32[0] = d0;
    event.data.data32[1] = d1;
    event.data.data32[2] = d2;
    event.data.data32[3] = d3;
    xcb_send_event(connection.Xcb(), 0, connection.Root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
}

void WriteHints(Connection& connection, xcb_window_t window, bool iconic)
{
    xcb_icccm_wm_hints_t hints{};
    xcb_icccm_wm_hints_set_input(&hints, 1);
    if (iconic)
        xcb_icccm_wm_hints_set_iconic(&hints);
    else
        xcb_icccm_wm_hints_set_normal(&hints);
    xcb_icccm_set_wm_hints(connection.Xcb(), window, &hints);
}

void WriteNetState(Connection& connection, xcb_window_t window, ShowCommand state)
{
    xcb_ewmh_connection_t& ewmh = connection.Ewmh();
    if (!ewmh.connection)
        return;
    xcb_atom_t atoms[2];
    uint32_t count = 0;
    if (state == ShowCommand::Maximised) {
        atoms[count++] = ewmh._NET_WM_STATE_MAXIMIZED_VERT;
        atoms[count++] = ewmh._NET_WM_STATE_MAXIMIZED_HORZ;
    } else if (state == ShowCommand::Minimised) {
        atoms[count++] = ewmh._NET_WM_STATE_HIDDEN;
    }
    xcb_ewmh_set_wm_state(&ewmh, window, count, atoms);
}

} // namespace

void InitTopLevelProperties(Connection& connection, const WindowRecord& record, const std::string& title)
{
    xcb_connection_t* xcb = connection.Xcb();
    xcb_ewmh_connection_t& ewmh = connection.Ewmh();
    const Atoms& atoms = connection.Atom();
    xcb_atom_t protocols[2] = {atoms.wmDeleteWindow, ewmh.connection ? ewmh._NET_WM_PING : xcb_atom_t{XCB_NONE}};
    xcb_icccm_set_wm_protocols(xcb, record.id, atoms.wmProtocols, ewmh.connection ? 2 : 1, protocols);
    static constexpr char kClass[] = "vesk\0Vesk";
    xcb_icccm_set_wm_class(xcb, record.id, sizeof kClass, kClass);
    xcb_size_hints_t size{};
    xcb_icccm_size_hints_set_position(&size, 1, record.x, record.y);
    xcb_icccm_size_hints_set_size(&size, 1, record.width, record.height);
    xcb_icccm_set_wm_normal_hints(xcb, record.id, &size);
    WriteHints(connection, record.id, false);
    if (record.parent != XCB_NONE)
        xcb_icccm_set_wm_transient_for(xcb, record.id, record.parent);
    if (ewmh.connection) {
        xcb_ewmh_set_wm_pid(&ewmh, record.id, static_cast<uint32_t>(::getpid()));
        xcb_atom_t type = record.kind == WindowKind::Popup ? ewmh._NET_WM_WINDOW_TYPE_POPUP_MENU
            : record.parent != XCB_NONE                    ? ewmh._NET_WM_WINDOW_TYPE_DIALOG
                                                           : ewmh._NET_WM_WINDOW_TYPE_NORMAL;
        xcb_ewmh_set_wm_window_type(&ewmh, record.id, 1, &type);
    }
    WriteTitle(connection, record.id, title);
}

void WriteTitle(Connection& connection, xcb_window_t window, const std::string& utf8)
{
    xcb_ewmh_connection_t& ewmh = connection.Ewmh();
    auto length = static_cast<uint32_t>(utf8.size());
    xcb_icccm_set_wm_name(connection.Xcb(), window, ewmh.connection ? ewmh.UTF8_STRING : xcb_atom_t{XCB_ATOM_STRING}, 8, length,
                          utf8.data());
    if (ewmh.connection)
        xcb_ewmh_set_wm_name(&ewmh, window, length, utf8.data());
}

ShowCommand ReadNetState(Connection& connection, xcb_window_t window)
{
    xcb_ewmh_connection_t& ewmh = connection.Ewmh();
    xcb_ewmh_get_atoms_reply_t state;
    if (!ewmh.connection || !xcb_ewmh_get_wm_state_reply(&ewmh, xcb_ewmh_get_wm_state(&ewmh, window), &state, nullptr))
        return ShowCommand::Normal;
    bool hidden = false, vertical = false, horizontal = false;
    for (uint32_t i = 0; i < state.atoms_len; ++i) {
        hidden |= state.atoms[i] == ewmh._NET_WM_STATE_HIDDEN;
        vertical |= state.atoms[i] == ewmh._NET_WM_STATE_MAXIMIZED_VERT;
        horizontal |= state.atoms[i] == ewmh._NET_WM_STATE_MAXIMIZED_HORZ;
    }
    xcb_ewmh_get_atoms_reply_wipe(&state);
    return hidden ? ShowCommand::Minimised : vertical && horizontal ? ShowCommand::Maximised : ShowCommand::Normal;
}

void X11Backend::MapWindow(WindowRecord& record, bool map)
{
    if (map)
        xcb_map_window(m_connection->Xcb(), record.id);
    else
        xcb_unmap_window(m_connection->Xcb(), record.id);
    std::lock_guard lock(m_mutex);
    record.mapped = map;
}

void X11Backend::ApplyState(WindowRecord& record, ShowCommand command)
{
    ShowCommand previous;
    bool mapped;
    WindowBox restore;
    {
        std::lock_guard lock(m_mutex);
        previous = record.state;
        mapped = record.mapped;
        restore = record.restore;
    }
    // Children and hidden windows only map or unmap.
    if (command == ShowCommand::Hide || record.kind == WindowKind::Child) {
        MapWindow(record, command != ShowCommand::Hide);
    } else if (record.kind == WindowKind::TopLevel && m_connection->HasWindowManager()) {
        xcb_ewmh_connection_t& ewmh = m_connection->Ewmh();
        if (!mapped) {
            // States of a window about to be mapped are its properties.
            WriteNetState(*m_connection, record.id, command);
            WriteHints(*m_connection, record.id, command == ShowCommand::Minimised);
            MapWindow(record, true);
        } else if (command == ShowCommand::Minimised) {
            constexpr uint32_t kIconicState = 3;
            SendToRoot(*m_connection, record.id, m_connection->Atom().wmChangeState, kIconicState);
        } else {
            if (previous == ShowCommand::Minimised)
                MapWindow(record, true); // mapping an iconic window restores it
            if (ewmh.connection)
                SendToRoot(*m_connection, record.id, ewmh._NET_WM_STATE,
                           command == ShowCommand::Maximised ? kNetWmStateAdd : kNetWmStateRemove,
                           ewmh._NET_WM_STATE_MAXIMIZED_VERT, ewmh._NET_WM_STATE_MAXIMIZED_HORZ, kSourceApplication);
        }
    } else {
        // Nobody else manages the window: maximising fills the screen, minimising hides it.
        if (command == ShowCommand::Maximised && previous != ShowCommand::Maximised) {
            WindowBox box = GetWindowBox(ToHandle(record.id));
            {
                std::lock_guard lock(m_mutex);
                record.restore = box;
            }
            const xcb_screen_t* screen = m_connection->Screen();
            MoveWindow(ToHandle(record.id), 0, 0, screen->width_in_pixels, screen->height_in_pixels);
        } else if (command != ShowCommand::Maximised && previous == ShowCommand::Maximised) {
            MoveWindow(ToHandle(record.id), restore.left, restore.top, restore.right - restore.left,
                       restore.bottom - restore.top);
        }
        WriteNetState(*m_connection, record.id, command);
        MapWindow(record, command != ShowCommand::Minimised);
    }
    std::lock_guard lock(m_mutex);
    record.state = record.kind == WindowKind::Child && command != ShowCommand::Hide ? ShowCommand::Normal : command;
    if (command != ShowCommand::Minimised)
        record.iconic = false;
}

} // namespace vesk::display::x11
