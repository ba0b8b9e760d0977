#include "support/ConfigHomeGuard.hpp"
#include "support/LinkProbe.hpp"

#include <vesk/frame.hpp>
#include <vesk/window.hpp>

#include <gtest/gtest.h>

using namespace vesk;
using Log = LinkProbe::Log;

namespace {

std::vector<int> g_aCalledHooks;
int g_nSwallowingHook = -1;

// Distinct hook functions recording their number; hook N swallows when it is g_nSwallowingHook.
// Hook 1 also checks that the message arrives unchanged.
template <int N>
int Hook(NativeWindow window, uint32_t message, WParam wParam, LParam lParam)
{
    g_aCalledHooks.push_back(N);
    if (N == 1) {
        EXPECT_TRUE(reinterpret_cast<uintptr_t>(window) == 0x40 && message == 512 && wParam == 1 && lParam == -2);
    }
    return N == g_nSwallowingHook;
}

template <int... N>
std::vector<WinProcHook> MakeHooks(std::integer_sequence<int, N...>)
{
    return {&Hook<N>...};
}

class WinMsgRouterTest : public ::testing::Test {
protected:
    void SetUp() override { VeskInit(); }
    void TearDown() override { VeskExit(); }
    WinMsgRouter& Router() { return *GlGetPWinMsgRouter(); }
    std::vector<int> CalledHooks(int swallowing = -1)
    {
        g_aCalledHooks.clear();
        g_nSwallowingHook = swallowing;
        const bool swallowed = Router().CallWinProcHooks(reinterpret_cast<NativeWindow>(uintptr_t{0x40}), 512, 1, -2);
        EXPECT_EQ(swallowed, swallowing >= 0);
        return g_aCalledHooks;
    }
};

} // namespace

TEST(WinMsgRouterLife, ExistsOnlyWhileTheLibraryRuns)
{
    vesk::test::ConfigHomeGuard config;
    EXPECT_EQ(GlGetPWinMsgRouter(), nullptr);
    LinkProbe probe;
    GlAddOnKeyDownHdl(probe.GetLink()); // without a router nothing happens
    GlPushKeyLinks();
    GlPushWinProcHook(&Hook<0>);
    VeskInit();
    WinMsgRouter* router = GlGetPWinMsgRouter();
    ASSERT_NE(router, nullptr);
    VeskInit(); // a second start keeps the state and its router
    EXPECT_EQ(GlGetPWinMsgRouter(), router);
    EXPECT_TRUE(router->GetKeyDownChain().IsEmpty());
    EXPECT_EQ(router->GetHookCount(), 0u);
    const auto window = reinterpret_cast<NativeWindow>(uintptr_t{0x40});
    router->SetNextFocusWindow(window);
    EXPECT_EQ(router->GetNextFocusWindow(), window);
    VeskExit();
    EXPECT_EQ(GlGetPWinMsgRouter(), nullptr);
}

TEST_F(WinMsgRouterTest, HoldsTwentyHooksAndTheFirstSwallowingOneEndsTheCalls)
{
    const std::vector<WinProcHook> hooks = MakeHooks(std::make_integer_sequence<int, 21>());
    for (WinProcHook hook : hooks)
        GlPushWinProcHook(hook);
    GlPushWinProcHook(nullptr);
    EXPECT_EQ(Router().GetHookCount(), 20u);
    std::vector<int> expected;
    for (int i = 0; i < 20; ++i)
        expected.push_back(i);
    EXPECT_EQ(CalledHooks(), expected);
    EXPECT_EQ(CalledHooks(2), (std::vector<int>{0, 1, 2}));

    GlPullWinProcHook(hooks[0]);
    GlPullWinProcHook(hooks[20]); // never installed
    GlPushWinProcHook(hooks[5]);  // a second occurrence: pulling removes the first one
    GlPullWinProcHook(hooks[5]);
    expected.erase(expected.begin() + 5);
    expected.erase(expected.begin());
    expected.push_back(5);
    EXPECT_EQ(CalledHooks(), expected);
}

TEST_F(WinMsgRouterTest, KeyLinksArePushedAndPoppedAsPairs)
{
    LinkProbe p[3];
    GlAddOnKeyDownHdl(p[0].GetLink());
    GlAddOnKeyUpHdl(p[1].GetLink());
    GlPushKeyLinks();
    EXPECT_TRUE(Router().GetKeyDownChain().IsEmpty());
    EXPECT_TRUE(Router().GetKeyUpChain().IsEmpty());
    GlAddOnKeyDownHdl(p[2].GetLink());
    GlPushKeyLinks();
    GlPopKeyLinks();
    Log log;
    Router().GetKeyDownChain().Call(&log);
    EXPECT_EQ(log, (Log{&p[2]}));
    GlPopKeyLinks();
    GlPopKeyLinks(); // empty stacks: nothing changes
    log.clear();
    Router().GetKeyDownChain().Call(&log);
    Router().GetKeyUpChain().Call(&log);
    EXPECT_EQ(log, (Log{&p[0], &p[1]}));
    GlRemoveOnKeyDownHdl(p[0].GetLink());
    GlRemoveOnKeyUpHdl(p[1].GetLink());
    EXPECT_TRUE(Router().GetKeyDownChain().IsEmpty() && Router().GetKeyUpChain().IsEmpty());
}
