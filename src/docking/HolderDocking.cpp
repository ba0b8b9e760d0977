// Docking a holder's panes again, finding panes in it, and dropping holders that lost a child.
//
// Docking reproduces the holder from its panes: the first docked pane of the holder stands for
// the whole holder; the first pane of its right part is docked into it on the holder's side
// with the right part's extent, so that the two panes cover the two parts; then each part is
// split the same way. Only splits of a pane's own room are needed, which is what both the
// docking manager and the layout model offer.
#include <vesk/docking/HolderElement.hpp>
#include <vesk/docking/PaneElement.hpp>

#include "docking/DockElement_p.hpp"

#include <deque>

namespace vesk {

namespace {

// The first docked pane element, left part first.
const DockPaneElement* FirstDockPane(const DockElement* el)
{
    if (!el)
        return nullptr;
    if (const auto* pane = dynamic_cast<const DockPaneElement*>(el))
        return pane;
    if (const auto* holder = dynamic_cast<const HolderElement*>(el)) {
        const DockPaneElement* first = FirstDockPane(holder->GetLeft());
        return first ? first : FirstDockPane(holder->GetRight());
    }
    return nullptr;
}

bool DockFirst(const DockPaneElement* pane, DockingTarget& target, DockNameSet& done, int32_t align, int32_t length)
{
    return const_cast<DockPaneElement*>(pane)->DockDepthFirst(target, done, align, length);
}

} // namespace

bool HolderElement::SplitOff(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length) const
{
    const DockPaneElement* left = FirstDockPane(m_pLeft.get());
    const DockPaneElement* right = FirstDockPane(m_pRight.get());
    if (!left || !right) {
        // One part docks nothing: the other stands for the whole holder.
        const DockPaneElement* only = left ? left : right;
        return !only || DockFirst(only, target, done, align, length);
    }
    if (!DockFirst(left, target, done, align, length))
        return false;
    const SString name = right->GetIdentifier();
    if (done.count(name))
        return true;
    const uint32_t side = IsHorizontal() ? CBRS_ALIGN_RIGHT : CBRS_ALIGN_BOTTOM;
    if (!right->GetPane() || !target.DockIntoPane(right->GetPane(), left->GetPane(), side, GetSideLenInPixel(m_pRight.get())))
        return false;
    done.insert(name);
    return true;
}

bool HolderElement::DockDepthFirst(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length)
{
    bool ok = SplitOff(target, done, align, length);
    for (DockElement* child : {m_pLeft.get(), m_pRight.get()}) {
        if (child)
            ok = child->DockDepthFirst(target, done, align, length) && ok;
    }
    return ok;
}

bool HolderElement::DockLeftMost(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length)
{
    bool ok = true;
    std::deque<DockElement*> level{this};
    while (!level.empty()) {
        DockElement* el = level.front();
        level.pop_front();
        if (auto* holder = dynamic_cast<HolderElement*>(el)) {
            ok = holder->SplitOff(target, done, align, length) && ok;
            for (DockElement* child : {holder->GetLeft(), holder->GetRight()}) {
                if (child)
                    level.push_back(child);
            }
        } else {
            ok = el->DockLeftMost(target, done, align, length) && ok;
        }
    }
    return ok;
}

const DockPaneElement* HolderElement::FindClosestDockPane(const DockNameSet& wanted, const DockNameSet& done) const
{
    std::deque<const DockElement*> level{this};
    while (!level.empty()) {
        const DockElement* el = level.front();
        level.pop_front();
        if (const auto* holder = dynamic_cast<const HolderElement*>(el)) {
            for (const DockElement* child : {holder->GetLeft(), holder->GetRight()}) {
                if (child)
                    level.push_back(child);
            }
        } else if (const DockPaneElement* found = el->FindClosestDockPane(wanted, done)) {
            return found;
        }
    }
    return nullptr;
}

DockElement* HolderElement::RemoveOrphanShells()
{
    for (std::unique_ptr<DockElement>* slot : {&m_pLeft, &m_pRight}) {
        if (!*slot)
            continue;
        DockElement* replacement = (*slot)->RemoveOrphanShells();
        if (replacement == slot->get())
            continue;
        // The child was a shell: it released its only child (or had none) and goes.
        *slot = std::unique_ptr<DockElement>(replacement);
        if (*slot)
            (*slot)->SetParent(this);
    }
    if (m_pLeft && m_pRight)
        return this;
    if (!m_pLeft && !m_pRight)
        return nullptr;
    return ReleaseChild(m_pLeft ? 0 : 1).release();
}

} // namespace vesk
