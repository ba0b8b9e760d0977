#pragma once

#include <vesk/docking/DataBuffer.hpp>
#include <vesk/docking/DockNeighbour.hpp>
#include <vesk/docking/DockPosition.hpp>
#include <vesk/docking/DockablePane.hpp>
#include <vesk/errcode.hpp>
#include <vesk/export.hpp>
#include <vesk/links/Link.hpp>
#include <vesk/text/SString.hpp>
#include <vesk/values/CRectangle.hpp>

#include <cstdint>
#include <memory>
#include <set>
#include <vector>

namespace vesk {

class DockElement;
class DockPaneElement;
class FreeSpaceElement;
class HolderElement;

// The kind of a layout-tree element, as stored in its record.
enum DockElementType : uint32_t {
    DET_FREE_SPACE = 1,
    DET_DOCK_PANE = 2,
    DET_FLOATING_PANE = 3,
    DET_HOLDER = 4,
    DET_HIDDEN_PANE = 5,
};

// The format word that starts every element record.
inline constexpr uint32_t DOCK_ELEMENT_FILE_FORMAT = 1;
// Element records nested deeper than this (through relations and holder children) read as
// missing elements, so that a hostile record cannot exhaust the stack.
inline constexpr int32_t DOCK_ELEMENT_MAX_NESTING = 200;

using DockNameSet = std::set<SString>;
using DockElementVec = std::vector<std::unique_ptr<DockElement>>;
using DockablePaneVec = std::vector<DockablePane*>;
using DockPaneElementVec = std::vector<const DockPaneElement*>;

// A node of the dock layout tree: the docking subsystem's own picture of the docked layout.
// Holders split their rectangle between two children by a fraction, panes are leaves, the
// free-space element is the client area no pane covers, floating and hidden panes are leaves
// kept aside. Rectangles are window rectangles (right = left + width), in screen coordinates.
// Every element also owns its relations: copies of elements attached to it on one side.
class VESK_API DockElement {
public:
    // Takes the next number from the process-wide element counter (the first element gets 1).
    DockElement();
    DockElement(const DockElement&) = delete;
    DockElement& operator=(const DockElement&) = delete;

