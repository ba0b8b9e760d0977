#include <vesk/graphics/VirtualDevice.hpp>

#include "graphics/DeviceContext.hpp"
#include "graphics/codecs/ImageCodec_p.hpp"

namespace vesk {

// The picture is a Cairo image surface; the opaque type keeps Cairo out of the header.
struct VirtualSurface;

// A device's picture obeys the same limits as a decoded image, so any picture can be saved and
// any image drawn into a device of its size.
static_assert(VirtualDevice::MAX_SIDE == codecs::kMaxImageSide && VirtualDevice::MAX_PIXELS == codecs::kMaxImagePixels);

namespace {

cairo_surface_t* Native(VirtualSurface* s)
{
    return reinterpret_cast<cairo_surface_t*>(s);
}

} // namespace

VirtualDevice::VirtualDevice() : OutputDevice(DEVICE_MEMORY) {}

VirtualDevice::VirtualDevice(const TamSize& size) : VirtualDevice()
{
    SetOutputSize(size);
}

VirtualDevice::~VirtualDevice()
{
    ReleaseDevice();
    cairo_surface_destroy(Native(m_pSurface));
}

bool VirtualDevice::SetOutputSize(const TamSize& size)
{
    const int32_t w = size.Width(), h = size.Height();
    if (!codecs::IsAcceptableImageSize(w, h))
        return false;
    cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, w, h);
    if (cairo_surface_status(s) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(s);
        return false;
    }
    ReleaseContext();
    cairo_surface_destroy(Native(m_pSurface));
    m_pSurface = reinterpret_cast<VirtualSurface*>(s);
    return true;
}

TamSize VirtualDevice::GetOutputSize() const
{
    if (!m_pSurface)
        return TamSize(0, 0);
    return TamSize(cairo_image_surface_get_width(Native(m_pSurface)),
                   cairo_image_surface_get_height(Native(m_pSurface)));
}

DeviceContext* VirtualDevice::CreateContext()
{
    return m_pSurface ? DeviceContext::Create(Native(m_pSurface)) : nullptr;
}

} // namespace vesk
