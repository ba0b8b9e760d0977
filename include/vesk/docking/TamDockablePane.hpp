#pragma once

#include <vesk/docking/DockablePane.hpp>
#include <vesk/export.hpp>
#include <vesk/text/UString.hpp>
#include <vesk/values/TamSize.hpp>
#include <vesk/window/Window.hpp>

#include <cstdint>

namespace vesk {

class TamDockingManager;
class TamPaneFrameWnd;

// The id that asks a pane's SaveState and LoadState for the plain section names.
inline constexpr uint32_t PANE_DEFAULT_STATE_ID = 0xFFFFFFFF;

// Where a pane was docked last: beside a named pane, or in a band at a frame edge.
struct PaneDockPlace {
    SString sTarget;          // the pane it was docked beside; empty for a band
    uint32_t nAlign = 0;      // CBRS_ALIGN_* side of the target, or frame edge of the band
    int32_t nLength = 0;      // extent along that side's axis, pixels
    bool bOutermost = false;  // band only: against the frame edge rather than the free space
};

// A dockable pane: a caption (title, close and pin buttons) over the body where its library
// window lives. Docked, it is a child of its manager's dock host; floating, a child of a
// mini-frame. Its native window is made anew when it moves between the two.
class VESK_API TamDockablePane : public Window, public DockablePane {
public:
    TamDockablePane();
    ~TamDockablePane() override;

    // Makes the pane, hidden and undocked. False when the name is empty or taken in the
    // manager, or the pane exists already.
    bool Create(TamDockingManager& manager, const SString& name, const TamSize& minSize96 = TamSize(40, 40));
    TamDockingManager* GetManager() const { return m_pManager; }

    SString GetName() const override { return m_sName; }
    // The control id, which names the pane's saved sections. Create gives each pane of a
    // manager the next id from 1 in creation order; applications that add or drop panes
    // between versions should set stable ids.
    int32_t GetDlgCtrlID() const { return m_nCtrlId; }
    void SetDlgCtrlID(int32_t id) { m_nCtrlId = id; }

    // Writes the pane's sections of the saved layout "<profile>BasePane-<index>" and
    // "<profile>Pane-<index>" under the docking managers' key; `index` -1 means the control id.
    // An `id` other than PANE_DEFAULT_STATE_ID is appended in hexadecimal
    // ("<profile>Pane-<index><id>"), for applications that keep several states of one pane.
    // False when a value cannot be written.
    bool SaveState(const UString& profile, int32_t index = -1, uint32_t id = PANE_DEFAULT_STATE_ID) const;
    // Reads the same values; a missing value keeps the pane's current one. The recent
    // rectangles, alignment, row and width fill the pane's recent place; then the pane is
    // shown (floating or docked at its recent place), hidden or pinned off as the visibility,
    // floating and pin values say. True when any value was read.
    bool LoadState(const UString& profile, int32_t index = -1, uint32_t id = PANE_DEFAULT_STATE_ID);
    // The rank of the pane's band among the bands of its edge, outermost 0; when it is not
    // docked, the rank it had when it was docked last.
    int32_t GetRecentRowIndex() const;

    CRectangle GetScreenRect() const override;
    bool GetMiniFrameScreenRect(CRectangle& rect) const override;
    void SetSizeInContainer(int32_t length) override;
    // Floats at the recent floating rectangle.
    bool FloatPane() override;

    // Minimum size at 96 DPI.
    const TamSize& GetMinSize() const { return m_aMinSize; }
    const PaneDockPlace& GetRecentDockPlace() const { return m_aRecentDock; }
    const CRectangle& GetRecentFloatRect() const { return m_aRecentFloat; }
    // Where it stood when last docked, in the dock host's client coordinates.
    const CRectangle& GetRecentDockedRect() const { return m_aRecentDocked; }
    // The library window shown in the body: the pane keeps it sized to the body. It must be a
    // child of the pane's native window (OnNativeWindowMade is the place to make it).
    void SetLibraryWindow(Window* window);
    Window* GetLibraryWindow() const { return m_pLibraryWindow; }

    // Shows the pane where it was last (docked or floating); hides it, taking it out of the
    // layout and remembering its place. DoClose hides it.
    void ShowPane();
    void HidePane();
    virtual void DoClose();
    // Takes the pane out of the layout (hidden); false when it was not docked.
    bool UndockPane();
    // Floats in a mini-frame at `rect` (screen), moved onto a visible screen.
    bool FloatAt(const CRectangle& rect);
    bool IsDocked() const { return m_eState == State::Docked; }
    bool IsFloating() const { return m_eState == State::Floating; }
    bool IsAutoHidden() const { return m_eState == State::AutoHidden; }
    // Neither docked, floating nor pinned off.
    bool IsHidden() const { return m_eState == State::Hidden; }
    // CBRS_ALIGN_* side of the pane's band or of the pane it was docked beside; 0 when not docked.
    uint32_t GetCurrentAlignment() const;
    // Pins the pane off into its edge's auto-hide strip (true) or back into the layout.
    bool SetAutoHideMode(bool autoHide);

    // Caption height and button size at the manager's resolution.
    int32_t GetCaptionHeight() const;
    CRectangle GetCloseButtonRect() const;
    CRectangle GetPinButtonRect() const;

protected:
    // Called each time the native window was made (again).
    virtual void OnNativeWindowMade() {}
    void Paint(const CRectangle& rect) override;
    void MouseButtonDown(const MouseEvent& event) override;

private:
    friend class TamDockingManager;
    enum class State : uint8_t { Hidden, Docked, Floating, AutoHidden };
    // Makes the native window anew as a child of `parent` at `rect` (parent's client coordinates).
    bool Remake(CWnd* parent, const CRectangle& rect);
    void PlaceAt(const CRectangle& rect);
    void FitLibraryWindow();
    void DropMiniFrame();
    // Docked: the side, band rank and extent across its edge, from the live layout.
    void CurrentPlace(uint32_t& align, int32_t& row, int32_t& width) const;

    TamDockingManager* m_pManager = nullptr;
    CWnd m_aWnd;
    SString m_sName;
    int32_t m_nCtrlId = 0;
    int32_t m_nRecentRow = 0;
    TamSize m_aMinSize;
    State m_eState = State::Hidden;
    PaneDockPlace m_aRecentDock;
    bool m_bHasDockPlace = false;
    CRectangle m_aRecentFloat;
    CRectangle m_aRecentDocked;
    TamPaneFrameWnd* m_pMiniFrame = nullptr;
    Window* m_pLibraryWindow = nullptr;
};

} // namespace vesk