    virtual ~DockElement();
    // Attaches a copy of `other` (its relations copied when `copyRelations`) on the side where
    // it touches this element; nothing when either floats, they do not touch, the depths differ
    // or a relation with its number is already there.
    virtual void AddRelation(const DockElement* other, bool copyRelations);
    // Does nothing; kept for the interface.
    virtual void Dump() const;
    virtual DockElementType GetType() const = 0;
    // The dump text: "'title'-Side, nest=N, Rect: <rectangle text>".
    virtual SString GetStr() const;
    virtual SString GetTitle() const = 0;
    // What the docking manager compares to find the same element again.
    virtual SString GetIdentifier() const = 0;
    // Writes the element's record (format word, type, base section, relations, own part).
    virtual ERRCODE WriteToDataBuffer(DataBuffer& buffer) const;
    // A copy with the same number; its relations copied (without theirs) when `copyRelations`.
    virtual std::unique_ptr<DockElement> Duplicate(bool copyRelations) const = 0;
    // Docks the element's panes through `target`, each split before its parts are split
    // further. The element's first pane is docked at frame edge `align` with thickness `length`
    // unless its name is in `done`, which means it is in place already and covers the whole
    // element. Every pane docked is added to `done`. False when a docking operation failed.
    virtual bool DockDepthFirst(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length) = 0;
    // As DockDepthFirst, but splits level by level: every split of one depth before deeper
    // ones, left to right. The result is the same layout.
    virtual bool DockLeftMost(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length) = 0;
    // The docked pane element nearest to this element's top (fewest holder levels, then left
    // first) whose name is in `wanted` (any name when empty) and not in `done`; null if none.
    virtual const DockPaneElement* FindClosestDockPane(const DockNameSet& wanted, const DockNameSet& done) const = 0;
    // The element of `pane` in this element's tree (holder children, not relations); null if none.
    virtual const DockElement* FindElementOfPane(const DockablePane* pane) const;
    // The other child of the holder in this tree whose child `el` is; null if none.
    virtual const DockElement* FindNeighbourInHolder(const DockPaneElement* el) const;
    // The rectangle of the topmost (then leftmost) docked pane element whose name is in
    // `wanted` (any when empty) and not in `done`; false, `rect` untouched, when there is none.
    virtual bool FindHighestDockFreeRect(const DockNameSet& wanted, const DockNameSet& done, CRectangle& rect) const;
    // Holders: sizes the pane children from the fraction (see HolderElement).
    virtual void ScaleChildsToFract();
    // Holders: multiplies the edges of the holder and of every element below it (each edge
    // rounded as trunc(edge * factor + 0.5)); the fractions stay.
    virtual void ScaleRect(double fx, double fy);
    // Floats the element's panes; false for kinds that cannot float.
    virtual bool Float();
    virtual bool IsFloating() const;
    // Whether the element may be merged with a neighbour into a holder.
    virtual bool CanMerge() const;
    virtual bool IsHidden() const;
    // The side of `el` on which this element lies when it lies there on the far side from the
    // free space of `elements`; NT_NONE otherwise.
    virtual NeighbourType CheckIfOuterNeighbourOfEl(const DockElement* el, const DockElementVec& elements) const;
    // Takes the rectangles from the live panes again.
    virtual void RefreshRect() = 0;
    // Holders: recomputes the rectangles and fractions from the leaves' rectangles.
    virtual void RefreshRectStatic();
    // Asks `link` for the window index of every pane in the tree (see DockWindowIndexQuery).
    virtual void WindowToIndex(const Link& link);
    // Asks `link` for the pane of every window index in the tree.
    virtual void IndexToWindow(const Link& link);
    // The window index of a pane element; -1 for other kinds.
    virtual int32_t GetWindowIndex() const;
    // Number of pane elements in the tree whose pane exists and whose name is not in `skip`.
    virtual int32_t CountWindows(const DockNameSet& skip) const;
    // Whether every pane the tree names exists.
    virtual bool WindowsExist() const = 0;
    virtual bool CheckPaneExists(const DockablePane* pane) const;
    virtual bool IsRectEqualTo(const DockElement* el) const;
    // Holder levels from this element down to the element of `pane`: 0 for the pane's own
    // element, -1 when the pane is not in the tree.
    virtual int32_t GetDepthForPane(const DockablePane* pane) const;
    // Appends the existing panes of the tree's pane elements, left first.
    virtual void FillPaneVec(DockablePaneVec& out) const;
    // Appends the tree's docked pane elements whose names are not in `skip`, left first.
    virtual void FillDockPaneElementVec(DockPaneElementVec& out, const DockNameSet& skip) const;
    // Marks the docked element of `pane` as auto-hidden.
    virtual void NotifyOfAutoHidePane(const DockablePane* pane);
    // Appends the panes of auto-hidden docked elements whose names are not in `skip`.
    virtual void CollectAutoHidePanes(const DockNameSet& skip, DockablePaneVec& out) const;
    // Holders pass depth + 1 on to their children.
    virtual void SetNDepth(int32_t depth);
    virtual void SetPreferOuterDock(bool prefer);
    // Holders: replaces every holder below that lost a child by its remaining child and drops
    // holders left empty. Returns the element that takes this one's place: this element, its
    // only child (released to the caller, who destroys this shell), or null when it is empty.
    virtual DockElement* RemoveOrphanShells();

    // Reads one element record: null when the format word is not 1, the type is unknown or the
    // record is nested too deep. Damage inside a known record shows as missing parts.
    static std::unique_ptr<DockElement> CreateFromDataBuffer(DataBuffer& buffer);
    static uint32_t GetFileFormat() { return DOCK_ELEMENT_FILE_FORMAT; }

    // D: the default width of a pane divider, 5 pixels at 96 DPI scaled to the screen.
    static int32_t GetDividerWidth();
    // The side of `rect` on which `el` lies (CBRS_ALIGN_*), 0 when they overlap.
    static uint32_t GetNeighbourAlign(const DockElement* el, const CRectangle& rect);
    // Only the four adjacency tests of the above; 0 when none holds.
    static uint32_t GetNeighbourAlign(const CRectangle& elRect, const CRectangle& rect);
    // The contact of two extents along a shared side: starts a1, b1, ends a2, b2, facing edges.
    static NeighbourContactType DetContactFromCoords(int32_t a1, int32_t b1, int32_t a2, int32_t b2, int32_t edgeA,
                                                     int32_t edgeB);
    static NeighbourContactType DetContactType(const DockElement* el, const DockElement* other);
    // The side of `b` on which `a` lies, when their facing edges are at most D + 1 apart.
    static NeighbourType DetNeighbourType(const DockElement* a, const DockElement* b);
    static NeighbourType DetNeighbourType(const CRectangle& a, const CRectangle& b);
    // DetNeighbourType kept only when the extents along the shared side differ by under 4.
    NeighbourType GetAlignedNeighbourType(const DockElement* a, const DockElement* b) const;
    // 2 when the centres lie further apart vertically than horizontally, else 1; 0 for null.
    static int32_t DetDirectionType(const DockElement* a, const DockElement* b);
    static uint32_t GetAlignOfType(NeighbourType type);
    static uint32_t InvertAlign(uint32_t align);
    static NeighbourType InvertNeighbourType(NeighbourType type);

