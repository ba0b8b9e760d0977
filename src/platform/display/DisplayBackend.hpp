#pragma once

// The display backend: the one seam between the library's windows and a windowing system.
// Backends create native windows, hand out surfaces to paint into and turn native events into
// the library's message numbers with their documented parameter packing, delivered to the one
// window procedure. They never touch library objects (Window, router, DCManager).

#include <vesk/frame/NativeWindow.hpp>

#include <cairo.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vesk::display {

enum class WindowKind : uint8_t { TopLevel, Child, Popup };

// Show commands and show states: the numbers are the window's show state (1 normal,
// 2 minimised, 3 maximised); 0 hides.
enum class ShowCommand : uint8_t { Hide = 0, Normal = 1, Minimised = 2, Maximised = 3 };

enum class CursorShape : uint8_t { Arrow, Wait, IBeam, Cross, Hand, SizeWE, SizeNS, SizeAll, No };

struct WindowParams
{
    WindowKind kind = WindowKind::TopLevel;
    NativeWindow parent = nullptr; // owner of a popup, parent of a child
    int32_t x = 0, y = 0;          // top-left: screen coordinates, or the parent's client ones for a child
    int32_t width = 0, height = 0; // client size in pixels
    std::string title;             // UTF-8
};

struct ScreenInfo
{
    int32_t x = 0, y = 0, width = 0, height = 0; // pixels
    double dpi = 96.0;
};

// Window rectangle in screen coordinates, right = left + width, bottom = top + height.
struct WindowBox
{
    int32_t left = 0, top = 0, right = 0, bottom = 0;
};

// Receives every event of every native window as (handle, message, wParam, lParam), with
// the platform's message numbers and packing (vesk/frame/WinMessages.hpp). What backends send:
//   mouse 512 move, 513/514 left down/up, 516/517 right, 519/520 middle, 515/518/521 double
//     clicks (second press within 500 ms and 2 pixels): lParam MAKELPARAM(x, y) in signed
//     16-bit client coordinates, wParam the MK_ bits (1 left, 2 right, 4 shift, 8 control,
//     0x10 middle, 0x20/0x40 side buttons) as they are after the event;
//   523/524 side button down/up, 525 its double click: as above, with the button (1 or 2)
//     in wParam's high word;
//   522 wheel, 526 horizontal wheel: wParam high word the signed delta (120 per notch,
//     positive away from the user or to the right), low word the MK_ bits; lParam
//     MAKELPARAM of the pointer in screen coordinates;
//   675 the pointer left the window (sent always; the framework passes it on only to windows
//     that asked for it);
//   256/257 key down/up (260/261 with Alt held): wParam the virtual-key code, lParam repeat
//     count 1 in bits 0-15, scan code in 16-23, bit 24 extended key, bit 29 Alt held, bit 30
//     previous state (1 for up and for auto-repeat), bit 31 transition (1 for up); after a
//     down that types text, 258 (262 with Alt) with the UTF-16 unit in wParam;
//   15 paint (after the other pending events), 16 close (the window manager's close button),
//   5 size (wParam 0 restored, 1 minimised, 2 maximised; lParam MAKELPARAM(width, height) of
//     the client area), 3 move (lParam MAKELPARAM of the client origin in screen
//     coordinates), 24 show (wParam 1 shown, 0 hidden), 6 activate (wParam 1 active, 0
//     inactive; lParam the other window), 7/8 focus gained/lost (wParam the other window),
//     2 destroy (from DestroyWindow, synchronously).
using WindowProcedure = intptr_t (*)(NativeWindow window, uint32_t message, WParam wParam, LParam lParam);

// Every member may be called from any thread unless it says otherwise; events are delivered
// only from DispatchEvents, on the thread that calls it.
class DisplayBackend
{
public:
    virtual ~DisplayBackend() = default;

    virtual const char* Name() const = 0; // "headless" or "x11"

    // The procedure that receives all events (null: events are dropped).
    virtual void SetWindowProcedure(WindowProcedure procedure) = 0;

    // Null when the window cannot be made. Destroying delivers WM_DESTROY (2) first.
    virtual NativeWindow CreateWindow(const WindowParams& params) = 0;
    virtual void DestroyWindow(NativeWindow window) = 0;
    virtual bool IsWindow(NativeWindow window) const = 0;
    virtual size_t WindowCount() const = 0;

    virtual void MoveWindow(NativeWindow window, int32_t x, int32_t y, int32_t width, int32_t height) = 0;
    // Moves a child window, with its contents, state and children, into `parent` at (x, y) of
    // the new parent's client area. False when either window is unknown, the window is not a
    // child, or `parent` is the window itself or lies inside it.
    virtual bool SetParent(NativeWindow window, NativeWindow parent, int32_t x, int32_t y) = 0;
    virtual WindowBox GetWindowBox(NativeWindow window) const = 0;  // screen coordinates
    virtual WindowBox GetClientBox(NativeWindow window) const = 0;  // (0, 0, width, height)
    virtual void Show(NativeWindow window, ShowCommand command) = 0;
    virtual ShowCommand GetShowState(NativeWindow window) const = 0; // Hide when not visible
    virtual void SetTitle(NativeWindow window, const std::string& utf8) = 0;
    virtual void SetCursor(NativeWindow window, CursorShape shape) = 0;
    virtual void SetFocus(NativeWindow window) = 0;
    virtual NativeWindow GetFocus() const = 0;
    virtual void SetCapture(NativeWindow window) = 0; // pointer grab; null releases
    virtual NativeWindow GetCapture() const = 0;

    // Marks a client rectangle for repainting (null box: all); a WM_PAINT follows from
    // DispatchEvents.
    virtual void Invalidate(NativeWindow window, const WindowBox* box) = 0;
    // Painting: the surface covers the client area; the dirty rectangle is validated. A
    // surface from BeginPaint or GetSurface is given back with EndPaint/ReleaseSurface, which
    // shows what was drawn. Null when the window is unknown.
    virtual cairo_surface_t* BeginPaint(NativeWindow window, WindowBox& dirty) = 0;
    virtual void EndPaint(cairo_surface_t* surface) = 0;
    virtual cairo_surface_t* GetSurface(NativeWindow window) = 0;
    // The loan is found by its surface, so a window destroyed meanwhile needs no handle.
    virtual void ReleaseSurface(cairo_surface_t* surface) = 0;
    // What the window shows now, as a new ARGB32 image surface of its client size.
    virtual cairo_surface_t* Snapshot(NativeWindow window) = 0;

    virtual std::vector<ScreenInfo> GetScreens() const = 0;

    // Message box: type and result use the platform's MB_ and ID numbers.
    virtual int MessageBox(NativeWindow owner, const std::string& text, const std::string& caption,
                           uint32_t type) = 0;

    // Event loop support (the loop itself is the framework's). Waits until native events
    // are pending, Wake is called, or timeoutMs passes (negative: no limit); false when the
    // display is gone.
    virtual bool WaitEvents(int timeoutMs) = 0;
    // Delivers all pending native events; UI thread only. False when the display is gone.
    virtual bool DispatchEvents() = 0;
    // Ends a WaitEvents from any thread.
    virtual void Wake() = 0;
};

std::unique_ptr<DisplayBackend> CreateHeadlessBackend();
// Null when the display cannot be opened.
std::unique_ptr<DisplayBackend> CreateX11Backend(const char* displayName);

// The process's backend: VESK_PLATFORM ("x11" or "headless"), else x11 when DISPLAY is set
// and opens, else headless (saying so on one line of stderr).
DisplayBackend& GetDisplayBackend();

} // namespace vesk::display
