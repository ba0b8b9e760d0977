// Operations on the top-level elements of a layout: the band trees, floating and hidden panes
// and the free space.
#include <vesk/docking/DockElement.hpp>
#include <vesk/docking/FreeSpaceElement.hpp>
#include <vesk/docking/HolderElement.hpp>
#include <vesk/docking/PaneElement.hpp>

#include "docking/DockElement_p.hpp"

#include <algorithm>

namespace vesk {

namespace {

int32_t Clamp32(int64_t v)
{
    return static_cast<int32_t>(std::clamp<int64_t>(v, INT32_MIN, INT32_MAX));
}

// The docked element of `pane` in any of the trees.
const DockPaneElement* FindDocked(const DockElementVec& elements, const DockablePane* pane)
{
    for (const auto& top : elements) {
        if (const auto* el = dynamic_cast<const DockPaneElement*>(top->FindElementOfPane(pane)))
            return el;
    }
    return nullptr;
}

// Whether `nb`, adjacent to `r` on side `align`, shares a piece of that side with it rather
// than touching it at a corner only.
bool SharesSide(const CRectangle& nb, const CRectangle& r, uint32_t align)
{
    if (align == CBRS_NOALIGN)
        return false;
    if (ImpIsHorizontalAlign(align))
        return std::max(nb.Left(), r.Left()) < std::min(nb.Right(), r.Right());
    return std::max(nb.Top(), r.Top()) < std::min(nb.Bottom(), r.Bottom());
}

} // namespace

FreeSpaceElement* DockElement::FindFreeSpaceElement(const DockElementVec& elements)
{
    for (const auto& el : elements) {
        if (auto* fs = dynamic_cast<FreeSpaceElement*>(el.get()))
            return fs;
    }
    return nullptr;
}

void DockElement::ExtractDockablePanes(const DockElementVec& elements, DockablePaneVec& out)
{
    DockPaneElementVec docked;
    for (const auto& el : elements)
        el->FillDockPaneElementVec(docked, DockNameSet());
    for (const DockPaneElement* el : docked) {
        if (el->GetPane())
            out.push_back(el->GetPane());
    }
}

void DockElement::ClearDockElements(DockElementVec& elements)
{
    elements.clear();
}

bool DockElement::Delete(DockElementVec& elements, const DockElement* el)
{
    const auto it = std::find_if(elements.begin(), elements.end(), [el](const auto& e) { return e.get() == el; });
    if (it == elements.end())
        return false;
    elements.erase(it);
    return true;
}

void DockElement::FillDockPosition(const DockElementVec& elements, const DockablePane* pane, DockPosition& pos)
{
    const DockPaneElement* el = pane ? FindDocked(elements, pane) : nullptr;
    if (!el)
        return;
    const CRectangle& r = el->GetRect();
    pos.SetName(pane->GetName());
    pos.SetSize(TamSize(Clamp32(RectWidth(r)), Clamp32(RectHeight(r))));
    pos.SetPos(r.TopLeft());
    pos.ClearNeighbours();
    pos.SetMarginAlign(CBRS_NOALIGN);
    pos.SetIsFloating(false);

    const FreeSpaceElement* fs = FindFreeSpaceElement(elements);
    const DockElement* sibling = nullptr;
    if (const auto* holder = dynamic_cast<const HolderElement*>(el->GetParent())) {
        // The pane shares a holder: it goes back by splitting its sibling again. The sibling
        // is named by its pane nearest this one (itself when it is a pane), as the first
        // neighbour with the holder flag; docking beside that pane's enclosing split that
        // gives this pane its recorded rectangle again restores a split sibling too.
        const bool first = holder->GetLeft() == el;
        const DockElement* sib = first ? holder->GetRight() : holder->GetLeft();
        while (const auto* h = dynamic_cast<const HolderElement*>(sib)) {
            const DockElement* near = first ? h->GetLeft() : h->GetRight();
            sib = near ? near : (first ? h->GetRight() : h->GetLeft());
        }
        if (sib && sib->GetType() == DET_DOCK_PANE) {
            AddNeighbour(pos, sib, el, true);
            sibling = sib;
        }
    } else if (fs) {
        // A band of its own: docked at the frame edge facing away from the free space. Its
        // rank among the bands is kept by the recorded rectangle: the band goes back at the
        // rank that gives it that rectangle again.
        pos.SetMarginAlign(InvertAlign(GetNeighbourAlign(fs, r)));
    }
    // Every pane and the free space that shares a piece of side with it, up to what a stored
    // position may hold.
    DockPaneElementVec docked;
    for (const auto& top : elements)
        top->FillDockPaneElementVec(docked, DockNameSet());
    for (const DockPaneElement* nb : docked) {
        if (pos.GetNeighbourVec().size() >= DOCK_NEIGHBOUR_LIMIT)
            return;
        if (nb != el && nb != sibling && SharesSide(nb->GetRect(), r, GetNeighbourAlign(nb->GetRect(), r)))
            AddNeighbour(pos, nb, el, false);
    }
    if (fs && pos.GetNeighbourVec().size() < DOCK_NEIGHBOUR_LIMIT &&
        SharesSide(fs->GetRect(), r, GetNeighbourAlign(fs->GetRect(), r)))
        AddNeighbour(pos, fs, el, false);
}

void DockElement::DetNeighboursFromRects(DockElementVec& elements)
{
    for (const auto& el : elements) {
        for (const auto& other : elements) {
            if (other != el)
                el->AddRelation(other.get(), false);
        }
    }
}

int32_t DockElement::PutRowIntoHolders(DockElementVec& elements)
{
    int32_t made = 0;
    for (bool joined = true; joined;) {
        joined = false;
        for (size_t i = 0; i < elements.size() && !joined; ++i) {
            for (size_t j = 0; j < elements.size() && !joined; ++j) {
                DockElement* a = elements[i].get();
                DockElement* b = elements[j].get();
                if (i == j || !a->CanMerge() || !b->CanMerge())
                    continue;
                // Side by side with the same edges: a lies left of (or above) b.
                const NeighbourType type = a->GetAlignedNeighbourType(a, b);
                const bool row = (type == NT_LEFT && a->GetRect().Top() == b->GetRect().Top()) ||
                                 (type == NT_TOP && a->GetRect().Left() == b->GetRect().Left());
                if (!row)
                    continue;
                const int32_t depth = a->GetNDepth();
                auto holder = std::make_unique<HolderElement>(std::move(elements[i]), std::move(elements[j]), depth);
                elements[i] = std::move(holder);
                elements.erase(elements.begin() + std::ptrdiff_t(j));
                joined = true;
                ++made;
            }
        }
    }
    return made;
}

} // namespace vesk
