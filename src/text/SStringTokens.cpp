#include "text/SString_p.hpp"

#include <algorithm>
#include <bit>

namespace vesk {
namespace {

// Position of the index-th separator (from 1), or STRING_NOTFOUND.
uint32_t Separator(const SStringData* rec, uint32_t index, char sep)
{
    const char* text = rec->Text();
    const char* end = text + rec->nLen;
    const char* p = text - 1;
    for (uint32_t i = 0; i < index; ++i) {
        p = static_cast<const char*>(std::memchr(p + 1, sep, size_t(end - p - 1)));
        if (!p)
            return STRING_NOTFOUND;
    }
    return uint32_t(p - text);
}

// End of the token that starts at `start`.
uint32_t TokenEnd(const SStringData* rec, uint32_t start, char sep)
{
    const void* next = std::memchr(rec->Text() + start, sep, rec->nLen - start);
    return next ? uint32_t(static_cast<const char*>(next) - rec->Text()) : rec->nLen;
}

} // namespace

uint32_t SStringCountByte(const char* text, uint32_t n, char c) noexcept
{
    constexpr uint64_t kLow7 = 0x7F7F7F7F7F7F7F7Full;
    const uint64_t pattern = 0x0101010101010101ull * static_cast<unsigned char>(c);
    uint32_t count = 0;
    uint32_t i = 0;
    for (; i + 8 <= n; i += 8) {
        uint64_t word;
        std::memcpy(&word, text + i, 8);
        const uint64_t x = word ^ pattern;
        // The high bit of each byte is set where x has a non-zero byte, exactly.
        const uint64_t nonZero = ((x & kLow7) + kLow7) | x;
        count += uint32_t(std::popcount(~nonZero & ~kLow7));
    }
    for (; i < n; ++i)
        count += text[i] == c;
    return count;
}

unsigned int SString::GetTokenCount(char sep) const
{
    SStringLock lock(*this);
    const uint32_t len = m_pData->nLen;
    return len == 0 ? 0 : 1 + SStringCountByte(m_pData->Text(), len, sep);
}

SString SString::GetToken(unsigned int index, char sep) const
{
    SStringLock lock(*this);
    const uint32_t at = index == 0 ? 0 : Separator(m_pData, index, sep);
    if (at == STRING_NOTFOUND)
        return SString();
    const uint32_t start = index == 0 ? 0 : at + 1;
    const uint32_t end = TokenEnd(m_pData, start, sep);
    return SString(Adopt{}, SStringCopyRange(m_pData, start, end - start));
}

unsigned int SString::GetTokenPos(unsigned int index, char sep) const
{
    SStringLock lock(*this);
    if (index == 0)
        return 0;
    const uint32_t at = Separator(m_pData, index, sep);
    // The empty token after a separator that ends the string has no position either.
    return at == STRING_NOTFOUND || at + 1 == m_pData->nLen ? 0 : at + 1;
}

std::vector<SString> SString::GetAllTokens(char sep) const
{
    SStringLock lock(*this);
    const uint32_t len = m_pData->nLen;
    std::vector<SString> tokens;
    if (len == 0)
        return tokens;
    const char* text = m_pData->Text();
    tokens.resize(1 + size_t(SStringCountByte(text, len, sep)));
    uint32_t start = 0;
    for (SString& token : tokens) {
        const uint32_t end = TokenEnd(m_pData, start, sep);
        uint32_t first = start;
        uint32_t last = end;
        while (first < last && text[first] == ' ')
            ++first;
        while (last > first && text[last - 1] == ' ')
            --last;
        token.m_pData = SStringCopyRange(m_pData, first, last - first);
        text = m_pData->Text(); // sharing a saturated record gives this string a copy
        start = end + 1;
    }
    return tokens;
}

void SString::AddToStringListBuffer(char* buffer) const
{
    SStringLock lock(*this);
    // The list ends at the first two zeros in a row; an empty list is just those two.
    char* end = buffer;
    if (end[0] != 0 || end[1] != 0) {
        for (end += std::strlen(end); end[1] != 0; end += 1 + std::strlen(end + 1)) {
        }
        ++end;
    }
    std::memcpy(end, m_pData->Text(), size_t(m_pData->nLen) + 1);
    end[m_pData->nLen + 1] = 0;
}

} // namespace vesk
