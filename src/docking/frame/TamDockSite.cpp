// Dock sites and their auto-hide strips: pinning panes off and back, sliding them out.
#include <vesk/docking/TamDockSite.hpp>

#include "docking/frame/DockHost_p.hpp"
#include "docking/layout/LayoutModel.hpp"

#include <vesk/docking/TamDockablePane.hpp>
#include <vesk/docking/TamDockingManager.hpp>
#include <vesk/graphics/Brush.hpp>
#include <vesk/graphics/Pen.hpp>

#include <algorithm>

namespace vesk {

namespace {

constexpr int32_t STRIP_96 = 24;
constexpr int32_t TAB_96 = 80;

} // namespace

TamDockSite::TamDockSite() = default;

bool TamDockSite::Create(TamDockingManager& manager, uint32_t align)
{
    if (!IsSideAlign(align) || Wnd().GetSafeHwnd())
        return false;
    if (!CreateOwned(WndKind::Child, manager.GetHost(), TamPoint(0, 0), TamSize(0, 0)))
        return false;
    m_pManager = &manager;
    m_nAlign = align;
    return true;
}

int32_t TamDockSite::GetStripThickness(int32_t dpi) const
{
    return m_aPanes.empty() ? 0 : LayoutScale(STRIP_96, dpi);
}

CRectangle TamDockSite::GetTabRect(size_t i) const
{
    const int32_t dpi = m_pManager ? m_pManager->GetDpi() : 96;
    const int32_t t = LayoutScale(STRIP_96, dpi);
    const int32_t len = LayoutScale(TAB_96, dpi);
    const int32_t at = static_cast<int32_t>(i) * len;
    return IsVerticalEdge(m_nAlign) ? CRectangle(0, at, t, at + len) : CRectangle(at, 0, at + len, t);
}

void TamDockSite::Paint(const CRectangle&)
{
    const TamSize size = Wnd().GetClientSize();
    ChangePen(Pen(TamColor(0xA0A0A0u)));
    ChangeFillInBrush(Brush(TamColor(0xE0E0E0u)));
    DrawRect(CRectangle(0, 0, size.Width(), size.Height()));
    for (size_t i = 0; i < m_aPanes.size(); ++i) {
        const CRectangle tab = GetTabRect(i);
        ChangeFillInBrush(Brush(TamColor(m_aPanes[i] == m_pShown ? 0xFFFFFFu : 0xD0D0D0u)));
        DrawRect(tab);
        DrawText(TamPoint(tab.Left() + 3, tab.Top() + 3), m_aPanes[i]->GetName());
    }
}

void TamDockSite::MouseButtonDown(const MouseEvent& event)
{
    if (!m_pManager || !(event.GetChangedButton() & MOUSE_LEFT))
        return;
    for (size_t i = 0; i < m_aPanes.size(); ++i) {
        if (GetTabRect(i).IsInside(event.GetPosPixel())) {
            // A click on the tab of the pane that is out slides it back in.
            m_pManager->SlideOut(*this, m_aPanes[i] == m_pShown ? nullptr : m_aPanes[i]);
            return;
        }
    }
}

bool TamDockingManager::PinOff(TamDockablePane& pane)
{
    TamDockSite* site = GetDockSite(pane.GetCurrentAlignment());
    if (!site || !TakeOut(pane))
        return false;
    pane.m_eState = TamDockablePane::State::AutoHidden;
    site->m_aPanes.push_back(&pane);
    RecalcLayout();
    return true;
}

bool TamDockingManager::Unpin(TamDockablePane& pane)
{
    for (auto& site : m_aSites) {
        if (std::erase(site->m_aPanes, &pane) == 0)
            continue;
        if (site->m_pShown == &pane)
            site->m_pShown = nullptr;
        pane.m_eState = TamDockablePane::State::Hidden;
        pane.Wnd().ShowWindow(SW_HIDE);
        site->Invalidate();
        return true;
    }
    return false;
}

bool TamDockingManager::PinBack(TamDockablePane& pane)
{
    if (!Unpin(pane))
        return false;
    if (!Redock(pane))
        RecalcLayout();
    return true;
}

void TamDockingManager::SlideOut(TamDockSite& site, TamDockablePane* pane)
{
    if (site.m_pShown && site.m_pShown != pane)
        site.m_pShown->Wnd().ShowWindow(SW_HIDE);
    site.m_pShown = pane;
    site.Invalidate();
    if (!pane)
        return;
    // Out over the layout, against the strip, as thick as the pane was when docked.
    const LayoutRect& area = m_pModel->GetSolution().client;
    const TamPoint o = ModelOffset();
    const bool across = IsVerticalEdge(site.GetAlignment());
    const int32_t room = across ? area.cx : area.cy;
    const CRectangle& was = pane->GetRecentDockedRect();
    const int32_t len = std::clamp(across ? was.Right() - was.Left() : was.Bottom() - was.Top(), 0, room);
    CRectangle r;
    switch (site.GetAlignment()) {
    case CBRS_ALIGN_LEFT: r = CRectangle(o.x, o.y, o.x + len, o.y + area.cy); break;
    case CBRS_ALIGN_RIGHT: r = CRectangle(o.x + area.cx - len, o.y, o.x + area.cx, o.y + area.cy); break;
    case CBRS_ALIGN_TOP: r = CRectangle(o.x, o.y, o.x + area.cx, o.y + len); break;
    default: r = CRectangle(o.x, o.y + area.cy - len, o.x + area.cx, o.y + area.cy); break;
    }
    pane->PlaceAt(r);
}

} // namespace vesk
