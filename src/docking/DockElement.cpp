// The base element: numbering, copying, the dump text, relations and the searches over a tree.
#include <vesk/docking/DockElement.hpp>
#include <vesk/docking/HolderElement.hpp>
#include <vesk/docking/PaneElement.hpp>

#include "docking/DockElement_p.hpp"

#include <atomic>

namespace vesk {

namespace {

// Element numbers come from one process-wide counter.
std::atomic<int32_t> g_nElementCounter{0};

const char* SideSuffix(NeighbourType type)
{
    switch (type) {
    case NT_LEFT:
        return "-Left";
    case NT_RIGHT:
        return "-Right";
    case NT_TOP:
        return "-Top";
    case NT_BOTTOM:
        return "-Bottom";
    default:
        return "";
    }
}

} // namespace

DockElement::DockElement() : m_nNumber(g_nElementCounter.fetch_add(1) + 1) {}

DockElement::DockElement(const DockElement& e, bool copyRelations)
    : m_aRect(e.m_aRect), m_eNeighbourType(e.m_eNeighbourType), m_nNumber(e.m_nNumber), m_nDepth(e.m_nDepth),
      m_bPreferOuterDock(e.m_bPreferOuterDock)
{
    if (copyRelations) {
        for (const auto& relation : e.m_aRelations)
            m_aRelations.push_back(relation->Duplicate(false));
    }
}

DockElement::~DockElement() = default;

const DockElement* DockElement::Child(int i) const
{
    const auto* holder = dynamic_cast<const HolderElement*>(this);
    return holder ? (i == 0 ? holder->GetLeft() : holder->GetRight()) : nullptr;
}

DockElement* DockElement::Child(int i)
{
    return const_cast<DockElement*>(static_cast<const DockElement*>(this)->Child(i));
}

void DockElement::AddRelation(const DockElement* other, bool copyRelations)
{
    if (!other || IsFloating() || other->IsFloating())
        return;
    const NeighbourType type = DetNeighbourType(other, this);
    if (type == NT_NONE)
        return;
    std::unique_ptr<DockElement> copy = other->Duplicate(copyRelations);
    copy->m_eNeighbourType = type;
    if (AddNeighbour(copy))
        CalcRect();
}

bool DockElement::AddNeighbour(std::unique_ptr<DockElement>& other)
{
    if (!other || other->m_nDepth != m_nDepth)
        return false;
    for (const auto& relation : m_aRelations) {
        if (relation->m_nNumber == other->m_nNumber)
            return false;
    }
    m_aRelations.push_back(std::move(other));
    return true;
}

void DockElement::Dump() const {}

SString DockElement::GetStr() const
{
    SString text("'");
    text += GetTitle();
    text += "'";
    text += SideSuffix(m_eNeighbourType);
    text += SString::F(", nest=%d, Rect: ", m_nDepth);
    text += m_aRect.GetStr();
    return text;
}

void DockElement::ScaleChildsToFract() {}
void DockElement::ScaleRect(double, double) {}
void DockElement::RefreshRectStatic() {}
void DockElement::WindowToIndex(const Link&) {}
void DockElement::IndexToWindow(const Link&) {}
void DockElement::CalcRect() {}
void DockElement::PostDock() {}

bool DockElement::Float()
{
    return false;
}

bool DockElement::IsFloating() const
{
    return false;
}

bool DockElement::CanMerge() const
{
    return true;
}

bool DockElement::IsHidden() const
{
    return false;
}

NeighbourType DockElement::CheckIfOuterNeighbourOfEl(const DockElement*, const DockElementVec&) const
{
    return NT_NONE;
}

void DockElement::SetNDepth(int32_t depth)
{
    m_nDepth = depth;
}

void DockElement::SetPreferOuterDock(bool prefer)
{
    m_bPreferOuterDock = prefer;
}

DockElement* DockElement::RemoveOrphanShells()
{
    return this;
}

bool DockElement::IsRectEqualTo(const DockElement* el) const
{
    return el && m_aRect == el->m_aRect;
}

int32_t DockElement::GetWindowIndex() const
{
    const auto* pane = dynamic_cast<const PaneElement*>(this);
    return pane ? pane->GetIndex() : -1;
}

const DockElement* DockElement::FindElementOfPane(const DockablePane* pane) const
{
    const auto* self = dynamic_cast<const PaneElement*>(this);
    if (pane && self && self->GetPane() == pane)
        return this;
    for (int i = 0; i < 2; ++i) {
        if (const DockElement* child = Child(i); const DockElement* found = child ? child->FindElementOfPane(pane) : nullptr)
            return found;
    }
    return nullptr;
}

bool DockElement::CheckPaneExists(const DockablePane* pane) const
{
    return FindElementOfPane(pane) != nullptr;
}

const DockElement* DockElement::FindNeighbourInHolder(const DockPaneElement* el) const
{
    const DockElement* left = Child(0);
    const DockElement* right = Child(1);
    if (el && left == el)
        return right;
    if (el && right == el)
        return left;
    for (const DockElement* child : {left, right}) {
        if (const DockElement* found = child ? child->FindNeighbourInHolder(el) : nullptr)
            return found;
    }
    return nullptr;
}

int32_t DockElement::GetDepthForPane(const DockablePane* pane) const
{
    const auto* self = dynamic_cast<const PaneElement*>(this);
    if (self)
        return pane && self->GetPane() == pane ? 0 : -1;
    for (int i = 0; i < 2; ++i) {
        const int32_t depth = Child(i) ? Child(i)->GetDepthForPane(pane) : -1;
        if (depth >= 0)
            return depth + 1;
    }
    return -1;
}

void DockElement::FillPaneVec(DockablePaneVec& out) const
{
    if (const auto* self = dynamic_cast<const PaneElement*>(this); self && self->GetPane())
        out.push_back(self->GetPane());
    for (int i = 0; i < 2; ++i) {
        if (Child(i))
            Child(i)->FillPaneVec(out);
    }
}

int32_t DockElement::CountWindows(const DockNameSet& skip) const
{
    int32_t count = 0;
    if (const auto* self = dynamic_cast<const PaneElement*>(this); self && self->GetPane())
        count += skip.count(self->GetPane()->GetName()) == 0 ? 1 : 0;
    for (int i = 0; i < 2; ++i)
        count += Child(i) ? Child(i)->CountWindows(skip) : 0;
    return count;
}

void DockElement::FillDockPaneElementVec(DockPaneElementVec& out, const DockNameSet& skip) const
{
    if (const auto* self = dynamic_cast<const DockPaneElement*>(this); self && skip.count(self->GetIdentifier()) == 0)
        out.push_back(self);
    for (int i = 0; i < 2; ++i) {
        if (Child(i))
            Child(i)->FillDockPaneElementVec(out, skip);
    }
}

void DockElement::NotifyOfAutoHidePane(const DockablePane* pane)
{
    if (auto* self = dynamic_cast<DockPaneElement*>(this); self && pane && self->GetPane() == pane)
        self->SetAutoHide(true);
    for (int i = 0; i < 2; ++i) {
        if (Child(i))
            Child(i)->NotifyOfAutoHidePane(pane);
    }
}

void DockElement::CollectAutoHidePanes(const DockNameSet& skip, DockablePaneVec& out) const
{
    DockPaneElementVec docked;
    FillDockPaneElementVec(docked, skip);
    for (const DockPaneElement* el : docked) {
        if (el->IsAutoHide() && el->GetPane())
            out.push_back(el->GetPane());
    }
}

bool DockElement::FindHighestDockFreeRect(const DockNameSet& wanted, const DockNameSet& done, CRectangle& rect) const
{
    DockPaneElementVec docked;
    FillDockPaneElementVec(docked, DockNameSet());
    const DockPaneElement* best = nullptr;
    for (const DockPaneElement* el : docked) {
        if (!IsWantedName(wanted, done, el->GetIdentifier()))
            continue;
        const CRectangle& r = el->GetRect();
        if (!best || r.Top() < best->GetRect().Top() ||
            (r.Top() == best->GetRect().Top() && r.Left() < best->GetRect().Left()))
            best = el;
    }
    if (best)
        rect = best->GetRect();
    return best != nullptr;
}

} // namespace vesk
