#include "text/SString_p.hpp"

#include <algorithm>

namespace vesk {

SString::SString() noexcept : m_pData(SStringData::Empty()), m_nLock(0) {}

SString::SString(Adopt, SStringData* rec) noexcept : m_pData(rec), m_nLock(0) {}

SString::SString(const SString& s) : m_pData(SStringRef(s).Take()), m_nLock(0) {}

SString::SString(SString&& s) noexcept : m_pData(SStringData::Empty()), m_nLock(0)
{
    SStringLock lock(s);
    std::swap(m_pData, s.m_pData);
}

SString::SString(const SString& s, unsigned int index, unsigned int length)
    : m_pData(SStringData::Empty()), m_nLock(0)
{
    SStringLock lock(s);
    const uint32_t len = s.m_pData->nLen;
    // Unlike Copy, a part is cut at STRING_MAXLEN (the difference needs a string grown past
    // it by Expand); the subtraction wraps for an index past STRING_MAXLEN, keeping the length.
    if (index != 0 || length < len)
        length = std::min(STRING_MAXLEN - index, length);
    m_pData = SStringCopyRange(s.m_pData, index, length);
}

SString::SString(char c) : m_pData(SStringData::Empty()), m_nLock(0)
{
    if (c != 0)
        m_pData = SStringData::Make(&c, 1, false);
}

SString::SString(const char* text) : m_pData(SStringData::Empty()), m_nLock(0)
{
    const uint32_t n = text ? strnlen(text, STRING_MAXLEN) : 0;
    if (n != 0)
        m_pData = SStringData::Make(text, n, false);
}

SString::SString(const char* text, unsigned int index, unsigned int length, bool isTerminated)
    : m_pData(SStringData::Empty()), m_nLock(0)
{
    if (!text)
        return;
    // 64-bit arithmetic: index + length must not wrap around.
    uint64_t n = length;
    uint64_t end;
    if (length == STRING_LEN) {
        end = strnlen(text, STRING_MAXLEN);
        if (index > end)
            return;
        n = end - index;
    } else {
        end = uint64_t(index) + length;
        if (!isTerminated)
            end = strnlen(text, end);
    }
    if (index + n > end) {
        if (index > end)
            return;
        n = end - index;
    }
    if (n != 0)
        m_pData = SStringData::Make(text + index, uint32_t(n), false);
}

SString::~SString()
{
    SStringLock lock(*this);
    SStringData::Release(m_pData);
}

SString& SString::operator=(const SString& s)
{
    SStringRef src(s);
    SStringLock lock(*this);
    if (m_pData != src.Get())
        SStringSetRecord(m_pData, src.Take());
    return *this;
}

SString& SString::operator=(SString&& s) noexcept
{
    if (this == &s)
        return *this;
    SStringData* taken = SStringData::Empty();
    {
        SStringLock lock(s);
        std::swap(taken, s.m_pData);
    }
    SStringLock lock(*this);
    SStringSetRecord(m_pData, taken);
    return *this;
}

SString& SString::operator=(const char* text)
{
    uint32_t n = text ? strnlen(text, SSTRING_CUT_LENGTH) : 0;
    if (n == SSTRING_CUT_LENGTH)
        n = STRING_MAXLEN;
    SStringLock lock(*this);
    SStringData* rec = m_pData;
    if (n != 0 && rec->IsPrivate() && n < rec->nCap) {
        // `text` may lie inside this very record.
        std::memmove(rec->Text(), text, n);
        rec->SetLength(n);
        return *this;
    }
    SStringSetRecord(m_pData, n == 0 ? SStringData::Empty() : SStringData::Make(text, n, false));
    return *this;
}

} // namespace vesk
