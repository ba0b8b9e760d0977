#include <vesk/docking/DockNeighbour.hpp>

namespace vesk {

NeighbourType ImpAlignToNeighbourType(uint32_t align)
{
    switch (align) {
    case CBRS_ALIGN_LEFT:
        return NT_LEFT;
    case CBRS_ALIGN_TOP:
        return NT_TOP;
    case CBRS_ALIGN_BOTTOM:
        return NT_BOTTOM;
    default:
        return NT_RIGHT;
    }
}

uint32_t ImpNeighbourTypeToAlign(NeighbourType type)
{
    switch (type) {
    case NT_RIGHT:
        return CBRS_ALIGN_RIGHT;
    case NT_TOP:
        return CBRS_ALIGN_TOP;
    case NT_BOTTOM:
        return CBRS_ALIGN_BOTTOM;
    default:
        return CBRS_ALIGN_LEFT;
    }
}

SString ImpAlignStr(uint32_t align)
{
    switch (align) {
    case CBRS_NOALIGN:
        return "CBRS_NOALIGN";
    case CBRS_ALIGN_LEFT:
        return "CBRS_ALIGN_LEFT";
    case CBRS_ALIGN_TOP:
        return "CBRS_ALIGN_TOP "; // the dumps carry the blank
    case CBRS_ALIGN_RIGHT:
        return "CBRS_ALIGN_RIGHT";
    case CBRS_ALIGN_BOTTOM:
        return "CBRS_ALIGN_BOTTOM";
    case CBRS_ALIGN_ANY:
        return "CBRS_ALIGN_ANY";
    default:
        return "CBRS_??";
    }
}

SString ImpContactStr(NeighbourContactType contact)
{
    switch (contact) {
    case NCT_NONE:
        return "NCT_NONE";
    case NCT_TOUCHING_SIDE:
        return "NCT_TOUCHING_SIDE";
    case NCT_JUSTIFIED_SIDE:
        return "NCT_JUSTIFIED_SIDE";
    case NCT_EQUAL_SIDE:
        return "NCT_EQUAL_SIDE";
    default:
        return "NCT_??";
    }
}

DockNeighbour::DockNeighbour(const SString& name, uint32_t align, NeighbourContactType contact, bool holder,
                             bool freeSpace)
    : m_sName(name), m_nAlign(align), m_eContact(contact), m_bHolder(holder), m_bFreeSpace(freeSpace)
{
}

int32_t DockNeighbour::GetAlignSideLen(const TamSize& size) const
{
    return ImpIsHorizontalAlign(m_nAlign) ? size.Height() : size.Width();
}

SString DockNeighbour::GetStr() const
{
    SString text(m_sName);
    text += ", Algn=";
    text += ImpAlignStr(m_nAlign);
    text += ", contact=";
    text += ImpContactStr(m_eContact);
    text += m_bHolder ? ", holder=1" : ", holder=0";
    text += m_bFreeSpace ? ", freeSE=1" : ", freeSE=0";
    return text;
}

bool DockNeighbour::ReadFromDataBuffer(DataBuffer& buffer)
{
    LocalSizedRead section(buffer);
    if (!buffer.ReadString(m_sName, DOCK_NAME_LIMIT))
        return false;
    buffer.ReadUInt32(m_nAlign);
    uint32_t contact;
    buffer.ReadUInt32(contact);
    m_eContact = static_cast<NeighbourContactType>(contact);
    // An unknown contact ends the read: the flags keep what they held.
    if (contact > NCT_EQUAL_SIDE)
        return false;
    uint8_t flag;
    buffer.ReadByte(flag);
    m_bHolder = flag != 0;
    buffer.ReadByte(flag);
    m_bFreeSpace = flag != 0;
    return true;
}

ERRCODE DockNeighbour::WriteToDataBuffer(DataBuffer& buffer) const
{
    LocalSizedWrite section(buffer);
    buffer.WriteString(m_sName);
    buffer.WriteUInt32(m_nAlign);
    buffer.WriteUInt32(m_eContact);
    buffer.WriteByte(m_bHolder ? 1 : 0);
    buffer.WriteByte(m_bFreeSpace ? 1 : 0);
    return ERR_OK;
}

bool DockNeighbour::operator==(const DockNeighbour& n) const
{
    return m_sName == n.m_sName && m_nAlign == n.m_nAlign && m_eContact == n.m_eContact && m_bHolder == n.m_bHolder &&
           m_bFreeSpace == n.m_bFreeSpace;
}

} // namespace vesk
