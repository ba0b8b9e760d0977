#pragma once

#include <vesk/export.hpp>
#include <vesk/graphics/OutputDevice.hpp>
#include <vesk/values/TamSize.hpp>

namespace vesk {

struct VirtualSurface;

// An off-screen device (kind 2): a picture of 32-bit ARGB pixels in memory.
class VESK_API VirtualDevice : public OutputDevice
{
public:
    // Each side of the picture is at most MAX_SIDE pixels and the whole at most MAX_PIXELS.
    static constexpr int32_t MAX_SIDE = 32767;
    static constexpr int64_t MAX_PIXELS = int64_t(1) << 26;

    // A device without a picture: it draws nothing until SetOutputSize.
    VirtualDevice();
    // A device with a picture of `size`.
    explicit VirtualDevice(const TamSize& size);
    ~VirtualDevice() override;

    // Gives the device a new picture of `size`, all pixels transparent black; the old one is
    // dropped, the tools are kept. Refused (false, nothing allocated, the old picture kept) for a side of 0 or
    // less or a size beyond the limits.
    bool SetOutputSize(const TamSize& size);
    // The picture's size; (0, 0) without one.
    TamSize GetOutputSize() const;

protected:
    DeviceContext* CreateContext() override;

private:
    VirtualSurface* m_pSurface = nullptr;
};

} // namespace vesk
