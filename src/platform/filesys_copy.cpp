#include "platform/filesys.hpp"

#include "platform/filesys_p.hpp"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>

namespace vesk::platform {
namespace {

bool WriteAll(int fd, const char* data, size_t n)
{
    while (n > 0) {
        const ssize_t written = write(fd, data, n);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        data += written;
        n -= static_cast<size_t>(written);
    }
    return true;
}

bool CopyByReading(int from, int to)
{
    char buffer[1 << 16];
    for (;;) {
        const ssize_t n = read(from, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return n == 0;
        if (!WriteAll(to, buffer, static_cast<size_t>(n)))
            return false;
    }
}

// Copies the rest of `from` to `to`, in the kernel where the file systems allow it.
bool CopyData(int from, int to)
{
    bool started = false;
    for (;;) {
        const ssize_t n = copy_file_range(from, nullptr, to, nullptr, size_t(1) << 30, 0);
        if (n == 0)
            return true;
        if (n > 0) {
            started = true;
            continue;
        }
        if (errno == EINTR)
            continue;
        // Nothing moved yet: both offsets still stand at the start.
        return !started && CopyByReading(from, to);
    }
}

// Gives the copy the source's permissions and times, and its owner and group when the process
// may set them (else the group alone when the process belongs to it; neither failure stops the
// copy). The owner goes first because changing it clears the set-id bits.
bool CopyMetadata(int to, const struct stat& st)
{
    [[maybe_unused]] const bool owned
        = fchown(to, st.st_uid, st.st_gid) == 0 || fchown(to, static_cast<uid_t>(-1), st.st_gid) == 0;
    const struct timespec times[2] = {st.st_atim, st.st_mtim};
    return fchmod(to, st.st_mode & 07777) == 0 && futimens(to, times) == 0;
}

void SyncDirectory(const std::string& dir)
{
    FileDescriptor fd(open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (fd.IsOpen())
        fsync(fd.Get());
}

} // namespace

bool CopyFile(const char* from, const char* to)
{
    FileDescriptor source(open(from, O_RDONLY | O_CLOEXEC));
    struct stat st {};
    if (!source.IsOpen() || fstat(source.Get(), &st) != 0 || !S_ISREG(st.st_mode))
        return false;
    const std::string dir = DirectoryOf(to);
    // Hidden, and short enough for any name length the target may have.
    std::string temp = dir + "/." + std::string(LastName(to).substr(0, 200)) + ".XXXXXX";
    FileDescriptor copy(mkostemp(temp.data(), O_CLOEXEC));
    if (!copy.IsOpen())
        return false;
    const bool ok = CopyData(source.Get(), copy.Get()) && CopyMetadata(copy.Get(), st) && fsync(copy.Get()) == 0
        && copy.Close() && rename(temp.c_str(), to) == 0;
    if (!ok) {
        unlink(temp.c_str());
        return false;
    }
    SyncDirectory(dir);
    return true;
}

bool MovePath(const char* from, const char* to)
{
    const std::string source(WithoutClosingSlashes(from));
    if (rename(source.c_str(), to) == 0)
        return true;
    struct stat st {};
    if (errno != EXDEV || lstat(source.c_str(), &st) != 0 || !S_ISREG(st.st_mode))
        return false;
    return CopyFile(source.c_str(), to) && unlink(source.c_str()) == 0;
}

} // namespace vesk::platform
