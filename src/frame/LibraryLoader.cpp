#include <vesk/frame/LibraryLoader.hpp>

#include "platform/dynlib.hpp"

namespace vesk {

LibraryLoader::LibraryLoader(const char* name) : m_hModule(platform::OpenLibrary(name)) {}

LibraryLoader::~LibraryLoader()
{
    platform::CloseLibrary(m_hModule);
}

void* LibraryLoader::GetProcAddress(const char* name) const
{
    return platform::FindSymbol(m_hModule, name);
}

bool LibraryLoader::BOOLFunc(const char* name) const
{
    using BoolFunc = int32_t (*)();
    auto func = reinterpret_cast<BoolFunc>(GetProcAddress(name));
    return func != nullptr && func() != 0;
}

bool LibraryLoader::FillVersion(int& major, int& minor) const
{
    major = -1;
    minor = -1;
    auto getVersion = reinterpret_cast<DllGetVersionFunc>(GetProcAddress("DllGetVersion"));
    if (getVersion == nullptr)
        return false;
    DllVersionInfo info{};
    info.m_nSize = sizeof(DllVersionInfo);
    if (getVersion(&info) < 0)
        return false;
    major = static_cast<int>(info.m_nMajorVersion);
    minor = static_cast<int>(info.m_nMinorVersion);
    return true;
}

int LibraryLoader::GetMajorVersion() const
{
    int major = -1;
    int minor = -1;
    FillVersion(major, minor);
    return major;
}

Kernel32Loader::Kernel32Loader() : LibraryLoader(platform::CLibraryName()) {}

} // namespace vesk
