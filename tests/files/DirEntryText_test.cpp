#include <vesk/files.hpp>

#include "files/DirEntry_p.hpp"

#include <gtest/gtest.h>

#include <string>

using namespace vesk;

namespace {

struct Case {
    const char* text;
    const char* device;
    const char* path;
    const char* base;
    const char* ext;
    DirEntryFlag flag;
};

constexpr DirEntryFlag ROOTED = DIRENTRY_ROOTED;
constexpr DirEntryFlag RELATIVE = DIRENTRY_RELATIVE;

TEST(DirEntryParse, SplitsIntoParts)
{
    const Case cases[] = {
        {"C:\\dir\\file.txt", "C:", "\\dir\\", "file", "txt", ROOTED},
        {"C:file", "C:", "", "file", "", RELATIVE},
        {"\\\\server\\share\\dir\\a.b", "\\\\server\\share", "\\dir\\", "a", "b", ROOTED},
        {"\\\\server\\share", "\\\\server\\share", "", "", "", ROOTED},
        {"//a.b/c:d", "//a.b/c:d", "", "", "", ROOTED},
        {"\\\\s\\h\\d\\name.", "\\\\s\\h", "\\d\\", "name", "", ROOTED},
        {"/home/u/a.tar.gz", "", "/home/u/", "a.tar", "gz", RELATIVE},
        {"dir/..", "", "dir/", "..", "", RELATIVE},
        {"...", "", "", "..", "", RELATIVE},
        {"C:..", "C:", "", "..", "", RELATIVE},
        {"C:a..", "C:", "", "a.", "", RELATIVE},
        {"a..b", "", "", "a.", "b", RELATIVE},
        {"name.", "", "", "name", "", RELATIVE},
        {".profile", "", "", "", "profile", RELATIVE},
        {"x.txt;2", "", "", "x", "txt", RELATIVE},
        {"a/b;c/d.e", "", "a/", "b", "", RELATIVE},
        {"http://host/x.html", "http:", "//host/", "x", "html", ROOTED},
        // The device runs up to the first colon even when the colon lies in the name or in
        // the extension that was cut off.
        {"a.b:c", "a", "", "", "b:c", RELATIVE},
        {"dir/a:b", "dir/a:", "", "a:b", "", RELATIVE},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const DirEntry e(c.text);
        EXPECT_TRUE(e.IsValid());
        EXPECT_EQ(std::string(DirEntryAccess::Device(e)), c.device);
        EXPECT_EQ(std::string(DirEntryAccess::Path(e)), c.path);
        EXPECT_EQ(std::string(e.GetBase()), c.base);
        EXPECT_EQ(std::string(e.GetExtension()), c.ext);
        EXPECT_EQ(e.GetFlag(), c.flag);
    }
    EXPECT_EQ(std::string(DirEntry("C:\\dir\\file.txt").GetFull()), "C:\\dir\\file.txt");
    EXPECT_EQ(std::string(DirEntry("name.").GetName()), "name");
}

TEST(DirEntryParse, UnusableTexts)
{
    for (const char* text : {"", ";x"}) {
        const DirEntry e(text);
        EXPECT_FALSE(e.IsValid());
        EXPECT_EQ(e.GetFlag(), DIRENTRY_UNPARSED);
    }
    std::string hostile;
    while (hostile.size() < 65536)
        hostile += "/d\xE9j\xE0.v:u";
    const DirEntry e(SString(hostile.c_str()));
    EXPECT_FALSE(e.GetBase().IsUTF8());
    EXPECT_EQ(e.GetFull().Len(), hostile.size());
}

TEST(DirEntryParse, PartsTakeTheUtf8FlagOfTheBytes)
{
    const DirEntry utf8(SString("dir/caf\xC3\xA9.txt"));
    EXPECT_TRUE(utf8.GetBase().IsUTF8());
    EXPECT_TRUE(DirEntryAccess::Path(utf8).IsUTF8());

    // A text wrongly marked UTF-8 gives unmarked parts and keeps its own mark.
    SString marked("a/\xE9.txt");
    marked.SetIsUTF8();
    const DirEntry e(marked);
    EXPECT_FALSE(e.GetBase().IsUTF8());
    EXPECT_TRUE(marked.IsUTF8());
}

TEST(DirEntryParse, CodePages)
{
    EXPECT_TRUE(DirEntry("dir/caf\xC3\xA9").GetFullW() == u"dir/caf\u00E9");
    EXPECT_TRUE(DirEntry("caf\xE9").GetFullW() == u"caf\u00E9");

    const DirEntry ansi("/d\xE9j\xE0/caf\xE9.txt");
    const DirEntry utf8 = ansi.AnsiToUTF8();
    EXPECT_EQ(std::string(utf8.GetFull()), "/d\xC3\xA9j\xC3\xA0/caf\xC3\xA9.txt");
    EXPECT_EQ(std::string(utf8.GetName()), "caf\xC3\xA9.txt");
    EXPECT_TRUE(utf8.GetFull().IsUTF8());
    EXPECT_EQ(std::string(utf8.UTF8ToAnsi().GetFull()), "/d\xE9j\xE0/caf\xE9.txt");
    EXPECT_EQ(std::string(ansi.UTF8ToAnsi().GetFull()), "/d\xE9j\xE0/caf\xE9.txt");
}

TEST(DirEntryParse, FullTextAndNames)
{
    EXPECT_EQ(std::string(DirEntry("C:/dir").GetFull(true)), "C:/dir/");
    EXPECT_EQ(std::string(DirEntry("a/b\\").GetFull(true)), "a/b\\");
    EXPECT_EQ(std::string(DirEntry("").GetFull(true)), "\\");

    DirEntry e("/d/a.txt");
    EXPECT_EQ(std::string(e.ChangeBase("b")), "a");
    EXPECT_EQ(std::string(e.ChangeExtension("")), "txt");
    EXPECT_EQ(std::string(e.GetFull()), "/d/b");
    e.CutName();
    EXPECT_FALSE(e.HasName());
    EXPECT_FALSE(DirEntry("dir/..").HasLegalName());
    EXPECT_TRUE(DirEntry("dir/..x").HasLegalName());
}

TEST(DirEntryParse, UrlSchemes)
{
    EXPECT_TRUE(DirEntry("HTTPS://host/x").IsHttp());
    EXPECT_FALSE(DirEntry("http://h/x").IsHttps());
    EXPECT_TRUE(DirEntry("File:///x").IsFile() && DirEntry("ftp://h").IsFtp() && DirEntry("data:x").IsData());
    EXPECT_FALSE(DirEntry("fil:x").IsFile());
}

TEST(DirEntryParse, DevicesAndRoots)
{
    const DirEntry device = DirEntry("C:\\dir\\x").GetDevice();
    EXPECT_EQ(std::string(device.GetFull()), "C:");
    EXPECT_EQ(device.GetFlag(), DIRENTRY_DRIVE);
    EXPECT_FALSE(DirEntry("/x").GetDevice().IsValid());

    for (const char* root : {"C:", "C:/", "\\\\srv\\sh", "\\\\srv\\sh\\"})
        EXPECT_TRUE(DirEntry(root).IsRoot()) << root;
    for (const char* other : {"C:\\dir\\", "C:\\x", "/"})
        EXPECT_FALSE(DirEntry(other).IsRoot()) << other;
}

std::string Full(const DirEntry& e)
{
    return std::string(e.GetFull());
}

TEST(DirEntryLevels, CountsAndIndexesNames)
{
    const DirEntry e("/a//b/c.txt");
    EXPECT_EQ(e.Level(), 3u);
    EXPECT_EQ(Full(e[1]), "b");
    EXPECT_EQ(std::string(e[2].GetExtension()), "txt");
    EXPECT_FALSE(e[3].IsValid());
    EXPECT_EQ(DirEntry("\\\\srv\\share\\x").Level(), 1u);
}

TEST(DirEntryLevels, Joining)
{
    EXPECT_EQ(Full(DirEntry("/a/b") + DirEntry("c/d.txt")), "/a/b/c/d.txt");
    EXPECT_EQ(Full(DirEntry(".") + DirEntry("x")), "x");
    // Rooted or device entries replace; invalid ones change nothing.
    EXPECT_EQ(Full(DirEntry("/a") + DirEntry("/x")), "/x");
    EXPECT_EQ(Full(DirEntry("/a") + DirEntry("C:y")), "C:y");
    EXPECT_EQ(Full(DirEntry("a") + DirEntry("")), "a");
}

TEST(DirEntryLevels, RelativePathsAndParents)
{
    EXPECT_EQ(Full(DirEntry("/a/b/c.txt").GetPathRelTo(DirEntry("/a/x/y"))), "../../b/c.txt");
    EXPECT_EQ(Full(DirEntry("C:\\a\\b").GetPathRelTo(DirEntry("C:\\a"))), "b");
    EXPECT_TRUE(DirEntry("/a/b").GetPathRelTo(DirEntry("/a/b/")).IsValid());
    EXPECT_EQ(Full(DirEntry("C:\\a").GetPathRelTo(DirEntry("D:\\a"))), "C:\\a");
    EXPECT_EQ(Full(DirEntry("a/b").GetPathRelTo(DirEntry("/a"))), "a/b");

    EXPECT_EQ(std::string(DirEntry("/a/b/c.txt").GetParentDirName()), "b");
    EXPECT_EQ(std::string(DirEntry("c.txt").GetParentDirName()), "");
}

TEST(DirEntryLevels, Containment)
{
    const DirEntry dir("/a");
    EXPECT_TRUE(DirEntry("/a/b").IsPartOf(dir));
    EXPECT_TRUE(DirEntry("C:\\a").Contains(DirEntry("C:/a/b/c")));
    for (const char* other : {"/ab", "/a/", "a/b"})
        EXPECT_FALSE(dir.Contains(DirEntry(other))) << other;
    EXPECT_FALSE(DirEntry("/A").Contains(DirEntry("/a/b")));
}

TEST(DirEntryLevels, LimitedFullText)
{
    const DirEntry e("/home/user/docs/file.txt");
    EXPECT_EQ(std::string(e.GetFullLimited(20)), "/.../docs/file.txt");
    EXPECT_EQ(std::string(e.GetFullLimited(8)), "...e.txt");
    EXPECT_EQ(std::string(DirEntry("C:\\aa\\bb\\c").GetFullLimited(9)), "C:\\...\\c");

    // The cut moves forward past continuation bytes rather than tear a character.
    const SString shortened = DirEntry("/dir/\xC3\xA9\xC3\xA9\xC3\xA9").GetFullLimited(6);
    EXPECT_EQ(std::string(shortened), "...\xC3\xA9");
}

} // namespace
