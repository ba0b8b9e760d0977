#include <vesk/window/MessageLoop.hpp>

#include <vesk/files/DirEntry.hpp>
#include <vesk/frame/WinMessages.hpp>
#include <vesk/graphics/Bitmap.hpp>
#include <vesk/values/TamSize.hpp>

#include "window/WindowSystem_p.hpp"

#include <cstring>
#include <vector>

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

bool GetWindowPicture(NativeWindow window, Bitmap& picture)
{
    picture = Bitmap();
    cairo_surface_t* shot = WindowSystem::Get().Backend().Snapshot(window);
    if (!shot)
        return false;
    cairo_surface_flush(shot);
    const int32_t width = cairo_image_surface_get_width(shot), height = cairo_image_surface_get_height(shot);
    const int32_t stride = cairo_image_surface_get_stride(shot);
    const unsigned char* data = cairo_image_surface_get_data(shot);
    std::vector<uint32_t> pixels(size_t(width) * size_t(height));
    for (int32_t y = 0; y < height; ++y)
        std::memcpy(pixels.data() + size_t(y) * size_t(width), data + size_t(y) * size_t(stride), size_t(width) * 4);
    cairo_surface_destroy(shot);
    picture = Bitmap(TamSize(width, height), std::move(pixels));
    return !picture.Empty();
}

bool SaveWindowPicture(NativeWindow window, const char* path)
{
    Bitmap picture;
    return path && GetWindowPicture(window, picture) && picture.Save(DirEntry(SString(path))) == ERR_OK;
}

} // namespace vesk
