#include <vesk/docking/DataBuffer.hpp>

#include "docking/DataBufferArray_p.hpp"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace vesk {

// Bytes readable at the cursor: up to the content end and the innermost section's end;
// nothing inside a section that did not have its 4 length bytes.
int32_t DataBuffer::Readable() const
{
    int64_t limit = ContentEnd();
    if (m_nSections != 0) {
        const Section& section = m_aSections[m_nSections - 1];
        if (!section.bValid)
            return 0;
        limit = std::min(limit, section.nLimit);
    }
    return static_cast<int32_t>(std::max<int64_t>(0, limit - m_nPos));
}

int32_t DataBuffer::GetBytesAt(void* data, int32_t n)
{
    const int32_t count = std::min(n, Readable());
    if (count <= 0)
        return 0;
    std::memcpy(data, m_pArray->Bytes() + m_nPos, static_cast<size_t>(count));
    m_nPos += count;
    return count;
}

// A value cut short reads as 0; the cursor still passes the bytes that were there.
bool DataBuffer::GetFixed(uint8_t* bytes, int32_t n)
{
    if (GetBytesAt(bytes, n) == n)
        return true;
    std::memset(bytes, 0, static_cast<size_t>(n));
    return false;
}

bool DataBuffer::GetInt32(int32_t& value)
{
    uint8_t bytes[4];
    const bool complete = GetFixed(bytes, 4);
    value = static_cast<int32_t>(LoadLe32(bytes));
    return complete;
}

int32_t DataBuffer::ReadBytes(void* data, int32_t n)
{
    SpinGuard guard(m_nLock);
    return GetBytesAt(data, n);
}

bool DataBuffer::ReadInt32(int32_t& value)
{
    SpinGuard guard(m_nLock);
    return GetInt32(value);
}

bool DataBuffer::ReadUInt32(uint32_t& value)
{
    int32_t read;
    const bool complete = ReadInt32(read);
    value = static_cast<uint32_t>(read);
    return complete;
}

bool DataBuffer::ReadByte(uint8_t& value)
{
    SpinGuard guard(m_nLock);
    return GetFixed(&value, 1);
}

bool DataBuffer::ReadDouble(double& value)
{
    uint8_t bytes[8];
    SpinGuard guard(m_nLock);
    const bool complete = GetFixed(bytes, 8);
    value = std::bit_cast<double>(uint64_t(LoadLe32(bytes)) | uint64_t(LoadLe32(bytes + 4)) << 32);
    return complete;
}

bool DataBuffer::ReadSize(TamSize& size)
{
    TamPoint point;
    const bool complete = ReadPoint(point);
    size = TamSize(point.x, point.y);
    return complete;
}

bool DataBuffer::ReadPoint(TamPoint& point)
{
    SpinGuard guard(m_nLock);
    const bool x = GetInt32(point.x);
    const bool y = GetInt32(point.y);
    return x && y;
}

bool DataBuffer::ReadRect(CRectangle& rect)
{
    SpinGuard guard(m_nLock);
    bool complete = GetInt32(rect.Left());
    complete = GetInt32(rect.Top()) && complete;
    complete = GetInt32(rect.Right()) && complete;
    return GetInt32(rect.Bottom()) && complete;
}

bool DataBuffer::ReadString(SString& text, int32_t limit)
{
    SpinGuard guard(m_nLock);
    int32_t n;
    GetInt32(n);
    if (n < 0 || n > limit || (m_nStringBudget != DATABUFFER_NO_BUDGET && m_nStringBudget < n))
        return false;
    if (Readable() < n) {
        m_nPos += Readable();
        text.Clear();
        return false;
    }
    if (n == 0) {
        text.Clear();
    } else {
        const char* bytes = reinterpret_cast<const char*>(m_pArray->Bytes() + m_nPos);
        // Longer texts are cut like every string input; the whole count is consumed.
        SString read(bytes, 0, std::min(unsigned(n), STRING_MAXLEN), true);
        if (SString::MayBeUTF8(bytes, unsigned(n)))
            read.SetIsUTF8();
        text = std::move(read);
        m_nPos += n;
    }
    if (m_nStringBudget != DATABUFFER_NO_BUDGET)
        m_nStringBudget -= n;
    return true;
}

bool DataBuffer::OpenReadSection()
{
    SpinGuard guard(m_nLock);
    if (m_nSections >= DATABUFFER_MAX_SECTIONS)
        return false;
    const int32_t start = m_nPos;
    const int64_t parentLimit = m_nSections ? m_aSections[m_nSections - 1].nLimit : INT64_MAX;
    const bool valid = Readable() >= 4;
    int32_t length;
    GetInt32(length);
    const int32_t remaining = Readable();
    // The section's reads also stay inside the enclosing one, whatever its length says.
    m_aSections[m_nSections++] = Section{start, std::min(int64_t(start) + 4 + length, parentLimit), valid, false};
    return length >= 0 && int64_t(length) <= int64_t(remaining) + 4;
}

int32_t DataBuffer::CloseReadSection()
{
    SpinGuard guard(m_nLock);
    if (m_nSections == 0 || m_aSections[m_nSections - 1].bWrite)
        return 0;
    const int32_t skipped = Readable();
    m_nPos += skipped;
    --m_nSections;
    return skipped;
}

} // namespace vesk
