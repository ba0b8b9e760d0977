#pragma once

#include <vesk/files.hpp>

#include <string>

namespace vesk::test {

// A fresh folder under $TMPDIR (else /tmp), removed with everything in it when the guard ends.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    // The folder's path, without a closing '/'.
    const std::string& Path() const { return m_path; }
    // The path of `name` inside the folder.
    std::string operator/(const std::string& name) const { return m_path + "/" + name; }

private:
    std::string m_path;
};

// The entry of a path.
vesk::DirEntry PathEntry(const std::string& path);

// "/dev/shm" when it is writable and lies on another file system than `dir`, else "".
std::string OtherFileSystem(const TempDir& dir);

// Writes `content` to a new or truncated file; false on failure.
bool WriteFile(const std::string& path, const std::string& content);
// The whole content of a file; empty when it cannot be read.
std::string ReadFile(const std::string& path);

} // namespace vesk::test
