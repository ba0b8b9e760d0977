#include <vesk/graphics/OutputDevice.hpp>

#include "graphics/DeviceContext.hpp"
#include "graphics/TextCache_p.hpp"
#include "platform/message_box.hpp"

#include <atomic>
#include <utility>

namespace vesk {
namespace {

std::atomic<MessageBoxFunction> g_pMessageBox{&platform::StderrMessageBox};
std::atomic<WindowContextSource*> g_pWindowSource{nullptr};

} // namespace

MessageBoxFunction GlSetMessageBoxFunction(MessageBoxFunction f)
{
    return g_pMessageBox.exchange(f ? f : &platform::StderrMessageBox);
}

WindowContextSource* SetWindowContextSource(WindowContextSource* source)
{
    return g_pWindowSource.exchange(source);
}

DeviceContext* DeviceContext::Create(cairo_surface_t* surface)
{
    if (!surface || cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS)
        return nullptr;
    cairo_t* cr = cairo_create(surface);
    if (cairo_status(cr) != CAIRO_STATUS_SUCCESS) {
        cairo_destroy(cr);
        return nullptr;
    }
    return new DeviceContext{cairo_surface_reference(surface), cr};
}

void DeviceContext::Renew()
{
    cairo_destroy(cr);
    cr = cairo_create(surface);
}

void DeviceContext::Delete(DeviceContext* dc)
{
    if (!dc)
        return;
    cairo_destroy(dc->cr);
    cairo_surface_destroy(dc->surface);
    delete dc;
}

OutputDevice::~OutputDevice()
{
    ReleaseDevice();
}

DeviceContext* OutputDevice::GethDC()
{
    if (!m_hDC && !m_bExtern)
        m_hDC = CreateContext();
    return m_hDC;
}

void OutputDevice::ReleaseDevice()
{
    if (m_bExtern)
        return;
    ReleaseContext();
    DeleteDrawingTools();
}

void OutputDevice::ReleaseContext()
{
    // Tools are applied afresh to every drawing call, so nothing stays selected in the
    // context that would have to be put back.
    if (m_hDC && !m_bExtern)
        DeleteContext(std::exchange(m_hDC, nullptr));
}

void OutputDevice::SetHDCFromExtern(DeviceContext* dc)
{
    if (!m_bExtern && m_hDC)
        DeleteContext(m_hDC);
    m_hDC = dc;
    m_bExtern = true;
}

DeviceContext* OutputDevice::CreateContext()
{
    WindowContextSource* source = g_pWindowSource.load();
    return m_nKind == DEVICE_WINDOW && source ? source->GetDC(*this) : nullptr;
}

void OutputDevice::DeleteContext(DeviceContext* dc)
{
    WindowContextSource* source = g_pWindowSource.load();
    if (m_nKind == DEVICE_WINDOW) {
        if (source)
            source->ReleaseDC(*this, dc);
    } else {
        DeviceContext::Delete(dc);
    }
}

void OutputDevice::DeleteDrawingTools()
{
    m_pPen.reset();
    m_pBrush.reset();
    m_pFont.reset();
    m_pText.reset();
}

void OutputDevice::IncGdiPlusError()
{
    // Only the first failure on a device is shown; the rest are counted silently.
    if (m_nGdiPlusErrors++ == 0)
        g_pMessageBox.load()("Error in GDI Plus drawing", "VESK Error");
}

uint32_t OutputDevice::ChangeRasterOp(uint32_t rop)
{
    return std::exchange(m_nRasterOp, rop);
}

Pen OutputDevice::ChangePen(const Pen& pen)
{
    Pen old = m_pPen ? *m_pPen : Pen();
    m_pPen = std::make_unique<Pen>(pen);
    return old;
}

Brush OutputDevice::ChangeFillInBrush(const Brush& brush)
{
    Brush old = m_pBrush ? *m_pBrush : Brush();
    m_pBrush = std::make_unique<Brush>(brush);
    return old;
}

void OutputDevice::ChangeBackgroundTexture(const Texture& texture)
{
    m_aBackground = texture;
}

void OutputDevice::ChangeFont(const Font& font)
{
    m_pFont = std::make_unique<Font>(font);
    if (m_pText)
        m_pText->SetFont(font);
}

void OutputDevice::ChangeClipRegion(const Region& region)
{
    m_pClip = std::make_unique<Region>(region);
}

void OutputDevice::ChangeClipRegion()
{
    m_pClip.reset();
}

void OutputDevice::SetBackgroundAndFontCol(const TamColor& color)
{
    ChangeBackgroundTexture(Texture(color));
    Font font = m_pFont ? *m_pFont : Font();
    font.SetFillColor(color);
    ChangeFont(font);
}

TextCache& OutputDevice::GetTextCache()
{
    if (!m_pText) {
        m_pText = {new TextCache(), [](TextCache* t) { delete t; }};
        m_pText->SetFont(m_pFont ? *m_pFont : Font());
    }
    return *m_pText;
}

} // namespace vesk
