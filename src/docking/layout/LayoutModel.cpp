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
    return AddBandAt(edge, name, thickness, minSize96, outermost ? 0 : m_aBands.size());
}

LayoutPane* LayoutModel::AddBandAt(LayoutEdge edge, const SString& name, int32_t thickness, const TamSize& minSize96,
                                   size_t index)
{
    if (name.Len() == 0 || FindPane(name))
        return nullptr;
    LayoutBand band;
    band.eEdge = edge;
    band.nThickness = std::clamp(thickness, 0, LayoutScale(LAYOUT_MAX_LENGTH, m_nDpi));
    band.nThicknessDpi = std::clamp(m_nDpi, LAYOUT_MIN_DPI, LAYOUT_MAX_DPI);
    band.pRoot = NewLeaf(name, minSize96);
    LayoutPane* pane = band.pRoot->GetPane();
    m_aBands.insert(m_aBands.begin() + std::ptrdiff_t(std::min(index, m_aBands.size())), std::move(band));
    Refresh();
    return pane;
}

LayoutPane* LayoutModel::DockIntoPane(const SString& name, const SString& target, LayoutEdge side, int32_t length,
                                      const TamSize& minSize96)
{
    LayoutPane* into = FindPane(target);
    return into ? DockBeside(name, into->m_pNode, side, length, minSize96) : nullptr;
}

LayoutPane* LayoutModel::DockBeside(const SString& name, LayoutNode* node, LayoutEdge side, int32_t length,
                                    const TamSize& minSize96)
{
    if (!node || name.Len() == 0 || FindPane(name))
        return nullptr;
    const bool across = side == LayoutEdge::Left || side == LayoutEdge::Right;
    const CRectangle r = NodeRect(*node);
    const int32_t extent = across ? r.Right() - r.Left() : r.Bottom() - r.Top();
    const int32_t room = std::max(0, extent - LayoutDividerWidth(m_nDpi));
    const int32_t take = length <= 0 ? room / 2 : std::min(length, room);

    // A new split takes the node's place; the node moves beneath it beside the new leaf.
    std::unique_ptr<LayoutNode>& slot = SlotOf(node);
    auto split = std::make_unique<LayoutNode>();
    split->m_pParent = node->m_pParent;
    const int fresh = side == LayoutEdge::Left || side == LayoutEdge::Top ? 0 : 1;
    split->m_bSideBySide = across;
    split->m_aChild[fresh] = NewLeaf(name, minSize96);
    split->m_aChild[1 - fresh] = std::move(slot);
    split->m_aWeight[fresh] = take;
    split->m_aWeight[1 - fresh] = room - take;
    for (auto& child : split->m_aChild)
        child->m_pParent = split.get();
    LayoutPane* pane = split->m_aChild[fresh]->GetPane();
    slot = std::move(split);
    Refresh();
    return pane;
}

CRectangle LayoutModel::NodeRect(const LayoutNode& node)
{
    if (node.IsLeaf())
        return node.GetPane()->m_aRect;
    // The dividers inside lie between the leaves, so the leaves' bounds are the node's.
    const CRectangle a = NodeRect(*node.GetChild(0));
    const CRectangle b = NodeRect(*node.GetChild(1));
    return CRectangle(std::min(a.Left(), b.Left()), std::min(a.Top(), b.Top()), std::max(a.Right(), b.Right()),
                      std::max(a.Bottom(), b.Bottom()));
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
