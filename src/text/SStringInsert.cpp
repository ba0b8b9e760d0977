#include "text/SString_p.hpp"

#include <algorithm>

namespace vesk {
namespace {

// Builds the text with n bytes inserted at `position` (cut to the length) into a new record
// flagged `utf8`. A sum of STRING_MAXLEN + 1 or more gives exactly STRING_MAXLEN characters:
// the head, as much of the insert as fits, then as much of the old tail as fits.
void InsertBytes(SStringData*& slot, const char* insert, uint32_t n, uint32_t position, bool utf8)
{
    const SStringData* rec = slot;
    const uint32_t len = rec->nLen;
    position = std::min(position, len);
    uint32_t head = position;
    uint32_t tail = len - position;
    if (uint64_t(len) + n >= SSTRING_CUT_LENGTH) {
        head = std::min(head, STRING_MAXLEN);
        n = std::min(n, STRING_MAXLEN - head);
        tail = std::min(tail, STRING_MAXLEN - head - n);
    }
    // `insert` may point into the old record, which lives until the new one is in place.
    SStringData* result = SStringData::Make(head + n + tail);
    std::memcpy(result->Text(), rec->Text(), head);
    std::memcpy(result->Text() + head, insert, n);
    std::memcpy(result->Text() + head + n, rec->Text() + position, tail);
    result->SetUTF8(utf8);
    SStringSetRecord(slot, result);
}

} // namespace

void SString::Insert(const SString& text, unsigned int position)
{
    SStringRef insert(text);
    SStringLock lock(*this);
    if (m_pData->nLen == 0)
        SStringSetRecord(m_pData, insert.Take());
    else if (insert->nLen != 0)
        InsertBytes(m_pData, insert->Text(), insert->nLen, position, m_pData->IsUTF8() || insert->IsUTF8());
}

void SString::Insert(const SString& text, unsigned int index, unsigned int length, unsigned int position)
{
    SStringRef insert(text);
    SStringLock lock(*this);
    if (index >= insert->nLen || length == 0)
        return;
    InsertBytes(m_pData, insert->Text() + index, std::min(length, insert->nLen - index), position,
                m_pData->IsUTF8() || insert->IsUTF8());
}

void SString::Insert(const char* text, unsigned int position)
{
    const uint32_t n = text ? strnlen(text, SSTRING_CUT_LENGTH) : 0;
    if (n == 0)
        return;
    SStringLock lock(*this);
    InsertBytes(m_pData, text, n, position, m_pData->IsUTF8());
}

void SString::Insert(char c, unsigned int position)
{
    if (c == 0)
        return;
    SStringLock lock(*this);
    // A full string does not grow: its last character drops out, or nothing happens at its end.
    if (m_pData->nLen >= STRING_MAXLEN && position >= m_pData->nLen)
        return;
    InsertBytes(m_pData, &c, 1, position, m_pData->IsUTF8());
}

void SString::Expand(unsigned int length, char c)
{
    SStringLock lock(*this);
    const SStringData* rec = m_pData;
    if (length <= rec->nLen)
        return;
    SStringData* result = SStringData::Make(length);
    std::memcpy(result->Text(), rec->Text(), rec->nLen);
    std::memset(result->Text() + rec->nLen, c, length - rec->nLen);
    result->SetUTF8(rec->IsUTF8());
    SStringSetRecord(m_pData, result);
}

void SString::Fill(unsigned int length, char c)
{
    SStringLock lock(*this);
    if (length > m_pData->nLen) {
        SStringData* result = SStringData::Make(std::min(length, STRING_MAXLEN));
        std::memset(result->Text(), c, result->nLen);
        result->SetUTF8(m_pData->IsUTF8());
        SStringSetRecord(m_pData, result);
        return;
    }
    SStringMakeUnique(m_pData);
    if (length != 0)
        std::memset(m_pData->Text(), c, length);
}

} // namespace vesk
