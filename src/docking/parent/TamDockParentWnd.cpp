// The dock parent's bookkeeping: filling a pane's recent position from the layout, and
// hiding, closing, floating and showing panes with the application's callbacks.
#include <vesk/docking/TamDockParentWnd.hpp>

#include "docking/frame/DockHost_p.hpp"

#include <vesk/docking/DockElement.hpp>
#include <vesk/docking/HolderElement.hpp>
#include <vesk/docking/PaneElement.hpp>
#include <vesk/docking/TamDockablePane.hpp>
#include <vesk/docking/TamDockingManager.hpp>
#include <vesk/window/Window.hpp>

#include <algorithm>

namespace vesk {

TamDockParentWnd::TamDockParentWnd(TamDockingManager& manager) : m_rManager(manager) {}

TamDockParentWnd::~TamDockParentWnd() = default;

void TamDockParentWnd::SetPFreeSpaceWnd(CWnd* wnd)
{
    m_rManager.SetCentralWindow(wnd);
}

bool TamDockParentWnd::IsOwnPane(const TamDockablePane* pane) const
{
    return pane && m_rManager.KnownPane(pane);
}

TamDockablePane* TamDockParentWnd::GetPaneOfDockNeighbour(const DockNeighbour* nb) const
{
    return nb ? m_rManager.FindPane(nb->GetName()) : nullptr;
}

void TamDockParentWnd::MakeRoomInNeighbourHolder(TamDockablePane* pane, uint32_t align)
{
    if (!IsOwnPane(pane))
        return;
    const DockElementVec elements = m_rManager.BuildDockElements();
    const DockElement* el = nullptr;
    for (const auto& top : elements) {
        if ((el = top->FindElementOfPane(pane)))
            break;
    }
    const auto* holder = el ? dynamic_cast<const HolderElement*>(el->GetParent()) : nullptr;
    if (!holder || holder->IsHorizontal() != IsVerticalEdge(align) || !IsSideAlign(align))
        return;
    const CRectangle& r = holder->GetRect();
    const int32_t extent = holder->IsHorizontal() ? r.Right() - r.Left() : r.Bottom() - r.Top();
    if (extent * 0.66 > holder->GetSideLenInPixel(el))
        pane->SetSizeInContainer(static_cast<int32_t>(extent * 0.66));
}

void TamDockParentWnd::FillDockPosition(const TamDockablePane* pane, DockPosition& pos, bool addIfMissing)
{
    DockElementVec elements = m_rManager.BuildDockElements();
    if (addIfMissing && pane) {
        const bool held = std::any_of(elements.begin(), elements.end(), [pane](const auto& top) {
            const auto* el = dynamic_cast<const DockPaneElement*>(top.get());
            return el && el->GetPane() == pane;
        });
        if (!held)
            elements.push_back(std::make_unique<DockPaneElement>(const_cast<TamDockablePane*>(pane)));
    }
    DockElement::FillDockPosition(elements, pane, pos);
    if (pos.GetName().Len() == 0 && pane)
        pos.SetName(pane->GetName());
}

namespace {

// Where the pane is now: filled from the layout when docked; floating keeps the docked
// record and adds the mini-frame's rectangle.
void FillRecent(TamDockParentWnd& parent, TamDockablePane* pane, DockPosition& pos)
{
    if (pane->IsDocked()) {
        parent.FillDockPosition(pane, pos, false);
        pos.SetIsFloating(false);
    } else if (pane->IsFloating()) {
        CRectangle mini;
        if (pane->GetMiniFrameScreenRect(mini))
            pos.SetRectRecentFloat(mini);
        pos.SetIsFloating(true);
    }
}

} // namespace

void TamDockParentWnd::OnBeforeFloat(TamDockablePane* pane, int32_t reason)
{
    if (!IsOwnPane(pane) || !pane->GetLibraryWindow() || m_bSuppressFloatUpdate)
        return;
    DockPosition pos;
    FillDockPosition(pane, pos, true);
    if (reason == 2 && m_aCallBacks.aFloatRectQuery.IsSet() && m_aCallBacks.aFloatRectQuery.Call(&pos) != 0)
        pane->SetRecentFloatRect(pos.GetRectRecentFloat());
    pane->SetRecentDockPosition(pos);
    if (m_aCallBacks.aRecentPosition.IsSet())
        m_aCallBacks.aRecentPosition.Call(pane);
}

bool TamDockParentWnd::RemovePane(TamDockablePane* pane, DockPosition& pos, bool fill)
{
    if (!pane)
        return false;
    Window* window = pane->GetLibraryWindow();
    if (window && m_aCallBacks.aMayClose.IsSet() && m_aCallBacks.aMayClose.Call(window) == 0)
        return false;
    if (!IsOwnPane(pane))
        return false;
    if (fill)
        FillRecent(*this, pane, pos);
    pane->SetRecentDockPosition(pos);
    pane->DoClose(); // a mini-frame holds one pane: it closes with it
    if (window && window->GetCWnd())
        window->GetCWnd()->ShowWindow(SW_HIDE);
    if (m_aCallBacks.aPaneRemoved.IsSet())
        m_aCallBacks.aPaneRemoved.Call(pane);
    return true;
}

void TamDockParentWnd::SaveRecentFloatingState(TamDockablePane* pane, const CRectangle& rect)
{
    if (!pane)
        return;
    DockPosition pos;
    pos.SetName(pane->GetName());
    pos.SetRectRecentFloat(rect);
    if (m_aCallBacks.aSaveFloatState.IsSet())
        m_aCallBacks.aSaveFloatState.Call(&pos);
    pane->SetRecentFloatRect(rect);
}

void TamDockParentWnd::HidePane(TamDockablePane* pane, DockPosition& pos, bool fill)
{
    if (!IsOwnPane(pane))
        return;
    // A pinned-off pane keeps the position stored when it left the layout.
    if (fill)
        FillRecent(*this, pane, pos);
    pane->SetRecentDockPosition(pos);
    pane->Conceal();
}

void TamDockParentWnd::ShowPane(TamDockablePane* pane, const DockPosition& pos)
{
    if (!IsOwnPane(pane) || pane->IsDocked() || pane->IsFloating() || pane->IsAutoHidden())
        return;
    if (pos.IsFloating() && pane->FloatPane()) {
        m_eLastStep = DockPlacementStep::Floating;
        return;
    }
    DockPosition docked = pos;
    docked.SetIsFloating(false);
    DockWithPosition(pane, docked);
}

} // namespace vesk
