#pragma once

#include "Pane.hpp"

#include <vesk/docking.hpp>

#include <array>

namespace demo {

// The browser's panes, in the order of their keys F1 to F5.
enum PaneId : int { PANE_FOLDER, PANE_PREVIEW, PANE_PROPERTIES, PANE_COLOURS, PANE_LOG, PANE_COUNT };

// Where each pane stands in the frame's client area (empty for a hidden pane).
using PaneRects = std::array<vesk::CRectangle, PANE_COUNT>;

// One of the browser's panes in the docking framework: the framework draws the caption,
// docks, floats and hides it, and the browser's pane fills the body, made once in the pane's
// native window (which moves with it between the dock host and a mini-frame).
class DockedPane : public vesk::TamDockablePane
{
public:
    explicit DockedPane(Pane& body) : m_rBody(body) {}
    Pane& Body() const { return m_rBody; }
    // Docked, floating or pinned off: anywhere but hidden.
    bool IsShown() const { return IsDocked() || IsFloating() || IsAutoHidden(); }

protected:
    void OnNativeWindowMade() override;

private:
    Pane& m_rBody;
};

} // namespace demo
