#include <vesk/docking/DockPosition.hpp>

#include <algorithm>
#include <array>

namespace vesk {

namespace {

template <typename Pred>
const DockNeighbour* FirstWhere(const std::vector<DockNeighbour>& neighbours, Pred pred)
{
    const auto it = std::find_if(neighbours.begin(), neighbours.end(), pred);
    return it == neighbours.end() ? nullptr : &*it;
}

// A pane neighbour: neither a holder nor the free-space element.
const DockNeighbour* FirstPlainWithContact(const std::vector<DockNeighbour>& neighbours, NeighbourContactType contact)
{
    return FirstWhere(neighbours, [contact](const DockNeighbour& n) {
        return n.GetContact() == contact && !n.IsHolder() && !n.IsFreeSpace();
    });
}

bool HasNeighbourAt(const std::vector<DockNeighbour>& neighbours, const SString& name, uint32_t align)
{
    return FirstWhere(neighbours, [&name, align](const DockNeighbour& n) {
               return n.GetName() == name && n.GetAlign() == align;
           }) != nullptr;
}

} // namespace

bool DockPosition::HasHolderNeighbour() const
{
    return GetHolderNeighbour() != nullptr;
}

bool DockPosition::IsMarginDock() const
{
    return m_nMarginAlign != CBRS_NOALIGN && !HasHolderNeighbour();
}

const DockNeighbour* DockPosition::GetHolderNeighbour() const
{
    return FirstWhere(m_aNeighbours, [](const DockNeighbour& n) { return n.IsHolder(); });
}

const DockNeighbour* DockPosition::GetTouchingNeighbour() const
{
    return FirstPlainWithContact(m_aNeighbours, NCT_TOUCHING_SIDE);
}

const DockNeighbour* DockPosition::GetJustifiedNeighbour() const
{
    return FirstPlainWithContact(m_aNeighbours, NCT_JUSTIFIED_SIDE);
}

const DockNeighbour* DockPosition::GetSideBySideNeighbour() const
{
    return FirstPlainWithContact(m_aNeighbours, NCT_EQUAL_SIDE);
}

const DockNeighbour* DockPosition::GetFreeSpaceDockNeighbour(NeighbourContactType contact) const
{
    return FirstWhere(m_aNeighbours,
                      [contact](const DockNeighbour& n) { return n.IsFreeSpace() && n.GetContact() == contact; });
}

bool DockPosition::IsFreeSpaceDock() const
{
    return GetFreeSpaceDockNeighbour(NCT_EQUAL_SIDE) != nullptr;
}

NeighbourType DockPosition::GetFreeSpaceNeighbourType() const
{
    const DockNeighbour* n = FirstWhere(m_aNeighbours, [](const DockNeighbour& d) { return d.IsFreeSpace(); });
    return n ? ImpAlignToNeighbourType(n->GetAlign()) : NT_RIGHT;
}

NeighbourType DockPosition::GetAllNeighbourType() const
{
    const uint32_t align = m_aNeighbours.empty() ? CBRS_NOALIGN : m_aNeighbours.front().GetAlign();
    // Neighbours without contact do not make the sides mixed.
    const bool mixed = std::any_of(m_aNeighbours.begin(), m_aNeighbours.end(), [align](const DockNeighbour& n) {
        return n.GetAlign() != align && n.GetContact() != NCT_NONE;
    });
    return mixed ? NT_NONE : ImpAlignToNeighbourType(align);
}

bool DockPosition::HasOrthogonalSideBySideNeighbour(const SString& name, NeighbourType type) const
{
    const size_t index = IndexOfNeighbour(name);
    if (type == NT_NONE || index == m_aNeighbours.size())
        return false;
    const uint32_t align = m_aNeighbours[index].GetAlign();
    if (type == NT_LEFT || type == NT_RIGHT)
        return align == CBRS_ALIGN_LEFT || align == CBRS_ALIGN_RIGHT;
    return ImpIsHorizontalAlign(align);
}

bool DockPosition::IsLeftOf(const SString& name) const
{
    return HasNeighbourAt(m_aNeighbours, name, CBRS_ALIGN_RIGHT);
}

bool DockPosition::IsTopOf(const SString& name) const
{
    return HasNeighbourAt(m_aNeighbours, name, CBRS_ALIGN_BOTTOM);
}

int32_t DockPosition::GetAlignSideLen() const
{
    return ImpIsHorizontalAlign(m_nMarginAlign) ? m_aSize.Height() : m_aSize.Width();
}

int32_t DockPosition::GetMarginSideLen(int32_t align) const
{
    if (!IsMarginDock())
        return 0;
    return ImpIsHorizontalAlign(static_cast<uint32_t>(align)) ? m_aSize.Height() : m_aSize.Width();
}

uint32_t DockPosition::CountJustified(const std::vector<DockNeighbour>& neighbours)
{
    return static_cast<uint32_t>(std::count_if(neighbours.begin(), neighbours.end(), [](const DockNeighbour& n) {
        return n.GetContact() == NCT_JUSTIFIED_SIDE;
    }));
}

void DockPosition::FillAlignedNeighbours(std::vector<DockNeighbour>& out, uint32_t& outAlign) const
{
    // The group order decides ties.
    const std::array<uint32_t, 4> sides = {CBRS_ALIGN_LEFT, CBRS_ALIGN_TOP, CBRS_ALIGN_RIGHT, CBRS_ALIGN_BOTTOM};
    std::array<std::vector<DockNeighbour>, 4> groups;
    for (const DockNeighbour& n : m_aNeighbours) {
        if (n.GetContact() != NCT_TOUCHING_SIDE && n.GetContact() != NCT_JUSTIFIED_SIDE)
            continue;
        const auto side = std::find(sides.begin(), sides.end(), n.GetAlign());
        if (side != sides.end())
            groups[size_t(side - sides.begin())].push_back(n);
    }
    size_t chosen = groups.size();
    for (size_t i = 0; i < groups.size(); ++i) {
        if (CountJustified(groups[i]) == 2 && (chosen == groups.size() || groups[i].size() > groups[chosen].size()))
            chosen = i;
    }
    if (chosen == groups.size())
        return;
    out = groups[chosen];
    outAlign = sides[chosen];
}

} // namespace vesk
