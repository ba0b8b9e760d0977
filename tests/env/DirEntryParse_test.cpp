#include <vesk/files.hpp>

#include "env/DirEntry_p.hpp"

#include <gtest/gtest.h>

#include <string>

using namespace vesk;

namespace {

struct Parts {
    const char* device;
    const char* path;
    const char* base;
    const char* ext;
    DirEntryFlag flag;
    bool valid = true;
};

void ExpectParts(const SString& text, const Parts& want)
{
    SCOPED_TRACE(std::string("text: ") + static_cast<const char*>(text));
    const DirEntry e(text);
    EXPECT_EQ(std::string(DirEntryAccess::Device(e)), want.device);
    EXPECT_EQ(std::string(DirEntryAccess::Path(e)), want.path);
    EXPECT_EQ(std::string(e.GetBase()), want.base);
    EXPECT_EQ(std::string(e.GetExtension()), want.ext);
    EXPECT_EQ(e.GetFlag(), want.flag);
    EXPECT_EQ(e.IsValid(), want.valid);
}

TEST(DirEntryParse, DrivePaths)
{
    ExpectParts("C:\\dir\\file.txt", {"C:", "\\dir\\", "file", "txt", DIRENTRY_ROOTED});
    ExpectParts("C:file", {"C:", "", "file", "", DIRENTRY_RELATIVE});
    ExpectParts("C:", {"C:", "", "", "", DIRENTRY_RELATIVE});
    ExpectParts("C:\\", {"C:", "\\", "", "", DIRENTRY_ROOTED});
    ExpectParts("x:y/z", {"x:", "y/", "z", "", DIRENTRY_RELATIVE});
    EXPECT_EQ(std::string(DirEntry("C:\\dir\\file.txt").GetFull()), "C:\\dir\\file.txt");
}

TEST(DirEntryParse, NetworkPaths)
{
    ExpectParts("\\\\server\\share\\dir\\a.b", {"\\\\server\\share", "\\dir\\", "a", "b", DIRENTRY_ROOTED});
    ExpectParts("\\\\server\\share", {"\\\\server\\share", "", "", "", DIRENTRY_ROOTED});
    ExpectParts("//a.b/c:d", {"//a.b/c:d", "", "", "", DIRENTRY_ROOTED});
    ExpectParts("\\\\s\\h\\", {"\\\\s\\h", "\\", "", "", DIRENTRY_ROOTED});
    // A dot at the very end is cut without leaving an extension.
    ExpectParts("\\\\s\\h\\d\\name.", {"\\\\s\\h", "\\d\\", "name", "", DIRENTRY_ROOTED});
    ExpectParts("\\\\s\\h\\..", {"\\\\s\\h", "\\", "..", "", DIRENTRY_ROOTED});
    ExpectParts("\\\\s\\h\\.txt", {"\\\\s\\h", "\\", "", "txt", DIRENTRY_ROOTED});
}

TEST(DirEntryParse, LinuxPathsHaveNoDevice)
{
    ExpectParts("/home/u/a.tar.gz", {"", "/home/u/", "a.tar", "gz", DIRENTRY_RELATIVE});
    ExpectParts("/", {"", "/", "", "", DIRENTRY_RELATIVE});
    ExpectParts("a.b/c", {"", "a.b/", "c", "", DIRENTRY_RELATIVE});
    EXPECT_FALSE(DirEntry("/home").IsAbsolute());
}

TEST(DirEntryParse, Dots)
{
    ExpectParts("dir/..", {"", "dir/", "..", "", DIRENTRY_RELATIVE});
    ExpectParts("..", {"", "", "..", "", DIRENTRY_RELATIVE});
    ExpectParts("C:..", {"C:", "", "..", "", DIRENTRY_RELATIVE});
    ExpectParts("...", {"", "", "..", "", DIRENTRY_RELATIVE});
    ExpectParts("a..b", {"", "", "a.", "b", DIRENTRY_RELATIVE});
    ExpectParts("name.", {"", "", "name", "", DIRENTRY_RELATIVE});
    ExpectParts(".", {"", "", "", "", DIRENTRY_RELATIVE});
    ExpectParts(".profile", {"", "", "", "profile", DIRENTRY_RELATIVE});
    EXPECT_EQ(std::string(DirEntry("name.").GetName()), "name");
    EXPECT_FALSE(DirEntry("dir/..").HasLegalName());
    EXPECT_TRUE(DirEntry("dir/..x").HasLegalName());
    EXPECT_FALSE(DirEntry("dir/").HasLegalName());
}

TEST(DirEntryParse, SemicolonCutsAndEmptyTexts)
{
    ExpectParts("x.txt;2", {"", "", "x", "txt", DIRENTRY_RELATIVE});
    ExpectParts("a/b;c/d.e", {"", "a/", "b", "", DIRENTRY_RELATIVE});
    ExpectParts(";x", {"", "", "", "", DIRENTRY_UNPARSED, false});
    ExpectParts("", {"", "", "", "", DIRENTRY_UNPARSED, false});
    EXPECT_EQ(DirEntry(DIRENTRY_ROOTED).GetFlag(), DIRENTRY_ROOTED);
    EXPECT_FALSE(DirEntry(DIRENTRY_ROOTED).IsValid());
}

TEST(DirEntryParse, ColonsAfterTheLastSeparator)
{
    // The device runs up to the first colon wherever it stands; a colon cut off with the
    // extension still bounds the device.
    ExpectParts("a.b:c", {"a", "", "", "b:c", DIRENTRY_RELATIVE});
    ExpectParts("dir/a:b", {"dir/a:", "", "a:b", "", DIRENTRY_RELATIVE});
    ExpectParts("a:b:c", {"a:", "", "b:c", "", DIRENTRY_RELATIVE});
}

TEST(DirEntryParse, UrlSchemesLandInTheDevice)
{
    ExpectParts("http://host/x.html", {"http:", "//host/", "x", "html", DIRENTRY_ROOTED});
    ExpectParts("data:text/plain,x", {"data:", "text/", "plain,x", "", DIRENTRY_RELATIVE});
}

TEST(DirEntryParse, PartsTakeTheUtf8FlagOfTheBytes)
{
    const DirEntry utf8(SString("dir/caf\xC3\xA9.txt"));
    EXPECT_TRUE(utf8.GetBase().IsUTF8());
    EXPECT_TRUE(DirEntryAccess::Path(utf8).IsUTF8());
    EXPECT_TRUE(utf8.GetFull().IsUTF8());

    EXPECT_FALSE(DirEntry(SString("caf\xE9")).GetBase().IsUTF8());

    // A text wrongly marked UTF-8 gives unmarked parts and keeps its own mark.
    SString marked("a/\xE9.txt");
    marked.SetIsUTF8();
    const SString shared = marked;
    const DirEntry e(marked);
    EXPECT_FALSE(e.GetBase().IsUTF8());
    EXPECT_TRUE(marked.IsUTF8());
    EXPECT_TRUE(shared.IsUTF8());
}

TEST(DirEntryParse, HostileTextsParse)
{
    std::string text;
    for (size_t i = 0; text.size() < 65536; ++i)
        text += "\xFF:;\\/.\xC3"[i % 7];
    const DirEntry cut(SString(text.c_str(), 0, static_cast<unsigned int>(text.size()), true));
    EXPECT_TRUE(cut.IsValid());
    EXPECT_EQ(std::string(cut.GetFull()), "\xFF:");

    std::string longPath;
    while (longPath.size() < 65536)
        longPath += "/d\xE9j\xE0.v:u";
    const DirEntry e(SString(longPath.c_str()));
    EXPECT_TRUE(e.IsValid());
    EXPECT_FALSE(e.GetBase().IsUTF8());
    EXPECT_EQ(e.GetFull().Len(), longPath.size());
}

TEST(DirEntryParse, FullTextWithSeparator)
{
    EXPECT_EQ(std::string(DirEntry("C:/dir").GetFull(true)), "C:/dir/");
    EXPECT_EQ(std::string(DirEntry("C:\\dir").GetFull(true)), "C:\\dir\\");
    EXPECT_EQ(std::string(DirEntry("dir").GetFull(true)), "dir\\");
    EXPECT_EQ(std::string(DirEntry("a/b\\").GetFull(true)), "a/b\\");
    EXPECT_EQ(std::string(DirEntry("").GetFull(true)), "\\");
}

TEST(DirEntryParse, NameChanges)
{
    DirEntry e("/d/a.txt");
    EXPECT_EQ(std::string(e.ChangeExtension("md")), "txt");
    EXPECT_EQ(std::string(e.GetName()), "a.md");
    EXPECT_EQ(std::string(e.ChangeBase("b")), "a");
    EXPECT_EQ(std::string(e.GetFull()), "/d/b.md");
    e.ChangeExtension("");
    EXPECT_EQ(std::string(e.GetName()), "b");
    e.CutName();
    EXPECT_FALSE(e.HasName());
    EXPECT_EQ(std::string(e.GetFull()), "/d/");
}

TEST(DirEntryParse, DevicesAndRoots)
{
    const DirEntry device = DirEntry("C:\\dir\\x").GetDevice();
    EXPECT_EQ(std::string(device.GetFull()), "C:");
    EXPECT_EQ(device.GetFlag(), DIRENTRY_DRIVE);
    EXPECT_TRUE(device.IsValid());
    EXPECT_FALSE(DirEntry("/x").GetDevice().IsValid());
    EXPECT_EQ(DirEntry("/x").GetDevice().GetFlag(), DIRENTRY_DRIVE);

    EXPECT_TRUE(DirEntry("C:").IsRoot());
    EXPECT_TRUE(DirEntry("C:/").IsRoot());
    EXPECT_TRUE(DirEntry("\\\\srv\\sh").IsRoot());
    EXPECT_TRUE(DirEntry("\\\\srv\\sh\\").IsRoot());
    EXPECT_FALSE(DirEntry("C:\\dir\\").IsRoot());
    EXPECT_FALSE(DirEntry("C:\\x").IsRoot());
    EXPECT_FALSE(DirEntry("/").IsRoot());
}

} // namespace
