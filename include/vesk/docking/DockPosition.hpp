#pragma once

#include <vesk/docking/DataBuffer.hpp>
#include <vesk/docking/DockNeighbour.hpp>
#include <vesk/errcode.hpp>
#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>
#include <vesk/values/CRectangle.hpp>
#include <vesk/values/TamPoint.hpp>
#include <vesk/values/TamSize.hpp>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vesk {

class Config;

// The orientation a pane is placed with; accepted by PlaceNew and SetDefaults and not used.
enum DockOrientation : uint32_t {
    DOCK_ORIENT_HORZ = 0,
    DOCK_ORIENT_VERT = 1,
};

// A stored position may hold at most this many neighbours.
inline constexpr uint32_t DOCK_NEIGHBOUR_LIMIT = 99;
// Docked sizes are stored only when both sides lie in 1 .. DOCK_SIZE_LIMIT - 1.
inline constexpr int32_t DOCK_SIZE_LIMIT = 33000;

// Where a pane was last docked: its size and top-left corner, the frame edge it sits against,
// whether it floats and where, and its named neighbours. Alignments are the 32-bit CBRS_ALIGN_*
// values. The record is written to and read from a DataBuffer as one section; the minimum size
// and the floating flag are not stored.
class VESK_API DockPosition {
public:
    // Zero sizes, then SetDefaults with an empty name (random size and floating rectangle).
    DockPosition();
    // Copies everything but the minimum size, which starts at (0, 0).
    DockPosition(const DockPosition& p);
    // Copies everything but the minimum size, which this position keeps.
    DockPosition& operator=(const DockPosition& p);
    ~DockPosition();

    // Sets the name, clears neighbours, margin side and floating flag, gives a size of 30% of
    // the screen plus a little random jitter, a floating rectangle in the screen's middle
    // (also jittered), a minimum size of 60 scaled to the resolution and pos (-1, -1).
    // Draws rand() six times: height, width, then bottom, right, top, left of the rectangle.
    void SetDefaults(const SString& name);
    // Only sets the name.
    void SetDefaults(DockOrientation orientation, const SString& name);
    // A fresh docked placement: the given size, pos (-1, -1), no neighbours. The margin side,
    // floating state, floating rectangle and minimum size stay.
    void PlaceNew(DockOrientation orientation, const TamPoint& point, const TamSize& size);
    void PlaceNew(DockOrientation orientation, const TamSize& size);

    const TamSize& GetMinSize() const { return m_aMinSize; }
    // The minimum size: (cx, cy) scaled from 96 to the screen resolution, rounded; unscaled
    // before VeskInit.
    void SetMinSizeScaled(int32_t cx, int32_t cy);
    const TamSize& GetSize() const { return m_aSize; }
    void SetSize(const TamSize& size) { m_aSize = size; }
    // Top-left of the docked rectangle; (-1, -1) when not placed yet.
    const TamPoint& GetPos() const { return m_aPos; }
    void SetPos(const TamPoint& pos) { m_aPos = pos; }
    // The name of the pane this position places.
    const SString& GetName() const { return m_sName; }
    void SetName(const SString& name) { m_sName = name; }
    const std::vector<DockNeighbour>& GetNeighbourVec() const { return m_aNeighbours; }
    // The frame edge the pane is docked against; 0 when none.
    uint32_t GetMarginAlign() const { return m_nMarginAlign; }
    void SetMarginAlign(uint32_t align) { m_nMarginAlign = align; }
    bool IsFloating() const { return m_bFloating; }
    void SetIsFloating(bool floating) { m_bFloating = floating; }
    // The last floating rectangle, in screen coordinates.
    const CRectangle& GetRectRecentFloat() const { return m_aRectRecentFloat; }
    void SetRectRecentFloat(const CRectangle& rect) { m_aRectRecentFloat = rect; }
    // The docked rectangle: pos and size.
    CRectangle GetRect() const { return CRectangle(m_aPos, m_aSize); }
    // Docked against a frame edge and not inside a holder.
    bool IsMarginDock() const;

