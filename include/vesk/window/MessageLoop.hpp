#pragma once

#include <vesk/export.hpp>
#include <vesk/frame/NativeWindow.hpp>

#include <cstddef>
#include <cstdint>

namespace vesk {

class Bitmap;

// Runs the event loop until a WM_QUIT arrives and returns its exit code (-1 when the display
// went away). Loops may nest: a handler can run a loop of its own, which the next quit ends.
VESK_API int RunMessageLoop();
// Delivers what is pending now (posted messages, display events, due timers) without waiting;
// false when a WM_QUIT is waiting (it stays for the loop to see).
VESK_API bool PumpMessages();
// Queues a message for the window; any thread. Unknown windows drop it on delivery.
VESK_API void PostMessage(NativeWindow window, uint32_t message, WParam wParam, LParam lParam);
// Ends the innermost running loop with `exitCode`; any thread.
VESK_API void PostQuitMessage(int exitCode);
// Delivers a message through the window's procedure now and returns its result; 0 for
// unknown windows. User-interface thread only.
VESK_API intptr_t SendMessage(NativeWindow window, uint32_t message, WParam wParam, LParam lParam);
// Shows a message box (MB_ type bits) and returns the button chosen (ID values).
VESK_API int VeskMessageBox(NativeWindow owner, const char* utf8Text, const char* utf8Caption, uint32_t type);
// Key state from the key messages delivered so far: bit 15 held down, bit 0 toggled.
VESK_API int16_t GetKeyState(uint32_t virtualKey);
// The native windows the display holds.
VESK_API size_t GetNativeWindowCount();
// The display in use: "x11" or "headless".
VESK_API const char* GetDisplayName();
// What the window's client area shows, as `picture` (premultiplied ARGB); false, and
// `picture` empty, for an unknown window.
VESK_API bool GetWindowPicture(NativeWindow window, Bitmap& picture);
// Writes GetWindowPicture's picture to a file in the format the name's extension gives, as
// Bitmap::Save does (".png": PNG); false when that fails.
VESK_API bool SaveWindowPicture(NativeWindow window, const char* path);

} // namespace vesk
