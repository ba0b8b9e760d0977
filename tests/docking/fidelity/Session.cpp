#include "Session.hpp"

#include "docking/DockFrameFixture.hpp"
#include "support/ConfigHomeGuard.hpp"

#include <vesk/docking/TamPaneContainer.hpp>
#include <vesk/docking/TamPaneFrameWnd.hpp>

namespace vesk::fidelity {

Session::Session(const TamSize& client, int32_t dpi, bool show) : m_pFrame(std::make_unique<CFrameWnd>())
{
    m_pFrame->CreateFrame("Fidelity", TamPoint(0, 0), client);
    m_pManager = std::make_unique<TamDockingManager>(*m_pFrame);
    m_pManager->SetDpi(dpi);
    if (show)
        Show();
}

void Session::Show()
{
    m_pFrame->ShowWindow(SW_SHOW);
    Pump();
}

Session::~Session()
{
    m_aPanes.clear();
    m_pManager.reset();
    m_pFrame.reset();
    Pump();
}

TamDockablePane* Session::AddPane(const std::string& name, const TamSize& minSize96)
{
    auto pane = std::make_unique<TamDockablePane>();
    if (!pane->Create(*m_pManager, SString(name.c_str()), minSize96))
        return nullptr;
    m_aPanes.push_back(std::move(pane));
    return m_aPanes.back().get();
}

void Session::Resize(const TamSize& client)
{
    test::Headless().InjectResize(m_pFrame->GetSafeHwnd(), client.Width(), client.Height());
    Pump();
}

TamSize Session::ClientSize() const
{
    return m_pManager->GetHost()->GetClientSize();
}

CRectangle Session::HostRect(const CWnd& wnd) const
{
    return test::HostRectOf(*m_pManager, wnd);
}

Snapshot Session::Shoot() const
{
    Snapshot shot;
    for (const auto& pane : m_aPanes) {
        PaneShot s{NameOf(*pane), PaneState::Hidden, CRectangle(), pane->GetMinSize()};
        if (pane->IsDocked()) {
            s.state = PaneState::Docked;
            s.rect = HostRect(*pane->GetCWnd());
        } else if (pane->IsFloating() && pane->GetMiniFrameScreenRect(s.rect)) {
            s.state = PaneState::Floating;
        }
        shot.push_back(s);
    }
    return shot;
}

std::vector<CRectangle> Session::DividerRects() const
{
    std::vector<CRectangle> bars;
    for (const auto& divider : m_pManager->GetDividers())
        bars.push_back(HostRect(*divider->GetCWnd()));
    return bars;
}

void Session::Pump()
{
    test::PumpDocking();
}

HeadlessLibrary::HeadlessLibrary() : m_pConfig(std::make_unique<test::ConfigHomeGuard>())
{
    test::Headless();
    VeskInit();
}

HeadlessLibrary::~HeadlessLibrary()
{
    while (!PumpMessages())
        RunMessageLoop();
    VeskExit();
}

} // namespace vesk::fidelity
