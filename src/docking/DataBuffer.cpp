#include <vesk/docking/DataBuffer.hpp>

#include "docking/DataBufferArray_p.hpp"

#include <algorithm>
#include <utility>

namespace vesk {

DataBuffer::DataBuffer() noexcept = default;

DataBuffer::DataBuffer(const DataBuffer& b)
{
    SpinGuard guard(b.m_nLock);
    m_pArray = b.m_pArray;
    if (m_pArray)
        m_pArray->AddRef();
    m_nPos = b.m_nPos;
    m_nStringBudget = b.m_nStringBudget;
    m_nSections = b.m_nSections;
    std::copy(b.m_aSections, b.m_aSections + DATABUFFER_MAX_SECTIONS, m_aSections);
    m_bError = b.m_bError;
    m_bLarge = b.m_bLarge;
}

DataBuffer::DataBuffer(DataBuffer&& b) noexcept
{
    SpinGuard guard(b.m_nLock);
    SwapState(b);
}

DataBuffer::~DataBuffer()
{
    DataBufferArray::Release(m_pArray);
}

// Both assignments build the new state first, so that only one lock is held at a time.
DataBuffer& DataBuffer::operator=(const DataBuffer& b)
{
    if (this != &b) {
        DataBuffer copy(b);
        SpinGuard guard(m_nLock);
        SwapState(copy);
    }
    return *this;
}

DataBuffer& DataBuffer::operator=(DataBuffer&& b) noexcept
{
    if (this != &b) {
        DataBuffer taken(std::move(b));
        SpinGuard guard(m_nLock);
        SwapState(taken);
    }
    return *this;
}

void DataBuffer::SwapState(DataBuffer& b) noexcept
{
    std::swap(m_pArray, b.m_pArray);
    std::swap(m_nPos, b.m_nPos);
    std::swap(m_nStringBudget, b.m_nStringBudget);
    std::swap(m_nSections, b.m_nSections);
    std::swap(m_aSections, b.m_aSections);
    std::swap(m_bError, b.m_bError);
    std::swap(m_bLarge, b.m_bLarge);
}

void DataBuffer::Reset()
{
    DataBufferArray::Release(m_pArray);
    m_pArray = nullptr;
    m_nPos = DATABUFFER_CONTENT_START;
    m_nSections = 0;
    m_bError = false;
}

std::vector<uint8_t> DataBuffer::GetBytes() const
{
    SpinGuard guard(m_nLock);
    if (!m_pArray)
        return std::vector<uint8_t>(DATABUFFER_CONTENT_START, 0);
    const uint8_t* bytes = m_pArray->Bytes();
    return std::vector<uint8_t>(bytes, bytes + ContentEnd());
}

bool DataBuffer::SetBytes(const void* bytes, size_t n)
{
    SpinGuard guard(m_nLock);
    Reset();
    if (n < size_t(DATABUFFER_CONTENT_START))
        return false;
    const auto* from = static_cast<const uint8_t*>(bytes);
    const uint64_t stated = LoadLe32(from);
    const uint64_t present = n - DATABUFFER_CONTENT_START;
    const uint64_t size = std::min(stated, present);
    const uint64_t limit = m_bLarge ? DATABUFFER_LARGE_LIMIT : DATABUFFER_LIMIT;
    if (size + DATABUFFER_CONTENT_START > limit)
        return false;
    const int32_t end = static_cast<int32_t>(size) + DATABUFFER_CONTENT_START;
    const int32_t cap = std::max<int32_t>(DATABUFFER_MIN_ARRAY, (end + 15) & ~15);
    m_pArray = DataBufferArray::Make(cap, from, end);
    if (!m_pArray)
        return false;
    m_pArray->SetContentSize(static_cast<int32_t>(size));
    return stated == present;
}

int32_t DataBuffer::ContentEnd() const
{
    return DATABUFFER_CONTENT_START + (m_pArray ? m_pArray->ContentSize() : 0);
}

int32_t DataBuffer::GetContentSize() const
{
    SpinGuard guard(m_nLock);
    return ContentEnd() - DATABUFFER_CONTENT_START;
}

int32_t DataBuffer::GetCapacity() const
{
    SpinGuard guard(m_nLock);
    return m_pArray ? m_pArray->nCap : 0;
}

int32_t DataBuffer::GetPos() const
{
    SpinGuard guard(m_nLock);
    return m_nPos;
}

void DataBuffer::SetPos(int32_t pos)
{
    SpinGuard guard(m_nLock);
    m_nPos = std::clamp(pos, DATABUFFER_CONTENT_START, ContentEnd());
}

int32_t DataBuffer::GetSectionDepth() const
{
    SpinGuard guard(m_nLock);
    return m_nSections;
}

bool DataBuffer::HasError() const
{
    SpinGuard guard(m_nLock);
    return m_bError;
}

void DataBuffer::SetLargeMode(bool large)
{
    SpinGuard guard(m_nLock);
    m_bLarge = large;
}

bool DataBuffer::IsLargeMode() const
{
    SpinGuard guard(m_nLock);
    return m_bLarge;
}

void DataBuffer::SetStringBudget(int32_t budget)
{
    SpinGuard guard(m_nLock);
    m_nStringBudget = budget;
}

int32_t DataBuffer::GetStringBudget() const
{
    SpinGuard guard(m_nLock);
    return m_nStringBudget;
}

LocalSizedWrite::LocalSizedWrite(DataBuffer& buffer)
    : m_rBuffer(buffer), m_bOpen(buffer.OpenWriteSection())
{
}

LocalSizedWrite::~LocalSizedWrite()
{
    if (m_bOpen)
        m_rBuffer.CloseWriteSection();
}

LocalSizedRead::LocalSizedRead(DataBuffer& buffer)
    : m_rBuffer(buffer), m_bOpen(buffer.OpenReadSection())
{
}

LocalSizedRead::~LocalSizedRead()
{
    if (m_bOpen)
        m_rBuffer.CloseReadSection();
}

LocalWriteJump::LocalWriteJump(DataBuffer& buffer, int32_t pos)
    : m_rBuffer(buffer), m_nSaved(buffer.GetPos())
{
    buffer.SetPos(pos);
}

LocalWriteJump::~LocalWriteJump()
{
    m_rBuffer.SetPos(m_nSaved);
}

} // namespace vesk
