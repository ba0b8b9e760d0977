#include "DemoApp.hpp"

#include <algorithm>
#include <cstdio>
#include <filesystem>

using namespace vesk;

namespace demo {

DemoApp::~DemoApp()
{
    m_aPreview.Clear(); // stops the player before any window goes
}

bool DemoApp::Create(const Settings& settings, const std::string& scratch, std::string& error)
{
    m_aScratch = scratch;
    const TamSize size = settings.size;
    if (!m_aFrame.CreateFrame("Vesk picture browser", TamPoint(60, 60), size) ||
        !m_aDesk.CreateDesk(&m_aFrame, size)) {
        error = "cannot create the main window";
        return false;
    }
    Pane* panes[] = {&m_aFolder, &m_aPreview, &m_aProperties, &m_aColours, &m_aLog};
    for (Pane* pane : panes) {
        if (!pane->CreatePane(&m_aDesk.Wnd())) {
            error = "cannot create the " + pane->Title() + " pane";
            return false;
        }
        pane->SetKeyHandler([this](const KeyEvent& event) { return HandleKey(event); });
    }
    if (!m_aPreview.CreateChildren(scratch)) {
        error = "cannot create the animation window";
        return false;
    }
    m_aFolder.SetOnSelect([this](int index) { OnSelect(index); });
    m_aFrame.SetView(&m_aDesk.Wnd());
    SetVeskMainFrame(m_aFrame.GetSafeHwnd());
    m_aFrame.ShowWindow(SW_SHOWNORMAL);
    m_aDesk.Wnd().ShowWindow(SW_SHOWNORMAL);
    Arrange();
    m_aDesk.Wnd().SetFocus();
    return true;
}

Pane& DemoApp::PaneAt(int pane)
{
    Pane* panes[] = {&m_aFolder, &m_aPreview, &m_aProperties, &m_aColours, &m_aLog};
    return *panes[pane];
}

void DemoApp::Arrange()
{
    const TamSize size = m_aDesk.Wnd().GetClientSize();
    m_aBoxes = ComputeLayout(size.Width(), size.Height(), m_aVisible);
    for (int i = 0; i < PANE_COUNT; ++i) {
        CWnd& wnd = PaneAt(i).Wnd();
        const Box& b = m_aBoxes[i];
        const bool show = m_aVisible[i] && b.width > 0 && b.height > 0;
        if (show)
            wnd.MoveWindow(b.x, b.y, b.width, b.height);
        wnd.ShowWindow(show ? SW_SHOW : SW_HIDE);
    }
    m_aPreview.Arrange();
    m_aDesk.Invalidate();
}

void DemoApp::TogglePane(int pane)
{
    if (pane < 0 || pane >= PANE_COUNT)
        return;
    m_aVisible[pane] = !m_aVisible[pane];
    Arrange();
    Event(PaneAt(pane).Title() + (m_aVisible[pane] ? " shown" : " hidden"));
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
    m_aDesk.Wnd().SetFocus();
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

Settings DemoApp::CurrentSettings()
{
    Settings settings;
    settings.folder = m_aFolder.Folder();
    settings.size = m_aFrame.GetClientSize();
    return settings;
}

bool DemoApp::AddWindowPicture(OutputDevice& dev, NativeWindow window, const TamPoint& pos)
{
    const std::string path = (std::filesystem::path(m_aScratch) / "window.png").string();
    if (!SaveWindowPicture(window, path.c_str()))
        return false;
    Bitmap picture;
    picture.Load(DirEntry(SString(path.c_str())));
    dev.DrawBitmap(pos, picture);
    return !picture.Empty();
}

Bitmap DemoApp::Screenshot()
{
    const TamSize size = m_aDesk.Wnd().GetClientSize();
    VirtualDevice dev(size);
    AddWindowPicture(dev, m_aDesk.GetHandle(), TamPoint(0, 0));
    for (int i = 0; i < PANE_COUNT; ++i) {
        if (m_aVisible[i])
            AddWindowPicture(dev, PaneAt(i).GetHandle(), TamPoint(m_aBoxes[i].x, m_aBoxes[i].y));
    }
    if (AnimatedGif* animation = m_aPreview.Animation(); animation && m_aVisible[PANE_PREVIEW]) {
        const CRectangle box = m_aPreview.AnimationBox();
        AddWindowPicture(dev, animation->GetHandle(),
                         TamPoint(m_aBoxes[PANE_PREVIEW].x + box.Left(), m_aBoxes[PANE_PREVIEW].y + box.Top()));
    }
    return Bitmap(dev);
}

} // namespace demo
