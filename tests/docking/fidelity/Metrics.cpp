#include "Metrics.hpp"

#include "docking/DockFrameFixture.hpp"

#include <algorithm>
#include <cstdlib>

namespace vesk::fidelity {

int32_t Displacement(const CRectangle& a, const CRectangle& b)
{
    return std::max({std::abs(a.Left() - b.Left()), std::abs(a.Top() - b.Top()), std::abs(a.Right() - b.Right()),
                     std::abs(a.Bottom() - b.Bottom())});
}

namespace {

const PaneShot* Find(const Snapshot& shot, const std::string& name)
{
    for (const PaneShot& s : shot) {
        if (s.name == name)
            return &s;
    }
    return nullptr;
}

int32_t Between(const PaneShot& was, const PaneShot* now)
{
    if (!now || now->state != was.state)
        return kStateChanged;
    return Displacement(was.rect, now->rect);
}

} // namespace

Comparison Compare(const Snapshot& before, const Snapshot& after)
{
    Comparison c;
    for (const PaneShot& was : before) {
        if (was.state == PaneState::Hidden)
            continue;
        const int32_t d = Between(was, Find(after, was.name));
        c.displacements.push_back(d);
        c.maxDisplacement = std::max(c.maxDisplacement, d);
    }
    c.allWithin1 = c.maxDisplacement <= 1;
    return c;
}

int32_t PaneDisplacement(const Snapshot& before, const Snapshot& after, const std::string& name)
{
    const PaneShot* was = Find(before, name);
    return was ? Between(*was, Find(after, name)) : kStateChanged;
}

int32_t CountOverlaps(const Snapshot& shot, const std::vector<CRectangle>& bars)
{
    int32_t count = 0;
    for (size_t i = 0; i < shot.size(); ++i) {
        if (shot[i].state != PaneState::Docked)
            continue;
        for (size_t j = i + 1; j < shot.size(); ++j)
            count += shot[j].state == PaneState::Docked && test::SharePixels(shot[i].rect, shot[j].rect) ? 1 : 0;
        for (const CRectangle& bar : bars)
            count += test::SharePixels(shot[i].rect, bar) ? 1 : 0;
    }
    return count;
}

int32_t CountMinBroken(const Snapshot& shot, int32_t dpi)
{
    int32_t count = 0;
    for (const PaneShot& s : shot) {
        if (s.state == PaneState::Docked && (s.rect.Right() - s.rect.Left() < LayoutScale(s.minSize96.Width(), dpi) ||
                                             s.rect.Bottom() - s.rect.Top() < LayoutScale(s.minSize96.Height(), dpi)))
            ++count;
    }
    return count;
}

bool IsReachable(const CRectangle& rect, const std::vector<CRectangle>& screens, const TamSize& minVisible)
{
    // A frame smaller than that must show whole along that side.
    const int32_t needW = std::min(minVisible.Width(), rect.Right() - rect.Left());
    const int32_t needH = std::min(minVisible.Height(), rect.Bottom() - rect.Top());
    for (const CRectangle& s : screens) {
        const int32_t w = std::min(rect.Right(), s.Right()) - std::max(rect.Left(), s.Left());
        const int32_t h = std::min(rect.Bottom(), s.Bottom()) - std::max(rect.Top(), s.Top());
        if (w >= needW && h >= needH && w > 0 && h > 0)
            return true;
    }
    return false;
}

int32_t CountLost(const Snapshot& before, const Snapshot& after, const std::vector<CRectangle>& screens,
                  const TamSize& minVisible)
{
    int32_t lost = 0;
    for (const PaneShot& was : before) {
        if (was.state == PaneState::Hidden)
            continue;
        const PaneShot* now = Find(after, was.name);
        const bool kept = now && (now->state == PaneState::Docked ||
                                  (now->state == PaneState::Floating && IsReachable(now->rect, screens, minVisible)));
        lost += kept ? 0 : 1;
    }
    return lost;
}

int32_t Percentile(std::vector<int32_t> values, int32_t pct)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    // Nearest rank: the smallest value with at least pct% of the values at or below it.
    const size_t n = values.size();
    const size_t rank = std::max<size_t>(1, (static_cast<size_t>(pct) * n + 99) / 100);
    return values[std::min(rank, n) - 1];
}

PaneClass ClassifyPane(const TamDockingManager& manager, const TamDockablePane& pane)
{
    const LayoutPane* model = manager.GetModel().FindPane(pane.GetName());
    const LayoutNode* leaf = model ? model->GetNode() : nullptr;
    const LayoutNode* split = leaf ? leaf->GetParent() : nullptr;
    if (!split)
        return PaneClass::FillsBand;
    const LayoutNode* sibling = split->GetChild(split->GetChild(0) == leaf ? 1 : 0);
    return sibling->IsLeaf() ? PaneClass::SingleSibling : PaneClass::Other;
}

} // namespace vesk::fidelity
