#pragma once

// The X11 display backend: windows on an xcb connection, painted from image back buffers.
// The handle of a window is its X window id.

#include "platform/display/DisplayBackend.hpp"
#include "platform/display/DoubleClick.hpp"
#include "platform/display/SurfaceLoans.hpp"
#include "platform/display/x11/connection.hpp"
#include "platform/display/x11/cursors.hpp"
#include "platform/display/x11/keymap.hpp"

#include <algorithm>
#include <atomic>
#include <bitset>
#include <deque>
#include <map>
#include <mutex>

namespace vesk::display::x11 {

inline NativeWindow ToHandle(xcb_window_t id) { return reinterpret_cast<NativeWindow>(static_cast<uintptr_t>(id)); }
inline xcb_window_t ToId(NativeWindow window)
{
    auto value = reinterpret_cast<uintptr_t>(window);
    return value <= UINT32_MAX ? static_cast<xcb_window_t>(value) : XCB_NONE;
}

// The smallest box holding both; an empty box adds nothing.
inline WindowBox Union(const WindowBox& a, const WindowBox& b)
{
    if (a.left >= a.right || a.top >= a.bottom)
        return b;
    if (b.left >= b.right || b.top >= b.bottom)
        return a;
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

struct WindowRecord
{
    xcb_window_t id = XCB_NONE;
    WindowKind kind = WindowKind::TopLevel;
    xcb_window_t parent = XCB_NONE; // parent of a child, owner of the others
    // Guarded by the backend's mutex.
    int32_t x = 0, y = 0;           // as last requested or reported: screen or parent-client coordinates
    int32_t width = 1, height = 1;  // client size
    ShowCommand state = ShowCommand::Hide;
    bool mapped = false;
    WindowBox restore;              // the box before maximising without a window manager
    bool dirty = false;             // a WM_PAINT is due for dirtyBox
    WindowBox dirtyBox;
    bool destroying = false;        // WM_DESTROY sent, the record is about to go
    bool reparented = false;        // a window manager framed it: its own events give sizes only
    WindowBox reported;             // the box of the last WM_MOVE and WM_SIZE
    bool iconic = false;            // WM_SIZE SIZE_MINIMIZED sent since it was last shown otherwise

    // Painting, guarded by paintLock; the lock is held from GetSurface/BeginPaint to
    // ReleaseSurface/EndPaint so that a background thread and the UI thread take turns.
    std::recursive_mutex paintLock;
    cairo_surface_t* buffer = nullptr; // ARGB32 image of the client area
    cairo_surface_t* target = nullptr; // the window itself, through cairo-xcb
    WindowBox paintBox;
};

class X11Backend final : public DisplayBackend
{
public:
    X11Backend(std::unique_ptr<Connection> connection, std::unique_ptr<Keymap> keymap);
    ~X11Backend() override;

    const char* Name() const override { return "x11"; }
    void SetWindowProcedure(WindowProcedure procedure) override { m_procedure.store(procedure); }

    NativeWindow CreateWindow(const WindowParams& params) override;
    void DestroyWindow(NativeWindow window) override;
    bool IsWindow(NativeWindow window) const override;
    size_t WindowCount() const override;

    void MoveWindow(NativeWindow window, int32_t x, int32_t y, int32_t width, int32_t height) override;

    bool SetParent(NativeWindow window, NativeWindow parent, int32_t x, int32_t y) override;
    WindowBox GetWindowBox(NativeWindow window) const override;
    WindowBox GetClientBox(NativeWindow window) const override;
    void Show(NativeWindow window, ShowCommand command) override;
    ShowCommand GetShowState(NativeWindow window) const override;
    void SetTitle(NativeWindow window, const std::string& utf8) override;
    void SetCursor(NativeWindow window, CursorShape shape) override;
    void SetFocus(NativeWindow window) override;
    NativeWindow GetFocus() const override;
    void SetCapture(NativeWindow window) override;
    NativeWindow GetCapture() const override;

    void Invalidate(NativeWindow window, const WindowBox* box) override;
    cairo_surface_t* BeginPaint(NativeWindow window, WindowBox& dirty) override;
    void EndPaint(cairo_surface_t* surface) override;
    cairo_surface_t* GetSurface(NativeWindow window) override;
    void ReleaseSurface(cairo_surface_t* surface) override;
    cairo_surface_t* Snapshot(NativeWindow window) override;

    std::vector<ScreenInfo> GetScreens() const override;
    int MessageBox(NativeWindow owner, const std::string& text, const std::string& caption, uint32_t type) override;

    bool WaitEvents(int timeoutMs) override;
    bool DispatchEvents() override;
    void Wake() override { m_connection->Wake(); }

private:
    std::shared_ptr<WindowRecord> Find(NativeWindow window) const;
    std::shared_ptr<WindowRecord> Find(xcb_window_t id) const;
    void Send(xcb_window_t id, uint32_t message, WParam wParam, LParam lParam) const;
    // Adds a client rectangle to the window's dirty box; the caller holds m_mutex.
    void MarkDirty(WindowRecord& record, const WindowBox& box);
    // Moves the dirty box into the box being painted; the caller holds m_mutex.
    static void TakeDirty(WindowRecord& record);

    // Window states (properties.cpp).
    void ApplyState(WindowRecord& record, ShowCommand command);
    void MapWindow(WindowRecord& record, bool map);

    // Painting (painting.cpp).
    void ResizeBuffer(WindowRecord& record, int32_t width, int32_t height);
    void Present(WindowRecord& record, const WindowBox& box);
    void FreeBuffers(WindowRecord& record);
    void Exposed(xcb_window_t id, const WindowBox& box);
    // Hands out the window's back buffer with its paint lock held, and takes it back.
    cairo_surface_t* Lend(const std::shared_ptr<WindowRecord>& record);

    // Events (events.cpp).
    void PullEvents();
    // Turns one event into messages; true when it also used up `next` (a key release and the
    // press that repeats it).
    bool Translate(const xcb_generic_event_t* event, const xcb_generic_event_t* next);
    void OnKey(const xcb_key_press_event_t& event, bool pressed);
    void OnButton(const xcb_button_press_event_t& event, bool pressed);
    void OnConfigure(const xcb_configure_notify_event_t& event);
    void OnClientMessage(const xcb_client_message_event_t& event);
    void OnProperty(const xcb_property_notify_event_t& event);
    // Sends WM_SIZE SIZE_MINIMIZED once per minimising; false when the window is not minimised.
    bool ReportMinimised(xcb_window_t id);
    void DeliverPaints();

    std::unique_ptr<Connection> m_connection;
    std::unique_ptr<Keymap> m_keymap;
    Cursors m_cursors;
    std::atomic<WindowProcedure> m_procedure{nullptr};

    mutable std::mutex m_mutex; // guards the window table and the records' geometry and state
    std::map<xcb_window_t, std::shared_ptr<WindowRecord>> m_windows;
    xcb_window_t m_capture = XCB_NONE;

    std::mutex m_queueMutex; // guards the events read ahead of dispatching
    std::deque<xcb_generic_event_t*> m_queue;
    std::atomic<bool> m_paintPending{false};
    cairo_device_t* m_cairoDevice = nullptr; // the connection as Cairo knows it, finished before closing; m_mutex

    SurfaceLoans<WindowRecord> m_loans;

    // Dispatching state, UI thread only.
    std::bitset<256> m_keysDown;
    DoubleClick m_clicks;
};

} // namespace vesk::display::x11
