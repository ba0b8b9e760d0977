// The record of an element: format word, type, a base section, the relations, the kind's part.
#include <vesk/docking/DockElement.hpp>
#include <vesk/docking/FreeSpaceElement.hpp>
#include <vesk/docking/HolderElement.hpp>
#include <vesk/docking/PaneElement.hpp>

namespace vesk {

namespace {

// How deep the record being read is nested; reading is recursive and per thread.
thread_local int32_t t_nNesting = 0;

class NestingScope {
public:
    NestingScope() { ++t_nNesting; }
    ~NestingScope() { --t_nNesting; }
    NestingScope(const NestingScope&) = delete;
    NestingScope& operator=(const NestingScope&) = delete;
};

std::unique_ptr<DockElement> NewElement(uint32_t type)
{
    switch (type) {
    case DET_FREE_SPACE:
        return std::make_unique<FreeSpaceElement>();
    case DET_DOCK_PANE:
        return std::make_unique<DockPaneElement>();
    case DET_FLOATING_PANE:
        return std::make_unique<FloatingPaneElement>();
    case DET_HOLDER:
        return std::make_unique<HolderElement>();
    case DET_HIDDEN_PANE:
        return std::make_unique<HiddenPaneElement>();
    default:
        return nullptr;
    }
}

} // namespace

ERRCODE DockElement::WriteToDataBuffer(DataBuffer& buffer) const
{
    buffer.WriteUInt32(GetFileFormat());
    buffer.WriteUInt32(GetType());
    {
        LocalSizedWrite section(buffer);
        buffer.WriteRect(m_aRect);
        buffer.WriteUInt32(m_eNeighbourType);
        buffer.WriteUInt32(static_cast<uint32_t>(m_nNumber));
        buffer.WriteUInt32(static_cast<uint32_t>(m_nDepth));
        buffer.WriteByte(m_bPreferOuterDock ? 1 : 0);
    }
    buffer.WriteUInt32(static_cast<uint32_t>(m_aRelations.size()));
    for (const auto& relation : m_aRelations)
        relation->WriteToDataBuffer(buffer);
    return ERR_OK;
}

ERRCODE DockElement::ReadFromDataBuffer(DataBuffer& buffer)
{
    {
        LocalSizedRead section(buffer);
        buffer.ReadRect(m_aRect);
        uint32_t value = 0;
        buffer.ReadUInt32(value);
        m_eNeighbourType = static_cast<NeighbourType>(value);
        buffer.ReadInt32(m_nNumber);
        buffer.ReadInt32(m_nDepth);
        uint8_t flag = 0;
        buffer.ReadByte(flag);
        m_bPreferOuterDock = flag != 0;
    }
    int32_t count = 0;
    buffer.ReadInt32(count);
    for (int32_t i = 0; i < count; ++i) {
        const int32_t before = buffer.GetPos();
        if (std::unique_ptr<DockElement> relation = CreateFromDataBuffer(buffer)) {
            relation->m_pParent = nullptr;
            m_aRelations.push_back(std::move(relation));
        } else if (buffer.GetPos() == before) {
            // Nothing was left to read: every further record would be missing too.
            break;
        }
    }
    return ERR_OK;
}

std::unique_ptr<DockElement> DockElement::CreateFromDataBuffer(DataBuffer& buffer)
{
    if (t_nNesting >= DOCK_ELEMENT_MAX_NESTING)
        return nullptr;
    NestingScope scope;
    uint32_t format = 0;
    buffer.ReadUInt32(format);
    if (format != DOCK_ELEMENT_FILE_FORMAT)
        return nullptr;
    uint32_t type = 0;
    buffer.ReadUInt32(type);
    std::unique_ptr<DockElement> element = NewElement(type);
    if (element)
        element->ReadFromDataBuffer(buffer);
    return element;
}

} // namespace vesk
