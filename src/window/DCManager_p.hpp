#pragma once

// Lends window devices their drawing contexts. Outside painting a window device draws on the
// window's surface from the display (held, with the window's paint lock, until the device
// gives the context back); while a window paints, its devices draw on the paint context.

#include "graphics/DeviceContext.hpp"

#include <vesk/frame/NativeWindow.hpp>

#include <mutex>
#include <thread>
#include <unordered_map>
#include <unordered_set>

namespace vesk {

class DCManager final : public WindowContextSource
{
public:
    // Becomes the library's source of window contexts for its lifetime.
    DCManager();
    ~DCManager() override;
    DCManager(const DCManager&) = delete;
    DCManager& operator=(const DCManager&) = delete;

    // Any thread: the player threads draw through their own window devices.
    DeviceContext* GetDC(OutputDevice& device) override;
    void ReleaseDC(OutputDevice& device, DeviceContext* dc) override;

    // Makes `dc` the context of `window`'s devices on the calling thread (null: none) and
    // returns the one it had. Devices on other threads wait for the paint to end instead.
    DeviceContext* SetPaintDC(NativeWindow window, DeviceContext* dc);

private:
    WindowContextSource* m_pPrevious;
    std::mutex m_aMutex;
    struct PaintDC
    {
        DeviceContext* dc;
        std::thread::id thread;
    };
    std::unordered_map<NativeWindow, PaintDC> m_aPaintDCs;
    std::unordered_set<DeviceContext*> m_aLent; // contexts over display surfaces, not paint contexts
};

// The library state's manager, made on first use; null without a library state.
DCManager* GetDCManager();

} // namespace vesk
