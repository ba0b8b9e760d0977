#include "text/SString_p.hpp"

namespace vesk {
namespace {

// The accepted range of the byte after a lead byte, and how many continuation bytes follow
// the lead in all (0 for bytes that do not start a well-formed sequence).
struct LeadRule {
    unsigned char low;
    unsigned char high;
    unsigned int count;
};

LeadRule RuleFor(unsigned char lead)
{
    if (lead >= 0xC2 && lead <= 0xDF)
        return {0x80, 0xBF, 1};
    if (lead == 0xE0)
        return {0xA0, 0xBF, 2};
    if (lead == 0xED)
        return {0x80, 0x9F, 2};
    if (lead >= 0xE1 && lead <= 0xEF)
        return {0x80, 0xBF, 2};
    if (lead == 0xF0)
        return {0x90, 0xBF, 3};
    if (lead >= 0xF1 && lead <= 0xF3)
        return {0x80, 0xBF, 3};
    if (lead == 0xF4)
        return {0x80, 0x8F, 3};
    return {0, 0, 0};
}

bool IsInRange(unsigned char c, unsigned char low, unsigned char high)
{
    return c >= low && c <= high;
}

// Whether a well-formed sequence of `rule` starts at p with `left` bytes available after the
// lead. A zero byte fails every range test, so the text's end is never passed.
bool IsSequence(const unsigned char* p, const LeadRule& rule, uint64_t left)
{
    if (rule.count == 0 || rule.count > left || !IsInRange(p[1], rule.low, rule.high))
        return false;
    for (unsigned int i = 2; i <= rule.count; ++i)
        if (!IsInRange(p[i], 0x80, 0xBF))
            return false;
    return true;
}

} // namespace

bool SString::MayBeUTF8(const char* text, unsigned int length)
{
    if (!text)
        return false;
    const auto* p = reinterpret_cast<const unsigned char*>(text);
    // One well-formed sequence anywhere decides; malformed bytes are stepped over.
    for (uint32_t i = 0; i < length && p[i] != 0; ++i)
        if (p[i] >= 0xC2 && IsSequence(p + i, RuleFor(p[i]), uint64_t(length) - i - 1))
            return true;
    return false;
}

bool SString::MayBeUTF8() const
{
    SStringLock lock(*this);
    return MayBeUTF8(m_pData->Text(), STRING_LEN);
}

void SString::SetIsUTF8()
{
    SStringLock lock(*this);
    if (m_pData->nLen == 0)
        return;
    SStringMakeUnique(m_pData);
    m_pData->SetUTF8(true);
}

void SString::ClearUTF8()
{
    SStringLock lock(*this);
    // Written in the shared record on purpose; the empty record's flag is never set.
    if (m_pData->IsUTF8())
        m_pData->SetUTF8(false);
}

bool SString::RemoveUTF8Marker()
{
    SStringLock lock(*this);
    const char* text = m_pData->Text();
    if (m_pData->nLen < 3 || std::memcmp(text, "\xEF\xBB\xBF", 3) != 0)
        return false;
    SStringErase(m_pData, 0, 3);
    return true;
}

} // namespace vesk
