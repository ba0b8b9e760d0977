#pragma once

#include <vesk/export.hpp>
#include <vesk/frame/NativeWindow.hpp>
#include <vesk/values/CRectangle.hpp>
#include <vesk/values/TamPoint.hpp>
#include <vesk/values/TamSize.hpp>

#include <cstdint>

namespace vesk {

// A window procedure: every message of a native window goes through the one its CWnd holds.
using WndProc = intptr_t (*)(NativeWindow window, uint32_t message, WParam wParam, LParam lParam);

enum class WndKind : uint8_t { TopLevel, Child, Popup };

// Show commands: the first four are also the show states.
enum : int { SW_HIDE = 0, SW_SHOWNORMAL = 1, SW_SHOWMINIMIZED = 2, SW_SHOWMAXIMIZED = 3, SW_SHOW = 5 };

// Pointer shapes.
enum class WinCursor : uint8_t { Arrow, Wait, IBeam, Cross, Hand, SizeWE, SizeNS, SizeAll, No };

// Mouse-tracking requests: a hover message after the pointer rests, a leave message when it
// goes. Each is answered once and must be asked for again.
enum : uint32_t { TME_HOVER = 1, TME_LEAVE = 2 };

// A native window of the display: handle, parent, rectangle, visibility, show state and the
// window procedure its messages go through. Messages reach the virtual WindowProc unless the
// procedure was replaced (subclassing), in which case the new procedure decides whether to
// pass them on to the one it replaced.
class VESK_API CWnd
{
public:
    CWnd() = default;
    // Destroys the native window if it still exists.
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    // Makes the native window, hidden. A child's position is in its parent's client
    // coordinates and needs a parent; a popup's parent is its owner. False when the window
    // exists already or cannot be made.
    bool Create(WndKind kind, CWnd* parent, const TamPoint& pos, const TamSize& clientSize,
                const char* utf8Title = "");
    // Destroys the native window (WM_DESTROY reaches it and its children first); false when
    // there was none.
    bool DestroyWindow();

    NativeWindow GetSafeHwnd() const { return m_hWnd; }
    CWnd* GetParent() const { return m_pParent; }
    WndKind GetKind() const { return m_eKind; }
    // The window's CWnd; null for unknown handles.
    static CWnd* FromHandle(NativeWindow window);

    // Screen rectangle, right = left + width and bottom = top + height.
    CRectangle GetWindowRect() const;
    // Client size in pixels.
    TamSize GetClientSize() const;
    bool MoveWindow(int32_t x, int32_t y, int32_t width, int32_t height);
    // Moves a child window into another parent at `pos` (the new parent's client coordinates),
    // keeping its native window, contents and children. False when this is not a child, either
    // window does not exist, or `parent` lies inside this window.
    bool SetParent(CWnd* parent, const TamPoint& pos);
    // SW_ command; SW_SHOW shows in the current state. Returns whether it was visible.
    bool ShowWindow(int command);
    bool IsWindowVisible() const;
    bool IsIconic() const;
    bool IsZoomed() const;
    void SetWindowText(const char* utf8);
    void SetCursor(WinCursor cursor);

    // Marks the client area (or r, inclusive edges) for repainting.
    void Invalidate();
    void InvalidateRect(const CRectangle& r);
    void SetFocus();
    static NativeWindow GetFocus();
    void SetCapture();
    static void ReleaseCapture();

    // WM_TIMER with `id` every `ms` milliseconds until KillTimer or the window's end.
    bool SetTimer(uintptr_t id, uint32_t ms);
    bool KillTimer(uintptr_t id);
    // Asks for hover and leave messages (TME_ bits); hover after `hoverMs` at rest.
    void TrackMouseEvent(uint32_t flags, uint32_t hoverMs);

    // The current window procedure, and replacing it (returns the one replaced).
    WndProc GetWindowProc() const { return m_pfnWndProc; }
    WndProc SetWindowProc(WndProc procedure);
    // Calls the window's own handling: the procedure every CWnd starts with.
    static intptr_t StandardWndProc(NativeWindow window, uint32_t message, WParam wParam, LParam lParam);

protected:
    // The window's own message handling; the base calls DefWindowProc.
    virtual intptr_t WindowProc(uint32_t message, WParam wParam, LParam lParam);
    // Default handling: a close request destroys the window, a paint validates it.
    intptr_t DefWindowProc(uint32_t message, WParam wParam, LParam lParam);
    // Called once the native window is gone; the object may delete itself here.
    virtual void PostNcDestroy() {}

private:
    friend class WindowSystem;

    NativeWindow m_hWnd = nullptr;
    CWnd* m_pParent = nullptr;
    WndKind m_eKind = WndKind::TopLevel;
    WndProc m_pfnWndProc = &StandardWndProc;
    uint32_t m_nTrackFlags = 0;
    uint32_t m_nHoverMs = 0;
};

} // namespace vesk
