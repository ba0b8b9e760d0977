// A plugin that reports version 3.14 through DllGetVersion, as long as the caller states the
// record size, and exports two argument-less flag functions.
#include <vesk/frame/LibraryLoader.hpp>

extern "C" {

__attribute__((visibility("default"))) int32_t DllGetVersion(vesk::DllVersionInfo* info)
{
    if (info == nullptr || info->m_nSize != sizeof(vesk::DllVersionInfo))
        return -1;
    info->m_nMajorVersion = 3;
    info->m_nMinorVersion = 14;
    return 0;
}

__attribute__((visibility("default"))) int32_t PluginSaysYes()
{
    return 7;
}

__attribute__((visibility("default"))) int32_t PluginSaysNo()
{
    return 0;
}
}
