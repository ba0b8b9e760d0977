#pragma once

// The double-click rule both displays follow: a second press of the same button in the same
// window within 500 ms, the pointer within 2 pixels of the first press either way. A double
// click ends the sequence, so a third press starts a new one.

#include <cstdint>
#include <cstdlib>

namespace vesk::display {

class DoubleClick
{
public:
    static constexpr int64_t MAX_DELAY_MS = 500;
    static constexpr int32_t MAX_SLOP = 2;

    // Records a press; true when it completes a double click. `window` and `button` are the
    // backend's own identifiers; `timeMs` a millisecond clock that only moves forward (modulo 2^32
    // on X11, so the difference is taken in unsigned 32-bit arithmetic).
    bool Press(uintptr_t window, uint32_t button, uint32_t timeMs, int32_t x, int32_t y)
    {
        const bool completes = m_bPending && window == m_nWindow && button == m_nButton &&
                               uint32_t(timeMs - m_nTime) <= MAX_DELAY_MS && std::abs(x - m_nX) <= MAX_SLOP &&
                               std::abs(y - m_nY) <= MAX_SLOP;
        m_bPending = !completes;
        m_nWindow = window;
        m_nButton = button;
        m_nTime = timeMs;
        m_nX = x;
        m_nY = y;
        return completes;
    }

private:
    bool m_bPending = false;
    uintptr_t m_nWindow = 0;
    uint32_t m_nButton = 0;
    uint32_t m_nTime = 0;
    int32_t m_nX = 0, m_nY = 0;
};

} // namespace vesk::display
