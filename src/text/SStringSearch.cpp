#include "text/SStringCase_p.hpp"
#include "text/SStringFind_p.hpp"
#include "text/SString_p.hpp"

#include <string.h>

namespace vesk {
namespace {

const unsigned char* NoFold = nullptr;

uint32_t Find(const SStringData* text, const SStringData* what, uint32_t from, SearchDirection direction,
              const unsigned char* fold)
{
    return FindPattern(text->Text(), text->nLen, what->Text(), what->nLen, from, direction, fold);
}

uint32_t LastByte(const SStringData* text, char c)
{
    const void* hit = memrchr(text->Text(), c, text->nLen);
    return hit ? uint32_t(static_cast<const char*>(hit) - text->Text()) : STRING_NOTFOUND;
}

} // namespace

unsigned int SString::Search(const SString& what, unsigned int from) const
{
    SStringPairLock lock(*this, what);
    return Find(m_pData, what.m_pData, from, SearchDirection::Forward, NoFold);
}

unsigned int SString::Search(const char* what, unsigned int from) const
{
    if (!what)
        return STRING_NOTFOUND;
    SStringLock lock(*this);
    const uint32_t len = m_pData->nLen;
    // A pattern longer than the text cannot fit, so it is measured no further.
    const auto wl = uint32_t(strnlen(what, size_t(len) + 1));
    return FindPattern(m_pData->Text(), len, what, wl, from, SearchDirection::Forward, NoFold);
}

unsigned int SString::Search(char c, unsigned int from) const
{
    SStringLock lock(*this);
    return FindPattern(m_pData->Text(), m_pData->nLen, &c, 1, from, SearchDirection::Forward, NoFold);
}

unsigned int SString::NoCaseSearch(const SString& what, unsigned int from) const
{
    SStringPairLock lock(*this, what);
    const CaseMap map(m_pData->IsUTF8() || what.m_pData->IsUTF8());
    return Find(m_pData, what.m_pData, from, SearchDirection::Forward, map.Lower());
}

unsigned int SString::SearchBackward(const SString& what, unsigned int from) const
{
    SStringPairLock lock(*this, what);
    if (from >= m_pData->nLen)
        return STRING_NOTFOUND;
    return Find(m_pData, what.m_pData, from, SearchDirection::Backward, NoFold);
}

unsigned int SString::SearchFromEnd(const SString& what, bool noCase) const
{
    SStringPairLock lock(*this, what);
    // One character is searched case-sensitively whatever noCase says.
    if (what.m_pData->nLen == 1)
        return LastByte(m_pData, what.m_pData->Text()[0]);
    if (!noCase)
        return Find(m_pData, what.m_pData, STRING_NOTFOUND, SearchDirection::Backward, NoFold);
    const CaseMap map(m_pData->IsUTF8() || what.m_pData->IsUTF8());
    return Find(m_pData, what.m_pData, STRING_NOTFOUND, SearchDirection::Backward, map.Lower());
}

unsigned int SString::SearchFromEnd(char c) const
{
    SStringLock lock(*this);
    return LastByte(m_pData, c);
}

} // namespace vesk
