#pragma once

#include <string>

namespace vesk::test {

// Writes a file's bytes; false when it cannot be written.
bool WriteFileText(const std::string& path, const std::string& bytes);

// A file's bytes; "<missing>" when it cannot be read.
std::string ReadFileText(const std::string& path);

} // namespace vesk::test
