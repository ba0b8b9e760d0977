#include "support/FileText.hpp"

#include "platform/file_watch.hpp"

#include <fstream>
#include <iterator>

namespace vesk::test {

bool WriteFileText(const std::string& path, const std::string& bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << bytes;
    out.close();
    vesk::platform::file_watch::Settle();
    return static_cast<bool>(out);
}

std::string ReadFileText(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return "<missing>";
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

} // namespace vesk::test
