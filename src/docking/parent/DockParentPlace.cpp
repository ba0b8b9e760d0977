// Docking a pane from its DockPosition: the rules in order, each applying only when its
// neighbours are there and its docking succeeds.
#include <vesk/docking/TamDockParentWnd.hpp>

#include "docking/frame/DockHost_p.hpp"
#include "docking/layout/LayoutSolution.hpp"
#include "docking/parent/DockParent_p.hpp"

#include <vesk/docking/DockElement.hpp>
#include <vesk/docking/FreeSpaceElement.hpp>
#include <vesk/docking/TamDockablePane.hpp>
#include <vesk/docking/TamDockingManager.hpp>
#include <vesk/frame/VeskData.hpp>

#include <algorithm>

namespace vesk {

namespace {

// A minimum size in screen pixels (as positions store it) back at 96 DPI, rounded.
TamSize MinSizeAt96(const TamSize& min)
{
    const VeskData* data = GetPVeskData();
    const int32_t dx = data && data->GetResolutionX() > 0 ? data->GetResolutionX() : 96;
    const int32_t dy = data && data->GetResolutionY() > 0 ? data->GetResolutionY() : 96;
    return TamSize(static_cast<int32_t>(LayoutMulDiv(min.Width(), 96, dx)),
                   static_cast<int32_t>(LayoutMulDiv(min.Height(), 96, dy)));
}

bool IsPlaced(const DockPosition& pos)
{
    return pos.GetPos() != TamPoint(-1, -1);
}

} // namespace

TamSize DockMinSizeAt(const TamSize& min96, int32_t dpi)
{
    return TamSize(LayoutScale(min96.Width(), dpi), LayoutScale(min96.Height(), dpi));
}

CRectangle DockWindowRect(const DockPosition& pos)
{
    const TamPoint& p = pos.GetPos();
    return CRectangle(p.x, p.y, p.x + pos.GetSize().Width(), p.y + pos.GetSize().Height());
}

void TamDockParentWnd::DockWithPosition(TamDockablePane* pane, const DockPosition& pos)
{
    if (!IsOwnPane(pane))
        return;
    // Out of wherever it is, so that the rules see the layout without it.
    m_rManager.Unpin(*pane);
    m_rManager.TakeOut(*pane, false);
    if (pos.GetMinSize().Width() > 0 && pos.GetMinSize().Height() > 0)
        pane->SetMinSize(MinSizeAt96(pos.GetMinSize()));
    const bool suppressed = m_bSuppressFloatUpdate;
    m_bSuppressFloatUpdate = true;
    DockPlacementStep step = DockPlacementStep::None;
    if (DockAtHolder(pane, pos))
        step = DockPlacementStep::Holder;
    else if (DockAtMargin(pane, pos))
        step = DockPlacementStep::Margin;
    else if (DockBesideFreeSpace(pane, pos))
        step = DockPlacementStep::JustifiedFree;
    else if (DockIntoRow(pane, pos))
        step = DockPlacementStep::AlignedRow;
    else if (pos.IsFloating() && pane->FloatPane())
        step = DockPlacementStep::Floating;
    else if (DockHeuristic(pane, pos))
        step = DockPlacementStep::Heuristic;
    else {
        DockEmergency(pane, pos);
        step = DockPlacementStep::Emergency;
    }
    m_bSuppressFloatUpdate = suppressed;
    m_eLastStep = step;
}

bool TamDockParentWnd::DockAtHolder(TamDockablePane* pane, const DockPosition& pos)
{
    const DockNeighbour* nb = pos.GetHolderNeighbour();
    TamDockablePane* target = GetPaneOfDockNeighbour(nb);
    if (!target || target == pane || !target->IsDocked())
        return false;
    if (m_aCallBacks.aPaneShown.IsSet())
        m_aCallBacks.aPaneShown.Call(pane);
    const uint32_t side = DockElement::InvertAlign(nb->GetAlign());
    const int32_t length = nb->GetAlignSideLen(pos.GetSize());
    // With its rectangle recorded, beside the neighbour or the split around it that held it.
    if (IsPlaced(pos))
        return m_rManager.DockIntoPaneNear(pane, target, side, length, DockWindowRect(pos));
    return m_rManager.DockIntoPane(pane, target, side, length);
}

bool TamDockParentWnd::DockAtMargin(TamDockablePane* pane, const DockPosition& pos)
{
    const uint32_t align = pos.GetMarginAlign();
    if (align == CBRS_NOALIGN)
        return false;
    // Outermost, unless the recorded rectangle says which band rank it stood at.
    if (IsPlaced(pos))
        return m_rManager.DockIntoParentNear(pane, align, pos.GetAlignSideLen(), DockWindowRect(pos));
    return m_rManager.DockIntoParent(pane, align, pos.GetAlignSideLen(), true);
}

bool TamDockParentWnd::DockBesideFreeSpace(TamDockablePane* pane, const DockPosition& pos)
{
    const DockNeighbour* nb = pos.GetJustifiedNeighbour();
    const DockNeighbour* fsNb = pos.GetFreeSpaceDockNeighbour(NCT_JUSTIFIED_SIDE);
    TamDockablePane* other = GetPaneOfDockNeighbour(nb);
    if (!other || other == pane || !other->IsDocked() || !fsNb || fsNb->GetAlign() != nb->GetAlign())
        return false;
    const DockElementVec elements = m_rManager.BuildDockElements();
    const FreeSpaceElement* fs = DockElement::FindFreeSpaceElement(elements);
    const CRectangle r = other->GetScreenRect();
    if (!fs || DockElement::GetNeighbourAlign(r, fs->GetRect()) == CBRS_NOALIGN)
        return false;
    // The neighbour steps out, the pane takes the edge, the neighbour docks again outside it.
    const uint32_t otherAlign = other->GetCurrentAlignment();
    const int32_t extent = IsVerticalEdge(otherAlign) ? r.Right() - r.Left() : r.Bottom() - r.Top();
    m_rManager.TakeOut(*other, false);
    const bool docked = m_rManager.DockIntoParent(pane, DockElement::InvertAlign(fsNb->GetAlign()),
                                                  fsNb->GetAlignSideLen(pos.GetSize()), false);
    m_rManager.DockIntoParent(other, otherAlign, extent, false);
    return docked;
}

bool TamDockParentWnd::DockIntoRow(TamDockablePane* pane, const DockPosition& pos)
{
    std::vector<DockNeighbour> row;
    uint32_t rowAlign = CBRS_NOALIGN;
    pos.FillAlignedNeighbours(row, rowAlign);
    if (row.size() < 2)
        return false;
    std::vector<TamDockablePane*> panes;
    for (const DockNeighbour& nb : row) {
        TamDockablePane* p = GetPaneOfDockNeighbour(&nb);
        if (!p || p == pane || !p->IsDocked())
            return false;
        panes.push_back(p);
    }
    // The side of the first pane on which the second lies: the direction the row runs.
    const uint32_t chain = DockElement::GetNeighbourAlign(panes[1]->GetScreenRect(), panes[0]->GetScreenRect());
    if (chain == CBRS_NOALIGN)
        return false;
    std::vector<TamSize> sizes;
    for (const TamDockablePane* p : panes) {
        const CRectangle r = p->GetScreenRect();
        sizes.emplace_back(r.Right() - r.Left(), r.Bottom() - r.Top());
    }
    for (size_t i = 1; i < panes.size(); ++i)
        m_rManager.TakeOut(*panes[i], false);
    const bool docked = m_rManager.DockIntoPane(pane, panes[0], DockElement::InvertAlign(rowAlign), 0);
    // Each further pane beside the one before it, with the room of itself and the rest; one
    // that cannot go there is not lost but docks as a band at the row's edge.
    const uint32_t edge = panes[0]->GetCurrentAlignment();
    for (size_t i = 1; i < panes.size(); ++i) {
        if (!m_rManager.DockIntoPane(panes[i], panes[i - 1], chain, SumRestSide(panes, sizes, i, chain)))
            m_rManager.DockIntoParent(panes[i], edge, IsVerticalEdge(edge) ? sizes[i].Width() : sizes[i].Height(),
                                      false);
    }
    return docked;
}

void TamDockParentWnd::DockEmergency(TamDockablePane* pane, const DockPosition& pos)
{
    const TamSize client = m_rManager.GetHost()->GetClientSize();
    const int32_t cx = pos.GetSize().Width();
    const int32_t cy = pos.GetSize().Height();
    const bool docked = cx <= cy
        ? m_rManager.DockIntoParent(pane, CBRS_ALIGN_RIGHT, std::min({client.Width() / 4, 350, cx}), true)
        : m_rManager.DockIntoParent(pane, CBRS_ALIGN_BOTTOM, std::min({client.Height() / 4, 300, cy}), true);
    if (!docked)
        pane->FloatPane(); // no pane is lost: it floats where it floated last
}

} // namespace vesk
