#pragma once

#include <vesk/export.hpp>
#include <vesk/window/CWnd.hpp>
#include <vesk/window/Window.hpp>

namespace vesk {

// A Window that owns the native window it wraps. Releasing the device and destroying the
// window (which unregisters it) happen before the CWnd goes, on re-creation and on destruction.
// A subclass whose members still use the window (a drawing thread) stops them in its own
// destructor, which runs before this one.
class VESK_API OwnedWindow : public Window
{
public:
    OwnedWindow() = default;
    ~OwnedWindow() override;

    // Destroys any window made before, makes the native window (hidden) and wraps it; false
    // when it cannot be made.
    bool CreateOwned(WndKind kind, CWnd* parent, const TamPoint& pos, const TamSize& clientSize,
                     const char* utf8Title = "");
    // Releases the device and destroys the native window, if there is one.
    void DestroyOwned();

    CWnd& Wnd() { return m_aWnd; }
    const CWnd& Wnd() const { return m_aWnd; }

private:
    CWnd m_aWnd;
};

} // namespace vesk
