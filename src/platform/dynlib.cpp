#include "platform/dynlib.hpp"

#include <dlfcn.h>
#include <gnu/lib-names.h>

namespace vesk::platform {

void* OpenLibrary(const char* name)
{
    if (name == nullptr || *name == '\0')
        return nullptr; // dlopen(nullptr) would hand out the main program instead
    return dlopen(name, RTLD_NOW | RTLD_LOCAL);
}

void* FindSymbol(void* library, const char* name)
{
    if (library == nullptr || name == nullptr)
        return nullptr;
    return dlsym(library, name);
}

void CloseLibrary(void* library)
{
    if (library != nullptr)
        dlclose(library);
}

const char* CLibraryName()
{
    return LIBC_SO;
}

} // namespace vesk::platform
