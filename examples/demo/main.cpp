// The picture browser: a frame with a folder listing, a preview, the file's properties, the
// colour tools and a log. With an X display it runs until closed (Escape quits); with
// --headless OUTDIR, or without a display, it plays a scripted session and writes screenshots
// and an animation of it into OUTDIR.
//
//   demo [--headless OUTDIR] [--profile FILE] [--samples DIR] [FOLDER...]

#include "DemoApp.hpp"
#include "Session.hpp"

#include <vesk/frame.hpp>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace demo;

namespace {

struct Options
{
    bool headless = false;
    std::string outdir;
    std::string profile;
    std::string samples = DEMO_SAMPLES_DIR;
    std::vector<std::string> folders;
};

bool ParseOptions(int argc, char** argv, Options& o)
{
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool hasValue = i + 1 < argc;
        if (arg == "--headless") {
            o.headless = true;
            if (hasValue && argv[i + 1][0] != '-')
                o.outdir = argv[++i];
        } else if ((arg == "--profile" || arg == "--samples") && hasValue) {
            (arg == "--profile" ? o.profile : o.samples) = argv[++i];
        } else if (!arg.empty() && arg[0] == '-') {
            std::fprintf(stderr, "demo: unknown option %s\n", arg.c_str());
            return false;
        } else {
            o.folders.push_back(arg);
        }
    }
    return true;
}

// Whether a file can be made in the folder (which is created when missing).
bool CanWriteInto(const std::string& folder, std::string& error)
{
    std::error_code ec;
    fs::create_directories(folder, ec);
    const fs::path probe = fs::path(folder) / ".demo-write-test";
    std::ofstream(probe) << "x";
    if (!fs::exists(probe, ec)) {
        error = "cannot write into the output folder " + folder;
        return false;
    }
    fs::remove(probe, ec);
    return true;
}

// The session's folder: copies of the sample pictures plus a damaged picture and a damaged
// animation, to show how the browser reports them.
bool PrepareSessionFolder(const std::string& samples, const fs::path& work, std::string& error)
{
    std::error_code ec;
    fs::create_directories(work, ec);
    int copied = 0;
    for (fs::directory_iterator it(samples, ec), end; !ec && it != end; it.increment(ec)) {
        if (IsPictureName(it->path().filename().string()) &&
            fs::copy_file(it->path(), work / it->path().filename(), fs::copy_options::overwrite_existing, ec))
            ++copied;
    }
    if (copied == 0) {
        error = "no sample pictures in " + samples;
        return false;
    }
    std::ofstream(work / "damaged.png", std::ios::binary) << "\x89PNG\r\n\x1a\n cut short";
    std::ofstream(work / "damaged.gif", std::ios::binary) << "GIF89a\x10";
    return true;
}

int RunHeadless(DemoApp& app, const Options& o, const fs::path& scratch)
{
    std::string error;
    const fs::path work = scratch / "pictures";
    if (!PrepareSessionFolder(o.samples, work, error)) {
        std::fprintf(stderr, "demo: %s\n", error.c_str());
        return 2;
    }
    app.SetFolders({work.string(), o.samples, (scratch / "no-such-folder").string()});
    std::printf("demo: headless session, files go to %s\n", o.outdir.c_str());
    return RunSession(app, work.string(), o.outdir);
}

} // namespace

int main(int argc, char** argv)
{
    Options o;
    if (!ParseOptions(argc, argv, o))
        return 2;
    vesk::VeskInit();
    o.headless = o.headless || std::string(vesk::GetDisplayName()) == "headless";
    std::string error;
    if (o.headless) {
        if (o.outdir.empty())
            o.outdir = "demo-output";
        if (!CanWriteInto(o.outdir, error)) {
            std::fprintf(stderr, "demo: %s\n", error.c_str());
            vesk::VeskExit();
            return 2;
        }
        if (o.profile.empty())
            o.profile = o.outdir + "/demo.ini";
        // The session keeps the settings store, where the pane layout is saved, in OUTDIR too,
        // away from the user's own.
        std::error_code ec;
        setenv("XDG_CONFIG_HOME", fs::absolute(o.outdir, ec).c_str(), 1);
    }

    std::error_code ec;
    const fs::path scratch = fs::temp_directory_path(ec) / ("vesk-demo-" + std::to_string(getpid()));
    fs::create_directories(scratch, ec);

    std::vector<std::string> problems;
    Settings settings = LoadSettings(o.profile, problems);
    for (const std::string& problem : problems)
        std::fprintf(stderr, "demo: %s\n", problem.c_str());
    if (o.headless)
        settings.size = vesk::TamSize(880, 540);

    int result = 0;
    {
        DemoApp app;
        const bool created = app.Create(settings, scratch.string(), error);
        if (created) {
            vesk::SetVeskMainFrame(app.Frame().GetSafeHwnd());
            if (app.RestoreLayout()) {
                std::printf("demo: restored the saved pane layout\n");
                app.Event("restored the saved pane layout");
            }
            else if (settings.layoutSaved)
                app.Problem("the saved pane layout cannot be read, using the default layout");
        }
        if (!created) {
            std::fprintf(stderr, "demo: %s\n", error.c_str());
            result = 2;
        } else if (o.headless) {
            result = RunHeadless(app, o, scratch);
        } else {
            std::vector<std::string> folders = o.folders;
            if (folders.empty()) {
                if (!settings.folder.empty())
                    folders.push_back(settings.folder);
                folders.push_back(o.samples);
                if (const char* home = std::getenv("HOME"))
                    folders.push_back(home);
            }
            app.SetFolders(folders);
            if (!app.OpenFolder(folders.front()))
                app.OpenNextFolder();
            result = vesk::RunMessageLoop() == 0 ? 0 : 1;
        }
        if (result != 2) {
            const bool layoutSaved = app.SaveLayout();
            if (!layoutSaved)
                std::fprintf(stderr, "demo: cannot save the pane layout\n");
            if (!SaveSettings(o.profile, app.CurrentSettings(layoutSaved)))
                std::fprintf(stderr, "demo: cannot save the profile\n");
        }
    }
    vesk::VeskExit();
    fs::remove_all(scratch, ec);
    return result;
}
