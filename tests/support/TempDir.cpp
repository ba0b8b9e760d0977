#include "support/TempDir.hpp"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace vesk::test {

TempDir::TempDir()
{
    const char* base = std::getenv("TMPDIR");
    std::string pattern = std::string(base && *base ? base : "/tmp") + "/vesk-test-XXXXXX";
    if (mkdtemp(pattern.data()))
        m_path = pattern;
}

TempDir::~TempDir()
{
    if (m_path.empty())
        return;
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

vesk::DirEntry PathEntry(const std::string& path)
{
    return vesk::DirEntry(vesk::SString(path.c_str()));
}

std::string OtherFileSystem(const TempDir& dir)
{
    struct stat here {}, shm {};
    const bool other = stat(dir.Path().c_str(), &here) == 0 && stat("/dev/shm", &shm) == 0 && here.st_dev != shm.st_dev
        && access("/dev/shm", W_OK) == 0;
    return other ? "/dev/shm" : "";
}

bool WriteFile(const std::string& path, const std::string& content)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << content;
    return static_cast<bool>(out.flush());
}

std::string ReadFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

} // namespace vesk::test
