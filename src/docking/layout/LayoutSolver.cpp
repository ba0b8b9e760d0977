// The solver: every rectangle from the references, the client size and the resolution alone.
//
// Bands are cut from the client area in dock order, outermost first, each followed by its
// divider on the inner side; what is left is the free space. A band gets its thickness, at
// least its minimum, at most what leaves the bands inside it their minimums. A split shares its
// room, less one divider, by its weights, clamped so that both sides keep their minimums; when
// the two minimums do not fit, the room is shared in proportion to them. Nothing is ever
// derived from earlier rounded pixels, so the result depends on the arguments only.
#include "docking/layout/LayoutModel.hpp"

#include <algorithm>

namespace vesk {

int64_t LayoutMulDiv(int64_t v, int64_t num, int64_t den)
{
    if (den == 0)
        return 0;
    const int64_t p = v * num;
    const bool negative = (p < 0) != (den < 0);
    const int64_t a = p < 0 ? -p : p;
    const int64_t d = den < 0 ? -den : den;
    const int64_t q = (a + d / 2) / d;
    return negative ? -q : q;
}

namespace {

// 64-bit, so that sums of many large minimums cannot overflow.
struct MinPair {
    int64_t cx = 0;
    int64_t cy = 0;
};

// Minimum sizes of one node and of its two children, stored in pre-order.
struct NodeMins {
    MinPair self;
    MinPair child[2];
};

bool IsSideways(LayoutEdge edge)
{
    return edge == LayoutEdge::Left || edge == LayoutEdge::Right;
}

class Solver {
public:
    Solver(const LayoutModel& model, int32_t dpi)
        : m_rModel(model), m_nDpi(std::clamp(dpi, LAYOUT_MIN_DPI, LAYOUT_MAX_DPI)), m_nDivider(LayoutDividerWidth(m_nDpi))
    {
    }

    // Minimums of every band's tree, and the room each band must leave to the bands inside it.
    MinPair Prepare()
    {
        const size_t n = m_rModel.GetBandCount();
        m_aBandStart.resize(n);
        m_aInner.resize(n);
        std::vector<MinPair> roots(n);
        for (size_t k = 0; k < n; ++k) {
            m_aBandStart[k] = m_aMins.size();
            roots[k] = Mins(*m_rModel.GetBand(k).pRoot);
        }
        MinPair need;
        for (size_t k = n; k-- > 0;) {
            m_aInner[k] = need;
            if (IsSideways(m_rModel.GetBand(k).eEdge))
                need = MinPair{need.cx + m_nDivider + roots[k].cx, std::max(need.cy, roots[k].cy)};
            else
                need = MinPair{std::max(need.cx, roots[k].cx), need.cy + m_nDivider + roots[k].cy};
        }
        return need;
    }

    void Solve(const TamSize& client, LayoutSolution& out)
    {
        Prepare();
        out.client = LayoutRect{0, 0, std::max(0, client.Width()), std::max(0, client.Height())};
        out.nDpi = m_nDpi;
        LayoutRect rest = out.client;
        for (size_t k = 0; k < m_rModel.GetBandCount(); ++k)
            CutBand(k, rest, out);
        out.freeSpace = rest;
    }

private:
    MinPair Mins(const LayoutNode& node)
    {
        const size_t index = m_aMins.size();
        m_aMins.emplace_back();
        NodeMins m;
        if (node.IsLeaf()) {
            const TamSize& min = node.GetPane()->GetMinSize();
            m.self = MinPair{LayoutScale(min.Width(), m_nDpi), LayoutScale(min.Height(), m_nDpi)};
        } else {
            m.child[0] = Mins(*node.GetChild(0));
            m.child[1] = Mins(*node.GetChild(1));
            const MinPair& a = m.child[0];
            const MinPair& b = m.child[1];
            m.self = node.IsSideBySide() ? MinPair{a.cx + m_nDivider + b.cx, std::max(a.cy, b.cy)}
                                         : MinPair{std::max(a.cx, b.cx), a.cy + m_nDivider + b.cy};
        }
        m_aMins[index] = m;
        return m.self;
    }

