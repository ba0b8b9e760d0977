#include <vesk/graphics/OutputDevice.hpp>

#include "graphics/Cairo_p.hpp"
#include "graphics/DeviceGraphics_p.hpp"
#include "graphics/TextCache_p.hpp"
#include "platform/utf.hpp"

#include <cmath>
#include <memory>
#include <vector>

namespace vesk {
namespace {

std::string Utf8(const UString& s)
{
    return platform::Utf16ToUtf8(std::u16string_view(static_cast<const char16_t*>(s), s.Len()));
}

// The logical box of a layout in pixels (width, height).
PangoRectangle Logical(PangoLayout* layout)
{
    PangoRectangle r;
    pango_layout_get_pixel_extents(layout, nullptr, &r);
    return r;
}

// Draws `layout` with its top-left corner at (x, y) in the font's colour, on the font's fill
// colour unless the font is transparent.
void ShowLayout(cairo_t* cr, PangoLayout* layout, const Font& font, double x, double y, bool background)
{
    if (background && !font.IsTransparent()) {
        const PangoRectangle r = Logical(layout);
        SetSourceColor(cr, font.GetFillColor());
        cairo_rectangle(cr, x, y, r.width, r.height);
        cairo_fill(cr);
    }
    SetSourceColor(cr, font.GetColor());
    cairo_move_to(cr, x, y);
    pango_cairo_show_layout(cr, layout);
}

struct LayoutUnref
{
    void operator()(PangoLayout* layout) const { g_object_unref(layout); }
};

using LayoutPtr = std::unique_ptr<PangoLayout, LayoutUnref>;

// One character of stretched text: its layout and its natural advance in pixels.
struct StretchCell
{
    LayoutPtr layout;
    int32_t advance;
};

// Places each character at its share of the span: the running sum of natural advances scaled
// by span / total, so that the last one ends exactly at the span (the natural width when
// width <= 0). The font's fill colour lies under the whole span unless it is transparent.
void DrawStretchCells(cairo_t* cr, TextCache& t, const TamPoint& pos, const std::vector<StretchCell>& cells,
                      int32_t width)
{
    if (!Drawable(double(pos.x), double(pos.y)) || !Drawable(double(width)))
        return;
    int64_t total = 0;
    for (const StretchCell& c : cells)
        total += c.advance;
    const int64_t span = width > 0 ? width : total;
    auto place = [&](int64_t sum) { return total > 0 ? pos.x + sum * span / total : double(pos.x); };
    if (!t.font.IsTransparent()) {
        PangoLayout* probe = t.MakeLayout(cr, "X", false);
        SetSourceColor(cr, t.font.GetFillColor());
        cairo_rectangle(cr, pos.x, pos.y, double(span), Logical(probe).height);
        cairo_fill(cr);
        g_object_unref(probe);
    }
    int64_t sum = 0;
    for (const StretchCell& c : cells) {
        ShowLayout(cr, c.layout.get(), t.font, place(sum), pos.y, false);
        sum += c.advance;
    }
}

} // namespace

void OutputDevice::DrawText(const TamPoint& pos, const SString& text)
{
    DrawTextW(pos, UString(text));
}

void OutputDevice::DrawTextW(const TamPoint& pos, const UString& text)
{
    DeviceGraphics g(*this);
    if (!g || !Drawable(double(pos.x), double(pos.y)))
        return;
    TextCache& t = GetTextCache();
    PangoLayout* layout = t.MakeLayout(g.cr(), Utf8(text), false);
    ShowLayout(g.cr(), layout, t.font, pos.x, pos.y, true);
    g_object_unref(layout);
}

TamSize OutputDevice::GetTextSize(const SString& text)
{
    return GetTextSizeW(UString(text));
}

TamSize OutputDevice::GetTextSizeW(const UString& text)
{
    DeviceGraphics g(*this);
    if (!g)
        return TamSize(0, 0);
    PangoLayout* layout = GetTextCache().MakeLayout(g.cr(), Utf8(text), false);
    const PangoRectangle r = Logical(layout);
    g_object_unref(layout);
    return TamSize(r.width, r.height);
}

void OutputDevice::DrawStretchText(const TamPoint& pos, const SString& text, int32_t width)
{
    DeviceGraphics g(*this);
    if (!g)
        return;
    TextCache& t = GetTextCache();
    const auto& advances = t.GetAdvances(g.cr());
    std::vector<StretchCell> cells;
    const char* bytes = text;
    for (unsigned i = 0; i < text.Len(); ++i) {
        const unsigned char c = static_cast<unsigned char>(bytes[i]);
        cells.push_back({LayoutPtr(t.MakeLayout(g.cr(), Utf8(UString(static_cast<char>(c))), false)), advances[c]});
    }
    DrawStretchCells(g.cr(), t, pos, cells, width);
}

void OutputDevice::DrawStretchTextW(const TamPoint& pos, const UString& text, int32_t width)
{
    DeviceGraphics g(*this);
    if (!g)
        return;
    TextCache& t = GetTextCache();
    std::vector<StretchCell> cells;
    const char16_t* units = text;
    for (unsigned i = 0; i < text.Len(); ++i) {
        // A surrogate pair is one character.
        const bool pair = i + 1 < text.Len() && units[i] >= 0xD800 && units[i] < 0xDC00 &&
                          units[i + 1] >= 0xDC00 && units[i + 1] < 0xE000;
        PangoLayout* layout =
            t.MakeLayout(g.cr(), platform::Utf16ToUtf8(std::u16string_view(units + i, pair ? 2 : 1)), false);
        cells.push_back({LayoutPtr(layout), Logical(layout).width});
        i += pair;
    }
    DrawStretchCells(g.cr(), t, pos, cells, width);
}

void OutputDevice::DrawRotatedText(const CRectangle& r, const SString& text, double degrees)
{
    DeviceGraphics g(*this);
    if (!g || r.IsEmpty() || !Drawable(double(r.Left()), double(r.Top()), double(r.Right()), double(r.Bottom())) ||
        !std::isfinite(degrees))
        return;
    TextCache& t = GetTextCache();
    cairo_t* cr = g.cr();
    PangoLayout* layout = t.MakeLayout(cr, Utf8(UString(text)), false);
    const PangoRectangle box = Logical(layout);
    cairo_translate(cr, (double(r.Left()) + r.Right() + 1) / 2, (double(r.Top()) + r.Bottom() + 1) / 2);
    cairo_rotate(cr, -degrees * M_PI / 180);
    pango_cairo_update_layout(cr, layout);
    ShowLayout(cr, layout, t.font, -box.width / 2.0, -box.height / 2.0, false);
    g_object_unref(layout);
}

bool OutputDevice::DrawTextHQ(const FPoint& pos, const SString& text)
{
    return DrawTextWHQ(pos, UString(text));
}

bool OutputDevice::DrawTextWHQ(const FPoint& pos, const UString& text)
{
    bool ok;
    {
        HQGraphics g(*this, Smoothing::None);
        if (!g)
            return false;
        if (Drawable(pos.x, pos.y)) {
            TextCache& t = GetTextCache();
            PangoLayout* layout = t.MakeLayout(g.cr(), Utf8(text), true);
            ShowLayout(g.cr(), layout, t.font, pos.x, pos.y, false);
            g_object_unref(layout);
        } else {
            g.Fail();
        }
        ok = g.Finish();
    }
    if (!ok)
        DrawTextW(TamPoint(int32_t(std::isfinite(pos.x) ? std::trunc(pos.x) : 0),
                           int32_t(std::isfinite(pos.y) ? std::trunc(pos.y) : 0)),
                  text);
    return ok;
}

bool OutputDevice::DrawTextHQVertical(const FPoint& pos, const SString& text)
{
    HQGraphics g(*this, Smoothing::None);
    if (!g)
        return false;
    if (!Drawable(pos.x, pos.y))
        return g.Reject();
    TextCache& t = GetTextCache();
    cairo_t* cr = g.cr();
    cairo_translate(cr, pos.x, pos.y);
    cairo_rotate(cr, -M_PI / 2);
    PangoLayout* layout = t.MakeLayout(cr, Utf8(UString(text)), true);
    ShowLayout(cr, layout, t.font, 0, 0, false);
    g_object_unref(layout);
    return g.Finish();
}

FSize OutputDevice::GetTextSizeHQ(const SString& text)
{
    return GetTextSizeWHQ(UString(text));
}

FSize OutputDevice::GetTextSizeWHQ(const UString& text)
{
    HQGraphics g(*this, Smoothing::None);
    if (!g)
        return FSize(0, 0);
    PangoLayout* layout = GetTextCache().MakeLayout(g.cr(), Utf8(text), true);
    PangoRectangle r;
    // Logical extents keep trailing spaces, as measuring must.
    pango_layout_get_extents(layout, nullptr, &r);
    g_object_unref(layout);
    g.Finish();
    return FSize(double(r.width) / PANGO_SCALE, double(r.height) / PANGO_SCALE);
}

} // namespace vesk
