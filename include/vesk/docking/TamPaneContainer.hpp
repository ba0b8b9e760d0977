#pragma once

#include <vesk/docking/DockablePane.hpp>
#include <vesk/export.hpp>
#include <vesk/window/OwnedWindow.hpp>

#include <cstddef>
#include <cstdint>

namespace vesk {

class TamDockingManager;
class LayoutNode;

// The bar between two docked parts; dragging it moves the split (or a band's thickness).
class VESK_API TamPaneDivider : public OwnedWindow {
public:
    TamPaneDivider(TamDockingManager& manager, size_t index);
    // Default width at `dpi`.
    static int32_t GetDefaultWidth(int32_t dpi);
    bool Create(CWnd* parent);
    // Which divider of the layout it is.
    size_t GetIndex() const { return m_nIndex; }
    bool IsVertical() const { return m_bVertical; }
    void Place(const CRectangle& rect, bool vertical);

protected:
    void Paint(const CRectangle& rect) override;
    void MouseButtonDown(const MouseEvent& event) override;

private:
    TamDockingManager& m_rManager;
    size_t m_nIndex;
    bool m_bVertical = true;
};

// One split of the dock layout: its two parts are panes or further containers.
class VESK_API TamPaneContainer : public DockPaneContainer {
public:
    TamPaneContainer(TamDockingManager& manager, const LayoutNode* split) : m_rManager(manager), m_pSplit(split) {}
    int32_t GetDepth() const override;
    DockablePane* GetLeftPane() const override { return PaneOf(0); }
    DockPaneContainer* GetLeftContainer() const override { return ContainerOf(0); }
    DockablePane* GetRightPane() const override { return PaneOf(1); }
    DockPaneContainer* GetRightContainer() const override { return ContainerOf(1); }
    // Whether the parts lie side by side rather than stacked.
    bool IsHorizontal() const;
    // The divider between the parts; null until laid out.
    TamPaneDivider* GetDivider() const;
    const LayoutNode* GetSplit() const { return m_pSplit; }

private:
    DockablePane* PaneOf(int i) const;
    DockPaneContainer* ContainerOf(int i) const;
    TamDockingManager& m_rManager;
    const LayoutNode* m_pSplit;
};

} // namespace vesk
