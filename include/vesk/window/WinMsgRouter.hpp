#pragma once

#include <vesk/links/HdlChain.hpp>
#include <vesk/frame/NativeWindow.hpp>

#include <array>
#include <cstddef>
#include <unordered_map>
#include <vector>

namespace vesk {

class Window;
class ScrollBar;

// A process-wide hook that sees every message of the library's windows before they do; a
// non-zero result swallows the message.
using WinProcHook = int (*)(NativeWindow window, uint32_t message, WParam wParam, LParam lParam);

inline constexpr uint32_t WINMSGROUTER_MAXHOOKS = 20;

inline constexpr std::size_t WINMSGROUTER_HASHSIZE = 1259;

// The one process-wide message router: the maps of the library's windows, scroll bars and
// controls by native handle, window-procedure hooks, the dispatcher, the global key chains with
// their saved stacks, the window that is to receive the focus next and the busy counter.
// User-interface thread only.
class VESK_API WinMsgRouter {
public:
    WinMsgRouter();
    WinMsgRouter(const WinMsgRouter&) = delete;
    WinMsgRouter& operator=(const WinMsgRouter&) = delete;

    // Appends the hook while fewer than 20 are installed; a null hook is ignored.
    void PushWinProcHook(WinProcHook hook);
    // Removes the first occurrence of the hook; later hooks keep their order.
    void PullWinProcHook(WinProcHook hook);
    uint32_t GetHookCount() const { return m_nHookCount; }
    // Calls the hooks in installation order; true as soon as one swallows the message. Reads
    // the live array, so a hook pulled by an earlier one is not called.
    bool CallWinProcHooks(NativeWindow window, uint32_t message, WParam wParam, LParam lParam) const
    {
        for (uint32_t i = 0; i < m_nHookCount; ++i) {
            if (m_aHooks[i](window, message, wParam, lParam))
                return true;
        }
        return false;
    }

    // The global key chains; their handlers receive the KeyEvent* of the message. Key-up
    // messages always reach the key-up chain, key-down messages the key-down chain only when
    // the focused window did not handle them.
    HdlChain& GetKeyDownChain() { return m_aKeyDownChain; }
    HdlChain& GetKeyUpChain() { return m_aKeyUpChain; }
    // Saves both key chains on their stacks and empties them.
    void PushKeyLinks();
    // Restores each key chain (links and calling flag) from its stack when that stack is not empty.
    void PopKeyLinks();

    void SetNextFocusWindow(NativeWindow window) { m_hNextFocus = window; }
    NativeWindow GetNextFocusWindow() const { return m_hNextFocus; }

    // Library windows by handle and handles by window, kept in step.
    void RegisterWindow(Window* window, NativeWindow handle);
    void UnregisterWindow(Window* window);
    // Messages come in bursts to one window (moves, paints): the last answer is kept until
    // the map changes.
    Window* FindWindow(NativeWindow handle) const
    {
        if (handle == m_aLastFound.handle && m_aLastFound.generation == m_nMapGeneration)
            return m_aLastFound.window;
        auto it = m_aHandleToWindow.find(handle);
        Window* window = it == m_aHandleToWindow.end() ? nullptr : it->second;
        m_aLastFound = {handle, window, m_nMapGeneration};
        return window;
    }
    NativeWindow FindHandle(const Window* window) const;
    // Counts changes of the handle-to-window map: while it stays the same, every window found
    // before is still registered under its handle (a cheap test after running a handler).
    uint32_t GetMapGeneration() const { return m_nMapGeneration; }
    // Whether `window` is still registered under `handle`, given the generation of before.
    bool IsStillRegistered(NativeWindow handle, const Window* window, uint32_t generation) const
    {
        return generation == m_nMapGeneration || FindWindow(handle) == window;
    }
    std::size_t GetWindowCount() const { return m_aHandleToWindow.size(); }
    // Scroll bars and controls by handle; a second entry for a handle replaces the first.
    void AddScrollBar(NativeWindow handle, ScrollBar* bar) { m_aScrollBars[handle] = bar; }
    void RemoveScrollBar(NativeWindow handle) { m_aScrollBars.erase(handle); }
    ScrollBar* FindScrollBar(NativeWindow handle) const;
    void AddControl(NativeWindow handle, void* control) { m_aControls[handle] = control; }
    void RemoveControl(NativeWindow handle) { m_aControls.erase(handle); }
    void* FindControl(NativeWindow handle) const;

    // Calls the window's handler for the message; true when the message is handled.
    bool Dispatch(Window& window, uint32_t message, WParam wParam, LParam lParam);

    // 1 from the start; the milliseconds of the monotonic clock when the router was made.
    uint32_t GetFlag() const { return m_nFlag; }
    uint32_t GetStartTick() const { return m_nStartTick; }

    // While the count is 1 or more, library windows show the wait cursor.
    void IncBusy() { ++m_nBusyCount; }
    void DecBusy() { m_nBusyCount -= m_nBusyCount > 0; }
    uint32_t GetBusyCount() const { return m_nBusyCount; }

    // How long the pointer rests before a tracked window hears of it, in milliseconds.
    void SetHoverTime(uint32_t ms) { m_nHoverTime = ms; }
    uint32_t GetHoverTime() const { return m_nHoverTime; }

private:
    std::unordered_map<const Window*, NativeWindow> m_aWindowToHandle{WINMSGROUTER_HASHSIZE};
    std::unordered_map<NativeWindow, Window*> m_aHandleToWindow{WINMSGROUTER_HASHSIZE};
    std::unordered_map<NativeWindow, ScrollBar*> m_aScrollBars{WINMSGROUTER_HASHSIZE};
    std::unordered_map<NativeWindow, void*> m_aControls{WINMSGROUTER_HASHSIZE};
    std::array<WinProcHook, WINMSGROUTER_MAXHOOKS> m_aHooks{};
    uint32_t m_nHookCount = 0;
    NativeWindow m_hNextFocus = nullptr;
    uint32_t m_nFlag = 1;
    uint32_t m_nStartTick = 0;
    uint32_t m_nBusyCount = 0;
    uint32_t m_nHoverTime = 400;
    uint32_t m_nMapGeneration = 0;
    struct LastFound
    {
        NativeWindow handle;
        Window* window;
        uint32_t generation;
    };
    mutable LastFound m_aLastFound{nullptr, nullptr, UINT32_MAX};
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
// The busy counter: while it is 1 or more, library windows show the wait cursor. Decrementing
// stops at 0. Without a router nothing happens and the count is 0.
VESK_API void GlIncBusy();
VESK_API void GlDecBusy();
VESK_API uint32_t GlGetBusyCount();

} // namespace vesk
