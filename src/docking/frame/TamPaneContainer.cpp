// Pane containers (one per split) and their dividers.
#include <vesk/docking/TamPaneContainer.hpp>

#include "docking/layout/LayoutModel.hpp"

#include <vesk/docking/TamDockablePane.hpp>
#include <vesk/docking/TamDockingManager.hpp>
#include <vesk/graphics/Brush.hpp>
#include <vesk/graphics/Pen.hpp>

namespace vesk {

TamPaneDivider::TamPaneDivider(TamDockingManager& manager, size_t index) : m_rManager(manager), m_nIndex(index) {}

int32_t TamPaneDivider::GetDefaultWidth(int32_t dpi)
{
    return LayoutDividerWidth(dpi);
}

bool TamPaneDivider::Create(CWnd* parent)
{
    return CreateOwned(WndKind::Child, parent, TamPoint(0, 0), TamSize(0, 0));
}

void TamPaneDivider::Place(const CRectangle& rect, bool vertical)
{
    m_bVertical = vertical;
    SetPointer(vertical ? WinCursor::SizeWE : WinCursor::SizeNS);
    Wnd().MoveWindow(rect.Left(), rect.Top(), rect.Right() - rect.Left(), rect.Bottom() - rect.Top());
    Wnd().ShowWindow(SW_SHOW);
}

void TamPaneDivider::Paint(const CRectangle&)
{
    const TamSize size = Wnd().GetClientSize();
    ChangePen(Pen(TamColor(0xC0C0C0u)));
    ChangeFillInBrush(Brush(TamColor(0xC0C0C0u)));
    DrawRect(CRectangle(0, 0, size.Width(), size.Height()));
}

void TamPaneDivider::MouseButtonDown(const MouseEvent& event)
{
    if (!(event.GetChangedButton() & MOUSE_LEFT))
        return;
    const CRectangle r = Wnd().GetWindowRect();
    const TamPoint& pos = event.GetPosPixel();
    m_rManager.BeginDividerDrag(m_nIndex, m_rManager.ScreenToHost(TamPoint(r.Left() + pos.x, r.Top() + pos.y)));
}

int32_t TamPaneContainer::GetDepth() const
{
    return m_pSplit->GetDepth();
}

bool TamPaneContainer::IsHorizontal() const
{
    return m_pSplit->IsSideBySide();
}

TamPaneDivider* TamPaneContainer::GetDivider() const
{
    const auto& dividers = m_rManager.GetModel().GetSolution().dividers;
    for (size_t i = 0; i < dividers.size() && i < m_rManager.GetDividers().size(); ++i) {
        if (dividers[i].pSplit == m_pSplit)
            return m_rManager.GetDividers()[i].get();
    }
    return nullptr;
}

DockablePane* TamPaneContainer::PaneOf(int i) const
{
    return m_rManager.PaneOfNode(m_pSplit->GetChild(i));
}

DockPaneContainer* TamPaneContainer::ContainerOf(int i) const
{
    const LayoutNode* child = m_pSplit->GetChild(i);
    return child && !child->IsLeaf() ? m_rManager.FindContainer(child) : nullptr;
}

} // namespace vesk
