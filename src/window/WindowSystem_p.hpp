#pragma once

// The framework's side of the display: which CWnd owns which native window, message
// delivery through each window's procedure, posted messages, timers and mouse tracking.

#include <vesk/window/CWnd.hpp>

#include "platform/display/DisplayBackend.hpp"

#include <cstdint>
#include <deque>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace vesk {

class WindowSystem
{
public:
    // The one instance, bound to the process's display backend on first use.
    static WindowSystem& Get();

    display::DisplayBackend& Backend() { return m_rBackend; }

    void Attach(CWnd& wnd, NativeWindow window);
    CWnd* Find(NativeWindow window) const;
    // Sends a message through the window's procedure now; 0 for unknown windows.
    intptr_t Deliver(NativeWindow window, uint32_t message, WParam wParam, LParam lParam);
    // The same for a window already looked up.
    intptr_t Deliver(CWnd& wnd, uint32_t message, WParam wParam, LParam lParam);

    // Posted messages: any thread.
    void Post(NativeWindow window, uint32_t message, WParam wParam, LParam lParam);
    // One round of delivery: posted messages, the display's events, due timers. Stops at a
    // WM_QUIT, which stays queued; returns true when one is waiting.
    bool PumpOnce();
    // Removes a waiting WM_QUIT and returns its exit code.
    int TakeQuit();
    // Milliseconds until the next timer is due (-1: none).
    int NextTimerDelay() const;

    bool SetTimer(NativeWindow window, uintptr_t id, uint32_t ms);
    bool KillTimer(NativeWindow window, uintptr_t id);
    void TrackMouse(CWnd& wnd, uint32_t flags, uint32_t hoverMs);

    // Key state kept from the key messages delivered: bit 15 down, bit 0 toggled.
    int16_t GetKeyState(uint32_t virtualKey) const;

    size_t WindowCount() const { return m_aWindows.size(); }

    // The state a window was hidden in, for SW_SHOW to bring it back in (Normal when unknown).
    void SetHiddenState(NativeWindow window, display::ShowCommand state) { m_aHiddenStates[window] = state; }
    display::ShowCommand GetHiddenState(NativeWindow window) const
    {
        auto it = m_aHiddenStates.find(window);
        return it == m_aHiddenStates.end() ? display::ShowCommand::Normal : it->second;
    }

private:
    struct Message
    {
        NativeWindow window;
        uint32_t message;
        WParam wParam;
        LParam lParam;
    };
    struct Timer
    {
        NativeWindow window;
        uintptr_t id;
        uint32_t interval;
        int64_t due;
    };

    explicit WindowSystem(display::DisplayBackend& backend);
    static intptr_t BackendProcedure(NativeWindow window, uint32_t message, WParam wParam, LParam lParam);
    // Mouse tracking and key state seen before the window's procedure; false drops the message.
    bool Observe(CWnd& wnd, uint32_t message, WParam wParam, LParam lParam);
    void Detach(CWnd& wnd);
    bool TakePosted(Message& m);
    void FireTimers();

    display::DisplayBackend& m_rBackend;
    std::unordered_map<NativeWindow, CWnd*> m_aWindows; // UI thread only
    std::unordered_map<NativeWindow, display::ShowCommand> m_aHiddenStates;
    std::vector<Timer> m_aTimers;
    uint8_t m_aKeyState[256] = {};
    LParam m_nLastMousePos = 0;
    WParam m_nLastMouseKeys = 0;

    mutable std::mutex m_aPostedMutex;
    std::deque<Message> m_aPosted;
};

// Timer id of the emulated hover: never handed to applications.
inline constexpr uintptr_t HOVER_TIMER_ID = UINTPTR_MAX;

} // namespace vesk
