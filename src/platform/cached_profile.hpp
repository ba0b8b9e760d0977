#pragma once

// Parsed profile files shared by the process and kept in step with the files on disk.

#include "platform/atomic_file.hpp"
#include "platform/file_watch.hpp"
#include "platform/profile_document.hpp"

#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>

namespace vesk::platform {

// One profile file's parsed content. A read checks the file on disk only when the process's
// file watcher has counted a change of it (or lost events) since the last check, and
// re-parses only when the file's stamp (device, inode, size, modification time) has changed;
// without a watch every read checks the stamp. A write re-reads the file under its lock and
// replaces it atomically, so concurrent writers keep each other's keys.
class CachedProfile {
public:
    // The cache of the file at path; one per path for the life of the process.
    static CachedProfile& For(std::string_view path);

    // Calls read with the current content (empty when the file is missing or unreadable).
    template <class Read>
    auto Get(Read&& read)
    {
        std::lock_guard lock(m_mutex);
        Refresh();
        return read(std::as_const(m_document));
    }

    // Applies edit to the content as it is on disk under the file lock; edit returns whether
    // it changed anything, and only then is the file rewritten. False when the file could not
    // be read or written (it then stays as it was).
    bool Update(const std::function<bool(ProfileDocument&)>& edit);

    // Makes the file durable on disk; true when there is no file.
    bool Flush();

private:
    explicit CachedProfile(std::string path) : m_path(std::move(path)) { }
    bool Unchanged() const;
    void Refresh();
    void Load(std::string_view bytes, const FileStamp& stamp, bool valid);

    std::mutex m_mutex;
    const std::string m_path;
    bool m_valid = false; // m_document matches the file with stamp m_stamp
    FileStamp m_stamp;
    FileWatch* m_watch = nullptr; // null: not watched, the stamp is checked on every read
    uint64_t m_changes = 0, m_epoch = 0; // the watch's count and the epoch at the last check
    std::string m_bytes;
    ProfileDocument m_document;
};

} // namespace vesk::platform
