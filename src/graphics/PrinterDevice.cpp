#include <vesk/graphics/PrinterDevice.hpp>

#include "graphics/DeviceContext.hpp"

#include <cairo-pdf.h>

#include <cmath>

namespace vesk {

PrinterDevice::PrinterDevice(const SString& path, double widthPt, double heightPt)
    : OutputDevice(DEVICE_PRINTER), m_aPath(path),
      m_fWidth(std::isfinite(widthPt) && widthPt >= 1 ? std::fmin(widthPt, 14400) : 595.0),
      m_fHeight(std::isfinite(heightPt) && heightPt >= 1 ? std::fmin(heightPt, 14400) : 842.0)
{
}

PrinterDevice::~PrinterDevice()
{
    ReleaseDevice();
}

DeviceContext* PrinterDevice::CreateContext()
{
    // Cairo's PDF pages range from 1 to 14400 points, which the constructor keeps to.
    cairo_surface_t* s = cairo_pdf_surface_create(m_aPath, m_fWidth, m_fHeight);
    DeviceContext* dc = DeviceContext::Create(s);
    cairo_surface_destroy(s);
    m_bWriteFailed = dc == nullptr;
    return dc;
}

void PrinterDevice::DeleteContext(DeviceContext* dc)
{
    cairo_surface_finish(dc->surface);
    m_bWriteFailed = cairo_surface_status(dc->surface) != CAIRO_STATUS_SUCCESS;
    DeviceContext::Delete(dc);
}

void PrinterDevice::NewPage()
{
    if (DeviceContext* dc = GethDC())
        cairo_show_page(dc->cr);
}

ERRCODE PrinterDevice::EndDoc()
{
    const bool drawn = GethDC() != nullptr;
    ReleaseDevice();
    return drawn && !m_bWriteFailed ? ERR_OK : ERR_FAILURE;
}

} // namespace vesk
