// Scoring candidate places for a pane and the heuristic placement built on it.
#include <vesk/docking/TamDockParentWnd.hpp>

#include "docking/parent/DockParent_p.hpp"

#include <vesk/docking/DockElement.hpp>
#include <vesk/docking/FreeSpaceElement.hpp>
#include <vesk/docking/TamDockablePane.hpp>
#include <vesk/docking/TamDockingManager.hpp>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vesk {

DockCandidate DockCandidateRect(const CRectangle& area, const TamSize& size, uint32_t side)
{
    const int32_t W = area.Right() - area.Left();
    const int32_t H = area.Bottom() - area.Top();
    const int32_t cx = size.Width();
    const int32_t cy = size.Height();
    switch (side) {
    case CBRS_ALIGN_LEFT:
        // 0.7 twice on this side only: placements on the left come out narrower, on purpose.
        return {area.Left(), area.Top(), static_cast<int32_t>(std::min(cx, static_cast<int32_t>(W * 0.7)) * 0.7), H};
    case CBRS_ALIGN_TOP:
        return {area.Left(), area.Top(), W, std::min(cy, static_cast<int32_t>(H * 0.7))};
    case CBRS_ALIGN_RIGHT: {
        const int32_t w = std::min(cx, static_cast<int32_t>(W * 0.7));
        return {area.Right() - w, area.Top(), w, H};
    }
    default: {
        const int32_t h = std::min(cy, static_cast<int32_t>(H * 0.7));
        return {area.Left(), area.Bottom() - h, W, h};
    }
    }
}

double TamDockParentWnd::EvaluateAlign(const DockPosition& pos, uint32_t align, const SString& name) const
{
    const uint32_t opposite = DockElement::InvertAlign(align);
    for (const DockNeighbour& nb : pos.GetNeighbourVec()) {
        if (nb.GetName() != name || nb.GetAlign() != opposite)
            continue;
        switch (nb.GetContact()) {
        case NCT_TOUCHING_SIDE:
        case NCT_JUSTIFIED_SIDE: return 0.8;
        case NCT_EQUAL_SIDE: return 2.0;
        default: return 0.0;
        }
    }
    return 0.0;
}

double TamDockParentWnd::GetAspectError(const TamSize& a, const TamSize& b)
{
    if (a.Height() == 0 || b.Height() == 0)
        return 9e99;
    return std::fabs(double(a.Width()) / a.Height() - double(b.Width()) / b.Height());
}

bool TamDockParentWnd::EvaluateDockTry(const CRectangle& area, const SString& name, const DockPosition& pos,
                                       DockType type, DockType& bestType, uint32_t& bestAlign,
                                       double& bestScore) const
{
    const TamSize& size = pos.GetSize();
    const bool placed = pos.GetPos() != TamPoint(-1, -1);
    const CRectangle p = pos.GetRect();
    bool improved = false;
    for (const uint32_t side : {CBRS_ALIGN_LEFT, CBRS_ALIGN_TOP, CBRS_ALIGN_RIGHT, CBRS_ALIGN_BOTTOM}) {
        const DockCandidate c = DockCandidateRect(area, size, side);
        double overlap = 0.0;
        double distance = 0.0;
        if (placed) {
            const CRectangle i = CRectangle(TamPoint(c.x, c.y), TamSize(c.w, c.h)).GetIntersection(p);
            if (!i.IsEmpty())
                overlap = std::sqrt(double(i.GetWidth()) * i.GetHeight());
            const double dx = (c.x + c.w / 2.0) - (pos.GetPos().x + size.Width() / 2.0);
            const double dy = (c.y + c.h / 2.0) - (pos.GetPos().y + size.Height() / 2.0);
            distance = std::sqrt(dx * dx + dy * dy);
        }
        const double areaError =
            std::sqrt(std::fabs(double(c.w) * c.h - double(size.Width()) * size.Height()));
        const double aspect = GetAspectError(TamSize(c.w, c.h), size);
        const double score = EvaluateAlign(pos, side, name) * 200 + overlap * 0.3 - areaError * 1.5 -
                             distance * 0.7 - aspect * 40;
        if (score > bestScore) {
            bestScore = score;
            bestType = type;
            bestAlign = side;
            improved = true;
        }
    }
    return improved;
}

int32_t TamDockParentWnd::SumRestSide(const std::vector<TamDockablePane*>& panes, const std::vector<TamSize>& sizes,
                                      size_t from, uint32_t align)
{
    const bool across = align == CBRS_ALIGN_LEFT || align == CBRS_ALIGN_RIGHT;
    int32_t sum = 0;
    for (size_t i = from; i < panes.size() && i < sizes.size(); ++i)
        sum += across ? sizes[i].Width() : sizes[i].Height();
    return sum;
}

bool TamDockParentWnd::DockHeuristic(TamDockablePane* pane, const DockPosition& pos)
{
    const TamSize min = DockMinSizeAt(pane->GetMinSize(), m_rManager.GetDpi());
    DockType bestType = DockType::None;
    uint32_t bestAlign = 0;
    double bestScore = -std::numeric_limits<double>::max();
    TamDockablePane* bestPane = nullptr;
    CRectangle bestArea;
    auto consider = [&](const CRectangle& area, const SString& name, DockType type, TamDockablePane* target) {
        // An area that cannot hold the pane at its minimum size is no candidate.
        if (area.Right() - area.Left() < min.Width() || area.Bottom() - area.Top() < min.Height())
            return;
        if (EvaluateDockTry(area, name, pos, type, bestType, bestAlign, bestScore)) {
            bestPane = target;
            bestArea = area;
        }
    };
    // The free space first: on a tie, a new band keeps every pane's size.
    const DockElementVec elements = m_rManager.BuildDockElements();
    if (const FreeSpaceElement* fs = DockElement::FindFreeSpaceElement(elements))
        consider(fs->GetRect(), fs->GetTitle(), DockType::FreeSpace, nullptr);
    std::vector<TamDockablePane*> panes;
    m_rManager.FillDockablePaneVec(panes);
    for (TamDockablePane* other : panes) {
        if (other != pane && other->IsDocked())
            consider(other->GetScreenRect(), other->GetName(), DockType::Pane, other);
    }
    if (bestType == DockType::None)
        return false;
    // Docked with the extent of the winning candidate, beside the pane (splitting it) or as a
    // band next to the free space: never over another pane.
    const DockCandidate c = DockCandidateRect(bestArea, pos.GetSize(), bestAlign);
    const int32_t length = bestAlign == CBRS_ALIGN_LEFT || bestAlign == CBRS_ALIGN_RIGHT ? c.w : c.h;
    if (bestType == DockType::Pane)
        return m_rManager.DockIntoPane(pane, bestPane, bestAlign, length);
    return m_rManager.DockIntoParent(pane, bestAlign, length, false);
}

} // namespace vesk
