#pragma once

// Dock framework tests on the headless display: a frame with a docking manager and panes
// made on demand, and mouse input sent to the panes' and dividers' windows. The free helpers
// serve the layout-fidelity simulator too.
#include "window/WindowFixture.hpp"

#include "docking/layout/LayoutModel.hpp"

#include <vesk/docking.hpp>

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vesk {

inline void PrintTo(const CRectangle& r, std::ostream* os)
{
    *os << "(" << r.Left() << "," << r.Top() << ")-(" << r.Right() << "," << r.Bottom() << ")";
}

namespace test {

inline int32_t Width(const CRectangle& r) { return r.Right() - r.Left(); }
inline int32_t Height(const CRectangle& r) { return r.Bottom() - r.Top(); }

// Lets the queued messages of a docking change through (moves, then the repaints they cause).
inline void PumpDocking()
{
    for (int i = 0; i < 4; ++i)
        PumpMessages();
}

// A window's rectangle in the dock host's client coordinates.
inline CRectangle HostRectOf(const TamDockingManager& manager, const CWnd& wnd)
{
    const CRectangle host = manager.GetHost()->GetWindowRect();
    const CRectangle r = wnd.GetWindowRect();
    return CRectangle(r.Left() - host.Left(), r.Top() - host.Top(), r.Right() - host.Left(), r.Bottom() - host.Top());
}

// Whether two window rectangles share at least one pixel.
inline bool SharePixels(const CRectangle& a, const CRectangle& b)
{
    return std::min(a.Right(), b.Right()) > std::max(a.Left(), b.Left()) &&
           std::min(a.Bottom(), b.Bottom()) > std::max(a.Top(), b.Top());
}

// Pairs of rectangles that share pixels.
inline int32_t CountSharing(const std::vector<CRectangle>& rects)
{
    int32_t count = 0;
    for (size_t i = 0; i < rects.size(); ++i) {
        for (size_t j = i + 1; j < rects.size(); ++j)
            count += SharePixels(rects[i], rects[j]) ? 1 : 0;
    }
    return count;
}

// Press at `from` in `window`; then, as a server does while the host holds the pointer, moves
// to the host positions given and the release at the last one go to the host.
inline void DragInHost(const TamDockingManager& manager, NativeWindow window, TamPoint from,
                       const std::vector<TamPoint>& path)
{
    const NativeWindow host = manager.GetHost()->GetSafeHwnd();
    Headless().InjectMouseButton(window, display::MouseButton::Left, true, from.x, from.y);
    PumpDocking();
    for (const TamPoint& p : path) {
        Headless().InjectMouseMove(host, p.x, p.y);
        PumpDocking();
    }
    Headless().InjectMouseButton(host, display::MouseButton::Left, false, path.back().x, path.back().y);
    PumpDocking();
}

// A position never docked: no neighbours and no place, only a size.
inline DockPosition Unplaced(const TamSize& size)
{
    DockPosition pos;
    pos.PlaceNew(DOCK_ORIENT_HORZ, size);
    return pos;
}

// The dock-site factory the tests register.
inline TamDockSite* MakeSite()
{
    return new TamDockSite;
}

class DockFrameTest : public WindowTest {
protected:
    static constexpr int32_t kWidth = 800;
    static constexpr int32_t kHeight = 600;

    void SetUp() override
    {
        WindowTest::SetUp();
        frame = std::make_unique<CFrameWnd>();
        ASSERT_TRUE(frame->CreateFrame("Dock", TamPoint(50, 40), TamSize(kWidth, kHeight)));
        frame->ShowWindow(SW_SHOW);
        manager = std::make_unique<TamDockingManager>(*frame);
        Pump();
    }
    void TearDown() override
    {
        panes.clear();
        manager.reset();
        frame.reset();
        WindowTest::TearDown();
    }

    static void Pump() { PumpDocking(); }

    TamDockablePane* Pane(const char* name, TamSize minSize = TamSize(40, 40))
    {
        panes.push_back(std::make_unique<TamDockablePane>());
        EXPECT_TRUE(panes.back()->Create(*manager, name, minSize));
        return panes.back().get();
    }

    // A left band `width` wide holding `upper` over `lower`, the lower one `lowerHeight` tall.
    void DockStack(TamDockablePane* upper, TamDockablePane* lower, int32_t width, int32_t lowerHeight)
    {
        ASSERT_TRUE(manager->DockIntoParent(upper, CBRS_ALIGN_LEFT, width, false));
        ASSERT_TRUE(manager->DockIntoPane(lower, upper, CBRS_ALIGN_BOTTOM, lowerHeight));
        Pump();
    }

    CRectangle HostRect(const CWnd* wnd) const { return HostRectOf(*manager, *wnd); }
    CRectangle HostRect(const TamDockablePane* pane) const { return HostRect(pane->GetCWnd()); }

    // Every docked pane's window rectangle, in dock order.
    std::vector<CRectangle> Rects() const
    {
        std::vector<CRectangle> rects;
        for (const auto& [pane, r] : manager->GetPaneRects())
            rects.push_back(HostRect(pane));
        return rects;
    }
    // Every docked pane's window rectangle by pane: the same layout whatever the dock order.
    std::map<const TamDockablePane*, CRectangle> RectsByPane() const
    {
        std::map<const TamDockablePane*, CRectangle> rects;
        for (const auto& [pane, r] : manager->GetPaneRects())
            rects[pane] = HostRect(pane);
        return rects;
    }
    // What the solver gives, in dock order.
    std::vector<CRectangle> SolverRects() const
    {
        std::vector<CRectangle> rects;
        for (const auto& [pane, r] : manager->GetPaneRects())
            rects.push_back(r);
        return rects;
    }

    static display::HeadlessBackend& Display() { return Headless(); }
    static NativeWindow Handle(const TamDockablePane* pane) { return pane->GetHandle(); }

    NativeWindow HostHandle() const { return manager->GetHost()->GetSafeHwnd(); }

    void Drag(NativeWindow window, TamPoint from, const std::vector<TamPoint>& path) const
    {
        DragInHost(*manager, window, from, path);
    }

    std::unique_ptr<CFrameWnd> frame;
    std::unique_ptr<TamDockingManager> manager;
    std::vector<std::unique_ptr<TamDockablePane>> panes;
};

// A left band of 200 with Left over Below (240 tall), and a right band of 150.
class DockBandsTest : public DockFrameTest {
protected:
    void SetUp() override
    {
        DockFrameTest::SetUp();
        left = Pane("Left");
        right = Pane("Right");
        below = Pane("Below");
        DockStack(left, below, 200, 240);
        ASSERT_TRUE(manager->DockIntoParent(right, CBRS_ALIGN_RIGHT, 150, false));
        Pump();
    }

    TamDockablePane* left = nullptr;
    TamDockablePane* right = nullptr;
    TamDockablePane* below = nullptr;
};

} // namespace test
} // namespace vesk
