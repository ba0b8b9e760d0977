// Which element touches which, on what side and with what contact. All edge arithmetic is
// done in 64 bits: rectangles may hold the empty marker.
#include <vesk/docking/DockElement.hpp>
#include <vesk/docking/FreeSpaceElement.hpp>
#include <vesk/frame/VeskData.hpp>

#include "docking/DockElement_p.hpp"

#include <cstdlib>

namespace vesk {

namespace {

// Width of a pane divider at 96 DPI.
constexpr int32_t kDividerWidth96 = 5;
// Edges closer than this (after allowing for a divider) are adjacent.
constexpr int64_t kNear = 4;

int64_t Abs(int64_t v)
{
    return v < 0 ? -v : v;
}

} // namespace

int32_t DockElement::GetDividerWidth()
{
    const VeskData* data = GetPVeskData();
    const int32_t d = data ? data->ScaleX(kDividerWidth96) : kDividerWidth96;
    return d < 1 ? 1 : d;
}

uint32_t DockElement::GetNeighbourAlign(const CRectangle& elRect, const CRectangle& rect)
{
    const int64_t d = GetDividerWidth();
    if (Abs(int64_t(rect.Right()) + d - elRect.Left()) < kNear)
        return CBRS_ALIGN_RIGHT;
    if (Abs(int64_t(rect.Left()) - elRect.Right() - d) < kNear)
        return CBRS_ALIGN_LEFT;
    if (Abs(int64_t(rect.Bottom()) + d - elRect.Top()) < kNear)
        return CBRS_ALIGN_BOTTOM;
    if (Abs(int64_t(rect.Top()) - elRect.Bottom() - d) < kNear)
        return CBRS_ALIGN_TOP;
    return CBRS_NOALIGN;
}

uint32_t DockElement::GetNeighbourAlign(const DockElement* el, const CRectangle& rect)
{
    if (!el)
        return CBRS_NOALIGN;
    const CRectangle& e = el->GetRect();
    if (const uint32_t align = GetNeighbourAlign(e, rect))
        return align;
    // Not adjacent: the side follows from where the element lies.
    if (rect.Bottom() <= e.Top())
        return CBRS_ALIGN_BOTTOM;
    if (rect.Top() >= e.Bottom())
        return CBRS_ALIGN_TOP;
    if (rect.Left() >= e.Right())
        return CBRS_ALIGN_LEFT;
    if (rect.Right() > e.Left())
        return CBRS_NOALIGN;
    return CBRS_ALIGN_RIGHT;
}

NeighbourContactType DockElement::DetContactFromCoords(int32_t a1, int32_t b1, int32_t a2, int32_t b2, int32_t edgeA,
                                                       int32_t edgeB)
{
    if (Abs(int64_t(edgeA) - edgeB) > GetDividerWidth())
        return NCT_NONE;
    const int equal = (a1 == b1 ? 1 : 0) + (a2 == b2 ? 1 : 0);
    return equal == 2 ? NCT_EQUAL_SIDE : equal == 1 ? NCT_JUSTIFIED_SIDE : NCT_TOUCHING_SIDE;
}

NeighbourContactType DockElement::DetContactType(const DockElement* el, const DockElement* other)
{
    if (!el || !other)
        return NCT_NONE;
    const CRectangle& a = el->GetRect();
    const CRectangle& b = other->GetRect();
    switch (GetNeighbourAlign(el, b)) {
    case CBRS_ALIGN_LEFT:
        return DetContactFromCoords(a.Top(), b.Top(), a.Bottom(), b.Bottom(), a.Right(), b.Left());
    case CBRS_ALIGN_RIGHT:
        return DetContactFromCoords(a.Top(), b.Top(), a.Bottom(), b.Bottom(), a.Left(), b.Right());
    case CBRS_ALIGN_TOP:
        return DetContactFromCoords(a.Left(), b.Left(), a.Right(), b.Right(), a.Bottom(), b.Top());
    case CBRS_ALIGN_BOTTOM:
        return DetContactFromCoords(a.Left(), b.Left(), a.Right(), b.Right(), a.Top(), b.Bottom());
    default:
        return NCT_NONE;
    }
}

NeighbourType DockElement::DetNeighbourType(const CRectangle& a, const CRectangle& b)
{
    const int64_t w = int64_t(GetDividerWidth()) + 1;
    if (Abs(int64_t(b.Left()) - a.Right()) <= w)
        return NT_LEFT;
    if (Abs(int64_t(a.Left()) - b.Right()) <= w)
        return NT_RIGHT;
    if (Abs(int64_t(a.Bottom()) - b.Top()) <= w)
        return NT_TOP;
    if (Abs(int64_t(b.Bottom()) - a.Top()) <= w)
        return NT_BOTTOM;
    return NT_NONE;
}

NeighbourType DockElement::DetNeighbourType(const DockElement* a, const DockElement* b)
{
    return a && b ? DetNeighbourType(a->GetRect(), b->GetRect()) : NT_NONE;
}

NeighbourType DockElement::GetAlignedNeighbourType(const DockElement* a, const DockElement* b) const
{
    const NeighbourType type = DetNeighbourType(a, b);
    if (type == NT_NONE)
        return NT_NONE;
    const CRectangle& ra = a->GetRect();
    const CRectangle& rb = b->GetRect();
    const bool sideBySide = type == NT_LEFT || type == NT_RIGHT;
    const int64_t difference = sideBySide ? RectHeight(ra) - RectHeight(rb) : RectWidth(ra) - RectWidth(rb);
    return Abs(difference) < kNear ? type : NT_NONE;
}

int32_t DockElement::DetDirectionType(const DockElement* a, const DockElement* b)
{
    if (!a || !b)
        return 0;
    const TamPoint ca = a->GetRect().Center();
    const TamPoint cb = b->GetRect().Center();
    return Abs(int64_t(ca.x) - cb.x) < Abs(int64_t(ca.y) - cb.y) ? 2 : 1;
}

uint32_t DockElement::GetAlignOfType(NeighbourType type)
{
    return ImpNeighbourTypeToAlign(type);
}

uint32_t DockElement::InvertAlign(uint32_t align)
{
    switch (align) {
    case CBRS_ALIGN_LEFT:
        return CBRS_ALIGN_RIGHT;
    case CBRS_ALIGN_RIGHT:
        return CBRS_ALIGN_LEFT;
    case CBRS_ALIGN_TOP:
        return CBRS_ALIGN_BOTTOM;
    case CBRS_ALIGN_BOTTOM:
        return CBRS_ALIGN_TOP;
    default:
        return align;
    }
}

NeighbourType DockElement::InvertNeighbourType(NeighbourType type)
{
    switch (type) {
    case NT_LEFT:
        return NT_RIGHT;
    case NT_RIGHT:
        return NT_LEFT;
    case NT_TOP:
        return NT_BOTTOM;
    case NT_BOTTOM:
        return NT_TOP;
    default:
        return NT_NONE;
    }
}

NeighbourContactType DockElement::AddNeighbour(DockPosition& pos, const DockElement* nb, const DockElement* el,
                                               bool holder)
{
    if (!nb || !el || nb == el)
        return NCT_NONE;
    const uint32_t align = GetNeighbourAlign(nb, el->GetRect());
    if (align == CBRS_NOALIGN)
        return NCT_NONE;
    const NeighbourContactType contact = DetContactType(nb, el);
    pos.AddNeighbour(nb->GetTitle(), align, contact, holder, nb->GetType() == DET_FREE_SPACE);
    return contact;
}

bool DockElement::IsOuterThanEl(const FreeSpaceElement* fs, const DockElement* el, NeighbourType type) const
{
    if (!fs || !el)
        return false;
    const CRectangle& me = m_aRect;
    const CRectangle& e = el->GetRect();
    const CRectangle& f = fs->GetRect();
    // This element, then el, then the free space, in that order from the frame edge inwards.
    switch (type) {
    case NT_LEFT:
        return me.Left() <= e.Left() && e.Right() <= f.Left();
    case NT_RIGHT:
        return me.Right() >= e.Right() && e.Left() >= f.Right();
    case NT_TOP:
        return me.Top() <= e.Top() && e.Bottom() <= f.Top();
    case NT_BOTTOM:
        return me.Bottom() >= e.Bottom() && e.Top() >= f.Bottom();
    default:
        return false;
    }
}

NeighbourType DockElement::OuterSide(const DockElement* el, const DockElementVec& elements) const
{
    const NeighbourType type = DetNeighbourType(this, el);
    return type != NT_NONE && IsOuterThanEl(FindFreeSpaceElement(elements), el, type) ? type : NT_NONE;
}

} // namespace vesk
