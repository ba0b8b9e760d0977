#pragma once

// A device's text state: its Pango context and the font descriptions of the current font,
// made once per font rather than once per call.

#include <vesk/graphics/Font.hpp>

#include <pango/pangocairo.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace vesk {

struct TextCache
{
    TextCache();
    ~TextCache();
    TextCache(const TextCache&) = delete;
    TextCache& operator=(const TextCache&) = delete;

    // Takes `font` as the current font; drops descriptions and advances of the previous one.
    void SetFont(const Font& font);

    // A layout of UTF-8 `text` for drawing on `cr`: the HQ family (bold from weight 560,
    // the font's rendering hint) or the plain one (the exact weight, grey anti-aliasing).
    // The caller unrefs it.
    PangoLayout* MakeLayout(cairo_t* cr, const std::string& text, bool hq);
    // The advance in pixels of each byte code in the system code page (made on first use).
    const std::array<int32_t, 256>& GetAdvances(cairo_t* cr);

    // A font family of the context's font map and the pixel heights it offers.
    struct Family
    {
        std::string name;
        std::vector<int32_t> sizes;
    };
    // The families sorted by name (made on first use).
    const std::vector<Family>& GetFamilies();
    // The plain family's font metrics for `cr` (the caller unrefs them).
    PangoFontMetrics* GetMetrics(cairo_t* cr);

    Font font;

private:
    // Makes the current font's descriptions and attributes when they are missing.
    void EnsureDescriptions();
    // Brings the context up to date with `cr` and the rendering options of the family.
    void PrepareContext(cairo_t* cr, bool hq);

    PangoContext* m_pContext;
    // The two rendering option sets: grey and subpixel anti-aliasing, both with hinted metrics.
    cairo_font_options_t* m_pGreyOptions;
    cairo_font_options_t* m_pSubpixelOptions;
    PangoFontDescription* m_pPlainDesc = nullptr;
    PangoFontDescription* m_pHQDesc = nullptr;
    PangoAttrList* m_pAttrs = nullptr;
    bool m_bHaveAdvances = false;
    bool m_bHaveFamilies = false;
    std::vector<Family> m_aFamilies;
    std::array<int32_t, 256> m_aAdvances{};
};

} // namespace vesk
