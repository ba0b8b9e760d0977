#include <vesk/window/Window.hpp>

#include <vesk/frame/WinMessages.hpp>
#include <vesk/window/WinMsgRouter.hpp>

#include "window/DCManager_p.hpp"
#include "window/WindowSystem_p.hpp"

namespace vesk {

namespace {

// Message whose processing ends in the library's procedure, with result 0, instead of going on
// to the wrapped window.
constexpr uint32_t WM_STOP_HERE = 0x2CC;

} // namespace

Window::Window() : OutputDevice(DEVICE_WINDOW)
{
    // Binds the display, which also takes over the library's message boxes.
    WindowSystem::Get();
}

Window::~Window()
{
    ReleaseDevice();
    Unregister();
}

void Window::Wrap(CWnd* wnd)
{
    Unregister();
    m_pCWnd = wnd;
    m_bWrapped = true;
    // Window devices get their contexts from the manager: make sure it exists.
    GetDCManager();
}

void Window::SetAsWrap(CWnd* wnd)
{
    Wrap(wnd);
    Register();
    m_eCursor = WinCursor::Arrow;
    m_bVisible = wnd && wnd->IsWindowVisible();
    m_nShowState = wnd && wnd->IsZoomed() ? 3 : wnd && wnd->IsIconic() ? 2 : 1;
}

void Window::SetAsParentWrap(CWnd* wnd, bool registerWindow)
{
    Wrap(wnd);
    if (registerWindow)
        Register();
    m_bVisible = wnd && wnd->IsWindowVisible();
    m_nShowState = 1;
}

void Window::Register()
{
    WinMsgRouter* router = GlGetPWinMsgRouter();
    if (!router || !m_pCWnd || !m_pCWnd->GetSafeHwnd())
        return;
    router->RegisterWindow(this, m_pCWnd->GetSafeHwnd());
    m_pfnOldWndProc = m_pCWnd->SetWindowProc(&WinProc);
    m_bRegistered = true;
}

// Leaves the maps and gives the wrapped window its own procedure back.
void Window::Unregister()
{
    if (!m_bRegistered)
        return;
    m_bRegistered = false;
    if (WinMsgRouter* router = GlGetPWinMsgRouter())
        router->UnregisterWindow(this);
    if (m_pCWnd && m_pCWnd->GetWindowProc() == &WinProc)
        m_pCWnd->SetWindowProc(m_pfnOldWndProc);
}

intptr_t Window::WinProc(NativeWindow handle, uint32_t message, WParam wParam, LParam lParam)
{
    WinMsgRouter* router = GlGetPWinMsgRouter();
    if (!router)
        return 1;
    if (router->CallWinProcHooks(handle, message, wParam, lParam))
        return 1;
    Window* window = router->FindWindow(handle);
    if (!window)
        return 1;
    if (message == WM_SHOWWINDOW)
        window->m_bVisible = wParam != 0;
    else if (message == WM_SIZE)
        window->m_nShowState = wParam == SIZE_MAXIMIZED ? 3 : wParam == SIZE_MINIMIZED ? 2 : 1;
    // Any handler may destroy the window, and the Window with it.
    const uint32_t generation = router->GetMapGeneration();
    window->OnProcessMsg(message, wParam, lParam);
    if (!router->IsStillRegistered(handle, window, generation))
        return 1;
    if (router->Dispatch(*window, message, wParam, lParam))
        return 1;
    if (!router->IsStillRegistered(handle, window, generation))
        return 1;
    if (message == WM_STOP_HERE)
        return 0;
    const WndProc saved = window->m_pfnOldWndProc;
    // The native window is going: leave the maps, and let the saved procedure see the end.
    if (message == WM_DESTROY)
        window->Unregister();
    return saved ? saved(handle, message, wParam, lParam) : 1;
}

void Window::OnProcessMsg(uint32_t message, WParam wParam, LParam lParam)
{
    if (m_pToolTip)
        m_pToolTip->RelayEvent(WinMsg{GetHandle(), message, wParam, lParam});
}

bool Window::ProcessPaint()
{
    // Suppressed painting goes on to the wrapped window, which validates.
    if (m_bNoPaint)
        return false;
    const NativeWindow handle = GetHandle();
    display::DisplayBackend& backend = WindowSystem::Get().Backend();
    display::WindowBox dirty;
    cairo_surface_t* surface = backend.BeginPaint(handle, dirty);
    if (!surface)
        return true;
    DeviceContext* dc = DeviceContext::Create(surface);
    DCManager* manager = GetDCManager();
    // A context taken outside painting would bypass the paint surface.
    ReleaseContext();
    DeviceContext* previous = manager && dc ? manager->SetPaintDC(handle, dc) : nullptr;
    WinMsgRouter* router = GlGetPWinMsgRouter();
    const uint32_t generation = router ? router->GetMapGeneration() : 0;
    if (dc && dirty.right > dirty.left && dirty.bottom > dirty.top)
        Paint(CRectangle(dirty.left, dirty.top, dirty.right - 1, dirty.bottom - 1));
    // Paint may have destroyed the window and this object: only locals from here on, unless
    // the router still knows this Window under the handle.
    if (router && router->IsStillRegistered(handle, this, generation))
        ReleaseContext();
    if (manager && dc)
        manager->SetPaintDC(handle, previous);
    DeviceContext::Delete(dc);
    backend.EndPaint(surface);
    return true;
}

TamSize Window::GetOutputSizePixel() const
{
    return m_pCWnd ? m_pCWnd->GetClientSize() : TamSize(0, 0);
}

void Window::Invalidate()
{
    if (m_pCWnd)
        m_pCWnd->Invalidate();
}

void Window::Invalidate(const CRectangle& r)
{
    if (m_pCWnd)
        m_pCWnd->InvalidateRect(r);
}

void Window::InitMouseTracking(unsigned long flags)
{
    WinMsgRouter* router = GlGetPWinMsgRouter();
    if (m_pCWnd && router)
        m_pCWnd->TrackMouseEvent(static_cast<uint32_t>(flags), router->GetHoverTime());
}

void Window::SetHoverTime(uint32_t ms)
{
    if (WinMsgRouter* router = GlGetPWinMsgRouter())
        router->SetHoverTime(ms);
}

// Library style bits and the platform style bits each adds.
void Window::TranslateWinStyles(unsigned long& style, int libraryStyle)
{
    static constexpr struct
    {
        int library;
        unsigned long platform;
    } table[] = {
        {0x1, 0x800000},  {0x10, 0x40000},  {0x20, 0xC00000},  {0x40, 0x30000},   {0x100, 0x80000},
        {0x10000, 0x1400}, {0x20000, 0x4100}, {0x40000, 0x2800}, {0x80000, 0x8200}, {0x800000, 0x80},
    };
    for (const auto& row : table) {
        if (libraryStyle & row.library)
            style |= row.platform;
    }
}

} // namespace vesk
