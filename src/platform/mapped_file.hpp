#pragma once

// Read-only mappings of whole files, for inputs too large to copy into memory first.

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace vesk::platform {

class MappedFile
{
public:
    MappedFile() = default;
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    // Maps the regular file at `path`; false when it cannot be opened or mapped (an empty file
    // maps to no bytes and succeeds).
    bool Open(const std::string& path);
    std::span<const uint8_t> Bytes() const { return {m_pData, m_nSize}; }

private:
    const uint8_t* m_pData = nullptr;
    size_t m_nSize = 0;
};

} // namespace vesk::platform
