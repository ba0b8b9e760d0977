// The stored form of the layout model's references.
//
// The band count, then per band (dock order) a section with its edge, thickness and the DPI of
// the thickness, followed by its tree in pre-order. Each node is a section of its own, written
// one after the other rather than nested, so that deep trees stay within the buffer's section
// depth: a kind byte (1 leaf, 0 split); a leaf holds the pane name and its minimum size at
// 96 DPI; a split holds whether its children lie side by side and its two 64-bit weights as
// low and high 32-bit halves. The split's children follow it.
#include "docking/layout/LayoutModel.hpp"
#include "docking/layout/LayoutRecord_p.hpp"

#include <vesk/docking/DataBuffer.hpp>

#include <algorithm>

namespace vesk {

namespace {

using namespace layout_record;

void WriteWeight(DataBuffer& buffer, int64_t w)
{
    const auto u = static_cast<uint64_t>(w);
    buffer.WriteUInt32(static_cast<uint32_t>(u));
    buffer.WriteUInt32(static_cast<uint32_t>(u >> 32));
}

bool ReadWeight(DataBuffer& buffer, int64_t& w)
{
    uint32_t lo = 0, hi = 0;
    if (!buffer.ReadUInt32(lo) || !buffer.ReadUInt32(hi))
        return false;
    w = static_cast<int64_t>((uint64_t(hi) << 32) | lo);
    // The model's own weights are pixel lengths; larger ones would overflow the solver.
    return w >= 0 && w <= INT32_MAX;
}

// The new thickness when `now` differs from `was` by more than a factor of two, else `t`.
int32_t FitThickness(int32_t t, int32_t was, int32_t now)
{
    if (was <= 0 || now <= 0 || (now <= 2 * int64_t(was) && 2 * int64_t(now) >= was))
        return t;
    return static_cast<int32_t>(std::min<int64_t>(LayoutMulDiv(t, now, was), INT32_MAX));
}

} // namespace

void LayoutModel::WriteBands(DataBuffer& buffer) const
{
    buffer.WriteUInt32(static_cast<uint32_t>(m_aBands.size()));
    for (const LayoutBand& band : m_aBands) {
        {
            LocalSizedWrite section(buffer);
            buffer.WriteUInt32(static_cast<uint32_t>(band.eEdge));
            buffer.WriteInt32(band.nThickness);
            buffer.WriteInt32(band.nThicknessDpi);
        }
        WriteNode(*band.pRoot, buffer);
    }
}

void LayoutModel::WriteNode(const LayoutNode& node, DataBuffer& buffer) const
{
    {
        LocalSizedWrite section(buffer);
        buffer.WriteByte(node.IsLeaf() ? 1 : 0);
        if (node.IsLeaf()) {
            buffer.WriteString(node.m_pPane->m_sName);
            buffer.WriteSize(node.m_pPane->m_aMinSize);
        } else {
            buffer.WriteByte(node.m_bSideBySide ? 1 : 0);
            WriteWeight(buffer, node.m_aWeight[0]);
            WriteWeight(buffer, node.m_aWeight[1]);
        }
    }
    if (!node.IsLeaf()) {
        WriteNode(*node.m_aChild[0], buffer);
        WriteNode(*node.m_aChild[1], buffer);
    }
}

bool LayoutModel::ReadBands(DataBuffer& buffer)
{
    m_aBands.clear();
    m_aNames.clear();
    uint32_t count = 0;
    bool ok = buffer.ReadUInt32(count) && count <= kMaxBands;
    int32_t budget = kMaxNodes;
    for (uint32_t k = 0; ok && k < count; ++k) {
        LayoutBand band;
        uint32_t edge = 0;
        {
            LocalSizedRead section(buffer);
            ok = section.IsOpen() && buffer.ReadUInt32(edge) && edge <= uint32_t(LayoutEdge::Bottom) &&
                 buffer.ReadInt32(band.nThickness) && buffer.ReadInt32(band.nThicknessDpi);
        }
        if (!ok)
            break;
        band.eEdge = static_cast<LayoutEdge>(edge);
        band.nThickness = std::clamp(band.nThickness, 0, LayoutScale(LAYOUT_MAX_LENGTH, LAYOUT_MAX_DPI));
        band.nThicknessDpi = std::clamp(band.nThicknessDpi, LAYOUT_MIN_DPI, LAYOUT_MAX_DPI);
        band.pRoot = ReadNode(buffer, 0, budget);
        ok = band.pRoot != nullptr;
        if (ok)
            m_aBands.push_back(std::move(band));
    }
    if (!ok) {
        m_aBands.clear();
        m_aNames.clear();
    }
    Refresh();
    return ok;
}

std::unique_ptr<LayoutNode> LayoutModel::ReadNode(DataBuffer& buffer, int32_t depth, int32_t& budget)
{
    if (depth > kMaxDepth || --budget < 0)
        return nullptr;
    std::unique_ptr<LayoutNode> node;
    {
        LocalSizedRead section(buffer);
        uint8_t leaf = 0;
        if (!section.IsOpen() || !buffer.ReadByte(leaf) || leaf > 1)
            return nullptr;
        if (leaf) {
            SString name;
            TamSize minSize;
            if (!buffer.ReadString(name, kMaxName) || name.Len() == 0 || FindPane(name) || !buffer.ReadSize(minSize))
                return nullptr;
            return NewLeaf(name, minSize);
        }
        node = std::make_unique<LayoutNode>();
        uint8_t sideBySide = 0;
        if (!buffer.ReadByte(sideBySide) || sideBySide > 1 || !ReadWeight(buffer, node->m_aWeight[0]) ||
            !ReadWeight(buffer, node->m_aWeight[1]))
            return nullptr;
        node->m_bSideBySide = sideBySide == 1;
    }
    for (auto& child : node->m_aChild) {
        child = ReadNode(buffer, depth + 1, budget);
        if (!child)
            return nullptr;
        child->m_pParent = node.get();
    }
    return node;
}

void LayoutModel::FitBands(const TamSize& from)
{
    for (LayoutBand& band : m_aBands) {
        const bool sideways = band.eEdge == LayoutEdge::Left || band.eEdge == LayoutEdge::Right;
        band.nThickness = sideways ? FitThickness(band.nThickness, from.Width(), m_aClient.Width())
                                   : FitThickness(band.nThickness, from.Height(), m_aClient.Height());
    }
    Refresh();
}

} // namespace vesk
