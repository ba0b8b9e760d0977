#pragma once

#include "ColoursPane.hpp"
#include "FolderPane.hpp"
#include "Layout.hpp"
#include "LogPane.hpp"
#include "PreviewPane.hpp"
#include "PropertiesPane.hpp"
#include "Settings.hpp"

#include <vesk/frame.hpp>
#include <vesk/window.hpp>

#include <string>
#include <vector>

namespace demo {

class DemoApp;

// The frame's view: it holds the panes, places them whenever its size changes and takes the
// keys (F1 to F5 toggle the panes, Ctrl+O opens the next folder, the arrows select, Escape
// quits).
class Desk : public vesk::Window
{
public:
    explicit Desk(DemoApp& app) : m_rApp(app) {}
    ~Desk() override;
    bool CreateDesk(vesk::CWnd* frame, const vesk::TamSize& size);
    vesk::CWnd& Wnd() { return m_aWnd; }

protected:
    void OnProcessMsg(uint32_t message, vesk::WParam wParam, vesk::LParam lParam) override;
    bool KeyInput(const vesk::KeyEvent& event) override;
    void Paint(const vesk::CRectangle& rect) override;

private:
    DemoApp& m_rApp;
    vesk::CWnd m_aWnd;
};

// The main window: focus it receives goes on to its view, the desk, which takes the keys.
class DemoFrame : public vesk::CFrameWnd
{
protected:
    intptr_t WindowProc(uint32_t message, vesk::WParam wParam, vesk::LParam lParam) override;
};

// The picture browser: a frame with the desk as its view and the five panes on the desk.
class DemoApp
{
public:
    DemoApp() : m_aDesk(*this) {}
    ~DemoApp();

    // Makes the windows (shown) at the saved size; `scratch` is a writable folder of the run.
    bool Create(const Settings& settings, const std::string& scratch, std::string& error);
    // The folders Ctrl+O steps through; the first one is opened by the caller.
    void SetFolders(std::vector<std::string> folders) { m_aFolders = std::move(folders); }
    bool OpenFolder(const std::string& folder);
    void OpenNextFolder();
    void Select(int index) { m_aFolder.Select(index); }
    void TogglePane(int pane);
    bool IsPaneVisible(int pane) const { return m_aVisible[pane]; }
    // Places the panes for the desk's current size.
    void Arrange();
    // Where the panes are, in desk coordinates (empty boxes for hidden panes).
    const PaneBoxes& Boxes() const { return m_aBoxes; }
    bool HandleKey(const vesk::KeyEvent& event);

    // A line in the log pane; problems also go to standard error.
    void Event(const std::string& line);
    void Problem(const std::string& line);
    // The desk as it looks now, composed from the pictures of the visible windows.
    vesk::Bitmap Screenshot();

    vesk::CFrameWnd& Frame() { return m_aFrame; }
    Desk& GetDesk() { return m_aDesk; }
    FolderPane& Folder() { return m_aFolder; }
    PreviewPane& Preview() { return m_aPreview; }
    LogPane& Log() { return m_aLog; }
    Settings CurrentSettings();

private:
    Pane& PaneAt(int pane);
    void OnSelect(int index);
    bool AddWindowPicture(vesk::OutputDevice& dev, vesk::NativeWindow window, const vesk::TamPoint& pos);

    DemoFrame m_aFrame;
    Desk m_aDesk;
    FolderPane m_aFolder;
    PreviewPane m_aPreview;
    PropertiesPane m_aProperties;
    ColoursPane m_aColours;
    LogPane m_aLog;
    PaneVisibility m_aVisible{true, true, true, true, true};
    PaneBoxes m_aBoxes{};
    std::vector<std::string> m_aFolders;
    std::string m_aScratch;
};

} // namespace demo
