#include <vesk/window/FrameWnd.hpp>

#include <vesk/frame/VeskData.hpp>
#include <vesk/frame/WinMessages.hpp>
#include <vesk/window/MessageLoop.hpp>

namespace vesk {

CFrameWnd::~CFrameWnd()
{
    // Destroyed here, while the frame's own handling still exists.
    DestroyWindow();
}

bool CFrameWnd::CreateFrame(const char* utf8Title, const TamPoint& pos, const TamSize& clientSize)
{
    return Create(WndKind::TopLevel, nullptr, pos, clientSize, utf8Title);
}

void CFrameWnd::SetView(CWnd* view)
{
    m_pView = view;
    FitView();
}

void CFrameWnd::FitView()
{
    if (!m_pView || !m_pView->GetSafeHwnd())
        return;
    const TamSize size = GetClientSize();
    m_pView->MoveWindow(0, 0, size.Width(), size.Height());
}

intptr_t CFrameWnd::WindowProc(uint32_t message, WParam wParam, LParam lParam)
{
    switch (message) {
    case WM_SIZE:
        FitView();
        break;
    case WM_DESTROY: {
        m_pView = nullptr; // the view goes with the frame
        VeskData* data = GetPVeskData();
        if (data && data->GetMainWnd() == GetSafeHwnd()) {
            data->SetMainWnd(nullptr);
            PostQuitMessage(0);
        }
        break;
    }
    default:
        break;
    }
    return CWnd::WindowProc(message, wParam, lParam);
}

} // namespace vesk
