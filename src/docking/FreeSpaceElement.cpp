#include <vesk/docking/FreeSpaceElement.hpp>

namespace vesk {

FreeSpaceElement::FreeSpaceElement(const CRectangle& rect, NativeWindow window) : m_pWindow(window)
{
    m_aRect = rect;
}

FreeSpaceElement::FreeSpaceElement(const FreeSpaceElement& e, bool copyRelations)
    : DockElement(e, copyRelations), m_pWindow(e.m_pWindow)
{
}

ERRCODE FreeSpaceElement::WriteToDataBuffer(DataBuffer& buffer) const
{
    DockElement::WriteToDataBuffer(buffer);
    LocalSizedWrite section(buffer);
    return ERR_OK;
}

ERRCODE FreeSpaceElement::ReadFromDataBuffer(DataBuffer& buffer)
{
    DockElement::ReadFromDataBuffer(buffer);
    LocalSizedRead section(buffer);
    return ERR_OK;
}

std::unique_ptr<DockElement> FreeSpaceElement::Duplicate(bool copyRelations) const
{
    return std::make_unique<FreeSpaceElement>(*this, copyRelations);
}

bool FreeSpaceElement::DockDepthFirst(DockingTarget&, DockNameSet&, int32_t, int32_t)
{
    return true;
}

bool FreeSpaceElement::DockLeftMost(DockingTarget&, DockNameSet&, int32_t, int32_t)
{
    return true;
}

const DockPaneElement* FreeSpaceElement::FindClosestDockPane(const DockNameSet&, const DockNameSet&) const
{
    return nullptr;
}

} // namespace vesk
