#pragma once

// How the library's path texts reach the file system.
#include <vesk/files/DirEntry.hpp>

#include "platform/filesys.hpp"

#include <string>

namespace vesk::detail {

// The bytes of a path text with every '\' turned into '/'; "" when the text holds a zero byte,
// which no file name can.
std::string NativeText(const SString& text);

// The text by which an entry reaches the file system: its full text, "." for a valid entry
// whose text is empty, "" for an invalid one.
SString PathText(const DirEntry& entry);

// NativeText of PathText.
std::string NativePath(const DirEntry& entry);

// Reads the status of a path text: first its characters in UTF-8, then its bytes as they are.
bool QueryPathAttributes(const SString& path, platform::FileAttributes& out);

} // namespace vesk::detail
