#include "platform/display/x11/backend.hpp"

#include <cairo-xcb.h>

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>

// Each window paints into an ARGB32 image of its client area; finishing a paint copies the
// painted rectangle to the window through cairo-xcb, so what was drawn shows at once and
// whole, and an exposed window can be restored without its owner.

namespace vesk::display::x11 {

void X11Backend::ResizeBuffer(WindowRecord& record, int32_t width, int32_t height)
{
    std::lock_guard paint(record.paintLock);
    if (record.buffer && cairo_image_surface_get_width(record.buffer) == width
        && cairo_image_surface_get_height(record.buffer) == height)
        return;
    cairo_surface_t* buffer = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    cairo_t* cr = cairo_create(buffer);
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_paint(cr);
    if (record.buffer) {
        cairo_set_source_surface(cr, record.buffer, 0, 0);
        cairo_paint(cr);
        cairo_surface_destroy(record.buffer);
    }
    cairo_destroy(cr);
    record.buffer = buffer;
    if (record.target) {
        cairo_xcb_surface_set_size(record.target, width, height);
        return;
    }
    record.target = cairo_xcb_surface_create(m_connection->Xcb(), record.id, m_connection->Visual(), width, height);
    std::lock_guard lock(m_mutex);
    if (!m_cairoDevice)
        m_cairoDevice = cairo_device_reference(cairo_surface_get_device(record.target));
}

void X11Backend::FreeBuffers(WindowRecord& record)
{
    // Waits for a thread that is painting the window to finish.
    std::lock_guard paint(record.paintLock);
    if (record.target) {
        cairo_surface_finish(record.target);
        cairo_surface_destroy(record.target);
        record.target = nullptr;
    }
    if (record.buffer) {
        cairo_surface_destroy(record.buffer);
        record.buffer = nullptr;
    }
}

void X11Backend::Present(WindowRecord& record, const WindowBox& box)
{
    std::lock_guard paint(record.paintLock);
    if (!record.target || !record.buffer || m_connection->Broken() || box.left >= box.right || box.top >= box.bottom)
        return;
    cairo_t* cr = cairo_create(record.target);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cr, record.buffer, 0, 0);
    cairo_rectangle(cr, box.left, box.top, box.right - box.left, box.bottom - box.top);
    cairo_fill(cr);
    cairo_destroy(cr);
    cairo_surface_flush(record.target);
    xcb_flush(m_connection->Xcb());
}

void X11Backend::Exposed(xcb_window_t id, const WindowBox& box)
{
    std::shared_ptr<WindowRecord> record = Find(id);
    if (!record)
        return;
    Present(*record, box);
    std::lock_guard lock(m_mutex);
    MarkDirty(*record, box);
}

cairo_surface_t* X11Backend::Lend(const std::shared_ptr<WindowRecord>& record)
{
    return m_loans.Lend(record, [](WindowRecord& r) { return r.buffer; });
}

cairo_surface_t* X11Backend::BeginPaint(NativeWindow window, WindowBox& dirty)
{
    std::shared_ptr<WindowRecord> record = Find(window);
    if (!record)
        return nullptr;
    cairo_surface_t* surface = Lend(record);
    if (!surface)
        return nullptr;
    // The box of the WM_PAINT being handled, and whatever became dirty since: painting validates it.
    {
        std::lock_guard lock(m_mutex);
        TakeDirty(*record);
        dirty = record->paintBox;
    }
    return surface;
}

void X11Backend::EndPaint(cairo_surface_t* surface)
{
    std::shared_ptr<WindowRecord> record = m_loans.TakeBack(surface);
    if (!record)
        return;
    WindowBox box;
    {
        std::lock_guard lock(m_mutex);
        box = record->paintBox;
        record->paintBox = {};
    }
    Present(*record, box);
    record->paintLock.unlock();
}

cairo_surface_t* X11Backend::GetSurface(NativeWindow window)
{
    std::shared_ptr<WindowRecord> record = Find(window);
    return record ? Lend(record) : nullptr;
}

void X11Backend::ReleaseSurface(cairo_surface_t* surface)
{
    std::shared_ptr<WindowRecord> record = m_loans.TakeBack(surface);
    if (!record)
        return;
    WindowBox box;
    {
        std::lock_guard lock(m_mutex);
        box = {0, 0, record->width, record->height};
    }
    Present(*record, box);
    record->paintLock.unlock();
}

cairo_surface_t* X11Backend::Snapshot(NativeWindow window)
{
    std::shared_ptr<WindowRecord> record = Find(window);
    if (!record)
        return nullptr;
    std::lock_guard paint(record->paintLock);
    if (!record->buffer)
        return nullptr;
    int width = cairo_image_surface_get_width(record->buffer);
    int height = cairo_image_surface_get_height(record->buffer);
    cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    xcb_connection_t* xcb = m_connection->Xcb();
    xcb_get_image_reply_t* reply = xcb_get_image_reply(
        xcb,
        xcb_get_image(xcb, XCB_IMAGE_FORMAT_Z_PIXMAP, record->id, 0, 0, static_cast<uint16_t>(width),
                      static_cast<uint16_t>(height), UINT32_MAX),
        nullptr);
    const auto rowBytes = static_cast<size_t>(width) * 4;
    // The server's pixels when they are 32-bit words in this machine's byte order (depth 24
    // true colour: 0x00RRGGBB, as Cairo keeps them); otherwise, and for a window that is not
    // viewable, what was last painted.
    if (reply && xcb_get_image_data_length(reply) == static_cast<int>(rowBytes * height)
        && xcb_get_setup(xcb)->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST && std::endian::native == std::endian::little
        && reply->depth == 24) {
        const uint8_t* source = xcb_get_image_data(reply);
        cairo_surface_flush(image);
        unsigned char* target = cairo_image_surface_get_data(image);
        int stride = cairo_image_surface_get_stride(image);
        for (int y = 0; y < height; ++y) {
            auto* row = reinterpret_cast<uint32_t*>(target + static_cast<size_t>(y) * stride);
            std::memcpy(row, source + y * rowBytes, rowBytes);
            for (int x = 0; x < width; ++x)
                row[x] |= 0xFF000000u;
        }
        cairo_surface_mark_dirty(image);
    } else {
        cairo_t* cr = cairo_create(image);
        cairo_set_source_surface(cr, record->buffer, 0, 0);
        cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
        cairo_paint(cr);
        cairo_destroy(cr);
    }
    std::free(reply);
    return image;
}

} // namespace vesk::display::x11
