#pragma once

#include "DemoApp.hpp"

#include <string>
#include <vector>

namespace demo {

// What the headless session does to the browser: input posted as messages, numbered step
// lines on standard output, screenshots and the frames of the session animation.
class Script
{
public:
    Script(DemoApp& app, const std::string& outdir) : m_rApp(app), m_aOut(outdir) {}

    void Step(const std::string& text);
    // Lets the windows take what was posted and repaint.
    static void Settle(int rounds = 3);
    // A key typed into the focused window (the preview).
    void Key(uint16_t key);
    void Click(vesk::NativeWindow window, const vesk::TamPoint& at);
    // A left-button drag as the display delivers one while the docking host holds the
    // pointer: the press goes to `window` at `grab` (its client coordinates), the moves and
    // the release to the host, in its client coordinates.
    void Press(vesk::NativeWindow window, const vesk::TamPoint& grab);
    void MoveTo(const vesk::TamPoint& host);
    void Release(const vesk::TamPoint& host);
    // A frame of the session animation, and a PNG screenshot when `name` is given; of
    // another browser than the script's when `app` is given.
    void Shot(const char* name = nullptr, DemoApp* app = nullptr);
    // session.gif, and steps.txt with the step lines.
    bool WriteAnimation();
    bool WriteTranscript();
    bool Failed() const { return m_bFailed; }
    DemoApp& App() { return m_rApp; }

private:
    vesk::NativeWindow Host() const;

    DemoApp& m_rApp;
    std::string m_aOut;
    std::vector<vesk::Bitmap> m_aFrames;
    std::vector<std::string> m_aSteps;
    int m_nStep = 0;
    bool m_bFailed = false;
};

// "w x h at x, y" for a rectangle of the frame's client area.
std::string RectText(const vesk::CRectangle& r);
// "N of 5 panes <verb> their exact place", naming the panes that moved.
std::string PlacesText(const PaneRects& before, const PaneRects& after, const char* verb);

// The docking part of the session: hiding and showing every pane, a divider drag, docking a
// pane beside another, floating and docking one back, and resizing the frame; each step says
// how many panes stand exactly where they stood.
void RunDockingSteps(Script& s);

} // namespace demo
