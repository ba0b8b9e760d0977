#include "window/WindowSystem_p.hpp"

#include <vesk/frame/WinMessages.hpp>
#include <vesk/graphics/OutputDevice.hpp>
#include "platform/clock.hpp"

#include <algorithm>

namespace vesk {

namespace {

// Drawing errors and other library messages go to the display's message box.
void DisplayMessageBox(const char* text, const char* title)
{
    WindowSystem::Get().Backend().MessageBox(nullptr, text, title, MB_OK);
}

} // namespace

WindowSystem& WindowSystem::Get()
{
    // Never destroyed: native windows may outlive any library start and stop.
    static WindowSystem* const system = new WindowSystem(display::GetDisplayBackend());
    return *system;
}

WindowSystem::WindowSystem(display::DisplayBackend& backend) : m_rBackend(backend)
{
    m_rBackend.SetWindowProcedure(&BackendProcedure);
    GlSetMessageBoxFunction(&DisplayMessageBox);
}

// Events of the display pass mouse tracking and the key state on their way in; messages the
// program sends itself do not.
intptr_t WindowSystem::BackendProcedure(NativeWindow window, uint32_t message, WParam wParam, LParam lParam)
{
    WindowSystem& system = Get();
    CWnd* wnd = system.Find(window);
    if (!wnd || !system.Observe(*wnd, message, wParam, lParam))
        return 0;
    return system.Deliver(*wnd, message, wParam, lParam);
}

void WindowSystem::Attach(CWnd& wnd, NativeWindow window)
{
    wnd.m_hWnd = window;
    m_aWindows[window] = &wnd;
}

CWnd* WindowSystem::Find(NativeWindow window) const
{
    auto it = m_aWindows.find(window);
    return it == m_aWindows.end() ? nullptr : it->second;
}

void WindowSystem::Detach(CWnd& wnd)
{
    const NativeWindow window = wnd.m_hWnd;
    m_aWindows.erase(window);
    m_aHiddenStates.erase(window);
    std::erase_if(m_aTimers, [window](const Timer& t) { return t.window == window; });
    wnd.m_hWnd = nullptr;
    wnd.m_nTrackFlags = 0;
    wnd.PostNcDestroy();
}

intptr_t WindowSystem::Deliver(NativeWindow window, uint32_t message, WParam wParam, LParam lParam)
{
    CWnd* wnd = Find(window);
    return wnd ? Deliver(*wnd, message, wParam, lParam) : 0;
}

intptr_t WindowSystem::Deliver(CWnd& wnd, uint32_t message, WParam wParam, LParam lParam)
{
    const NativeWindow window = wnd.m_hWnd;
    const intptr_t result = wnd.m_pfnWndProc(window, message, wParam, lParam);
    // The procedure may have deleted the CWnd: look it up again.
    if (message == WM_DESTROY) {
        if (CWnd* still = Find(window))
            Detach(*still);
    }
    return result;
}

bool WindowSystem::Observe(CWnd& wnd, uint32_t message, WParam wParam, LParam lParam)
{
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        // A press that is not a repeat flips the toggle bit.
        if (!(lParam & (1 << 30)))
            m_aKeyState[wParam & 0xFF] ^= 1;
        m_aKeyState[wParam & 0xFF] |= 0x80;
        return true;
    case WM_KEYUP:
    case WM_SYSKEYUP:
        m_aKeyState[wParam & 0xFF] &= ~0x80;
        return true;
    case WM_MOUSEMOVE:
        m_nLastMousePos = lParam;
        m_nLastMouseKeys = wParam;
        if (wnd.m_nTrackFlags & TME_HOVER)
            SetTimer(wnd.m_hWnd, HOVER_TIMER_ID, wnd.m_nHoverMs);
        return true;
    case WM_MOUSELEAVE:
        // Backends report every leave; only a window that asked hears of it, once.
        if (!(wnd.m_nTrackFlags & TME_LEAVE))
            return false;
        wnd.m_nTrackFlags = 0;
        KillTimer(wnd.m_hWnd, HOVER_TIMER_ID);
        return true;
    default:
        return true;
    }
}

int16_t WindowSystem::GetKeyState(uint32_t virtualKey) const
{
    const uint8_t s = m_aKeyState[virtualKey & 0xFF];
    return static_cast<int16_t>((s & 0x80 ? 0x8000 : 0) | (s & 1));
}

