#pragma once

#include <vesk/text/SString.hpp>

#include <cstdint>
#include <string>
#include <string_view>

namespace vesk {

// Collects the text of a formatted value and makes one string of it at the end. Appending
// follows SString's rules: a character 0 adds nothing, and the result is UTF-8 when any
// appended string was.
class IntlBuilder {
public:
    IntlBuilder& operator+=(char c)
    {
        if (c)
            m_text += c;
        return *this;
    }
    IntlBuilder& operator+=(std::string_view text)
    {
        m_text += text;
        return *this;
    }
    IntlBuilder& operator+=(const SString& s)
    {
        m_text.append(static_cast<const char*>(s), s.Len());
        m_bUTF8 = m_bUTF8 || s.IsUTF8();
        return *this;
    }
    // Decimal digits, padded with '0' to `width`.
    void AddNumber(uint32_t value, size_t width)
    {
        char digits[16];
        size_t n = 0;
        do {
            digits[n++] = static_cast<char>('0' + value % 10);
            value /= 10;
        } while (value);
        for (; n < width; --width)
            m_text += '0';
        while (n)
            m_text += digits[--n];
    }

    SString Make() const
    {
        SString s(m_text.data(), 0, static_cast<unsigned int>(m_text.size()), true);
        if (m_bUTF8)
            s.SetIsUTF8();
        return s;
    }

private:
    std::string m_text;
    bool m_bUTF8 = false;
};

} // namespace vesk
