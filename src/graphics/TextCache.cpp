#include "graphics/TextCache_p.hpp"

#include "platform/utf.hpp"

#include <vesk/frame/VeskData.hpp>
#include <vesk/graphics/OutputDevice.hpp>
#include <vesk/text/UString.hpp>

#include <algorithm>

namespace vesk {
namespace {

cairo_font_options_t* HintedOptions(bool subpixel)
{
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, subpixel ? CAIRO_ANTIALIAS_SUBPIXEL : CAIRO_ANTIALIAS_GRAY);
    if (subpixel)
        cairo_font_options_set_subpixel_order(options, CAIRO_SUBPIXEL_ORDER_RGB);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
    return options;
}

PangoFontDescription* Describe(const Font& font, int weight)
{
    PangoFontDescription* d = pango_font_description_new();
    pango_font_description_set_family(d, font.GetFace());
    pango_font_description_set_absolute_size(d, double(font.GetDrawHeight()) * PANGO_SCALE);
    pango_font_description_set_weight(d, static_cast<PangoWeight>(weight));
    pango_font_description_set_style(d, font.IsItalic() ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    return d;
}

} // namespace

int OutputDevice::GetTextRenderingHint(const Font& font)
{
    const VeskData* data = GetPVeskData();
    return font.GetHeight() > 20 || !data || !data->CanClearType() ? 3 : 5;
}

TextCache::TextCache()
    : m_pContext(pango_font_map_create_context(pango_cairo_font_map_get_default())),
      m_pGreyOptions(HintedOptions(false)), m_pSubpixelOptions(HintedOptions(true))
{
}

TextCache::~TextCache()
{
    SetFont(Font());
    cairo_font_options_destroy(m_pGreyOptions);
    cairo_font_options_destroy(m_pSubpixelOptions);
    g_object_unref(m_pContext);
}

void TextCache::SetFont(const Font& f)
{
    if (m_pPlainDesc) {
        pango_font_description_free(m_pPlainDesc);
        pango_font_description_free(m_pHQDesc);
        pango_attr_list_unref(m_pAttrs);
        m_pPlainDesc = m_pHQDesc = nullptr;
        m_pAttrs = nullptr;
    }
    font = f;
    m_bHaveAdvances = false;
}

void TextCache::EnsureDescriptions()
{
    if (!m_pPlainDesc) {
        // A weight of 0 means regular; the plain family keeps the exact weight, the HQ one
        // knows only regular and bold, bold from 560 on.
        const int weight = font.GetWeight() <= 0 ? 400 : std::clamp(font.GetWeight(), 100, 1000);
        m_pPlainDesc = Describe(font, weight);
        m_pHQDesc = Describe(font, font.GetWeight() >= 560 ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
        m_pAttrs = pango_attr_list_new();
        if (font.IsUnderline())
            pango_attr_list_insert(m_pAttrs, pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
        if (font.IsStrikeout())
            pango_attr_list_insert(m_pAttrs, pango_attr_strikethrough_new(TRUE));
    }
}

void TextCache::PrepareContext(cairo_t* cr, bool hq)
{
    // Hint 5 (ClearType) is subpixel anti-aliasing, hint 3 grey anti-aliasing; both fit
    // glyphs to the pixel grid through hinted metrics. Plain text is grey and hinted too.
    const bool subpixel = hq && OutputDevice::GetTextRenderingHint(font) == 5;
    pango_cairo_update_context(cr, m_pContext);
    pango_cairo_context_set_font_options(m_pContext, subpixel ? m_pSubpixelOptions : m_pGreyOptions);
}

PangoLayout* TextCache::MakeLayout(cairo_t* cr, const std::string& text, bool hq)
{
    EnsureDescriptions();
    PrepareContext(cr, hq);
    PangoLayout* layout = pango_layout_new(m_pContext);
    pango_layout_set_font_description(layout, hq ? m_pHQDesc : m_pPlainDesc);
    pango_layout_set_attributes(layout, m_pAttrs);
    pango_layout_set_text(layout, text.data(), int(text.size()));
    return layout;
}

const std::array<int32_t, 256>& TextCache::GetAdvances(cairo_t* cr)
{
    if (m_bHaveAdvances)
        return m_aAdvances;
    for (int code = 1; code < 256; ++code) {
        const UString wide(static_cast<char>(code));
        const std::u16string_view units(static_cast<const char16_t*>(wide), wide.Len());
        PangoLayout* layout = MakeLayout(cr, platform::Utf16ToUtf8(units), false);
        PangoRectangle logical;
        pango_layout_get_pixel_extents(layout, nullptr, &logical);
        m_aAdvances[code] = logical.width;
        g_object_unref(layout);
    }
    m_bHaveAdvances = true;
    return m_aAdvances;
}

} // namespace vesk
