// The docking manager: the host window, the panes' registry and the operations that edit
// the layout model.
#include <vesk/docking/TamDockingManager.hpp>

#include "docking/frame/DockDrag_p.hpp"
#include "docking/frame/DockHost_p.hpp"
#include "docking/layout/LayoutTree.hpp"

#include <vesk/docking/TamDockParentWnd.hpp>
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

void DockHost::OnProcessMsg(uint32_t message, WParam wParam, LParam lParam)
{
    OwnedWindow::OnProcessMsg(message, wParam, lParam);
    if (message == WM_SIZE)
        m_rManager.RecalcLayout();
    if (message == WM_DOCK_CLOSEPANE) {
        if (TamDockablePane* pane = m_rManager.KnownPane(reinterpret_cast<const TamDockablePane*>(lParam))) {
            DockPosition pos = pane->GetRecentDockPosition();
            m_rManager.GetDockParent().RemovePane(pane, pos, true);
        }
    }
}

TamDockingManager::TamDockingManager(CFrameWnd& frame)
    : m_rFrame(frame), m_pHost(std::make_unique<DockHost>(*this)), m_pModel(std::make_unique<LayoutModel>()),
      m_pDockParent(std::make_unique<TamDockParentWnd>(*this))
{
    if (const VeskData* data = GetPVeskData())
        m_nDpi = std::clamp(data->GetResolutionX(), LAYOUT_MIN_DPI, LAYOUT_MAX_DPI);
    if (m_pHost->CreateOwned(WndKind::Child, &frame, TamPoint(0, 0), frame.GetClientSize())) {
        frame.SetView(&m_pHost->Wnd());
        m_pHost->Wnd().ShowWindow(SW_SHOW);
    }
    RecalcLayout();
}

TamDockingManager::~TamDockingManager()
{
    m_pDrag.reset();
    for (TamDockablePane* pane : m_aPanes) {
        pane->DropMiniFrame();
        pane->DestroyOwned();
        pane->m_pManager = nullptr;
    }
    m_aDividers.clear();
    m_aContainers.clear();
    m_aSites.clear();
    if (m_rFrame.GetView() == &m_pHost->Wnd())
        m_rFrame.SetView(nullptr);
    m_pHost->DestroyOwned();
}

