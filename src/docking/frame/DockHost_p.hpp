#pragma once

// The window over the frame's client area that holds the docked panes; a resize lays them out.
#include <vesk/docking/DockNeighbour.hpp>
#include <vesk/window/OwnedWindow.hpp>

namespace vesk {

class TamDockingManager;

// Posted to the host: lParam is a pane to close, if the manager still knows it.
inline constexpr uint32_t WM_DOCK_CLOSEPANE = 0x400 + 0x191;

class DockHost final : public OwnedWindow {
public:
    explicit DockHost(TamDockingManager& manager) : m_rManager(manager) {}

    void OnProcessMsg(uint32_t message, WParam wParam, LParam lParam) override;

private:
    TamDockingManager& m_rManager;
};

// Side flag (CBRS_ALIGN_*) and axis helpers shared by the frame classes.
bool IsSideAlign(uint32_t align);
bool IsVerticalEdge(uint32_t align); // left or right

} // namespace vesk
