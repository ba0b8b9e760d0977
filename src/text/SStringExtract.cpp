#include "text/SString_p.hpp"

#include <algorithm>
#include <string.h>

namespace vesk {

SStringData* SStringCopyRange(SStringData*& slot, uint32_t index, uint32_t length)
{
    const SStringData* rec = slot;
    const uint32_t len = rec->nLen;
    if (index >= len || length == 0)
        return SStringData::Empty();
    length = std::min(length, len - index);
    if (length == len)
        return SStringShare(slot);
    return SStringData::Make(rec->Text() + index, length, rec->IsUTF8());
}

SString SString::Copy(unsigned int index, unsigned int length) const
{
    SStringLock lock(*this);
    return SString(Adopt{}, SStringCopyRange(m_pData, index, length));
}

SString SString::Cut(unsigned int index, unsigned int length)
{
    SStringLock lock(*this);
    SString part(Adopt{}, SStringCopyRange(m_pData, index, length));
    SStringErase(m_pData, index, length);
    return part;
}

SString SString::CopyToLastChar(char c) const
{
    SStringLock lock(*this);
    const char* text = m_pData->Text();
    const void* last = memrchr(text, c, m_pData->nLen);
    const uint32_t length = last ? uint32_t(static_cast<const char*>(last) - text) : STRING_LEN;
    return SString(Adopt{}, SStringCopyRange(m_pData, 0, length));
}

} // namespace vesk
