// The router's dispatcher and the Window handlers it calls.

#include <vesk/window/Window.hpp>

#include <vesk/frame/WinMessages.hpp>
#include <vesk/window/MessageLoop.hpp>
#include <vesk/window/WinMsgRouter.hpp>

namespace vesk {

bool WinMsgRouter::Dispatch(Window& w, uint32_t message, WParam wParam, LParam lParam)
{
    switch (message) {
    case WM_PAINT: return w.ProcessPaint();
    case WM_MOVE: return w.ProcessMove(wParam, lParam);
    case WM_ACTIVATE: return w.ProcessActivateMsg(wParam, lParam);
    case WM_ERASEBKGND: return w.ProcessEraseBackground(wParam, lParam);
    case WM_ACTIVATEAPP: return w.ProcessActivateApp(wParam, lParam);
    case WM_NCLBUTTONDBLCLK: return w.ProcessNonClientDClick(wParam, lParam);
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_CHAR:
    case WM_SYSKEYDOWN:
    case WM_SYSKEYUP:
    case WM_SYSCHAR: return w.ProcessKeyMsg(message, wParam, lParam);
    case WM_MOUSEMOVE: return w.ProcessMouseMove(*this, wParam, lParam);
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN: return w.ProcessButtonDown(message, wParam, lParam);
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP: return w.ProcessButtonUp(message, wParam, lParam);
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDBLCLK: return w.ProcessDoubleClick(message, wParam, lParam);
    case WM_MOUSEWHEEL: return w.ProcessMouseWheel(wParam, lParam);
    case WM_ENTERMENULOOP: return w.ProcessEnterMenuLoop(wParam, lParam);
    case WM_EXITMENULOOP: return w.ProcessExitMenuLoop(wParam, lParam);
    case WM_MOUSEHOVER: return w.ProcessMouseHover(wParam, lParam);
    case WM_MOUSELEAVE: return w.ProcessMouseLeave(wParam, lParam);
    case WM_HSCROLL:
    case WM_VSCROLL: {
        // The scroll bar's handle comes in lParam; bars the router does not know are not ours.
        ScrollBar* bar = FindScrollBar(reinterpret_cast<NativeWindow>(lParam));
        return bar && bar->ProcessScroll(wParam & 0xFFFF, static_cast<int16_t>(wParam >> 16));
    }
    default: return false;
    }
}

// Mouse messages end in the library: the wrapped window has nothing more to do with them.
bool Window::ProcessMouseMove(WParam wParam, LParam lParam)
{
    WinMsgRouter* router = GlGetPWinMsgRouter();
    return router ? ProcessMouseMove(*router, wParam, lParam) : true;
}

bool Window::ProcessMouseMove(WinMsgRouter& router, WParam wParam, LParam lParam)
{
    const NativeWindow handle = GetHandle();
    const uint32_t generation = router.GetMapGeneration();
    m_aMouseEvent.Fill(wParam, lParam);
    m_aMouseEvent.SetClicks(0);
    m_aMouseEvent.SetChangedButton(0);
    MouseMove(m_aMouseEvent);
    if (!router.IsStillRegistered(handle, this, generation))
        return true;
    const WinCursor cursor = router.GetBusyCount() >= 1 ? WinCursor::Wait : m_eCursor;
    // The display is told only of changes: moves are frequent.
    if (cursor != m_eCursorShown) {
        m_eCursorShown = cursor;
        m_pCWnd->SetCursor(cursor);
    }
    return true;
}

MouseEvent& Window::FillButtonEvent(uint32_t message, WParam wParam, LParam lParam, uint16_t clicks)
{
    const uint32_t index = (message - WM_LBUTTONDOWN) / 3; // left, right, middle rows of three
    static constexpr uint16_t buttons[3] = {MOUSE_LEFT, MOUSE_RIGHT, MOUSE_MIDDLE};
    m_aMouseEvent.Fill(wParam, lParam);
    m_aMouseEvent.SetChangedButton(buttons[index % 3]);
    m_aMouseEvent.SetClicks(clicks);
    return m_aMouseEvent;
}

bool Window::ProcessButtonDown(uint32_t message, WParam wParam, LParam lParam)
{
    MouseButtonDown(FillButtonEvent(message, wParam, lParam, 1));
    return true;
}

bool Window::ProcessDoubleClick(uint32_t message, WParam wParam, LParam lParam)
{
    MouseButtonDown(FillButtonEvent(message, wParam, lParam, 2));
    return true;
}

bool Window::ProcessButtonUp(uint32_t message, WParam wParam, LParam lParam)
{
    MouseButtonUp(FillButtonEvent(message, wParam, lParam, 0));
    return true;
}

bool Window::ProcessMouseWheel(WParam wParam, LParam lParam)
{
    // The wheel message carries screen coordinates; handlers get client ones.
    const CRectangle box = m_pCWnd ? m_pCWnd->GetWindowRect() : CRectangle(0, 0, 0, 0);
    m_aMouseEvent.Fill(wParam & 0xFFFF, MakeLParam(LoWordSigned(lParam) - box.Left(), HiWordSigned(lParam) - box.Top()));
    m_aMouseEvent.SetClicks(0);
    m_aMouseEvent.SetChangedButton(0);
    m_aMouseEvent.SetWheelDelta(static_cast<int16_t>(wParam >> 16));
    MouseWheel(m_aMouseEvent);
    return true;
}

bool Window::ProcessMouseHover(WParam wParam, LParam lParam)
{
    m_aMouseEvent.Fill(wParam, lParam);
    m_aMouseEvent.SetClicks(0);
    MouseHover(m_aMouseEvent);
    return true;
}

bool Window::ProcessMouseLeave(WParam, LParam)
{
    MouseLeave();
    return true;
}

// Key-up messages always reach the global key-up chain; key-down messages reach the key-down
// chain only when the window did not handle them.
bool Window::ProcessKeyMsg(uint32_t message, WParam wParam, LParam lParam)
{
    const bool isChar = message == WM_CHAR || message == WM_SYSCHAR;
    const bool isUp = message == WM_KEYUP || message == WM_SYSKEYUP;
    const uint16_t modifiers = (GetKeyState(VK_SHIFT) < 0 ? KEY_SHIFT : 0) |
                               (GetKeyState(VK_CONTROL) < 0 ? KEY_MOD1 : 0) |
                               (lParam & (1 << 29) ? KEY_MOD2 : 0);
    const KeyCode code(isChar ? 0 : static_cast<uint16_t>(wParam & 0xFF), modifiers);
    KeyEvent event(this, message, code, isChar ? static_cast<char16_t>(wParam) : 0,
                   static_cast<uint16_t>(lParam & 0xFFFF), !isUp && (lParam & (1 << 30)));
    const bool handled = isUp ? KeyUp(event) : KeyInput(event);
    WinMsgRouter* router = GlGetPWinMsgRouter();
    if (!router || isChar)
        return handled;
    HdlChain& chain = isUp ? router->GetKeyUpChain() : router->GetKeyDownChain();
    if ((isUp || !handled) && !chain.IsEmpty())
        chain.Call(&event);
    return handled;
}

bool Window::ProcessMove(WParam, LParam)
{
    Move();
    return false;
}

bool Window::ProcessActivateMsg(WParam wParam, LParam)
{
    Activate((wParam & 0xFFFF) != 0);
    return false;
}

bool Window::ProcessActivateApp(WParam wParam, LParam)
{
    ActivateApp(wParam != 0);
    return false;
}

bool Window::ProcessEraseBackground(WParam, LParam)
{
    return EraseBackground();
}

bool Window::ProcessNonClientDClick(WParam, LParam)
{
    NonClientDoubleClick();
    return false;
}

bool Window::ProcessEnterMenuLoop(WParam, LParam)
{
    EnterMenuLoop();
    return false;
}

bool Window::ProcessExitMenuLoop(WParam, LParam)
{
    ExitMenuLoop();
    return false;
}

void Window::Paint(const CRectangle&) {}
void Window::MouseMove(const MouseEvent&) {}
void Window::MouseButtonDown(const MouseEvent&) {}
void Window::MouseButtonUp(const MouseEvent&) {}
void Window::MouseWheel(const MouseEvent&) {}
void Window::MouseHover(const MouseEvent&) {}
void Window::MouseLeave() {}
bool Window::KeyInput(const KeyEvent&) { return false; }
bool Window::KeyUp(const KeyEvent&) { return false; }
void Window::Move() {}
void Window::Activate(bool) {}
void Window::ActivateApp(bool) {}
bool Window::EraseBackground() { return false; }
void Window::NonClientDoubleClick() {}
void Window::EnterMenuLoop() {}
void Window::ExitMenuLoop() {}

} // namespace vesk
