#include "support/TempDir.hpp"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

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
    // Permissions a test took away must not keep the folder alive.
    std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, std::filesystem::perm_options::add, ignored);
    std::filesystem::remove_all(m_path, ignored);
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