CWnd* TamDockingManager::GetHost() const
{
    return &m_pHost->Wnd();
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

bool TamDockingManager::PrepareDock(TamDockablePane* pane)
{
    if (!pane || pane->m_pManager != this)
        return false;
    Unpin(*pane);
    TakeOut(*pane);
    pane->DropMiniFrame();
    return true;
}

void TamDockingManager::SetDocked(TamDockablePane& pane)
{
    pane.m_eState = TamDockablePane::State::Docked;
    RecalcLayout();
}

bool TamDockingManager::DockIntoPane(DockablePane* pane, DockablePane* target, uint32_t align, int32_t length)
{
    auto* own = dynamic_cast<TamDockablePane*>(pane);
    auto* into = dynamic_cast<TamDockablePane*>(target);
    LayoutEdge side;
    if (!own || !into || own == into || into->m_pManager != this || !into->IsDocked() ||
        !LayoutEdgeOfAlign(align, side) || !PrepareDock(own))
        return false;
    if (!m_pModel->DockIntoPane(own->GetName(), into->GetName(), side, length, own->GetMinSize()))
        return false;
    SetDocked(*own);
    return true;
}

bool TamDockingManager::DockIntoParent(DockablePane* pane, uint32_t align, int32_t length, bool outermost)
{
    auto* own = dynamic_cast<TamDockablePane*>(pane);
    LayoutEdge edge;
    if (!LayoutEdgeOfAlign(align, edge) || !PrepareDock(own))
        return false;
    if (!m_pModel->AddBand(edge, own->GetName(), length, own->GetMinSize(), outermost))
        return false;
    SetDocked(*own);
    return true;
}

namespace {

// How far a trial rectangle lies from the wanted one: the sum of the edges' distances.
int64_t EdgeDistance(const CRectangle& a, const CRectangle& b)
{
    return std::abs(int64_t(a.Left()) - b.Left()) + std::abs(int64_t(a.Top()) - b.Top()) +
           std::abs(int64_t(a.Right()) - b.Right()) + std::abs(int64_t(a.Bottom()) - b.Bottom());
}

} // namespace

bool TamDockingManager::DockIntoPaneNear(TamDockablePane* pane, TamDockablePane* target, uint32_t align,
                                         int32_t length, const CRectangle& was)
{
    LayoutEdge side;
    if (!pane || !target || pane == target || target->m_pManager != this || !target->IsDocked() ||
        !LayoutEdgeOfAlign(align, side) || !PrepareDock(pane))
        return false;
    const LayoutPane* into = m_pModel->FindPane(target->GetName());
    if (!into)
        return false;
    // Each trial is taken back by Remove, the exact inverse, so only the chosen one stays.
    const TamPoint host = m_pHost->Wnd().GetWindowRect().TopLeft();
    const CRectangle want(was.Left() - host.x, was.Top() - host.y, was.Right() - host.x, was.Bottom() - host.y);
    LayoutNode* best = nullptr;
    int64_t bestDistance = INT64_MAX;
    for (LayoutNode* node = into->GetNode(); node; node = node->GetParent()) {
        const LayoutPane* trial = m_pModel->DockBeside(pane->GetName(), node, side, length, pane->GetMinSize());
        if (!trial)
            return false;
        const int64_t d = EdgeDistance(trial->GetScreenRect(), want);
        m_pModel->Remove(pane->GetName());
        if (d < bestDistance) {
            bestDistance = d;
            best = node;
        }
    }
    if (!m_pModel->DockBeside(pane->GetName(), best, side, length, pane->GetMinSize()))
        return false;
    SetDocked(*pane);
    return true;
}

bool TamDockingManager::DockIntoParentNear(TamDockablePane* pane, uint32_t align, int32_t length,
                                           const CRectangle& was)
{
    LayoutEdge edge;
    if (!LayoutEdgeOfAlign(align, edge) || !PrepareDock(pane))
        return false;
    const TamPoint host = m_pHost->Wnd().GetWindowRect().TopLeft();
    const CRectangle want(was.Left() - host.x, was.Top() - host.y, was.Right() - host.x, was.Bottom() - host.y);
    size_t best = 0;
    int64_t bestDistance = INT64_MAX;
    for (size_t rank = 0; rank <= m_pModel->GetBandCount(); ++rank) {
        const LayoutPane* trial = m_pModel->AddBandAt(edge, pane->GetName(), length, pane->GetMinSize(), rank);
        if (!trial)
            return false;
        const int64_t d = EdgeDistance(trial->GetScreenRect(), want);
        m_pModel->Remove(pane->GetName());
        // Ranks that give the same rectangle differ only in the order of parallel bands;
        // the innermost of them is where bands docked later go.
        if (d <= bestDistance) {
            bestDistance = d;
            best = rank;
        }
    }
    if (!m_pModel->AddBandAt(edge, pane->GetName(), length, pane->GetMinSize(), best))
        return false;
    SetDocked(*pane);
    return true;
}

bool TamDockingManager::TakeOut(TamDockablePane& pane, bool remember)
{
    if (!pane.IsDocked())
        return false;
    if (const LayoutPane* model = m_pModel->FindPane(pane.GetName())) {
        pane.m_aRecentDocked = model->GetScreenRect();
        pane.CurrentPlace(pane.m_nRecentAlign, pane.m_nRecentRow, pane.m_nRecentWidth);
    }
    if (remember) {
        DockPosition pos = pane.GetRecentDockPosition();
        m_pDockParent->FillDockPosition(&pane, pos, false);
        pane.SetRecentDockPosition(pos);
    }
    m_pModel->Remove(pane.GetName());
    pane.m_eState = TamDockablePane::State::Hidden;
    pane.Wnd().ShowWindow(SW_HIDE);
    RecalcLayout();
    return true;
}

bool TamDockingManager::Redock(TamDockablePane& pane)
{
    DockPosition pos = pane.GetRecentDockPosition();
    pos.SetIsFloating(false);
    m_pDockParent->DockWithPosition(&pane, pos);
    return pane.IsDocked();
}

void TamDockingManager::DockWithPosition(TamDockablePane* pane, const DockPosition& pos)
{
    m_pDockParent->DockWithPosition(pane, pos);
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

void TamDockingManager::KeepMiniFramesVisible()
{
    const std::vector<CRectangle> screens = TamPaneFrameWnd::GetScreenRects();
    for (TamDockablePane* pane : m_aPanes) {
        TamPaneFrameWnd* frame = pane->m_pMiniFrame;
        if (!frame)
            continue;
        const CRectangle was = frame->GetWindowRect();
        const CRectangle r = TamPaneFrameWnd::KeepVisible(was, screens);
        if (r != was)
            frame->MoveWindow(r.Left(), r.Top(), r.Right() - r.Left(), r.Bottom() - r.Top());
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
