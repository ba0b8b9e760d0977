#include <vesk/frame/WinMessages.hpp>
#include "platform/display/x11/backend.hpp"
#include "platform/display/x11/properties.hpp"

namespace vesk::display::x11 {

namespace {

uint32_t MouseKeyState(uint16_t state)
{
    uint32_t keys = 0;
    if (state & XCB_KEY_BUT_MASK_BUTTON_1)
        keys |= MK_LBUTTON;
    if (state & XCB_KEY_BUT_MASK_BUTTON_2)
        keys |= MK_MBUTTON;
    if (state & XCB_KEY_BUT_MASK_BUTTON_3)
        keys |= MK_RBUTTON;
    if (state & XCB_KEY_BUT_MASK_SHIFT)
        keys |= MK_SHIFT;
    if (state & XCB_KEY_BUT_MASK_CONTROL)
        keys |= MK_CONTROL;
    return keys;
}

struct ButtonMessages
{
    uint32_t down, up, doubleClick, keyBit, xButton;
};

// Buttons 1-3 are left, middle and right; 8 and 9 are the side buttons.
const ButtonMessages* ButtonOf(uint8_t button)
{
    static constexpr ButtonMessages kLeft{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, MK_LBUTTON, 0};
    static constexpr ButtonMessages kMiddle{WM_MBUTTONDOWN, WM_MBUTTONUP, WM_MBUTTONDBLCLK, MK_MBUTTON, 0};
    static constexpr ButtonMessages kRight{WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK, MK_RBUTTON, 0};
    static constexpr ButtonMessages kX1{WM_XBUTTONDOWN, WM_XBUTTONUP, WM_XBUTTONDBLCLK, MK_XBUTTON1, 1};
    static constexpr ButtonMessages kX2{WM_XBUTTONDOWN, WM_XBUTTONUP, WM_XBUTTONDBLCLK, MK_XBUTTON2, 2};
    switch (button) {
    case 1: return &kLeft;
    case 2: return &kMiddle;
    case 3: return &kRight;
    case 8: return &kX1;
    case 9: return &kX2;
    default: return nullptr;
    }
}

} // namespace

void X11Backend::PullEvents()
{
    std::lock_guard lock(m_queueMutex);
    while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection->Xcb()))
        m_queue.push_back(event);
}

bool X11Backend::WaitEvents(int timeoutMs)
{
    if (m_connection->Broken())
        return false;
    {
        // Events already read from the socket (while waiting for a reply) leave it quiet.
        std::lock_guard lock(m_queueMutex);
        if (xcb_generic_event_t* event = xcb_poll_for_queued_event(m_connection->Xcb()))
            m_queue.push_back(event);
        if (!m_queue.empty())
            return true;
    }
    if (m_paintPending.load())
        return true;
    xcb_flush(m_connection->Xcb());
    m_connection->WaitReadable(timeoutMs);
    PullEvents();
    return !m_connection->Broken();
}

bool X11Backend::DispatchEvents()
{
    if (m_connection->Broken())
        return false;
    PullEvents();
    std::deque<xcb_generic_event_t*> events;
    {
        std::lock_guard lock(m_queueMutex);
        events.swap(m_queue);
    }
    for (size_t i = 0; i < events.size(); ++i) {
        // A release that ends the batch may be half of an auto-repeat whose press is still
        // unread.
        if (i + 1 == events.size() && (events[i]->response_type & 0x7F) == XCB_KEY_RELEASE) {
            PullEvents();
            std::lock_guard lock(m_queueMutex);
            events.insert(events.end(), m_queue.begin(), m_queue.end());
            m_queue.clear();
        }
        const xcb_generic_event_t* next = i + 1 < events.size() ? events[i + 1] : nullptr;
        if (Translate(events[i], next))
            ++i;
    }
    for (xcb_generic_event_t* event : events)
        std::free(event);
    DeliverPaints();
    xcb_flush(m_connection->Xcb());
    return !m_connection->Broken();
}

