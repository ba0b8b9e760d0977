#pragma once

#include <string>

namespace vesk::test {

// Writes a file's bytes and lets the process's file watcher take the change, as a reader does
// that knows of another process's write; false when the file cannot be written.
bool WriteFileText(const std::string& path, const std::string& bytes);

// A file's bytes; "<missing>" when it cannot be read.
std::string ReadFileText(const std::string& path);

} // namespace vesk::test
