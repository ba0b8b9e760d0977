#include "DockedPane.hpp"

using namespace vesk;

namespace demo {

void DockedPane::OnNativeWindowMade()
{
    if (!m_rBody.CreatePane(GetCWnd()))
        return; // the pane shows its caption over an empty body
    m_rBody.Wnd().ShowWindow(SW_SHOW);
    SetLibraryWindow(&m_rBody);
}

} // namespace demo
