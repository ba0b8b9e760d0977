#pragma once

// Per-call drawing state of an OutputDevice, a saved frame on the device's context that the
// call drops before it returns. DeviceGraphics serves the plain family; HQGraphics serves one
// anti-aliased call and counts a failure on the device when it ends.

#include "graphics/DeviceContext.hpp"

#include <vesk/graphics/OutputDevice.hpp>

#include <cairo.h>

namespace vesk {

class Brush;
class Pen;

// Whether every coordinate can be drawn: finite and within +-2^22 (Cairo's fixed-point range
// with room for pen widths).
bool Drawable(double v);
template <typename... T>
bool Drawable(double v, T... rest)
{
    return Drawable(v) && Drawable(rest...);
}

// The pixels of an inclusive rectangle as (x, y, w, h), edges ordered and limited to the
// drawable range.
struct Box
{
    double x = 0, y = 0, w = 0, h = 0;
};
// False for an empty rectangle.
bool ToBox(const CRectangle& r, Box& b);

// Sets `brush` as the source for a shape with the given bounds; false for the null brush.
bool SetBrushSource(cairo_t* cr, const Brush& brush, const CRectangle& bounds);
// Sets the pen's colour, width, dashes and cap; false when the pen draws nothing.
bool SetPenStroke(cairo_t* cr, const Pen& pen);
// The path of an ellipse inscribed in (x, y, w, h).
void EllipsePath(cairo_t* cr, double x, double y, double w, double h);
// Restricts drawing to `clip` when there is one.
void ApplyClip(cairo_t* cr, const Region* clip);

// Plain drawing on the device's context: no anti-aliasing, the device's clip region and raster
// operation; the context's state is restored afterwards. Converts to false without a context.
class DeviceGraphics
{
public:
    explicit DeviceGraphics(OutputDevice& device);
    ~DeviceGraphics();
    DeviceGraphics(const DeviceGraphics&) = delete;
    DeviceGraphics& operator=(const DeviceGraphics&) = delete;

    explicit operator bool() const { return m_pCr != nullptr; }
    cairo_t* cr() const { return m_pCr; }
    const Pen* pen() const { return m_rDevice.m_pPen.get(); }
    const Brush* brush() const { return m_rDevice.m_pBrush.get(); }

private:
    OutputDevice& m_rDevice;
    cairo_t* m_pCr = nullptr;
};

// Smoothing modes of the anti-aliased family.
enum class Smoothing {
    None,        // no mode set: hard edges
    HighQuality, // 2
    AntiAlias,   // 4
};

// One HQ call's drawing state. Fail() records a failure; Finish() (or the destructor) checks
// Cairo's status and counts one drawing error for the call.
class HQGraphics
{
public:
    HQGraphics(OutputDevice& device, Smoothing smoothing);
    ~HQGraphics() { Finish(); }
    HQGraphics(const HQGraphics&) = delete;
    HQGraphics& operator=(const HQGraphics&) = delete;

    explicit operator bool() const { return m_pCr != nullptr; }
    cairo_t* cr() const { return m_pCr; }
    OutputDevice& device() const { return m_rDevice; }
    void Fail() { m_bFailed = true; }
    // Counts the call as failed and ends it: the result for arguments that cannot be drawn.
    bool Reject()
    {
        Fail();
        return Finish();
    }
    // Ends the call; true when everything succeeded.
    bool Finish();

private:
    OutputDevice& m_rDevice;
    DeviceContext* m_pDC = nullptr;
    cairo_t* m_pCr = nullptr;
    bool m_bFailed = false;
    bool m_bFinished = false;
};

} // namespace vesk
