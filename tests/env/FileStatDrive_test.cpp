#include <vesk/files.hpp>

#include "platform/filesys.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <string>
#include <sys/stat.h>

using namespace vesk;
using namespace vesk::platform;

namespace {

constexpr int DRIVE_BITS = FSYS_KIND_REMOVABLE | FSYS_KIND_FIXED | FSYS_KIND_REMOTE | FSYS_KIND_RAM | FSYS_KIND_CDROM;

TEST(FileStatDrive, MountTableLines)
{
    MountEntry m;
    ASSERT_TRUE(ParseMountLine("36 35 98:0 /mnt1 /mnt/my\\040disk rw,noatime master:1 shared:2 - ext3 /dev/root rw", m));
    EXPECT_EQ(m.major, 98u);
    EXPECT_EQ(m.minor, 0u);
    EXPECT_EQ(m.mountPoint, "/mnt/my disk");
    EXPECT_EQ(m.fsType, "ext3");
    ASSERT_TRUE(ParseMountLine("25 24 0:23 / /dev/shm rw,relatime - tmpfs tmpfs rw", m));
    EXPECT_EQ(m.fsType, "tmpfs");
    EXPECT_EQ(m.mountPoint, "/dev/shm");
    EXPECT_FALSE(ParseMountLine("25 24 0:23 / /dev/shm rw,relatime tmpfs tmpfs rw", m));
    EXPECT_FALSE(ParseMountLine("25 24 x / /dev/shm rw - tmpfs tmpfs rw", m));
    EXPECT_FALSE(ParseMountLine("", m));
}

TEST(FileStatDrive, KindsFromFileSystemTypes)
{
    for (const char* remote : {"nfs", "nfs4", "cifs", "smb3", "fuse.sshfs"})
        EXPECT_EQ(ClassifyMount(remote, 0), DRIVE_TYPE_REMOTE) << remote;
    EXPECT_EQ(ClassifyMount("tmpfs", -1), DRIVE_TYPE_RAMDISK);
    EXPECT_EQ(ClassifyMount("ramfs", -1), DRIVE_TYPE_RAMDISK);
    EXPECT_EQ(ClassifyMount("iso9660", 1), DRIVE_TYPE_CDROM);
    EXPECT_EQ(ClassifyMount("udf", 1), DRIVE_TYPE_CDROM);
    EXPECT_EQ(ClassifyMount("vfat", 1), DRIVE_TYPE_REMOVABLE);
    EXPECT_EQ(ClassifyMount("ext4", 0), DRIVE_TYPE_FIXED);
    EXPECT_EQ(ClassifyMount("overlay", -1), DRIVE_TYPE_FIXED);

    EXPECT_EQ(VolumeFileSystemName("vfat"), "FAT");
    EXPECT_EQ(VolumeFileSystemName("msdos"), "FAT");
    EXPECT_EQ(VolumeFileSystemName("ntfs3"), "NTFS");
    EXPECT_EQ(VolumeFileSystemName("hpfs"), "HPFS");
    EXPECT_EQ(VolumeFileSystemName("ncpfs"), "NWFS");
    EXPECT_EQ(VolumeFileSystemName("exfat"), "exfat");
}

TEST(FileStatDrive, VolumeOfTheRoot)
{
    const DirEntry volume = DirEntry("/vesk-no-such-folder/x").GetVolume();
    ASSERT_TRUE(volume.IsValid());
    const FileStat st(volume);
    EXPECT_EQ(st.GetError(), FSYS_ERR_OK);
    EXPECT_EQ(std::popcount(static_cast<unsigned int>(st.GetKind() & DRIVE_BITS)), 1);
    EXPECT_EQ(st.GetKind() & ~DRIVE_BITS, 0);
}

TEST(FileStatDrive, RamDisk)
{
    std::string name;
    if (GetDriveType("/dev/shm") != DRIVE_TYPE_RAMDISK || !GetVolumeFileSystem("/dev/shm", name))
        GTEST_SKIP() << "/dev/shm is no tmpfs mount here";
    EXPECT_EQ(name, "tmpfs");
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
    const FileStat notMounted(DirEntry("/etc/").GetDevice());
    EXPECT_EQ(notMounted.GetError(), FSYS_ERR_INVALID);
    const FileStat noDrive(DirEntry("Q:\\x").GetDevice());
    EXPECT_EQ(noDrive.GetError(), FSYS_ERR_NOTFOUND);
    EXPECT_TRUE(noDrive.IsKind(FSYS_KIND_NONE));
    EXPECT_EQ(GetDriveType("/etc"), DRIVE_TYPE_NO_ROOT);
}

} // namespace
