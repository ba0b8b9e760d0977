#pragma once

// Whole-file reads and atomic, locked replacement of small data files (profiles, settings).


#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vesk::platform {

// Identity of a file's content on disk: device, inode, size and modification time. Files are
// only ever replaced by rename, so a new content always comes with a new inode.
struct FileStamp {
    uint64_t device = 0;
    uint64_t inode = 0;
    int64_t size = -1; // -1: no file
    int64_t mtimeNs = 0;

    bool Exists() const { return size >= 0; }
    bool operator==(const FileStamp&) const = default;
};

enum class ReadStatus { Ok, Missing, Failed };

// The stamp of the file at path now (a default stamp when it does not exist or cannot be seen).
FileStamp StampOf(const std::string& path);

// Reads a regular file whole; stamp describes exactly the bytes read.
ReadStatus ReadWholeFile(const std::string& path, std::string& bytes, FileStamp& stamp);

// Receives the file's current content (nullopt when the file does not exist) and returns the
// replacement, or nullopt to leave the file as it is.
using FileEditor = std::function<std::optional<std::string>(const std::optional<std::string>& current)>;

// Replaces the file at path with what edit makes of its current content. The directory is
// locked (flock) from the read to the rename, so concurrent writers apply their edits one
// after another on fresh content. The new content goes to a temporary file beside the
// target, is synced, renamed over the target and the directory is synced: a reader or a crash
// sees the old or the new file, never a mixture. A symbolic link is followed and kept.
// Returns false when the file cannot be read or written (the old file then stays as it was);
// stamp receives the stamp of the file as it is afterwards.
bool ReplaceFile(const std::string& path, const FileEditor& edit, FileStamp& stamp);

// Replaces the file at path with `content` the same way, without reading the old content
// (for whole-file writes such as saved images).
bool WriteFileAtomically(const std::string& path, std::string_view content);

// Makes the file's data and its directory entry durable.
bool SyncFile(const std::string& path);

// Creates a directory and its missing parents with `mode` less the umask (0700 by default, as
// for per-user data); true when it exists afterwards.
bool MakeDirectories(const std::string& path, unsigned int mode = 0700);

} // namespace vesk::platform
