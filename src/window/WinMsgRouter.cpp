#include "window/WinMsgRouter_p.hpp"

#include <vesk/window/WinMsgRouter.hpp>

#include <algorithm>

namespace vesk {

namespace {

WinMsgRouter* g_pWinMsgRouter = nullptr;

} // namespace

void ImpCreateWinMsgRouter()
{
    if (!g_pWinMsgRouter)
        g_pWinMsgRouter = new WinMsgRouter;
}

void ImpDestroyWinMsgRouter()
{
    delete g_pWinMsgRouter;
    g_pWinMsgRouter = nullptr;
}

WinMsgRouter* GlGetPWinMsgRouter()
{
    return g_pWinMsgRouter;
}

void WinMsgRouter::PushWinProcHook(WinProcHook hook)
{
    if (hook && m_nHookCount < WINMSGROUTER_MAXHOOKS)
        m_aHooks[m_nHookCount++] = hook;
}

void WinMsgRouter::PullWinProcHook(WinProcHook hook)
{
    const auto end = m_aHooks.begin() + m_nHookCount;
    const auto found = std::find(m_aHooks.begin(), end, hook);
    if (found == end)
        return;
    std::copy(found + 1, end, found);
    m_aHooks[--m_nHookCount] = nullptr;
}

// Reads the live array, so a hook pulled by an earlier one is not called.
bool WinMsgRouter::CallWinProcHooks(NativeWindow window, uint32_t message, WParam wParam, LParam lParam) const
{
    for (uint32_t i = 0; i < m_nHookCount; ++i) {
        if (m_aHooks[i](window, message, wParam, lParam))
            return true;
    }
    return false;
}

void WinMsgRouter::PushKeyLinks()
{
    m_aKeyUpStack.push_back(m_aKeyUpChain);
    m_aKeyDownStack.push_back(m_aKeyDownChain);
    m_aKeyDownChain.Clear();
    m_aKeyUpChain.Clear();
}

void WinMsgRouter::PopKeyLinks()
{
    if (!m_aKeyDownStack.empty()) {
        m_aKeyDownChain = std::move(m_aKeyDownStack.back());
        m_aKeyDownStack.pop_back();
    }
    if (!m_aKeyUpStack.empty()) {
        m_aKeyUpChain = std::move(m_aKeyUpStack.back());
        m_aKeyUpStack.pop_back();
    }
}

void GlPushWinProcHook(WinProcHook hook)
{
    if (WinMsgRouter* router = GlGetPWinMsgRouter())
        router->PushWinProcHook(hook);
}

void GlPullWinProcHook(WinProcHook hook)
{
    if (WinMsgRouter* router = GlGetPWinMsgRouter())
        router->PullWinProcHook(hook);
}

} // namespace vesk