    // Overwrites the neighbour of that name in place, or appends a new one.
    void AddNeighbour(const SString& name, uint32_t align, NeighbourContactType contact, bool holder = false,
                      bool freeSpace = false);
    // AddNeighbour with the side given as "L", "R", "U" or "D" (exact, case-sensitive; any
    // other text gives no side); the name "GFS" marks the free-space element.
    void SetNeighbour(const SString& name, const SString& side, NeighbourContactType contact, bool holder = false);
    void ClearNeighbours() { m_aNeighbours.clear(); }

    // The first neighbour that is a holder, or null.
    const DockNeighbour* GetHolderNeighbour() const;
    // The first plain (neither holder nor free space) neighbour with touching contact, or null.
    const DockNeighbour* GetTouchingNeighbour() const;
    // The first plain neighbour with justified contact, or null.
    const DockNeighbour* GetJustifiedNeighbour() const;
    // The first plain neighbour with equal-side contact, or null.
    const DockNeighbour* GetSideBySideNeighbour() const;
    // The first free-space neighbour with this contact, or null.
    const DockNeighbour* GetFreeSpaceDockNeighbour(NeighbourContactType contact) const;
    // Whether a free-space neighbour has equal-side contact.
    bool IsFreeSpaceDock() const;
    // The side of the first free-space neighbour; NT_RIGHT when there is none or its side is
    // not one of the four.
    NeighbourType GetFreeSpaceNeighbourType() const;
    // The side of the first neighbour when every later one in contact lies on the same side,
    // else NT_NONE; NT_RIGHT for no neighbours or a side that is not one of the four.
    NeighbourType GetAllNeighbourType() const;
    // Whether the named neighbour lies on the left or right (type NT_LEFT or NT_RIGHT) or on
    // the top or bottom (any other type but NT_NONE). The contact is not examined.
    bool HasOrthogonalSideBySideNeighbour(const SString& name, NeighbourType type) const;
    // Whether the named neighbour lies on the right of this pane.
    bool IsLeftOf(const SString& name) const;
    // Whether the named neighbour lies below this pane.
    bool IsTopOf(const SString& name) const;
    // The size's height when the margin side is top or bottom, else its width.
    int32_t GetAlignSideLen() const;
    // 0 unless margin docked outside a holder; else the height for a top or bottom `align`,
    // the width otherwise.
    int32_t GetMarginSideLen(int32_t align) const;
    // For a pane wedged along one side between two justified neighbours: the touching and
    // justified neighbours on that side, in order, and the side. Of the sides with exactly
    // two justified neighbours the one with the most neighbours wins, ties in the order left,
    // top, right, bottom. Leaves both outputs alone when no side qualifies.
    void FillAlignedNeighbours(std::vector<DockNeighbour>& out, uint32_t& outAlign) const;

    // Reads one stored position section. False when the name is over 60 bytes or cut short,
    // the size lies outside 1..32999, there are over 99 neighbours or a neighbour fails; what
    // was read until then stays, and pos and the floating rectangle are read regardless. The
    // floating rectangle is taken only when set and right - left + 1 (32-bit) is over 10.
    bool ReadFromDataBuffer(DataBuffer& buffer);
    // Writes one position section; the margin side and neighbours only with a name and a
    // storable size.
    ERRCODE WriteToDataBuffer(DataBuffer& buffer) const;
    // Diagnostic dump and profile persistence: part of the interface, they do nothing (saved
    // layouts go through the data buffer).
    void Dump() const {}
    void Read(Config&, int) {}
    void Write(Config&, int) {}

    // Whether every field, the minimum size and floating flag included, is equal.
    bool operator==(const DockPosition& p) const;

protected:
    // Number of neighbours with justified contact.
    static uint32_t CountJustified(const std::vector<DockNeighbour>& neighbours);

private:
    void Copy(const DockPosition& p);
    // Index of the neighbour with that name; the neighbour count when there is none.
    size_t IndexOfNeighbour(const SString& name) const;
    bool HasHolderNeighbour() const;

    TamSize m_aMinSize;
    TamSize m_aSize;
    SString m_sName;
    std::vector<DockNeighbour> m_aNeighbours;
    uint32_t m_nMarginAlign = CBRS_NOALIGN;
    bool m_bFloating = false;
    CRectangle m_aRectRecentFloat;
    TamPoint m_aPos;
};

} // namespace vesk
