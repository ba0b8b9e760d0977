#include "DemoApp.hpp"

#include <vesk/links.hpp>

#include <algorithm>
#include <cstdio>

using namespace vesk;

namespace demo {

namespace {
// The panes that dock, each named after its title; the preview fills the free space.
constexpr PaneId kDockable[] = {PANE_FOLDER, PANE_PROPERTIES, PANE_COLOURS, PANE_LOG};
} // namespace

intptr_t DemoFrame::WindowProc(uint32_t message, WParam wParam, LParam lParam)
{
    if (message == WM_SETFOCUS && m_pFocus && m_pFocus->GetSafeHwnd()) {
        m_pFocus->SetFocus();
        return 0;
    }
    return CFrameWnd::WindowProc(message, wParam, lParam);
}

DemoApp::DemoApp()
{
    GlAddOnKeyDownHdl(MakeLink<&DemoApp::OnKeyDown>(this));
}

DemoApp::~DemoApp()
{
    GlRemoveOnKeyDownHdl(MakeLink<&DemoApp::OnKeyDown>(this));
    m_aPreview.Clear(); // stops the player before any window goes
    if (m_pDocking)
        m_pDocking->SetCentralWindow(nullptr); // the preview goes before the manager
}

bool DemoApp::Create(const Settings& settings, const std::string& scratch, std::string& error)
{
    m_aScratch = scratch;
    if (!m_aFrame.CreateFrame("Vesk picture browser", TamPoint(60, 60), settings.size)) {
        error = "cannot create the main window";
        return false;
    }
    m_pDocking = std::make_unique<TamDockingManager>(m_aFrame);
    if (!m_pDocking->GetHost()->GetSafeHwnd() || !m_aPreview.CreatePane(m_pDocking->GetHost())) {
        error = "cannot create the docking host";
        return false;
    }
    for (PaneId id : kDockable) {
        m_aDocked[id] = std::make_unique<DockedPane>(PaneAt(id));
        if (!m_aDocked[id]->Create(*m_pDocking, SString(PaneAt(id).Title().c_str())) || !PaneAt(id).GetHandle()) {
            error = "cannot create the " + PaneAt(id).Title() + " pane";
            return false;
        }
    }
    // A strip on each edge for the panes pinned off with their pin button.
    for (uint32_t edge : {CBRS_ALIGN_LEFT, CBRS_ALIGN_TOP, CBRS_ALIGN_RIGHT, CBRS_ALIGN_BOTTOM}) {
        if (!m_pDocking->AddDockSite({edge, []() { return new TamDockSite; }}, nullptr)) {
            error = "cannot create the docking strips";
            return false;
        }
    }
    if (!m_aPreview.CreateChildren(scratch)) {
        error = "cannot create the animation window";
        return false;
    }
    m_aFolder.SetOnSelect([this](int index) { OnSelect(index); });
    m_pDocking->SetCentralWindow(&m_aPreview.Wnd());
    m_aFrame.SetFocusTarget(&m_aPreview.Wnd());
    m_aFrame.ShowWindow(SW_SHOWNORMAL);
    m_aPreview.Wnd().ShowWindow(SW_SHOW);
    DockDefaultLayout();
    m_aPreview.Wnd().SetFocus();
    return true;
}

Pane& DemoApp::PaneAt(int pane)
{
    Pane* panes[] = {&m_aFolder, &m_aPreview, &m_aProperties, &m_aColours, &m_aLog};
    return *panes[pane];
}

DockedPane* DemoApp::Dockable(int pane) const
{
    return pane >= 0 && pane < PANE_COUNT ? m_aDocked[pane].get() : nullptr;
}

bool DemoApp::OpenFolder(const std::string& folder)
{
    std::string error;
    if (!m_aFolder.Open(folder, error)) {
        Problem(error);
        return false;
    }
    m_aPreview.Clear();
    m_aProperties.Clear();
    Event("opened " + folder + ": " + std::to_string(m_aFolder.Files().size()) + " pictures");
    return true;
}

void DemoApp::OpenNextFolder()
{
    if (m_aFolders.empty())
        return;
    auto at = std::find(m_aFolders.begin(), m_aFolders.end(), m_aFolder.Folder());
    // Try each other folder once, starting after the current one.
    for (size_t step = 1; step <= m_aFolders.size(); ++step) {
        const size_t from = at == m_aFolders.end() ? 0 : static_cast<size_t>(at - m_aFolders.begin());
        if (OpenFolder(m_aFolders[(from + step) % m_aFolders.size()]))
            return;
    }
}

void DemoApp::OnSelect(int index)
{
    const PictureFile& file = m_aFolder.Files()[index];
    TamSize picture;
    std::string error;
    if (m_aPreview.Show(file, picture, error))
        Event("selected " + file.name + " (" + std::to_string(picture.Width()) + " x " +
              std::to_string(picture.Height()) + ")");
    else
        Problem(error);
    m_aProperties.Show(file, picture);
    m_aPreview.Wnd().SetFocus();
}

int32_t DemoApp::OnKeyDown(void* event)
{
    return HandleKey(*static_cast<const KeyEvent*>(event));
}

bool DemoApp::HandleKey(const KeyEvent& event)
{
    if (event.GetMessage() != WM_KEYDOWN)
        return false;
    const KeyCode& key = event.GetKeyCode();
    const uint16_t code = key.GetCode();
    if (code >= VK_F1 && code < VK_F1 + static_cast<int>(PANE_COUNT) && !key.GetModifier()) {
        TogglePane(code - VK_F1);
    } else if (code == 'O' && key.IsMod1()) {
        OpenNextFolder();
    } else if (code == VK_UP || code == VK_DOWN) {
        m_aFolder.Select(m_aFolder.Selected() + (code == VK_UP ? -1 : 1));
    } else if (code == VK_ESCAPE) {
        PostQuitMessage(0);
    } else {
        return false;
    }
    return true;
}

void DemoApp::Event(const std::string& line)
{
    m_aLog.Add(line);
}

void DemoApp::Problem(const std::string& line)
{
    std::fprintf(stderr, "demo: %s\n", line.c_str());
    m_aLog.Add("problem: " + line);
}

Settings DemoApp::CurrentSettings(bool layoutSaved)
{
    Settings settings;
    settings.folder = m_aFolder.Folder();
    settings.size = m_aFrame.GetClientSize();
    settings.layoutSaved = layoutSaved;
    return settings;
}

} // namespace demo
