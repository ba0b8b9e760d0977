#pragma once

#include <vesk/export.hpp>
#include <vesk/graphics/Bitmap.hpp>
#include <vesk/graphics/Brush.hpp>
#include <vesk/graphics/Font.hpp>
#include <vesk/graphics/FontMetric.hpp>
#include <vesk/graphics/Gradient.hpp>
#include <vesk/graphics/Pen.hpp>
#include <vesk/graphics/Polygon.hpp>
#include <vesk/graphics/Region.hpp>
#include <vesk/graphics/TamColor.hpp>
#include <vesk/graphics/Texture.hpp>
#include <vesk/text/SString.hpp>
#include <vesk/text/UString.hpp>
#include <vesk/values/CRectangle.hpp>
#include <vesk/values/FPoint.hpp>
#include <vesk/values/FRectangle.hpp>
#include <vesk/values/TamPoint.hpp>
#include <vesk/values/TamSize.hpp>

#include <cstdint>
#include <memory>

namespace vesk {

// A drawing context: the surface a device draws on (defined inside the library).
struct DeviceContext;
struct TextCache;

// Where a device's context comes from.
enum DeviceKind : uint32_t {
    DEVICE_NONE = 0,
    DEVICE_WINDOW = 1,  // lent by the window layer's DCManager
    DEVICE_MEMORY = 2,  // a VirtualDevice's picture; the context is deleted on release
    DEVICE_PRINTER = 3, // a PrinterDevice's document
};

// Where DrawArrow's tip points.
enum ArrowDirection : uint8_t { ARROW_UP, ARROW_DOWN, ARROW_LEFT, ARROW_RIGHT };

// Raster operations the plain family honours: copy, and exclusive-or of the source.
inline constexpr uint32_t ROP_SRCCOPY = 0xCC0020;
inline constexpr uint32_t ROP_SRCINVERT = 0x660046;

// Shows a message to the user; the default writes "<title>: <text>" to standard error.
using MessageBoxFunction = void (*)(const char* text, const char* title);
// Installs the function drawing errors are reported through (null: the default); returns
// the previous one.
VESK_API MessageBoxFunction GlSetMessageBoxFunction(MessageBoxFunction f);

// The drawing surface. Two families of operations share the current tools: the plain one
// draws without anti-aliasing on integer geometry, pixel-exact (rectangles with inclusive
// edges, lines without their last pixel); the HQ one draws anti-aliased in doubles and builds
// its drawing state afresh for each call. Without a context every operation returns at once
// with its failure value. Coordinates that are not finite or lie beyond +-2^22 cannot be
// drawn: plain operations then draw nothing, HQ operations count a drawing error.
class VESK_API OutputDevice
{
public:
    OutputDevice() = default;
    explicit OutputDevice(uint32_t kind) : m_nKind(kind) {}
    virtual ~OutputDevice();
    OutputDevice(const OutputDevice&) = delete;
    OutputDevice& operator=(const OutputDevice&) = delete;

    // Device acquisition.
    // The context, acquired first when there is none and it is not external (may be null).
    DeviceContext* GethDC();
    // GethDC, returning whether a context exists.
    bool InitDevice() { return GethDC() != nullptr; }
    // Gives the context back (a window's to its manager; memory and printer contexts are
    // deleted, which ends a printer document) and drops the tools. Nothing for an external one.
    void ReleaseDevice();
    // Draws on `dc`, which belongs to the caller and is never released by the device.
    void SetHDCFromExtern(DeviceContext* dc);
    uint32_t GetDeviceKind() const { return m_nKind; }

    // Counts a drawing error; the first one on this device is reported to the user.
    void IncGdiPlusError();
    uint32_t GetGdiPlusErrorCount() const { return m_nGdiPlusErrors; }

    // Tools. Change... returns the previous tool (a default one when there was none).
    uint32_t ChangeRasterOp(uint32_t rop);
    Pen ChangePen(const Pen& pen);
    Brush ChangeFillInBrush(const Brush& brush);
    virtual void ChangeBackgroundTexture(const Texture& texture);
    void ChangeBackgroundBrush(const Brush& brush) { ChangeBackgroundTexture(Texture(brush)); }
    void ChangeBackgroundGradient(const RectGradient& g) { ChangeBackgroundTexture(Texture(g)); }
    void ChangeBackgroundBitmap(const Bitmap& bitmap) { ChangeBackgroundTexture(Texture(bitmap)); }
    virtual void ChangeFont(const Font& font);
    void ChangeClipRegion(const Region& region);
    // No clipping.
    void ChangeClipRegion();
    // The background texture and the font's fill colour become `color`.
    void SetBackgroundAndFontCol(const TamColor& color);
    // The current tools; null until changed (no clip region: null).
    const Pen* GetPen() const { return m_pPen.get(); }
    const Brush* GetFillInBrush() const { return m_pBrush.get(); }
    const Texture& GetBackgroundTexture() const { return m_aBackground; }
    const Brush& GetBackgroundBrush() const { return m_aBackground.GetBrush(); }
    const Font* GetFont() const { return m_pFont.get(); }
    const Region* GetClipRegion() const { return m_pClip.get(); }

