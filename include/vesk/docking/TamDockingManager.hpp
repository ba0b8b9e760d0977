#pragma once

#include <vesk/docking/DockElement.hpp>
#include <vesk/docking/DockablePane.hpp>
#include <vesk/docking/TamDockSite.hpp>
#include <vesk/export.hpp>
#include <vesk/text/UString.hpp>
#include <vesk/values/TamPoint.hpp>

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <vector>

namespace vesk {

class CFrameWnd;
class DataBuffer;
class Window;
class LayoutModel;
class LayoutNode;
class TamDockablePane;
class TamPaneContainer;
class TamPaneDivider;
class TamPaneFrameWnd;
class DockHost;
class DockDrag;
class DockPosition;
class TamDockParentWnd;

// The docking of one frame window. It puts a host window over the frame's client area and
// places every docked pane and divider from the layout model's solution, again on every
// resize and resolution change. Panes belong to the application; the manager only places them.
class VESK_API TamDockingManager : public DockingTarget {
public:
    explicit TamDockingManager(CFrameWnd& frame);
    ~TamDockingManager() override;
    TamDockingManager(const TamDockingManager&) = delete;
    TamDockingManager& operator=(const TamDockingManager&) = delete;

    // The window the docked panes live in (fills the frame's client area).
    CWnd* GetHost() const;
    // The window that fills the free space, if any.
    void SetCentralWindow(CWnd* wnd);
    int32_t GetDpi() const { return m_nDpi; }
    void SetDpi(int32_t dpi);

    bool DockIntoPane(DockablePane* pane, DockablePane* target, uint32_t align, int32_t length) override;
    bool DockIntoParent(DockablePane* pane, uint32_t align, int32_t length, bool outermost) override;
    // Docks the pane where `pos` says (the dock parent's rules).
    void DockWithPosition(TamDockablePane* pane, const DockPosition& pos);
    // The dock parent that puts this manager's panes back where they were.
    TamDockParentWnd& GetDockParent() const { return *m_pDockParent; }

    // The panes in creation order; the auto-hidden panes; the mini-frames.
    void FillDockablePaneVec(std::vector<TamDockablePane*>& panes) const;
    void FillAutoHidePaneVec(std::vector<TamDockablePane*>& panes) const;
    void FillMiniFrameVec(std::vector<TamPaneFrameWnd*>& frames) const;
    TamDockablePane* FindPane(const SString& name) const;
    // Moves every mini-frame that shows less than 64 x 24 pixels on the screens onto one
    // (after the monitors changed).
    void KeepMiniFramesVisible();

    // Makes a dock site as `info` says; on failure shows "DockBar Create FAILED" and returns
    // false. `site` is null first and the new site on success (the manager owns it).
    bool AddDockSite(const AFX_DOCKSITE_INFO& info, TamDockSite** site);
    TamDockSite* GetDockSite(uint32_t align) const;

    // Saved layouts live in the settings store under "<base>\DockingManagers", where <base>
    // is the application's key path, set once at start-up; the default is
    // "Software\Vesk\<program file name>".
    static void SetRegistryBase(const UString& base);
    static UString GetRegistryBase();
    // Writes every pane's sections, then the manager's section "<profile>DockingManager-<id>"
    // with the layout as the binary value "DockingPaneAndPaneDividers". False when the
    // settings store cannot be written; the layout and the panes are not touched either way.
    bool SaveState(const UString& profile, uint32_t id = 0) const;
    // Reads the layout value and applies it, then lets each pane read its own sections. A
    // missing or unusable layout value leaves the layout as it is (the panes' values still
    // apply) and gives false.
    bool LoadState(const UString& profile, uint32_t id = 0);
    // The layout value on its own: bands, trees, floating, pinned-off and hidden panes.
    std::vector<uint8_t> SaveLayout() const;
    // Applies a layout value. False, with nothing changed, when it is damaged or needs a newer
    // reader. Panes it names that the manager lacks are left out (their neighbours close up);
    // the manager's panes it does not name stay docked (at their recent place), floating or
    // hidden as they were.
    bool LoadLayout(std::span<const uint8_t> value);

    // Print preview hides every visible pane and shows them again when it ends.
    void SetPrintPreviewMode(bool preview);
    bool IsPrintPreviewValid() const { return m_bPrintPreview; }

