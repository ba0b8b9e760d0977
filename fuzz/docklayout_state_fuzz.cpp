// The docking manager's saved layout value read from arbitrary bytes on the headless display.
// Each input is loaded into a fresh manager holding a few arranged panes; afterwards every pane
// is in exactly one state, docked panes do not overlap, and a loaded layout saves and loads
// back to the same bytes.
#include "platform/display/headless/HeadlessBackend.hpp"

#include <vesk/docking.hpp>
#include <vesk/frame.hpp>
#include <vesk/window.hpp>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

using namespace vesk;

vesk::TamDockSite* MakeSite()
{
    return new TamDockSite;
}

void Check(bool ok, const char* what)
{
    if (!ok) {
        std::fprintf(stderr, "saved layout: %s\n", what);
        std::abort();
    }
}

bool Apart(const CRectangle& r, const CRectangle& s)
{
    return r.Right() <= s.Left() || s.Right() <= r.Left() || r.Bottom() <= s.Top() || s.Bottom() <= r.Top();
}

void CheckPanes(const TamDockingManager& manager)
{
    std::vector<TamDockablePane*> panes;
    manager.FillDockablePaneVec(panes);
    for (const TamDockablePane* p : panes)
        Check(p->IsDocked() + p->IsFloating() + p->IsAutoHidden() + p->IsHidden() == 1, "a pane in two states");
    const auto rects = manager.GetPaneRects();
    for (size_t i = 0; i < rects.size(); ++i) {
        Check(rects[i].first && rects[i].first->IsDocked(), "a docked leaf without a docked pane");
        for (size_t j = i + 1; j < rects.size(); ++j) {
            const bool empty = rects[i].second.Right() == rects[i].second.Left() ||
                               rects[i].second.Bottom() == rects[i].second.Top();
            Check(empty || Apart(rects[i].second, rects[j].second), "docked panes overlap");
        }
    }
}

CFrameWnd* g_pFrame = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    setenv("VESK_PLATFORM", "headless", 1);
    VeskInit();
    g_pFrame = new CFrameWnd; // one frame for the whole run: making it is the slow part
    Check(g_pFrame->CreateFrame("Dock", TamPoint(0, 0), TamSize(640, 480)), "frame not made");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    {
        TamDockingManager manager(*g_pFrame);
        TamDockSite* site = nullptr;
        manager.AddDockSite({CBRS_ALIGN_LEFT, &MakeSite}, &site);
        TamDockablePane a, b, c, d, e;
        a.Create(manager, "A");
        b.Create(manager, "B");
        c.Create(manager, "C");
        d.Create(manager, "D");
        e.Create(manager, "E");
        manager.DockIntoParent(&a, CBRS_ALIGN_LEFT, 150, false);
        manager.DockIntoPane(&b, &a, CBRS_ALIGN_BOTTOM, 100);
        manager.DockIntoParent(&c, CBRS_ALIGN_BOTTOM, 90, false);
        d.FloatAt(CRectangle(100, 100, 300, 250));

        if (manager.LoadLayout(std::span<const uint8_t>(data, size))) {
            CheckPanes(manager);
            const std::vector<uint8_t> once = manager.SaveLayout();
            Check(manager.LoadLayout(once), "a saved layout does not load");
            Check(manager.SaveLayout() == once, "a loaded layout saves other bytes");
        }
        CheckPanes(manager);
    }
    // Delivers what the windows left (paints of windows that are gone).
    PumpMessages();
    return 0;
}
