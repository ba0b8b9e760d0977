#include <vesk/files.hpp>

#include "support/ChildProcess.hpp"
#include "support/FileSystems.hpp"
#include "support/FileText.hpp"
#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using namespace vesk;
using vesk::test::PathEntry;
using vesk::test::ReadFileText;
using vesk::test::TempDir;
using vesk::test::WriteFileText;

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
    ASSERT_TRUE(WriteFileText(dir.File("a.txt"), "hello"));
    EXPECT_EQ(PathEntry(dir.File("a.txt")).GetFileSize(), 5);
    EXPECT_EQ(PathEntry(dir.File("missing")).GetFileSize(), -1);
    EXPECT_TRUE(PathEntry(dir.Path() + "\\a.txt").Exists());
    // A zero byte can be in no file name.
    const std::string withZero = dir.File(std::string("a.txt\0x", 7));
    EXPECT_FALSE(DirEntry(SString(withZero.c_str(), 0, static_cast<unsigned int>(withZero.size()), true)).Exists());
}

TEST_F(DirEntryFiles, MakeAndKill)
{
    EXPECT_TRUE(PathEntry(dir.File("x/y/z/")).MakeDir());
    EXPECT_TRUE(PathEntry(dir.File("x/y/z")).IsNormalDir());
    ASSERT_TRUE(WriteFileText(dir.File("file"), "keep"));
    EXPECT_FALSE(PathEntry(dir.File("file/sub")).MakeDir());

    ASSERT_EQ(symlink(dir.File("file").c_str(), dir.File("link").c_str()), 0);
    EXPECT_TRUE(PathEntry(dir.File("link/")).Kill());
    EXPECT_EQ(ReadFileText(dir.File("file")), "keep");
    EXPECT_FALSE(PathEntry(dir.File("x")).Kill());
    EXPECT_TRUE(PathEntry(dir.File("x/y/z")).Kill());
    EXPECT_FALSE(PathEntry(dir.File("x/y/z")).Kill());
}

TEST_F(DirEntryFiles, KillDirNeverLeavesTheTree)
{
    ASSERT_TRUE(PathEntry(dir.File("outside")).MakeDir());
    ASSERT_TRUE(WriteFileText(dir.File("outside/precious"), "x"));
    ASSERT_TRUE(PathEntry(dir.File("tree/a/b")).MakeDir());
    ASSERT_TRUE(WriteFileText(dir.File("tree/a/b/f"), "y"));
    ASSERT_EQ(symlink(dir.File("outside").c_str(), dir.File("tree/a/link").c_str()), 0);
    ASSERT_EQ(symlink(dir.File("outside").c_str(), dir.File("dirlink").c_str()), 0);

    EXPECT_FALSE(PathEntry(dir.File("dirlink/")).KillDir());
    EXPECT_TRUE(PathEntry(dir.File("tree/")).KillDir());
    EXPECT_FALSE(PathExists(dir.File("tree")));
    EXPECT_TRUE(PathExists(dir.File("dirlink")));
    EXPECT_EQ(ReadFileText(dir.File("outside/precious")), "x");
    EXPECT_FALSE(PathEntry(dir.File("outside/precious")).KillDir());
}

TEST_F(DirEntryFiles, TempNamesAreNewFiles)
{
    const DirEntry pattern = PathEntry(dir.File("report.txt"));
    const DirEntry a = pattern.TempName();
    const DirEntry b = pattern.TempName();
    EXPECT_NE(std::string(a.GetFull()), std::string(b.GetFull()));
    EXPECT_EQ(std::string(a.GetName()).substr(0, 6) + std::string(a.GetName()).substr(12), "report.txt");
    EXPECT_EQ(a.GetFileSize(), 0);
    EXPECT_TRUE(PathEntry(dir.Path() + "/").TempName().IsPartOf(PathEntry(dir.Path())));
    const DirEntry temp = DirEntry().TempName();
    EXPECT_TRUE(temp.HasTempPath());
    EXPECT_TRUE(temp.Kill());
    EXPECT_FALSE(PathEntry(dir.File("missing/x.txt")).TempName().IsValid());
}

TEST_F(DirEntryFiles, AccessAndKinds)
{
    ASSERT_TRUE(WriteFileText(dir.File("ro"), ""));
    ASSERT_EQ(chmod(dir.File("ro").c_str(), 0444), 0);
    EXPECT_TRUE(PathEntry(dir.File("new")).CanWriteTo());
    EXPECT_FALSE(PathEntry(dir.File("missing/new")).CanWriteTo());
    // Root may write anything: the read-only file is tried as an unprivileged user then.
    ASSERT_EQ(chmod(dir.Path().c_str(), 0777), 0);
    EXPECT_EQ(vesk::test::RunUnprivileged([&] { return PathEntry(dir.File("ro")).CanWriteTo() ? 1 : 0; }), 0);

    ASSERT_TRUE(PathEntry(dir.File("d")).MakeDir());
    ASSERT_EQ(symlink(dir.File("d").c_str(), dir.File("link").c_str()), 0);
    EXPECT_TRUE(PathEntry(dir.File("d/")).IsNormalDir());
    for (const char* other : {"link/", "ro", "d/..", "d/./"})
        EXPECT_FALSE(PathEntry(dir.File(other)).IsNormalDir()) << other;
}

TEST_F(DirEntryFiles, CopyKeepsDataAndMetadata)
{
    ASSERT_TRUE(WriteFileText(dir.File("src"), "payload"));
    ASSERT_EQ(chmod(dir.File("src").c_str(), 0640), 0);
    const struct timespec times[2] = {{1000000000, 0}, {1200000000, 500}};
    ASSERT_EQ(utimensat(AT_FDCWD, dir.File("src").c_str(), times, 0), 0);
    ASSERT_TRUE(WriteFileText(dir.File("dst"), "old content, longer"));

    EXPECT_TRUE(PathEntry(dir.File("src")).CopyTo(PathEntry(dir.File("dst"))));
    EXPECT_EQ(ReadFileText(dir.File("dst")), "payload");
    struct stat st {};
    ASSERT_EQ(stat(dir.File("dst").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0640u);
    EXPECT_EQ(st.st_mtim.tv_sec, 1200000000);
    EXPECT_EQ(st.st_mtim.tv_nsec, 500);

    ASSERT_TRUE(PathEntry(dir.File("into")).MakeDir());
    EXPECT_TRUE(PathEntry(dir.File("src")).CopyTo(PathEntry(dir.File("into"))));
    EXPECT_EQ(ReadFileText(dir.File("into/src")), "payload");
}

TEST_F(DirEntryFiles, Move)
{
    ASSERT_TRUE(WriteFileText(dir.File("a"), "A"));
    EXPECT_TRUE(PathEntry(dir.File("a")).MoveTo(PathEntry(dir.File("b"))));
    EXPECT_EQ(ReadFileText(dir.File("b")), "A");
    ASSERT_TRUE(PathEntry(dir.File("tree/sub")).MakeDir());
    ASSERT_TRUE(PathEntry(dir.File("dest")).MakeDir());
    EXPECT_TRUE(PathEntry(dir.File("tree/")).MoveTo(PathEntry(dir.File("dest"))));
    EXPECT_TRUE(PathEntry(dir.File("dest/tree/sub")).IsNormalDir());
    EXPECT_FALSE(PathEntry(dir.File("missing")).MoveTo(PathEntry(dir.File("c"))));
}

} // namespace
