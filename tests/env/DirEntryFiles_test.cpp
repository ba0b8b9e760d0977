#include <vesk/files.hpp>

#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using namespace vesk;
using vesk::test::PathEntry;
using vesk::test::ReadFile;
using vesk::test::TempDir;
using vesk::test::WriteFile;

namespace {

bool PathExists(const std::string& path)
{
    struct stat st {};
    return lstat(path.c_str(), &st) == 0;
}

class DirEntryFiles : public ::testing::Test {
protected:
    TempDir dir;
};

TEST_F(DirEntryFiles, ExistsAndSize)
{
    ASSERT_TRUE(WriteFile(dir / "a.txt", "hello"));
    EXPECT_EQ(PathEntry(dir / "a.txt").GetFileSize(), 5);
    EXPECT_EQ(PathEntry(dir / "missing").GetFileSize(), -1);
    EXPECT_TRUE(PathEntry(dir.Path() + "\\a.txt").Exists());
    EXPECT_FALSE(PathEntry(dir / "missing").Exists());
    EXPECT_FALSE(DirEntry("").Exists());
    // A zero byte can be in no file name.
    const std::string withZero = dir / std::string("a.txt\0x", 7);
    EXPECT_FALSE(DirEntry(SString(withZero.c_str(), 0, static_cast<unsigned int>(withZero.size()), true)).Exists());
}

TEST_F(DirEntryFiles, MakeAndKill)
{
    EXPECT_TRUE(PathEntry(dir / "x/y/z/").MakeDir());
    EXPECT_TRUE(PathEntry(dir / "x/y/z").IsNormalDir());
    ASSERT_TRUE(WriteFile(dir / "file", "keep"));
    EXPECT_FALSE(PathEntry(dir / "file/sub").MakeDir());

    ASSERT_EQ(symlink((dir / "file").c_str(), (dir / "link").c_str()), 0);
    EXPECT_TRUE(PathEntry(dir / "link/").Kill());
    EXPECT_EQ(ReadFile(dir / "file"), "keep");
    EXPECT_FALSE(PathEntry(dir / "x").Kill());
    EXPECT_TRUE(PathEntry(dir / "x/y/z").Kill());
    EXPECT_FALSE(PathEntry(dir / "x/y/z").Kill());
}

TEST_F(DirEntryFiles, KillDirNeverLeavesTheTree)
{
    ASSERT_TRUE(PathEntry(dir / "outside").MakeDir());
    ASSERT_TRUE(WriteFile(dir / "outside/precious", "x"));
    ASSERT_TRUE(PathEntry(dir / "tree/a/b").MakeDir());
    ASSERT_TRUE(WriteFile(dir / "tree/a/b/f", "y"));
    ASSERT_EQ(symlink((dir / "outside").c_str(), (dir / "tree/a/link").c_str()), 0);
    ASSERT_EQ(symlink((dir / "outside").c_str(), (dir / "dirlink").c_str()), 0);

    EXPECT_FALSE(PathEntry(dir / "dirlink/").KillDir());
    EXPECT_TRUE(PathEntry(dir / "tree/").KillDir());
    EXPECT_FALSE(PathExists(dir / "tree"));
    EXPECT_TRUE(PathExists(dir / "dirlink"));
    EXPECT_EQ(ReadFile(dir / "outside/precious"), "x");
    EXPECT_FALSE(PathEntry(dir / "outside/precious").KillDir());
}

TEST_F(DirEntryFiles, TempNamesAreNewFiles)
{
    const DirEntry pattern = PathEntry(dir / "report.txt");
    const DirEntry a = pattern.TempName();
    const DirEntry b = pattern.TempName();
    EXPECT_NE(std::string(a.GetFull()), std::string(b.GetFull()));
    EXPECT_EQ(std::string(a.GetName()).substr(0, 6) + std::string(a.GetName()).substr(12), "report.txt");
    EXPECT_EQ(a.GetFileSize(), 0);
    EXPECT_TRUE(PathEntry(dir.Path() + "/").TempName().IsPartOf(PathEntry(dir.Path())));
    const DirEntry temp = DirEntry().TempName();
    EXPECT_TRUE(temp.HasTempPath());
    EXPECT_TRUE(temp.Kill());
    EXPECT_FALSE(PathEntry(dir / "missing/x.txt").TempName().IsValid());
}

TEST_F(DirEntryFiles, AccessAndKinds)
{
    ASSERT_TRUE(WriteFile(dir / "ro", ""));
    ASSERT_EQ(chmod((dir / "ro").c_str(), 0444), 0);
    EXPECT_TRUE(PathEntry(dir / "new").CanWriteTo());
    EXPECT_FALSE(PathEntry(dir / "missing/new").CanWriteTo());
    EXPECT_TRUE(geteuid() == 0 || !PathEntry(dir / "ro").CanWriteTo());

    ASSERT_TRUE(PathEntry(dir / "d").MakeDir());
    ASSERT_EQ(symlink((dir / "d").c_str(), (dir / "link").c_str()), 0);
    EXPECT_TRUE(PathEntry(dir / "d/").IsNormalDir());
    for (const char* other : {"link/", "ro", "d/..", "d/./"})
        EXPECT_FALSE(PathEntry(dir / other).IsNormalDir()) << other;
    EXPECT_FALSE(DirEntry(".").IsNormalDir());
}

TEST_F(DirEntryFiles, CopyKeepsDataAndMetadata)
{
    ASSERT_TRUE(WriteFile(dir / "src", "payload"));
    ASSERT_EQ(chmod((dir / "src").c_str(), 0640), 0);
    const struct timespec times[2] = {{1000000000, 0}, {1200000000, 500}};
    ASSERT_EQ(utimensat(AT_FDCWD, (dir / "src").c_str(), times, 0), 0);
    ASSERT_TRUE(WriteFile(dir / "dst", "old content, longer"));

    EXPECT_TRUE(PathEntry(dir / "src").CopyTo(PathEntry(dir / "dst")));
    EXPECT_EQ(ReadFile(dir / "dst"), "payload");
    struct stat st {};
    ASSERT_EQ(stat((dir / "dst").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0640u);
    EXPECT_EQ(st.st_mtim.tv_sec, 1200000000);
    EXPECT_EQ(st.st_mtim.tv_nsec, 500);

    ASSERT_TRUE(PathEntry(dir / "into").MakeDir());
    EXPECT_TRUE(PathEntry(dir / "src").CopyTo(PathEntry(dir / "into")));
    EXPECT_EQ(ReadFile(dir / "into/src"), "payload");
    EXPECT_FALSE(PathEntry(dir / "into").CopyTo(PathEntry(dir / "dst")));
}

TEST_F(DirEntryFiles, Move)
{
    ASSERT_TRUE(WriteFile(dir / "a", "A"));
    EXPECT_TRUE(PathEntry(dir / "a").MoveTo(PathEntry(dir / "b")));
    EXPECT_EQ(ReadFile(dir / "b"), "A");
    ASSERT_TRUE(PathEntry(dir / "tree/sub").MakeDir());
    ASSERT_TRUE(PathEntry(dir / "dest").MakeDir());
    EXPECT_TRUE(PathEntry(dir / "tree/").MoveTo(PathEntry(dir / "dest")));
    EXPECT_TRUE(PathEntry(dir / "dest/tree/sub").IsNormalDir());
    EXPECT_FALSE(PathEntry(dir / "missing").MoveTo(PathEntry(dir / "c")));
}

} // namespace