    // Plain family: the current pen outlines, the current fill brush fills.
    void DrawLine(const TamPoint& from, const TamPoint& to);
    void DrawRect(const CRectangle& r);
    void DrawEllipse(const CRectangle& r);
    // The arc of the ellipse in r counter-clockwise from the ray toward `start` to the ray
    // toward `end`; DrawPie closes it through the centre and fills it.
    void DrawArc(const CRectangle& r, const TamPoint& start, const TamPoint& end);
    void DrawPie(const CRectangle& r, const TamPoint& start, const TamPoint& end);
    // Filled alternately (even-odd), outlined with the pen.
    void DrawPolygon(const CPolygon& p);
    // The outline of r with the current pen.
    void DrawFrame(const CRectangle& r);
    // A `width`-pixel edge: `light` on the top and left, `dark` on the bottom and right
    // (swapped when `sunken`), each drawn with one-pixel lines.
    void Draw3DFrame(const CRectangle& r, int32_t width, const TamColor& light,
                     const TamColor& dark, bool sunken);
    // The two-pixel grey edge of a field: shadow and dark shadow on the top and left,
    // highlight and light grey on the bottom and right; mirrored when not `sunken`.
    void DrawGrayEdge(const CRectangle& r, bool sunken = true);
    // The largest pixel-exact triangle with a right angle at its tip that fits centred in r,
    // filled with `color` or with `gradient` fitted to r.
    void DrawArrow(const CRectangle& r, ArrowDirection direction, const TamColor& color);
    void DrawArrowGradient(const CRectangle& r, ArrowDirection direction, const RectGradient& gradient);
    void DrawPixel(const TamPoint& p, const TamColor& color);
    // The pixel's platform colour value; 0xFFFFFFFF outside the picture or without one.
    uint32_t GetPixel(const TamPoint& p);
    void InvertRect(const CRectangle& r);
    // Paints r with the background texture, a colour, or a gradient fitted to r.
    void Erase(const CRectangle& r);
    void Erase(const CRectangle& r, const TamColor& color);
    void Erase(const CRectangle& r, const RectGradient& gradient);
    // Paints r with `color` at `opacityPercent`.
    void EraseTransparent(const CRectangle& r, const TamColor& color, uint16_t opacityPercent);
    void FillRgn(const Region& region, const Brush& brush);
    // Paints the region's border, `width` pixels wide, with `brush`.
    void FrameRgn(const Region& region, const Brush& brush, int32_t width);
    // Copies `size` pixels from `src` at `srcPos` to `dest`.
    void DrawOutDev(const TamPoint& dest, const TamSize& size, OutputDevice& src,
                    const TamPoint& srcPos);

    // Bitmaps: the picture is drawn over what is there, its alpha respected; a bitmap with
    // only an opaque view is copied as it stands. An empty bitmap draws nothing.
    void DrawBitmap(const TamPoint& pos, const Bitmap& bitmap);
    // The same, leaving out every opaque pixel of colour `key`.
    void DrawBitmapTransparent(const TamPoint& pos, const Bitmap& bitmap, const TamColor& key = TamColor(0xFF00FFu));
    // The bitmap stretched onto r by nearest pixel.
    void DrawBitmapScaled(const CRectangle& r, const Bitmap& bitmap);
    // A copy of the device's pixels in r (transparent where r leaves the picture); empty
    // without a context.
    Bitmap GetBitmap(const CRectangle& r);

    // Plain text in the current font, the text box's top-left corner at `pos`.
    void DrawText(const TamPoint& pos, const SString& text);
    void DrawTextW(const TamPoint& pos, const UString& text);
    TamSize GetTextSize(const SString& text);
    TamSize GetTextSizeW(const UString& text);
    // Text placed by the font's table of character advances, spread to span `width`
    // pixels (its natural width when width <= 0).
    void DrawStretchText(const TamPoint& pos, const SString& text, int32_t width = 0);
    // The same for wide text, each character advancing by its own measured width.
    void DrawStretchTextW(const TamPoint& pos, const UString& text, int32_t width = 0);
    // Text centred in r, turned counter-clockwise by `degrees`, without background.
    void DrawRotatedText(const CRectangle& r, const SString& text, double degrees);

