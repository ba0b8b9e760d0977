#include "platform/display/x11/backend.hpp"

#include <vesk/frame/WinMessages.hpp>
#include "platform/display/x11/properties.hpp"

#include <algorithm>
#include <cstdlib>

namespace vesk::display::x11 {

namespace {

constexpr uint32_t kEventMask = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY
    | XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_KEY_PRESS
    | XCB_EVENT_MASK_KEY_RELEASE | XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE
    | XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_LEAVE_WINDOW;

// X has no empty windows; the smallest is one pixel.
int32_t ClampSize(int32_t size) { return std::clamp(size, 1, 32767); }

} // namespace

X11Backend::X11Backend(std::unique_ptr<Connection> connection, std::unique_ptr<Keymap> keymap)
    : m_connection(std::move(connection)),
      m_keymap(std::move(keymap)),
      m_cursors(m_connection->Xcb(), m_connection->Screen())
{
}

X11Backend::~X11Backend()
{
    std::vector<xcb_window_t> tops;
    {
        std::lock_guard lock(m_mutex);
        for (const auto& [id, record] : m_windows)
            if (record->kind != WindowKind::Child)
                tops.push_back(id);
    }
    for (xcb_window_t id : tops)
        DestroyWindow(ToHandle(id));
    std::lock_guard lock(m_queueMutex);
    for (xcb_generic_event_t* event : m_queue)
        std::free(event);
    // Cairo keeps the connection in its device; it must let go before the connection closes.
    if (m_cairoDevice) {
        cairo_device_finish(m_cairoDevice);
        cairo_device_destroy(m_cairoDevice);
    }
}

std::shared_ptr<WindowRecord> X11Backend::Find(xcb_window_t id) const
{
    std::lock_guard lock(m_mutex);
    auto it = m_windows.find(id);
    return it == m_windows.end() ? nullptr : it->second;
}

std::shared_ptr<WindowRecord> X11Backend::Find(NativeWindow window) const { return Find(ToId(window)); }

void X11Backend::Send(xcb_window_t id, uint32_t message, WParam wParam, LParam lParam) const
{
    // Late events of windows already destroyed (and of the message box's own) go nowhere.
    WindowProcedure procedure = m_procedure.load();
    if (procedure && Find(id))
        procedure(ToHandle(id), message, wParam, lParam);
}

NativeWindow X11Backend::CreateWindow(const WindowParams& params)
{
    xcb_connection_t* xcb = m_connection->Xcb();
    if (m_connection->Broken())
        return nullptr;
    auto record = std::make_shared<WindowRecord>();
    record->kind = params.kind;
    xcb_window_t parent = m_connection->Root();
    if (params.parent) {
        std::shared_ptr<WindowRecord> related = Find(params.parent);
        if (!related)
            return nullptr;
        record->parent = related->id;
        if (params.kind == WindowKind::Child)
            parent = related->id;
    } else if (params.kind == WindowKind::Child) {
        return nullptr;
    }
    record->x = params.x;
    record->y = params.y;
    record->width = ClampSize(params.width);
    record->height = ClampSize(params.height);
    record->id = xcb_generate_id(xcb);
    record->reported = {record->x, record->y, record->x + record->width, record->y + record->height};

    // Value order follows the mask bits: background, bit gravity, override-redirect, events.
    uint32_t values[] = {m_connection->Screen()->white_pixel, XCB_GRAVITY_NORTH_WEST,
                         params.kind == WindowKind::Popup ? 1u : 0u, kEventMask};
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, record->id, parent, static_cast<int16_t>(params.x),
                      static_cast<int16_t>(params.y), static_cast<uint16_t>(record->width),
                      static_cast<uint16_t>(record->height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      m_connection->Screen()->root_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_BIT_GRAVITY | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    if (params.kind != WindowKind::Child)
        InitTopLevelProperties(*m_connection, *record, params.title);
    ResizeBuffer(*record, record->width, record->height);
    {
        std::lock_guard lock(m_mutex);
        m_windows.emplace(record->id, record);
    }
    xcb_flush(xcb);
    return ToHandle(record->id);
}

void X11Backend::DestroyWindow(NativeWindow window)
{
    std::vector<std::shared_ptr<WindowRecord>> doomed;
    {
        std::lock_guard lock(m_mutex);
        auto it = m_windows.find(ToId(window));
        if (it == m_windows.end() || it->second->destroying)
            return;
        // The window, then everything it parents or owns, depth first.
        doomed.push_back(it->second);
        for (size_t i = 0; i < doomed.size(); ++i)
            for (const auto& [id, record] : m_windows)
                if (record->parent == doomed[i]->id && !record->destroying)
                    doomed.push_back(record);
        for (const auto& record : doomed)
            record->destroying = true;
    }
    for (const auto& record : doomed)
        Send(record->id, WM_DESTROY, 0, 0);
    xcb_connection_t* xcb = m_connection->Xcb();
    // Children first, so that no request names a window the server already destroyed.
    for (auto it = doomed.rbegin(); it != doomed.rend(); ++it) {
        WindowRecord& record = **it;
        FreeBuffers(record);
        xcb_destroy_window(xcb, record.id);
        std::lock_guard lock(m_mutex);
        m_windows.erase(record.id);
        if (m_capture == record.id) {
            xcb_ungrab_pointer(xcb, XCB_CURRENT_TIME);
            m_capture = XCB_NONE;
        }
    }
    xcb_flush(xcb);
}

bool X11Backend::IsWindow(NativeWindow window) const
{
    std::lock_guard lock(m_mutex);
    auto it = m_windows.find(ToId(window));
    return it != m_windows.end() && !it->second->destroying;
}

size_t X11Backend::WindowCount() const
{
    std::lock_guard lock(m_mutex);
    return m_windows.size();
}

void X11Backend::MoveWindow(NativeWindow window, int32_t x, int32_t y, int32_t width, int32_t height)
{
    std::shared_ptr<WindowRecord> record = Find(window);
    if (!record)
        return;
    width = ClampSize(width);
    height = ClampSize(height);
    {
        std::lock_guard lock(m_mutex);
        record->x = x;
        record->y = y;
        record->width = width;
        record->height = height;
    }
    ResizeBuffer(*record, width, height);
    uint32_t values[] = {static_cast<uint32_t>(x), static_cast<uint32_t>(y), static_cast<uint32_t>(width),
                         static_cast<uint32_t>(height)};
    xcb_configure_window(m_connection->Xcb(), record->id,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH
                             | XCB_CONFIG_WINDOW_HEIGHT,
                         values);
    xcb_flush(m_connection->Xcb());
}

bool X11Backend::SetParent(NativeWindow window, NativeWindow parent, int32_t x, int32_t y)
{
    std::shared_ptr<WindowRecord> record = Find(window);
    std::shared_ptr<WindowRecord> into = Find(parent);
    if (!record || !into || record->kind != WindowKind::Child)
        return false;
    {
        std::lock_guard lock(m_mutex);
        for (xcb_window_t up = into->id; up != XCB_NONE;) {
            if (up == record->id)
                return false; // the new parent lies inside the window
            auto it = m_windows.find(up);
            up = it != m_windows.end() && it->second->kind == WindowKind::Child ? it->second->parent : XCB_NONE;
        }
        record->parent = into->id;
        record->x = x;
        record->y = y;
    }
    // The server unmaps and maps a mapped window again around the move, so it stays visible.
    xcb_reparent_window(m_connection->Xcb(), record->id, into->id, static_cast<int16_t>(x), static_cast<int16_t>(y));
    xcb_flush(m_connection->Xcb());
    return true;
}

WindowBox X11Backend::GetWindowBox(NativeWindow window) const
{
    std::shared_ptr<WindowRecord> record = Find(window);
    if (!record)
        return {};
    WindowBox box;
    {
        std::lock_guard lock(m_mutex);
        box = {record->x, record->y, record->x + record->width, record->y + record->height};
    }
    // The server knows where the window really is (a window manager may have placed it).
    xcb_connection_t* xcb = m_connection->Xcb();
    xcb_translate_coordinates_reply_t* reply = xcb_translate_coordinates_reply(
        xcb, xcb_translate_coordinates(xcb, record->id, m_connection->Root(), 0, 0), nullptr);
    if (reply) {
        box.right += reply->dst_x - box.left;
        box.bottom += reply->dst_y - box.top;
        box.left = reply->dst_x;
        box.top = reply->dst_y;
        std::free(reply);
    }
    return box;
}

WindowBox X11Backend::GetClientBox(NativeWindow window) const
{
    std::shared_ptr<WindowRecord> record = Find(window);
    if (!record)
        return {};
    std::lock_guard lock(m_mutex);
    return {0, 0, record->width, record->height};
}

void X11Backend::Show(NativeWindow window, ShowCommand command)
{
    if (std::shared_ptr<WindowRecord> record = Find(window)) {
        ApplyState(*record, command);
        xcb_flush(m_connection->Xcb());
    }
}

ShowCommand X11Backend::GetShowState(NativeWindow window) const
{
    std::shared_ptr<WindowRecord> record = Find(window);
    if (!record)
        return ShowCommand::Hide;
    std::lock_guard lock(m_mutex);
    return record->state;
}

void X11Backend::SetTitle(NativeWindow window, const std::string& utf8)
{
    if (std::shared_ptr<WindowRecord> record = Find(window)) {
        WriteTitle(*m_connection, record->id, utf8);
        xcb_flush(m_connection->Xcb());
    }
}

void X11Backend::SetCursor(NativeWindow window, CursorShape shape)
{
    std::shared_ptr<WindowRecord> record = Find(window);
    if (!record)
        return;
    uint32_t cursor = m_cursors.Get(shape);
    xcb_change_window_attributes(m_connection->Xcb(), record->id, XCB_CW_CURSOR, &cursor);
    xcb_flush(m_connection->Xcb());
}

void X11Backend::SetFocus(NativeWindow window)
{
    xcb_window_t target = XCB_NONE;
    if (window) {
        std::shared_ptr<WindowRecord> record = Find(window);
        if (!record)
            return;
        target = record->id;
    }
    // Focus on no window throws the keys away, as focus on none does on the platform.
    xcb_set_input_focus(m_connection->Xcb(), XCB_INPUT_FOCUS_PARENT, target, XCB_CURRENT_TIME);
    xcb_flush(m_connection->Xcb());
}

NativeWindow X11Backend::GetFocus() const
{
    xcb_connection_t* xcb = m_connection->Xcb();
    xcb_get_input_focus_reply_t* reply = xcb_get_input_focus_reply(xcb, xcb_get_input_focus(xcb), nullptr);
    if (!reply)
        return nullptr;
    xcb_window_t focus = reply->focus;
    std::free(reply);
    return Find(focus) ? ToHandle(focus) : nullptr;
}

void X11Backend::SetCapture(NativeWindow window)
{
    xcb_connection_t* xcb = m_connection->Xcb();
    std::shared_ptr<WindowRecord> record = window ? Find(window) : nullptr;
    if (window && !record)
        return;
    std::lock_guard lock(m_mutex);
    if (!record) {
        if (m_capture != XCB_NONE)
            xcb_ungrab_pointer(xcb, XCB_CURRENT_TIME);
        m_capture = XCB_NONE;
    } else {
        // Every pointer event goes to the capturing window, in its coordinates, until released.
        constexpr uint16_t kPointerMask = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE
            | XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_LEAVE_WINDOW;
        xcb_grab_pointer(xcb, 0, record->id, kPointerMask, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE,
                         XCB_NONE, XCB_CURRENT_TIME);
        m_capture = record->id;
    }
    xcb_flush(xcb);
}

NativeWindow X11Backend::GetCapture() const
{
    std::lock_guard lock(m_mutex);
    return m_capture == XCB_NONE ? nullptr : ToHandle(m_capture);
}

void X11Backend::MarkDirty(WindowRecord& record, const WindowBox& box)
{
    WindowBox area{std::max(box.left, 0), std::max(box.top, 0), std::min(box.right, record.width),
                   std::min(box.bottom, record.height)};
    if (area.left >= area.right || area.top >= area.bottom)
        return;
    record.dirtyBox = record.dirty ? Union(record.dirtyBox, area) : area;
    record.dirty = true;
    m_paintPending.store(true);
}

void X11Backend::TakeDirty(WindowRecord& record)
{
    if (record.dirty)
        record.paintBox = Union(record.paintBox, record.dirtyBox);
    record.dirty = false;
}

void X11Backend::Invalidate(NativeWindow window, const WindowBox* box)
{
    std::shared_ptr<WindowRecord> record = Find(window);
    if (!record)
        return;
    {
        std::lock_guard lock(m_mutex);
        MarkDirty(*record, box ? *box : WindowBox{0, 0, record->width, record->height});
    }
    Wake();
}

} // namespace vesk::display::x11

namespace vesk::display {

std::unique_ptr<DisplayBackend> CreateX11Backend(const char* displayName)
{
    std::unique_ptr<x11::Connection> connection = x11::Connection::Open(displayName);
    if (!connection)
        return nullptr;
    std::unique_ptr<x11::Keymap> keymap = x11::Keymap::Create(connection->Xcb());
    return std::make_unique<x11::X11Backend>(std::move(connection), std::move(keymap));
}

} // namespace vesk::display
