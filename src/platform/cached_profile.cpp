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
    // Never destroyed, so that code running during exit can still read its settings.
    static auto* const mutex = new std::mutex;
    static auto* const caches
        = new std::unordered_map<std::string, std::unique_ptr<CachedProfile>, PathHash, std::equal_to<>>;
    std::lock_guard lock(*mutex);
    auto it = caches->find(path);
    if (it == caches->end())
        it = caches->emplace(path, std::unique_ptr<CachedProfile>(new CachedProfile(std::string(path)))).first;
    return *it->second;
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

void CachedProfile::Refresh()
{
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
    return written;
}

bool CachedProfile::Flush()
{
    std::lock_guard lock(m_mutex);
    return !StampOf(m_path).Exists() || SyncFile(m_path);
}

} // namespace vesk::platform
