#include "locale/IntlSettings_p.hpp"

#include "locale/IntlPicture_p.hpp"

#include <string_view>

namespace vesk {

namespace {

const std::string* Find(const platform::IntlKeys& keys, const char* key)
{
    auto it = keys.find(key);
    return it == keys.end() ? nullptr : &it->second;
}

// The first `count` characters of UTF-8 text.
std::string_view FirstChars(std::string_view text, size_t count)
{
    size_t end = 0;
    for (; end < text.size(); ++end) {
        bool starts = (static_cast<unsigned char>(text[end]) & 0xC0) != 0x80;
        if (starts && count-- == 0)
            break;
    }
    return text.substr(0, end);
}

// The 8-bit character standing for the first character of UTF-8 text, if there is one.
std::optional<char> SeparatorChar(std::string_view text)
{
    if (text.empty())
        return std::nullopt;
    auto byte = [&text](size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
    uint32_t lead = byte(0);
    if (lead < 0x80)
        return static_cast<char>(lead);
    uint32_t c = 0;
    if ((lead & 0xE0) == 0xC0)
        c = (lead & 0x1F) << 6 | (byte(1) & 0x3F);
    else if ((lead & 0xF0) == 0xE0)
        c = (lead & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
    switch (c) {
    case 0x00A0: case 0x2002: case 0x2003: case 0x2004: case 0x2005: case 0x2006: case 0x2007:
    case 0x2008: case 0x2009: case 0x200A: case 0x202F:
        return ' ';
    case 0x00B4: case 0x02BC: case 0x2018: case 0x2019: case 0x2032:
        return '\'';
    default:
        return std::nullopt;
    }
}

// The readers below leave the field alone when the key is missing or unusable.
void ReadChar(const platform::IntlKeys& keys, const char* key, char& field)
{
    if (const std::string* value = Find(keys, key))
        field = SeparatorChar(*value).value_or(field);
}

void ReadText(const platform::IntlKeys& keys, const char* key, size_t maxChars, SString& field)
{
    if (const std::string* value = Find(keys, key))
        field = IntlText(FirstChars(*value, maxChars));
}

template <class Field>
void ReadNumber(const platform::IntlKeys& keys, const char* key, Field& field)
{
    if (std::optional<int32_t> n = IntlNumber(keys, key))
        field = static_cast<Field>(*n);
}

// Pictures are read up to this many characters, AM/PM texts and the currency symbol up to 10.
constexpr size_t PICTURE_CHARS = 40;
constexpr size_t TEXT_CHARS = 10;

} // namespace

std::optional<int32_t> IntlNumber(const platform::IntlKeys& keys, const char* key)
{
    const std::string* value = Find(keys, key);
    if (!value)
        return std::nullopt;
    std::string_view text = *value;
    bool negative = text.starts_with('-');
    text.remove_prefix(negative);
    uint32_t n = 0;
    size_t digits = 0;
    for (; digits < text.size() && text[digits] >= '0' && text[digits] <= '9'; ++digits)
        n = n * 10 + static_cast<uint32_t>(text[digits] - '0');
    if (digits == 0)
        return std::nullopt;
    return static_cast<int32_t>(negative ? 0u - n : n);
}

void ReadIntlSettings(const platform::IntlKeys& keys, CountryTable& table)
{
    if (const std::string* picture = Find(keys, "sShortDate"))
        ReadShortDatePicture(IntlText(FirstChars(*picture, PICTURE_CHARS)), table);
    if (const std::string* picture = Find(keys, "sLongDate"))
        ReadLongDatePicture(IntlText(FirstChars(*picture, PICTURE_CHARS)), table);
    ReadNumber(keys, "iTime", table.m_eTimeFormat);
    ReadChar(keys, "sTime", table.m_cTimeSep);
    ReadText(keys, "s1159", TEXT_CHARS, table.m_sTimeAM);
    ReadText(keys, "s2359", TEXT_CHARS, table.m_sTimePM);
    ReadNumber(keys, "iTLZero", table.m_bTimeLeadingZero);
    if (const std::string* thousand = Find(keys, "sThousand")) {
        table.m_cNumThousandSep = SeparatorChar(*thousand).value_or(table.m_cNumThousandSep);
        table.m_bNumThousandSep = !thousand->empty();
    }
    ReadChar(keys, "sDecimal", table.m_cNumDecimalSep);
    ReadNumber(keys, "iLzero", table.m_bNumLeadingZero);
    ReadNumber(keys, "iDigits", table.m_nNumDigits);
    ReadNumber(keys, "iCurrency", table.m_nCurrPositiveFormat);
    ReadNumber(keys, "iNegCurr", table.m_nCurrNegativeFormat);
    ReadText(keys, "sCurrency", TEXT_CHARS, table.m_sCurrSymbol);
    ReadNumber(keys, "iCurrDigits", table.m_nCurrDigits);
    ReadChar(keys, "sList", table.m_cListSep);
}

} // namespace vesk
