#include <vesk/window/OwnedWindow.hpp>

namespace vesk {

OwnedWindow::~OwnedWindow()
{
    DestroyOwned();
}

bool OwnedWindow::CreateOwned(WndKind kind, CWnd* parent, const TamPoint& pos, const TamSize& clientSize,
                              const char* utf8Title)
{
    DestroyOwned();
    if (!m_aWnd.Create(kind, parent, pos, clientSize, utf8Title))
        return false;
    SetAsWrap(&m_aWnd);
    return true;
}

void OwnedWindow::DestroyOwned()
{
    // The context drawn on the old window must not outlive it.
    ReleaseDevice();
    m_aWnd.DestroyWindow();
}

} // namespace vesk