    void CutBand(size_t k, LayoutRect& rest, LayoutSolution& out)
    {
        const LayoutBand& band = m_rModel.GetBand(k);
        const bool sideways = IsSideways(band.eEdge);
        const bool far = band.eEdge == LayoutEdge::Right || band.eEdge == LayoutEdge::Bottom;
        const MinPair& min = m_aMins[m_aBandStart[k]].self;
        const int32_t extent = sideways ? rest.cx : rest.cy;
        const int32_t divider = std::min(m_nDivider, extent);
        const int32_t room = extent - divider;
        const int32_t high = static_cast<int32_t>(std::max<int64_t>(0, room - (sideways ? m_aInner[k].cx : m_aInner[k].cy)));
        const int32_t low = static_cast<int32_t>(std::min<int64_t>(sideways ? min.cx : min.cy, high));
        const int64_t scaled = LayoutMulDiv(band.nThickness, m_nDpi, band.nThicknessDpi);
        const int32_t thickness = static_cast<int32_t>(std::clamp<int64_t>(scaled, low, high));

        LayoutDivider d;
        d.bVertical = sideways;
        d.nBand = k;
        d.nStart = sideways ? rest.x : rest.y;
        d.nAvail = room;
        // Left and top bands grow with their divider's position, right and bottom ones shrink.
        d.nLow = far ? d.nStart + room - high : d.nStart + low;
        d.nHigh = far ? d.nStart + room - low : d.nStart + high;
        const int32_t pos = far ? d.nStart + room - thickness : d.nStart + thickness;
        LayoutRect bandRect = rest;
        if (sideways) {
            d.rect = LayoutRect{pos, rest.y, divider, rest.cy};
            bandRect.cx = thickness;
            bandRect.x = far ? pos + divider : rest.x;
            rest.cx -= thickness + divider;
            rest.x = far ? rest.x : pos + divider;
        } else {
            d.rect = LayoutRect{rest.x, pos, rest.cx, divider};
            bandRect.cy = thickness;
            bandRect.y = far ? pos + divider : rest.y;
            rest.cy -= thickness + divider;
            rest.y = far ? rest.y : pos + divider;
        }
        out.dividers.push_back(d);
        size_t cursor = m_aBandStart[k];
        Place(*band.pRoot, bandRect, k, cursor, out);
    }

    // The left or upper part of a split's room.
    static int32_t Share(int32_t room, int64_t w0, int64_t w1, int64_t m0, int64_t m1)
    {
        if (room <= 0)
            return 0;
        const int64_t want = w0 + w1 > 0 ? LayoutMulDiv(room, w0, w0 + w1) : room / 2;
        if (m0 + m1 <= room)
            return static_cast<int32_t>(std::clamp<int64_t>(want, m0, room - m1));
        return static_cast<int32_t>(m0 + m1 > 0 ? LayoutMulDiv(room, m0, m0 + m1) : want);
    }

    void Place(const LayoutNode& node, const LayoutRect& rect, size_t band, size_t& cursor, LayoutSolution& out)
    {
        const NodeMins m = m_aMins[cursor++];
        if (node.IsLeaf()) {
            out.panes.push_back(LayoutPaneRect{node.GetPane(), rect});
            return;
        }
        const bool across = node.IsSideBySide();
        const int32_t length = across ? rect.cx : rect.cy;
        const int32_t divider = std::min(m_nDivider, length);
        const int32_t room = length - divider;
        const int64_t m0 = across ? m.child[0].cx : m.child[0].cy;
        const int64_t m1 = across ? m.child[1].cx : m.child[1].cy;
        const int32_t first = Share(room, node.GetWeight(0), node.GetWeight(1), m0, m1);
        const bool fits = m0 + m1 <= room;

        LayoutDivider d;
        d.bVertical = across;
        d.pSplit = &node;
        d.nBand = band;
        d.nStart = across ? rect.x : rect.y;
        d.nAvail = room;
        d.nLow = d.nStart + (fits ? static_cast<int32_t>(m0) : first);
        d.nHigh = d.nStart + (fits ? static_cast<int32_t>(room - m1) : first);
        LayoutRect a = rect;
        LayoutRect b = rect;
        if (across) {
            a.cx = first;
            d.rect = LayoutRect{rect.x + first, rect.y, divider, rect.cy};
            b.x = rect.x + first + divider;
            b.cx = room - first;
        } else {
            a.cy = first;
            d.rect = LayoutRect{rect.x, rect.y + first, rect.cx, divider};
            b.y = rect.y + first + divider;
            b.cy = room - first;
        }
        out.dividers.push_back(d);
        Place(*node.GetChild(0), a, band, cursor, out);
        Place(*node.GetChild(1), b, band, cursor, out);
    }

    const LayoutModel& m_rModel;
    int32_t m_nDpi;
    int32_t m_nDivider;
    std::vector<NodeMins> m_aMins;
    std::vector<size_t> m_aBandStart;
    std::vector<MinPair> m_aInner;
};

} // namespace

LayoutSolution LayoutModel::Solve(const TamSize& client, int32_t dpi) const
{
    LayoutSolution out;
    Solver(*this, dpi).Solve(client, out);
    return out;
}

TamSize LayoutModel::GetMinClientSize(int32_t dpi) const
{
    const MinPair need = Solver(*this, dpi).Prepare();
    return TamSize(static_cast<int32_t>(std::min<int64_t>(need.cx, INT32_MAX)),
                   static_cast<int32_t>(std::min<int64_t>(need.cy, INT32_MAX)));
}

} // namespace vesk
