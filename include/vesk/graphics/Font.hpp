#pragma once

#include <vesk/export.hpp>
#include <vesk/graphics/TamColor.hpp>
#include <vesk/text/SString.hpp>

#include <cstdint>

namespace vesk {

// The text tool. The face is matched through fontconfig: a face that does not exist falls
// back to fontconfig's default face, as every other fontconfig client does. The height is
// the em height in pixels; drawing limits it to 1 to MAX_FONT_HEIGHT. The weight runs from
// 100 (thin) to 900 (black), 400 regular, 700 bold; 0 means regular.
class VESK_API Font
{
public:
    static constexpr int32_t MAX_FONT_HEIGHT = 4096;

    // "Sans", 12 pixels, regular, black on white, transparent background.
    Font() : m_aFace("Sans") {}
    Font(const SString& face, int32_t height, int32_t weight = 400, bool italic = false)
        : m_aFace(face), m_nHeight(height), m_nWeight(weight), m_bItalic(italic)
    {
    }

    const SString& GetFace() const { return m_aFace; }
    void SetFace(const SString& face) { m_aFace = face; }
    int32_t GetHeight() const { return m_nHeight; }
    void SetHeight(int32_t height) { m_nHeight = height; }
    // The height drawing uses: clamped to 1 to MAX_FONT_HEIGHT.
    int32_t GetDrawHeight() const;
    int32_t GetWeight() const { return m_nWeight; }
    void SetWeight(int32_t weight) { m_nWeight = weight; }
    bool IsItalic() const { return m_bItalic; }
    void SetItalic(bool on) { m_bItalic = on; }
    bool IsUnderline() const { return m_bUnderline; }
    void SetUnderline(bool on) { m_bUnderline = on; }
    bool IsStrikeout() const { return m_bStrikeout; }
    void SetStrikeout(bool on) { m_bStrikeout = on; }
    const TamColor& GetColor() const { return m_aColor; }
    void SetColor(const TamColor& color) { m_aColor = color; }
    // The background behind the text when the font is not transparent.
    const TamColor& GetFillColor() const { return m_aFillColor; }
    void SetFillColor(const TamColor& color) { m_aFillColor = color; }
    bool IsTransparent() const { return m_bTransparent; }
    void SetTransparent(bool on) { m_bTransparent = on; }

    bool operator==(const Font& other) const;

private:
    SString m_aFace;
    int32_t m_nHeight = 12;
    int32_t m_nWeight = 400;
    bool m_bItalic = false;
    bool m_bUnderline = false;
    bool m_bStrikeout = false;
    bool m_bTransparent = true;
    TamColor m_aColor{0u};
    TamColor m_aFillColor;
};

} // namespace vesk