    // Appends `other` to the relations, taking it over; false (and `other` left with the
    // caller) when its depth differs or a relation with its number is present.
    bool AddNeighbour(std::unique_ptr<DockElement>& other);

    // Operations on the top-level elements of a layout.
    static FreeSpaceElement* FindFreeSpaceElement(const DockElementVec& elements);
    // Appends the panes of every docked pane element of every tree.
    static void ExtractDockablePanes(const DockElementVec& elements, DockablePaneVec& out);
    static void ClearDockElements(DockElementVec& elements);
    // Takes `el` out of the top-level elements and destroys it; false when it is not one.
    static bool Delete(DockElementVec& elements, const DockElement* el);
    // Fills `pos` for `pane` from the layout (see the docking section of ARCHITECTURE.md):
    // size and position of its rectangle, its frame edge when it is a band of its own, its
    // holder sibling and every pane and the free space it shares a piece of side with as
    // neighbours. `pos` is left alone when the pane is not docked in the layout.
    static void FillDockPosition(const DockElementVec& elements, const DockablePane* pane, DockPosition& pos);
    // Attaches to every top-level element the others it touches (AddRelation).
    static void DetNeighboursFromRects(DockElementVec& elements);
    // Joins top-level elements that lie side by side with equal extents into holders, two at a
    // time, until no such pair is left. Returns the number of holders made.
    static int32_t PutRowIntoHolders(DockElementVec& elements);

    const CRectangle& GetRect() const { return m_aRect; }
    void SetRect(const CRectangle& rect) { m_aRect = rect; }
    const DockElementVec& GetRelations() const { return m_aRelations; }
    DockElement* GetParent() const { return m_pParent; }
    void SetParent(DockElement* parent) { m_pParent = parent; }
    NeighbourType GetNeighbourType() const { return m_eNeighbourType; }
    void SetNeighbourType(NeighbourType type) { m_eNeighbourType = type; }
    int32_t GetNumber() const { return m_nNumber; }
    int32_t GetNDepth() const { return m_nDepth; }
    bool IsPreferOuterDock() const { return m_bPreferOuterDock; }

protected:
    // Copies rect, neighbour type, number, depth and preference; the parent is null.
    DockElement(const DockElement& e, bool copyRelations);

    // Reads the base section and the relations; each kind then reads its own part.
    virtual ERRCODE ReadFromDataBuffer(DataBuffer& buffer);
    virtual void CalcRect();

public:
    virtual void PostDock();

protected:
    // Whether this element, lying on side `type` of `el`, lies further from `fs` than `el`.
    virtual bool IsOuterThanEl(const FreeSpaceElement* fs, const DockElement* el, NeighbourType type) const;

    // The neighbour `nb` of `el` added to `pos`: its title, side and contact; NCT_NONE and
    // nothing added when they are the same, either is null or they overlap.
    static NeighbourContactType AddNeighbour(DockPosition& pos, const DockElement* nb, const DockElement* el,
                                             bool holder);
    // CheckIfOuterNeighbourOfEl for the kinds that lie in the docked layout.
    NeighbourType OuterSide(const DockElement* el, const DockElementVec& elements) const;
    // A holder's child, null for other kinds.
    const DockElement* Child(int i) const;
    DockElement* Child(int i);

    CRectangle m_aRect;
    DockElementVec m_aRelations;
    DockElement* m_pParent = nullptr;
    NeighbourType m_eNeighbourType = NT_NONE;
    int32_t m_nNumber = 0;
    int32_t m_nDepth = 0;
    bool m_bPreferOuterDock = false;

};

} // namespace vesk
