#pragma once

#include <vesk/links/HdlChain.hpp>
#include <vesk/frame/NativeWindow.hpp>

#include <array>
#include <vector>

namespace vesk {

// A process-wide hook that sees every message of the library's windows before they do; a
// non-zero result swallows the message.
using WinProcHook = int (*)(NativeWindow window, uint32_t message, WParam wParam, LParam lParam);

inline constexpr uint32_t WINMSGROUTER_MAXHOOKS = 20;

// The one process-wide message router: window-procedure hooks, the global key chains with their
// saved stacks, and the window that is to receive the focus next.
class VESK_API WinMsgRouter {
public:
    WinMsgRouter() = default;
    WinMsgRouter(const WinMsgRouter&) = delete;
    WinMsgRouter& operator=(const WinMsgRouter&) = delete;

    // Appends the hook while fewer than 20 are installed; a null hook is ignored.
    void PushWinProcHook(WinProcHook hook);
    // Removes the first occurrence of the hook; later hooks keep their order.
    void PullWinProcHook(WinProcHook hook);
    uint32_t GetHookCount() const { return m_nHookCount; }
    // Calls the hooks in installation order; true as soon as one swallows the message.
    bool CallWinProcHooks(NativeWindow window, uint32_t message, WParam wParam, LParam lParam) const;

    HdlChain& GetKeyDownChain() { return m_aKeyDownChain; }
    HdlChain& GetKeyUpChain() { return m_aKeyUpChain; }
    // Saves both key chains on their stacks and empties them.
    void PushKeyLinks();
    // Restores each key chain (links and calling flag) from its stack when that stack is not empty.
    void PopKeyLinks();

    void SetNextFocusWindow(NativeWindow window) { m_hNextFocus = window; }
    NativeWindow GetNextFocusWindow() const { return m_hNextFocus; }

private:
    std::array<WinProcHook, WINMSGROUTER_MAXHOOKS> m_aHooks{};
    uint32_t m_nHookCount = 0;
    NativeWindow m_hNextFocus = nullptr;
    HdlChain m_aKeyDownChain;
    HdlChain m_aKeyUpChain;
    std::vector<HdlChain> m_aKeyDownStack;
    std::vector<HdlChain> m_aKeyUpStack;
};

// The router; null before the library starts and after it ends.
VESK_API WinMsgRouter* GlGetPWinMsgRouter();
// Records the window that is to receive the focus next in the message router.
VESK_API void VeskSetCWndNextFocus(NativeWindow window);
// Installs a hook on the router (at most 20; more are ignored, as is a call without a router).
VESK_API void GlPushWinProcHook(WinProcHook hook);
// Removes the first occurrence of a hook; unknown hooks are ignored.
VESK_API void GlPullWinProcHook(WinProcHook hook);

} // namespace vesk
