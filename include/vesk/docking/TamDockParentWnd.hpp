#pragma once

#include <vesk/docking/DockPosition.hpp>
#include <vesk/export.hpp>
#include <vesk/links/Link.hpp>
#include <vesk/values/CRectangle.hpp>
#include <vesk/values/TamSize.hpp>

#include <cstdint>
#include <vector>

namespace vesk {

class CWnd;
class Window;
class TamDockablePane;
class TamDockingManager;

// The application's callbacks of a dock parent. Each link gets one argument; unset links are
// not called (an unset may-close query refuses nothing).
struct VESK_API DockParentCallBacks {
    Link aMayClose;       // the pane's library Window*; 0 refuses the removal
    Link aPaneRemoved;    // the TamDockablePane* just removed
    Link aPaneShown;      // the TamDockablePane* about to be docked beside its holder neighbour
    Link aRecentPosition; // the TamDockablePane* whose recent dock position was just stored
    Link aFloatRectQuery; // a DockPosition*; non-zero: the pane takes its floating rectangle
    Link aSaveFloatState; // a DockPosition* holding only the pane's name and floating rectangle
};

// The kind of candidate area a placement was scored for.
enum class DockType : uint8_t { None, Pane, FreeSpace };

// Which rule of DockWithPosition placed a pane last.
enum class DockPlacementStep : uint8_t {
    None,          // nothing placed yet
    Holder,        // beside its holder neighbour pane
    Margin,        // a band of its own at its frame edge
    JustifiedFree, // between a justified neighbour and the free space
    AlignedRow,    // wedged along a row of aligned neighbours
    Floating,      // floated at its recent floating rectangle
    Heuristic,     // the best scored candidate area
    Emergency      // the fixed place at the right or bottom edge
};

// Puts the panes of one docking manager back where they were: fills a pane's DockPosition from
// the live layout when it is hidden, closed or floated, and docks it again from that position.
// Rectangles in positions are screen rectangles (right = left + width).
class VESK_API TamDockParentWnd {
public:
    explicit TamDockParentWnd(TamDockingManager& manager);
    virtual ~TamDockParentWnd();
    TamDockParentWnd(const TamDockParentWnd&) = delete;
    TamDockParentWnd& operator=(const TamDockParentWnd&) = delete;

    TamDockingManager& GetManager() const { return m_rManager; }
    void SetCallBacks(const DockParentCallBacks& callBacks) { m_aCallBacks = callBacks; }
    const DockParentCallBacks& GetCallBacks() const { return m_aCallBacks; }
    // The library window that owns this parent, and the window that fills the free space.
    void SetPDockParentWindow(Window* window) { m_pParentWindow = window; }
    Window* GetPDockParentWindow() const { return m_pParentWindow; }
    void SetPFreeSpaceWnd(CWnd* wnd);

    // 2.0 when `pos` has a neighbour `name` on the side opposite `align` with equal-side
    // contact, 0.8 with touching or justified contact, else 0.
    double EvaluateAlign(const DockPosition& pos, uint32_t align, const SString& name) const;
    // Scores `pos` against the four candidate places along the sides of `area` (left, top,
    // right, bottom); a strictly better score replaces the best triple. True when one did.
    bool EvaluateDockTry(const CRectangle& area, const SString& name, const DockPosition& pos, DockType type,
                         DockType& bestType, uint32_t& bestAlign, double& bestScore) const;
    // |a.cx / a.cy - b.cx / b.cy|; 9e99 when either height is 0.
    static double GetAspectError(const TamSize& a, const TamSize& b);
    // The sum of the widths (left or right) or heights of sizes[from..], 0 when from is past the end.
    static int32_t SumRestSide(const std::vector<TamDockablePane*>& panes, const std::vector<TamSize>& sizes,
                               size_t from, uint32_t align);
    // The manager's pane named as the neighbour; null when none is.
    TamDockablePane* GetPaneOfDockNeighbour(const DockNeighbour* nb) const;
    // Widens a pane that shares a holder along `align` to two thirds of the holder.
    void MakeRoomInNeighbourHolder(TamDockablePane* pane, uint32_t align);

    // Fills `pos` from the layout tree of the docked panes; with `addIfMissing` a pane not in
    // the tree is added as a top-level element first. The name defaults to the pane's.
    void FillDockPosition(const TamDockablePane* pane, DockPosition& pos, bool addIfMissing);
    // Docks the pane from `pos` by the first rule that applies (see DockPlacementStep).
    void DockWithPosition(TamDockablePane* pane, const DockPosition& pos);
    DockPlacementStep GetLastPlacementStep() const { return m_eLastStep; }

    // Before a docked pane floats: stores its recent dock position. With reason 2 the
    // floating-rectangle query may hand it the position's floating rectangle.
    void OnBeforeFloat(TamDockablePane* pane, int32_t reason);
    // Closes the pane after the may-close query agreed, storing `pos` (filled from the layout
    // when `fill` is set) as its recent dock position. False when refused or not ours.
    bool RemovePane(TamDockablePane* pane, DockPosition& pos, bool fill);
    // Hands the floating-state save callback the pane's floating rectangle, and keeps it.
    void SaveRecentFloatingState(TamDockablePane* pane, const CRectangle& rect);
    // Hides the pane (docked, floating or pinned off), storing `pos` as its recent position;
    // with `fill` the position is filled from where the pane is now.
    void HidePane(TamDockablePane* pane, DockPosition& pos, bool fill);
    // Shows a hidden pane: floating again when `pos` says it floated, else DockWithPosition.
    void ShowPane(TamDockablePane* pane, const DockPosition& pos);

protected:
    // Scores every docked pane's rectangle and the free space with EvaluateDockTry and docks
    // the pane at the winner: beside the pane (splitting it) or as a band next to the free
    // space, so it never covers another pane. Candidates too small for the pane's minimum
    // size are skipped. False when none is left or docking failed.
    virtual bool DockHeuristic(TamDockablePane* pane, const DockPosition& pos);

private:
    bool DockAtHolder(TamDockablePane* pane, const DockPosition& pos);
    bool DockAtMargin(TamDockablePane* pane, const DockPosition& pos);
    bool DockBesideFreeSpace(TamDockablePane* pane, const DockPosition& pos);
    bool DockIntoRow(TamDockablePane* pane, const DockPosition& pos);
    void DockEmergency(TamDockablePane* pane, const DockPosition& pos);
    bool IsOwnPane(const TamDockablePane* pane) const;

    TamDockingManager& m_rManager;
    Window* m_pParentWindow = nullptr;
    DockParentCallBacks m_aCallBacks;
    DockPlacementStep m_eLastStep = DockPlacementStep::None;
    // Set while this parent moves panes itself: floating then stores no recent position.
    bool m_bSuppressFloatUpdate = false;
};

} // namespace vesk
