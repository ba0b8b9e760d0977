// The browser's panes in the docking manager: the default layout, hiding and showing, where
// they stand, and the screenshot composed from their windows.
#include "DemoApp.hpp"


using namespace vesk;

namespace demo {

void DemoApp::DockDefaultLayout()
{
    const TamSize room = m_pDocking->GetHost()->GetClientSize();
    // The log band goes first and outermost, so it spans the frame's whole width.
    m_pDocking->DockIntoParent(m_aDocked[PANE_LOG].get(), CBRS_ALIGN_BOTTOM, room.Height() / 5, true);
    m_pDocking->DockIntoParent(m_aDocked[PANE_FOLDER].get(), CBRS_ALIGN_LEFT, room.Width() / 4, false);
    m_pDocking->DockIntoParent(m_aDocked[PANE_PROPERTIES].get(), CBRS_ALIGN_RIGHT, room.Width() * 7 / 25, false);
    // 0: the colours take the lower half of the properties pane's room.
    m_pDocking->DockIntoPane(m_aDocked[PANE_COLOURS].get(), m_aDocked[PANE_PROPERTIES].get(), CBRS_ALIGN_BOTTOM, 0);
}

namespace {
// The name of the browser's layout in the settings store.
UString LayoutProfile()
{
    return UString("PictureBrowser");
}
} // namespace

bool DemoApp::SaveLayout() const
{
    return m_pDocking->SaveState(LayoutProfile());
}

bool DemoApp::RestoreLayout()
{
    if (m_pDocking->LoadState(LayoutProfile()))
        return true;
    // The panes' own values may have been read without the layout: start again from the
    // default, every pane docked.
    DockDefaultLayout();
    return false;
}

bool DemoApp::IsPaneVisible(int pane) const
{
    if (pane == PANE_PREVIEW)
        return m_aPreview.Wnd().IsWindowVisible();
    const DockedPane* docked = Dockable(pane);
    return docked && docked->IsShown();
}

void DemoApp::TogglePane(int pane)
{
    if (pane < 0 || pane >= PANE_COUNT)
        return;
    const bool show = !IsPaneVisible(pane);
    if (pane == PANE_PREVIEW) {
        // The free space stays where it is; only its window goes out of sight.
        m_aPreview.Wnd().ShowWindow(show ? SW_SHOW : SW_HIDE);
    } else if (show) {
        m_aDocked[pane]->ShowPane();
    } else {
        m_aDocked[pane]->HidePane();
    }
    Event(PaneAt(pane).Title() + (show ? " shown" : " hidden"));
}

PaneRects DemoApp::Rects() const
{
    const CRectangle host = m_pDocking->GetHost()->GetWindowRect();
    const auto toHost = [&host](const CRectangle& r) {
        return CRectangle(r.Left() - host.Left(), r.Top() - host.Top(), r.Right() - host.Left(),
                          r.Bottom() - host.Top());
    };
    PaneRects rects{};
    for (int i = 0; i < PANE_COUNT; ++i) {
        CRectangle r;
        if (i == PANE_PREVIEW) {
            if (IsPaneVisible(i))
                rects[i] = toHost(m_aPreview.Wnd().GetWindowRect());
        } else if (m_aDocked[i]->IsDocked()) {
            rects[i] = toHost(m_aDocked[i]->GetScreenRect());
        } else if (m_aDocked[i]->GetMiniFrameScreenRect(r)) {
            rects[i] = toHost(r);
        }
    }
    return rects;
}

namespace {

// Whether the window and every parent up to its top-level window are shown.
bool ShownAllTheWayUp(const CWnd* wnd)
{
    for (; wnd; wnd = wnd->GetParent()) {
        if (!wnd->GetSafeHwnd() || !wnd->IsWindowVisible())
            return false;
        if (wnd->GetKind() != WndKind::Child)
            return true;
    }
    return true;
}

} // namespace

bool DemoApp::AddWindowPicture(OutputDevice& dev, CWnd& wnd, const CRectangle& origin)
{
    if (!ShownAllTheWayUp(&wnd))
        return false;
    Bitmap picture;
    if (!GetWindowPicture(wnd.GetSafeHwnd(), picture))
        return false;
    const CRectangle r = wnd.GetWindowRect();
    dev.DrawBitmap(TamPoint(r.Left() - origin.Left(), r.Top() - origin.Top()), picture);
    return !picture.Empty();
}

Bitmap DemoApp::Screenshot()
{
    CWnd& host = *m_pDocking->GetHost();
    const CRectangle origin = host.GetWindowRect();
    VirtualDevice dev(host.GetClientSize());
    dev.Erase(CRectangle(0, 0, origin.Right() - origin.Left() - 1, origin.Bottom() - origin.Top() - 1),
              TamColor(0xD8D0C8u));
    AddWindowPicture(dev, m_aPreview.Wnd(), origin);
    if (AnimatedGif* animation = m_aPreview.Animation())
        AddWindowPicture(dev, *animation->GetCWnd(), origin);
    for (const auto& divider : m_pDocking->GetDividers())
        AddWindowPicture(dev, *divider->GetCWnd(), origin);
    for (uint32_t edge : {CBRS_ALIGN_LEFT, CBRS_ALIGN_TOP, CBRS_ALIGN_RIGHT, CBRS_ALIGN_BOTTOM}) {
        if (TamDockSite* site = m_pDocking->GetDockSite(edge))
            AddWindowPicture(dev, *site->GetCWnd(), origin);
    }
    const auto addPanes = [&](bool floating) {
        for (const auto& pane : m_aDocked) {
            if (pane && pane->IsFloating() == floating) {
                AddWindowPicture(dev, *pane->GetCWnd(), origin);
                AddWindowPicture(dev, pane->Body().Wnd(), origin);
            }
        }
    };
    addPanes(false);
    // While a pane is dragged: where it would land, as the manager's overlay shows it.
    if (CRectangle drop; m_pDocking->GetDropPreview(drop)) {
        dev.ChangePen(Pen(TamColor(0xC07830u), 2));
        dev.ChangeFillInBrush(Brush(TamColor(0xF0D8B0u)));
        dev.DrawRect(drop);
    }
    addPanes(true);
    return Bitmap(dev);
}

} // namespace demo
