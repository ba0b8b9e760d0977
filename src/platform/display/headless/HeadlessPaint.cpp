// Painting, the event queue and the wait of the headless display.

#include "platform/display/headless/HeadlessWindow_p.hpp"

#include <vesk/frame/WinMessages.hpp>

#include <algorithm>
#include <chrono>

namespace vesk::display {

void HeadlessBackend::Queue(NativeWindow window, uint32_t message, WParam wParam, LParam lParam)
{
    m_aQueue.push_back({window, message, wParam, lParam});
    m_aWakeUp.notify_all();
}

void HeadlessBackend::InvalidateLocked(HWindow& w, const WindowBox* box)
{
    WindowBox b = box ? *box : WindowBox{0, 0, w.width, w.height};
    b = {std::max(b.left, 0), std::max(b.top, 0), std::min(b.right, w.width), std::min(b.bottom, w.height)};
    if (b.left >= b.right || b.top >= b.bottom)
        return;
    if (w.dirty) {
        b = {std::min(b.left, w.dirtyBox.left), std::min(b.top, w.dirtyBox.top),
             std::max(b.right, w.dirtyBox.right), std::max(b.bottom, w.dirtyBox.bottom)};
    }
    w.dirty = true;
    w.dirtyBox = b;
    m_aWakeUp.notify_all();
}

void HeadlessBackend::Invalidate(NativeWindow window, const WindowBox* box)
{
    WindowPtr w = Find(window);
    std::lock_guard lock(m_aMutex);
    if (w)
        InvalidateLocked(*w, box);
}

cairo_surface_t* HeadlessBackend::GetSurface(NativeWindow window)
{
    WindowPtr w = Find(window);
    return w ? m_aLoans.Lend(w, [](HWindow& r) { return r.dead ? nullptr : r.surface; }) : nullptr;
}

void HeadlessBackend::ReleaseSurface(cairo_surface_t* surface)
{
    if (WindowPtr w = m_aLoans.TakeBack(surface))
        w->paintLock.unlock();
}

cairo_surface_t* HeadlessBackend::BeginPaint(NativeWindow window, WindowBox& dirty)
{
    cairo_surface_t* surface = GetSurface(window);
    if (!surface)
        return nullptr;
    WindowPtr w = Find(window);
    std::lock_guard lock(m_aMutex);
    dirty = w->dirty ? w->dirtyBox : WindowBox{};
    w->dirty = false;
    return surface;
}

void HeadlessBackend::EndPaint(cairo_surface_t* surface)
{
    ReleaseSurface(surface);
}

cairo_surface_t* HeadlessBackend::Snapshot(NativeWindow window)
{
    cairo_surface_t* surface = GetSurface(window);
    if (!surface)
        return nullptr;
    cairo_surface_t* copy = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, cairo_image_surface_get_width(surface),
                                                       cairo_image_surface_get_height(surface));
    cairo_t* cr = cairo_create(copy);
    cairo_set_source_surface(cr, surface, 0, 0);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_paint(cr);
    cairo_destroy(cr);
    ReleaseSurface(surface);
    return copy;
}

bool HeadlessBackend::WaitEvents(int timeoutMs)
{
    std::unique_lock lock(m_aMutex);
    auto ready = [this] {
        return m_bWoken || !m_aQueue.empty() ||
               std::any_of(m_aWindows.begin(), m_aWindows.end(),
                           [](const auto& entry) { return entry.second->dirty && entry.second->visible; });
    };
    if (timeoutMs < 0)
        m_aWakeUp.wait(lock, ready);
    else
        m_aWakeUp.wait_for(lock, std::chrono::milliseconds(timeoutMs), ready);
    m_bWoken = false;
    return true;
}

void HeadlessBackend::Wake()
{
    std::lock_guard lock(m_aMutex);
    m_bWoken = true;
    m_aWakeUp.notify_all();
}

// Delivers what was queued when the call began, then one WM_PAINT to each visible window
// that needs repainting (paints come last, as a server's expose events are handled after
// input). Events for windows destroyed meanwhile are dropped.
bool HeadlessBackend::DispatchEvents()
{
    std::deque<Event> events;
    WindowProcedure procedure;
    {
        std::lock_guard lock(m_aMutex);
        events.swap(m_aQueue);
        procedure = m_pProcedure;
    }
    for (const Event& e : events) {
        if (procedure && IsWindow(e.window))
            procedure(e.window, e.message, e.wParam, e.lParam);
    }
    std::vector<NativeWindow> dirty;
    {
        std::lock_guard lock(m_aMutex);
        for (const auto& [id, w] : m_aWindows) {
            if (w->dirty && w->visible)
                dirty.push_back(reinterpret_cast<NativeWindow>(id));
        }
    }
    for (NativeWindow window : dirty) {
        if (procedure && IsWindow(window))
            procedure(window, WM_PAINT, 0, 0);
    }
    return true;
}

} // namespace vesk::display
