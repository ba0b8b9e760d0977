// A divider drag on a real X server with real input: the library runs on the X11 display here
// (the other tests of this program drive backends of their own), and the rectangles must be
// the ones the headless display gives for the same drag, i.e. the layout model's.
#include "docking/layout/LayoutModel.hpp"
#include "support/XServer.hpp"

#include <vesk/docking.hpp>
#include <vesk/frame.hpp>
#include <vesk/window.hpp>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <string>

namespace vesk::test {
namespace {

bool PumpUntil(const std::function<bool()>& done)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!done()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        PumpMessages();
    }
    return true;
}

TEST(DockDragX11, DividerDragGivesTheModelsRectangles)
{
    std::unique_ptr<XServer> server = XServer::Start();
    if (!server)
        GTEST_SKIP() << "Xvfb did not start";
    setenv("VESK_PLATFORM", "x11", 1);
    setenv("DISPLAY", server->Display().c_str(), 1);
    VeskInit();
    if (std::string(GetDisplayName()) != "x11") {
        VeskExit();
        GTEST_SKIP() << "the library's display was chosen before this test";
    }
    {
        CFrameWnd frame;
        ASSERT_TRUE(frame.CreateFrame("Dock", TamPoint(0, 0), TamSize(640, 480)));
        frame.ShowWindow(SW_SHOW);
        TamDockingManager manager(frame);
        TamDockablePane top, bottom;
        ASSERT_TRUE(top.Create(manager, "Top"));
        ASSERT_TRUE(bottom.Create(manager, "Bottom"));
        ASSERT_TRUE(manager.DockIntoParent(&top, CBRS_ALIGN_LEFT, 200, false));
        ASSERT_TRUE(manager.DockIntoPane(&bottom, &top, CBRS_ALIGN_BOTTOM, 200));
        ASSERT_TRUE(PumpUntil([&] { return manager.GetHost()->GetClientSize() == TamSize(640, 480); }));

        // The same layout and drag on the model alone: what the headless display shows.
        LayoutModel model(TamSize(640, 480), 96);
        model.AddBand(LayoutEdge::Left, "Top", 200, TamSize(40, 40), false);
        model.DockIntoPane("Bottom", "Top", LayoutEdge::Bottom, 200, TamSize(40, 40));
        ASSERT_EQ(manager.GetModel().GetSolution(), [&] {
            LayoutSolution s = model.GetSolution();
            for (size_t i = 0; i < s.panes.size(); ++i)
                s.panes[i].pPane = manager.GetModel().GetSolution().panes[i].pPane;
            for (size_t i = 0; i < s.dividers.size(); ++i)
                s.dividers[i].pSplit = manager.GetModel().GetSolution().dividers[i].pSplit;
            return s;
        }());

        TamPaneDivider* divider = manager.GetContainers()[0]->GetDivider();
        ASSERT_NE(divider, nullptr);
        const CRectangle bar = divider->GetCWnd()->GetWindowRect();
        const int x = bar.Left() + 50, y = bar.Top() + 2;
        const size_t index = divider->GetIndex();
        const int32_t from = model.GetSolution().dividers[index].rect.y;
        const int32_t topHeight = model.GetSolution().panes[0].rect.cy;
        auto xdo = [&](std::vector<std::string> args) {
            args.insert(args.begin(), "xdotool");
            return server->Run(args);
        };
        ASSERT_EQ(xdo({"mousemove", std::to_string(x), std::to_string(y)}), 0);
        ASSERT_EQ(xdo({"mousedown", "1"}), 0);
        ASSERT_TRUE(PumpUntil([&] { return manager.IsDragging(); }));
        ASSERT_EQ(xdo({"mousemove", std::to_string(x + 10), std::to_string(y + 20)}), 0);
        ASSERT_EQ(xdo({"mousemove", std::to_string(x + 10), std::to_string(y + 45)}), 0);
        ASSERT_EQ(xdo({"mouseup", "1"}), 0);
        ASSERT_TRUE(PumpUntil([&] { return !manager.IsDragging(); }));
        model.MoveDivider(index, from + 45);

        ASSERT_EQ(manager.GetPaneRects().size(), model.GetSolution().panes.size());
        for (size_t i = 0; i < model.GetSolution().panes.size(); ++i) {
            const LayoutRect& r = model.GetSolution().panes[i].rect;
            EXPECT_EQ(manager.GetPaneRects()[i].second, CRectangle(r.x, r.y, r.x + r.cx, r.y + r.cy));
        }
        EXPECT_EQ(top.GetCWnd()->GetClientSize().Height(), topHeight + 45);
        const CRectangle host = manager.GetHost()->GetWindowRect();
        const CRectangle b = bottom.GetCWnd()->GetWindowRect();
        EXPECT_EQ(CRectangle(b.Left() - host.Left(), b.Top() - host.Top(), b.Right() - host.Left(), b.Bottom() - host.Top()),
                  manager.GetPaneRects()[1].second);
        EXPECT_EQ(GlGetPWinMsgRouter()->GetHookCount(), 0u);
    }
    EXPECT_EQ(GetNativeWindowCount(), 0u);
    VeskExit();
}

} // namespace
} // namespace vesk::test
