// The test interface of the headless display: native input turned into messages with the
// packing every backend uses.

#include "platform/display/headless/HeadlessWindow_p.hpp"

#include <vesk/frame/WinMessages.hpp>
#include "platform/clock.hpp"
#include "platform/display/KeyParams.hpp"

namespace vesk::display {

namespace {

constexpr uint32_t BUTTON_BITS[3] = {MK_LBUTTON, MK_RBUTTON, MK_MBUTTON};
constexpr uint32_t BUTTON_DOWN[3] = {WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN};

// A scan code for the key: the set-1 codes of a PC keyboard for the common keys, else 0.
ScanCode ScanCodeOfKey(uint32_t vk)
{
    const bool extended =
        (vk >= VK_PRIOR && vk <= VK_DOWN) || vk == VK_INSERT || vk == VK_DELETE || vk == VK_DIVIDE;
    static const char* const rows = "QWERTYUIOP";
    for (uint8_t i = 0; rows[i]; ++i) {
        if (vk == static_cast<uint32_t>(rows[i]))
            return {static_cast<uint8_t>(0x10 + i), extended};
    }
    switch (vk) {
    case VK_ESCAPE: return {0x01, extended};
    case VK_BACK: return {0x0E, extended};
    case VK_TAB: return {0x0F, extended};
    case VK_RETURN: return {0x1C, extended};
    case VK_SPACE: return {0x39, extended};
    default: return {0, extended};
    }
}

} // namespace

WParam HeadlessBackend::MouseKeyState(uint32_t modifiers) const
{
    return m_nButtons | (modifiers & HEADLESS_SHIFT ? uint32_t{MK_SHIFT} : 0u) |
           (modifiers & HEADLESS_CONTROL ? uint32_t{MK_CONTROL} : 0u);
}

// While a window has the capture, pointer input goes to it, moved into its client coordinates,
// as a pointer grab does.
NativeWindow HeadlessBackend::PointerTargetLocked(NativeWindow window, int32_t& x, int32_t& y) const
{
    auto from = m_aWindows.find(reinterpret_cast<uintptr_t>(window));
    auto to = m_aWindows.find(reinterpret_cast<uintptr_t>(m_hCapture));
    if (to == m_aWindows.end() || from == m_aWindows.end() || from == to)
        return window;
    const WindowBox a = GetBoxLocked(*from->second), b = GetBoxLocked(*to->second);
    x += a.left - b.left;
    y += a.top - b.top;
    return m_hCapture;
}

void HeadlessBackend::InjectMouseMove(NativeWindow window, int32_t x, int32_t y, uint32_t modifiers)
{
    std::lock_guard lock(m_aMutex);
    if (!m_aWindows.count(reinterpret_cast<uintptr_t>(window)))
        return;
    window = PointerTargetLocked(window, x, y);
    // Moving onto another window is leaving the one under the pointer.
    if (m_hPointer && m_hPointer != window)
        Queue(m_hPointer, WM_MOUSELEAVE, 0, 0);
    m_hPointer = window;
    Queue(window, WM_MOUSEMOVE, MouseKeyState(modifiers), MakeLParam(x, y));
}

void HeadlessBackend::InjectMouseLeave(NativeWindow window)
{
    std::lock_guard lock(m_aMutex);
    if (!m_aWindows.count(reinterpret_cast<uintptr_t>(window)))
        return;
    if (m_hPointer == window)
        m_hPointer = nullptr;
    Queue(window, WM_MOUSELEAVE, 0, 0);
}

void HeadlessBackend::InjectMouseButton(NativeWindow window, MouseButton button, bool down, int32_t x,
                                        int32_t y, uint32_t modifiers)
{
    std::lock_guard lock(m_aMutex);
    if (!m_aWindows.count(reinterpret_cast<uintptr_t>(window)))
        return;
    window = PointerTargetLocked(window, x, y);
    const auto b = static_cast<size_t>(button);
    uint32_t message;
    if (down) {
        m_nButtons |= BUTTON_BITS[b];
        message = BUTTON_DOWN[b];
        if (m_aClicks.Press(reinterpret_cast<uintptr_t>(window), message, uint32_t(platform::TickCountMs()), x, y))
            message += 2; // the double-click message
    } else {
        m_nButtons &= ~BUTTON_BITS[b];
        message = BUTTON_DOWN[b] + 1;
    }
    Queue(window, message, MouseKeyState(modifiers), MakeLParam(x, y));
}

void HeadlessBackend::InjectWheel(NativeWindow window, int32_t x, int32_t y, int32_t notches, uint32_t modifiers)
{
    std::lock_guard lock(m_aMutex);
    auto it = m_aWindows.find(reinterpret_cast<uintptr_t>(window));
    if (it == m_aWindows.end())
        return;
    const WindowBox box = GetBoxLocked(*it->second);
    const LParam screen = MakeLParam(box.left + x, box.top + y); // wheel messages carry screen coordinates
    window = PointerTargetLocked(window, x, y);
    const WParam wParam =
        MakeWParam(static_cast<uint32_t>(MouseKeyState(modifiers)), static_cast<uint32_t>(notches * WHEEL_DELTA));
    Queue(window, WM_MOUSEWHEEL, wParam, screen);
}

void HeadlessBackend::InjectKey(NativeWindow window, uint32_t virtualKey, bool down, char16_t text,
                                uint32_t modifiers)
{
    std::lock_guard lock(m_aMutex);
    if (!m_aWindows.count(reinterpret_cast<uintptr_t>(window)))
        return;
    const bool alt = modifiers & HEADLESS_ALT;
    const LParam lParam = KeyLParam(ScanCodeOfKey(virtualKey), alt, !down, !down);
    const uint32_t message = (down ? WM_KEYDOWN : WM_KEYUP) + (alt ? WM_SYSKEYDOWN - WM_KEYDOWN : 0);
    Queue(window, message, virtualKey & 0xFF, lParam);
    if (down && text)
        Queue(window, alt ? WM_SYSCHAR : WM_CHAR, text, lParam);
}

void HeadlessBackend::InjectExpose(NativeWindow window, const WindowBox* box)
{
    Invalidate(window, box);
}

void HeadlessBackend::InjectResize(NativeWindow window, int32_t width, int32_t height)
{
    int32_t x, y;
    {
        std::lock_guard lock(m_aMutex);
        auto it = m_aWindows.find(reinterpret_cast<uintptr_t>(window));
        if (it == m_aWindows.end())
            return;
        x = it->second->x;
        y = it->second->y;
    }
    MoveWindow(window, x, y, width, height);
}

void HeadlessBackend::InjectClose(NativeWindow window)
{
    std::lock_guard lock(m_aMutex);
    if (m_aWindows.count(reinterpret_cast<uintptr_t>(window)))
        Queue(window, WM_CLOSE, 0, 0);
}

void HeadlessBackend::InjectFocus(NativeWindow window)
{
    SetFocus(window);
}

} // namespace vesk::display
