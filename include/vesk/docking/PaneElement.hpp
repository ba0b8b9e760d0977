#pragma once

#include <vesk/docking/DockElement.hpp>

namespace vesk {

// A leaf of the layout tree standing for one pane. The pane is not owned; the window index is
// the number under which the pane is saved instead of its address (-1 when unknown).
class VESK_API PaneElement : public DockElement {
public:
    // The pane's name; empty without a pane.
    SString GetTitle() const override;
    // The pane's name.
    SString GetIdentifier() const override;
    // The base text, then ", ix=" and the window index when it is 0 or more.
    SString GetStr() const override;
    ERRCODE WriteToDataBuffer(DataBuffer& buffer) const override;
    void WindowToIndex(const Link& link) override;
    void IndexToWindow(const Link& link) override;
    bool WindowsExist() const override { return m_pPane != nullptr; }
    void RefreshRect() override;

    DockablePane* GetPane() const { return m_pPane; }
    void SetPane(DockablePane* pane) { m_pPane = pane; }
    int32_t GetIndex() const { return m_nWindowIndex; }
    void SetIndex(int32_t index) { m_nWindowIndex = index; }

protected:
    PaneElement() = default;
    explicit PaneElement(DockablePane* pane) : m_pPane(pane) {}
    PaneElement(const PaneElement& e, bool copyRelations);
    ERRCODE ReadFromDataBuffer(DataBuffer& buffer) override;

    DockablePane* m_pPane = nullptr;
    int32_t m_nWindowIndex = -1;
};

// A docked pane, possibly in auto-hide mode.
class VESK_API DockPaneElement : public PaneElement {
public:
    DockPaneElement() = default;
    // Window index -1, not auto-hidden, the pane's screen rectangle.
    explicit DockPaneElement(DockablePane* pane);
    DockPaneElement(const DockPaneElement& e, bool copyRelations = true);

    DockElementType GetType() const override { return DET_DOCK_PANE; }
    // The pane's name, with "-AH" appended when auto-hidden.
    SString GetTitle() const override;
    ERRCODE WriteToDataBuffer(DataBuffer& buffer) const override;
    std::unique_ptr<DockElement> Duplicate(bool copyRelations) const override;
    bool DockDepthFirst(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length) override;
    bool DockLeftMost(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length) override;
    const DockPaneElement* FindClosestDockPane(const DockNameSet& wanted, const DockNameSet& done) const override;
    bool Float() override;
    NeighbourType CheckIfOuterNeighbourOfEl(const DockElement* el, const DockElementVec& elements) const override;

    bool IsAutoHide() const { return m_bAutoHide; }
    void SetAutoHide(bool autoHide) { m_bAutoHide = autoHide; }

protected:
    ERRCODE ReadFromDataBuffer(DataBuffer& buffer) override;

private:
    bool m_bAutoHide = false;
};

// A floating pane, kept aside from the docked layout.
class VESK_API FloatingPaneElement : public PaneElement {
public:
    FloatingPaneElement() = default;
    // Window index -1, depth 0, the rectangle of the pane's mini-frame or else of the pane.
    explicit FloatingPaneElement(DockablePane* pane);
    FloatingPaneElement(const FloatingPaneElement& e, bool copyRelations = true);

    DockElementType GetType() const override { return DET_FLOATING_PANE; }
    // "Floating-" and the pane's name.
    SString GetTitle() const override;
    std::unique_ptr<DockElement> Duplicate(bool copyRelations) const override;
    // Floating panes are not docked: true, nothing done.
    bool DockDepthFirst(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length) override;
    bool DockLeftMost(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length) override;
    const DockPaneElement* FindClosestDockPane(const DockNameSet& wanted, const DockNameSet& done) const override;
    bool Float() override;
    bool IsFloating() const override { return true; }
    bool CanMerge() const override { return false; }
    void RefreshRect() override;
};

// A hidden pane with the position it had.
class VESK_API HiddenPaneElement : public PaneElement {
public:
    // A hidden element to read into: an empty position with zero size and no floating
    // rectangle, so that the same record always reads the same.
    HiddenPaneElement();
    HiddenPaneElement(DockablePane* pane, const DockPosition& pos);
    HiddenPaneElement(const HiddenPaneElement& e, bool copyRelations = true);

    DockElementType GetType() const override { return DET_HIDDEN_PANE; }
    // "Hidden-" and the pane's name.
    SString GetTitle() const override;
    // "'name'-hidden".
    SString GetStr() const override;
    ERRCODE WriteToDataBuffer(DataBuffer& buffer) const override;
    std::unique_ptr<DockElement> Duplicate(bool copyRelations) const override;
    // Hidden panes are not docked: true, nothing done.
    bool DockDepthFirst(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length) override;
    bool DockLeftMost(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length) override;
    const DockPaneElement* FindClosestDockPane(const DockNameSet& wanted, const DockNameSet& done) const override;
    // Marks the stored position as floating, so that the pane comes back floating.
    bool Float() override;
    bool CanMerge() const override { return false; }
    bool IsHidden() const override { return true; }
    // A hidden pane has no rectangle to refresh.
    void RefreshRect() override {}

    const DockPosition& GetDockPosition() const { return m_aPos; }

protected:
    ERRCODE ReadFromDataBuffer(DataBuffer& buffer) override;

private:
    DockPosition m_aPos;
};

} // namespace vesk
