#include <vesk/files.hpp>

#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using namespace vesk;
using vesk::test::ReadFile;
using vesk::test::TempDir;
using vesk::test::WriteFile;

namespace {

DirEntry Entry(const std::string& path)
{
    return DirEntry(SString(path.c_str()));
}

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
    EXPECT_TRUE(Entry(dir / "a.txt").Exists());
    EXPECT_EQ(Entry(dir / "a.txt").GetFileSize(), 5);
    EXPECT_FALSE(Entry(dir / "missing").Exists());
    EXPECT_EQ(Entry(dir / "missing").GetFileSize(), -1);
    EXPECT_TRUE(Entry(dir.Path() + "/").Exists());
    EXPECT_FALSE(DirEntry("").Exists());
    // Backslashes reach the file system as slashes.
    EXPECT_TRUE(Entry(dir.Path() + "\\a.txt").Exists());
    // A zero byte can be in no file name.
    const std::string withZero = dir / std::string("a.txt\0x", 7);
    EXPECT_FALSE(DirEntry(SString(withZero.c_str(), 0, static_cast<unsigned int>(withZero.size()), true)).Exists());
}

TEST_F(DirEntryFiles, MakeDirCreatesParents)
{
    EXPECT_TRUE(Entry(dir / "x/y/z").MakeDir());
    EXPECT_TRUE(Entry(dir / "x/y/z/").MakeDir());
    EXPECT_TRUE(Entry(dir / "x/y/z").IsNormalDir());
    ASSERT_TRUE(WriteFile(dir / "file", ""));
    EXPECT_FALSE(Entry(dir / "file/sub").MakeDir());
}

TEST_F(DirEntryFiles, KillRemovesOneObject)
{
    ASSERT_TRUE(WriteFile(dir / "target", "keep"));
    ASSERT_EQ(symlink((dir / "target").c_str(), (dir / "link").c_str()), 0);
    EXPECT_TRUE(Entry(dir / "link/").Kill());
    EXPECT_FALSE(PathExists(dir / "link"));
    EXPECT_EQ(ReadFile(dir / "target"), "keep");
    EXPECT_TRUE(Entry(dir / "target").Kill());
    EXPECT_FALSE(Entry(dir / "target").Kill());

    ASSERT_TRUE(Entry(dir / "full/sub").MakeDir());
    EXPECT_FALSE(Entry(dir / "full").Kill());
    EXPECT_TRUE(Entry(dir / "full/sub").Kill());
    EXPECT_TRUE(Entry(dir / "full").Kill());
}

TEST_F(DirEntryFiles, KillDirNeverLeavesTheTree)
{
    ASSERT_TRUE(Entry(dir / "outside").MakeDir());
    ASSERT_TRUE(WriteFile(dir / "outside/precious", "x"));
    ASSERT_TRUE(Entry(dir / "tree/a/b").MakeDir());
    ASSERT_TRUE(WriteFile(dir / "tree/a/b/f", "y"));
    ASSERT_EQ(symlink((dir / "outside").c_str(), (dir / "tree/a/link").c_str()), 0);
    ASSERT_EQ(symlink((dir / "outside").c_str(), (dir / "dirlink").c_str()), 0);

    EXPECT_FALSE(Entry(dir / "dirlink").KillDir());
    EXPECT_FALSE(Entry(dir / "dirlink/").KillDir());
    EXPECT_TRUE(PathExists(dir / "dirlink"));
    EXPECT_EQ(ReadFile(dir / "outside/precious"), "x");
    EXPECT_TRUE(Entry(dir / "tree/").KillDir());
    EXPECT_FALSE(PathExists(dir / "tree"));
    EXPECT_EQ(ReadFile(dir / "outside/precious"), "x");
    EXPECT_FALSE(Entry(dir / "outside/precious").KillDir());
    EXPECT_FALSE(Entry(dir / "missing").KillDir());
}

TEST_F(DirEntryFiles, TempNamesAreNewFiles)
{
    const DirEntry pattern = Entry(dir / "report.txt");
    const DirEntry a = pattern.TempName();
    const DirEntry b = pattern.TempName();
    ASSERT_TRUE(a.IsValid());
    ASSERT_TRUE(b.IsValid());
    EXPECT_NE(std::string(a.GetFull()), std::string(b.GetFull()));
    EXPECT_EQ(std::string(a.GetExtension()), "txt");
    EXPECT_EQ(std::string(a.GetBase()).substr(0, 6), "report");
    EXPECT_EQ(std::string(a.GetBase()).size(), 12u);
    EXPECT_TRUE(a.IsPartOf(Entry(dir.Path())));
    EXPECT_TRUE(a.Exists());
    EXPECT_EQ(a.GetFileSize(), 0);

    const DirEntry inside = Entry(dir.Path() + "/").TempName();
    EXPECT_TRUE(inside.IsPartOf(Entry(dir.Path())));
    EXPECT_TRUE(inside.Exists());
    const DirEntry temp = DirEntry().TempName();
    EXPECT_TRUE(temp.HasTempPath());
    EXPECT_TRUE(temp.Kill());
    EXPECT_FALSE(Entry(dir / "missing/x.txt").TempName().IsValid());
}

