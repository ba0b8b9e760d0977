#include "text/SString_p.hpp"

#include <algorithm>

namespace vesk {
namespace {

// Makes the record unique and turns every `from` up to `end` into `to`, starting at the first
// one; nothing when there is none, so a shared record stays shared.
void ReplaceBytes(SStringData*& slot, uint32_t end, char from, char to)
{
    const void* first = std::memchr(slot->Text(), from, end);
    if (!first)
        return;
    const auto start = uint32_t(static_cast<const char*>(first) - slot->Text());
    SStringMakeUnique(slot);
    char* text = slot->Text();
    std::replace(text + start, text + end, from, to);
}

} // namespace

void SString::Replace(const SString& text, unsigned int position)
{
    SStringRef source(text);
    SStringLock lock(*this);
    const uint32_t len = m_pData->nLen;
    if (position >= len || source->nLen == 0)
        return;
    SStringMakeUnique(m_pData);
    std::memcpy(m_pData->Text() + position, source->Text(), std::min(source->nLen, len - position));
}

void SString::Replace(char c, unsigned int position)
{
    SStringLock lock(*this);
    if (position >= m_pData->nLen)
        return;
    SStringMakeUnique(m_pData);
    m_pData->Text()[position] = c;
}

void SString::ReplaceAllChars(char from, char to)
{
    SStringLock lock(*this);
    ReplaceBytes(m_pData, m_pData->nLen, from, to);
}

void SString::SpaceToZero()
{
    SStringLock lock(*this);
    ReplaceBytes(m_pData, uint32_t(strnlen(m_pData->Text(), m_pData->nLen)), ' ', '0');
}

void SString::ZeroToSpace()
{
    SStringLock lock(*this);
    ReplaceBytes(m_pData, uint32_t(strnlen(m_pData->Text(), m_pData->nLen)), '0', ' ');
}

void SString::Reverse()
{
    SStringLock lock(*this);
    SStringMakeUnique(m_pData);
    std::reverse(m_pData->Text(), m_pData->Text() + m_pData->nLen);
}

} // namespace vesk
