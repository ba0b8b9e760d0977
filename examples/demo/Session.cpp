#include "Session.hpp"

#include "Script.hpp"

#include <algorithm>
#include <chrono>
#include <thread>

using namespace vesk;

namespace demo {

namespace {

// Selects each picture of the folder in turn and lets the animation play.
void BrowsePictures(Script& s, DemoApp& app)
{
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
        for (int f = 0; f < 4; ++f) {
            std::this_thread::sleep_for(std::chrono::milliseconds(120));
            s.Shot(f == 2 ? "03-animation" : nullptr);
        }
        s.Step(std::string("played ") + files[i].name + (app.Preview().IsAnimating() ? ", still playing" : ""));
    }
}

} // namespace

int RunSession(DemoApp& app, const std::string& folder, const std::string& outdir)
{
    Script s(app, outdir);
    if (!app.OpenFolder(folder))
        return 1;
    s.Step("opened " + folder + ": " + std::to_string(app.Folder().Files().size()) + " pictures");
    s.Shot("01-folder");
    BrowsePictures(s, app);
    RunDockingSteps(s);

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

    const bool written = s.WriteAnimation() && s.WriteTranscript();
    return written && !s.Failed() ? 0 : 1;
}

} // namespace demo
