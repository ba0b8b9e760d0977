#include "text/SString_p.hpp"

#include <algorithm>

namespace vesk {

void SStringAppend(SStringData*& slot, const char* text, uint32_t n)
{
    SStringData* rec = slot;
    const uint32_t len = rec->nLen;
    if (uint64_t(len) + n >= SSTRING_CUT_LENGTH)
        n = len < STRING_MAXLEN ? STRING_MAXLEN - len : 0;
    const uint32_t newLen = len + n;
    const bool isPrivate = rec->IsPrivate();
    if (isPrivate && newLen < rec->nCap) {
        // `text` may lie inside this record, before its end.
        std::memmove(rec->Text() + len, text, n);
        rec->SetLength(newLen);
        return;
    }
    // Growth by half keeps repeated appending linear; a shared record is copied at its size.
    const uint32_t needed = (newLen | 15) + 1;
    uint32_t room = newLen;
    if (isPrivate && rec->nCap / 2 > needed / 3)
        room = std::max(std::min(rec->nCap + rec->nCap / 2, STRING_MAXLEN) - 1, newLen);
    const uintptr_t at = reinterpret_cast<uintptr_t>(text);
    const uintptr_t start = reinterpret_cast<uintptr_t>(rec->Text());
    const bool textInRecord = at >= start && at - start <= rec->nCap;
    if (isPrivate && !rec->IsEmptyRecord() && !textInRecord) {
        // The sole owner extends its own record, which the allocator may do without a copy.
        rec = SStringData::Grow(rec, room);
        slot = rec;
        std::memcpy(rec->Text() + len, text, n);
        rec->SetLength(newLen);
        return;
    }
    SStringData* grown = SStringData::Make(newLen, room);
    std::memcpy(grown->Text(), rec->Text(), len);
    std::memcpy(grown->Text() + len, text, n);
    grown->SetUTF8(rec->IsUTF8());
    SStringSetRecord(slot, grown);
}

namespace {

// Appends a referenced record: an empty string takes it over, an empty one changes nothing,
// and the flags are ORed.
void AppendRecord(SStringData*& slot, SStringRef& add)
{
    if (slot->nLen == 0) {
        SStringSetRecord(slot, add.Take());
        return;
    }
    if (add->nLen == 0)
        return;
    const bool utf8 = slot->IsUTF8() || add->IsUTF8();
    SStringAppend(slot, add->Text(), add->nLen);
    slot->SetUTF8(utf8);
}

} // namespace

SString& SString::operator+=(const SString& s)
{
    SStringRef add(s);
    SStringLock lock(*this);
    AppendRecord(m_pData, add);
    return *this;
}

SString& SString::operator+=(const char* text)
{
    const uint32_t n = text ? strnlen(text, SSTRING_CUT_LENGTH) : 0;
    if (n == 0)
        return *this;
    SStringLock lock(*this);
    SStringAppend(m_pData, text, n);
    return *this;
}

SString& SString::operator+=(char c)
{
    if (c == 0)
        return *this;
    SStringLock lock(*this);
    SStringData* rec = m_pData;
    const uint32_t len = rec->nLen;
    if (len >= STRING_MAXLEN)
        return *this;
    if (rec->IsPrivate() && len + 1 < rec->nCap) {
        rec->Text()[len] = c;
        rec->SetLength(len + 1);
    } else {
        SStringAppend(m_pData, &c, 1);
    }
    return *this;
}

void SString::AddSeparated(const SString& text, const SString& separator)
{
    SStringRef add(text);
    SStringRef sep(separator);
    SStringLock lock(*this);
    if (m_pData->nLen != 0 && sep->nLen != 0 && add->nLen != 0)
        AppendRecord(m_pData, sep);
    AppendRecord(m_pData, add);
}

void SString::AddSeparated(const SString& text, char separator)
{
    SStringRef add(text);
    SStringLock lock(*this);
    if (m_pData->nLen != 0 && separator != 0 && add->nLen != 0)
        SStringAppend(m_pData, &separator, 1);
    AppendRecord(m_pData, add);
}

} // namespace vesk
