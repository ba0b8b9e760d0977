// The demo's helpers that need no window: the picture filter, file kinds, size texts and the
// settings kept in the profile file.

#include "FolderPane.hpp"
#include "PropertiesPane.hpp"
#include "Settings.hpp"
#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <fstream>

namespace {

TEST(DemoParts, PictureFilterAndKinds)
{
    for (const char* name : {"a.png", "B.JPG", "c.jpeg", "d.Bmp", "e.tif", "f.TIFF", "g.gif", ".png"})
        EXPECT_TRUE(demo::IsPictureName(name)) << name;
    for (const char* name : {"png", "a.png.txt", "a.pngx", "notes", "a.anm", "a.gi"})
        EXPECT_FALSE(demo::IsPictureName(name)) << name;

    EXPECT_EQ(demo::KindOf("x.jpeg"), "JPG picture");
    EXPECT_EQ(demo::KindOf("x.TIFF"), "TIF picture");
    EXPECT_EQ(demo::KindOf("x.png"), "PNG picture");
    EXPECT_EQ(demo::KindOf("a.b.Gif"), "GIF animation");
    EXPECT_EQ(demo::KindOf("noext"), " picture");
}

TEST(DemoParts, SizesRoundUpToWholeKilobytes)
{
    vesk::International intl;
    intl.ChangeNumThousandSep('.');
    intl.EnableNumThousandSep(true);
    EXPECT_EQ(demo::FolderPane::SizeText(intl, 0), "0 KB");
    EXPECT_EQ(demo::FolderPane::SizeText(intl, 1), "1 KB");
    EXPECT_EQ(demo::FolderPane::SizeText(intl, 1024), "1 KB");
    EXPECT_EQ(demo::FolderPane::SizeText(intl, 1025), "2 KB");
    EXPECT_EQ(demo::FolderPane::SizeText(intl, 5000 * 1024ull), "5.000 KB");
    // Beyond what the number formatter takes, the figure stops at its largest value.
    EXPECT_EQ(demo::FolderPane::SizeText(intl, ~0ull), "2.147.483.647 KB");
}

TEST(DemoParts, SettingsRoundTripAndDamage)
{
    vesk::test::TempDir dir;
    std::vector<std::string> problems;

    const demo::Settings none = demo::LoadSettings(dir.File("missing.ini"), problems);
    EXPECT_TRUE(problems.empty());
    EXPECT_TRUE(none.folder.empty());
    EXPECT_EQ(none.size.Width(), 960);
    EXPECT_FALSE(none.layoutSaved);

    demo::Settings saved;
    saved.folder = "/home/ü/Bilder/a=b";
    saved.size = vesk::TamSize(200, 8000);
    saved.layoutSaved = true;
    ASSERT_TRUE(demo::SaveSettings(dir.File("demo.ini"), saved));
    const demo::Settings read = demo::LoadSettings(dir.File("demo.ini"), problems);
    EXPECT_TRUE(problems.empty());
    EXPECT_EQ(read.folder, saved.folder);
    EXPECT_EQ(read.size.Width(), 200);
    EXPECT_EQ(read.size.Height(), 8000);
    EXPECT_TRUE(read.layoutSaved);

    std::ofstream(dir.File("bad.ini")) << "[Demo]\nWidth=199\nHeight=8001\n";
    const demo::Settings bad = demo::LoadSettings(dir.File("bad.ini"), problems);
    ASSERT_EQ(problems.size(), 2u);
    EXPECT_EQ(problems[0], "profile: Width \"199\" is not a usable size, using 960");
    EXPECT_EQ(bad.size.Height(), 600);

    problems.clear();
    std::ofstream(dir.File("junk.ini")) << "[Demo]\nWidth=800px\nHeight=\n\x01\x02[[[";
    EXPECT_EQ(demo::LoadSettings(dir.File("junk.ini"), problems).size.Width(), 960);
    EXPECT_EQ(problems.size(), 1u);
}

} // namespace
