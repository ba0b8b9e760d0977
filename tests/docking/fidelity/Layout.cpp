#include "Layout.hpp"

#include <algorithm>

namespace vesk::fidelity {

namespace {

const uint32_t kSides[4] = {CBRS_ALIGN_LEFT, CBRS_ALIGN_TOP, CBRS_ALIGN_RIGHT, CBRS_ALIGN_BOTTOM};

bool Across(uint32_t align)
{
    return align == CBRS_ALIGN_LEFT || align == CBRS_ALIGN_RIGHT;
}

int32_t Extent(const CRectangle& r, uint32_t align)
{
    return Across(align) ? r.Right() - r.Left() : r.Bottom() - r.Top();
}

} // namespace

LayoutChoice ChooseLayout(Rng& rng)
{
    LayoutChoice c;
    const int32_t w = Uniform(rng, 640, 3840);
    const int32_t h = std::clamp(w * Uniform(rng, 50, 80) / 100, 480, 2160);
    c.client = TamSize(w, h);
    c.paneCount = Uniform(rng, 3, 12);
    return c;
}

bool BuildLayout(Session& session, int32_t paneCount, Rng& rng)
{
    TamDockingManager& manager = session.Manager();
    const TamSize client = session.ClientSize();
    std::vector<TamDockablePane*> docked;
    for (int32_t i = 0; i < paneCount; ++i) {
        const TamSize min(Uniform(rng, 24, 120), Uniform(rng, 24, 120));
        TamDockablePane* pane = session.AddPane("Pane" + std::to_string(i), min);
        if (!pane)
            return false;
        const uint32_t side = kSides[Uniform(rng, 0, 3)];
        if (docked.empty() || Uniform(rng, 0, 99) < 30) {
            // A band: up to a fifth of the frame across its axis.
            const int32_t axis = Across(side) ? client.Width() : client.Height();
            const int32_t min96 = Across(side) ? min.Width() : min.Height();
            const int32_t thickness = Uniform(rng, min96, std::max(min96, axis / 5));
            if (!manager.DockIntoParent(pane, side, thickness, Uniform(rng, 0, 99) < 30))
                return false;
        } else {
            // Into a pane: half of it, or a share of its extent on that side.
            TamDockablePane* target = docked[static_cast<size_t>(Uniform(rng, 0, static_cast<int32_t>(docked.size()) - 1))];
            const int32_t extent = Extent(session.HostRect(*target->GetCWnd()), side);
            const int32_t length = Uniform(rng, 0, 3) == 0 ? 0 : extent * Uniform(rng, 20, 70) / 100;
            if (!manager.DockIntoPane(pane, target, side, length))
                return false;
        }
        docked.push_back(pane);
    }
    Session::Pump();
    return true;
}

} // namespace vesk::fidelity