    // Font families the device can draw with, sorted by name, and the pixel heights each
    // offers (a scalable family offers the usual ladder from 8 to 72); 0 or an empty name
    // for an index out of range or without a context.
    int32_t GetDevFontCount();
    SString GetDevFont(int32_t index);
    int32_t GetDevFontSizeCount(int32_t index);
    int32_t GetDevFontSize(int32_t index, int32_t sizeIndex);
    // Measures of the current font, and of one character in it; false without a context.
    bool GetFontMetric(FontMetric& metric);
    bool GetGlyphMetric(char16_t c, GlyphMetric& metric);
    // How many colours the device's picture can hold (2^24 for true colour); 0 without a context.
    uint32_t GetColorCount();

    // HQ family; false (0) when the device has no context or the drawing failed.
    bool DrawLineHQ(const FPoint& from, const FPoint& to, const TransparentColor& color,
                    double width, LineCap endCap);
    // With the current pen's colour and style; width <= 0 takes the pen's width.
    bool DrawLineHQ(const FPoint& from, const FPoint& to, int32_t width, int32_t endCap);
    bool DrawFrameHQ(const FRectangle& r);
    bool DrawArcHQ(const CRectangle& r, double startDegrees, double sweepDegrees,
                   const TamColor& color, double width);
    // Fills r in the pen's colour (black without a pen); 1 when drawn, 0 for the empty mark
    // or no context.
    int DrawRectHQ(const FRectangle& r);
    int DrawRectHQ(const FRectangle& r, const TransparentColor& color);
    bool DrawEllipseHQ(const FRectangle& r, int opacityPercent);
    bool DrawPolygonHQ(const FPolygon& p);
    bool FillTransparentPolygon(const CPolygon& p, const TransparentColor& color);
    bool DrawRing(const CRectangle& r, int32_t width, const TransparentColor& color, bool gradient);
    bool DrawRoundRect(const CRectangle& r, int32_t width, int32_t radius,
                       const TransparentColor& color, bool gradient);
    // A smooth curve through the points (a Catmull-Rom spline drawn as cubic arcs).
    bool DrawSplineHQ(const FPolygon& p, const TransparentColor& color, double width);
    bool DrawTextHQ(const FPoint& pos, const SString& text);
    bool DrawTextWHQ(const FPoint& pos, const UString& text);
    // The text turned a quarter counter-clockwise, reading upward from `pos`.
    bool DrawTextHQVertical(const FPoint& pos, const SString& text);
    FSize GetTextSizeHQ(const SString& text);
    FSize GetTextSizeWHQ(const UString& text);

    // The bitmap at `pos` stretched to `size` with the best filter, its edges anti-aliased.
    bool DrawBitmapHQ(const FPoint& pos, const FSize& size, const Bitmap& bitmap);
    // The device's pixels from `pos` over `size` (each side truncated), resampled with the best
    // filter at fractional positions, the edge pixels repeated beyond the picture; empty
    // without a context or for a size below one pixel.
    Bitmap GetBitmapHQ(const FPoint& pos, const FSize& size);

    // The anti-aliased text hint for `font`: 3 (anti-aliased, hinted metrics) above 20
    // pixels or when ClearType is not allowed, else 5 (subpixel anti-aliasing, hinted metrics).
    static int GetTextRenderingHint(const Font& font);

protected:
    // Creates the context of a device that owns one; the base asks the window layer for kind 1.
    virtual DeviceContext* CreateContext();
    // Gives back or deletes a context CreateContext made.
    virtual void DeleteContext(DeviceContext* dc);
    // Gives back or deletes the context as ReleaseDevice does, keeping the tools.
    void ReleaseContext();
    // The text state, made on first use.
    TextCache& GetTextCache();

private:
    friend class DeviceGraphics;
    friend class HQGraphics;
    void DeleteDrawingTools();

    DeviceContext* m_hDC = nullptr;
    bool m_bExtern = false;
    uint32_t m_nKind = DEVICE_NONE;
    uint32_t m_nRasterOp = ROP_SRCCOPY;
    std::unique_ptr<Pen> m_pPen;
    std::unique_ptr<Brush> m_pBrush;
    std::unique_ptr<Font> m_pFont;
    Texture m_aBackground;
    std::unique_ptr<Region> m_pClip;
    std::unique_ptr<TextCache, void (*)(TextCache*)> m_pText{nullptr, nullptr};
    uint32_t m_nGdiPlusErrors = 0;
};

} // namespace vesk
