#include "DemoApp.hpp"

using namespace vesk;

namespace demo {

Desk::~Desk()
{
    ReleaseDevice();
    m_aWnd.DestroyWindow();
}

bool Desk::CreateDesk(CWnd* frame, const TamSize& size)
{
    if (!m_aWnd.Create(WndKind::Child, frame, TamPoint(0, 0), size))
        return false;
    SetAsWrap(&m_aWnd);
    return true;
}

void Desk::OnProcessMsg(uint32_t message, WParam wParam, LParam lParam)
{
    if (message == WM_SIZE)
        m_rApp.Arrange();
    Window::OnProcessMsg(message, wParam, lParam);
}

bool Desk::KeyInput(const KeyEvent& event)
{
    return m_rApp.HandleKey(event);
}

void Desk::Paint(const CRectangle&)
{
    const TamSize size = GetOutputSizePixel();
    Erase(CRectangle(0, 0, size.Width() - 1, size.Height() - 1), TamColor(0xD8D0C8u));
}

intptr_t DemoFrame::WindowProc(uint32_t message, WParam wParam, LParam lParam)
{
    if (message == WM_SETFOCUS && GetView()) {
        GetView()->SetFocus();
        return 0;
    }
    return CFrameWnd::WindowProc(message, wParam, lParam);
}

} // namespace demo
