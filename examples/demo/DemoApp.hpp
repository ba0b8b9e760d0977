#pragma once

#include "ColoursPane.hpp"
#include "DockedPane.hpp"
#include "FolderPane.hpp"
#include "LogPane.hpp"
#include "PreviewPane.hpp"
#include "PropertiesPane.hpp"
#include "Settings.hpp"

#include <vesk/docking.hpp>
#include <vesk/frame.hpp>
#include <vesk/window.hpp>

#include <memory>
#include <string>
#include <vector>

namespace demo {

// The main window: focus it receives goes on to the preview.
class DemoFrame : public vesk::CFrameWnd
{
public:
    void SetFocusTarget(vesk::CWnd* wnd) { m_pFocus = wnd; }

protected:
    intptr_t WindowProc(uint32_t message, vesk::WParam wParam, vesk::LParam lParam) override;

private:
    vesk::CWnd* m_pFocus = nullptr;
};

// The picture browser: a frame whose docking manager holds the folder, properties, colours
// and log panes at its edges, with the preview filling the free space between them. The
// browser's keys (F1 to F5 hide and show the panes, Ctrl+O opens the next folder, the arrows
// select, Escape quits) work whichever of its windows has the focus.
class DemoApp
{
public:
    DemoApp();
    ~DemoApp();
    DemoApp(const DemoApp&) = delete;
    DemoApp& operator=(const DemoApp&) = delete;

    // Makes the windows (shown) at the saved size, with the panes in the default layout;
    // `scratch` is a writable folder of the run.
    bool Create(const Settings& settings, const std::string& scratch, std::string& error);
    // Folder pane left, properties over colours right, log along the bottom, sized for the
    // frame's current size.
    void DockDefaultLayout();
    // The pane layout in the settings store. Restoring is false when no usable layout was
    // saved; the default layout stands then.
    bool SaveLayout() const;
    bool RestoreLayout();
    // The folders Ctrl+O steps through; the first one is opened by the caller.
    void SetFolders(std::vector<std::string> folders) { m_aFolders = std::move(folders); }
    bool OpenFolder(const std::string& folder);
    void OpenNextFolder();
    void Select(int index) { m_aFolder.Select(index); }
    // Hides a shown pane (remembering its place) or shows a hidden one there again.
    void TogglePane(int pane);
    bool IsPaneVisible(int pane) const;
    PaneRects Rects() const;
    bool HandleKey(const vesk::KeyEvent& event);

    // A line in the log pane; problems also go to standard error.
    void Event(const std::string& line);
    void Problem(const std::string& line);
    // The frame's client area as it looks now, composed from the pictures of its visible
    // windows, floating panes included where they overlap it.
    vesk::Bitmap Screenshot();

    vesk::CFrameWnd& Frame() { return m_aFrame; }
    vesk::TamDockingManager& Docking() { return *m_pDocking; }
    // The dockable pane of `pane`; null for the preview, which is not one.
    DockedPane* Dockable(int pane) const;
    FolderPane& Folder() { return m_aFolder; }
    PreviewPane& Preview() { return m_aPreview; }
    LogPane& Log() { return m_aLog; }
    // What the profile keeps; `layoutSaved` as the caller knows it.
    Settings CurrentSettings(bool layoutSaved);
    const std::string& Scratch() const { return m_aScratch; }

private:
    Pane& PaneAt(int pane);
    void OnSelect(int index);
    int32_t OnKeyDown(void* event);
    bool AddWindowPicture(vesk::OutputDevice& dev, vesk::CWnd& wnd, const vesk::CRectangle& origin);

    DemoFrame m_aFrame;
    std::unique_ptr<vesk::TamDockingManager> m_pDocking;
    FolderPane m_aFolder;
    PreviewPane m_aPreview;
    PropertiesPane m_aProperties;
    ColoursPane m_aColours;
    LogPane m_aLog;
    // Indexed by PaneId; none for the preview.
    std::array<std::unique_ptr<DockedPane>, PANE_COUNT> m_aDocked;
    std::vector<std::string> m_aFolders;
    std::string m_aScratch;
};

} // namespace demo
