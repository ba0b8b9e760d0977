#pragma once

#include <vesk/files.hpp>

#include <string>

namespace vesk::test {

class TempDir;

// The entry of a path.
vesk::DirEntry PathEntry(const std::string& path);

// "/dev/shm" when it is writable and lies on another file system than `dir`, else "".
std::string OtherFileSystem(const TempDir& dir);

} // namespace vesk::test
