#include "support/LinkProbe.hpp"
#include "window/WinMsgRouter_p.hpp"

#include <vesk/window.hpp>

#include <gtest/gtest.h>

#include <numeric>

using namespace vesk;
using Log = LinkProbe::Log;

namespace {

struct HookCall {
    int hook;
    NativeWindow window;
    uint32_t message;
    WParam wParam;
    LParam lParam;
    bool operator==(const HookCall&) const = default;
};
std::vector<HookCall> g_aHookCalls;
int g_nSwallowingHook = -1;

// Distinct hook functions, recording their calls; hook N swallows when it is g_nSwallowingHook.
template <int N>
int Hook(NativeWindow window, uint32_t message, WParam wParam, LParam lParam)
{
    g_aHookCalls.push_back({N, window, message, wParam, lParam});
    return N == g_nSwallowingHook;
}

template <int... N>
std::vector<WinProcHook> MakeHooks(std::integer_sequence<int, N...>)
{
    return {&Hook<N>...};
}

// Hook numbers called for one message.
std::vector<int> CalledHooks(const WinMsgRouter& router)
{
    g_aHookCalls.clear();
    router.CallWinProcHooks(nullptr, 15, 0, 0);
    std::vector<int> called;
    for (const HookCall& call : g_aHookCalls)
        called.push_back(call.hook);
    return called;
}

class WinMsgRouterTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ImpCreateWinMsgRouter();
        g_nSwallowingHook = -1;
    }
    void TearDown() override { ImpDestroyWinMsgRouter(); }
    WinMsgRouter& Router() { return *GlGetPWinMsgRouter(); }
};

} // namespace

TEST(WinMsgRouterLife, ExistsOnlyBetweenCreationAndDestruction)
{
    EXPECT_EQ(GlGetPWinMsgRouter(), nullptr);
    LinkProbe probe;
    GlAddOnKeyDownHdl(probe.GetLink()); // without a router: nothing happens
    GlPushKeyLinks();
    GlPopKeyLinks();
    GlPushWinProcHook(&Hook<0>);
    ImpCreateWinMsgRouter();
    WinMsgRouter* router = GlGetPWinMsgRouter();
    ASSERT_NE(router, nullptr);
    ImpCreateWinMsgRouter();
    EXPECT_EQ(GlGetPWinMsgRouter(), router);
    EXPECT_TRUE(router->GetKeyDownChain().IsEmpty());
    EXPECT_EQ(router->GetHookCount(), 0u);
    EXPECT_EQ(router->GetNextFocusWindow(), nullptr);
    ImpDestroyWinMsgRouter();
    EXPECT_EQ(GlGetPWinMsgRouter(), nullptr);
}

TEST_F(WinMsgRouterTest, HoldsTwentyHooksAndPullingKeepsTheOrder)
{
    const std::vector<WinProcHook> hooks = MakeHooks(std::make_integer_sequence<int, 21>());
    for (WinProcHook hook : hooks)
        GlPushWinProcHook(hook);
    GlPushWinProcHook(nullptr);
    EXPECT_EQ(Router().GetHookCount(), 20u);
    std::vector<int> expected(20);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(CalledHooks(Router()), expected);

    GlPullWinProcHook(hooks[0]);
    GlPullWinProcHook(hooks[20]); // never installed
    expected.erase(expected.begin());
    EXPECT_EQ(CalledHooks(Router()), expected);
    GlPushWinProcHook(hooks[5]); // a second occurrence: pulling removes the first one
    GlPullWinProcHook(hooks[5]);
    expected.erase(expected.begin() + 4);
    expected.push_back(5);
    EXPECT_EQ(CalledHooks(Router()), expected);
}

TEST_F(WinMsgRouterTest, TheFirstSwallowingHookEndsTheCalls)
{
    GlPushWinProcHook(&Hook<1>);
    GlPushWinProcHook(&Hook<2>);
    GlPushWinProcHook(&Hook<3>);
    g_aHookCalls.clear();
    const auto window = reinterpret_cast<NativeWindow>(uintptr_t{0x1234});
    EXPECT_FALSE(Router().CallWinProcHooks(window, 512, 1, -2));
    EXPECT_EQ(g_aHookCalls.back(), (HookCall{3, window, 512, 1, -2}));
    g_nSwallowingHook = 2;
    g_aHookCalls.clear();
    EXPECT_TRUE(Router().CallWinProcHooks(window, 256, 0, 0));
    EXPECT_EQ(g_aHookCalls.size(), 2u);
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
    EXPECT_TRUE(Router().GetKeyDownChain().IsEmpty());
    EXPECT_TRUE(Router().GetKeyUpChain().IsEmpty());
}

// A key handler that opens a modal part pushes the key links while its own chain is calling.
// The emptied chain is still the calling one, so it does not call the modal part's links until
// the handler returns; the outer call goes on with the restored links.
TEST_F(WinMsgRouterTest, KeyLinksMayBePushedAndPoppedFromAKeyHandler)
{
    LinkProbe p[2];
    LinkProbe modal;
    p[0].action = [&] {
        GlPushKeyLinks();
        GlAddOnKeyDownHdl(modal.GetLink());
        Log inner;
        Router().GetKeyDownChain().Call(&inner);
        EXPECT_TRUE(inner.empty());
        GlPopKeyLinks();
    };
    GlAddOnKeyDownHdl(p[0].GetLink());
    GlAddOnKeyDownHdl(p[1].GetLink());
    Log log;
    Router().GetKeyDownChain().Call(&log);
    EXPECT_EQ(log, (Log{&p[0], &p[1]}));
    log.clear();
    p[0].action = nullptr;
    Router().GetKeyDownChain().Call(&log);
    EXPECT_EQ(log, (Log{&p[0], &p[1]}));
}

TEST_F(WinMsgRouterTest, RemembersTheNextFocusWindow)
{
    const auto window = reinterpret_cast<NativeWindow>(uintptr_t{0x40});
    Router().SetNextFocusWindow(window);
    EXPECT_EQ(Router().GetNextFocusWindow(), window);
    Router().SetNextFocusWindow(nullptr);
    EXPECT_EQ(Router().GetNextFocusWindow(), nullptr);
}
