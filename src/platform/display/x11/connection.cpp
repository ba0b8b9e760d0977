#include "platform/display/x11/connection.hpp"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace vesk::display::x11 {

namespace {

xcb_intern_atom_cookie_t InternAtom(xcb_connection_t* xcb, const char* name)
{
    return xcb_intern_atom(xcb, 0, static_cast<uint16_t>(std::strlen(name)), name);
}

xcb_atom_t AtomReply(xcb_connection_t* xcb, xcb_intern_atom_cookie_t cookie)
{
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(xcb, cookie, nullptr);
    xcb_atom_t atom = reply ? reply->atom : XCB_NONE;
    std::free(reply);
    return atom;
}

xcb_visualtype_t* FindVisual(xcb_screen_t* screen)
{
    for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem; xcb_depth_next(&depth))
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem; xcb_visualtype_next(&visual))
            if (visual.data->visual_id == screen->root_visual)
                return visual.data;
    return nullptr;
}

} // namespace

std::unique_ptr<Connection> Connection::Open(const char* displayName)
{
    int screenNumber = 0;
    xcb_connection_t* xcb = xcb_connect(displayName, &screenNumber);
    if (xcb_connection_has_error(xcb)) {
        xcb_disconnect(xcb);
        return nullptr;
    }
    xcb_screen_t* screen = nullptr;
    auto it = xcb_setup_roots_iterator(xcb_get_setup(xcb));
    for (int i = 0; it.rem; ++i, xcb_screen_next(&it))
        if (i == screenNumber)
            screen = it.data;
    int wakeFd = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (!screen || wakeFd < 0) {
        if (wakeFd >= 0)
            ::close(wakeFd);
        xcb_disconnect(xcb);
        return nullptr;
    }
    std::unique_ptr<Connection> connection(new Connection(xcb, screen, wakeFd));
    // Cairo draws for the root visual; a server whose root visual is not true colour is not served.
    if (!connection->m_visual || connection->m_visual->_class != XCB_VISUAL_CLASS_TRUE_COLOR || connection->Broken())
        return nullptr;
    return connection;
}

Connection::Connection(xcb_connection_t* xcb, xcb_screen_t* screen, int wakeFd)
    : m_xcb(xcb), m_screen(screen), m_wakeFd(wakeFd)
{
    m_visual = FindVisual(screen);
    // Every request goes out before the first reply is awaited: one round trip in all.
    xcb_intern_atom_cookie_t* cookies = xcb_ewmh_init_atoms(xcb, &m_ewmh);
    const xcb_intern_atom_cookie_t protocols = InternAtom(xcb, "WM_PROTOCOLS");
    const xcb_intern_atom_cookie_t deleteWindow = InternAtom(xcb, "WM_DELETE_WINDOW");
    const xcb_intern_atom_cookie_t changeState = InternAtom(xcb, "WM_CHANGE_STATE");
    if (!xcb_ewmh_init_atoms_replies(&m_ewmh, cookies, nullptr))
        m_ewmh.connection = nullptr;
    m_atoms.wmProtocols = AtomReply(xcb, protocols);
    m_atoms.wmDeleteWindow = AtomReply(xcb, deleteWindow);
    m_atoms.wmChangeState = AtomReply(xcb, changeState);
}

Connection::~Connection()
{
    if (m_ewmh.connection)
        xcb_ewmh_connection_wipe(&m_ewmh);
    xcb_disconnect(m_xcb);
    ::close(m_wakeFd);
}

bool Connection::HasWindowManager()
{
    if (!m_ewmh.connection)
        return false;
    if (!m_bWatchingRoot) {
        // Selected before the first question, so no change after the answer goes unseen.
        const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(m_xcb, Root(), XCB_CW_EVENT_MASK, &mask);
        m_bWatchingRoot = true;
    }
    if (m_eWm == WmState::Unknown) {
        m_wmCheck = AskWindowManager();
        m_eWm = m_wmCheck != XCB_NONE ? WmState::Present : WmState::Absent;
    }
    return m_eWm == WmState::Present;
}

xcb_window_t Connection::AskWindowManager()
{
    xcb_window_t check = XCB_NONE;
    if (!xcb_ewmh_get_supporting_wm_check_reply(&m_ewmh, xcb_ewmh_get_supporting_wm_check(&m_ewmh, Root()), &check,
                                                nullptr))
        return XCB_NONE;
    // Watched before it is looked at: its destruction tells that the manager went, even if the
    // root's property stays. A stale check window left by a manager that has gone does not count.
    const uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_xcb, check, XCB_CW_EVENT_MASK, &mask);
    xcb_window_t own = XCB_NONE;
    const bool live = xcb_ewmh_get_supporting_wm_check_reply(&m_ewmh, xcb_ewmh_get_supporting_wm_check(&m_ewmh, check),
                                                             &own, nullptr)
        && own == check;
    return live ? check : XCB_NONE;
}

void Connection::NoteEvent(const xcb_generic_event_t& event)
{
    switch (event.response_type & 0x7F) {
    case XCB_PROPERTY_NOTIFY: {
        const auto& property = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (property.window == Root() && m_ewmh.connection && property.atom == m_ewmh._NET_SUPPORTING_WM_CHECK)
            m_eWm = WmState::Unknown;
        break;
    }
    case XCB_DESTROY_NOTIFY:
        if (m_wmCheck != XCB_NONE && reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == m_wmCheck) {
            m_wmCheck = XCB_NONE;
            m_eWm = WmState::Unknown;
        }
        break;
    default:
        break;
    }
}

void Connection::WaitReadable(int timeoutMs)
{
    pollfd fds[2] = {{xcb_get_file_descriptor(m_xcb), POLLIN, 0}, {m_wakeFd, POLLIN, 0}};
    int result;
    do
        result = ::poll(fds, 2, timeoutMs < 0 ? -1 : timeoutMs);
    while (result < 0 && errno == EINTR);
    if (result > 0 && (fds[1].revents & POLLIN)) {
        uint64_t count;
        [[maybe_unused]] ssize_t n = ::read(m_wakeFd, &count, sizeof count);
    }
}

void Connection::Wake()
{
    uint64_t one = 1;
    [[maybe_unused]] ssize_t n = ::write(m_wakeFd, &one, sizeof one);
}

} // namespace vesk::display::x11
