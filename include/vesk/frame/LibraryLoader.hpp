#pragma once

#include <vesk/export.hpp>

#include <cstdint>

namespace vesk {

// Version record handed to a library's exported "DllGetVersion" function. The caller sets
// m_nSize to the record's size (20) before the call.
struct DllVersionInfo
{
    uint32_t m_nSize;
    uint32_t m_nMajorVersion;
    uint32_t m_nMinorVersion;
    uint32_t m_nBuildNumber;
    uint32_t m_nPlatformId;
};

// Signature of "DllGetVersion": a non-negative result means success. A plugin that reports
// its version exports it with C linkage.
using DllGetVersionFunc = int32_t (*)(DllVersionInfo*);

// A shared library loaded by name for the lifetime of the object. Loading failures leave the
// loader empty: every query then gives its failure value.
class VESK_API LibraryLoader
{
public:
    // Loads the library `name` (file name or path); an empty loader when that fails.
    explicit LibraryLoader(const char* name);
    // Releases the library.
    virtual ~LibraryLoader();

    LibraryLoader(const LibraryLoader&) = delete;
    LibraryLoader& operator=(const LibraryLoader&) = delete;

    // The module handle, null when loading failed.
    void* GetHandle() const { return m_hModule; }
    // Address of the exported symbol `name`, null when it or the library is missing.
    void* GetProcAddress(const char* name) const;
    // Calls the exported function `name` without arguments; whether it returned non-zero
    // (false when the function is missing).
    bool BOOLFunc(const char* name) const;
    // Major and minor version from the library's "DllGetVersion"; both -1 and false when the
    // library has none or the call fails.
    bool FillVersion(int& major, int& minor) const;
    // The major version from FillVersion, or -1.
    int GetMajorVersion() const;

private:
    void* m_hModule;
};

// The loader of the platform's system library (the C library on Linux).
class VESK_API Kernel32Loader : public LibraryLoader
{
public:
    // Loads the C library.
    Kernel32Loader();
};

} // namespace vesk