    // The dock layout tree of the docked panes: per band in dock order its pane, or a holder
    // built from its top container; then the free space. Screen coordinates.
    DockElementVec BuildDockElements() const;

    // Places every window from the model's current solution.
    void RecalcLayout();
    // Pane rectangles in host client coordinates from the solution, in dock order.
    std::vector<std::pair<const TamDockablePane*, CRectangle>> GetPaneRects() const;
    const std::vector<std::unique_ptr<TamPaneDivider>>& GetDividers() const { return m_aDividers; }
    const std::vector<std::unique_ptr<TamPaneContainer>>& GetContainers() const { return m_aContainers; }
    TamPaneContainer* FindContainer(const LayoutNode* split) const;
    TamDockablePane* PaneOfNode(const LayoutNode* leaf) const;
    const LayoutModel& GetModel() const { return *m_pModel; }
    // Whether a drag (divider or pane) is going on.
    bool IsDragging() const;
    // While a pane is dragged over a drop target: where it would land (host coordinates).
    bool GetDropPreview(CRectangle& rect) const;

private:
    friend class TamDockablePane;
    friend class TamPaneDivider;
    friend class TamDockSite;
    friend class DockDrag;
    friend class DockHost;
    friend class TamDockParentWnd;

    bool AddPane(TamDockablePane& pane);
    void ForgetPane(TamDockablePane& pane);
    // `pane` when it is one of this manager's panes, else null.
    TamDockablePane* KnownPane(const TamDockablePane* pane) const;
    // Takes the pane out of the model, with `remember` storing where it stood as its recent
    // dock position; false when it was not docked.
    bool TakeOut(TamDockablePane& pane, bool remember = true);
    // Docks the pane again at its recent dock position; false when it did not dock.
    bool Redock(TamDockablePane& pane);
    // Readies a pane for docking: off its strip, out of the layout, out of its mini-frame.
    bool PrepareDock(TamDockablePane* pane);
    // Docks like DockIntoPane beside `target`'s leaf or one of its enclosing splits, or like
    // DockIntoParent at one of the band ranks: whichever puts the pane nearest `was` (screen
    // rectangle). Ties go to the leaf, or to the innermost rank.
    bool DockIntoPaneNear(TamDockablePane* pane, TamDockablePane* target, uint32_t align, int32_t length,
                          const CRectangle& was);
    bool DockIntoParentNear(TamDockablePane* pane, uint32_t align, int32_t length, const CRectangle& was);
    // The pane is in the layout now.
    void SetDocked(TamDockablePane& pane);
    bool PinOff(TamDockablePane& pane);
    // Takes the pane off its dock site's strip, if it is on one.
    bool Unpin(TamDockablePane& pane);
    bool PinBack(TamDockablePane& pane);
    void SlideOut(TamDockSite& site, TamDockablePane* pane);
    void BeginDividerDrag(size_t index, const TamPoint& hostPos);
    void BeginPaneDrag(TamDockablePane& pane, const TamPoint& hostPos);
    // Screen position to host client coordinates, and the model's offset in the host.
    TamPoint ScreenToHost(const TamPoint& p) const;
    TamPoint ModelOffset() const;
    void SyncWindows();
    // One pane record of the saved layout value.
    void WriteAway(DataBuffer& buffer, const TamDockablePane& pane) const;

    CFrameWnd& m_rFrame;
    // The window over the frame's client area; a library window, so its messages pass the
    // router's hooks.
    std::unique_ptr<DockHost> m_pHost;
    std::unique_ptr<LayoutModel> m_pModel;
    int32_t m_nDpi = 96;
    CWnd* m_pCentral = nullptr;
    std::vector<TamDockablePane*> m_aPanes;
    std::vector<std::unique_ptr<TamPaneContainer>> m_aContainers;
    std::vector<std::unique_ptr<TamPaneDivider>> m_aDividers;
    std::vector<std::unique_ptr<TamDockSite>> m_aSites;
    int32_t m_nNextCtrlId = 1;
    bool m_bPrintPreview = false;
    std::vector<TamDockablePane*> m_aHiddenForPreview;
    std::unique_ptr<DockDrag> m_pDrag;
    std::unique_ptr<TamDockParentWnd> m_pDockParent;
};

} // namespace vesk
