// The docking manager: the host window, the panes' registry and the operations that edit
// the layout model.
#include <vesk/docking/TamDockingManager.hpp>

#include "docking/frame/DockDrag_p.hpp"
#include "docking/frame/DockHost_p.hpp"
#include "docking/layout/LayoutTree.hpp"

#include <vesk/docking/TamDockablePane.hpp>
#include <vesk/docking/TamPaneContainer.hpp>
#include <vesk/docking/TamPaneFrameWnd.hpp>
#include <vesk/frame/VeskData.hpp>
#include <vesk/frame/WinMessages.hpp>
#include <vesk/window/FrameWnd.hpp>
#include <vesk/window/MessageLoop.hpp>
#include <vesk/window/Window.hpp>

#include <algorithm>

namespace vesk {

bool IsSideAlign(uint32_t align)
{
    LayoutEdge edge;
    return LayoutEdgeOfAlign(align, edge);
}

bool IsVerticalEdge(uint32_t align)
{
    return align == CBRS_ALIGN_LEFT || align == CBRS_ALIGN_RIGHT;
}

intptr_t DockHostWnd::WindowProc(uint32_t message, WParam wParam, LParam lParam)
{
    const intptr_t result = CWnd::WindowProc(message, wParam, lParam);
    if (message == WM_SIZE)
        m_rManager.RecalcLayout();
    if (message == WM_DOCK_CLOSEPANE) {
        if (TamDockablePane* pane = m_rManager.KnownPane(reinterpret_cast<const TamDockablePane*>(lParam)))
            pane->DoClose();
    }
    return result;
}

TamDockingManager::TamDockingManager(CFrameWnd& frame)
    : m_rFrame(frame), m_pHost(std::make_unique<DockHostWnd>(*this)), m_pModel(std::make_unique<LayoutModel>())
{
    if (const VeskData* data = GetPVeskData())
        m_nDpi = std::clamp(data->GetResolutionX(), LAYOUT_MIN_DPI, LAYOUT_MAX_DPI);
    if (m_pHost->Create(WndKind::Child, &frame, TamPoint(0, 0), frame.GetClientSize())) {
        m_pHostWindow = std::make_unique<Window>();
        m_pHostWindow->SetAsWrap(m_pHost.get());
        frame.SetView(m_pHost.get());
        m_pHost->ShowWindow(SW_SHOW);
    }
    RecalcLayout();
}

TamDockingManager::~TamDockingManager()
{
    m_pDrag.reset();
    for (TamDockablePane* pane : m_aPanes) {
        pane->DropMiniFrame();
        pane->m_aWnd.DestroyWindow();
        pane->m_pManager = nullptr;
    }
    m_aDividers.clear();
    m_aContainers.clear();
    m_aSites.clear();
    if (m_rFrame.GetView() == m_pHost.get())
        m_rFrame.SetView(nullptr);
    m_pHost->DestroyWindow();
    m_pHostWindow.reset();
}

CWnd* TamDockingManager::GetHost() const
{
    return m_pHost.get();
}

void TamDockingManager::SetCentralWindow(CWnd* wnd)
{
    m_pCentral = wnd;
    RecalcLayout();
}

void TamDockingManager::SetDpi(int32_t dpi)
{
    m_nDpi = std::clamp(dpi, LAYOUT_MIN_DPI, LAYOUT_MAX_DPI);
    RecalcLayout();
}

bool TamDockingManager::AddPane(TamDockablePane& pane)
{
    if (pane.GetName().Len() == 0 || FindPane(pane.GetName()))
        return false;
    m_aPanes.push_back(&pane);
    return true;
}

void TamDockingManager::ForgetPane(TamDockablePane& pane)
{
    if (m_pDrag && m_pDrag->Involves(pane))
        m_pDrag.reset();
    const bool unpinned = Unpin(pane);
    std::erase(m_aHiddenForPreview, &pane);
    std::erase(m_aPanes, &pane);
    if (m_pModel->Remove(pane.GetName()) || unpinned)
        RecalcLayout();
}

TamDockablePane* TamDockingManager::KnownPane(const TamDockablePane* pane) const
{
    auto it = std::find(m_aPanes.begin(), m_aPanes.end(), pane);
    return it == m_aPanes.end() ? nullptr : *it;
}

TamDockablePane* TamDockingManager::FindPane(const SString& name) const
{
    for (TamDockablePane* pane : m_aPanes) {
        if (pane->GetName() == name)
            return pane;
    }
    return nullptr;
}

bool TamDockingManager::DockIntoPane(DockablePane* pane, DockablePane* target, uint32_t align, int32_t length)
{
    auto* own = dynamic_cast<TamDockablePane*>(pane);
    auto* into = dynamic_cast<TamDockablePane*>(target);
    LayoutEdge side;
    if (!own || !into || own == into || own->m_pManager != this || into->m_pManager != this || !into->IsDocked() ||
        !LayoutEdgeOfAlign(align, side))
        return false;
    Unpin(*own);
    TakeOut(*own);
    own->DropMiniFrame();
    if (!m_pModel->DockIntoPane(own->GetName(), into->GetName(), side, length, own->GetMinSize()))
        return false;
    own->m_eState = TamDockablePane::State::Docked;
    own->m_aRecentDock = {into->GetName(), align, length, false};
    own->m_bHasDockPlace = true;
    RecalcLayout();
    return true;
}

bool TamDockingManager::DockIntoParent(DockablePane* pane, uint32_t align, int32_t length, bool outermost)
{
    auto* own = dynamic_cast<TamDockablePane*>(pane);
    LayoutEdge edge;
    if (!own || own->m_pManager != this || !LayoutEdgeOfAlign(align, edge))
        return false;
    Unpin(*own);
    TakeOut(*own);
    own->DropMiniFrame();
    if (!m_pModel->AddBand(edge, own->GetName(), length, own->GetMinSize(), outermost))
        return false;
    own->m_eState = TamDockablePane::State::Docked;
    own->m_aRecentDock = {SString(), align, length, outermost};
    own->m_bHasDockPlace = true;
    RecalcLayout();
    return true;
}

bool TamDockingManager::TakeOut(TamDockablePane& pane)
{
    if (!pane.IsDocked())
        return false;
    // Remember the place as it is now: the same side of the same neighbour with the same
    // extent, or the same band edge with the same thickness.
    const LayoutPane* model = m_pModel->FindPane(pane.GetName());
    PaneDockPlace place = pane.m_aRecentDock;
    if (model && model->GetNode()) {
        const LayoutNode* leaf = model->GetNode();
        const CRectangle& r = model->GetScreenRect();
        pane.m_aRecentDocked = r;
        uint32_t align = 0;
        int32_t width = 0;
        pane.CurrentPlace(align, pane.m_nRecentRow, width);
        if (const LayoutNode* split = leaf->GetParent()) {
            const int mine = split->GetChild(0) == leaf ? 0 : 1;
            const LayoutNode* other = split->GetChild(1 - mine);
            while (!other->IsLeaf())
                other = other->GetChild(mine); // the leaf that touches this pane's side
            place.sTarget = other->GetPane()->GetName();
            const bool across = split->IsSideBySide();
            place.nAlign = across ? (mine == 0 ? CBRS_ALIGN_LEFT : CBRS_ALIGN_RIGHT)
                                  : (mine == 0 ? CBRS_ALIGN_TOP : CBRS_ALIGN_BOTTOM);
            place.nLength = across ? r.Right() - r.Left() : r.Bottom() - r.Top();
        } else {
            place.sTarget = SString();
            place.nAlign = pane.GetCurrentAlignment();
            place.nLength = IsVerticalEdge(place.nAlign) ? r.Right() - r.Left() : r.Bottom() - r.Top();
            // Outermost when it is the first band: adding it there again restores the order.
            place.bOutermost = m_pModel->GetBandCount() > 1 && m_pModel->GetBand(0).pRoot.get() == leaf;
        }
    }
    pane.m_aRecentDock = place;
    m_pModel->Remove(pane.GetName());
    pane.m_eState = TamDockablePane::State::Hidden;
    pane.m_aWnd.ShowWindow(SW_HIDE);
    RecalcLayout();
    return true;
}

bool TamDockingManager::Redock(TamDockablePane& pane)
{
    if (!pane.m_bHasDockPlace)
        return false;
    const PaneDockPlace place = pane.m_aRecentDock;
    TamDockablePane* target = place.sTarget.Len() ? FindPane(place.sTarget) : nullptr;
    if (target && target->IsDocked())
        return DockIntoPane(&pane, target, place.nAlign, place.nLength);
    // The neighbour is gone: a band at the frame edge on the same side, as thick as the pane was.
    return DockIntoParent(&pane, place.nAlign, place.nLength, place.bOutermost);
}

void TamDockingManager::FillDockablePaneVec(std::vector<TamDockablePane*>& panes) const
{
    panes.insert(panes.end(), m_aPanes.begin(), m_aPanes.end());
}

void TamDockingManager::FillAutoHidePaneVec(std::vector<TamDockablePane*>& panes) const
{
    for (const auto& site : m_aSites)
        panes.insert(panes.end(), site->m_aPanes.begin(), site->m_aPanes.end());
}

void TamDockingManager::FillMiniFrameVec(std::vector<TamPaneFrameWnd*>& frames) const
{
    for (TamDockablePane* pane : m_aPanes) {
        if (pane->m_pMiniFrame)
            frames.push_back(pane->m_pMiniFrame);
    }
}

bool TamDockingManager::AddDockSite(const AFX_DOCKSITE_INFO& info, TamDockSite** site)
{
    if (site)
        *site = nullptr;
    std::unique_ptr<TamDockSite> made(info.m_pfnCreate ? info.m_pfnCreate() : nullptr);
    if (!made || GetDockSite(info.m_dwBarAlignment) || !made->Create(*this, info.m_dwBarAlignment)) {
        VeskMessageBox(m_rFrame.GetSafeHwnd(), "DockBar Create FAILED", "", MB_OK);
        return false; // the half-made site goes with `made`
    }
    if (site)
        *site = made.get();
    m_aSites.push_back(std::move(made));
    RecalcLayout();
    return true;
}

TamDockSite* TamDockingManager::GetDockSite(uint32_t align) const
{
    for (const auto& site : m_aSites) {
        if (site->GetAlignment() == align)
            return site.get();
    }
    return nullptr;
}

void TamDockingManager::SetPrintPreviewMode(bool preview)
{
    if (preview == m_bPrintPreview) {
        return;
    }
    m_bPrintPreview = preview;
    if (preview) {
        m_aHiddenForPreview.clear();
        for (TamDockablePane* pane : m_aPanes) {
            if (pane->IsDocked() || pane->IsFloating()) {
                m_aHiddenForPreview.push_back(pane);
                pane->HidePane();
            }
        }
        return;
    }
    const std::vector<TamDockablePane*> hidden = std::move(m_aHiddenForPreview);
    m_aHiddenForPreview.clear();
    // Last hidden first: each pane then goes back into the layout it was taken from.
    for (auto it = hidden.rbegin(); it != hidden.rend(); ++it)
        (*it)->ShowPane();
}

void TamDockingManager::BeginDividerDrag(size_t index, const TamPoint& hostPos)
{
    if (!DockDrag::IsAnyActive())
        m_pDrag = std::make_unique<DockDrag>(*this, index, hostPos);
}

void TamDockingManager::BeginPaneDrag(TamDockablePane& pane, const TamPoint& hostPos)
{
    if (!DockDrag::IsAnyActive())
        m_pDrag = std::make_unique<DockDrag>(*this, pane, hostPos);
}

bool TamDockingManager::GetDropPreview(CRectangle& rect) const
{
    if (!m_pDrag || !m_pDrag->HasPreview())
        return false;
    rect = m_pDrag->GetPreviewRect();
    return true;
}

bool TamDockingManager::IsDragging() const
{
    return m_pDrag != nullptr;
}

} // namespace vesk
