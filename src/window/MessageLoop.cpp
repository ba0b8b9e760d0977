#include <vesk/window/MessageLoop.hpp>

#include <vesk/frame/WinMessages.hpp>

#include "window/WindowSystem_p.hpp"

namespace vesk {

int RunMessageLoop()
{
    WindowSystem& system = WindowSystem::Get();
    for (;;) {
        if (system.PumpOnce())
            return system.TakeQuit();
        // A display that is gone fails the wait at once; the next pass ends the loop with -1.
        system.Backend().WaitEvents(system.NextTimerDelay());
    }
}

bool PumpMessages()
{
    return !WindowSystem::Get().PumpOnce();
}

void PostMessage(NativeWindow window, uint32_t message, WParam wParam, LParam lParam)
{
    if (message != WM_QUIT)
        WindowSystem::Get().Post(window, message, wParam, lParam);
}

void PostQuitMessage(int exitCode)
{
    WindowSystem::Get().Post(nullptr, WM_QUIT, static_cast<WParam>(exitCode), 0);
}

intptr_t SendMessage(NativeWindow window, uint32_t message, WParam wParam, LParam lParam)
{
    return WindowSystem::Get().Deliver(window, message, wParam, lParam);
}

int VeskMessageBox(NativeWindow owner, const char* utf8Text, const char* utf8Caption, uint32_t type)
{
    return WindowSystem::Get().Backend().MessageBox(owner, utf8Text ? utf8Text : "",
                                                    utf8Caption ? utf8Caption : "", type);
}

int16_t GetKeyState(uint32_t virtualKey)
{
    return WindowSystem::Get().GetKeyState(virtualKey);
}

size_t GetNativeWindowCount()
{
    return WindowSystem::Get().Backend().WindowCount();
}

const char* GetDisplayName()
{
    return WindowSystem::Get().Backend().Name();
}

bool SaveWindowPicture(NativeWindow window, const char* pngPath)
{
    cairo_surface_t* shot = pngPath ? WindowSystem::Get().Backend().Snapshot(window) : nullptr;
    if (!shot)
        return false;
    const bool ok = cairo_surface_write_to_png(shot, pngPath) == CAIRO_STATUS_SUCCESS;
    cairo_surface_destroy(shot);
    return ok;
}

} // namespace vesk
