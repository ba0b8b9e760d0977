#include "platform/atomic_file.hpp"

#include "platform/filesys_p.hpp"

#include <cerrno>
#include <climits>
#include <cstdlib>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vesk::platform {

namespace {

FileStamp StampFromStat(const struct stat& st)
{
    return {static_cast<uint64_t>(st.st_dev), static_cast<uint64_t>(st.st_ino),
        static_cast<int64_t>(st.st_size),
        static_cast<int64_t>(st.st_mtim.tv_sec) * 1000000000 + st.st_mtim.tv_nsec};
}

// The file a write must replace: the target of a symbolic link, else the path itself.
bool ResolveTarget(const std::string& path, std::string& target)
{
    struct stat st;
    if (::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) {
        target = path;
        return true;
    }
    char resolved[PATH_MAX];
    if (!::realpath(path.c_str(), resolved))
        return false;
    target = resolved;
    return true;
}

// Writes content to temp (replacing a temporary file left by a writer that died) with the
// old file's permissions, and syncs it.
bool WriteTemporary(const std::string& temp, std::string_view content, const struct stat* old,
    FileStamp& stamp)
{
    FileDescriptor fd(::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0666));
    if (fd.Get() < 0)
        return false;
    struct stat st;
    bool ok = (!old || ::fchmod(fd.Get(), old->st_mode & 07777) == 0) && WriteAll(fd.Get(), content)
        && ::fsync(fd.Get()) == 0 && ::fstat(fd.Get(), &st) == 0;
    if (ok)
        stamp = StampFromStat(st);
    return fd.Close() && ok;
}

bool LockExclusive(int fd)
{
    while (::flock(fd, LOCK_EX) != 0) {
        if (errno != EINTR)
            return false;
    }
    return true;
}

} // namespace

FileStamp StampOf(const std::string& path)
{
    struct stat st;
    if (::stat(path.c_str(), &st) != 0)
        return {};
    return StampFromStat(st);
}

ReadStatus ReadWholeFile(const std::string& path, std::string& bytes, FileStamp& stamp)
{
    FileDescriptor fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (fd.Get() < 0)
        return errno == ENOENT || errno == ENOTDIR ? ReadStatus::Missing : ReadStatus::Failed;
    struct stat st;
    if (::fstat(fd.Get(), &st) != 0 || !S_ISREG(st.st_mode))
        return ReadStatus::Failed;
    bytes.clear();
    bytes.reserve(static_cast<size_t>(st.st_size));
    char chunk[65536];
    for (;;) {
        ssize_t n = ::read(fd.Get(), chunk, sizeof chunk);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return ReadStatus::Failed;
        if (n == 0)
            break;
        bytes.append(chunk, static_cast<size_t>(n));
    }
    stamp = StampFromStat(st);
    return ReadStatus::Ok;
}

namespace {

// Puts `content` in place of `target` in `directory` (whose descriptor `dir` holds the lock)
// through a synced temporary file and a rename, keeping the old file's permissions.
bool CommitReplacement(int dir, const std::string& directory, const std::string& target, std::string_view content,
    const struct stat* old, FileStamp& stamp)
{
    // Only the holder of the directory lock writes this name, so one fixed name is safe.
    std::string temp = directory + "/." + target.substr(target.find_last_of('/') + 1) + ".vesk-tmp";
    FileStamp written;
    if (!WriteTemporary(temp, content, old, written) || ::rename(temp.c_str(), target.c_str()) != 0) {
        ::unlink(temp.c_str());
        return false;
    }
    // The rename is done; a failed directory sync cannot undo it, so it is not reported.
    ::fsync(dir);
    stamp = written;
    return true;
}

// ReplaceFile's steps, with the reading of the current content optional (`edit` then receives
// an empty content for an existing file). `edit` returns an optional string or string view.
template <class Edit>
bool Replace(const std::string& path, bool readCurrent, const Edit& edit, FileStamp& stamp)
{
    std::string target;
    if (!ResolveTarget(path, target))
        return false;
    std::string directory = DirectoryOf(target);
    FileDescriptor dir(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir.Get() < 0 || !LockExclusive(dir.Get()))
        return false;

    std::string bytes;
    FileStamp current;
    ReadStatus status = readCurrent ? ReadWholeFile(target, bytes, current) : ReadStatus::Ok;
    if (status == ReadStatus::Failed)
        return false;
    struct stat old;
    bool exists = status == ReadStatus::Ok && ::stat(target.c_str(), &old) == 0;
    if (exists && ::access(target.c_str(), W_OK) != 0)
        return false;

    const auto replacement = edit(exists ? std::optional<std::string>(std::move(bytes)) : std::nullopt);
    if (!replacement) {
        stamp = current;
        return true;
    }
    return CommitReplacement(dir.Get(), directory, target, *replacement, exists ? &old : nullptr, stamp);
}

} // namespace

bool ReplaceFile(const std::string& path, const FileEditor& edit, FileStamp& stamp)
{
    return Replace(path, true, edit, stamp);
}

bool WriteFileAtomically(const std::string& path, std::string_view content)
{
    FileStamp stamp;
    return Replace(path, false, [content](const std::optional<std::string>&) { return std::optional(content); },
                   stamp);
}

bool SyncFile(const std::string& path)
{
    FileDescriptor fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (fd.Get() < 0 || ::fsync(fd.Get()) != 0)
        return false;
    FileDescriptor dir(::open(DirectoryOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return dir.Get() >= 0 && ::fsync(dir.Get()) == 0;
}

bool MakeDirectories(const std::string& path, unsigned int mode)
{
    struct stat st;
    if (path.empty() || ::stat(path.c_str(), &st) == 0)
        return !path.empty() && S_ISDIR(st.st_mode);
    std::string parent = DirectoryOf(path);
    if (parent != path && parent != "." && !MakeDirectories(parent, mode))
        return false;
    return ::mkdir(path.c_str(), mode) == 0 || errno == EEXIST;
}

} // namespace vesk::platform
