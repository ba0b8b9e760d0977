// Floating mini-frames.
#include <vesk/docking/TamPaneFrameWnd.hpp>

#include "docking/frame/DockHost_p.hpp"
#include "platform/display/DisplayBackend.hpp"

#include <vesk/docking/TamDockablePane.hpp>
#include <vesk/docking/TamDockingManager.hpp>
#include <vesk/window/MessageLoop.hpp>
#include <vesk/frame/WinMessages.hpp>

#include <algorithm>

namespace vesk {

TamPaneFrameWnd::~TamPaneFrameWnd()
{
    DestroyWindow();
}

CRectangle TamPaneFrameWnd::KeepOnScreen(const CRectangle& rect, const std::vector<CRectangle>& screens)
{
    if (screens.empty())
        return rect;
    // The screen it overlaps most, else the first; then shifted inside it (top-left wins
    // when the rectangle is larger than the screen, so the caption stays reachable).
    const CRectangle* best = &screens.front();
    int64_t bestArea = 0;
    for (const CRectangle& s : screens) {
        const int64_t w = std::min(rect.Right(), s.Right()) - std::max(rect.Left(), s.Left());
        const int64_t h = std::min(rect.Bottom(), s.Bottom()) - std::max(rect.Top(), s.Top());
        if (w > 0 && h > 0 && w * h > bestArea) {
            bestArea = w * h;
            best = &s;
        }
    }
    const int32_t w = rect.Right() - rect.Left();
    const int32_t h = rect.Bottom() - rect.Top();
    const int32_t x = std::max(best->Left(), std::min(rect.Left(), best->Right() - w));
    const int32_t y = std::max(best->Top(), std::min(rect.Top(), best->Bottom() - h));
    return CRectangle(x, y, x + w, y + h);
}

CRectangle TamPaneFrameWnd::KeepVisible(const CRectangle& rect, const std::vector<CRectangle>& screens)
{
    // A frame narrower or lower than that must show whole along that side.
    const int32_t needW = std::min(MIN_VISIBLE_WIDTH, rect.Right() - rect.Left());
    const int32_t needH = std::min(MIN_VISIBLE_HEIGHT, rect.Bottom() - rect.Top());
    for (const CRectangle& s : screens) {
        const int32_t w = std::min(rect.Right(), s.Right()) - std::max(rect.Left(), s.Left());
        const int32_t h = std::min(rect.Bottom(), s.Bottom()) - std::max(rect.Top(), s.Top());
        if (w >= needW && h >= needH && w > 0 && h > 0)
            return rect;
    }
    return KeepOnScreen(rect, screens);
}

std::vector<CRectangle> TamPaneFrameWnd::GetScreenRects()
{
    std::vector<CRectangle> screens;
    for (const display::ScreenInfo& s : display::GetDisplayBackend().GetScreens())
        screens.emplace_back(s.x, s.y, s.x + s.width, s.y + s.height);
    return screens;
}

bool TamPaneFrameWnd::Create(const CRectangle& rect, CWnd* owner)
{
    const CRectangle r = KeepOnScreen(rect, GetScreenRects());
    const SString name = m_rPane.GetName();
    return CWnd::Create(owner ? WndKind::Popup : WndKind::TopLevel, owner, r.TopLeft(), TamSize(r.Right() - r.Left(), r.Bottom() - r.Top()),
                        static_cast<const char*>(name));
}

intptr_t TamPaneFrameWnd::WindowProc(uint32_t message, WParam wParam, LParam lParam)
{
    switch (message) {
    case WM_CLOSE:
        // The window manager's close button hides the pane, like its own close button; later,
        // since hiding destroys this window.
        if (TamDockingManager* manager = m_rPane.GetManager())
            PostMessage(manager->GetHost()->GetSafeHwnd(), WM_DOCK_CLOSEPANE, 0, reinterpret_cast<LParam>(&m_rPane));
        return 0;
    case WM_DISPLAYCHANGE:
        // A monitor went away or changed: every mini-frame must stay reachable.
        if (TamDockingManager* manager = m_rPane.GetManager())
            manager->KeepMiniFramesVisible();
        return CWnd::WindowProc(message, wParam, lParam);
    case WM_SIZE: {
        const intptr_t result = CWnd::WindowProc(message, wParam, lParam);
        if (CWnd* pane = m_rPane.GetCWnd(); pane && pane->GetParent() == this) {
            const TamSize size = GetClientSize();
            pane->MoveWindow(0, 0, size.Width(), size.Height());
        }
        return result;
    }
    default:
        return CWnd::WindowProc(message, wParam, lParam);
    }
}

} // namespace vesk
