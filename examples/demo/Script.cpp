#include "Script.hpp"

#include <cstdio>
#include <fstream>

using namespace vesk;

namespace demo {

namespace {
// The session animation's frames are the screenshots at this scale, which keeps the file
// small enough for the README.
constexpr double kFrameScale = 0.32;
} // namespace

void Script::Step(const std::string& text)
{
    m_aSteps.push_back("step " + std::to_string(++m_nStep) + ": " + text);
    std::printf("%s\n", m_aSteps.back().c_str());
    std::fflush(stdout);
}

void Script::Settle(int rounds)
{
    for (int i = 0; i < rounds; ++i)
        PumpMessages();
}

NativeWindow Script::Host() const
{
    return m_rApp.Docking().GetHost()->GetSafeHwnd();
}

void Script::Key(uint16_t key)
{
    const NativeWindow focus = m_rApp.Preview().GetHandle();
    PostMessage(focus, WM_KEYDOWN, key, 1);
    PostMessage(focus, WM_KEYUP, key, 1);
    Settle();
}

void Script::Click(NativeWindow window, const TamPoint& at)
{
    PostMessage(window, WM_LBUTTONDOWN, MK_LBUTTON, MakeLParam(at.x, at.y));
    PostMessage(window, WM_LBUTTONUP, 0, MakeLParam(at.x, at.y));
    Settle();
}

void Script::Press(NativeWindow window, const TamPoint& grab)
{
    PostMessage(window, WM_LBUTTONDOWN, MK_LBUTTON, MakeLParam(grab.x, grab.y));
    Settle();
}

void Script::MoveTo(const TamPoint& host)
{
    PostMessage(Host(), WM_MOUSEMOVE, MK_LBUTTON, MakeLParam(host.x, host.y));
    Settle();
}

void Script::Release(const TamPoint& host)
{
    PostMessage(Host(), WM_LBUTTONUP, 0, MakeLParam(host.x, host.y));
    Settle();
}

void Script::Shot(const char* name, DemoApp* app)
{
    Settle();
    const Bitmap shot = (app ? *app : m_rApp).Screenshot();
    const TamSize size = shot.GetSize();
    m_aFrames.push_back(shot.StretchHQ(FSize(size.Width() * kFrameScale, size.Height() * kFrameScale)));
    if (!name)
        return;
    Bitmap copy = shot;
    const std::string path = m_aOut + "/" + name + ".png";
    if (copy.Empty() || copy.Save(DirEntry(SString(path.c_str()))) != ERR_OK) {
        std::fprintf(stderr, "demo: cannot write the screenshot %s\n", path.c_str());
        m_bFailed = true;
        return;
    }
    std::printf("  screenshot %s\n", path.c_str());
}

bool Script::WriteAnimation()
{
    const std::string path = m_aOut + "/session.gif";
    if (Bitmap::SaveAnimatedGif(DirEntry(SString(path.c_str())), m_aFrames, 60) != ERR_OK) {
        std::fprintf(stderr, "demo: cannot write the session animation %s\n", path.c_str());
        return false;
    }
    std::printf("  session animation %s (%zu frames)\n", path.c_str(), m_aFrames.size());
    return true;
}

bool Script::WriteTranscript()
{
    const std::string path = m_aOut + "/steps.txt";
    std::ofstream out(path);
    for (const std::string& line : m_aSteps)
        out << line << '\n';
    if (!out.flush()) {
        std::fprintf(stderr, "demo: cannot write the step list %s\n", path.c_str());
        return false;
    }
    std::printf("  step list %s\n", path.c_str());
    return true;
}

std::string RectText(const CRectangle& r)
{
    return std::to_string(r.Right() - r.Left()) + " x " + std::to_string(r.Bottom() - r.Top()) + " at " +
           std::to_string(r.Left()) + ", " + std::to_string(r.Top());
}

std::string PlacesText(const PaneRects& before, const PaneRects& after, const char* verb)
{
    static const char* const kNames[PANE_COUNT] = {"folder", "preview", "properties", "colours", "log"};
    int same = 0;
    std::string moved;
    for (int i = 0; i < PANE_COUNT; ++i) {
        if (before[i] == after[i])
            ++same;
        else
            moved += std::string(moved.empty() ? " (moved: " : ", ") + kNames[i];
    }
    return std::to_string(same) + " of " + std::to_string(PANE_COUNT) + " panes " + verb + " their exact place" +
           (moved.empty() ? "" : moved + ")");
}

} // namespace demo
