#include "platform/cached_profile.hpp"

#include <memory>
#include <unordered_map>

namespace vesk::platform {

namespace {

// Lets the cache table be searched with a string_view, without building a string per read.
struct PathHash {
    using is_transparent = void;
    size_t operator()(std::string_view path) const { return std::hash<std::string_view>()(path); }
};

} // namespace

CachedProfile& CachedProfile::For(std::string_view path)
{
    // Reads come in runs on one file: each thread remembers the last cache it used.
    thread_local struct {
        std::string path;
        CachedProfile* cache = nullptr;
    } last;
    if (last.cache && last.path == path)
        return *last.cache;

    // Never destroyed, so that code running during exit can still read its settings.
    static auto* const mutex = new std::mutex;
    static auto* const caches
        = new std::unordered_map<std::string, std::unique_ptr<CachedProfile>, PathHash, std::equal_to<>>;
    std::lock_guard lock(*mutex);
    auto it = caches->find(path);
    if (it == caches->end())
        it = caches->emplace(path, std::unique_ptr<CachedProfile>(new CachedProfile(std::string(path)))).first;
    last.path = path;
    last.cache = it->second.get();
    return *last.cache;
}

void CachedProfile::Load(std::string_view bytes, const FileStamp& stamp, bool valid)
{
    if (!m_valid || bytes != m_bytes) {
        m_bytes = bytes;
        m_document = ProfileDocument::Parse(m_bytes);
    }
    m_stamp = stamp;
    m_valid = valid;
}

bool CachedProfile::Unchanged() const
{
    return m_valid && m_watch && m_watch->changes.load(std::memory_order_acquire) == m_changes
        && file_watch::Epoch() == m_epoch;
}

void CachedProfile::Refresh()
{
    if (Unchanged())
        return;
    // The epoch and the count are taken before the file is looked at, so that a change made
    // while it is read is counted after them and checked on the next read.
    m_epoch = file_watch::Epoch();
    m_watch = file_watch::Watch(m_path);
    m_changes = m_watch ? m_watch->changes.load(std::memory_order_acquire) : 0;
    FileStamp now = StampOf(m_path);
    if (m_valid && now == m_stamp)
        return;
    std::string bytes;
    FileStamp stamp;
    switch (ReadWholeFile(m_path, bytes, stamp)) {
    case ReadStatus::Ok:
        Load(bytes, stamp, true);
        break;
    case ReadStatus::Missing:
        Load({}, {}, true);
        break;
    case ReadStatus::Failed: // nothing to read now; try again on the next read
        Load({}, {}, false);
        break;
    }
}

bool CachedProfile::Update(const std::function<bool(ProfileDocument&)>& edit)
{
    std::lock_guard lock(m_mutex);
    FileStamp stamp;
    bool written = ReplaceFile(m_path,
        [&](const std::optional<std::string>& current) -> std::optional<std::string> {
            Load(current ? std::string_view(*current) : std::string_view(), m_stamp, true);
            if (!edit(m_document))
                return std::nullopt;
            m_bytes = m_document.Serialize();
            return m_bytes;
        },
        stamp);
    m_stamp = stamp;
    m_valid = written; // after a failure the document may hold an edit the file lacks
    // Readers of this file under another spelling of its path see the write at once; this
    // cache checks the file once more on its next read, in case another writer came between.
    if (written && m_watch)
        file_watch::Touch(*m_watch);
    return written;
}

bool CachedProfile::Flush()
{
    std::lock_guard lock(m_mutex);
    return !StampOf(m_path).Exists() || SyncFile(m_path);
}

} // namespace vesk::platform
