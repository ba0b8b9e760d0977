#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>
#include <vesk/values/CRectangle.hpp>

#include <cstdint>

namespace vesk {

// What the dock layout tree needs of a docked pane. The pane window class implements it, and
// so does the pure layout model's pane. Rectangles are window rectangles: right = left + width.
class VESK_API DockablePane {
public:
    virtual ~DockablePane();
    // The pane's name, unique within its docking manager.
    virtual SString GetName() const = 0;
    // The pane's rectangle in screen coordinates.
    virtual CRectangle GetScreenRect() const = 0;
    // The rectangle of the floating mini-frame that holds the pane; false when it holds none.
    virtual bool GetMiniFrameScreenRect(CRectangle& rect) const;
    // Sets the pane's extent along the split of the container that holds it.
    virtual void SetSizeInContainer(int32_t length) = 0;
    // Floats the pane; false when it cannot float.
    virtual bool FloatPane();
};

// What the dock layout tree needs of a pane container: one split with a left (or upper) and a
// right (or lower) part, each either a pane or another container.
class VESK_API DockPaneContainer {
public:
    virtual ~DockPaneContainer();
    // Nesting depth of the container.
    virtual int32_t GetDepth() const = 0;
    // The left-or-top pane, null when that part is a container or empty.
    virtual DockablePane* GetLeftPane() const = 0;
    virtual DockPaneContainer* GetLeftContainer() const = 0;
    // The right-or-bottom pane, null when that part is a container or empty.
    virtual DockablePane* GetRightPane() const = 0;
    virtual DockPaneContainer* GetRightContainer() const = 0;
};

// The docking operations the layout tree docks panes through: the docking manager's, or the
// pure layout model's.
class VESK_API DockingTarget {
public:
    virtual ~DockingTarget();
    // Docks `pane` beside `target` on side `align` (CBRS_ALIGN_*) with extent `length` along
    // that side's axis; 0 or less splits the target's room in half.
    virtual bool DockIntoPane(DockablePane* pane, DockablePane* target, uint32_t align, int32_t length) = 0;
    // Docks `pane` at frame edge `align` with thickness `length`, at the outermost place or
    // next to the free space.
    virtual bool DockIntoParent(DockablePane* pane, uint32_t align, int32_t length, bool outermost) = 0;
};

// Filled by the link that WindowToIndex and IndexToWindow call: the link gets the address of
// this query and fills the part that is missing.
struct DockWindowIndexQuery {
    DockablePane* pPane = nullptr;
    int32_t nIndex = -1;
};

} // namespace vesk
