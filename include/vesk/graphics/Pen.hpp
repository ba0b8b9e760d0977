#pragma once

#include <vesk/export.hpp>
#include <vesk/graphics/TamColor.hpp>

#include <cstdint>

namespace vesk {

// How a pen's line is broken up.
enum class PenStyle : uint8_t {
    Solid = 0,
    Dash = 1,
    Dot = 2,
    DashDot = 3,
    Null = 5, // draws nothing
};

// The shape of a line's ends; the numbers are the anti-aliased engine's cap codes.
enum class LineCap : int32_t {
    Flat = 0,
    Square = 1,
    Round = 2,
};

// The outline tool: colour, width in pixels, style and end cap. A width of 0 or less draws
// the thinnest line the device has (one pixel).
class VESK_API Pen
{
public:
    // Black, one pixel, solid, flat ends.
    Pen() : m_aColor(0u) {}
    Pen(const TamColor& color, int32_t width = 1, PenStyle style = PenStyle::Solid,
        LineCap cap = LineCap::Flat)
        : m_aColor(color), m_nWidth(width), m_eStyle(style), m_eCap(cap)
    {
    }

    const TamColor& GetColor() const { return m_aColor; }
    void SetColor(const TamColor& color) { m_aColor = color; }
    // The width as set (may be 0 or negative).
    int32_t GetWidth() const { return m_nWidth; }
    void SetWidth(int32_t width) { m_nWidth = width; }
    // The width the device draws with: at least one pixel.
    int32_t GetDrawWidth() const { return m_nWidth > 1 ? m_nWidth : 1; }
    PenStyle GetStyle() const { return m_eStyle; }
    void SetStyle(PenStyle style) { m_eStyle = style; }
    LineCap GetCap() const { return m_eCap; }
    void SetCap(LineCap cap) { m_eCap = cap; }
    // Whether the pen draws anything.
    bool IsVisible() const { return m_eStyle != PenStyle::Null; }

    bool operator==(const Pen&) const = default;

private:
    TamColor m_aColor;
    int32_t m_nWidth = 1;
    PenStyle m_eStyle = PenStyle::Solid;
    LineCap m_eCap = LineCap::Flat;
};

} // namespace vesk