bool X11Backend::Translate(const xcb_generic_event_t* event, const xcb_generic_event_t* next)
{
    uint8_t type = event->response_type & 0x7F;
    uint8_t nextType = next ? next->response_type & 0x7F : 0;
    m_connection->NoteEvent(*event);
    switch (type) {
    case XCB_KEY_PRESS:
        OnKey(*reinterpret_cast<const xcb_key_press_event_t*>(event), true);
        break;
    case XCB_KEY_RELEASE: {
        // Auto-repeat shows as a release and a press of the same key at the same time; the
        // release is dropped, so the press reports the key as already down.
        const auto& release = *reinterpret_cast<const xcb_key_release_event_t*>(event);
        if (nextType == XCB_KEY_PRESS) {
            const auto& press = *reinterpret_cast<const xcb_key_press_event_t*>(next);
            if (press.detail == release.detail && press.time == release.time) {
                OnKey(press, true);
                return true;
            }
        }
        OnKey(release, false);
        break;
    }
    case XCB_BUTTON_PRESS:
    case XCB_BUTTON_RELEASE:
        OnButton(*reinterpret_cast<const xcb_button_press_event_t*>(event), type == XCB_BUTTON_PRESS);
        break;
    case XCB_MOTION_NOTIFY: {
        const auto& motion = *reinterpret_cast<const xcb_motion_notify_event_t*>(event);
        // Moves are coalesced: only the last of a run reaches the window.
        if (nextType == XCB_MOTION_NOTIFY && reinterpret_cast<const xcb_motion_notify_event_t*>(next)->event == motion.event)
            break;
        Send(motion.event, WM_MOUSEMOVE, MouseKeyState(motion.state), MakeLParam(motion.event_x, motion.event_y));
        break;
    }
    case XCB_LEAVE_NOTIFY: {
        const auto& leave = *reinterpret_cast<const xcb_leave_notify_event_t*>(event);
        if (leave.mode == XCB_NOTIFY_MODE_NORMAL && leave.detail != XCB_NOTIFY_DETAIL_INFERIOR)
            Send(leave.event, WM_MOUSELEAVE, 0, 0);
        break;
    }
    case XCB_EXPOSE: {
        const auto& expose = *reinterpret_cast<const xcb_expose_event_t*>(event);
        Exposed(expose.window, {expose.x, expose.y, expose.x + expose.width, expose.y + expose.height});
        break;
    }
    case XCB_CONFIGURE_NOTIFY:
        OnConfigure(*reinterpret_cast<const xcb_configure_notify_event_t*>(event));
        break;
    case XCB_REPARENT_NOTIFY: {
        const auto& reparent = *reinterpret_cast<const xcb_reparent_notify_event_t*>(event);
        if (std::shared_ptr<WindowRecord> record = Find(reparent.window)) {
            std::lock_guard lock(m_mutex);
            record->reparented = record->kind != WindowKind::Child && reparent.parent != m_connection->Root();
        }
        break;
    }
    case XCB_MAP_NOTIFY:
        Send(reinterpret_cast<const xcb_map_notify_event_t*>(event)->window, WM_SHOWWINDOW, 1, 0);
        break;
    case XCB_UNMAP_NOTIFY: {
        // Minimising unmaps the window (ours without a window manager, the manager's when it
        // iconifies it): that is a size change, not hiding.
        const xcb_window_t id = reinterpret_cast<const xcb_unmap_notify_event_t*>(event)->window;
        if (!ReportMinimised(id))
            Send(id, WM_SHOWWINDOW, 0, 0);
        break;
    }
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT: {
        const auto& focus = *reinterpret_cast<const xcb_focus_in_event_t*>(event);
        // Focus that follows the pointer or comes with a grab is not keyboard focus moving.
        if (focus.mode == XCB_NOTIFY_MODE_GRAB || focus.mode == XCB_NOTIFY_MODE_UNGRAB
            || focus.detail >= XCB_NOTIFY_DETAIL_POINTER)
            break;
        Send(focus.event, type == XCB_FOCUS_IN ? WM_SETFOCUS : WM_KILLFOCUS, 0, 0);
        break;
    }
    case XCB_CLIENT_MESSAGE:
        OnClientMessage(*reinterpret_cast<const xcb_client_message_event_t*>(event));
        break;
    case XCB_PROPERTY_NOTIFY:
        OnProperty(*reinterpret_cast<const xcb_property_notify_event_t*>(event));
        break;
    case XCB_MAPPING_NOTIFY:
        if (m_keymap)
            m_keymap->Reload();
        break;
    default: // errors of requests whose replies nobody waits for, and events not selected
        break;
    }
    return false;
}

