#include "text/SStringCase_p.hpp"
#include "text/SString_p.hpp"

#include <algorithm>
#include <cstdint>

namespace vesk {
namespace {

// _strnicmp over n characters of two records (SIZE_MAX: _stricmp of the whole texts); UTF-8
// on either side folds ASCII letters only.
int CompareNoCase(const SStringData* a, const char* b, bool bIsUTF8, size_t n)
{
    return CaseMap(a->IsUTF8() || bIsUTF8).Compare(a->Text(), b, n);
}

int CompareNoCase(const SStringData* a, const SStringData* b, size_t n)
{
    return CompareNoCase(a, b->Text(), b->IsUTF8(), n);
}

size_t CompareLength(unsigned int n)
{
    return n == STRING_LEN ? SIZE_MAX : n;
}

// Index of the first character of `text` that differs from `s`, the end of `s` (its zero)
// counting as a difference; STRING_MATCH when all of `text` matches.
uint32_t FirstDifference(const SStringData* text, const char* s)
{
    const char* t = text->Text();
    for (uint32_t i = 0; i < text->nLen; ++i)
        if (s[i] != t[i] || s[i] == 0)
            return i;
    return STRING_MATCH;
}

} // namespace

StringCompare SString::ICompare(const SString& s, unsigned int n) const
{
    SStringPairLock lock(*this, s);
    return SStringToCompare(CompareNoCase(m_pData, s.m_pData, CompareLength(n)));
}

StringCompare SString::ICompare(const char* text, unsigned int n) const
{
    SStringLock lock(*this);
    return SStringToCompare(CompareNoCase(m_pData, text ? text : "", false, CompareLength(n)));
}

bool SString::NoCaseEqual(const SString& s) const
{
    SStringPairLock lock(*this, s);
    return m_pData == s.m_pData
        || (m_pData->nLen == s.m_pData->nLen && CompareNoCase(m_pData, s.m_pData, SIZE_MAX) == 0);
}

unsigned int SString::Match(const SString& s) const
{
    SStringPairLock lock(*this, s);
    return m_pData == s.m_pData ? STRING_MATCH : FirstDifference(m_pData, s.m_pData->Text());
}

unsigned int SString::Match(const char* s) const
{
    SStringLock lock(*this);
    return FirstDifference(m_pData, s ? s : "");
}

unsigned int SString::IMatch(const SString& s) const
{
    SStringPairLock lock(*this, s);
    if (m_pData == s.m_pData || m_pData->nLen == 0)
        return STRING_MATCH;
    const size_t n = std::min(m_pData->nLen, s.m_pData->nLen);
    return CompareNoCase(m_pData, s.m_pData, n) == 0 ? STRING_MATCH : 0;
}

bool SString::EndsOn(const SString& s) const
{
    SStringPairLock lock(*this, s);
    const uint32_t len = m_pData->nLen;
    const uint32_t sl = s.m_pData->nLen;
    return sl != 0 && sl <= len && std::memcmp(m_pData->Text() + len - sl, s.m_pData->Text(), sl) == 0;
}

} // namespace vesk
