#include "text/SString_p.hpp"

#include <algorithm>

namespace vesk {
namespace {

// The bytes are tested as signed values, so 0x80-0xFF are never letters or digits.
bool IsUpperLetter(char c) { return c >= 'A' && c <= 'Z'; }
bool IsLowerLetter(char c) { return c >= 'a' && c <= 'z'; }
bool IsLetter(char c) { return IsUpperLetter(c) || IsLowerLetter(c); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetterOrDigit(char c) { return IsLetter(c) || IsDigit(c); }

// Whether every character of text[from..len) passes `test`.
template <typename Test>
bool All(const SStringData* rec, Test test, uint32_t from = 0)
{
    return std::all_of(rec->Text() + std::min(from, rec->nLen), rec->Text() + rec->nLen, test);
}

} // namespace

bool SString::IsAlpha() const
{
    SStringLock lock(*this);
    return All(m_pData, IsLetter);
}

bool SString::IsAlphaNumeric() const
{
    SStringLock lock(*this);
    return All(m_pData, IsLetterOrDigit);
}

bool SString::IsNumeric() const
{
    SStringLock lock(*this);
    return All(m_pData, IsDigit);
}

bool SString::IsNumber() const
{
    SStringLock lock(*this);
    // One leading "-" is allowed, so "-" alone counts as a number.
    return All(m_pData, IsDigit, m_pData->Text()[0] == '-' ? 1 : 0);
}

bool SString::IsLower() const
{
    SStringLock lock(*this);
    return std::none_of(m_pData->Text(), m_pData->Text() + m_pData->nLen, IsUpperLetter);
}

bool SString::IsUpper() const
{
    SStringLock lock(*this);
    return std::none_of(m_pData->Text(), m_pData->Text() + m_pData->nLen, IsLowerLetter);
}

} // namespace vesk
