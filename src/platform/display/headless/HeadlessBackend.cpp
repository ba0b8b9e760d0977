#include "platform/display/headless/HeadlessWindow_p.hpp"

#include <vesk/frame/WinMessages.hpp>
#include "platform/display/MessageBoxButtons.hpp"
#include "platform/message_box.hpp"

#include <algorithm>

namespace vesk::display {

namespace {

constexpr int32_t MAX_SIDE = 16384;
constexpr int32_t SCREEN_WIDTH = 1920, SCREEN_HEIGHT = 1080;

int32_t ClampSide(int32_t v)
{
    return std::clamp(v, 0, MAX_SIDE);
}

cairo_surface_t* NewSurface(int32_t width, int32_t height)
{
    cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    // A new window shows the desktop's window colour until it paints.
    cairo_t* cr = cairo_create(s);
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_paint(cr);
    cairo_destroy(cr);
    return s;
}

NativeWindow Handle(uintptr_t id)
{
    return reinterpret_cast<NativeWindow>(id);
}

} // namespace

HeadlessBackend::HeadlessBackend() : m_aScreens{ScreenInfo{0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, 96.0}} {}

HeadlessBackend::~HeadlessBackend()
{
    for (auto& [id, w] : m_aWindows)
        cairo_surface_destroy(w->surface);
}

HeadlessBackend::WindowPtr HeadlessBackend::Find(NativeWindow window) const
{
    std::lock_guard lock(m_aMutex);
    auto it = m_aWindows.find(reinterpret_cast<uintptr_t>(window));
    return it == m_aWindows.end() ? nullptr : it->second;
}

void HeadlessBackend::SetWindowProcedure(WindowProcedure procedure)
{
    std::lock_guard lock(m_aMutex);
    m_pProcedure = procedure;
}

NativeWindow HeadlessBackend::CreateWindow(const WindowParams& params)
{
    std::lock_guard lock(m_aMutex);
    if (params.kind == WindowKind::Child && !m_aWindows.count(reinterpret_cast<uintptr_t>(params.parent)))
        return nullptr;
    auto w = std::make_shared<HWindow>();
    w->kind = params.kind;
    w->parent = m_aWindows.count(reinterpret_cast<uintptr_t>(params.parent)) ? params.parent : nullptr;
    w->x = params.x;
    w->y = params.y;
    w->width = ClampSide(params.width);
    w->height = ClampSide(params.height);
    w->title = params.title;
    w->surface = NewSurface(w->width, w->height);
    const uintptr_t id = m_nNextHandle++;
    m_aWindows.emplace(id, std::move(w));
    return Handle(id);
}

void HeadlessBackend::DestroyWindow(NativeWindow window)
{
    WindowProcedure procedure;
    {
        std::lock_guard lock(m_aMutex);
        procedure = m_pProcedure;
    }
    WindowPtr w = Find(window);
    if (!w)
        return;
    if (procedure)
        procedure(window, WM_DESTROY, 0, 0);
    DestroyTree(window);
}

// Children and owned popups go with their parent; each gets its WM_DESTROY after the parent's.
void HeadlessBackend::DestroyTree(NativeWindow window)
{
    WindowPtr w = Find(window);
    if (!w)
        return;
    {
        // Waits for a painter on another thread to give the surface back.
        std::lock_guard paint(w->paintLock);
        w->dead = true;
    }
    std::vector<NativeWindow> dependents;
    WindowProcedure procedure;
    {
        std::lock_guard lock(m_aMutex);
        m_aWindows.erase(reinterpret_cast<uintptr_t>(window));
        for (auto& [id, other] : m_aWindows) {
            if (other->parent == window)
                dependents.push_back(Handle(id));
        }
        for (NativeWindow* h : {&m_hFocus, &m_hCapture, &m_hPointer}) {
            if (*h == window)
                *h = nullptr;
        }
        procedure = m_pProcedure;
    }
    cairo_surface_destroy(w->surface);
    w->surface = nullptr;
    for (NativeWindow d : dependents) {
        if (procedure && IsWindow(d))
            procedure(d, WM_DESTROY, 0, 0);
        DestroyTree(d);
    }
}

bool HeadlessBackend::IsWindow(NativeWindow window) const
{
    return Find(window) != nullptr;
}

size_t HeadlessBackend::WindowCount() const
{
    std::lock_guard lock(m_aMutex);
    return m_aWindows.size();
}

void HeadlessBackend::MoveWindow(NativeWindow window, int32_t x, int32_t y, int32_t width, int32_t height)
{
    WindowPtr w = Find(window);
    if (!w)
        return;
    std::lock_guard paint(w->paintLock);
    if (w->dead)
        return;
    std::lock_guard lock(m_aMutex);
    const Placement placed = PlaceLocked(*w, x, y, width, height);
    if (!w->visible)
        return;
    if (placed.moved) {
        const WindowBox box = GetBoxLocked(*w);
        Queue(window, WM_MOVE, 0, MakeLParam(box.left, box.top));
    }
    if (placed.resized) {
        Queue(window, WM_SIZE, SIZE_RESTORED, MakeLParam(w->width, w->height));
        InvalidateLocked(*w, nullptr);
    }
}

HeadlessBackend::Placement HeadlessBackend::PlaceLocked(HWindow& w, int32_t x, int32_t y, int32_t width,
                                                        int32_t height)
{
    width = ClampSide(width);
    height = ClampSide(height);
    const Placement placed{x != w.x || y != w.y, width != w.width || height != w.height};
    w.x = x;
    w.y = y;
    w.width = width;
    w.height = height;
    if (placed.resized)
        w.Resize(NewSurface(width, height));
    return placed;
}

bool HeadlessBackend::SetParent(NativeWindow window, NativeWindow parent, int32_t x, int32_t y)
{
    WindowPtr w = Find(window);
    if (!w || !Find(parent))
        return false;
    std::lock_guard lock(m_aMutex);
    if (w->kind != WindowKind::Child)
        return false;
    for (NativeWindow up = parent; up;) {
        if (up == window)
            return false; // the new parent lies inside the window
        auto it = m_aWindows.find(reinterpret_cast<uintptr_t>(up));
        up = it != m_aWindows.end() ? it->second->parent : nullptr;
    }
    w->parent = parent;
    w->x = x;
    w->y = y;
    if (w->visible) {
        const WindowBox box = GetBoxLocked(*w);
        Queue(window, WM_MOVE, 0, MakeLParam(box.left, box.top));
        InvalidateLocked(*w, nullptr);
    }
    return true;
}

WindowBox HeadlessBackend::GetBoxLocked(const HWindow& w) const
{
    WindowBox box{w.x, w.y, w.x + w.width, w.y + w.height};
    if (w.kind == WindowKind::Child) {
        auto it = m_aWindows.find(reinterpret_cast<uintptr_t>(w.parent));
        if (it != m_aWindows.end()) {
            const WindowBox outer = GetBoxLocked(*it->second);
            box = {box.left + outer.left, box.top + outer.top, box.right + outer.left, box.bottom + outer.top};
        }
    }
    return box;
}

WindowBox HeadlessBackend::GetWindowBox(NativeWindow window) const
{
    std::lock_guard lock(m_aMutex);
    auto it = m_aWindows.find(reinterpret_cast<uintptr_t>(window));
    return it == m_aWindows.end() ? WindowBox{} : GetBoxLocked(*it->second);
}

WindowBox HeadlessBackend::GetClientBox(NativeWindow window) const
{
    std::lock_guard lock(m_aMutex);
    auto it = m_aWindows.find(reinterpret_cast<uintptr_t>(window));
    return it == m_aWindows.end() ? WindowBox{} : WindowBox{0, 0, it->second->width, it->second->height};
}

void HeadlessBackend::Show(NativeWindow window, ShowCommand command)
{
    WindowPtr w = Find(window);
    if (!w)
        return;
    std::lock_guard paint(w->paintLock);
    if (w->dead)
        return;
    std::lock_guard lock(m_aMutex);
    const bool wasVisible = w->visible;
    const ShowCommand was = w->state;
    // Maximising and restoring move and size the window; the one WM_SIZE below reports both.
    Placement placed{false, false};
    if (command == ShowCommand::Maximised && was != ShowCommand::Maximised) {
        w->normalBox = {w->x, w->y, w->x + w->width, w->y + w->height};
        placed = PlaceLocked(*w, 0, 0, SCREEN_WIDTH, SCREEN_HEIGHT);
    } else if (command == ShowCommand::Normal && was == ShowCommand::Maximised) {
        const WindowBox r = w->normalBox;
        placed = PlaceLocked(*w, r.left, r.top, r.right - r.left, r.bottom - r.top);
    }
    w->visible = command != ShowCommand::Hide;
    if (w->visible)
        w->state = command;
    if (!w->visible) {
        if (wasVisible)
            Queue(window, WM_SHOWWINDOW, 0, 0);
        if (m_hFocus == window)
            ChangeFocusLocked(nullptr);
        return;
    }
    if (!wasVisible) {
        QueueShowEvents(window, *w);
    } else if (was != command) {
        if (placed.moved) {
            const WindowBox box = GetBoxLocked(*w);
            Queue(window, WM_MOVE, 0, MakeLParam(box.left, box.top));
        }
        Queue(window, WM_SIZE, command == ShowCommand::Minimised ? SIZE_MINIMIZED
                               : command == ShowCommand::Maximised ? SIZE_MAXIMIZED : SIZE_RESTORED,
              MakeLParam(w->width, w->height));
    }
    InvalidateLocked(*w, nullptr);
}

// A window coming into view: what a server reports when it maps a window.
void HeadlessBackend::QueueShowEvents(NativeWindow window, const HWindow& w)
{
    Queue(window, WM_SHOWWINDOW, 1, 0);
    Queue(window, WM_SIZE, w.state == ShowCommand::Maximised ? SIZE_MAXIMIZED
                           : w.state == ShowCommand::Minimised ? SIZE_MINIMIZED : SIZE_RESTORED,
          MakeLParam(w.width, w.height));
    const WindowBox box = GetBoxLocked(w);
    Queue(window, WM_MOVE, 0, MakeLParam(box.left, box.top));
    if (w.kind == WindowKind::TopLevel && w.state != ShowCommand::Minimised)
        ChangeFocusLocked(window);
}

ShowCommand HeadlessBackend::GetShowState(NativeWindow window) const
{
    WindowPtr w = Find(window);
    std::lock_guard lock(m_aMutex);
    return w && w->visible ? w->state : ShowCommand::Hide;
}

void HeadlessBackend::SetTitle(NativeWindow window, const std::string& utf8)
{
    if (WindowPtr w = Find(window)) {
        std::lock_guard lock(m_aMutex);
        w->title = utf8;
    }
}

std::string HeadlessBackend::GetTitle(NativeWindow window) const
{
    WindowPtr w = Find(window);
    std::lock_guard lock(m_aMutex);
    return w ? w->title : std::string();
}

void HeadlessBackend::SetCursor(NativeWindow window, CursorShape shape)
{
    if (WindowPtr w = Find(window)) {
        std::lock_guard lock(m_aMutex);
        w->cursor = shape;
    }
}

CursorShape HeadlessBackend::GetCursor(NativeWindow window) const
{
    WindowPtr w = Find(window);
    std::lock_guard lock(m_aMutex);
    return w ? w->cursor : CursorShape::Arrow;
}

void HeadlessBackend::SetFocus(NativeWindow window)
{
    std::lock_guard lock(m_aMutex);
    if (window == nullptr || m_aWindows.count(reinterpret_cast<uintptr_t>(window)))
        ChangeFocusLocked(window);
}

// Focus moves with WM_KILLFOCUS to the old window and WM_SETFOCUS to the new one; top-level
// windows between them get activated and deactivated.
void HeadlessBackend::ChangeFocusLocked(NativeWindow window)
{
    const NativeWindow old = m_hFocus;
    if (old == window)
        return;
    const NativeWindow oldTop = TopLevelLocked(old), newTop = TopLevelLocked(window);
    m_hFocus = window;
    if (old)
        Queue(old, WM_KILLFOCUS, reinterpret_cast<WParam>(window), 0);
    if (oldTop != newTop) {
        if (oldTop)
            Queue(oldTop, WM_ACTIVATE, 0, reinterpret_cast<LParam>(newTop));
        if (newTop)
            Queue(newTop, WM_ACTIVATE, 1, reinterpret_cast<LParam>(oldTop));
    }
    if (window)
        Queue(window, WM_SETFOCUS, reinterpret_cast<WParam>(old), 0);
}

NativeWindow HeadlessBackend::TopLevelLocked(NativeWindow window) const
{
    while (window) {
        auto it = m_aWindows.find(reinterpret_cast<uintptr_t>(window));
        if (it == m_aWindows.end())
            return nullptr;
        if (it->second->kind != WindowKind::Child)
            return window;
        window = it->second->parent;
    }
    return nullptr;
}

NativeWindow HeadlessBackend::GetFocus() const
{
    std::lock_guard lock(m_aMutex);
    return m_hFocus;
}

void HeadlessBackend::SetCapture(NativeWindow window)
{
    std::lock_guard lock(m_aMutex);
    if (window == nullptr || m_aWindows.count(reinterpret_cast<uintptr_t>(window)))
        m_hCapture = window;
}

NativeWindow HeadlessBackend::GetCapture() const
{
    std::lock_guard lock(m_aMutex);
    return m_hCapture;
}

std::vector<ScreenInfo> HeadlessBackend::GetScreens() const
{
    std::lock_guard lock(m_aMutex);
    return m_aScreens;
}

void HeadlessBackend::SetScreens(const std::vector<ScreenInfo>& screens)
{
    std::lock_guard lock(m_aMutex);
    m_aScreens = screens;
    const ScreenInfo first = screens.empty() ? ScreenInfo{} : screens.front();
    const LParam size = static_cast<LParam>((first.width & 0xFFFF) | ((first.height & 0xFFFF) << 16));
    for (const auto& [id, w] : m_aWindows) {
        if (w->kind != WindowKind::Child)
            Queue(Handle(id), WM_DISPLAYCHANGE, 32, size);
    }
}

int HeadlessBackend::MessageBox(NativeWindow owner, const std::string& text, const std::string& caption,
                                uint32_t type)
{
    {
        std::lock_guard lock(m_aMutex);
        m_aMessageBoxes.push_back({owner, text, caption, type});
    }
    platform::StderrMessageBox(text.c_str(), caption.c_str());
    // Nobody can answer: the box returns its default button.
    return DefaultMessageBoxResult(type);
}

std::vector<MessageBoxRecord> HeadlessBackend::GetMessageBoxes() const
{
    std::lock_guard lock(m_aMutex);
    return m_aMessageBoxes;
}

void HeadlessBackend::ClearMessageBoxes()
{
    std::lock_guard lock(m_aMutex);
    m_aMessageBoxes.clear();
}

} // namespace vesk::display
