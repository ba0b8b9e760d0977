#include <vesk/window/CWnd.hpp>

#include <vesk/frame/WinMessages.hpp>

#include "window/WindowSystem_p.hpp"

namespace vesk {

namespace {

display::DisplayBackend& Backend()
{
    return WindowSystem::Get().Backend();
}

} // namespace

CWnd::~CWnd()
{
    DestroyWindow();
}

bool CWnd::Create(WndKind kind, CWnd* parent, const TamPoint& pos, const TamSize& clientSize, const char* utf8Title)
{
    if (m_hWnd || (kind == WndKind::Child && (!parent || !parent->m_hWnd)))
        return false;
    display::WindowParams params;
    params.kind = static_cast<display::WindowKind>(kind);
    params.parent = parent ? parent->m_hWnd : nullptr;
    params.x = pos.x;
    params.y = pos.y;
    params.width = clientSize.Width();
    params.height = clientSize.Height();
    params.title = utf8Title ? utf8Title : "";
    WindowSystem& system = WindowSystem::Get();
    const NativeWindow window = system.Backend().CreateWindow(params);
    if (!window)
        return false;
    m_eKind = kind;
    m_pParent = parent;
    system.Attach(*this, window);
    system.Deliver(window, WM_CREATE, 0, 0);
    return true;
}

bool CWnd::DestroyWindow()
{
    if (!m_hWnd)
        return false;
    Backend().DestroyWindow(m_hWnd);
    return true;
}

CWnd* CWnd::FromHandle(NativeWindow window)
{
    return WindowSystem::Get().Find(window);
}

CRectangle CWnd::GetWindowRect() const
{
    const display::WindowBox b = Backend().GetWindowBox(m_hWnd);
    return CRectangle(b.left, b.top, b.right, b.bottom);
}

TamSize CWnd::GetClientSize() const
{
    const display::WindowBox b = Backend().GetClientBox(m_hWnd);
    return TamSize(b.right - b.left, b.bottom - b.top);
}

bool CWnd::MoveWindow(int32_t x, int32_t y, int32_t width, int32_t height)
{
    if (!m_hWnd)
        return false;
    Backend().MoveWindow(m_hWnd, x, y, width, height);
    return true;
}

bool CWnd::SetParent(CWnd* parent, const TamPoint& pos)
{
    if (!m_hWnd || !parent || !parent->m_hWnd || !Backend().SetParent(m_hWnd, parent->m_hWnd, pos.x, pos.y))
        return false;
    m_pParent = parent;
    return true;
}

bool CWnd::ShowWindow(int command)
{
    if (!m_hWnd)
        return false;
    WindowSystem& system = WindowSystem::Get();
    const display::ShowCommand state = Backend().GetShowState(m_hWnd);
    const bool wasVisible = state != display::ShowCommand::Hide;
    // Displays report a hidden window as Hide: its state is kept here for SW_SHOW.
    if (command == SW_HIDE && wasVisible)
        system.SetHiddenState(m_hWnd, state);
    if (command == SW_SHOW)
        command = static_cast<int>(wasVisible ? state : system.GetHiddenState(m_hWnd));
    if (command >= SW_HIDE && command <= SW_SHOWMAXIMIZED)
        Backend().Show(m_hWnd, static_cast<display::ShowCommand>(command));
    return wasVisible;
}

bool CWnd::IsWindowVisible() const
{
    return m_hWnd && Backend().GetShowState(m_hWnd) != display::ShowCommand::Hide;
}

bool CWnd::IsIconic() const
{
    return m_hWnd && Backend().GetShowState(m_hWnd) == display::ShowCommand::Minimised;
}

bool CWnd::IsZoomed() const
{
    return m_hWnd && Backend().GetShowState(m_hWnd) == display::ShowCommand::Maximised;
}

void CWnd::SetWindowText(const char* utf8)
{
    if (m_hWnd)
        Backend().SetTitle(m_hWnd, utf8 ? utf8 : "");
}

void CWnd::SetCursor(WinCursor cursor)
{
    static_assert(static_cast<int>(WinCursor::No) == static_cast<int>(display::CursorShape::No));
    if (m_hWnd)
        Backend().SetCursor(m_hWnd, static_cast<display::CursorShape>(cursor));
}

void CWnd::Invalidate()
{
    if (m_hWnd)
        Backend().Invalidate(m_hWnd, nullptr);
}

void CWnd::InvalidateRect(const CRectangle& r)
{
    if (!m_hWnd || r.IsEmpty())
        return;
    const display::WindowBox box{r.Left(), r.Top(), r.Right() + 1, r.Bottom() + 1};
    Backend().Invalidate(m_hWnd, &box);
}

void CWnd::SetFocus()
{
    if (m_hWnd)
        Backend().SetFocus(m_hWnd);
}

NativeWindow CWnd::GetFocus()
{
    return Backend().GetFocus();
}

void CWnd::SetCapture()
{
    if (m_hWnd)
        Backend().SetCapture(m_hWnd);
}

void CWnd::ReleaseCapture()
{
    Backend().SetCapture(nullptr);
}

bool CWnd::SetTimer(uintptr_t id, uint32_t ms)
{
    return id != HOVER_TIMER_ID && WindowSystem::Get().SetTimer(m_hWnd, id, ms);
}

bool CWnd::KillTimer(uintptr_t id)
{
    return id != HOVER_TIMER_ID && WindowSystem::Get().KillTimer(m_hWnd, id);
}

void CWnd::TrackMouseEvent(uint32_t flags, uint32_t hoverMs)
{
    if (m_hWnd)
        WindowSystem::Get().TrackMouse(*this, flags, hoverMs);
}

WndProc CWnd::SetWindowProc(WndProc procedure)
{
    const WndProc old = m_pfnWndProc;
    m_pfnWndProc = procedure ? procedure : &StandardWndProc;
    return old;
}

intptr_t CWnd::StandardWndProc(NativeWindow window, uint32_t message, WParam wParam, LParam lParam)
{
    CWnd* wnd = FromHandle(window);
    return wnd ? wnd->WindowProc(message, wParam, lParam) : 0;
}

intptr_t CWnd::WindowProc(uint32_t message, WParam wParam, LParam lParam)
{
    return DefWindowProc(message, wParam, lParam);
}

intptr_t CWnd::DefWindowProc(uint32_t message, WParam, LParam)
{
    switch (message) {
    case WM_CLOSE:
        DestroyWindow();
        return 0;
    case WM_PAINT: {
        // Nobody painted: validate, or the display would ask again and again.
        display::WindowBox dirty;
        if (cairo_surface_t* surface = Backend().BeginPaint(m_hWnd, dirty))
            Backend().EndPaint(surface);
        return 0;
    }
    default:
        return 0;
    }
}

} // namespace vesk
