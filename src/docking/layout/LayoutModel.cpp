// The model's edits. Each changes only the references it names and re-solves, so an edit and
// its inverse restore every other rectangle exactly.
#include "docking/layout/LayoutModel.hpp"

#include <algorithm>

namespace vesk {

namespace {

int32_t ClampLength(int32_t v)
{
    return std::clamp(v, 0, LAYOUT_MAX_LENGTH);
}

TamSize ClampSize(const TamSize& s)
{
    return TamSize(ClampLength(s.Width()), ClampLength(s.Height()));
}

} // namespace

LayoutPane::LayoutPane(LayoutModel& model, const SString& name, const TamSize& minSize96)
    : m_rModel(model), m_sName(name), m_aMinSize(ClampSize(minSize96))
{
}

void LayoutPane::SetSizeInContainer(int32_t length)
{
    m_rModel.SetExtent(m_sName, length);
}

int32_t LayoutNode::GetDepth() const
{
    int32_t depth = 0;
    for (const LayoutNode* p = m_pParent; p; p = p->m_pParent)
        ++depth;
    return depth;
}

DockablePane* LayoutNode::PaneOf(int i) const
{
    return m_aChild[i] ? m_aChild[i]->m_pPane.get() : nullptr;
}

DockPaneContainer* LayoutNode::ContainerOf(int i) const
{
    return m_aChild[i] && !m_aChild[i]->IsLeaf() ? m_aChild[i].get() : nullptr;
}

LayoutModel::LayoutModel(const TamSize& client, int32_t dpi) : m_aClient(client), m_nDpi(dpi)
{
    Refresh();
}

void LayoutModel::SetFrame(const TamSize& client, int32_t dpi)
{
    m_aClient = client;
    m_nDpi = dpi;
    Refresh();
}

void LayoutModel::SetOrigin(const TamPoint& origin)
{
    m_aOrigin = origin;
    Refresh();
}

void LayoutModel::Refresh()
{
    m_aSolution = Solve(m_aClient, m_nDpi);
    for (const LayoutPaneRect& p : m_aSolution.panes) {
        const int32_t left = m_aOrigin.x + p.rect.x;
        const int32_t top = m_aOrigin.y + p.rect.y;
        const_cast<LayoutPane*>(p.pPane)->m_aRect = CRectangle(left, top, left + p.rect.cx, top + p.rect.cy);
    }
}

LayoutPane* LayoutModel::FindPane(const SString& name) const
{
    const auto it = m_aNames.find(name);
    return it == m_aNames.end() ? nullptr : it->second;
}

bool LayoutModel::SetMinSize(const SString& name, const TamSize& minSize96)
{
    LayoutPane* pane = FindPane(name);
    if (!pane)
        return false;
    pane->m_aMinSize = ClampSize(minSize96);
    Refresh();
    return true;
}

std::unique_ptr<LayoutNode> LayoutModel::NewLeaf(const SString& name, const TamSize& minSize96)
{
    auto leaf = std::make_unique<LayoutNode>();
    leaf->m_pPane = std::make_unique<LayoutPane>(*this, name, minSize96);
    leaf->m_pPane->m_pNode = leaf.get();
    m_aNames[name] = leaf->m_pPane.get();
    return leaf;
}

LayoutPane* LayoutModel::AddBand(LayoutEdge edge, const SString& name, int32_t thickness, const TamSize& minSize96,
                                 bool outermost)
{
    if (name.Len() == 0 || FindPane(name))
        return nullptr;
    LayoutBand band;
    band.eEdge = edge;
    band.nThickness = std::clamp(thickness, 0, LayoutScale(LAYOUT_MAX_LENGTH, m_nDpi));
    band.nThicknessDpi = std::clamp(m_nDpi, LAYOUT_MIN_DPI, LAYOUT_MAX_DPI);
    band.pRoot = NewLeaf(name, minSize96);
    LayoutPane* pane = band.pRoot->GetPane();
    m_aBands.insert(outermost ? m_aBands.begin() : m_aBands.end(), std::move(band));
    Refresh();
    return pane;
}

LayoutPane* LayoutModel::DockIntoPane(const SString& name, const SString& target, LayoutEdge side, int32_t length,
                                      const TamSize& minSize96)
{
    LayoutPane* into = FindPane(target);
    if (!into || name.Len() == 0 || FindPane(name))
        return nullptr;
    const bool across = side == LayoutEdge::Left || side == LayoutEdge::Right;
    const CRectangle& r = into->m_aRect;
    const int32_t extent = across ? r.Right() - r.Left() : r.Bottom() - r.Top();
    const int32_t room = std::max(0, extent - LayoutDividerWidth(m_nDpi));
    const int32_t take = length <= 0 ? room / 2 : std::min(length, room);

    // The leaf becomes the split; the old pane moves to a new leaf beneath it.
    LayoutNode* split = into->m_pNode;
    auto old = std::make_unique<LayoutNode>();
    old->m_pPane = std::move(split->m_pPane);
    old->m_pPane->m_pNode = old.get();
    const int fresh = side == LayoutEdge::Left || side == LayoutEdge::Top ? 0 : 1;
    split->m_bSideBySide = across;
    split->m_aChild[fresh] = NewLeaf(name, minSize96);
    split->m_aChild[1 - fresh] = std::move(old);
    split->m_aWeight[fresh] = take;
    split->m_aWeight[1 - fresh] = room - take;
    for (auto& child : split->m_aChild)
        child->m_pParent = split;
    LayoutPane* pane = split->m_aChild[fresh]->GetPane();
    Refresh();
    return pane;
}

std::unique_ptr<LayoutNode>& LayoutModel::SlotOf(LayoutNode* node)
{
    if (LayoutNode* parent = node->m_pParent)
        return parent->m_aChild[parent->m_aChild[0].get() == node ? 0 : 1];
    return std::find_if(m_aBands.begin(), m_aBands.end(), [node](const LayoutBand& b) { return b.pRoot.get() == node; })
        ->pRoot;
}

bool LayoutModel::Remove(const SString& name)
{
    LayoutPane* pane = FindPane(name);
    if (!pane)
        return false;
    m_aNames.erase(name);
    LayoutNode* leaf = pane->m_pNode;
    if (LayoutNode* split = leaf->m_pParent) {
        std::unique_ptr<LayoutNode> sibling = std::move(split->m_aChild[split->m_aChild[0].get() == leaf ? 1 : 0]);
        sibling->m_pParent = split->m_pParent;
        SlotOf(split) = std::move(sibling);
    } else {
        std::erase_if(m_aBands, [leaf](const LayoutBand& b) { return b.pRoot.get() == leaf; });
    }
    Refresh();
    return true;
}

bool LayoutModel::PlaceDivider(LayoutDivider divider, int32_t pos)
{
    pos = std::clamp(pos, divider.nLow, divider.nHigh);
    if (LayoutNode* split = const_cast<LayoutNode*>(divider.pSplit)) {
        split->m_aWeight[0] = pos - divider.nStart;
        split->m_aWeight[1] = divider.nAvail - (pos - divider.nStart);
    } else {
        LayoutBand& band = m_aBands[divider.nBand];
        const bool far = band.eEdge == LayoutEdge::Right || band.eEdge == LayoutEdge::Bottom;
        band.nThickness = far ? divider.nStart + divider.nAvail - pos : pos - divider.nStart;
        band.nThicknessDpi = m_aSolution.nDpi;
    }
    Refresh();
    return true;
}

bool LayoutModel::MoveDivider(size_t index, int32_t pos)
{
    if (index >= m_aSolution.dividers.size())
        return false;
    const LayoutDivider divider = m_aSolution.dividers[index];
    return PlaceDivider(divider, pos);
}

bool LayoutModel::SetExtent(const SString& name, int32_t length)
{
    const LayoutPane* pane = FindPane(name);
    if (!pane)
        return false;
    const LayoutNode* leaf = pane->m_pNode;
    const LayoutNode* split = leaf->m_pParent;
    size_t band = 0;
    while (!split && m_aBands[band].pRoot.get() != leaf)
        ++band;
    for (const LayoutDivider& d : m_aSolution.dividers) {
        if (d.pSplit != split || (!split && d.nBand != band))
            continue;
        const bool near = split ? split->GetChild(0) == leaf
                                : m_aBands[band].eEdge == LayoutEdge::Left || m_aBands[band].eEdge == LayoutEdge::Top;
        const int64_t pos = near ? int64_t(d.nStart) + length : int64_t(d.nStart) + d.nAvail - length;
        return PlaceDivider(d, static_cast<int32_t>(std::clamp<int64_t>(pos, INT32_MIN, INT32_MAX)));
    }
    return false;
}

} // namespace vesk
