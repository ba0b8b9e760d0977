#include "env/NativePath_p.hpp"

#include "env/DirEntry_p.hpp"

#include <algorithm>

namespace vesk::detail {

std::string NativeText(const SString& text)
{
    std::string path(View(text));
    if (path.find('\0') != std::string::npos)
        return {};
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

SString PathText(const DirEntry& entry)
{
    if (!entry.IsValid())
        return SString();
    const SString full = entry.GetFull();
    return !full ? SString(".") : full;
}

std::string NativePath(const DirEntry& entry)
{
    return NativeText(PathText(entry));
}

bool QueryPathAttributes(const SString& path, platform::FileAttributes& out)
{
    const std::string bytes = NativeText(path);
    return !bytes.empty() && platform::QueryAttributes(bytes.c_str(), out);
}

} // namespace vesk::detail
