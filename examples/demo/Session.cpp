#include "Session.hpp"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <thread>

using namespace vesk;

namespace demo {

namespace {

class Script
{
public:
    Script(DemoApp& app, const std::string& outdir) : m_rApp(app), m_aOut(outdir) {}

    void Step(const std::string& text)
    {
        std::printf("step %d: %s\n", ++m_nStep, text.c_str());
        std::fflush(stdout);
    }
    // Lets the windows take what was posted and repaint.
    static void Settle(int rounds = 3)
    {
        for (int i = 0; i < rounds; ++i)
            PumpMessages();
    }
    void Key(uint16_t key, bool ctrl = false)
    {
        const NativeWindow desk = m_rApp.GetDesk().GetHandle();
        if (ctrl)
            PostMessage(desk, WM_KEYDOWN, VK_CONTROL, 1);
        PostMessage(desk, WM_KEYDOWN, key, 1);
        PostMessage(desk, WM_KEYUP, key, 1);
        if (ctrl)
            PostMessage(desk, WM_KEYUP, VK_CONTROL, 1);
        Settle();
    }
    void Click(NativeWindow window, const TamPoint& at)
    {
        PostMessage(window, WM_LBUTTONDOWN, MK_LBUTTON, MakeLParam(at.x, at.y));
        PostMessage(window, WM_LBUTTONUP, 0, MakeLParam(at.x, at.y));
        Settle();
    }
    // A frame of the session animation, and a PNG screenshot when `name` is given.
    void Shot(const char* name = nullptr)
    {
        Settle();
        const Bitmap shot = m_rApp.Screenshot();
        const TamSize size = shot.GetSize();
        m_aFrames.push_back(shot.StretchHQ(FSize(size.Width() * 0.4, size.Height() * 0.4)));
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
    bool WriteAnimation()
    {
        const std::string path = m_aOut + "/session.gif";
        if (Bitmap::SaveAnimatedGif(DirEntry(SString(path.c_str())), m_aFrames, 60) != ERR_OK) {
            std::fprintf(stderr, "demo: cannot write the session animation %s\n", path.c_str());
            return false;
        }
        std::printf("  session animation %s (%zu frames)\n", path.c_str(), m_aFrames.size());
        return true;
    }
    bool Failed() const { return m_bFailed; }

private:
    DemoApp& m_rApp;
    std::string m_aOut;
    std::vector<Bitmap> m_aFrames;
    int m_nStep = 0;
    bool m_bFailed = false;
};

std::string BoxText(const Box& b)
{
    return std::to_string(b.width) + " x " + std::to_string(b.height) + " at " + std::to_string(b.x) + ", " +
           std::to_string(b.y);
}

} // namespace

int RunSession(DemoApp& app, const std::string& folder, const std::string& outdir)
{
    Script s(app, outdir);
    if (!app.OpenFolder(folder))
        return 1;
    s.Step("opened " + folder + ": " + std::to_string(app.Folder().Files().size()) + " pictures");
    s.Shot("01-folder");

    const auto& files = app.Folder().Files();
    bool shownPicture = false;
    for (size_t i = 0; i < files.size(); ++i) {
        if (i == 0)
            s.Click(app.Folder().GetHandle(), TamPoint(40, app.Folder().RowTop(0) + 4));
        else
            s.Key(VK_DOWN);
        const std::string& line = app.Log().Lines().back();
        s.Step(line.rfind("problem: ", 0) == 0 ? line : files[i].name + ": " + line);
        if (!app.Preview().Animation()) {
            const bool first = !shownPicture && app.Preview().HasPicture();
            shownPicture = shownPicture || first;
            s.Shot(first ? "02-picture" : nullptr);
            continue;
        }
        // Let the player run a few frames; each pause is one frame of the session animation.
        for (int f = 0; f < 6; ++f) {
            std::this_thread::sleep_for(std::chrono::milliseconds(120));
            s.Shot(f == 3 ? "03-animation" : nullptr);
        }
        s.Step(std::string("played ") + files[i].name + (app.Preview().IsAnimating() ? ", still playing" : ""));
    }

    const PaneBoxes before = app.Boxes();
    int back = 0;
    for (int pane = 0; pane < PANE_COUNT; ++pane) {
        s.Key(static_cast<uint16_t>(static_cast<int>(VK_F1) + pane));
        s.Shot(pane == PANE_FOLDER ? "04-folder-hidden" : nullptr);
        s.Key(static_cast<uint16_t>(static_cast<int>(VK_F1) + pane));
        const bool same = app.Boxes()[pane] == before[pane];
        back += same;
        const std::string& shown = app.Log().Lines().back();
        s.Step("F" + std::to_string(pane + 1) + ": " + shown.substr(0, shown.find(' ')) + " hidden and shown" +
               (same ? ", back in its place" : ", moved to " + BoxText(app.Boxes()[pane])));
    }
    s.Step(std::to_string(back) + " of " + std::to_string(PANE_COUNT) + " panes returned to their exact place");

    app.Frame().MoveWindow(60, 60, 720, 450);
    s.Settle();
    s.Step("resized the frame to 720 x 450: preview " + BoxText(app.Boxes()[PANE_PREVIEW]));
    s.Shot("05-resized");

    // Ctrl+O's command: posted key messages do not carry the modifier state, so the script
    // runs the command the key is bound to.
    for (int i = 0; i < 2; ++i) {
        const size_t before = app.Log().Lines().size();
        app.OpenNextFolder();
        s.Settle();
        std::string said;
        for (size_t k = std::min(before, app.Log().Lines().size()); k < app.Log().Lines().size(); ++k)
            said += (said.empty() ? "" : "; ") + app.Log().Lines()[k];
        s.Step("Ctrl+O: " + said);
    }
    s.Shot();

    const bool animation = s.WriteAnimation();
    return animation && !s.Failed() ? 0 : 1;
}

} // namespace demo
