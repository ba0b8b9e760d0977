#pragma once

#include <vesk/docking/DockElement.hpp>
#include <vesk/frame/NativeWindow.hpp>

namespace vesk {

// The frame's client area that no pane covers; its title is "GFS".
class VESK_API FreeSpaceElement : public DockElement {
public:
    FreeSpaceElement() = default;
    FreeSpaceElement(const CRectangle& rect, NativeWindow window);
    FreeSpaceElement(const FreeSpaceElement& e, bool copyRelations = true);

    DockElementType GetType() const override { return DET_FREE_SPACE; }
    SString GetTitle() const override { return "GFS"; }
    SString GetIdentifier() const override { return "GFS"; }
    ERRCODE WriteToDataBuffer(DataBuffer& buffer) const override;
    std::unique_ptr<DockElement> Duplicate(bool copyRelations) const override;
    // The free space is not docked: true, nothing done.
    bool DockDepthFirst(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length) override;
    bool DockLeftMost(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length) override;
    const DockPaneElement* FindClosestDockPane(const DockNameSet& wanted, const DockNameSet& done) const override;
    bool CanMerge() const override { return false; }
    // The rectangle is set by whoever builds the layout.
    void RefreshRect() override {}
    bool WindowsExist() const override { return true; }

    NativeWindow GetFreeSpaceWindow() const { return m_pWindow; }

protected:
    ERRCODE ReadFromDataBuffer(DataBuffer& buffer) override;

private:
    NativeWindow m_pWindow = nullptr;
};

} // namespace vesk
