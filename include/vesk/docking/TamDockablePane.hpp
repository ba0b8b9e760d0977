#pragma once

#include <vesk/docking/DockPosition.hpp>
#include <vesk/docking/DockablePane.hpp>
#include <vesk/export.hpp>
#include <vesk/text/UString.hpp>
#include <vesk/values/TamSize.hpp>
#include <vesk/window/OwnedWindow.hpp>

#include <cstdint>

namespace vesk {

class TamDockingManager;
class TamPaneFrameWnd;

// The id that asks a pane's SaveState and LoadState for the plain section names.
inline constexpr uint32_t PANE_DEFAULT_STATE_ID = 0xFFFFFFFF;

// A dockable pane: a caption (title, close and pin buttons) over the body where its library
// window lives. Docked, it is a child of its manager's dock host; floating, a child of a
// mini-frame. Its native window moves between the two with its children.
class VESK_API TamDockablePane : public OwnedWindow, public DockablePane {
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
    // The edge of the pane's band, the band's rank among the bands of that edge (outermost 0)
    // and the pane's extent across the edge; when it is not docked, as when it was docked last.
    void GetRecentPlace(uint32_t& align, int32_t& row, int32_t& width) const;

    CRectangle GetScreenRect() const override;
    bool GetMiniFrameScreenRect(CRectangle& rect) const override;
    void SetSizeInContainer(int32_t length) override;
    // Floats at the recent floating rectangle.
    bool FloatPane() override;

    // Minimum size at 96 DPI.
    const TamSize& GetMinSize() const { return m_aMinSize; }
    void SetMinSize(const TamSize& minSize96) { m_aMinSize = minSize96; }
    // Where the pane was docked last, filled when it is hidden, closed, floated or undocked.
    // Setting it keeps the stored minimum size and names the position after the pane.
    void SetRecentDockPosition(const DockPosition& pos);
    DockPosition GetRecentDockPosition() const { return m_aRecentPos; }
    DockPosition& GetRRecentDockPosition() { return m_aRecentPos; }
    const CRectangle& GetRecentFloatRect() const { return m_aRecentFloat; }
    void SetRecentFloatRect(const CRectangle& rect) { m_aRecentFloat = rect; }
    // Where it stood when last docked, in the dock host's client coordinates.
    const CRectangle& GetRecentDockedRect() const { return m_aRecentDocked; }
    // The library window shown in the body: the pane keeps it sized to the body. It must be a
    // child of the pane's native window (OnNativeWindowMade is the place to make it).
    void SetLibraryWindow(Window* window);
    Window* GetLibraryWindow() const { return m_pLibraryWindow; }

    // Shows the pane where it was last (docked or floating); hides it, taking it out of the
    // layout and remembering its place (both through the manager's dock parent).
    void ShowPane();
    void HidePane();
    // Hides the pane without filling its recent position; the dock parent's RemovePane calls it.
    virtual void DoClose();
    // Takes the pane out of the layout (hidden); false when it was not docked.
    bool UndockPane();
    // Floats in a mini-frame at `rect` (screen), moved onto a visible screen.
    bool FloatAt(const CRectangle& rect);
    // A floating or hidden pane docks again at its recent dock position; false when it is
    // docked already or could not dock.
    bool RedockPane();
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
    // Called once the pane's native window exists: the place to make the library window in it.
    virtual void OnNativeWindowMade() {}
    void Paint(const CRectangle& rect) override;
    void MouseButtonDown(const MouseEvent& event) override;

private:
    friend class TamDockingManager;
    friend class TamDockParentWnd;
    enum class State : uint8_t { Hidden, Docked, Floating, AutoHidden };
    void PlaceAt(const CRectangle& rect);
    void FitLibraryWindow();
    void DropMiniFrame();
    // Floats at `rect`; a docked pane leaves the layout remembering its place.
    bool Float(const CRectangle& rect);
    // Out of the layout, off its strip and out of its mini-frame, hidden.
    void Conceal();
    // Docked: the side, band rank and extent across its edge, from the live layout.
    void CurrentPlace(uint32_t& align, int32_t& row, int32_t& width) const;

    TamDockingManager* m_pManager = nullptr;
    SString m_sName;
    int32_t m_nCtrlId = 0;
    // Edge, band rank and extent across the edge when last docked.
    uint32_t m_nRecentAlign = 0;
    int32_t m_nRecentRow = 0;
    int32_t m_nRecentWidth = 0;
    TamSize m_aMinSize;
    State m_eState = State::Hidden;
    DockPosition m_aRecentPos;
    CRectangle m_aRecentFloat;
    CRectangle m_aRecentDocked;
    TamPaneFrameWnd* m_pMiniFrame = nullptr;
    Window* m_pLibraryWindow = nullptr;
};

} // namespace vesk
