#include "text/CLocale_p.hpp"
#include "text/SString_p.hpp"

#include <algorithm>
#include <cstdio>

namespace vesk {
namespace {

// The 32-byte digit buffer of ImpUNToA, for 64-bit values.
unsigned int U64ToA(uint64_t value, char*& cursor)
{
    char* p = cursor + 31;
    *p = 0;
    do {
        *--p = char('0' + value % 10);
        value /= 10;
    } while (value != 0);
    const unsigned int digits = unsigned(cursor + 31 - p);
    cursor = p;
    return digits;
}

// Decimal text of a magnitude with an optional "-" in front, written into `buffer`.
const char* Decimal(uint64_t magnitude, bool negative, char (&buffer)[32], uint32_t& n)
{
    char* cursor = buffer;
    n = U64ToA(magnitude, cursor);
    if (negative) {
        *--cursor = '-';
        ++n;
    }
    return cursor;
}

SStringData* DecimalRecord(uint64_t magnitude, bool negative)
{
    char buffer[32];
    uint32_t n;
    const char* text = Decimal(magnitude, negative, buffer, n);
    return SStringData::Make(text, n, false);
}

uint64_t Magnitude(int64_t value)
{
    return value < 0 ? 0 - uint64_t(value) : uint64_t(value);
}

} // namespace

unsigned int ImpUNToA(uint32_t value, char*& cursor)
{
    return U64ToA(value, cursor);
}

SString::SString(unsigned char value) : SString(Adopt{}, DecimalRecord(value, false)) {}

SString::SString(short value) : SString(Adopt{}, DecimalRecord(Magnitude(value), value < 0)) {}

SString::SString(unsigned int value) : SString(Adopt{}, DecimalRecord(value, false)) {}

SString::SString(int64_t value) : SString(Adopt{}, DecimalRecord(Magnitude(value), value < 0)) {}

SString::SString(uint64_t value) : SString(Adopt{}, DecimalRecord(value, false)) {}

SString::SString(int value, int width) : m_pData(SStringData::Empty()), m_nLock(0)
{
    char buffer[32];
    uint32_t n;
    const char* text = Decimal(Magnitude(value), value < 0, buffer, n);
    // The zeros go in front of the sign: -5 at width 4 is "00-5".
    if (width - int(n) < 1) {
        m_pData = SStringData::Make(text, n, false);
        return;
    }
    const uint32_t zeros = uint32_t(width) - n;
    m_pData = SStringData::Make(uint32_t(width));
    std::memset(m_pData->Text(), '0', zeros);
    std::memcpy(m_pData->Text() + zeros, text, n);
}

SString::SString(double value) : m_pData(SStringData::Empty()), m_nLock(0)
{
    // "%f" into a 256-byte buffer: the text of values beyond about 1e248 is cut at 255 bytes.
    char buffer[256];
    int n;
    {
        CLocaleScope c;
        n = std::snprintf(buffer, sizeof buffer, "%f", value);
    }
    n = std::clamp(n, 0, int(sizeof buffer) - 1);
    m_pData = SStringData::Make(buffer, uint32_t(n), false);
}

namespace {

SString& AppendDecimal(SString& s, uint64_t magnitude, bool negative)
{
    char buffer[32];
    uint32_t n;
    s += Decimal(magnitude, negative, buffer, n);
    return s;
}

} // namespace

SString& SString::operator+=(unsigned char value)
{
    return AppendDecimal(*this, value, false);
}

SString& SString::operator+=(short value)
{
    return AppendDecimal(*this, Magnitude(value), value < 0);
}

SString& SString::operator+=(int value)
{
    return AppendDecimal(*this, Magnitude(value), value < 0);
}

SString& SString::operator+=(unsigned int value)
{
    return AppendDecimal(*this, value, false);
}

SString& SString::operator+=(long value)
{
    return AppendDecimal(*this, Magnitude(value), value < 0);
}

SString& SString::operator+=(unsigned long value)
{
    return AppendDecimal(*this, value, false);
}

} // namespace vesk
