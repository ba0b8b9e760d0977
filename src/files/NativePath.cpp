#include "files/NativePath_p.hpp"

#include "files/DirEntry_p.hpp"

#include <vesk/text/UString.hpp>

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
    // File names are UTF-8 on Linux: a text in the 8-bit code page reaches them through its
    // characters, and its raw bytes are the fallback for names that are not UTF-8.
    const std::string bytes = NativeText(path);
    if (bytes.empty())
        return false;
    const std::string characters = NativeText(UString(path).GetUTF8());
    if (!characters.empty() && platform::QueryAttributes(characters.c_str(), out))
        return true;
    return bytes != characters && platform::QueryAttributes(bytes.c_str(), out);
}

} // namespace vesk::detail
