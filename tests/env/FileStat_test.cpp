#include <vesk/files.hpp>

#include "platform/filesys.hpp"
#include "support/EnvGuard.hpp"
#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using namespace vesk;
using vesk::test::EnvGuard;
using vesk::test::TempDir;
using vesk::test::WriteFile;

namespace {

DirEntry Entry(const std::string& path)
{
    return DirEntry(SString(path.c_str()));
}

// Sets access and modification time of a file to seconds and nanoseconds since 1970 (UTC).
bool SetTimes(const std::string& path, time_t seconds, long nanoseconds)
{
    const struct timespec times[2] = {{seconds, nanoseconds}, {seconds, nanoseconds}};
    return utimensat(AT_FDCWD, path.c_str(), times, 0) == 0;
}

class FileStatTest : public ::testing::Test {
protected:
    TempDir dir;
};

TEST_F(FileStatTest, TimesAreUtcInEveryZone)
{
    const std::string path = dir / "newyear";
    ASSERT_TRUE(WriteFile(path, ""));
    // 2023-12-31 23:30:00.456 UTC.
    ASSERT_TRUE(SetTimes(path, 1704065400, 456000000));
    for (const char* zone : {"UTC", "Pacific/Kiritimati", "America/Los_Angeles"}) {
        SCOPED_TRACE(zone);
        EnvGuard tz("TZ", zone);
        const FileStat st{Entry(path)};
        EXPECT_EQ(st.DateModified().GetDate(), 20231231u);
        EXPECT_EQ(st.TimeModified().GetTime(), 23300045);
        EXPECT_EQ(st.DateAccessed().GetDate(), 20231231u);
        EXPECT_EQ(st.TimeAccessed().GetTime(), 23300045);
    }
}

TEST_F(FileStatTest, FilesAndSizes)
{
    ASSERT_TRUE(WriteFile(dir / "f", "12345"));
    FileStat st;
    EXPECT_TRUE(st.Update(Entry(dir / "f")));
    EXPECT_EQ(st.GetError(), FSYS_ERR_OK);
    EXPECT_EQ(st.GetKind(), FSYS_KIND_FILE);
    EXPECT_EQ(st.GetSize64(), 5u);
    EXPECT_EQ(st.GetWinFileAttributes(), 128u);
    EXPECT_EQ(st.GetStyle(), FSYS_STYLE_UNKNOWN);
    EXPECT_NE(st.DateCreated().GetDate(), 0u);

    // A sparse file beyond 4 GiB fills the high half.
    const int fd = open((dir / "big").c_str(), O_CREAT | O_WRONLY, 0600);
    ASSERT_GE(fd, 0);
    const bool grown = ftruncate(fd, (int64_t(5) << 30) + 7) == 0;
    close(fd);
    ASSERT_TRUE(grown);
    EXPECT_TRUE(st.Update(Entry(dir / "big")));
    EXPECT_EQ(st.GetSize64(), (uint64_t(5) << 30) + 7);
    EXPECT_EQ(Entry(dir / "big").GetFileSize(), (int64_t(5) << 30) + 7);
}

TEST_F(FileStatTest, MissingFiles)
{
    FileStat st{Entry(dir / "missing.txt")};
    EXPECT_EQ(st.GetError(), FSYS_ERR_NOTFOUND);
    EXPECT_EQ(st.GetKind(), FSYS_KIND_FILE);
    EXPECT_FALSE(st.IsKind(FSYS_KIND_FILE));
    EXPECT_TRUE(st.IsKind(FSYS_KIND_NONE));

    // A missing directory still reads as one.
    EXPECT_FALSE(st.Update(Entry(dir / "missing/")));
    EXPECT_EQ(st.GetKind(), FSYS_KIND_DIR);
    EXPECT_EQ(st.GetError(), FSYS_ERR_NOTFOUND);
}

TEST_F(FileStatTest, Directories)
{
    ASSERT_EQ(mkdir((dir / "d").c_str(), 0755), 0);
    for (const std::string& path : {dir / "d", dir / "d/", dir / "d//"}) {
        SCOPED_TRACE(path);
        const FileStat st{Entry(path)};
        EXPECT_EQ(st.GetKind(), FSYS_KIND_DIR);
        EXPECT_TRUE(st.IsKind(FSYS_KIND_DIR));
        EXPECT_FALSE(st.IsKind(FSYS_KIND_DIR | FSYS_KIND_FILE));
        EXPECT_FALSE(st.IsKind(FSYS_KIND_NONE));
        EXPECT_EQ(st.GetWinFileAttributes() & 16, 16u);
        EXPECT_EQ(st.GetSize64(), 0u);
    }
}

TEST_F(FileStatTest, NamesDecidedWithoutTheDisk)
{
    for (const char* path : {"/no/such/dir/*.txt", "a?b", "x/.."}) {
        SCOPED_TRACE(path);
        FileStat st;
        EXPECT_TRUE(st.Update(DirEntry(path)));
        EXPECT_EQ(st.GetError(), FSYS_ERR_OK);
        EXPECT_EQ(st.GetKind(), path[1] == '/' ? FSYS_KIND_DIR : FSYS_KIND_WILD);
    }
    // Roots are directories without asking.
    for (const char* root : {"/", "C:\\", "\\\\srv\\share\\", "."}) {
        SCOPED_TRACE(root);
        const FileStat st{DirEntry(root)};
        EXPECT_EQ(st.GetKind(), FSYS_KIND_DIR);
        EXPECT_EQ(st.GetError(), FSYS_ERR_OK);
    }
    const FileStat invalid{DirEntry("")};
    EXPECT_EQ(invalid.GetError(), FSYS_ERR_INVALID);
    EXPECT_TRUE(invalid.IsKind(FSYS_KIND_NONE));
}

TEST_F(FileStatTest, AttributeBits)
{
    ASSERT_TRUE(WriteFile(dir / ".hidden", ""));
    ASSERT_TRUE(WriteFile(dir / "ro", ""));
    ASSERT_EQ(chmod((dir / "ro").c_str(), 0444), 0);
    ASSERT_EQ(symlink((dir / "ro").c_str(), (dir / "link").c_str()), 0);
    ASSERT_EQ(mkfifo((dir / "fifo").c_str(), 0600), 0);

    EXPECT_TRUE(FileStat(Entry(dir / ".hidden")).IsHidden());
    EXPECT_FALSE(FileStat(Entry(dir / "ro")).IsHidden());
    EXPECT_TRUE(FileStat(Entry(dir / "ro")).IsReadOnly());
    EXPECT_EQ(FileStat(Entry(dir / "link")).GetWinFileAttributes(), 1u | 1024u);
    EXPECT_TRUE(FileStat(Entry(dir / "fifo")).IsSystem());
    FileStat st;
    EXPECT_TRUE(st.Update(SString((dir.Path() + "/.").c_str())));
    EXPECT_FALSE(st.IsHidden());
}

TEST_F(FileStatTest, FailedPathUpdateKeepsTheRest)
{
    ASSERT_TRUE(WriteFile(dir / "f", "abc"));
    ASSERT_TRUE(SetTimes(dir / "f", 1700000000, 0));
    FileStat st{Entry(dir / "f")};
    const Date modified = st.DateModified();
    EXPECT_FALSE(st.Update(SString((dir / "gone").c_str())));
    EXPECT_EQ(st.GetError(), FSYS_ERR_NOTFOUND);
    EXPECT_EQ(st.GetKind(), FSYS_KIND_NONE);
    EXPECT_EQ(st.DateModified(), modified);
    EXPECT_EQ(st.GetSize64(), 3u);
}

TEST_F(FileStatTest, YoungerByDateThenTime)
{
    ASSERT_TRUE(WriteFile(dir / "a", ""));
    ASSERT_TRUE(WriteFile(dir / "b", ""));
    ASSERT_TRUE(WriteFile(dir / "c", ""));
    ASSERT_TRUE(SetTimes(dir / "a", 1700000000, 0));
    ASSERT_TRUE(SetTimes(dir / "b", 1700000001, 0)); // same day, one second later
    ASSERT_TRUE(SetTimes(dir / "c", 1600000000, 0)); // an earlier day
    const FileStat a{Entry(dir / "a")}, b{Entry(dir / "b")}, c{Entry(dir / "c")};
    EXPECT_TRUE(b.IsYounger(a));
    EXPECT_FALSE(a.IsYounger(b));
    EXPECT_FALSE(a.IsYounger(a));
    EXPECT_TRUE(a.IsYounger(c));
    EXPECT_FALSE(c.IsYounger(b));
}

// A directory listing builds its stats from the library's attribute records.
struct ListedStat : FileStat {
    explicit ListedStat(const platform::FileAttributes& record) : FileStat(&record, nullptr) {}
};

TEST_F(FileStatTest, FromListingRecords)
{
    platform::FileAttributes record;
    record.size = (uint64_t(1) << 32) | 9;
    record.modified = {2024, 2, 29, 12, 0, 59, 999};
    record.attributes = platform::FILE_ATTR_DIRECTORY | platform::FILE_ATTR_HIDDEN;
    const ListedStat st(record);
    EXPECT_EQ(st.GetKind(), FSYS_KIND_DIR);
    EXPECT_EQ(st.GetSize64(), (uint64_t(1) << 32) | 9);
    EXPECT_EQ(st.DateModified().GetDate(), 20240229u);
    EXPECT_EQ(st.TimeModified().GetTime(), 12005999);
    EXPECT_TRUE(st.IsHidden());
    record.attributes = 0;
    EXPECT_EQ(ListedStat(record).GetKind(), FSYS_KIND_FILE);
}

} // namespace
