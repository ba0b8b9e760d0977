#pragma once

// Loading shared libraries and finding their symbols (dlopen/dlsym).

namespace vesk::platform {

// Loads the shared library `name` (a file name or path, UTF-8); null when it cannot be loaded.
void* OpenLibrary(const char* name);

// Address of the exported symbol `name` in `library`; null when absent or `library` is null.
void* FindSymbol(void* library, const char* name);

// Releases a library from OpenLibrary; null is ignored.
void CloseLibrary(void* library);

// File name of the C library, the process's counterpart of the kernel library.
const char* CLibraryName();

} // namespace vesk::platform
