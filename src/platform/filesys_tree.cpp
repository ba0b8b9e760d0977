#include "platform/filesys.hpp"

#include "platform/filesys_p.hpp"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace vesk::platform {
namespace {

constexpr int DIRECTORY_FLAGS = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

// Removes everything inside the open directory `fd` (which it takes over). A name that
// unlink refuses as a directory is opened without following links, so a link put in place of
// a directory meanwhile is never descended into.
bool RemoveContents(int fd)
{
    DIR* dir = fdopendir(fd);
    if (!dir) {
        close(fd);
        return false;
    }
    bool ok = true;
    while (const dirent* entry = readdir(dir)) {
        const char* name = entry->d_name;
        if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0)
            continue;
        if (unlinkat(dirfd(dir), name, 0) == 0)
            continue;
        if (errno != EISDIR) {
            ok = false;
            continue;
        }
        const int child = openat(dirfd(dir), name, DIRECTORY_FLAGS);
        ok = child >= 0 && RemoveContents(child) && unlinkat(dirfd(dir), name, AT_REMOVEDIR) == 0 && ok;
    }
    closedir(dir);
    return ok;
}

} // namespace

bool MakeDirectories(const char* path)
{
    const std::string_view full = path;
    if (full.empty())
        return false;
    // Every ancestor first; failures show in the final test.
    for (size_t slash = full.find('/', 1); slash != std::string_view::npos; slash = full.find('/', slash + 1))
        mkdir(std::string(full.substr(0, slash)).c_str(), 0777);
    mkdir(path, 0777);
    return IsDirectory(path, true);
}

bool RemoveEntry(const char* path)
{
    const std::string name(WithoutClosingSlashes(path));
    if (unlink(name.c_str()) == 0)
        return true;
    return errno == EISDIR && rmdir(name.c_str()) == 0;
}

bool RemoveTree(const char* path)
{
    const std::string name(WithoutClosingSlashes(path));
    const int fd = open(name.c_str(), DIRECTORY_FLAGS);
    return fd >= 0 && RemoveContents(fd) && rmdir(name.c_str()) == 0;
}

bool CreateUniqueFile(std::string& pattern, int suffixLength)
{
    FileDescriptor fd(mkostemps(pattern.data(), suffixLength, O_CLOEXEC));
    return fd.IsOpen() && fd.Close();
}

} // namespace vesk::platform
