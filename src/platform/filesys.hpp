#pragma once

// The file system: status, drives and volumes, creating, removing, copying and moving. Paths
// are byte strings as the kernel takes them. The parts that tests reach directly are exported.
#include "platform/calendar.hpp"


#include <cstdint>
#include <string>
#include <string_view>

namespace vesk::platform {

// A file time as calendar fields in UTC; all zero when the time lies outside the years 1601 to
// 30827 that the fields were made for.
struct FileTime : CalendarFields {
    uint16_t millisecond = 0;
};

// Attribute bits in the numbering FileStat publishes.
enum FileAttributeBits : uint32_t {
    FILE_ATTR_READONLY = 1,     // the owner may not write
    FILE_ATTR_HIDDEN = 2,       // the name starts with a dot
    FILE_ATTR_SYSTEM = 4,       // a device, pipe or socket
    FILE_ATTR_DIRECTORY = 16,
    FILE_ATTR_NORMAL = 128,     // a regular file with none of the other bits
    FILE_ATTR_LINK = 1024,      // the path itself is a symbolic link
    FILE_ATTR_COMPRESSED = 2048,
    FILE_ATTR_ENCRYPTED = 16384,
};

// What the file system says about one path.
struct FileAttributes {
    uint64_t size = 0; // 0 for a directory
    FileTime created;  // the birth time where the file system keeps one, else the change time
    FileTime modified;
    FileTime accessed;
    uint32_t attributes = 0;
};

// Reads the status of `path` (a symbolic link is followed); false when it cannot be read.
bool QueryAttributes(const char* path, FileAttributes& out);

// Drive types, numbered as GetDriveType reports them.
enum DriveType : uint32_t {
    DRIVE_TYPE_UNKNOWN = 0,   // the mount table cannot be read
    DRIVE_TYPE_NO_ROOT = 1,   // the path is missing or is no mount point
    DRIVE_TYPE_REMOVABLE = 2,
    DRIVE_TYPE_FIXED = 3,
    DRIVE_TYPE_REMOTE = 4,
    DRIVE_TYPE_CDROM = 5,
    DRIVE_TYPE_RAMDISK = 6,
};

// One line of /proc/self/mountinfo.
struct MountEntry {
    unsigned int major = 0;
    unsigned int minor = 0;
    std::string mountPoint; // escapes such as "\040" decoded
    std::string fsType;
};

// Parses one mountinfo line; false when it is malformed.
bool ParseMountLine(std::string_view line, MountEntry& out);
// The drive type of a mount of `fsType`; `removable` is the block device's removable flag
// (-1 when it has none).
DriveType ClassifyMount(std::string_view fsType, int removable);
// The name a volume of `fsType` reports: "FAT", "NTFS", "HPFS", "NWFS" or the type itself.
std::string VolumeFileSystemName(std::string_view fsType);

// The drive type of the mount point at `path`.
DriveType GetDriveType(const char* path);
// The file-system name of the mount point at `path` (see VolumeFileSystemName), at most 32
// characters; false when `path` is no mount point or the mount table cannot be read.
bool GetVolumeFileSystem(const char* path, std::string& name);
// The mount point that holds `path` (its nearest existing ancestor when it is missing); empty
// when it cannot be found.
std::string MountPointOf(const char* path);

// Whether `path` is a directory; a symbolic link counts only when `followLink` is true.
bool IsDirectory(const char* path, bool followLink);
// Whether the process (with its effective ids) may write `path`, or, when it is missing,
// create it: its directory exists and may be written.
bool CanWriteTo(const char* path);
// The temporary directory: $TMPDIR when it is an absolute path, else "/tmp".
std::string TempDirectory();
// Creates a new file exclusively (mode 0600) from `pattern`, whose six 'X' just before the
// last `suffixLength` characters are replaced; `pattern` then names the file. False on failure.
bool CreateUniqueFile(std::string& pattern, int suffixLength);

// Removes a file, a symbolic link or an empty directory.
bool RemoveEntry(const char* path);
// Removes a directory and everything in it without following any symbolic link; false for a
// symbolic link or anything else that is no directory.
bool RemoveTree(const char* path);
// Copies a regular file through a temporary beside `to` and one rename (mode, times and, when
// permitted, owner kept).
bool CopyFile(const char* from, const char* to);
// Renames `from` to `to`; a regular file on another file system is copied and then removed.
bool MovePath(const char* from, const char* to);

} // namespace vesk::platform
