#include "platform/mapped_file.hpp"

#include "platform/descriptor.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace vesk::platform {

MappedFile::~MappedFile()
{
    if (m_pData)
        ::munmap(const_cast<uint8_t*>(m_pData), m_nSize);
}

bool MappedFile::Open(const std::string& path)
{
    FileDescriptor fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat st;
    if (fd.Get() < 0 || ::fstat(fd.Get(), &st) != 0 || !S_ISREG(st.st_mode))
        return false;
    if (st.st_size == 0)
        return true;
    void* data = ::mmap(nullptr, size_t(st.st_size), PROT_READ, MAP_PRIVATE, fd.Get(), 0);
    if (data == MAP_FAILED)
        return false;
    m_pData = static_cast<const uint8_t*>(data);
    m_nSize = size_t(st.st_size);
    return true;
}

} // namespace vesk::platform
