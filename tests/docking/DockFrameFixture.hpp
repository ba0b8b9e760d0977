#pragma once

// Dock framework tests on the headless display: a frame with a docking manager and panes
// made on demand, and mouse input sent to the panes' and dividers' windows.
#include "window/WindowFixture.hpp"

#include "docking/layout/LayoutModel.hpp"

#include <vesk/docking.hpp>

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

    static void Pump()
    {
        for (int i = 0; i < 4; ++i)
            PumpMessages();
    }

    TamDockablePane* Pane(const char* name, TamSize minSize = TamSize(40, 40))
    {
        panes.push_back(std::make_unique<TamDockablePane>());
        EXPECT_TRUE(panes.back()->Create(*manager, name, minSize));
        return panes.back().get();
    }

    // The pane's window rectangle in the host's client coordinates.
    CRectangle HostRect(const CWnd* wnd) const
    {
        const CRectangle host = manager->GetHost()->GetWindowRect();
        const CRectangle r = wnd->GetWindowRect();
        return CRectangle(r.Left() - host.Left(), r.Top() - host.Top(), r.Right() - host.Left(),
                          r.Bottom() - host.Top());
    }
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

    // Press at `from` in `window`; then, as a server does while the host holds the pointer,
    // moves to the host positions given and the release at the last one go to the host.
    void Drag(NativeWindow window, TamPoint from, const std::vector<TamPoint>& path) const
    {
        Display().InjectMouseButton(window, display::MouseButton::Left, true, from.x, from.y);
        Pump();
        for (const TamPoint& p : path) {
            Display().InjectMouseMove(HostHandle(), p.x, p.y);
            Pump();
        }
        Display().InjectMouseButton(HostHandle(), display::MouseButton::Left, false, path.back().x, path.back().y);
        Pump();
    }

    std::unique_ptr<CFrameWnd> frame;
    std::unique_ptr<TamDockingManager> manager;
    std::vector<std::unique_ptr<TamDockablePane>> panes;
};

inline int32_t Width(const CRectangle& r) { return r.Right() - r.Left(); }
inline int32_t Height(const CRectangle& r) { return r.Bottom() - r.Top(); }

} // namespace test
} // namespace vesk
