#include "platform/user_paths.hpp"

#include <climits>
#include <cstdlib>
#include <vector>

#include <pwd.h>
#include <unistd.h>

namespace vesk::platform {

namespace {

std::string HomeDirectory()
{
    if (const char* home = std::getenv("HOME"); home && *home)
        return home;
    long size = ::sysconf(_SC_GETPW_R_SIZE_MAX);
    std::vector<char> buffer(size > 0 ? static_cast<size_t>(size) : 16384);
    struct passwd entry;
    struct passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found)
        return found->pw_dir;
    return {};
}

} // namespace

std::string ConfigDirectory()
{
    const char* xdg = std::getenv("XDG_CONFIG_HOME");
    // The base-directory rules ignore a relative XDG_CONFIG_HOME.
    std::string directory = xdg && xdg[0] == '/' ? std::string(xdg) : HomeDirectory() + "/.config";
    while (directory.size() > 1 && directory.back() == '/')
        directory.pop_back();
    return directory;
}

std::string ModuleFileName()
{
    char path[PATH_MAX];
    ssize_t length = ::readlink("/proc/self/exe", path, sizeof path);
    return length > 0 && static_cast<size_t>(length) < sizeof path ? std::string(path, static_cast<size_t>(length)) : std::string();
}

} // namespace vesk::platform
