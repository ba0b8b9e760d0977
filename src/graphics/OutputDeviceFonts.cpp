#include <vesk/graphics/OutputDevice.hpp>

#include "graphics/DeviceGraphics_p.hpp"
#include "graphics/TextCache_p.hpp"
#include "platform/utf.hpp"

#include <algorithm>

namespace vesk {
namespace {

const TextCache::Family* FamilyAt(TextCache& t, int32_t index)
{
    const auto& families = t.GetFamilies();
    return index >= 0 && size_t(index) < families.size() ? &families[size_t(index)] : nullptr;
}

// The line box of one line in the plain family: its height and the baseline within it.
void LineBox(PangoLayout* layout, int32_t& height, int32_t& ascent)
{
    PangoRectangle logical;
    pango_layout_get_pixel_extents(layout, nullptr, &logical);
    height = logical.height;
    ascent = PANGO_PIXELS(pango_layout_get_baseline(layout));
}

} // namespace

int32_t OutputDevice::GetDevFontCount()
{
    DeviceGraphics g(*this);
    return g ? int32_t(GetTextCache().GetFamilies().size()) : 0;
}

SString OutputDevice::GetDevFont(int32_t index)
{
    DeviceGraphics g(*this);
    const TextCache::Family* f = g ? FamilyAt(GetTextCache(), index) : nullptr;
    return f ? SString(f->name.c_str()) : SString();
}

int32_t OutputDevice::GetDevFontSizeCount(int32_t index)
{
    DeviceGraphics g(*this);
    const TextCache::Family* f = g ? FamilyAt(GetTextCache(), index) : nullptr;
    return f ? int32_t(f->sizes.size()) : 0;
}

int32_t OutputDevice::GetDevFontSize(int32_t index, int32_t sizeIndex)
{
    DeviceGraphics g(*this);
    const TextCache::Family* f = g ? FamilyAt(GetTextCache(), index) : nullptr;
    if (!f || sizeIndex < 0 || size_t(sizeIndex) >= f->sizes.size())
        return 0;
    return f->sizes[size_t(sizeIndex)];
}

bool OutputDevice::GetFontMetric(FontMetric& m)
{
    DeviceGraphics g(*this);
    if (!g)
        return false;
    TextCache& t = GetTextCache();
    // Height and ascent come from the line box the plain text family draws in, so that text
    // placed by these numbers lines up with DrawText.
    PangoLayout* layout = t.MakeLayout(g.cr(), "X", false);
    LineBox(layout, m.height, m.ascent);
    g_object_unref(layout);
    m.descent = m.height - m.ascent;
    m.internalLeading = std::max(0, m.height - t.font.GetDrawHeight());
    m.externalLeading = 0; // Pango's line box already holds the font's line gap
    PangoFontMetrics* metrics = t.GetMetrics(g.cr());
    m.aveCharWidth = PANGO_PIXELS(pango_font_metrics_get_approximate_char_width(metrics));
    pango_font_metrics_unref(metrics);
    const auto& advances = t.GetAdvances(g.cr());
    m.maxCharWidth = *std::max_element(advances.begin(), advances.end());
    return true;
}

bool OutputDevice::GetGlyphMetric(char16_t c, GlyphMetric& m)
{
    DeviceGraphics g(*this);
    if (!g)
        return false;
    PangoLayout* layout = GetTextCache().MakeLayout(g.cr(), platform::Utf16ToUtf8(std::u16string_view(&c, 1)), false);
    PangoRectangle ink, logical;
    pango_layout_get_pixel_extents(layout, &ink, &logical);
    const int32_t baseline = PANGO_PIXELS(pango_layout_get_baseline(layout));
    g_object_unref(layout);
    m.blackBoxX = ink.width;
    m.blackBoxY = ink.height;
    m.origin = TamPoint(ink.x - logical.x, baseline - ink.y);
    m.cellIncX = logical.width;
    m.cellIncY = 0;
    return true;
}

uint32_t OutputDevice::GetColorCount()
{
    DeviceGraphics g(*this);
    if (!g)
        return 0;
    cairo_surface_t* target = cairo_get_target(g.cr());
    if (cairo_surface_get_type(target) != CAIRO_SURFACE_TYPE_IMAGE)
        return 1u << 24; // documents and windows take true colour
    switch (cairo_image_surface_get_format(target)) {
    case CAIRO_FORMAT_A1:
        return 2;
    case CAIRO_FORMAT_A8:
        return 256;
    case CAIRO_FORMAT_RGB16_565:
        return 1u << 16;
    case CAIRO_FORMAT_RGB30:
        return 1u << 30;
    default:
        return 1u << 24;
    }
}

} // namespace vesk
