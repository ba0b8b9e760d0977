#include "platform/filesys.hpp"

#include "platform/filesys_p.hpp"

#include <charconv>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <vector>

namespace vesk::platform {
namespace {

// Splits off the text up to the next blank.
std::string_view NextField(std::string_view& line)
{
    const size_t blank = line.find(' ');
    const std::string_view field = line.substr(0, blank);
    line.remove_prefix(blank == std::string_view::npos ? line.size() : blank + 1);
    return field;
}

// Decodes the octal escapes ("\040" for a blank) of a mount point.
std::string Unescape(std::string_view text)
{
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && text.size() - i > 3) {
            unsigned int value = 0;
            const auto [end, ec] = std::from_chars(text.data() + i + 1, text.data() + i + 4, value, 8);
            if (ec == std::errc() && end == text.data() + i + 4 && value < 256) {
                out += static_cast<char>(value);
                i += 3;
                continue;
            }
        }
        out += text[i];
    }
    return out;
}

bool ParseDevice(std::string_view field, MountEntry& out)
{
    const size_t colon = field.find(':');
    if (colon == std::string_view::npos)
        return false;
    const char* begin = field.data();
    const char* end = begin + field.size();
    return std::from_chars(begin, begin + colon, out.major).ec == std::errc()
        && std::from_chars(begin + colon + 1, end, out.minor).ec == std::errc();
}

std::optional<std::vector<MountEntry>> ReadMountTable()
{
    std::ifstream in("/proc/self/mountinfo");
    if (!in)
        return std::nullopt;
    std::vector<MountEntry> table;
    std::string line;
    while (std::getline(in, line)) {
        MountEntry entry;
        if (ParseMountLine(line, entry))
            table.push_back(std::move(entry));
    }
    return table;
}

std::optional<std::string> Canonical(const char* path)
{
    char resolved[PATH_MAX];
    if (!realpath(path, resolved))
        return std::nullopt;
    return std::string(resolved);
}

// The removable flag of a block device, read from its disk's sysfs entry; -1 without one.
int RemovableFlag(const MountEntry& mount)
{
    if (mount.major == 0)
        return -1;
    const std::string dev = "/sys/dev/block/" + std::to_string(mount.major) + ":" + std::to_string(mount.minor);
    // A partition keeps the flag in its disk's folder, one level up.
    for (const char* file : {"/removable", "/../removable"}) {
        std::ifstream in(dev + file);
        int flag = -1;
        if (in >> flag)
            return flag;
    }
    return -1;
}

// The mount whose mount point is `path` itself; the last one listed is the one on top.
std::optional<MountEntry> MountAt(const char* path, bool& tableRead)
{
    tableRead = false;
    const std::optional<std::vector<MountEntry>> table = ReadMountTable();
    if (!table)
        return std::nullopt;
    tableRead = true;
    const std::optional<std::string> canonical = Canonical(path);
    if (!canonical)
        return std::nullopt;
    std::optional<MountEntry> found;
    for (const MountEntry& entry : *table)
        if (entry.mountPoint == *canonical)
            found = entry;
    return found;
}

bool IsBelow(const std::string& path, const std::string& mountPoint)
{
    if (mountPoint == "/")
        return true;
    return path.compare(0, mountPoint.size(), mountPoint) == 0
        && (path.size() == mountPoint.size() || path[mountPoint.size()] == '/');
}

} // namespace

bool ParseMountLine(std::string_view line, MountEntry& out)
{
    NextField(line); // mount id
    NextField(line); // parent id
    if (!ParseDevice(NextField(line), out))
        return false;
    NextField(line); // root of the mount within its file system
    const std::string_view mountPoint = NextField(line);
    NextField(line); // mount options
    // Optional fields run up to a lone "-".
    for (std::string_view field = NextField(line); field != "-"; field = NextField(line))
        if (line.empty())
            return false;
    const std::string_view fsType = NextField(line);
    if (mountPoint.empty() || fsType.empty())
        return false;
    out.mountPoint = Unescape(mountPoint);
    out.fsType = fsType;
    return true;
}

DriveType ClassifyMount(std::string_view fsType, int removable)
{
    for (std::string_view remote : {"nfs", "nfs4", "cifs", "smb3", "fuse.sshfs"})
        if (fsType == remote)
            return DRIVE_TYPE_REMOTE;
    if (fsType == "tmpfs" || fsType == "ramfs")
        return DRIVE_TYPE_RAMDISK;
    if (fsType == "iso9660" || fsType == "udf")
        return DRIVE_TYPE_CDROM;
    return removable == 1 ? DRIVE_TYPE_REMOVABLE : DRIVE_TYPE_FIXED;
}

std::string VolumeFileSystemName(std::string_view fsType)
{
    if (fsType == "vfat" || fsType == "msdos")
        return "FAT";
    if (fsType == "ntfs" || fsType == "ntfs3")
        return "NTFS";
    if (fsType == "hpfs")
        return "HPFS";
    if (fsType == "ncpfs")
        return "NWFS";
    return std::string(fsType);
}

DriveType GetDriveType(const char* path)
{
    bool tableRead = false;
    const std::optional<MountEntry> mount = MountAt(path, tableRead);
    if (!tableRead)
        return DRIVE_TYPE_UNKNOWN;
    if (!mount)
        return DRIVE_TYPE_NO_ROOT;
    return ClassifyMount(mount->fsType, RemovableFlag(*mount));
}

bool GetVolumeFileSystem(const char* path, std::string& name)
{
    bool tableRead = false;
    const std::optional<MountEntry> mount = MountAt(path, tableRead);
    if (!mount)
        return false;
    name = VolumeFileSystemName(mount->fsType).substr(0, 32);
    return true;
}

std::string MountPointOf(const char* path)
{
    std::string existing = path;
    std::optional<std::string> canonical = Canonical(existing.c_str());
    while (!canonical && existing != "." && existing != "/") {
        existing = DirectoryOf(existing);
        canonical = Canonical(existing.c_str());
    }
    const std::optional<std::vector<MountEntry>> table = ReadMountTable();
    if (!canonical || !table)
        return {};
    std::string best;
    for (const MountEntry& entry : *table)
        if (IsBelow(*canonical, entry.mountPoint) && entry.mountPoint.size() >= best.size())
            best = entry.mountPoint;
    return best;
}

} // namespace vesk::platform
