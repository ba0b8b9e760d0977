#pragma once

#include "text/SStringTestUtil.hpp"

#include <vesk/docking.hpp>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace vesk {

// Lets GoogleTest show a neighbour by its dump text.
inline void PrintTo(const DockNeighbour& n, std::ostream* os)
{
    PrintTo(n.GetStr(), os);
}

namespace test {

using ByteVec = std::vector<uint8_t>;

// The content of a buffer, without the 4-byte length in front.
inline ByteVec Content(const DataBuffer& buffer)
{
    const ByteVec all = buffer.GetBytes();
    return ByteVec(all.begin() + DATABUFFER_CONTENT_START, all.end());
}

// A buffer holding `content`, its cursor on the first content byte.
inline DataBuffer BufferOf(const ByteVec& content)
{
    DataBuffer buffer;
    buffer.WriteBytes(content.data(), static_cast<int32_t>(content.size()));
    buffer.SetPos(DATABUFFER_CONTENT_START);
    return buffer;
}

// Builds stored records byte by byte, independently of DataBuffer.
class RecordBuilder {
public:
    explicit RecordBuilder(ByteVec bytes = {}) : m_bytes(std::move(bytes)) {}
    RecordBuilder& U32(uint32_t v)
    {
        for (int i = 0; i < 32; i += 8)
            m_bytes.push_back(static_cast<uint8_t>(v >> i));
        return *this;
    }
    RecordBuilder& I32(int32_t v) { return U32(static_cast<uint32_t>(v)); }
    RecordBuilder& U8(uint8_t v) { return Append(RecordBuilder({v})); }
    RecordBuilder& Str(const std::string& text) { return U32(uint32_t(text.size())).Append(RecordBuilder({text.begin(), text.end()})); }
    RecordBuilder& Append(const RecordBuilder& more)
    {
        m_bytes.insert(m_bytes.end(), more.m_bytes.begin(), more.m_bytes.end());
        return *this;
    }
    // A section: the body's length, then the body.
    RecordBuilder& Section(const RecordBuilder& body) { return U32(uint32_t(body.m_bytes.size())).Append(body); }
    const ByteVec& Get() const { return m_bytes; }

private:
    ByteVec m_bytes;
};

} // namespace test
} // namespace vesk
