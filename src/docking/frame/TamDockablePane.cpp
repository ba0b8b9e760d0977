// The dockable pane: its state between docked, floating, pinned off and hidden, and the
// native window it is made on.
#include <vesk/docking/TamDockablePane.hpp>

#include "docking/layout/LayoutModel.hpp"
#include "docking/layout/LayoutTree.hpp"

#include <vesk/docking/TamDockParentWnd.hpp>
#include <vesk/docking/TamDockingManager.hpp>
#include <vesk/docking/TamPaneFrameWnd.hpp>

#include <algorithm>

namespace vesk {

TamDockablePane::TamDockablePane() = default;

TamDockablePane::~TamDockablePane()
{
    if (m_pManager)
        m_pManager->ForgetPane(*this);
    m_pManager = nullptr;
    DestroyOwned(); // before the mini-frame, which would take a floating pane's window with it
    DropMiniFrame();
}

bool TamDockablePane::Create(TamDockingManager& manager, const SString& name, const TamSize& minSize96)
{
    if (m_pManager)
        return false;
    m_sName = name;
    m_aMinSize = minSize96;
    m_aRecentPos.SetName(name);
    m_aRecentPos.SetMinSizeScaled(minSize96.Width(), minSize96.Height());
    if (!manager.AddPane(*this))
        return false;
    m_pManager = &manager;
    if (m_nCtrlId == 0)
        m_nCtrlId = manager.m_nNextCtrlId++;
    if (!CreateOwned(WndKind::Child, manager.GetHost(), TamPoint(0, 0), TamSize(0, 0),
                     static_cast<const char*>(m_sName))) {
        manager.ForgetPane(*this);
        m_pManager = nullptr;
        return false;
    }
    OnNativeWindowMade();
    return true;
}

CRectangle TamDockablePane::GetScreenRect() const
{
    return Wnd().GetWindowRect();
}

bool TamDockablePane::GetMiniFrameScreenRect(CRectangle& rect) const
{
    if (!m_pMiniFrame)
        return false;
    rect = m_pMiniFrame->GetWindowRect();
    return true;
}

void TamDockablePane::SetSizeInContainer(int32_t length)
{
    if (m_pManager && IsDocked() && m_pManager->m_pModel->SetExtent(m_sName, length))
        m_pManager->RecalcLayout();
}

bool TamDockablePane::FloatPane()
{
    // Reason 2: the application may hand the pane the floating rectangle to take.
    if (m_pManager && IsDocked())
        m_pManager->GetDockParent().OnBeforeFloat(this, 2);
    const CRectangle& r = m_aRecentFloat;
    if (r.Right() - r.Left() > 0 && r.Bottom() - r.Top() > 0)
        return Float(r);
    // Never floated: where it is now, or a default size at the screen's corner.
    const CRectangle now = GetScreenRect();
    const bool sized = now.Right() - now.Left() > 0 && now.Bottom() - now.Top() > 0;
    return Float(sized ? now : CRectangle(0, 0, 200, 200));
}

void TamDockablePane::PlaceAt(const CRectangle& rect)
{
    Wnd().MoveWindow(rect.Left(), rect.Top(), rect.Right() - rect.Left(), rect.Bottom() - rect.Top());
    Wnd().ShowWindow(SW_SHOW);
    FitLibraryWindow();
    Invalidate();
}

void TamDockablePane::SetLibraryWindow(Window* window)
{
    m_pLibraryWindow = window;
    FitLibraryWindow();
}

void TamDockablePane::FitLibraryWindow()
{
    CWnd* wnd = m_pLibraryWindow ? m_pLibraryWindow->GetCWnd() : nullptr;
    if (!wnd || !wnd->GetSafeHwnd())
        return;
    const TamSize size = Wnd().GetClientSize();
    const int32_t caption = GetCaptionHeight();
    wnd->MoveWindow(0, caption, size.Width(), std::max(0, size.Height() - caption));
}

void TamDockablePane::SetRecentDockPosition(const DockPosition& pos)
{
    m_aRecentPos = pos; // keeps the stored minimum size
    m_aRecentPos.SetName(m_sName);
}

void TamDockablePane::ShowPane()
{
    if (!m_pManager || IsDocked() || IsFloating() || IsAutoHidden())
        return;
    const DockPosition pos = m_aRecentPos;
    m_pManager->GetDockParent().ShowPane(this, pos);
}

void TamDockablePane::HidePane()
{
    if (!m_pManager || !(IsDocked() || IsFloating() || IsAutoHidden()))
        return;
    DockPosition pos = m_aRecentPos;
    m_pManager->GetDockParent().HidePane(this, pos, true);
}

void TamDockablePane::DoClose()
{
    Conceal();
}

void TamDockablePane::Conceal()
{
    if (!m_pManager)
        return;
    m_pManager->Unpin(*this);
    m_pManager->TakeOut(*this, false);
    DropMiniFrame();
    m_eState = State::Hidden;
    Wnd().ShowWindow(SW_HIDE);
}

bool TamDockablePane::UndockPane()
{
    return m_pManager && m_pManager->TakeOut(*this);
}

bool TamDockablePane::RedockPane()
{
    return m_pManager && !IsDocked() && m_pManager->Redock(*this);
}

bool TamDockablePane::FloatAt(const CRectangle& rect)
{
    if (m_pManager && IsDocked())
        m_pManager->GetDockParent().OnBeforeFloat(this, 1);
    return Float(rect);
}

bool TamDockablePane::Float(const CRectangle& rect)
{
    if (!m_pManager)
        return false;
    m_pManager->Unpin(*this);
    m_pManager->TakeOut(*this);
    DropMiniFrame();
    m_pManager->RecalcLayout();
    auto frame = std::make_unique<TamPaneFrameWnd>(*this);
    if (!frame->Create(rect, m_pManager->GetHost()->GetParent()))
        return false;
    const TamSize size = frame->GetClientSize();
    if (!Wnd().SetParent(frame.get(), TamPoint(0, 0)) || !Wnd().MoveWindow(0, 0, size.Width(), size.Height()))
        return false;
    m_pMiniFrame = frame.release();
    m_aRecentFloat = m_pMiniFrame->GetWindowRect();
    m_eState = State::Floating;
    Wnd().ShowWindow(SW_SHOW);
    m_pMiniFrame->ShowWindow(SW_SHOW);
    FitLibraryWindow();
    return true;
}

void TamDockablePane::DropMiniFrame()
{
    if (!m_pMiniFrame)
        return;
    m_aRecentFloat = m_pMiniFrame->GetWindowRect();
    TamPaneFrameWnd* frame = m_pMiniFrame;
    m_pMiniFrame = nullptr;
    // The pane's window goes back into the dock host, hidden, before the mini-frame goes.
    Wnd().ShowWindow(SW_HIDE);
    if (m_pManager)
        Wnd().SetParent(m_pManager->GetHost(), TamPoint(0, 0));
    delete frame;
    if (m_eState == State::Floating)
        m_eState = State::Hidden;
}

uint32_t TamDockablePane::GetCurrentAlignment() const
{
    if (!m_pManager)
        return 0;
    if (IsAutoHidden()) {
        for (const auto& site : m_pManager->m_aSites) {
            if (std::find(site->GetAutoHidePanes().begin(), site->GetAutoHidePanes().end(), this) !=
                site->GetAutoHidePanes().end())
                return site->GetAlignment();
        }
        return 0;
    }
    const LayoutPane* pane = m_pManager->m_pModel->FindPane(m_sName);
    if (!pane)
        return 0;
    const LayoutNode* root = pane->GetNode();
    while (root->GetParent())
        root = root->GetParent();
    const LayoutModel& model = *m_pManager->m_pModel;
    for (size_t k = 0; k < model.GetBandCount(); ++k) {
        if (model.GetBand(k).pRoot.get() == root)
            return LayoutAlignOfEdge(model.GetBand(k).eEdge);
    }
    return 0;
}

bool TamDockablePane::SetAutoHideMode(bool autoHide)
{
    if (!m_pManager || autoHide == IsAutoHidden())
        return false;
    return autoHide ? m_pManager->PinOff(*this) : m_pManager->PinBack(*this);
}

} // namespace vesk
