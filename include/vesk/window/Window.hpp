#pragma once

#include <vesk/export.hpp>
#include <vesk/graphics/OutputDevice.hpp>
#include <vesk/window/CWnd.hpp>
#include <vesk/window/Events.hpp>

#include <cstdint>
#include <memory>

namespace vesk {

class WinMsgRouter;

// One message as the tool tip sees it.
struct WinMsg
{
    NativeWindow hwnd;
    uint32_t message;
    WParam wParam;
    LParam lParam;
};

// A tool tip that watches the messages of the window it belongs to.
class VESK_API ToolTip
{
public:
    virtual ~ToolTip() = default;
    virtual void RelayEvent(const WinMsg& msg) = 0;
};

// A scroll bar that handles WM_HSCROLL and WM_VSCROLL sent for its handle (registered in the
// router's scroll-bar map).
class VESK_API ScrollBar
{
public:
    virtual ~ScrollBar() = default;
    // The scroll code and the thumb position; true when handled.
    virtual bool ProcessScroll(uint32_t code, int32_t pos) = 0;
};

// Library style bits that TranslateWinStyles knows.
enum : int {
    WB_BORDER = 0x1, WB_SIZEABLE = 0x10, WB_CAPTION = 0x20, WB_MINMAX = 0x40, WB_SYSMENU = 0x100,
};

// A drawing surface on a native window: wraps the window's CWnd, routes its messages through
// the library's window procedure (hooks, OnProcessMsg, the router's dispatcher, then the
// procedure it replaced) and turns them into calls of the virtual handlers below. A Window does
// not own the CWnd; delete the CWnd only once the Window is destroyed or the CWnd's native
// window has been destroyed.
class VESK_API Window : public OutputDevice
{
public:
    Window();
    ~Window() override;

    // Wraps `wnd` and registers it with the router: its messages go through the library's
    // window procedure from now on. Cursor arrow; visibility and show state from the window.
    void SetAsWrap(CWnd* wnd);
    // Wraps `wnd`; registers only when `registerWindow` is set. Show state normal.
    void SetAsParentWrap(CWnd* wnd, bool registerWindow);
    // Adds to `style` the platform style bits of the library style bits in `libraryStyle`.
    static void TranslateWinStyles(unsigned long& style, int libraryStyle);
    // The library's window procedure, installed by registration.
    static intptr_t WinProc(NativeWindow window, uint32_t message, WParam wParam, LParam lParam);

    CWnd* GetCWnd() const { return m_pCWnd; }
    NativeWindow GetHandle() const { return m_pCWnd ? m_pCWnd->GetSafeHwnd() : nullptr; }
    bool IsWrapped() const { return m_bWrapped; }
    bool IsRegistered() const { return m_bRegistered; }
    // The procedure that was in place before registration.
    WndProc GetOldWndProc() const { return m_pfnOldWndProc; }
    bool IsVisible() const { return m_bVisible; }
    // 1 normal, 2 minimised, 3 maximised.
    int GetShowState() const { return m_nShowState; }
    TamSize GetOutputSizePixel() const;

    // The pointer shape shown over the window (unless the library is busy).
    void SetPointer(WinCursor cursor) { m_eCursor = cursor; }
    WinCursor GetPointer() const { return m_eCursor; }
    void SetToolTip(ToolTip* tip) { m_pToolTip = tip; }
    ToolTip* GetToolTip() const { return m_pToolTip; }
    // While set, paint messages are left to the wrapped window.
    void SetPaintSuppressed(bool suppressed) { m_bNoPaint = suppressed; }
    bool IsPaintSuppressed() const { return m_bNoPaint; }
    void Invalidate();
    void Invalidate(const CRectangle& r);
    // Asks for hover (673) and leave (675) messages: TME_ bits, the default hover time.
    void InitMouseTracking(unsigned long flags);
    // The hover time of InitMouseTracking, in milliseconds (400 after each VeskInit).
    static void SetHoverTime(uint32_t ms);

    // Called for every routed message before it is dispatched; the base relays it to the tool
    // tip, if any.
    virtual void OnProcessMsg(uint32_t message, WParam wParam, LParam lParam);
    // Paints through BeginPaint: window devices draw into the paint surface while Paint runs.
    virtual bool ProcessPaint();

    // The dispatcher's handlers: each fills the event record and calls the virtual handler;
    // true when the message needs no further processing.
    bool ProcessMove(WParam wParam, LParam lParam);
    bool ProcessActivateMsg(WParam wParam, LParam lParam);
    bool ProcessEraseBackground(WParam wParam, LParam lParam);
    bool ProcessActivateApp(WParam wParam, LParam lParam);
    bool ProcessNonClientDClick(WParam wParam, LParam lParam);
    bool ProcessKeyMsg(uint32_t message, WParam wParam, LParam lParam);
    bool ProcessMouseMove(WParam wParam, LParam lParam);
    bool ProcessButtonDown(uint32_t message, WParam wParam, LParam lParam);
    bool ProcessButtonUp(uint32_t message, WParam wParam, LParam lParam);
    bool ProcessDoubleClick(uint32_t message, WParam wParam, LParam lParam);
    bool ProcessMouseWheel(WParam wParam, LParam lParam);
    bool ProcessEnterMenuLoop(WParam wParam, LParam lParam);
    bool ProcessExitMenuLoop(WParam wParam, LParam lParam);
    bool ProcessMouseHover(WParam wParam, LParam lParam);
    bool ProcessMouseLeave(WParam wParam, LParam lParam);

protected:
    // Virtual handlers; the bases do nothing (the key ones report the key unhandled, the
    // erase one leaves erasing to the window).
    virtual void Paint(const CRectangle& rect);
    virtual void MouseMove(const MouseEvent& event);
    virtual void MouseButtonDown(const MouseEvent& event);
    virtual void MouseButtonUp(const MouseEvent& event);
    virtual void MouseWheel(const MouseEvent& event);
    virtual void MouseHover(const MouseEvent& event);
    virtual void MouseLeave();
    // WM_KEYDOWN/WM_SYSKEYDOWN and the characters they type; true when handled.
    virtual bool KeyInput(const KeyEvent& event);
    virtual bool KeyUp(const KeyEvent& event);
    virtual void Move();
    virtual void Activate(bool active);
    virtual void ActivateApp(bool active);
    virtual bool EraseBackground();
    virtual void NonClientDoubleClick();
    virtual void EnterMenuLoop();
    virtual void ExitMenuLoop();

private:
    friend class WinMsgRouter;
    // ProcessMouseMove with the router at hand (the dispatcher's path).
    bool ProcessMouseMove(WinMsgRouter& router, WParam wParam, LParam lParam);
    void Wrap(CWnd* wnd);
    void Register();
    void Unregister();
    // Fills the mouse record from a button message.
    MouseEvent& FillButtonEvent(uint32_t message, WParam wParam, LParam lParam, uint16_t clicks);

    CWnd* m_pCWnd = nullptr;
    bool m_bWrapped = false;
    bool m_bRegistered = false;
    WndProc m_pfnOldWndProc = nullptr;
    WinCursor m_eCursor = WinCursor::Arrow;
    WinCursor m_eCursorShown = WinCursor::Arrow;
    bool m_bVisible = false;
    int m_nShowState = 1;
    MouseEvent m_aMouseEvent{this}; // refilled for each mouse message
    ToolTip* m_pToolTip = nullptr;
    bool m_bNoPaint = false;
};

} // namespace vesk
