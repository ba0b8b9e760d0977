#include "support/TempDir.hpp"

#include <cstdlib>
#include <stdexcept>
#include <vector>

#include <ftw.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vesk::test {

TempDir::TempDir()
{
    const char* base = std::getenv("TMPDIR");
    std::string pattern = std::string(base && *base ? base : "/tmp") + "/vesk-test-XXXXXX";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    if (!::mkdtemp(name.data()))
        throw std::runtime_error("cannot create a temporary directory from " + pattern);
    m_path = name.data();
}

TempDir::~TempDir()
{
    // Tests may leave folders read-only: open them all up first, then remove children first.
    // Links are not followed.
    ::nftw(m_path.c_str(), [](const char* path, const struct stat*, int type, struct FTW*) {
        if (type == FTW_D || type == FTW_DNR)
            ::chmod(path, 0700);
        return 0;
    }, 16, FTW_PHYS);
    ::nftw(m_path.c_str(), [](const char* path, const struct stat*, int, struct FTW*) {
        ::remove(path);
        return 0;
    }, 16, FTW_DEPTH | FTW_PHYS);
}

} // namespace vesk::test
