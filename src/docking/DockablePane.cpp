#include <vesk/docking/DockablePane.hpp>

namespace vesk {

DockablePane::~DockablePane() = default;

bool DockablePane::GetMiniFrameScreenRect(CRectangle&) const
{
    return false;
}

bool DockablePane::FloatPane()
{
    return false;
}

DockPaneContainer::~DockPaneContainer() = default;

DockingTarget::~DockingTarget() = default;

} // namespace vesk
