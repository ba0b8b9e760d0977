#pragma once

#include <vesk/export.hpp>
#include <vesk/frame/ColorName.hpp>
#include <vesk/text/SString.hpp>

#include <cstdint>

namespace vesk {

// An opaque RGB colour. Each channel is kept as an 8-bit value (0 to 255) in a 16-bit field;
// the 16-bit view (GetRed, SetRed, the three-channel constructor) is that value shifted left
// by 8. Platform colour values (COLORREF) are 32-bit: red in bits 0-7, green 8-15, blue 16-23.
// Conversions from floating point truncate toward zero and keep the low 16 bits of the
// 32-bit integer, as storing into the 16-bit field does; modifiers that can leave 0 to 255 say
// how they clamp.
class VESK_API TamColor
{
public:
    // White.
    TamColor() : m_nRed(255), m_nGreen(255), m_nBlue(255) {}
    // From a platform colour value.
    explicit TamColor(uint32_t colorRef);
    // From a platform colour value held in a signed integer.
    explicit TamColor(int32_t colorRef) : TamColor(static_cast<uint32_t>(colorRef)) {}
    // From a platform colour value held in an `unsigned long` (64 bits here; the low 32 count).
    explicit TamColor(unsigned long colorRef) : TamColor(static_cast<uint32_t>(colorRef)) {}
    // From 16-bit-scale channels: each becomes min(v >> 8, 255).
    TamColor(uint32_t red, uint32_t green, uint32_t blue);
    // From an HTML colour text "#RRGGBB": characters 1 to 6 are read with GetHexValue, the
    // first one is not looked at; white when the text is shorter than 7 characters.
    explicit TamColor(const SString& html);
    // Row `name` of the library's colour table (the high byte of each 16-bit channel); black
    // when the library is not started or the name is outside the table.
    explicit TamColor(ColorName name);

    // 16-bit view of the channels: the stored value times 256.
    uint16_t GetRed() const { return static_cast<uint16_t>(m_nRed << 8); }
    uint16_t GetGreen() const { return static_cast<uint16_t>(m_nGreen << 8); }
    uint16_t GetBlue() const { return static_cast<uint16_t>(m_nBlue << 8); }
    // Store the high byte of a 16-bit channel value.
    void SetRed(uint16_t v) { m_nRed = v >> 8; }
    void SetGreen(uint16_t v) { m_nGreen = v >> 8; }
    void SetBlue(uint16_t v) { m_nBlue = v >> 8; }

    // The stored channel values (0 to 255 for every colour but a malformed HTML text's).
    uint16_t Get8BitRed() const { return m_nRed; }
    uint16_t Get8BitGreen() const { return m_nGreen; }
    uint16_t Get8BitBlue() const { return m_nBlue; }
    // Channels as fractions: value / 255.
    double GetFRed() const { return m_nRed / 255.0; }
    double GetFGreen() const { return m_nGreen / 255.0; }
    double GetFBlue() const { return m_nBlue / 255.0; }

    // Platform colour value: blue * 65536 + green * 256 + red.
    uint32_t GetLong() const;
    operator uint32_t() const { return GetLong(); }
    // red * 65536 + green * 256 + blue.
    uint32_t GetLongReversed() const;
    // Euclidean length of the 8-bit channel vector.
    double GetLen() const;
    // Dot product of the 8-bit channel vectors.
    double ScalarProduct(const TamColor& other) const;
    // Relative luminance with green weighted 0.751, so white gives slightly more than 1.
    double GetLuminance() const;
    // The grey of the same brightness (weights 0.3, 0.6, 0.1).
    TamColor GetGrayValue() const;
    // 0xAARRGGBB (straight colour) with alpha = opacityPercent * 255 / 100 (32-bit integer
    // arithmetic, low 8 bits).
    uint32_t GetGdiplusColor(int opacityPercent) const;
    // "#RRGGBB" with upper-case hexadecimal digits.
    SString GetHTMLStr() const;
    // "r=<red> g=<green> b=<blue>" with the 8-bit values in decimal.
    SString GetTestStr() const;

    // Each channel times percent / 100, capped at 255; returns the new colour.
    TamColor ChangeBrightness(int percent);
    // Each channel times max(1 - percent / 100, 0); returns the new colour.
    TamColor Darken(int percent);
    // Mode 0 scales each channel by 1 + percent / 100 (overflow and negatives become 255),
    // mode 1 moves it toward white by min(percent / 100, 1), other modes change nothing.
    TamColor Lighten(int percent, int mode);
    // Mode 0 of Lighten with a percentage per channel.
    TamColor Lighten(int redPercent, int greenPercent, int bluePercent);

    // The colour of hue h, saturation s and lightness l, all 0 to 1.
    static TamColor FromHSL(double h, double s, double l);
    // Value of one hexadecimal digit of an HTML colour text: "0"-"9", "a"-"f", and any
    // upper-case letter counted on from "A" = 10 without a range check; anything else 0.
    static int GetHexValue(char c);

    bool operator==(const TamColor& other) const = default;

private:
    friend class ColorPair;
    // Channels moved toward white by `factor` (0 to 1).
    void LightenTowardWhite(double factor);
    // Channels multiplied by `factor`.
    void Scale(double factor);

    uint16_t m_nRed;
    uint16_t m_nGreen;
    uint16_t m_nBlue;
};

// A colour with an opacity in percent (100 = opaque). Drawing code turns it into an ARGB
// value with TamColor::GetGdiplusColor(GetOpacity()).
class VESK_API TransparentColor : public TamColor
{
public:
    // Opaque white.
    TransparentColor() : m_nOpacity(100) {}
    // `color` with `opacityPercent`.
    TransparentColor(const TamColor& color, uint16_t opacityPercent)
        : TamColor(color), m_nOpacity(opacityPercent)
    {
    }

    // The opacity in percent.
    uint16_t GetOpacity() const { return m_nOpacity; }
    // Sets the opacity in percent.
    void SetOpacity(uint16_t opacityPercent) { m_nOpacity = opacityPercent; }

    bool operator==(const TransparentColor& other) const = default;

private:
    uint16_t m_nOpacity;
};

} // namespace vesk
