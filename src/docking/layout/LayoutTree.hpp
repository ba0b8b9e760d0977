#pragma once

// The layout model seen through the docking interfaces: its dock layout tree, and docking
// operations that edit it.
#include "docking/layout/LayoutModel.hpp"

#include <vesk/docking/DockElement.hpp>

namespace vesk {

// The frame edge of a side flag, and back. Anything but the four sides has no edge: false.
bool LayoutEdgeOfAlign(uint32_t align, LayoutEdge& edge);
uint32_t LayoutAlignOfEdge(LayoutEdge edge);

// The layout tree of `model`: for each band, in dock order, a docked pane element for a
// one-pane band or a holder built from its top split (as from a pane container), then the
// free-space element. Rectangles are the model's current ones, in screen coordinates.
DockElementVec BuildDockElements(const LayoutModel& model);

// Docking operations carried out on a layout model. A pane docked here keeps its name, and its
// minimum size when it is a pane of a layout model.
class LayoutDockingTarget final : public DockingTarget {
public:
    explicit LayoutDockingTarget(LayoutModel& model) : m_rModel(model) {}
    bool DockIntoPane(DockablePane* pane, DockablePane* target, uint32_t align, int32_t length) override;
    bool DockIntoParent(DockablePane* pane, uint32_t align, int32_t length, bool outermost) override;

private:
    LayoutModel& m_rModel;
};

} // namespace vesk
