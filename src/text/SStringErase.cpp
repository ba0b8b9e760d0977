#include "text/SString_p.hpp"

#include <algorithm>
#include <bit>

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

// Copies n bytes without any `c` from src to a separate dst of `room` writable bytes and
// returns the count. Eight bytes at a time: each run between the matches of a word is written
// with one 8-byte store, whose surplus the next store or the terminating zero overwrites.
uint32_t CopyWithout(char* dst, const char* src, uint32_t n, char c, uint32_t room)
{
    uint32_t out = 0;
    uint32_t i = 0;
    for (; i + 8 <= n && out + 8 <= room; i += 8) {
        uint64_t word;
        std::memcpy(&word, src + i, 8);
        uint32_t from = 0;
        for (uint64_t matches = SStringByteMatches(word, c); matches != 0; matches &= matches - 1) {
            const auto at = uint32_t(std::countr_zero(matches)) / 8;
            const uint64_t run = word >> (8 * from);
            std::memcpy(dst + out, &run, 8);
            out += at - from;
            from = at + 1;
        }
        if (from < 8) {
            const uint64_t run = word >> (8 * from);
            std::memcpy(dst + out, &run, 8);
            out += 8 - from;
        }
    }
    for (; i < n; ++i) {
        dst[out] = src[i];
        out += src[i] != c;
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
            rec->SetLength(uint32_t(std::remove(rec->Text(), rec->Text() + len, c) - rec->Text()));
            if (rec->nLen == 0)
                SStringSetRecord(m_pData, SStringData::Empty());
        }
        return;
    }
    // A shared record stays as it is when there is nothing to erase.
    const uint32_t found = SStringCountByte(rec->Text(), len, c);
    if (found == 0)
        return;
    if (found == len) {
        SStringSetRecord(m_pData, SStringData::Empty());
        return;
    }
    SStringData* rest = SStringData::Make(len - found);
    // The stores may pass the new length; the zero is written again behind them.
    CopyWithout(rest->Text(), rec->Text(), len, c, len - found + 1);
    rest->SetLength(len - found);
    rest->SetUTF8(rec->IsUTF8());
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
