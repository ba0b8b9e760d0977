#pragma once

#include <vesk/docking/DataBuffer.hpp>
#include <vesk/errcode.hpp>
#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>
#include <vesk/values/TamSize.hpp>

#include <cstdint>

namespace vesk {

// The kind of contact between a pane and a neighbour.
enum NeighbourContactType : uint32_t {
    NCT_NONE = 0,
    // The two panes touch along part of a side.
    NCT_TOUCHING_SIDE = 1,
    // The two sides start at the same edge.
    NCT_JUSTIFIED_SIDE = 2,
    // The two sides start and end at the same edges.
    NCT_EQUAL_SIDE = 3,
};

// Alignments: the framework's side flags, stored as 32-bit unsigned numbers.
inline constexpr uint32_t CBRS_NOALIGN = 0;
inline constexpr uint32_t CBRS_ALIGN_LEFT = 0x1000;
inline constexpr uint32_t CBRS_ALIGN_TOP = 0x2000;
inline constexpr uint32_t CBRS_ALIGN_RIGHT = 0x4000;
inline constexpr uint32_t CBRS_ALIGN_BOTTOM = 0x8000;
inline constexpr uint32_t CBRS_ALIGN_ANY = 0xF000;

// One side as a small number; NT_NONE also stands for "mixed".
enum NeighbourType : uint32_t {
    NT_NONE = 0,
    NT_LEFT = 1,
    NT_RIGHT = 2,
    NT_TOP = 3,
    NT_BOTTOM = 4,
};

// The side of an alignment; every value other than the four sides gives NT_RIGHT.
VESK_API NeighbourType ImpAlignToNeighbourType(uint32_t align);
// The alignment of a side; every value other than right, top and bottom gives CBRS_ALIGN_LEFT.
VESK_API uint32_t ImpNeighbourTypeToAlign(NeighbourType type);
// The dump text of an alignment: "CBRS_ALIGN_LEFT", "CBRS_ALIGN_TOP " (with its blank), ...,
// "CBRS_NOALIGN" for 0 and "CBRS_??" for other values.
VESK_API SString ImpAlignStr(uint32_t align);
// The dump text of a contact: its enumerator's name, "NCT_??" for other values.
VESK_API SString ImpContactStr(NeighbourContactType contact);
// Whether an alignment is top or bottom, the sides whose length is a height.
inline bool ImpIsHorizontalAlign(uint32_t align)
{
    return align == CBRS_ALIGN_TOP || align == CBRS_ALIGN_BOTTOM;
}

// Longest name a stored neighbour or position may have.
inline constexpr int32_t DOCK_NAME_LIMIT = 60;

// A named neighbour of a docked pane: the side of the pane on which it lies and how the two
// touch. The name "GFS" denotes the free-space element, the frame's client area.
class VESK_API DockNeighbour {
public:
    // The default neighbour has an empty name, no side, no contact and neither flag.
    DockNeighbour(const SString& name = SString(), uint32_t align = CBRS_NOALIGN, NeighbourContactType contact = NCT_NONE,
                  bool holder = false, bool freeSpace = false);

    const SString& GetName() const { return m_sName; }
    // The side of this pane on which the neighbour lies.
    uint32_t GetAlign() const { return m_nAlign; }
    NeighbourContactType GetContact() const { return m_eContact; }
    // Whether the neighbour is a group of panes rather than one pane.
    bool IsHolder() const { return m_bHolder; }
    // Whether the neighbour is the free-space element.
    bool IsFreeSpace() const { return m_bFreeSpace; }
    // The size's height when the neighbour lies at the top or bottom, else its width.
    int32_t GetAlignSideLen(const TamSize& size) const;
    // "Output, Algn=CBRS_ALIGN_RIGHT, contact=NCT_EQUAL_SIDE, holder=0, freeSE=0".
    SString GetStr() const;

    // Reads one stored neighbour section; false when the name is longer than 60 bytes or cut
    // short, or the contact is 4 or more (the fields read until then stay set).
    bool ReadFromDataBuffer(DataBuffer& buffer);
    // Writes one neighbour section.
    ERRCODE WriteToDataBuffer(DataBuffer& buffer) const;

    bool operator==(const DockNeighbour& n) const;

private:
    SString m_sName;
    uint32_t m_nAlign;
    NeighbourContactType m_eContact;
    bool m_bHolder;
    bool m_bFreeSpace;
};

} // namespace vesk
