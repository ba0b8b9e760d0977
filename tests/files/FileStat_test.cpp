#include <vesk/files.hpp>

#include "platform/filesys.hpp"
#include "support/EnvGuard.hpp"
#include "support/FileSystems.hpp"
#include "support/FileText.hpp"
#include "support/TempDir.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using namespace vesk;
using namespace vesk::platform;
using vesk::test::EnvGuard;
using vesk::test::PathEntry;
using vesk::test::TempDir;
using vesk::test::WriteFileText;

namespace {

class FileStatTest : public ::testing::Test {
protected:
    TempDir dir;
};

TEST_F(FileStatTest, TimesAreUtcInEveryZone)
{
    const std::string path = dir.File("newyear");
    ASSERT_TRUE(WriteFileText(path, ""));
    // 2023-12-31 23:30:00.456 UTC.
    const struct timespec times[2] = {{1704065400, 456000000}, {1704065400, 456000000}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    for (const char* zone : {"UTC", "Pacific/Kiritimati", "America/Los_Angeles"}) {
        SCOPED_TRACE(zone);
        EnvGuard tz("TZ", zone);
        const FileStat st{PathEntry(path)};
        EXPECT_EQ(st.DateModified().GetDate(), 20231231u);
        EXPECT_EQ(st.TimeModified().GetTime(), 23300045);
        EXPECT_EQ(st.TimeAccessed().GetTime(), 23300045);
    }
}

TEST_F(FileStatTest, FilesAndSizes)
{
    ASSERT_TRUE(WriteFileText(dir.File("f"), ""));
    FileStat st{PathEntry(dir.File("f"))};
    EXPECT_EQ(st.GetKind(), FSYS_KIND_FILE);
    EXPECT_EQ(st.GetWinFileAttributes(), 128u);
    EXPECT_NE(st.DateCreated().GetDate(), 0u);

    // A sparse file beyond 4 GiB fills the high half.
    ASSERT_EQ(truncate((dir.File("f")).c_str(), (int64_t(5) << 30) + 7), 0);
    EXPECT_TRUE(st.Update(PathEntry(dir.File("f"))));
    EXPECT_EQ(st.GetSize64(), (uint64_t(5) << 30) + 7);

    // A failed update by path keeps what was read before.
    const Date modified = st.DateModified();
    EXPECT_FALSE(st.Update(SString((dir.File("gone")).c_str())));
    EXPECT_EQ(st.GetKind(), FSYS_KIND_NONE);
    EXPECT_EQ(st.DateModified(), modified);
    EXPECT_EQ(st.GetSize64(), (uint64_t(5) << 30) + 7);
}

TEST_F(FileStatTest, TextsInTheCodePageFindUtf8Names)
{
    ASSERT_TRUE(WriteFileText(dir.File("caf\xC3\xA9"), "utf8"));
    ASSERT_TRUE(WriteFileText(dir.File("\xE9t\xE9"), "latin1"));
    EXPECT_EQ(FileStat(PathEntry(dir.File("caf\xE9"))).GetSize64(), 4u);
    EXPECT_EQ(FileStat(PathEntry(dir.File("\xE9t\xE9"))).GetSize64(), 6u);
}

TEST_F(FileStatTest, ExistingAndMissing)
{
    FileStat st{PathEntry(dir.File("missing.txt"))};
    EXPECT_EQ(st.GetError(), FSYS_ERR_NOTFOUND);
    EXPECT_EQ(st.GetKind(), FSYS_KIND_FILE);
    EXPECT_FALSE(st.IsKind(FSYS_KIND_FILE));
    EXPECT_TRUE(st.IsKind(FSYS_KIND_NONE));
    // A missing directory still reads as one.
    EXPECT_FALSE(st.Update(PathEntry(dir.File("missing/"))));
    EXPECT_EQ(st.GetKind(), FSYS_KIND_DIR);

    EXPECT_TRUE(st.Update(PathEntry(dir.Path() + "//")));
    EXPECT_TRUE(st.IsKind(FSYS_KIND_DIR));
    EXPECT_FALSE(st.IsKind(FSYS_KIND_DIR | FSYS_KIND_FILE));
    EXPECT_EQ(st.GetWinFileAttributes(), 16u);
}

TEST_F(FileStatTest, NamesDecidedWithoutTheDisk)
{
    const struct {
        const char* path;
        int kind;
    } cases[] = {{"/no/such/*.txt", FSYS_KIND_WILD}, {"x/..", FSYS_KIND_DIR},
                 {"/", FSYS_KIND_DIR},              {"C:\\", FSYS_KIND_DIR}, {"\\\\srv\\share\\", FSYS_KIND_DIR}};
    for (const auto& c : cases) {
        FileStat st;
        EXPECT_TRUE(st.Update(DirEntry(c.path))) << c.path;
        EXPECT_EQ(st.GetKind(), c.kind) << c.path;
    }
    const FileStat invalid{DirEntry("")};
    EXPECT_EQ(invalid.GetError(), FSYS_ERR_INVALID);
}

TEST_F(FileStatTest, AttributeBits)
{
    ASSERT_TRUE(WriteFileText(dir.File(".hidden"), ""));
    ASSERT_TRUE(WriteFileText(dir.File("ro"), ""));
    ASSERT_EQ(chmod((dir.File("ro")).c_str(), 0444), 0);
    ASSERT_EQ(symlink((dir.File("ro")).c_str(), (dir.File("link")).c_str()), 0);
    ASSERT_EQ(mkfifo((dir.File("fifo")).c_str(), 0600), 0);

    EXPECT_EQ(FileStat(PathEntry(dir.File(".hidden"))).GetWinFileAttributes(), 2u);
    EXPECT_EQ(FileStat(PathEntry(dir.File("link"))).GetWinFileAttributes(), 1u | 1024u);
    EXPECT_TRUE(FileStat(PathEntry(dir.File("fifo"))).IsSystem());
    FileStat st;
    EXPECT_TRUE(st.Update(SString((dir.Path() + "/.").c_str())));
    EXPECT_FALSE(st.IsHidden());
}

// A directory listing builds its stats from the library's attribute records.
struct ListedStat : FileStat {
    explicit ListedStat(const FileAttributes& record) : FileStat(&record, nullptr) {}
};

TEST(FileStatRecords, ListingAndAge)
{
    FileAttributes record;
    record.size = (uint64_t(1) << 32) | 9;
    record.modified = {{2024, 2, 29, 12, 0, 59}, 999};
    record.attributes = FILE_ATTR_DIRECTORY;
    const ListedStat first(record);
    EXPECT_EQ(first.GetKind(), FSYS_KIND_DIR);
    EXPECT_EQ(first.GetSize64(), (uint64_t(1) << 32) | 9);
    EXPECT_EQ(first.DateModified().GetDate(), 20240229u);
    EXPECT_EQ(first.TimeModified().GetTime(), 12005999);

    record.attributes = 0;
    record.modified = {{2024, 2, 29, 12, 1, 0}, 0};
    const ListedStat later(record);
    record.modified = {{2024, 3, 1, 0, 0, 0}, 0};
    const ListedStat nextDay(record);
    EXPECT_EQ(later.GetKind(), FSYS_KIND_FILE);
    EXPECT_TRUE(later.IsYounger(first));
    EXPECT_FALSE(first.IsYounger(first));
    EXPECT_TRUE(nextDay.IsYounger(later));
}

constexpr int DRIVE_BITS = FSYS_KIND_REMOVABLE | FSYS_KIND_FIXED | FSYS_KIND_REMOTE | FSYS_KIND_RAM | FSYS_KIND_CDROM;

TEST(FileStatDrive, MountTableLines)
{
    MountEntry m;
    ASSERT_TRUE(ParseMountLine("36 35 98:3 /mnt1 /mnt/my\\040disk rw,noatime master:1 shared:2 - ext3 /dev/root rw", m));
    EXPECT_EQ(m.major, 98u);
    EXPECT_EQ(m.mountPoint, "/mnt/my disk");
    EXPECT_EQ(m.fsType, "ext3");
    EXPECT_FALSE(ParseMountLine("25 24 0:23 / /dev/shm rw,relatime tmpfs tmpfs rw", m));
    EXPECT_FALSE(ParseMountLine("25 24 x / /dev/shm rw - tmpfs tmpfs rw", m));
}

TEST(FileStatDrive, VolumeOfTheRoot)
{
    const DirEntry volume = DirEntry("/vesk-no-such-folder/x").GetVolume();
    EXPECT_EQ(volume.GetFlag(), DIRENTRY_DRIVE);
    EXPECT_FALSE(volume.HasName());
    const FileStat st(volume);
    EXPECT_EQ(std::popcount(static_cast<unsigned int>(st.GetKind() & DRIVE_BITS)), 1);
    EXPECT_EQ(st.GetKind() & ~DRIVE_BITS, 0);
}

TEST(FileStatDrive, RamDisk)
{
    std::string name;
    if (GetDriveType("/dev/shm") != DRIVE_TYPE_RAMDISK || !GetVolumeFileSystem("/dev/shm", name))
        GTEST_SKIP() << "/dev/shm is no tmpfs mount here";
    const DirEntry volume = DirEntry("/dev/shm/some/file").GetVolume();
    EXPECT_EQ(std::string(volume.GetFull()), "/dev/shm/");
    const FileStat st(volume);
    EXPECT_EQ(st.GetKind(), FSYS_KIND_RAM);
    EXPECT_EQ(st.GetStyle(), FSYS_STYLE_UNKNOWN);

    // Update with a path keeps the drive bits found before.
    FileStat again(volume);
    EXPECT_TRUE(again.Update(SString("/dev/shm")));
    EXPECT_EQ(again.GetKind(), FSYS_KIND_RAM | FSYS_KIND_DIR);
}

TEST(FileStatDrive, NoDriveBehindTheName)
{
    EXPECT_EQ(FileStat(DirEntry("/etc/").GetDevice()).GetError(), FSYS_ERR_INVALID);
    const FileStat noDrive(DirEntry("Q:\\x").GetDevice());
    EXPECT_EQ(noDrive.GetError(), FSYS_ERR_NOTFOUND);
    EXPECT_TRUE(noDrive.IsKind(FSYS_KIND_NONE));
}

} // namespace
