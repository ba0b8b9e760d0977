#pragma once

// File bytes for the image tests: whole-file reads and writes, little-endian fields, giflib
// handles that close themselves, and a folder that cannot be written.

#include <vesk/files/DirEntry.hpp>

#include "support/TempDir.hpp"

#include <gif_lib.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace vesk::test {

// The file's bytes; empty when it cannot be read.
inline std::vector<uint8_t> ReadBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::vector<uint8_t>(std::istreambuf_iterator<char>(in), {});
}

inline void WriteBytes(const std::string& path, const std::vector<uint8_t>& bytes)
{
    std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
}

inline DirEntry Entry(const std::string& path)
{
    return DirEntry(SString(path.c_str()));
}

// The folder "locked" in `dir`, made read-only; empty when the process may write anywhere
// (root). The folder is left read-only: call Unlock before the TempDir goes.
inline std::string LockedFolder(const TempDir& dir)
{
    const std::string locked = dir.File("locked");
    std::filesystem::create_directory(locked);
    std::filesystem::permissions(locked, std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    return ::access(locked.c_str(), W_OK) == 0 ? std::string() : locked;
}

inline void Unlock(const TempDir& dir)
{
    std::filesystem::permissions(dir.File("locked"), std::filesystem::perms::owner_all);
}

inline uint32_t Le32(const std::vector<uint8_t>& b, size_t at)
{
    return uint32_t(b[at]) | uint32_t(b[at + 1]) << 8 | uint32_t(b[at + 2]) << 16 | uint32_t(b[at + 3]) << 24;
}

struct GifFileCloser
{
    void operator()(GifFileType* gif) const
    {
        int error = 0;
        DGifCloseFile(gif, &error);
    }
};

using GifFilePtr = std::unique_ptr<GifFileType, GifFileCloser>;

} // namespace vesk::test
