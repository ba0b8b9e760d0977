#include "window/DCManager_p.hpp"

#include <vesk/frame/VeskData.hpp>
#include <vesk/window/Window.hpp>

#include "window/WindowSystem_p.hpp"

namespace vesk {

struct DCManagerAccess
{
    static std::shared_ptr<DCManager>& Slot(VeskData& data) { return data.m_pDCManager; }
};

DCManager* GetDCManager()
{
    VeskData* data = GetPVeskData();
    if (!data)
        return nullptr;
    std::shared_ptr<DCManager>& slot = DCManagerAccess::Slot(*data);
    if (!slot)
        slot = std::make_shared<DCManager>();
    return slot.get();
}

DCManager::DCManager() : m_pPrevious(SetWindowContextSource(this)) {}

DCManager::~DCManager()
{
    SetWindowContextSource(m_pPrevious);
}

DeviceContext* DCManager::GetDC(OutputDevice& device)
{
    auto* window = dynamic_cast<Window*>(&device);
    const NativeWindow handle = window ? window->GetHandle() : nullptr;
    if (!handle)
        return nullptr;
    {
        std::lock_guard lock(m_aMutex);
        auto it = m_aPaintDCs.find(handle);
        if (it != m_aPaintDCs.end() && it->second.thread == std::this_thread::get_id())
            return it->second.dc;
    }
    // Holding the surface holds the window's paint lock until ReleaseDC.
    display::DisplayBackend& backend = WindowSystem::Get().Backend();
    cairo_surface_t* surface = backend.GetSurface(handle);
    if (!surface)
        return nullptr;
    DeviceContext* dc = DeviceContext::Create(surface);
    if (!dc) {
        backend.ReleaseSurface(surface);
        return nullptr;
    }
    cairo_surface_destroy(surface); // the context holds its own reference
    std::lock_guard lock(m_aMutex);
    m_aLent.insert(dc);
    return dc;
}

void DCManager::ReleaseDC(OutputDevice&, DeviceContext* dc)
{
    {
        std::lock_guard lock(m_aMutex);
        // A paint context belongs to the paint, not to the device.
        if (m_aLent.erase(dc) == 0)
            return;
    }
    cairo_surface_t* surface = cairo_surface_reference(dc->surface);
    DeviceContext::Delete(dc);
    WindowSystem::Get().Backend().ReleaseSurface(surface);
}

DeviceContext* DCManager::SetPaintDC(NativeWindow window, DeviceContext* dc)
{
    std::lock_guard lock(m_aMutex);
    DeviceContext* previous = nullptr;
    auto it = m_aPaintDCs.find(window);
    if (it != m_aPaintDCs.end()) {
        previous = it->second.dc;
        m_aPaintDCs.erase(it);
    }
    if (dc)
        m_aPaintDCs[window] = {dc, std::this_thread::get_id()};
    return previous;
}

} // namespace vesk