TEST_F(DirEntryFiles, WriteAccess)
{
    ASSERT_TRUE(WriteFile(dir / "ro", ""));
    ASSERT_EQ(chmod((dir / "ro").c_str(), 0444), 0);
    EXPECT_TRUE(Entry(dir / "new").CanWriteTo());
    EXPECT_FALSE(Entry(dir / "missing/new").CanWriteTo());
    EXPECT_FALSE(DirEntry().CanWriteTo());
    if (geteuid() != 0) {
        EXPECT_FALSE(Entry(dir / "ro").CanWriteTo());
    }
}

TEST_F(DirEntryFiles, NormalDirectories)
{
    ASSERT_TRUE(Entry(dir / "d").MakeDir());
    ASSERT_EQ(symlink((dir / "d").c_str(), (dir / "link").c_str()), 0);
    ASSERT_TRUE(WriteFile(dir / "f", ""));
    EXPECT_TRUE(Entry(dir / "d").IsNormalDir());
    EXPECT_TRUE(Entry(dir / "d/").IsNormalDir());
    EXPECT_FALSE(Entry(dir / "link").IsNormalDir());
    EXPECT_FALSE(Entry(dir / "link/").IsNormalDir());
    EXPECT_FALSE(Entry(dir / "f").IsNormalDir());
    EXPECT_FALSE(Entry(dir / "d/..").IsNormalDir());
    EXPECT_FALSE(Entry(dir / "d/./").IsNormalDir());
    EXPECT_FALSE(DirEntry(".").IsNormalDir());
}

TEST_F(DirEntryFiles, CopyKeepsDataAndMetadata)
{
    ASSERT_TRUE(WriteFile(dir / "src", "payload"));
    ASSERT_EQ(chmod((dir / "src").c_str(), 0640), 0);
    const struct timespec times[2] = {{1000000000, 0}, {1200000000, 500}};
    ASSERT_EQ(utimensat(AT_FDCWD, (dir / "src").c_str(), times, 0), 0);
    ASSERT_TRUE(WriteFile(dir / "dst", "old content, longer"));

    EXPECT_TRUE(Entry(dir / "src").CopyTo(Entry(dir / "dst")));
    EXPECT_EQ(ReadFile(dir / "dst"), "payload");
    struct stat st {};
    ASSERT_EQ(stat((dir / "dst").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0640u);
    EXPECT_EQ(st.st_mtim.tv_sec, 1200000000);
    EXPECT_EQ(st.st_mtim.tv_nsec, 500);

    ASSERT_TRUE(Entry(dir / "into").MakeDir());
    EXPECT_TRUE(Entry(dir / "src").CopyTo(Entry(dir / "into")));
    EXPECT_EQ(ReadFile(dir / "into/src"), "payload");

    EXPECT_FALSE(Entry(dir / "missing").CopyTo(Entry(dir / "dst")));
    EXPECT_FALSE(Entry(dir / "into").CopyTo(Entry(dir / "dst")));
    EXPECT_FALSE(Entry(dir / "src").CopyTo(Entry(dir / "nodir/x")));
    EXPECT_EQ(ReadFile(dir / "dst"), "payload");
}

TEST_F(DirEntryFiles, MoveRenamesFilesAndDirectories)
{
    ASSERT_TRUE(WriteFile(dir / "a", "A"));
    EXPECT_TRUE(Entry(dir / "a").MoveTo(Entry(dir / "b")));
    EXPECT_FALSE(PathExists(dir / "a"));
    EXPECT_EQ(ReadFile(dir / "b"), "A");

    ASSERT_TRUE(Entry(dir / "tree/sub").MakeDir());
    ASSERT_TRUE(Entry(dir / "dest").MakeDir());
    EXPECT_TRUE(Entry(dir / "tree/").MoveTo(Entry(dir / "dest")));
    EXPECT_TRUE(Entry(dir / "dest/tree/sub").IsNormalDir());
    EXPECT_FALSE(Entry(dir / "missing").MoveTo(Entry(dir / "c")));
}

TEST_F(DirEntryFiles, MoveAcrossFileSystemsCopies)
{
    struct stat here {}, shm {};
    if (stat(dir.Path().c_str(), &here) != 0 || stat("/dev/shm", &shm) != 0 || here.st_dev == shm.st_dev
        || access("/dev/shm", W_OK) != 0)
        GTEST_SKIP() << "no second writable file system at /dev/shm";
    const DirEntry source = DirEntry("/dev/shm/vesk-move.txt").TempName();
    ASSERT_TRUE(source.IsValid());
    ASSERT_TRUE(WriteFile(std::string(source.GetFull()), "across"));
    EXPECT_TRUE(source.MoveTo(Entry(dir / "moved")));
    EXPECT_FALSE(source.Exists());
    EXPECT_EQ(ReadFile(dir / "moved"), "across");
}

TEST_F(DirEntryFiles, VolumesAndTempPaths)
{
    const DirEntry volume = Entry(dir / "not/yet/there").GetVolume();
    ASSERT_TRUE(volume.IsValid());
    EXPECT_EQ(volume.GetFlag(), DIRENTRY_DRIVE);
    EXPECT_FALSE(volume.HasName());
    EXPECT_TRUE(volume.Exists());
    EXPECT_FALSE(DirEntry().GetVolume().IsValid());

    EXPECT_TRUE(Entry(dir / "x").HasTempPath());
    EXPECT_FALSE(DirEntry("/definitely/elsewhere").HasTempPath());
}

} // namespace
