// The text forms of colours: HTML colour texts and the debug strings.
#include <vesk/graphics/RGBAlpha.hpp>
#include <vesk/graphics/TamColor.hpp>

namespace vesk {

namespace {

uint16_t ReadHexPair(const SString& text, unsigned int index)
{
    return static_cast<uint16_t>(TamColor::GetHexValue(text[index]) * 16 + TamColor::GetHexValue(text[index + 1]));
}

void AppendHex(SString& text, uint16_t channel)
{
    static constexpr char kDigits[] = "0123456789ABCDEF";
    if (channel < 16)
        text += '0';
    char digits[4];
    int count = 0;
    do {
        digits[count++] = kDigits[channel & 0xF];
        channel >>= 4;
    } while (channel != 0);
    while (count > 0)
        text += digits[--count];
}

} // namespace

TamColor::TamColor(const SString& html) : TamColor()
{
    if (html.Len() < 7)
        return;
    m_nRed = ReadHexPair(html, 1);
    m_nGreen = ReadHexPair(html, 3);
    m_nBlue = ReadHexPair(html, 5);
}

SString TamColor::GetHTMLStr() const
{
    SString text("#");
    AppendHex(text, m_nRed);
    AppendHex(text, m_nGreen);
    AppendHex(text, m_nBlue);
    return text;
}

SString TamColor::GetTestStr() const
{
    SString text("r=");
    text += unsigned{m_nRed};
    text += " g=";
    text += unsigned{m_nGreen};
    text += " b=";
    text += unsigned{m_nBlue};
    return text;
}

SString RGBAlpha::GetStr() const
{
    SString text("r=");
    text += unsigned{GetRed()};
    text += "g=";
    text += unsigned{GetGreen()};
    text += "b=";
    text += unsigned{GetBlue()};
    text += "a=";
    text += unsigned{GetAlpha()};
    return text;
}

} // namespace vesk