void X11Backend::OnKey(const xcb_key_press_event_t& event, bool pressed)
{
    if (!m_keymap)
        return;
    m_keymap->SetState(event.state);
    uint16_t vk = m_keymap->VirtualKey(event.detail);
    ScanCode scan = ScanCodeOf(event.detail);
    bool wasDown = m_keysDown[event.detail];
    m_keysDown[event.detail] = pressed;
    bool control = (event.state & XCB_MOD_MASK_CONTROL) != 0;
    // The state is the one before the event: Alt's own press already counts as Alt held, its
    // release no longer does.
    bool altHeld = vk == VK_MENU ? pressed : (event.state & XCB_MOD_MASK_1) != 0;
    // Alt combinations (not with Control: that is AltGr), Alt itself and F10 are system keys.
    bool system = !control && (altHeld || vk == VK_MENU || vk == VK_F10);
    if (!pressed) {
        if (vk)
            Send(event.event, system ? WM_SYSKEYUP : WM_KEYUP, vk, KeyLParam(scan, altHeld, true, true));
        return;
    }
    LParam lParam = KeyLParam(scan, altHeld, wasDown, false);
    if (vk)
        Send(event.event, system ? WM_SYSKEYDOWN : WM_KEYDOWN, vk, lParam);
    for (char16_t unit : m_keymap->Text(event.detail))
        if (!(unit == 0x7F && vk == VK_DELETE)) // the Delete key types nothing
            Send(event.event, system ? WM_SYSCHAR : WM_CHAR, unit, lParam);
}

void X11Backend::OnButton(const xcb_button_press_event_t& event, bool pressed)
{
    uint32_t keys = MouseKeyState(event.state);
    if (event.detail >= 4 && event.detail <= 7) {
        // Wheel notches come as presses of buttons 4 (up), 5 (down), 6 (left) and 7 (right);
        // away from the user and to the right are positive. Wheel messages carry screen
        // coordinates.
        if (!pressed)
            return;
        int delta = event.detail == 4 || event.detail == 7 ? WHEEL_DELTA : -WHEEL_DELTA;
        Send(event.event, event.detail <= 5 ? WM_MOUSEWHEEL : WM_MOUSEHWHEEL,
             MakeWParam(keys, static_cast<uint32_t>(delta)), MakeLParam(event.root_x, event.root_y));
        return;
    }
    const ButtonMessages* button = ButtonOf(event.detail);
    if (!button)
        return;
    // The key state is the one after the event.
    keys = pressed ? keys | button->keyBit : keys & ~button->keyBit;
    WParam wParam = MakeWParam(keys, button->xButton);
    LParam lParam = MakeLParam(event.event_x, event.event_y);
    if (!pressed) {
        Send(event.event, button->up, wParam, lParam);
        return;
    }
    const bool doubleClick = m_clicks.Press(event.event, event.detail, event.time, event.event_x, event.event_y);
    Send(event.event, doubleClick ? button->doubleClick : button->down, wParam, lParam);
}

