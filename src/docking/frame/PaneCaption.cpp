// The pane's caption: title, pin and close buttons, and what a click on it does.
#include <vesk/docking/TamDockablePane.hpp>

#include "docking/layout/LayoutSolution.hpp"

#include <vesk/docking/TamDockParentWnd.hpp>
#include <vesk/docking/TamDockingManager.hpp>
#include <vesk/graphics/Brush.hpp>
#include <vesk/graphics/Pen.hpp>

namespace vesk {

namespace {

constexpr int32_t CAPTION_96 = 20;
constexpr int32_t BUTTON_96 = 14;

} // namespace

int32_t TamDockablePane::GetCaptionHeight() const
{
    return LayoutScale(CAPTION_96, m_pManager ? m_pManager->GetDpi() : 96);
}

CRectangle TamDockablePane::GetCloseButtonRect() const
{
    const int32_t h = GetCaptionHeight();
    const int32_t b = LayoutScale(BUTTON_96, m_pManager ? m_pManager->GetDpi() : 96);
    const int32_t right = Wnd().GetClientSize().Width() - (h - b) / 2;
    const int32_t top = (h - b) / 2;
    return CRectangle(right - b, top, right, top + b);
}

CRectangle TamDockablePane::GetPinButtonRect() const
{
    const CRectangle close = GetCloseButtonRect();
    const int32_t step = close.Right() - close.Left() + (GetCaptionHeight() - (close.Bottom() - close.Top())) / 2;
    return CRectangle(close.Left() - step, close.Top(), close.Right() - step, close.Bottom());
}

void TamDockablePane::Paint(const CRectangle&)
{
    const TamSize size = Wnd().GetClientSize();
    const int32_t h = GetCaptionHeight();
    ChangePen(Pen(TamColor(0x808080u)));
    ChangeFillInBrush(Brush(TamColor(0xF0F0F0u)));
    DrawRect(CRectangle(0, 0, size.Width(), size.Height()));
    ChangeFillInBrush(Brush(TamColor(0xD8D0C8u)));
    DrawRect(CRectangle(0, 0, size.Width(), h));
    DrawText(TamPoint(LayoutScale(4, m_pManager ? m_pManager->GetDpi() : 96), 2), m_sName);
    // Close: a cross; pin: an upright pin, lying down while the pane is pinned off.
    const CRectangle c = GetCloseButtonRect();
    ChangePen(Pen(TamColor(0x202020u)));
    DrawLine(TamPoint(c.Left() + 2, c.Top() + 2), TamPoint(c.Right() - 3, c.Bottom() - 3));
    DrawLine(TamPoint(c.Right() - 3, c.Top() + 2), TamPoint(c.Left() + 2, c.Bottom() - 3));
    const CRectangle p = GetPinButtonRect();
    const int32_t mx = (p.Left() + p.Right()) / 2;
    const int32_t my = (p.Top() + p.Bottom()) / 2;
    if (IsAutoHidden()) {
        DrawLine(TamPoint(p.Left() + 2, my), TamPoint(p.Right() - 3, my));
        DrawRect(CRectangle(mx, my - 3, p.Right() - 3, my + 3));
    } else {
        DrawLine(TamPoint(mx, p.Top() + 2), TamPoint(mx, p.Bottom() - 3));
        DrawRect(CRectangle(mx - 3, p.Top() + 2, mx + 3, my));
    }
}

void TamDockablePane::MouseButtonDown(const MouseEvent& event)
{
    if (!m_pManager || !(event.GetChangedButton() & MOUSE_LEFT))
        return;
    const TamPoint& pos = event.GetPosPixel();
    if (pos.y < 0 || pos.y >= GetCaptionHeight())
        return;
    if (GetCloseButtonRect().IsInside(pos)) {
        // Closed through the dock parent: the application may refuse, and the pane remembers
        // where it stood.
        if (m_pManager) {
            DockPosition recent = m_aRecentPos;
            m_pManager->GetDockParent().RemovePane(this, recent, true);
        }
        return;
    }
    if (GetPinButtonRect().IsInside(pos)) {
        SetAutoHideMode(!IsAutoHidden());
        return;
    }
    const CRectangle r = GetScreenRect();
    m_pManager->BeginPaneDrag(*this, m_pManager->ScreenToHost(TamPoint(r.Left() + pos.x, r.Top() + pos.y)));
}

} // namespace vesk
