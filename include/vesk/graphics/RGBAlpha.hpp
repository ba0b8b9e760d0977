#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>

#include <cstdint>

namespace vesk {

class TamColor;

// A packed 32-bit colour for pixel work: byte 0 red, 1 green, 2 blue, 3 alpha.
class VESK_API RGBAlpha
{
public:
    // 0: transparent black.
    RGBAlpha() : m_nValue(0) {}
    // From the four bytes.
    RGBAlpha(uint8_t red, uint8_t green, uint8_t blue, uint8_t alpha)
        : m_nValue(red | uint32_t{green} << 8 | uint32_t{blue} << 16 | uint32_t{alpha} << 24)
    {
    }
    // From a platform colour value (its low three bytes) and an alpha byte.
    RGBAlpha(uint32_t colorRef, uint8_t alpha) : m_nValue((colorRef & 0xFFFFFF) | uint32_t{alpha} << 24) {}
    // From the packed value.
    explicit RGBAlpha(uint32_t value) : m_nValue(value) {}

    uint8_t GetRed() const { return static_cast<uint8_t>(m_nValue); }
    uint8_t GetGreen() const { return static_cast<uint8_t>(m_nValue >> 8); }
    uint8_t GetBlue() const { return static_cast<uint8_t>(m_nValue >> 16); }
    uint8_t GetAlpha() const { return static_cast<uint8_t>(m_nValue >> 24); }
    void SetRed(uint8_t v) { SetByte(0, v); }
    void SetGreen(uint8_t v) { SetByte(8, v); }
    void SetBlue(uint8_t v) { SetByte(16, v); }
    void SetAlpha(uint8_t v) { SetByte(24, v); }
    // The packed value.
    operator uint32_t() const { return m_nValue; }

    // Lays this colour, with its alpha as coverage, over `background`; alpha stays.
    void MixTransparent(const TamColor& background);
    // Multiplies each colour byte by alpha / 255; alpha stays.
    void PreMultiplyAlpha();
    // "r=<red>g=<green>b=<blue>a=<alpha>" in decimal, without blanks.
    SString GetStr() const;

    bool operator==(const RGBAlpha& other) const = default;

private:
    void SetByte(int shift, uint8_t v) { m_nValue = (m_nValue & ~(0xFFu << shift)) | uint32_t{v} << shift; }

    uint32_t m_nValue;
};

} // namespace vesk
