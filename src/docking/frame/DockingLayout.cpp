// Placing the windows: every pane, divider, strip and the central window from the model's
// solution, never from the rectangles of the last layout.
#include <vesk/docking/TamDockingManager.hpp>

#include "docking/frame/DockHost_p.hpp"
#include "docking/frame/DockHost_p.hpp"
#include "docking/layout/LayoutModel.hpp"

#include <vesk/docking/FreeSpaceElement.hpp>
#include <vesk/docking/HolderElement.hpp>
#include <vesk/docking/PaneElement.hpp>
#include <vesk/docking/TamDockablePane.hpp>
#include <vesk/window/FrameWnd.hpp>
#include <vesk/docking/TamPaneContainer.hpp>

#include <algorithm>

namespace vesk {

namespace {

CRectangle ToRect(const LayoutRect& r, const TamPoint& offset)
{
    return CRectangle(offset.x + r.x, offset.y + r.y, offset.x + r.x + r.cx, offset.y + r.y + r.cy);
}

void CollectSplits(const LayoutNode* node, std::vector<const LayoutNode*>& splits)
{
    if (!node || node->IsLeaf())
        return;
    splits.push_back(node);
    CollectSplits(node->GetChild(0), splits);
    CollectSplits(node->GetChild(1), splits);
}

// The strip of each dock site, from the host's client size: left, top, right, bottom insets.
struct Insets {
    int32_t side[4] = {0, 0, 0, 0};
};

int EdgeIndex(uint32_t align)
{
    switch (align) {
    case CBRS_ALIGN_LEFT: return 0;
    case CBRS_ALIGN_TOP: return 1;
    case CBRS_ALIGN_RIGHT: return 2;
    default: return 3;
    }
}

} // namespace

TamPoint TamDockingManager::ModelOffset() const
{
    return m_pModel->GetOrigin();
}

TamPoint TamDockingManager::ScreenToHost(const TamPoint& p) const
{
    const CRectangle host = m_pHost->Wnd().GetWindowRect();
    return TamPoint(p.x - host.Left(), p.y - host.Top());
}

void TamDockingManager::RecalcLayout()
{
    if (!m_pHost->Wnd().GetSafeHwnd())
        return;
    const TamSize client = m_pHost->Wnd().GetClientSize();
    Insets in;
    for (const auto& site : m_aSites)
        in.side[EdgeIndex(site->GetAlignment())] = site->GetStripThickness(m_nDpi);
    const int32_t w = std::max(0, client.Width() - in.side[0] - in.side[2]);
    const int32_t h = std::max(0, client.Height() - in.side[1] - in.side[3]);
    m_pModel->SetOrigin(TamPoint(in.side[0], in.side[1]));
    m_pModel->SetFrame(TamSize(w, h), m_nDpi);
    for (const auto& site : m_aSites) {
        const int32_t t = site->GetStripThickness(m_nDpi);
        CRectangle r;
        switch (site->GetAlignment()) {
        case CBRS_ALIGN_LEFT: r = CRectangle(0, in.side[1], t, in.side[1] + h); break;
        case CBRS_ALIGN_RIGHT: r = CRectangle(client.Width() - t, in.side[1], client.Width(), in.side[1] + h); break;
        case CBRS_ALIGN_TOP: r = CRectangle(0, 0, client.Width(), t); break;
        default: r = CRectangle(0, client.Height() - t, client.Width(), client.Height()); break;
        }
        site->Wnd().MoveWindow(r.Left(), r.Top(), r.Right() - r.Left(), r.Bottom() - r.Top());
        site->Wnd().ShowWindow(t > 0 ? SW_SHOW : SW_HIDE);
        site->Invalidate();
    }
    SyncWindows();
}

void TamDockingManager::SyncWindows()
{
    const LayoutSolution& s = m_pModel->GetSolution();
    const TamPoint offset = ModelOffset();
    for (const LayoutPaneRect& p : s.panes) {
        if (TamDockablePane* pane = FindPane(p.pPane->GetName()))
            pane->PlaceAt(ToRect(p.rect, offset));
    }
    // Dividers follow the solution's order; their windows are kept and only added or dropped.
    while (m_aDividers.size() > s.dividers.size())
        m_aDividers.pop_back();
    while (m_aDividers.size() < s.dividers.size()) {
        auto divider = std::make_unique<TamPaneDivider>(*this, m_aDividers.size());
        if (!divider->Create(&m_pHost->Wnd()))
            break;
        m_aDividers.push_back(std::move(divider));
    }
    for (size_t i = 0; i < m_aDividers.size(); ++i)
        m_aDividers[i]->Place(ToRect(s.dividers[i].rect, offset), s.dividers[i].bVertical);
    // One container per split, kept while its split lives.
    std::vector<const LayoutNode*> splits;
    for (size_t k = 0; k < m_pModel->GetBandCount(); ++k)
        CollectSplits(m_pModel->GetBand(k).pRoot.get(), splits);
    std::vector<std::unique_ptr<TamPaneContainer>> containers;
    for (const LayoutNode* split : splits) {
        auto it = std::find_if(m_aContainers.begin(), m_aContainers.end(),
                               [split](const auto& c) { return c && c->GetSplit() == split; });
        containers.push_back(it != m_aContainers.end() ? std::move(*it)
                                                       : std::make_unique<TamPaneContainer>(*this, split));
    }
    m_aContainers = std::move(containers);
    if (m_pCentral) {
        const CRectangle f = ToRect(s.freeSpace, offset);
        m_pCentral->MoveWindow(f.Left(), f.Top(), f.Right() - f.Left(), f.Bottom() - f.Top());
    }
    for (const auto& site : m_aSites) {
        if (TamDockablePane* shown = site->m_pShown)
            SlideOut(*site, shown);
    }
}

std::vector<std::pair<const TamDockablePane*, CRectangle>> TamDockingManager::GetPaneRects() const
{
    std::vector<std::pair<const TamDockablePane*, CRectangle>> rects;
    for (const LayoutPaneRect& p : m_pModel->GetSolution().panes)
        rects.emplace_back(FindPane(p.pPane->GetName()), ToRect(p.rect, ModelOffset()));
    return rects;
}

DockElementVec TamDockingManager::BuildDockElements() const
{
    DockElementVec elements;
    for (size_t k = 0; k < m_pModel->GetBandCount(); ++k) {
        const LayoutNode* root = m_pModel->GetBand(k).pRoot.get();
        if (root->IsLeaf())
            elements.push_back(std::make_unique<DockPaneElement>(PaneOfNode(root)));
        else
            elements.push_back(std::make_unique<HolderElement>(FindContainer(root)));
    }
    const CRectangle host = m_pHost->Wnd().GetWindowRect();
    const CRectangle f = ToRect(m_pModel->GetSolution().freeSpace, ModelOffset());
    elements.push_back(std::make_unique<FreeSpaceElement>(
        CRectangle(host.Left() + f.Left(), host.Top() + f.Top(), host.Left() + f.Right(), host.Top() + f.Bottom()),
        m_rFrame.GetSafeHwnd()));
    return elements;
}

TamPaneContainer* TamDockingManager::FindContainer(const LayoutNode* split) const
{
    for (const auto& c : m_aContainers) {
        if (c->GetSplit() == split)
            return c.get();
    }
    return nullptr;
}

TamDockablePane* TamDockingManager::PaneOfNode(const LayoutNode* leaf) const
{
    return leaf && leaf->IsLeaf() ? FindPane(leaf->GetPane()->GetName()) : nullptr;
}

} // namespace vesk
