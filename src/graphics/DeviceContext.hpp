#pragma once

// The drawing context behind OutputDevice, shared with the layers that lend devices their
// contexts (the window layer's DCManager registers a WindowContextSource). Exported for
// that layer and the tests, not part of the public headers.

#include <vesk/graphics/OutputDevice.hpp>

#include <cairo.h>

namespace vesk {

struct DeviceContext
{
    cairo_surface_t* surface; // one reference held
    cairo_t* cr;              // the plain family's context over the surface

    // A context over `surface` (referenced); null when Cairo cannot make one.
    static DeviceContext* Create(cairo_surface_t* surface);
    static void Delete(DeviceContext* dc);
    // Replaces a context that Cairo has put in an error state by a fresh one.
    void Renew();
};

// Lends window devices (kind 1) their contexts.
class WindowContextSource
{
public:
    virtual ~WindowContextSource() = default;
    virtual DeviceContext* GetDC(OutputDevice& device) = 0;
    virtual void ReleaseDC(OutputDevice& device, DeviceContext* dc) = 0;
};

// Installs the source of window contexts (null: none, window devices then draw nothing);
// returns the previous one.
WindowContextSource* SetWindowContextSource(WindowContextSource* source);

} // namespace vesk
