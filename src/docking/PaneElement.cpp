// The pane leaves of the layout tree: docked, floating and hidden panes.
#include <vesk/docking/PaneElement.hpp>

#include "docking/DockElement_p.hpp"

namespace vesk {

PaneElement::PaneElement(const PaneElement& e, bool copyRelations)
    : DockElement(e, copyRelations), m_pPane(e.m_pPane), m_nWindowIndex(e.m_nWindowIndex)
{
}

SString PaneElement::GetTitle() const
{
    return m_pPane ? m_pPane->GetName() : SString();
}

SString PaneElement::GetIdentifier() const
{
    return PaneElement::GetTitle();
}

SString PaneElement::GetStr() const
{
    SString text = DockElement::GetStr();
    if (m_nWindowIndex >= 0)
        text += SString::F(", ix=%d", m_nWindowIndex);
    return text;
}

ERRCODE PaneElement::WriteToDataBuffer(DataBuffer& buffer) const
{
    DockElement::WriteToDataBuffer(buffer);
    LocalSizedWrite section(buffer);
    buffer.WriteUInt32(static_cast<uint32_t>(m_nWindowIndex));
    return ERR_OK;
}

ERRCODE PaneElement::ReadFromDataBuffer(DataBuffer& buffer)
{
    DockElement::ReadFromDataBuffer(buffer);
    LocalSizedRead section(buffer);
    buffer.ReadInt32(m_nWindowIndex);
    return ERR_OK;
}

void PaneElement::WindowToIndex(const Link& link)
{
    DockWindowIndexQuery query;
    query.pPane = m_pPane;
    link.Call(&query);
    m_nWindowIndex = query.nIndex;
}

void PaneElement::IndexToWindow(const Link& link)
{
    DockWindowIndexQuery query;
    query.nIndex = m_nWindowIndex;
    link.Call(&query);
    m_pPane = query.pPane;
}

void PaneElement::RefreshRect()
{
    if (m_pPane)
        m_aRect = m_pPane->GetScreenRect();
}

DockPaneElement::DockPaneElement(DockablePane* pane) : PaneElement(pane)
{
    if (pane)
        m_aRect = pane->GetScreenRect();
}

DockPaneElement::DockPaneElement(const DockPaneElement& e, bool copyRelations)
    : PaneElement(e, copyRelations), m_bAutoHide(e.m_bAutoHide)
{
}

SString DockPaneElement::GetTitle() const
{
    SString title = PaneElement::GetTitle();
    if (m_bAutoHide)
        title += "-AH";
    return title;
}

ERRCODE DockPaneElement::WriteToDataBuffer(DataBuffer& buffer) const
{
    PaneElement::WriteToDataBuffer(buffer);
    LocalSizedWrite section(buffer);
    buffer.WriteByte(m_bAutoHide ? 1 : 0);
    return ERR_OK;
}

ERRCODE DockPaneElement::ReadFromDataBuffer(DataBuffer& buffer)
{
    PaneElement::ReadFromDataBuffer(buffer);
    LocalSizedRead section(buffer);
    uint8_t flag = 0;
    buffer.ReadByte(flag);
    m_bAutoHide = flag != 0;
    return ERR_OK;
}

std::unique_ptr<DockElement> DockPaneElement::Duplicate(bool copyRelations) const
{
    return std::make_unique<DockPaneElement>(*this, copyRelations);
}

bool DockPaneElement::DockDepthFirst(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length)
{
    const SString name = GetIdentifier();
    if (done.count(name))
        return true;
    if (!m_pPane || !target.DockIntoParent(m_pPane, align, length, false))
        return false;
    done.insert(name);
    return true;
}

bool DockPaneElement::DockLeftMost(DockingTarget& target, DockNameSet& done, int32_t align, int32_t length)
{
    return DockPaneElement::DockDepthFirst(target, done, align, length);
}

const DockPaneElement* DockPaneElement::FindClosestDockPane(const DockNameSet& wanted, const DockNameSet& done) const
{
    return IsWantedName(wanted, done, GetIdentifier()) ? this : nullptr;
}

bool DockPaneElement::Float()
{
    return m_pPane && m_pPane->FloatPane();
}

NeighbourType DockPaneElement::CheckIfOuterNeighbourOfEl(const DockElement* el, const DockElementVec& elements) const
{
    return OuterSide(el, elements);
}

FloatingPaneElement::FloatingPaneElement(DockablePane* pane) : PaneElement(pane)
{
    m_nDepth = 0;
    FloatingPaneElement::RefreshRect();
}

FloatingPaneElement::FloatingPaneElement(const FloatingPaneElement& e, bool copyRelations)
    : PaneElement(e, copyRelations)
{
}

SString FloatingPaneElement::GetTitle() const
{
    SString title("Floating-");
    title += PaneElement::GetTitle();
    return title;
}

std::unique_ptr<DockElement> FloatingPaneElement::Duplicate(bool copyRelations) const
{
    return std::make_unique<FloatingPaneElement>(*this, copyRelations);
}

bool FloatingPaneElement::DockDepthFirst(DockingTarget&, DockNameSet&, int32_t, int32_t)
{
    return true;
}

bool FloatingPaneElement::DockLeftMost(DockingTarget&, DockNameSet&, int32_t, int32_t)
{
    return true;
}

const DockPaneElement* FloatingPaneElement::FindClosestDockPane(const DockNameSet&, const DockNameSet&) const
{
    return nullptr;
}

bool FloatingPaneElement::Float()
{
    return m_pPane && m_pPane->FloatPane();
}

void FloatingPaneElement::RefreshRect()
{
    if (m_pPane && !m_pPane->GetMiniFrameScreenRect(m_aRect))
        m_aRect = m_pPane->GetScreenRect();
}

HiddenPaneElement::HiddenPaneElement()
{
    m_aPos.SetSize(TamSize(0, 0));
    m_aPos.SetRectRecentFloat(CRectangle());
}

HiddenPaneElement::HiddenPaneElement(DockablePane* pane, const DockPosition& pos) : PaneElement(pane), m_aPos(pos) {}

HiddenPaneElement::HiddenPaneElement(const HiddenPaneElement& e, bool copyRelations)
    : PaneElement(e, copyRelations), m_aPos(e.m_aPos)
{
}

SString HiddenPaneElement::GetTitle() const
{
    SString title("Hidden-");
    title += PaneElement::GetTitle();
    return title;
}

SString HiddenPaneElement::GetStr() const
{
    SString text("'");
    text += PaneElement::GetTitle();
    text += "'-hidden";
    return text;
}

ERRCODE HiddenPaneElement::WriteToDataBuffer(DataBuffer& buffer) const
{
    PaneElement::WriteToDataBuffer(buffer);
    LocalSizedWrite section(buffer);
    m_aPos.WriteToDataBuffer(buffer);
    return ERR_OK;
}

ERRCODE HiddenPaneElement::ReadFromDataBuffer(DataBuffer& buffer)
{
    PaneElement::ReadFromDataBuffer(buffer);
    LocalSizedRead section(buffer);
    m_aPos.ReadFromDataBuffer(buffer);
    return ERR_OK;
}

std::unique_ptr<DockElement> HiddenPaneElement::Duplicate(bool copyRelations) const
{
    return std::make_unique<HiddenPaneElement>(*this, copyRelations);
}

bool HiddenPaneElement::DockDepthFirst(DockingTarget&, DockNameSet&, int32_t, int32_t)
{
    return true;
}

bool HiddenPaneElement::DockLeftMost(DockingTarget&, DockNameSet&, int32_t, int32_t)
{
    return true;
}

const DockPaneElement* HiddenPaneElement::FindClosestDockPane(const DockNameSet&, const DockNameSet&) const
{
    return nullptr;
}

bool HiddenPaneElement::Float()
{
    m_aPos.SetIsFloating(true);
    return true;
}

} // namespace vesk
