// The demo's headless session run as a program: the step lines it prints, the files it
// writes, the layout it saves and restores, and how it reports bad input.

#include "support/TempDir.hpp"

#include <gtest/gtest.h>
#include <vesk/files.hpp>
#include <vesk/graphics.hpp>

#include <array>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <sys/wait.h>

namespace {

struct DemoRun
{
    int status = -1;
    std::string out; // standard output and standard error together
};

// Runs the demo on the headless display. In sanitizer builds the leak checker is told that
// fontconfig's font sets, kept for the life of the process, are not the program's.
DemoRun RunDemo(const std::string& args)
{
    static const vesk::test::TempDir scratch;
    const std::string suppressions = scratch.File("lsan.supp");
    std::ofstream(suppressions) << "leak:libfontconfig.so\n";
    DemoRun run;
    const std::string command = "VESK_PLATFORM=headless LSAN_OPTIONS=suppressions=" + suppressions + " " +
                                std::string(VESK_DEMO_EXE) + " " + args + " 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe)
        return run;
    std::array<char, 4096> buffer{};
    while (size_t n = fread(buffer.data(), 1, buffer.size(), pipe))
        run.out.append(buffer.data(), n);
    const int status = pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

std::vector<std::string> Lines(const std::string& text, const std::string& prefix)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        if (line.rfind(prefix, 0) == 0)
            lines.push_back(line);
    return lines;
}

// The colour of one pixel of a picture file as 0xRRGGBB; -1 when it cannot be read.
int64_t PixelAt(const std::string& path, int32_t x, int32_t y)
{
    vesk::Bitmap picture;
    picture.Load(vesk::DirEntry(vesk::SString(path.c_str())));
    const vesk::BitmapPixels pixels = picture.GetPGdiplusBitmap();
    if (!pixels.pixels || x >= pixels.width || y >= pixels.height)
        return -1;
    return pixels.pixels[y * (pixels.stride ? pixels.stride : pixels.width) + x] & 0xFFFFFF;
}

vesk::TamSize PictureSize(const std::string& path)
{
    vesk::Bitmap picture;
    picture.Load(vesk::DirEntry(vesk::SString(path.c_str())));
    return picture.GetSize();
}

std::string ReadFile(const std::string& path)
{
    std::ifstream in(path);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

TEST(DemoSession, PlaysEveryStepAndWritesReadablePictures)
{
    vesk::test::TempDir dir;
    // A damaged profile is reported and replaced by defaults; the session still runs.
    std::ofstream(dir.File("demo.ini")) << "[Demo]\nWidth=wide\nHeight=5\n";
    const DemoRun run = RunDemo("--headless " + dir.Path());
    ASSERT_EQ(run.status, 0) << run.out;

    const auto steps = Lines(run.out, "step ");
    ASSERT_GE(steps.size(), 25u) << run.out;
    for (size_t i = 0; i < steps.size(); ++i)
        EXPECT_EQ(steps[i].rfind("step " + std::to_string(i + 1) + ": ", 0), 0u) << steps[i];
    // The step list written beside the pictures is the same.
    std::string listed;
    for (const std::string& step : steps)
        listed += step + "\n";
    EXPECT_EQ(ReadFile(dir.File("steps.txt")), listed);

    // Each sample is read with its true size; the damaged files are named, the run goes on.
    for (const char* expected : {"selected lake.png (320 x 200)", "selected dunes.jpg (400 x 260)",
                                 "selected meadow.bmp (160 x 120)", "selected dusk.tif (240 x 240)",
                                 "selected wheel.gif (96 x 96)", "problem: cannot read the picture damaged.png",
                                 "problem: cannot read the animation damaged.gif", "played wheel.gif, still playing",
                                 "cannot read the folder", "resized the frame to 720 x 450"})
        EXPECT_NE(run.out.find(expected), std::string::npos) << expected << "\n" << run.out;
    EXPECT_NE(run.out.find("demo: profile: Width \"wide\" is not a usable size"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("demo: profile: Height \"5\" is not a usable size"), std::string::npos) << run.out;
    EXPECT_EQ(steps[0].rfind("step 1: opened ", 0), 0u) << steps[0];
    EXPECT_NE(steps[0].find("/pictures: 7 pictures"), std::string::npos) << steps[0];

    // The docking steps, with the panes that must come back exactly where they stood.
    for (const char* expected :
         {"F1: Folder hidden and shown, back in its place", "F2: Preview hidden and shown, back in its place",
          "F3: Properties hidden and shown, back in its place", "F4: Colours hidden and shown, back in its place",
          "F5: Log hidden and shown, back in its place",
          ": 5 of 5 panes returned to their exact place\n",
          "dragged the folder pane's divider 40 pixels right: folder 260 wide",
          "dragged it back: 5 of 5 panes returned to their exact place\n",
          "dragged the log pane onto the folder pane's lower edge: docked below it at 220 x ",
          "dragged it to the frame's bottom edge: docked there at 880 x ",
          "dragged the properties pane over the preview: floating at 246 x ",
          "saved the pane layout and restored it into a new browser window: 5 of 5 panes took their exact place\n",
          "dragged the properties pane from its mini-frame onto the colours pane's upper edge: docked",
          "pinned the colours pane off: a tab in the right strip",
          "slid it out with its tab and pinned it back: docked, 5 of 5 panes returned to their exact place\n",
          "resized it back to 880 x 540: 5 of 5 panes returned to their exact place\n"})
        EXPECT_NE(run.out.find(expected), std::string::npos) << expected << "\n" << run.out;

    for (const char* name : {"01-folder", "02-picture", "03-animation", "04-folder-hidden", "06-dragging",
                             "08-floating", "09-restored"}) {
        const vesk::TamSize size = PictureSize(dir.File(std::string(name) + ".png"));
        EXPECT_EQ(size.Width(), 880) << name;
        EXPECT_EQ(size.Height(), 540) << name;
    }
    EXPECT_EQ(PictureSize(dir.File("10-resized.png")).Width(), 720);
    // Screenshots are composed from every visible window: the captions of the folder and
    // the log pane where the default layout docks them, the preview's title strip between.
    constexpr int64_t kCaption = 0xC8D0D8, kTitle = 0x2E4A6E;
    const std::string first = dir.File("01-folder.png");
    EXPECT_EQ(PixelAt(first, 100, 5), kCaption);
    EXPECT_EQ(PixelAt(first, 100, 432 + 5), kCaption);
    EXPECT_EQ(PixelAt(first, 400, 5), kTitle);
    EXPECT_NE(PixelAt(first, 100, 30), kCaption);
    // The colour table's first swatch: the colours pane is docked below the properties pane.
    EXPECT_EQ(PixelAt(first, 645, 264), 0x000000);
    // With the folder hidden, the preview's title strip reaches the left edge.
    EXPECT_EQ(PixelAt(dir.File("04-folder-hidden.png"), 100, 5), kTitle);
    // The floating pane over the preview, in the screenshot and in the restored window: its
    // caption, and the properties pane's own background below the rows (the body is made
    // again in the mini-frame, not left behind in the dock host).
    constexpr int64_t kBody = 0xFAFAFA;
    for (const char* name : {"08-floating.png", "09-restored.png"}) {
        EXPECT_EQ(PixelAt(dir.File(name), 440, 140), kCaption) << name;
        EXPECT_EQ(PixelAt(dir.File(name), 440, 320), kBody) << name;
    }
    EXPECT_LT(PictureSize(dir.File("session.gif")).Width(), 300);

    // The folder, the size of this run and the saved layout's mark were written over the
    // damaged profile; the layout itself is in the settings store kept in the output folder.
    const std::string profile = ReadFile(dir.File("demo.ini"));
    EXPECT_NE(profile.find("Width=880"), std::string::npos) << profile;
    EXPECT_NE(profile.find("LastFolder="), std::string::npos) << profile;
    EXPECT_NE(profile.find("LayoutSaved=1"), std::string::npos) << profile;
    EXPECT_NE(ReadFile(dir.File("vesk/settings.ini")).find("PictureBrowserDockingManager-0"), std::string::npos);
}

TEST(DemoSession, SavedLayoutIsRestoredOnStartAndADamagedOneIsReported)
{
    vesk::test::TempDir dir;
    const DemoRun first = RunDemo("--headless " + dir.Path());
    ASSERT_EQ(first.status, 0) << first.out;
    EXPECT_TRUE(Lines(first.out, "demo: restored").empty()) << first.out;

    // The first run ended with the log band taller than the default: the second starts so.
    const DemoRun second = RunDemo("--headless " + dir.Path());
    ASSERT_EQ(second.status, 0) << second.out;
    EXPECT_EQ(Lines(second.out, "demo: restored the saved pane layout").size(), 1u) << second.out;
    EXPECT_NE(second.out.find("dragged the folder pane's divider 40 pixels right: folder 260 wide, preview 364 x 400"),
              std::string::npos)
        << second.out;

    // Every byte of the saved layout value damaged, while the folder pane's own section says
    // it was hidden: one line, the default layout with every pane shown, the session runs.
    std::string store = ReadFile(dir.File("vesk/settings.ini"));
    const std::string visible = "BasePane-1]\nIsVisible=dword:1";
    ASSERT_NE(store.find(visible), std::string::npos) << store;
    store.replace(store.find(visible) + visible.size() - 1, 1, "0");
    const std::string key = "DockingPaneAndPaneDividers=hex:";
    const size_t at = store.find(key);
    ASSERT_NE(at, std::string::npos) << store;
    for (size_t i = at + key.size(); i < store.size() && std::isxdigit(static_cast<unsigned char>(store[i])); ++i)
        store[i] = 'F';
    std::ofstream(dir.File("vesk/settings.ini")) << store;
    const DemoRun damaged = RunDemo("--headless " + dir.Path());
    ASSERT_EQ(damaged.status, 0) << damaged.out;
    EXPECT_EQ(Lines(damaged.out, "demo: the saved pane layout cannot be read, using the default layout").size(), 1u)
        << damaged.out;
    EXPECT_NE(damaged.out.find("folder 260 wide, preview 364 x 427"), std::string::npos) << damaged.out;
}

TEST(DemoSession, JobsThatCannotBeDoneFailWithOneLine)
{
    vesk::test::TempDir dir;
    std::ofstream(dir.File("plain-file")) << "x";
    const DemoRun unwritable = RunDemo("--headless " + dir.File("plain-file") + "/out");
    EXPECT_EQ(unwritable.status, 2);
    EXPECT_EQ(Lines(unwritable.out, "demo: cannot write into the output folder").size(), 1u) << unwritable.out;
    EXPECT_TRUE(Lines(unwritable.out, "step ").empty());

    const DemoRun noSamples = RunDemo("--headless " + dir.File("out") + " --samples " + dir.File("missing"));
    EXPECT_EQ(noSamples.status, 2);
    EXPECT_EQ(Lines(noSamples.out, "demo: no sample pictures in").size(), 1u) << noSamples.out;

    const DemoRun badOption = RunDemo("--frobnicate");
    EXPECT_EQ(badOption.status, 2);
}

} // namespace
