#pragma once

// File bytes for the image tests: whole-file reads, little-endian fields and giflib handles
// that close themselves.

#include <gif_lib.h>

#include <cstdint>
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