void WindowSystem::TrackMouse(CWnd& wnd, uint32_t flags, uint32_t hoverMs)
{
    wnd.m_nTrackFlags = flags & (TME_HOVER | TME_LEAVE);
    wnd.m_nHoverMs = hoverMs;
    if (flags & TME_HOVER)
        SetTimer(wnd.m_hWnd, HOVER_TIMER_ID, hoverMs);
    else
        KillTimer(wnd.m_hWnd, HOVER_TIMER_ID);
}

bool WindowSystem::SetTimer(NativeWindow window, uintptr_t id, uint32_t ms)
{
    if (!Find(window))
        return false;
    const int64_t due = platform::TickCountMs() + ms;
    for (Timer& t : m_aTimers) {
        if (t.window == window && t.id == id) {
            t.interval = ms;
            t.due = due;
            return true;
        }
    }
    m_aTimers.push_back({window, id, ms, due});
    return true;
}

bool WindowSystem::KillTimer(NativeWindow window, uintptr_t id)
{
    return std::erase_if(m_aTimers, [&](const Timer& t) { return t.window == window && t.id == id; }) != 0;
}

int WindowSystem::NextTimerDelay() const
{
    if (m_aTimers.empty())
        return -1;
    int64_t next = INT64_MAX;
    for (const Timer& t : m_aTimers)
        next = std::min(next, t.due);
    return static_cast<int>(std::clamp<int64_t>(next - platform::TickCountMs(), 0, INT32_MAX));
}

// Handlers may set and kill timers, so the due ones are collected first and each is checked
// again before it fires.
void WindowSystem::FireTimers()
{
    const int64_t now = platform::TickCountMs();
    std::vector<Timer> due;
    for (const Timer& t : m_aTimers) {
        if (t.due <= now)
            due.push_back(t);
    }
    for (const Timer& d : due) {
        auto it = std::find_if(m_aTimers.begin(), m_aTimers.end(),
                               [&](const Timer& t) { return t.window == d.window && t.id == d.id; });
        if (it == m_aTimers.end())
            continue;
        if (d.id != HOVER_TIMER_ID) {
            it->due = now + std::max<uint32_t>(it->interval, 1);
            Deliver(d.window, WM_TIMER, d.id, 0);
            continue;
        }
        // The emulated hover: once, while the window still asks for it.
        m_aTimers.erase(it);
        CWnd* wnd = Find(d.window);
        if (wnd && (wnd->m_nTrackFlags & TME_HOVER)) {
            wnd->m_nTrackFlags &= ~TME_HOVER;
            Deliver(*wnd, WM_MOUSEHOVER, m_nLastMouseKeys, m_nLastMousePos);
        }
    }
}

void WindowSystem::Post(NativeWindow window, uint32_t message, WParam wParam, LParam lParam)
{
    {
        std::lock_guard lock(m_aPostedMutex);
        m_aPosted.push_back({window, message, wParam, lParam});
    }
    m_rBackend.Wake();
}

bool WindowSystem::TakePosted(Message& m)
{
    std::lock_guard lock(m_aPostedMutex);
    if (m_aPosted.empty() || m_aPosted.front().message == WM_QUIT)
        return false;
    m = m_aPosted.front();
    m_aPosted.pop_front();
    return true;
}

bool WindowSystem::PumpOnce()
{
    // Only what was posted before this pass: a handler that posts again (to itself, say) waits
    // for the next pass, so display events, paints and timers still get their turn.
    size_t batch;
    {
        std::lock_guard lock(m_aPostedMutex);
        batch = m_aPosted.size();
    }
    Message m;
    for (; batch > 0 && TakePosted(m); --batch)
        Deliver(m.window, m.message, m.wParam, m.lParam);
    auto quitWaiting = [this] {
        std::lock_guard lock(m_aPostedMutex);
        return !m_aPosted.empty() && m_aPosted.front().message == WM_QUIT;
    };
    if (quitWaiting())
        return true;
    // A display that went away ends every loop with exit code -1.
    if (!m_rBackend.DispatchEvents()) {
        std::lock_guard lock(m_aPostedMutex);
        m_aPosted.push_front({nullptr, WM_QUIT, static_cast<WParam>(-1), 0});
        return true;
    }
    FireTimers();
    return quitWaiting();
}

int WindowSystem::TakeQuit()
{
    std::lock_guard lock(m_aPostedMutex);
    if (m_aPosted.empty() || m_aPosted.front().message != WM_QUIT)
        return 0;
    const int code = static_cast<int>(m_aPosted.front().wParam);
    m_aPosted.pop_front();
    return code;
}

} // namespace vesk
