#pragma once

// One simulated application: a frame on the headless display with a docking manager and its
// panes, and a snapshot of where every pane is.
#include <vesk/docking.hpp>
#include <vesk/window.hpp>

#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace vesk::test {
class ConfigHomeGuard;
}

namespace vesk::fidelity {

using Rng = std::mt19937_64;

// A uniform integer in [lo, hi].
inline int32_t Uniform(Rng& rng, int32_t lo, int32_t hi)
{
    return std::uniform_int_distribution<int32_t>(lo, hi)(rng);
}

inline std::string NameOf(const TamDockablePane& pane)
{
    return static_cast<const char*>(pane.GetName());
}

enum class PaneState : uint8_t { Hidden, Docked, Floating };

// Where one pane is: docked panes in the host's client coordinates (their window, not the
// solver), floating panes by their mini-frame's screen rectangle.
struct PaneShot {
    std::string name;
    PaneState state = PaneState::Hidden;
    CRectangle rect;
    TamSize minSize96;
};
using Snapshot = std::vector<PaneShot>;

class Session {
public:
    // `show`: the frame is shown at once, else by Show.
    Session(const TamSize& client, int32_t dpi, bool show = true);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    TamDockablePane* AddPane(const std::string& name, const TamSize& minSize96);
    TamDockablePane* Pane(size_t i) const { return m_aPanes[i].get(); }
    size_t PaneCount() const { return m_aPanes.size(); }
    TamDockingManager& Manager() const { return *m_pManager; }

    void Show();
    // The frame's client area changes size, as when the user resizes it.
    void Resize(const TamSize& client);
    TamSize ClientSize() const;
    Snapshot Shoot() const;
    // The divider bars' window rectangles in the host's client coordinates.
    std::vector<CRectangle> DividerRects() const;
    // A rectangle of a window in the host's client coordinates.
    CRectangle HostRect(const CWnd& wnd) const;

    // Lets queued messages through.
    static void Pump();

private:
    std::unique_ptr<CFrameWnd> m_pFrame;
    std::unique_ptr<TamDockingManager> m_pManager;
    std::vector<std::unique_ptr<TamDockablePane>> m_aPanes;
};

// Starts and ends the library on the headless display around a report run, with the settings
// store in a temporary folder.
class HeadlessLibrary {
public:
    HeadlessLibrary();
    ~HeadlessLibrary();

private:
    std::unique_ptr<test::ConfigHomeGuard> m_pConfig;
};

} // namespace vesk::fidelity
