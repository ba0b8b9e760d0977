#include <vesk/docking/DockPosition.hpp>

#include <utility>

namespace vesk {

namespace {

bool IsStorableSize(const TamSize& size)
{
    return size.Width() >= 1 && size.Width() < DOCK_SIZE_LIMIT && size.Height() >= 1 &&
           size.Height() < DOCK_SIZE_LIMIT;
}

// A stored floating rectangle is used only when set and over 10 pixels wide, the width taken
// as right - left + 1 in wrapping 32-bit arithmetic: edges that far apart count as narrow.
bool IsUsableFloatRect(const CRectangle& rect)
{
    const auto width = static_cast<int32_t>(static_cast<uint32_t>(rect.Right()) - static_cast<uint32_t>(rect.Left()) + 1u);
    return !rect.IsEmpty() && width > 10;
}

} // namespace

bool DockPosition::ReadFromDataBuffer(DataBuffer& buffer)
{
    LocalSizedRead section(buffer);
    SString name;
    bool result = buffer.ReadString(name, DOCK_NAME_LIMIT);
    // Without a name the record holds only pos and the floating rectangle; the name, size,
    // margin side and neighbours held before stay.
    if (result && name.Len() != 0) {
        m_sName = std::move(name);
        buffer.ReadSize(m_aSize);
        // A bad size is kept as read, with the neighbours held before.
        result = IsStorableSize(m_aSize);
        if (result) {
            buffer.ReadUInt32(m_nMarginAlign);
            uint32_t count = 0;
            buffer.ReadUInt32(count);
            m_aNeighbours.clear();
            result = count <= DOCK_NEIGHBOUR_LIMIT;
            // A neighbour that fails is kept as far as it was read, and ends the list.
            for (uint32_t i = 0; i < count && result; ++i) {
                DockNeighbour neighbour;
                result = neighbour.ReadFromDataBuffer(buffer);
                m_aNeighbours.push_back(std::move(neighbour));
            }
        }
    }
    buffer.ReadPoint(m_aPos);
    CRectangle rect;
    buffer.ReadRect(rect);
    if (IsUsableFloatRect(rect))
        m_aRectRecentFloat = rect;
    return result;
}

ERRCODE DockPosition::WriteToDataBuffer(DataBuffer& buffer) const
{
    LocalSizedWrite section(buffer);
    buffer.WriteString(m_sName);
    if (m_sName.Len() != 0) {
        buffer.WriteSize(m_aSize);
        // The reader refuses any other size, so only then do the fields that follow it go in.
        if (IsStorableSize(m_aSize)) {
            buffer.WriteUInt32(m_nMarginAlign);
            buffer.WriteUInt32(static_cast<uint32_t>(m_aNeighbours.size()));
            for (const DockNeighbour& neighbour : m_aNeighbours)
                neighbour.WriteToDataBuffer(buffer);
        }
    }
    buffer.WritePoint(m_aPos);
    buffer.WriteRect(m_aRectRecentFloat);
    return ERR_OK;
}

} // namespace vesk
