#pragma once

// A drag of a divider or of a pane's caption. While it lasts a window-procedure hook sees the
// pointer moves, the button release and Escape, wherever they go.
#include <vesk/docking/TamDockablePane.hpp>
#include <vesk/docking/TamDockingManager.hpp>
#include <vesk/window/OwnedWindow.hpp>

#include <cstddef>
#include <cstdint>

namespace vesk {

// Where a pane would go: beside a pane, or in a band at a frame edge.
struct DockDropTarget {
    enum class Kind : uint8_t { None, Pane, EdgeOuter, EdgeInner } eKind = Kind::None;
    SString sTarget;
    uint32_t nAlign = 0;
    bool operator==(const DockDropTarget&) const = default;
};

// The rectangle that shows where a dragged pane would land.
class DockDropOverlay final : public OwnedWindow {
public:
    bool Create(CWnd* host);
    void Show(const CRectangle& rect);
    void Hide();
    const CRectangle& GetRect() const { return m_aRect; }

protected:
    void Paint(const CRectangle& rect) override;

private:
    CRectangle m_aRect;
};

class DockDrag {
public:
    // A divider drag from `grab` (host client coordinates).
    DockDrag(TamDockingManager& manager, size_t divider, const TamPoint& grab);
    // A caption drag of `pane` from `grab`.
    DockDrag(TamDockingManager& manager, TamDockablePane& pane, const TamPoint& grab);
    ~DockDrag();
    DockDrag(const DockDrag&) = delete;
    DockDrag& operator=(const DockDrag&) = delete;

    bool Involves(const TamDockablePane& pane) const { return m_pPane == &pane; }
    // Whether a drag is going on in any manager: one at a time, the pointer is one.
    static bool IsAnyActive() { return s_pActive != nullptr; }
    // The drop target and its preview for a pointer at `p` (host client coordinates).
    DockDropTarget TargetAt(const TamPoint& p) const;
    // The dragged pane's rectangle in host coordinates were it dropped on `target`; false
    // for no target.
    bool Preview(const DockDropTarget& target, CRectangle& rect) const;
    const CRectangle& GetPreviewRect() const { return m_aOverlay.GetRect(); }
    bool HasPreview() const { return m_aTarget.eKind != DockDropTarget::Kind::None; }

private:
    static int Hook(NativeWindow window, uint32_t message, WParam wParam, LParam lParam);
    // Hooks the router and captures the pointer and keys for the host.
    void Start(CWnd* host);
    void MoveTo(const TamPoint& p);
    void Drop();
    void Cancel();
    int32_t BandLength(uint32_t align) const;
    // Ends the drag: the manager drops this object.
    void Finish();

    static inline DockDrag* s_pActive = nullptr;
    TamDockingManager& m_rManager;
    TamPoint m_aGrab;
    TamPoint m_aLast;
    // Divider drags.
    size_t m_nDivider = 0;
    int32_t m_nDividerPos = 0;
    // Pane drags.
    TamDockablePane* m_pPane = nullptr;
    bool m_bLifted = false;
    bool m_bWasDocked = false;
    CRectangle m_aPaneRect;
    DockDropTarget m_aTarget;
    DockDropOverlay m_aOverlay;
};

} // namespace vesk
