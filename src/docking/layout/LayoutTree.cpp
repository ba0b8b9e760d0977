#include "docking/layout/LayoutTree.hpp"

#include <vesk/docking/FreeSpaceElement.hpp>
#include <vesk/docking/HolderElement.hpp>
#include <vesk/docking/PaneElement.hpp>

namespace vesk {

namespace {

TamSize MinSizeOf(const DockablePane* pane)
{
    const auto* model = dynamic_cast<const LayoutPane*>(pane);
    return model ? model->GetMinSize() : TamSize(0, 0);
}

} // namespace

bool LayoutEdgeOfAlign(uint32_t align, LayoutEdge& edge)
{
    switch (align) {
    case CBRS_ALIGN_LEFT:
        edge = LayoutEdge::Left;
        return true;
    case CBRS_ALIGN_TOP:
        edge = LayoutEdge::Top;
        return true;
    case CBRS_ALIGN_RIGHT:
        edge = LayoutEdge::Right;
        return true;
    case CBRS_ALIGN_BOTTOM:
        edge = LayoutEdge::Bottom;
        return true;
    default:
        return false;
    }
}

uint32_t LayoutAlignOfEdge(LayoutEdge edge)
{
    static constexpr uint32_t kAligns[] = {CBRS_ALIGN_LEFT, CBRS_ALIGN_TOP, CBRS_ALIGN_RIGHT, CBRS_ALIGN_BOTTOM};
    return kAligns[static_cast<int>(edge)];
}

DockElementVec BuildDockElements(const LayoutModel& model)
{
    DockElementVec elements;
    elements.reserve(model.GetBandCount() + 1);
    for (size_t k = 0; k < model.GetBandCount(); ++k) {
        LayoutNode* root = model.GetBand(k).pRoot.get();
        if (root->IsLeaf())
            elements.push_back(std::make_unique<DockPaneElement>(root->GetPane()));
        else
            elements.push_back(std::make_unique<HolderElement>(root));
    }
    const LayoutRect& f = model.GetSolution().freeSpace;
    const TamPoint& o = model.GetOrigin();
    elements.push_back(
        std::make_unique<FreeSpaceElement>(CRectangle(o.x + f.x, o.y + f.y, o.x + f.x + f.cx, o.y + f.y + f.cy), nullptr));
    return elements;
}

bool LayoutDockingTarget::DockIntoPane(DockablePane* pane, DockablePane* target, uint32_t align, int32_t length)
{
    LayoutEdge side;
    if (!pane || !target || !LayoutEdgeOfAlign(align, side))
        return false;
    return m_rModel.DockIntoPane(pane->GetName(), target->GetName(), side, length, MinSizeOf(pane)) != nullptr;
}

bool LayoutDockingTarget::DockIntoParent(DockablePane* pane, uint32_t align, int32_t length, bool outermost)
{
    LayoutEdge edge;
    if (!pane || !LayoutEdgeOfAlign(align, edge))
        return false;
    return m_rModel.AddBand(edge, pane->GetName(), length, MinSizeOf(pane), outermost) != nullptr;
}

} // namespace vesk
