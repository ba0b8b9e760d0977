#pragma once

#include <vesk/errcode.hpp>
#include <vesk/export.hpp>
#include <vesk/graphics/OutputDevice.hpp>
#include <vesk/text/SString.hpp>

namespace vesk {

// A printer device (kind 3) that prints into a PDF document, the form a print queue takes.
// One device unit is one point (1/72 inch). The document is opened with the device's context
// (on the first drawing call) and completed when the context is released (ReleaseDevice,
// EndDoc or destruction); acquiring again starts the file afresh.
class VESK_API PrinterDevice : public OutputDevice
{
public:
    // A device printing to `path` on pages of `widthPt` x `heightPt` points (A4 by default).
    explicit PrinterDevice(const SString& path, double widthPt = 595.0, double heightPt = 842.0);
    ~PrinterDevice() override;

    // Ends the current page; the next drawing goes onto a new one.
    void NewPage();
    // Completes the document (one empty page when nothing was drawn): ERR_OK when it was
    // written, ERR_FAILURE when the file could not be made or written.
    ERRCODE EndDoc();

protected:
    DeviceContext* CreateContext() override;
    void DeleteContext(DeviceContext* dc) override;

private:
    SString m_aPath;
    double m_fWidth;
    double m_fHeight;
    bool m_bWriteFailed = false;
};

} // namespace vesk
