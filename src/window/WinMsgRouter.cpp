#include <vesk/frame/VeskData.hpp>
#include <vesk/window/WinMsgRouter.hpp>

#include "platform/clock.hpp"

#include <algorithm>
#include <memory>

namespace vesk {

// The router lives in the library state, made on first use and destroyed with it by VeskExit.
struct WinMsgRouterAccess
{
    static std::shared_ptr<WinMsgRouter>& Slot(VeskData& data) { return data.m_pWinMsgRouter; }
};

namespace {

// Kept out of line so that the look-up every message makes stays small.
[[gnu::noinline]] WinMsgRouter* MakeRouter(VeskData& data)
{
    std::shared_ptr<WinMsgRouter>& slot = WinMsgRouterAccess::Slot(data);
    slot = std::make_shared<WinMsgRouter>();
    return slot.get();
}

} // namespace

WinMsgRouter* GlGetPWinMsgRouter()
{
    VeskData* data = GetPVeskData();
    if (data == nullptr)
        return nullptr;
    WinMsgRouter* router = WinMsgRouterAccess::Slot(*data).get();
    return router ? router : MakeRouter(*data);
}

void VeskSetCWndNextFocus(NativeWindow window)
{
    if (WinMsgRouter* router = GlGetPWinMsgRouter())
        router->SetNextFocusWindow(window);
}

WinMsgRouter::WinMsgRouter()
    : m_nStartTick(static_cast<uint32_t>(platform::TickCountMs()))
{
}

void WinMsgRouter::RegisterWindow(Window* window, NativeWindow handle)
{
    UnregisterWindow(window);
    m_aWindowToHandle[window] = handle;
    m_aHandleToWindow[handle] = window;
    ++m_nMapGeneration;
}

void WinMsgRouter::UnregisterWindow(Window* window)
{
    auto it = m_aWindowToHandle.find(window);
    if (it == m_aWindowToHandle.end())
        return;
    auto back = m_aHandleToWindow.find(it->second);
    if (back != m_aHandleToWindow.end() && back->second == window)
        m_aHandleToWindow.erase(back);
    m_aWindowToHandle.erase(it);
    ++m_nMapGeneration;
}

NativeWindow WinMsgRouter::FindHandle(const Window* window) const
{
    auto it = m_aWindowToHandle.find(window);
    return it == m_aWindowToHandle.end() ? nullptr : it->second;
}

ScrollBar* WinMsgRouter::FindScrollBar(NativeWindow handle) const
{
    auto it = m_aScrollBars.find(handle);
    return it == m_aScrollBars.end() ? nullptr : it->second;
}

void* WinMsgRouter::FindControl(NativeWindow handle) const
{
    auto it = m_aControls.find(handle);
    return it == m_aControls.end() ? nullptr : it->second;
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

void GlIncBusy()
{
    if (WinMsgRouter* router = GlGetPWinMsgRouter())
        router->IncBusy();
}

void GlDecBusy()
{
    if (WinMsgRouter* router = GlGetPWinMsgRouter())
        router->DecBusy();
}

uint32_t GlGetBusyCount()
{
    WinMsgRouter* router = GlGetPWinMsgRouter();
    return router ? router->GetBusyCount() : 0;
}

} // namespace vesk
