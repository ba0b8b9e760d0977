#include "text/SString_p.hpp"

#include <algorithm>

namespace vesk {

void SStringErase(SStringData*& slot, uint32_t index, uint32_t length)
{
    SStringData* rec = slot;
    const uint32_t len = rec->nLen;
    if (index >= len || length == 0)
        return;
    length = std::min(length, len - index);
    if (length == len) {
        SStringSetRecord(slot, SStringData::Empty());
        return;
    }
    if (index + length == len) {
        SStringMakeUnique(slot);
        slot->SetLength(index);
        return;
    }
    SStringData* rest = SStringData::Make(len - length);
    std::memcpy(rest->Text(), rec->Text(), index);
    std::memcpy(rest->Text() + index, rec->Text() + index + length, len - index - length);
    rest->SetUTF8(rec->IsUTF8());
    SStringSetRecord(slot, rest);
}

} // namespace vesk

namespace vesk {
namespace {

// Copies n bytes without any `c` from src to dst (which may be src itself); returns the count.
uint32_t CopyWithout(char* dst, const char* src, uint32_t n, char c)
{
    const char* end = src + n;
    uint32_t out = 0;
    while (src < end) {
        const char* hit = static_cast<const char*>(std::memchr(src, c, size_t(end - src)));
        const char* stop = hit ? hit : end;
        std::memmove(dst + out, src, size_t(stop - src));
        out += uint32_t(stop - src);
        src = hit ? hit + 1 : end;
    }
    return out;
}

uint32_t LeadingRun(const SStringData* rec, char c)
{
    uint32_t n = 0;
    while (n < rec->nLen && rec->Text()[n] == c)
        ++n;
    return n;
}

uint32_t TrailingRun(const SStringData* rec, char c)
{
    uint32_t n = 0;
    while (n < rec->nLen && rec->Text()[rec->nLen - 1 - n] == c)
        ++n;
    return n;
}

// Keeps the characters index..index+n, in place for a private record.
void Keep(SStringData*& slot, uint32_t index, uint32_t n)
{
    SStringData* rec = slot;
    if (n == rec->nLen)
        return;
    if (n == 0) {
        SStringSetRecord(slot, SStringData::Empty());
    } else if (rec->IsPrivate()) {
        std::memmove(rec->Text(), rec->Text() + index, n);
        rec->SetLength(n);
    } else {
        SStringSetRecord(slot, SStringData::Make(rec->Text() + index, n, rec->IsUTF8()));
    }
}

} // namespace

void SString::Erase(unsigned int index, unsigned int length)
{
    SStringLock lock(*this);
    SStringErase(m_pData, index, length);
}

void SString::EraseAllChars(char c)
{
    SStringLock lock(*this);
    SStringData* rec = m_pData;
    const uint32_t len = rec->nLen;
    if (rec->IsPrivate()) {
        if (len != 0) {
            rec->SetLength(CopyWithout(rec->Text(), rec->Text(), len, c));
            if (rec->nLen == 0)
                SStringSetRecord(m_pData, SStringData::Empty());
        }
        return;
    }
    const uint32_t found = SStringCountByte(rec->Text(), len, c);
    if (found == 0)
        return;
    SStringData* rest = found == len ? SStringData::Empty() : SStringData::Make(len - found);
    if (found != len) {
        CopyWithout(rest->Text(), rec->Text(), len, c);
        rest->SetUTF8(rec->IsUTF8());
    }
    SStringSetRecord(m_pData, rest);
}

void SString::EraseLeadingChars(char c)
{
    SStringLock lock(*this);
    const uint32_t run = LeadingRun(m_pData, c);
    Keep(m_pData, run, m_pData->nLen - run);
}

void SString::EraseTrailingChars(char c)
{
    SStringLock lock(*this);
    Keep(m_pData, 0, m_pData->nLen - TrailingRun(m_pData, c));
}

void SString::Trim(char c)
{
    SStringLock lock(*this);
    const uint32_t lead = LeadingRun(m_pData, c);
    const uint32_t trail = lead == m_pData->nLen ? 0 : TrailingRun(m_pData, c);
    Keep(m_pData, lead, m_pData->nLen - lead - trail);
}

} // namespace vesk
