#pragma once

// Helpers for the record and layout-tree tests: stored bytes built by hand, and panes that
// stand in for pane windows.
#include "models/databuffer_input.hpp"
#include "text/SStringTestUtil.hpp"

#include <vesk/docking.hpp>

#include <cstdint>
#include <memory>
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
    return databuffer_input::BufferOf(content.data(), content.size());
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

// A pane standing in for a pane window: a name and a rectangle; remembers the last size it
// was given in its container.
class TestPane final : public DockablePane {
public:
    TestPane(const char* name, const CRectangle& rect) : m_aRect(rect), m_sName(name) {}
    SString GetName() const override { return m_sName; }
    CRectangle GetScreenRect() const override { return m_aRect; }
    void SetSizeInContainer(int32_t length) override { m_nSizeInContainer = length; }
    bool GetMiniFrameScreenRect(CRectangle& rect) const override
    {
        if (m_aMiniFrame.IsEmpty())
            return false;
        rect = m_aMiniFrame;
        return true;
    }
    bool FloatPane() override { return ++m_nFloats > 0; }

    int32_t m_nSizeInContainer = -1;
    int32_t m_nFloats = 0;
    CRectangle m_aRect;
    // The floating mini-frame's rectangle; empty when the pane does not float in one.
    CRectangle m_aMiniFrame;

private:
    SString m_sName;
};

inline std::unique_ptr<DockElement> Docked(TestPane& pane)
{
    return std::make_unique<DockPaneElement>(&pane);
}

inline std::unique_ptr<HolderElement> Hold(std::unique_ptr<DockElement> left, std::unique_ptr<DockElement> right,
                                           int32_t depth = 0)
{
    return std::make_unique<HolderElement>(std::move(left), std::move(right), depth);
}

} // namespace test
} // namespace vesk
