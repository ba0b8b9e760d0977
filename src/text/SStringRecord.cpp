#include "text/SString_p.hpp"

#include <functional>

namespace vesk {

SStringPairLock::SStringPairLock(const SString& a, const SString& b) noexcept
{
    std::atomic<uint32_t>* wa = &a.m_nLock;
    std::atomic<uint32_t>* wb = &b.m_nLock;
    if (std::less<>()(wb, wa))
        std::swap(wa, wb);
    m_pFirst = wa;
    m_pSecond = wb == wa ? nullptr : wb;
    SpinLockWord(*m_pFirst);
    if (m_pSecond)
        SpinLockWord(*m_pSecond);
}

SStringPairLock::~SStringPairLock()
{
    if (m_pSecond)
        SpinUnlockWord(*m_pSecond);
    SpinUnlockWord(*m_pFirst);
}

SStringRef::SStringRef(const SString& s)
{
    SStringLock lock(s);
    m_p = SStringShare(s.m_pData);
}

SStringData* SStringShare(SStringData*& slot)
{
    SStringData* rec = slot;
    if (rec->IsEmptyRecord() || rec->TryAddRef())
        return rec;
    SStringData* copy = SStringData::Make(rec->Text(), rec->nLen, rec->IsUTF8());
    copy->nRefs.store(1, std::memory_order_relaxed);
    SStringSetRecord(slot, copy);
    return copy;
}

void SStringMakeUnique(SStringData*& slot)
{
    SStringData* rec = slot;
    if (rec->IsEmptyRecord() || !rec->IsShared())
        return;
    SStringSetRecord(slot, SStringData::Make(rec->Text(), rec->nLen, rec->IsUTF8()));
}

char* SString::AllocStrBuf(unsigned int n)
{
    SStringData* rec = SStringData::Make(n);
    SStringLock lock(*this);
    SStringSetRecord(m_pData, rec);
    return rec->Text();
}

char* SString::AllocStrCapBuf(unsigned int n)
{
    SStringData* rec = SStringData::Make(0, n);
    SStringLock lock(*this);
    SStringSetRecord(m_pData, rec);
    return rec->Text();
}

void SString::InitStringRes(const char* data, unsigned int n)
{
    SStringData* rec = n == 0 ? SStringData::Empty() : SStringData::Make(data, n, false);
    SStringLock lock(*this);
    SStringSetRecord(m_pData, rec);
}

void SString::Clear()
{
    SStringLock lock(*this);
    SStringSetRecord(m_pData, SStringData::Empty());
}

unsigned int SString::Len() const
{
    SStringLock lock(*this);
    return m_pData->nLen;
}

bool SString::operator!() const
{
    return Len() == 0;
}

SString::operator const char*() const
{
    SStringLock lock(*this);
    return m_pData->Text();
}

char SString::operator[](unsigned int index) const
{
    SStringLock lock(*this);
    return index < m_pData->nLen ? m_pData->Text()[index] : 0;
}

bool SString::IsUTF8() const
{
    SStringLock lock(*this);
    return m_pData->IsUTF8();
}

} // namespace vesk