void X11Backend::OnConfigure(const xcb_configure_notify_event_t& event)
{
    std::shared_ptr<WindowRecord> record = Find(event.window);
    if (!record)
        return;
    bool moved = false, sized = false;
    WindowBox box;
    ShowCommand state;
    {
        std::lock_guard lock(m_mutex);
        // Inside a window manager's frame only the manager's own (synthetic) events give the
        // position on the screen.
        if (!record->reparented || (event.response_type & 0x80)) {
            record->x = event.x;
            record->y = event.y;
        }
        record->width = event.width;
        record->height = event.height;
        box = {record->x, record->y, record->x + record->width, record->y + record->height};
        WindowBox& reported = record->reported;
        moved = box.left != reported.left || box.top != reported.top;
        sized = box.right - box.left != reported.right - reported.left
            || box.bottom - box.top != reported.bottom - reported.top;
        reported = box;
        state = record->state;
    }
    ResizeBuffer(*record, event.width, event.height);
    if (moved)
        Send(record->id, WM_MOVE, 0, MakeLParam(box.left, box.top));
    if (sized)
        Send(record->id, WM_SIZE, state == ShowCommand::Maximised ? SIZE_MAXIMIZED : SIZE_RESTORED,
             MakeLParam(event.width, event.height));
}

void X11Backend::OnClientMessage(const xcb_client_message_event_t& event)
{
    if (event.format != 32 || event.type != m_connection->Atom().wmProtocols || !Find(event.window))
        return;
    xcb_atom_t protocol = event.data.data32[0];
    if (protocol == m_connection->Atom().wmDeleteWindow) {
        Send(event.window, WM_CLOSE, 0, 0);
    } else if (m_connection->Ewmh().connection && protocol == m_connection->Ewmh()._NET_WM_PING) {
        // Answering the window manager's ping shows the program is alive.
        xcb_client_message_event_t reply = event;
        reply.window = m_connection->Root();
        xcb_send_event(m_connection->Xcb(), 0, m_connection->Root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&reply));
    }
}

void X11Backend::OnProperty(const xcb_property_notify_event_t& event)
{
    // A window manager reports minimising and maximising in _NET_WM_STATE; without one the
    // backend wrote the property itself and the state is already known.
    xcb_ewmh_connection_t& ewmh = m_connection->Ewmh();
    if (!ewmh.connection || event.atom != ewmh._NET_WM_STATE)
        return;
    std::shared_ptr<WindowRecord> record = Find(event.window);
    if (!record || !record->reparented)
        return;
    ShowCommand state = ReadNetState(*m_connection, event.window);
    {
        std::lock_guard lock(m_mutex);
        if (record->state == ShowCommand::Hide)
            return;
        record->state = state;
        if (state != ShowCommand::Minimised)
            record->iconic = false;
    }
    ReportMinimised(event.window);
}

bool X11Backend::ReportMinimised(xcb_window_t id)
{
    std::shared_ptr<WindowRecord> record = Find(id);
    if (!record)
        return false;
    bool first;
    LParam size;
    {
        std::lock_guard lock(m_mutex);
        if (record->state != ShowCommand::Minimised)
            return false;
        first = !record->iconic;
        record->iconic = true;
        size = MakeLParam(record->width, record->height);
    }
    if (first)
        Send(id, WM_SIZE, SIZE_MINIMIZED, size);
    return true;
}

void X11Backend::DeliverPaints()
{
    m_paintPending.store(false);
    std::vector<xcb_window_t> due;
    {
        std::lock_guard lock(m_mutex);
        for (auto& [id, record] : m_windows) {
            // Hidden windows keep their dirty box until they are shown.
            if (!record->dirty || !record->mapped || record->destroying)
                continue;
            TakeDirty(*record);
            due.push_back(id);
        }
    }
    for (xcb_window_t id : due)
        Send(id, WM_PAINT, 0, 0);
}

} // namespace vesk::display::x11
