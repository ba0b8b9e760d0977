// The demo's headless session run as a program: the step lines it prints, the files it
// writes, and how it reports bad input. Also the pane layout it arranges.

#include "support/TempDir.hpp"

#include <gtest/gtest.h>
#include <vesk/files.hpp>
#include <vesk/graphics.hpp>

#include <array>
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

TEST(DemoSession, PlaysEveryStepAndWritesReadablePictures)
{
    vesk::test::TempDir dir;
    // A damaged profile is reported and replaced by defaults; the session still runs.
    std::ofstream(dir.File("demo.ini")) << "[Demo]\nWidth=wide\nHeight=5\n";
    const DemoRun run = RunDemo("--headless " + dir.Path());
    ASSERT_EQ(run.status, 0) << run.out;

    const auto steps = Lines(run.out, "step ");
    ASSERT_GE(steps.size(), 15u) << run.out;
    for (size_t i = 0; i < steps.size(); ++i)
        EXPECT_EQ(steps[i].rfind("step " + std::to_string(i + 1) + ": ", 0), 0u) << steps[i];

    // Each sample is read with its true size; the damaged files are named, the run goes on.
    for (const char* expected : {"selected lake.png (320 x 200)", "selected dunes.jpg (400 x 260)",
                                 "selected meadow.bmp (160 x 120)", "selected dusk.tif (240 x 240)",
                                 "selected wheel.gif (96 x 96)", "problem: cannot read the picture damaged.png",
                                 "problem: cannot read the animation damaged.gif",
                                 "F1: Folder hidden and shown", "F3: Properties hidden and shown",
                                 "F5: Log hidden and shown", "5 of 5 panes returned to their exact place", "played wheel.gif, still playing",
                                 "cannot read the folder", "resized the frame to 720 x 450"})
        EXPECT_NE(run.out.find(expected), std::string::npos) << expected << "\n" << run.out;
    EXPECT_NE(run.out.find("demo: profile: Width \"wide\" is not a usable size"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("demo: profile: Height \"5\" is not a usable size"), std::string::npos) << run.out;
    EXPECT_EQ(steps[0].rfind("step 1: opened ", 0), 0u) << steps[0];
    EXPECT_NE(steps[0].find("/pictures: 7 pictures"), std::string::npos) << steps[0];

    for (const char* name : {"01-folder", "02-picture", "03-animation", "04-folder-hidden"}) {
        const vesk::TamSize size = PictureSize(dir.File(std::string(name) + ".png"));
        EXPECT_EQ(size.Width(), 880) << name;
        EXPECT_EQ(size.Height(), 540) << name;
    }
    EXPECT_EQ(PictureSize(dir.File("05-resized.png")).Width(), 720);
    // Screenshots are composed from every visible pane: the title strips of the folder, the
    // colours and the log pane are where the layout puts them.
    constexpr int64_t kTitle = 0x2E4A6E;
    EXPECT_EQ(PixelAt(dir.File("01-folder.png"), 100, 5), kTitle);
    EXPECT_EQ(PixelAt(dir.File("01-folder.png"), 860, 216 + 5), kTitle);
    EXPECT_EQ(PixelAt(dir.File("01-folder.png"), 100, 432 + 5), kTitle);
    EXPECT_NE(PixelAt(dir.File("01-folder.png"), 100, 30), kTitle);
    EXPECT_EQ(PictureSize(dir.File("session.gif")).Width(), 352);

    // The folder and size of this run were saved over the damaged profile.
    std::ifstream ini(dir.File("demo.ini"));
    const std::string profile((std::istreambuf_iterator<char>(ini)), std::istreambuf_iterator<char>());
    EXPECT_NE(profile.find("Width=720"), std::string::npos) << profile;
    EXPECT_NE(profile.find("LastFolder="), std::string::npos) << profile;
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
