#pragma once

// The display without a server: windows live in memory, each painting into an image surface,
// and native events come from the test interface below. The backend behaves as a server
// would: showing, moving and resizing queue the events a real one sends, exposing marks the
// window for repainting, and destroying a window destroys its children and owned popups.

#include "platform/display/DisplayBackend.hpp"
#include "platform/display/DoubleClick.hpp"
#include "platform/display/SurfaceLoans.hpp"

#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>

namespace vesk::display {

enum class MouseButton : uint8_t { Left, Right, Middle };

// Modifier keys held during an injected event.
enum : uint32_t { HEADLESS_SHIFT = 1, HEADLESS_CONTROL = 2, HEADLESS_ALT = 4 };

// One message box shown on the headless display.
struct MessageBoxRecord
{
    NativeWindow owner;
    std::string text;
    std::string caption;
    uint32_t type;
};

class HeadlessBackend final : public DisplayBackend
{
public:
    HeadlessBackend();
    ~HeadlessBackend() override;

    const char* Name() const override { return "headless"; }
    void SetWindowProcedure(WindowProcedure procedure) override;
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
    int MessageBox(NativeWindow owner, const std::string& text, const std::string& caption,
                   uint32_t type) override;
    bool WaitEvents(int timeoutMs) override;
    bool DispatchEvents() override;
    void Wake() override;

    // Test interface: each call queues what a server would report; DispatchEvents delivers.
    // Positions are client coordinates of `window`; `modifiers` are HEADLESS_ bits.
    void InjectMouseMove(NativeWindow window, int32_t x, int32_t y, uint32_t modifiers = 0);
    void InjectMouseButton(NativeWindow window, MouseButton button, bool down, int32_t x, int32_t y,
                           uint32_t modifiers = 0);
    // `notches` turns of the wheel away from the user (negative: toward).
    void InjectWheel(NativeWindow window, int32_t x, int32_t y, int32_t notches, uint32_t modifiers = 0);
    // A key by virtual-key code; `text` is the character a press types (0: none).
    void InjectKey(NativeWindow window, uint32_t virtualKey, bool down, char16_t text = 0,
                   uint32_t modifiers = 0);
    void InjectMouseLeave(NativeWindow window);
    // Uncovers a client rectangle (null: all), as when another window moved away.
    void InjectExpose(NativeWindow window, const WindowBox* box = nullptr);
    // The user resized the window to a new client size.
    void InjectResize(NativeWindow window, int32_t width, int32_t height);
    // The window manager's close button.
    void InjectClose(NativeWindow window);
    // The window manager gave the focus to `window` (null: to no window of ours).
    void InjectFocus(NativeWindow window);
    // The monitors change (one 1920 x 1080 screen at first): every window that is not a child
    // gets WM_DISPLAYCHANGE with the first screen's size, as after a server's screen change.
    void SetScreens(const std::vector<ScreenInfo>& screens);

    // The current cursor of a window and the message boxes shown so far.
    CursorShape GetCursor(NativeWindow window) const;
    std::string GetTitle(NativeWindow window) const;
    std::vector<MessageBoxRecord> GetMessageBoxes() const;
    void ClearMessageBoxes();

private:
    struct HWindow;
    struct Event
    {
        NativeWindow window;
        uint32_t message;
        WParam wParam;
        LParam lParam;
    };
    using WindowPtr = std::shared_ptr<HWindow>;

    WindowPtr Find(NativeWindow window) const;
    void Queue(NativeWindow window, uint32_t message, WParam wParam, LParam lParam);
    void QueueShowEvents(NativeWindow window, const HWindow& w);
    struct Placement
    {
        bool moved, resized;
    };
    // Moves and sizes the window, queueing nothing; needs its paint lock and the mutex.
    Placement PlaceLocked(HWindow& w, int32_t x, int32_t y, int32_t width, int32_t height);
    void InvalidateLocked(HWindow& w, const WindowBox* box);
    void DestroyTree(NativeWindow window);
    WParam MouseKeyState(uint32_t modifiers) const;
    NativeWindow PointerTargetLocked(NativeWindow window, int32_t& x, int32_t& y) const;
    void ChangeFocusLocked(NativeWindow window);
    NativeWindow TopLevelLocked(NativeWindow window) const;
    WindowBox GetBoxLocked(const HWindow& w) const;

    SurfaceLoans<HWindow> m_aLoans;
    mutable std::mutex m_aMutex; // windows, queue, focus, message boxes
    std::condition_variable m_aWakeUp;
    bool m_bWoken = false;
    std::map<uintptr_t, WindowPtr> m_aWindows;
    uintptr_t m_nNextHandle = 1;
    std::deque<Event> m_aQueue;
    WindowProcedure m_pProcedure = nullptr;
    NativeWindow m_hFocus = nullptr;
    NativeWindow m_hCapture = nullptr;
    NativeWindow m_hPointer = nullptr; // window under the pointer
    uint32_t m_nButtons = 0;           // MK_ bits of the buttons held
    DoubleClick m_aClicks;
    std::vector<MessageBoxRecord> m_aMessageBoxes;
    std::vector<ScreenInfo> m_aScreens;
};

} // namespace vesk::display
