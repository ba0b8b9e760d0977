#include <vesk/graphics/Bitmap.hpp>
#include <vesk/graphics/VirtualDevice.hpp>

#include "graphics/DeviceContext.hpp"
#include "graphics/bitmap/BitmapSurface_p.hpp"

#include <cstring>

namespace vesk {

using codecs::PixelImage;

namespace {

// Copies a view into a picture form; `opaque` forces alpha 255, else straight colour is
// premultiplied. False for a view that cannot be held.
bool CopyView(const BitmapPixels& view, bool opaque, PixelImage& image)
{
    const int32_t stride = view.stride == 0 ? view.width : view.stride;
    if (!view.pixels || stride < view.width || !MakeBlankImage(view.width, view.height, image))
        return false;
    for (int32_t y = 0; y < view.height; ++y) {
        const uint32_t* in = view.pixels + size_t(y) * size_t(stride);
        uint32_t* out = image.pixels.data() + size_t(y) * size_t(view.width);
        for (int32_t x = 0; x < view.width; ++x)
            out[x] = opaque ? in[x] | 0xFF000000u : view.premultiplied ? in[x] : codecs::PremultipliedPixel(in[x]);
    }
    return true;
}

// The picture over `background`: c + background * (255 - alpha) / 255 rounded, alpha 255.
PixelImage Composite(const PixelImage& picture, const TamColor& background)
{
    PixelImage out = picture;
    const uint32_t br = background.Get8BitRed(), bg = background.Get8BitGreen(), bb = background.Get8BitBlue();
    for (uint32_t& p : out.pixels) {
        const uint32_t rest = 255 - (p >> 24);
        const uint32_t r = ((p >> 16) & 0xFF) + codecs::MulDiv255(br, rest);
        const uint32_t g = ((p >> 8) & 0xFF) + codecs::MulDiv255(bg, rest);
        const uint32_t b = (p & 0xFF) + codecs::MulDiv255(bb, rest);
        p = 0xFF000000u | std::min(r, 255u) << 16 | std::min(g, 255u) << 8 | std::min(b, 255u);
    }
    return out;
}

} // namespace

bool MakeBlankImage(int32_t width, int32_t height, PixelImage& image)
{
    if (!codecs::IsAcceptableImageSize(width, height))
        return false;
    image.width = width;
    image.height = height;
    image.pixels.assign(size_t(width) * size_t(height), 0);
    return true;
}

Bitmap BitmapAccess::FromImage(PixelImage&& image)
{
    Bitmap b;
    if (image.width > 0 && image.height > 0) {
        b.m_pRecord = new BitmapRecord;
        b.m_pRecord->picture = std::move(image);
    }
    return b;
}

Bitmap::Bitmap() = default;

Bitmap::Bitmap(const BitmapPixels& opaque)
{
    PixelImage image;
    if (CopyView(opaque, true, image)) {
        m_pRecord = new BitmapRecord;
        m_pRecord->opaque = std::move(image);
    }
}

Bitmap::Bitmap(const BitmapPixels& color, const BitmapPixels& mask)
{
    PixelImage image;
    if (!CopyView(color, false, image))
        return;
    const int32_t maskStride = mask.stride == 0 ? mask.width : mask.stride;
    if (mask.pixels && maskStride >= mask.width) {
        for (int32_t y = 0; y < std::min(color.height, mask.height); ++y)
            for (int32_t x = 0; x < std::min(color.width, mask.width); ++x)
                if (mask.pixels[size_t(y) * size_t(maskStride) + size_t(x)] & 0xFFFFFF)
                    image.pixels[size_t(y) * size_t(image.width) + size_t(x)] = 0;
    }
    *this = BitmapAccess::FromImage(std::move(image));
}

Bitmap::Bitmap(VirtualDevice& device)
{
    DeviceContext* dc = device.GethDC();
    if (!dc)
        return;
    cairo_surface_flush(dc->surface);
    const int32_t stride = cairo_image_surface_get_stride(dc->surface);
    const BitmapPixels view{cairo_image_surface_get_width(dc->surface), cairo_image_surface_get_height(dc->surface),
                            stride / 4, reinterpret_cast<const uint32_t*>(cairo_image_surface_get_data(dc->surface)),
                            true};
    PixelImage image;
    if (CopyView(view, false, image))
        *this = BitmapAccess::FromImage(std::move(image));
}

Bitmap::Bitmap(const TamSize& size, std::vector<uint32_t>&& premultipliedArgb)
{
    if (codecs::IsAcceptableImageSize(size.Width(), size.Height()) &&
        premultipliedArgb.size() == size_t(size.Width()) * size_t(size.Height()))
        *this = BitmapAccess::FromImage(PixelImage{size.Width(), size.Height(), std::move(premultipliedArgb)});
}

Bitmap::Bitmap(const Bitmap& other)
{
    Attach(other.m_pRecord);
}

Bitmap& Bitmap::operator=(const Bitmap& other)
{
    if (other.m_pRecord != m_pRecord) {
        BitmapRecord* record = other.m_pRecord;
        Delete();
        Attach(record);
    }
    return *this;
}

Bitmap::~Bitmap()
{
    Delete();
}

void Bitmap::Attach(BitmapRecord* record)
{
    m_pRecord = record;
    if (record)
        record->nShareCount.fetch_add(1, std::memory_order_relaxed);
}

void Bitmap::Delete()
{
    BitmapRecord* record = m_pRecord;
    m_pRecord = nullptr;
    // A count above 0 means others still hold the record; the holder that finds 0 is the last.
    if (record && record->nShareCount.fetch_sub(1, std::memory_order_acq_rel) == 0)
        delete record;
}

BitmapPixels Bitmap::GetHBitmap(const TamColor& background)
{
    if (!m_pRecord)
        return {};
    if (!m_pRecord->opaque && m_pRecord->picture)
        m_pRecord->opaque = Composite(*m_pRecord->picture, background);
    return m_pRecord->opaque ? ViewOf(*m_pRecord->opaque, true) : BitmapPixels{};
}

void Bitmap::SetHBitmap(const BitmapPixels& opaque)
{
    PixelImage image;
    if (!CopyView(opaque, true, image))
        return;
    if (!m_pRecord)
        m_pRecord = new BitmapRecord;
    m_pRecord->opaque = std::move(image);
}

void Bitmap::DeleteHBitmap()
{
    if (m_pRecord)
        m_pRecord->opaque.reset();
}

bool Bitmap::CreateDIB(const TamSize& size)
{
    Delete();
    PixelImage image;
    if (!MakeBlankImage(size.Width(), size.Height(), image))
        return false;
    for (uint32_t& p : image.pixels)
        p = 0xFF000000u;
    m_pRecord = new BitmapRecord;
    m_pRecord->opaque = std::move(image);
    return true;
}

BitmapPixels Bitmap::GetPGdiplusBitmap() const
{
    const PixelImage* picture = BitmapAccess::Picture(*this);
    return picture ? ViewOf(*picture, true) : BitmapPixels{};
}

bool Bitmap::CreatePGdiplusBitmap()
{
    if (!m_pRecord)
        return false;
    if (!m_pRecord->picture && m_pRecord->opaque)
        m_pRecord->picture = *m_pRecord->opaque;
    return m_pRecord->picture.has_value();
}

bool Bitmap::IsGdiplusBitmap() const
{
    return BitmapAccess::Picture(*this) != nullptr;
}

bool Bitmap::Empty() const
{
    return !m_pRecord || (!m_pRecord->picture && !m_pRecord->opaque);
}

TamSize Bitmap::GetSize() const
{
    const PixelImage* image = ShownImage(*this);
    return image ? TamSize(image->width, image->height) : TamSize(0, 0);
}

} // namespace vesk
