#pragma once

#include <vesk/export.hpp>
#include <vesk/window/OwnedWindow.hpp>

#include <cstdint>
#include <vector>

namespace vesk {

class TamDockingManager;
class TamDockablePane;

// The dock site of one frame edge with its auto-hide strip: panes pinned off show there as
// tabs, and a click on a tab slides the pane out (or back in).
class VESK_API TamDockSite : public OwnedWindow {
public:
    TamDockSite();
    // Makes the strip window in the manager's host; false when `align` is not one edge.
    virtual bool Create(TamDockingManager& manager, uint32_t align);
    uint32_t GetAlignment() const { return m_nAlign; }
    // Strip thickness at `dpi` (0 while no pane is pinned off).
    int32_t GetStripThickness(int32_t dpi) const;
    const std::vector<TamDockablePane*>& GetAutoHidePanes() const { return m_aPanes; }
    // The pane slid out, if any.
    TamDockablePane* GetShownPane() const { return m_pShown; }
    // The tab of pane `i` in strip client coordinates.
    CRectangle GetTabRect(size_t i) const;

protected:
    void Paint(const CRectangle& rect) override;
    void MouseButtonDown(const MouseEvent& event) override;

private:
    friend class TamDockingManager;
    TamDockingManager* m_pManager = nullptr;
    uint32_t m_nAlign = 0;
    std::vector<TamDockablePane*> m_aPanes;
    TamDockablePane* m_pShown = nullptr;
};

// What AddDockSite makes: the edge and the factory of the site's class.
struct AFX_DOCKSITE_INFO {
    uint32_t m_dwBarAlignment = 0;
    TamDockSite* (*m_pfnCreate)() = nullptr;
};

} // namespace vesk
