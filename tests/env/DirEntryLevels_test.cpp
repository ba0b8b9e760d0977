#include <vesk/files.hpp>

#include <gtest/gtest.h>

#include <string>

using namespace vesk;

namespace {

std::string Full(const DirEntry& e)
{
    return std::string(e.GetFull());
}

TEST(DirEntryLevels, CountsAndIndexesNames)
{
    const DirEntry e("/a//b/c.txt");
    EXPECT_EQ(e.Level(), 3u);
    EXPECT_EQ(Full(e[0]), "a");
    EXPECT_EQ(Full(e[1]), "b");
    EXPECT_EQ(std::string(e[2].GetExtension()), "txt");
    EXPECT_FALSE(e[3].IsValid());
    EXPECT_EQ(DirEntry("a/b/").Level(), 2u);
    EXPECT_EQ(DirEntry("C:\\").Level(), 0u);
    EXPECT_EQ(DirEntry("\\\\srv\\share\\x").Level(), 1u);
    EXPECT_EQ(DirEntry("").Level(), 0u);
}

TEST(DirEntryLevels, Joining)
{
    EXPECT_EQ(Full(DirEntry("/a/b") + DirEntry("c/d.txt")), "/a/b/c/d.txt");
    EXPECT_EQ(Full(DirEntry("/a/") + DirEntry("b")), "/a/b");
    EXPECT_EQ(Full(DirEntry("C:\\a") + DirEntry("b")), "C:\\a\\b");
    EXPECT_EQ(Full(DirEntry("a") + DirEntry("b")), "a/b");
    EXPECT_EQ(Full(DirEntry(".") + DirEntry("x")), "x");
    // Rooted or device entries replace; invalid ones change nothing.
    EXPECT_EQ(Full(DirEntry("/a") + DirEntry("/x")), "/x");
    EXPECT_EQ(Full(DirEntry("/a") + DirEntry("C:y")), "C:y");
    EXPECT_EQ(Full(DirEntry("a") + DirEntry("")), "a");
    EXPECT_EQ(Full(DirEntry("") + DirEntry("b")), "b");

    DirEntry e("/a");
    e += DirEntry("b.txt");
    EXPECT_EQ(std::string(e.GetBase()), "b");
    EXPECT_EQ(e.Level(), 2u);
}

TEST(DirEntryLevels, PathsAndParents)
{
    EXPECT_EQ(Full(DirEntry("/a/b.txt").GetPath()), "/a/");
    EXPECT_EQ(std::string(DirEntry("/a/b/c.txt").GetParentDirName()), "b");
    EXPECT_EQ(std::string(DirEntry("/a/b/").GetParentDirName()), "b");
    EXPECT_EQ(std::string(DirEntry("c.txt").GetParentDirName()), "");
}

TEST(DirEntryLevels, RelativePaths)
{
    EXPECT_EQ(Full(DirEntry("/a/b/c.txt").GetPathRelTo(DirEntry("/a/x/y"))), "../../b/c.txt");
    EXPECT_EQ(Full(DirEntry("C:\\a\\b").GetPathRelTo(DirEntry("C:\\a"))), "b");
    EXPECT_EQ(Full(DirEntry("/a/b").GetPathRelTo(DirEntry("/a/b/"))), "");
    EXPECT_TRUE(DirEntry("/a/b").GetPathRelTo(DirEntry("/a/b/")).IsValid());
    EXPECT_EQ(Full(DirEntry("/a").GetPathRelTo(DirEntry("/a/b/c"))), "../..");
    // Different starting points cannot be related.
    EXPECT_EQ(Full(DirEntry("C:\\a").GetPathRelTo(DirEntry("D:\\a"))), "C:\\a");
    EXPECT_EQ(Full(DirEntry("a/b").GetPathRelTo(DirEntry("/a"))), "a/b");
}

TEST(DirEntryLevels, Containment)
{
    const DirEntry dir("/a");
    EXPECT_TRUE(dir.Contains(DirEntry("/a/b")));
    EXPECT_TRUE(DirEntry("/a/b").IsPartOf(dir));
    EXPECT_TRUE(DirEntry("C:\\a").Contains(DirEntry("C:/a/b/c")));
    EXPECT_FALSE(dir.Contains(DirEntry("/ab")));
    EXPECT_FALSE(dir.Contains(DirEntry("/a/")));
    EXPECT_FALSE(dir.Contains(DirEntry("a/b")));
    EXPECT_FALSE(DirEntry("/A").Contains(DirEntry("/a/b")));
    EXPECT_FALSE(DirEntry("").Contains(DirEntry("b")));
}

TEST(DirEntryLevels, LimitedFullText)
{
    const DirEntry e("/home/user/docs/file.txt");
    EXPECT_EQ(std::string(e.GetFullLimited(100)), "/home/user/docs/file.txt");
    EXPECT_EQ(std::string(e.GetFullLimited(20)), "/.../docs/file.txt");
    EXPECT_EQ(std::string(e.GetFullLimited(14)), "/.../file.txt");
    EXPECT_EQ(std::string(e.GetFullLimited(8)), "...e.txt");
    EXPECT_EQ(std::string(e.GetFullLimited(2)), "xt");
    EXPECT_EQ(std::string(DirEntry("C:\\aa\\bb\\c").GetFullLimited(9)), "C:\\...\\c");

    // The cut moves forward past continuation bytes rather than tear a character.
    const SString shortened = DirEntry("/dir/\xC3\xA9\xC3\xA9\xC3\xA9").GetFullLimited(6);
    EXPECT_EQ(std::string(shortened), "...\xC3\xA9");
    EXPECT_TRUE(shortened.IsUTF8());
}

} // namespace
