#include "text/SStringCase_p.hpp"
#include "text/SString_p.hpp"

#include <string.h>

namespace vesk {
namespace {

// Converts up to the first zero, as the C runtime's case functions do.
void ConvertCase(SStringData* rec, bool upper)
{
    const CaseMap map(rec->IsUTF8());
    const auto n = uint32_t(strnlen(rec->Text(), rec->nLen));
    map.Convert(rec->Text(), n, upper ? map.Upper() : map.Lower());
}

void ConvertInPlace(SStringData*& slot, bool upper)
{
    SStringMakeUnique(slot);
    if (slot->nLen != 0)
        ConvertCase(slot, upper);
}

SStringData* ConvertedCopy(const SStringData* rec, bool upper)
{
    if (rec->nLen == 0)
        return SStringData::Empty();
    SStringData* copy = SStringData::Make(rec->Text(), rec->nLen, rec->IsUTF8());
    ConvertCase(copy, upper);
    return copy;
}

} // namespace

void SString::ToLower()
{
    SStringLock lock(*this);
    ConvertInPlace(m_pData, false);
}

void SString::ToUpper()
{
    SStringLock lock(*this);
    ConvertInPlace(m_pData, true);
}

SString SString::Lower() const
{
    SStringLock lock(*this);
    return SString(Adopt{}, ConvertedCopy(m_pData, false));
}

SString SString::Upper() const
{
    SStringLock lock(*this);
    return SString(Adopt{}, ConvertedCopy(m_pData, true));
}

} // namespace vesk
