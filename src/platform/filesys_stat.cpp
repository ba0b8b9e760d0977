#include "platform/filesys.hpp"

#include "platform/filesys_p.hpp"

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vesk::platform {
namespace {

FileTime ToFileTime(const struct statx_timestamp& ts)
{
    const time_t seconds = static_cast<time_t>(ts.tv_sec);
    struct tm tm {};
    if (!gmtime_r(&seconds, &tm) || tm.tm_year + 1900 < 1601 || tm.tm_year + 1900 > 30827)
        return {};
    FileTime t;
    static_cast<CalendarFields&>(t) = FieldsOf(tm);
    t.millisecond = static_cast<uint16_t>(ts.tv_nsec / 1000000);
    return t;
}

// Dot files are hidden; "." and ".." name directories, not hidden files.
bool IsHiddenName(std::string_view path)
{
    const std::string_view name = LastName(path);
    return name.size() > 0 && name[0] == '.' && name != "." && name != "..";
}

uint32_t AttributesOf(const struct statx& st, std::string_view path)
{
    uint32_t bits = 0;
    if (!(st.stx_mode & S_IWUSR))
        bits |= FILE_ATTR_READONLY;
    if (IsHiddenName(path))
        bits |= FILE_ATTR_HIDDEN;
    if (S_ISDIR(st.stx_mode))
        bits |= FILE_ATTR_DIRECTORY;
    else if (!S_ISREG(st.stx_mode))
        bits |= FILE_ATTR_SYSTEM;
    if (st.stx_attributes & STATX_ATTR_COMPRESSED)
        bits |= FILE_ATTR_COMPRESSED;
    if (st.stx_attributes & STATX_ATTR_ENCRYPTED)
        bits |= FILE_ATTR_ENCRYPTED;
    if (bits == 0)
        bits = FILE_ATTR_NORMAL;
    return bits;
}

} // namespace

bool QueryAttributes(const char* path, FileAttributes& out)
{
    constexpr unsigned int mask = STATX_BASIC_STATS | STATX_BTIME;
    struct statx st {};
    if (statx(AT_FDCWD, path, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, mask, &st) != 0)
        return false;
    const bool link = S_ISLNK(st.stx_mode);
    if (link && statx(AT_FDCWD, path, AT_NO_AUTOMOUNT, mask, &st) != 0)
        return false;
    out.size = S_ISDIR(st.stx_mode) ? 0 : st.stx_size;
    out.created = ToFileTime((st.stx_mask & STATX_BTIME) ? st.stx_btime : st.stx_ctime);
    out.modified = ToFileTime(st.stx_mtime);
    out.accessed = ToFileTime(st.stx_atime);
    out.attributes = AttributesOf(st, path);
    if (link)
        out.attributes = (out.attributes & ~uint32_t(FILE_ATTR_NORMAL)) | FILE_ATTR_LINK;
    return true;
}

bool IsDirectory(const char* path, bool followLink)
{
    struct stat st {};
    const int rc = followLink ? stat(path, &st) : lstat(std::string(WithoutClosingSlashes(path)).c_str(), &st);
    return rc == 0 && S_ISDIR(st.st_mode);
}

bool CanWriteTo(const char* path)
{
    if (faccessat(AT_FDCWD, path, W_OK, AT_EACCESS) == 0)
        return true;
    if (errno != ENOENT || !*path)
        return false;
    const std::string dir = DirectoryOf(path);
    return IsDirectory(dir.c_str(), true) && faccessat(AT_FDCWD, dir.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

std::string TempDirectory()
{
    const char* dir = std::getenv("TMPDIR");
    return dir && dir[0] == '/' ? dir : "/tmp";
}

} // namespace vesk::platform
