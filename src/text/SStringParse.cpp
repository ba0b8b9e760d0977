#include "text/CLocale_p.hpp"
#include "text/SString_p.hpp"

#include <cstdlib>
#include <limits>
#include <strings.h>

namespace vesk {
namespace {

// An integer as the C runtime's strtol family reads it in radix 10: blanks of the "C" locale,
// one optional sign, then decimal digits.
struct ParsedInteger {
    uint64_t magnitude = 0;
    bool negative = false;
    bool overflow = false;
    // One past the last digit, or the start of the text when there was no digit.
    const char* end = nullptr;
};

bool IsCBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

ParsedInteger ParseInteger(const char* text)
{
    ParsedInteger result;
    result.end = text;
    const char* p = text;
    while (IsCBlank(*p))
        ++p;
    if (*p == '+' || *p == '-')
        result.negative = *p++ == '-';
    if (*p < '0' || *p > '9')
        return result;
    for (; *p >= '0' && *p <= '9'; ++p) {
        const unsigned digit = unsigned(*p - '0');
        if (result.magnitude > (std::numeric_limits<uint64_t>::max() - digit) / 10)
            result.overflow = true;
        else
            result.magnitude = result.magnitude * 10 + digit;
    }
    result.end = p;
    return result;
}

// The value clamped to a signed range, as strtol reports overflow.
template <typename T>
T Saturated(const ParsedInteger& parsed)
{
    const uint64_t max = uint64_t(std::numeric_limits<T>::max());
    if (parsed.negative) {
        if (parsed.overflow || parsed.magnitude > max + 1)
            return std::numeric_limits<T>::min();
        return T(0 - parsed.magnitude);
    }
    if (parsed.overflow || parsed.magnitude > max)
        return std::numeric_limits<T>::max();
    return T(parsed.magnitude);
}

// atoi and atol with a 32-bit result for both.
int32_t Atol(const char* text)
{
    return Saturated<int32_t>(ParseInteger(text));
}

} // namespace

SString::operator unsigned char() const
{
    SStringLock lock(*this);
    return static_cast<unsigned char>(Atol(m_pData->Text()));
}

SString::operator short() const
{
    SStringLock lock(*this);
    return static_cast<short>(Atol(m_pData->Text()));
}

SString::operator unsigned int() const
{
    SStringLock lock(*this);
    uint32_t value = 0;
    for (const char* p = m_pData->Text(); *p >= '0' && *p <= '9'; ++p)
        value = value * 10 + uint32_t(*p - '0');
    return value;
}

SString::operator int() const
{
    SStringLock lock(*this);
    return Atol(m_pData->Text());
}

SString::operator double() const
{
    SStringLock lock(*this);
    return strtod_l(m_pData->Text(), nullptr, CLocale());
}

SString::operator int64_t() const
{
    SStringLock lock(*this);
    return Saturated<int64_t>(ParseInteger(m_pData->Text()));
}

SString::operator uint64_t() const
{
    SStringLock lock(*this);
    const ParsedInteger parsed = ParseInteger(m_pData->Text());
    if (parsed.overflow)
        return std::numeric_limits<uint64_t>::max();
    return parsed.negative ? 0 - parsed.magnitude : parsed.magnitude;
}

bool SString::ToBool() const
{
    SStringLock lock(*this);
    const char* text = m_pData->Text();
    if (*text == 0)
        return false;
    if (strcasecmp_l(text, "true", CLocale()) == 0)
        return true;
    if (strcasecmp_l(text, "false", CLocale()) == 0)
        return false;
    const ParsedInteger parsed = ParseInteger(text);
    return parsed.end != text && *parsed.end == 0 && (parsed.magnitude != 0 || parsed.overflow);
}

} // namespace vesk
