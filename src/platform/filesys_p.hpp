#pragma once

// Helpers of the file-system sources.
#include <string>
#include <string_view>
#include <unistd.h>

namespace vesk::platform {

// The path without closing slashes ("/" stays). A closing slash would make the kernel follow
// a symbolic link that the path names.
inline std::string_view WithoutClosingSlashes(std::string_view path)
{
    while (path.size() > 1 && path.back() == '/')
        path.remove_suffix(1);
    return path;
}

// The last name of a path, closing slashes ignored ("" for "/").
inline std::string_view LastName(std::string_view path)
{
    path = WithoutClosingSlashes(path);
    const size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

// The directory that holds a path's last name: "." for a bare name, "/" at the top.
inline std::string DirectoryOf(std::string_view path)
{
    path = WithoutClosingSlashes(path);
    const size_t slash = path.rfind('/');
    if (slash == std::string_view::npos)
        return ".";
    return slash == 0 ? "/" : std::string(path.substr(0, slash));
}

// Owns a file descriptor.
class FileDescriptor {
public:
    explicit FileDescriptor(int fd = -1) : m_fd(fd) {}
    ~FileDescriptor()
    {
        if (m_fd >= 0)
            close(m_fd);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    int Get() const { return m_fd; }
    bool IsOpen() const { return m_fd >= 0; }
    // Closes the descriptor; false when close reports an error (a failed write-back).
    bool Close()
    {
        const int fd = m_fd;
        m_fd = -1;
        return fd < 0 || close(fd) == 0;
    }

private:
    int m_fd;
};

} // namespace vesk::platform
