#include "support/PathHelpers.hpp"

#include "support/TempDir.hpp"

#include <sys/stat.h>
#include <unistd.h>

namespace vesk::test {

vesk::DirEntry PathEntry(const std::string& path)
{
    return vesk::DirEntry(vesk::SString(path.c_str()));
}

std::string OtherFileSystem(const TempDir& dir)
{
    struct stat here {}, shm {};
    const bool other = stat(dir.Path().c_str(), &here) == 0 && stat("/dev/shm", &shm) == 0
        && here.st_dev != shm.st_dev && access("/dev/shm", W_OK) == 0;
    return other ? "/dev/shm" : "";
}

} // namespace vesk::test
