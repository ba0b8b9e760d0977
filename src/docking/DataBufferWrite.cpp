#include <vesk/docking/DataBuffer.hpp>

#include "docking/DataBufferArray_p.hpp"

#include <algorithm>
#include <bit>
#include <cstring>

namespace vesk {

namespace {

void StoreLE64(uint8_t* p, uint64_t v)
{
    StoreLe32(p, static_cast<uint32_t>(v));
    StoreLe32(p + 4, static_cast<uint32_t>(v >> 32));
}

} // namespace

// Makes the array private and able to hold `needed` bytes, by the growth rule: half as much
// again, plus 15, rounded down to 16 bytes, capped at the size limit.
bool DataBuffer::MakeRoom(int64_t needed)
{
    const int32_t cap = m_pArray ? m_pArray->nCap : 0;
    const bool shared = m_pArray && m_pArray->IsShared();
    if (needed <= cap && !shared)
        return true;
    int64_t newCap = cap;
    if (needed > cap) {
        newCap = std::min((needed * 3 / 2 + 15) & ~int64_t(15), m_bLarge ? DATABUFFER_LARGE_LIMIT : int64_t(DATABUFFER_LIMIT));
        if (!m_pArray)
            newCap = std::max<int64_t>(newCap, DATABUFFER_MIN_ARRAY);
        if (needed > newCap) {
            m_bError = true;
            return false;
        }
    }
    DataBufferArray* array = DataBufferArray::Make(static_cast<int32_t>(newCap),
                                                   m_pArray ? m_pArray->Bytes() : nullptr,
                                                   m_pArray ? ContentEnd() : 0);
    if (!array) {
        m_bError = true;
        return false;
    }
    DataBufferArray::Release(m_pArray);
    m_pArray = array;
    return true;
}

int32_t DataBuffer::PutBytes(const void* data, int32_t n)
{
    if (m_bError || n <= 0 || (!m_bLarge && n > DATABUFFER_LIMIT))
        return 0;
    if (!MakeRoom(int64_t(m_nPos) + n))
        return 0;
    std::memcpy(m_pArray->Bytes() + m_nPos, data, static_cast<size_t>(n));
    m_nPos += n;
    if (m_nPos > ContentEnd())
        m_pArray->SetContentSize(m_nPos - DATABUFFER_CONTENT_START);
    return n;
}

bool DataBuffer::PutFixed(const uint8_t* bytes, int32_t n)
{
    return PutBytes(bytes, n) == n;
}

int32_t DataBuffer::WriteBytes(const void* data, int32_t n)
{
    SpinGuard guard(m_nLock);
    return PutBytes(data, n);
}

bool DataBuffer::WriteInt32(int32_t value)
{
    return WriteUInt32(static_cast<uint32_t>(value));
}

bool DataBuffer::WriteUInt32(uint32_t value)
{
    uint8_t bytes[4];
    StoreLe32(bytes, value);
    SpinGuard guard(m_nLock);
    return PutFixed(bytes, 4);
}

bool DataBuffer::WriteByte(uint8_t value)
{
    SpinGuard guard(m_nLock);
    return PutFixed(&value, 1);
}

bool DataBuffer::WriteDouble(double value)
{
    uint8_t bytes[8];
    StoreLE64(bytes, std::bit_cast<uint64_t>(value));
    SpinGuard guard(m_nLock);
    return PutFixed(bytes, 8);
}

bool DataBuffer::WriteSize(const TamSize& size)
{
    return WritePoint(TamPoint(size.Width(), size.Height()));
}

bool DataBuffer::WritePoint(const TamPoint& point)
{
    uint8_t bytes[8];
    StoreLe32(bytes, static_cast<uint32_t>(point.x));
    StoreLe32(bytes + 4, static_cast<uint32_t>(point.y));
    SpinGuard guard(m_nLock);
    return PutFixed(bytes, 8);
}

bool DataBuffer::WriteRect(const CRectangle& rect)
{
    uint8_t bytes[16];
    const int32_t edges[4] = {rect.Left(), rect.Top(), rect.Right(), rect.Bottom()};
    for (int i = 0; i < 4; ++i)
        StoreLe32(bytes + 4 * i, static_cast<uint32_t>(edges[i]));
    SpinGuard guard(m_nLock);
    return PutFixed(bytes, 16);
}

bool DataBuffer::WriteString(const SString& text)
{
    const auto n = static_cast<int32_t>(text.Len());
    uint8_t count[4];
    StoreLe32(count, static_cast<uint32_t>(n));
    SpinGuard guard(m_nLock);
    if (m_nStringBudget != DATABUFFER_NO_BUDGET && m_nStringBudget < n)
        return false;
    // Room for the count and the text first, so that a string is written whole or not at all.
    if (m_bError || !MakeRoom(int64_t(m_nPos) + 4 + n))
        return false;
    PutFixed(count, 4);
    PutBytes(static_cast<const char*>(text), n);
    if (m_nStringBudget != DATABUFFER_NO_BUDGET)
        m_nStringBudget -= n;
    return true;
}

bool DataBuffer::OpenWriteSection()
{
    SpinGuard guard(m_nLock);
    if (m_nSections >= DATABUFFER_MAX_SECTIONS)
        return false;
    // A write section reads like its parent; only read sections bound reading.
    const Section parent = m_nSections ? m_aSections[m_nSections - 1] : Section{0, INT64_MAX, true, true};
    m_aSections[m_nSections++] = Section{m_nPos, parent.nLimit, parent.bValid, true};
    const uint8_t placeholder[4] = {};
    PutFixed(placeholder, 4);
    return true;
}

bool DataBuffer::CloseWriteSection()
{
    SpinGuard guard(m_nLock);
    if (m_nSections == 0 || !m_aSections[m_nSections - 1].bWrite)
        return false;
    const Section& section = m_aSections[--m_nSections];
    const int32_t end = m_nPos;
    uint8_t length[4];
    StoreLe32(length, static_cast<uint32_t>(int64_t(end) - section.nStart - 4));
    m_nPos = section.nStart;
    PutFixed(length, 4);
    m_nPos = end;
    m_bError = false;
    return true;
}

} // namespace vesk
