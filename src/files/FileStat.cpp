#include <vesk/files/FileStat.hpp>

#include "files/DirEntry_p.hpp"
#include "files/NativePath_p.hpp"

namespace vesk {
namespace {

Date DateOf(const platform::FileTime& t)
{
    return Date(t.day, t.month, t.year);
}

Time TimeOf(const platform::FileTime& t)
{
    return Time(t.hour, t.minute, t.second, static_cast<uint16_t>(t.millisecond / 10));
}

int DriveKind(platform::DriveType type)
{
    switch (type) {
    case platform::DRIVE_TYPE_REMOVABLE:
        return FSYS_KIND_REMOVABLE;
    case platform::DRIVE_TYPE_FIXED:
        return FSYS_KIND_FIXED;
    case platform::DRIVE_TYPE_REMOTE:
        return FSYS_KIND_REMOTE;
    case platform::DRIVE_TYPE_CDROM:
        return FSYS_KIND_CDROM;
    case platform::DRIVE_TYPE_RAMDISK:
        return FSYS_KIND_RAM;
    default:
        return FSYS_KIND_NONE;
    }
}

FSysPathStyle StyleOf(const std::string& fileSystem)
{
    if (fileSystem == "FAT")
        return FSYS_STYLE_FAT;
    if (fileSystem == "HPFS")
        return FSYS_STYLE_HPFS;
    if (fileSystem == "NTFS")
        return FSYS_STYLE_NTFS;
    if (fileSystem == "NWFS")
        return FSYS_STYLE_NWFS;
    return FSYS_STYLE_UNKNOWN;
}

} // namespace

FileStat::FileStat()
    : m_eError(FSYS_ERR_OK), m_nKind(FSYS_KIND_NONE), m_nSizeLow(0), m_nSizeHigh(0), m_eStyle(FSYS_STYLE_UNKNOWN),
      m_aDateCreated(0u), m_aTimeCreated(0), m_aDateModified(0u), m_aTimeModified(0), m_aDateAccessed(0u),
      m_aTimeAccessed(0), m_nAttributes(0)
{
}

FileStat::FileStat(const DirEntry& entry) : FileStat()
{
    Update(entry);
}

FileStat::FileStat(const void* record, const void*) : FileStat()
{
    SetFromRecord(record);
    m_nKind = (m_nAttributes & platform::FILE_ATTR_DIRECTORY) ? FSYS_KIND_DIR : FSYS_KIND_FILE;
}

void FileStat::SetFromRecord(const void* record)
{
    const auto& attributes = *static_cast<const platform::FileAttributes*>(record);
    m_nSizeLow = static_cast<uint32_t>(attributes.size);
    m_nSizeHigh = static_cast<uint32_t>(attributes.size >> 32);
    m_aDateCreated = DateOf(attributes.created);
    m_aTimeCreated = TimeOf(attributes.created);
    m_aDateModified = DateOf(attributes.modified);
    m_aTimeModified = TimeOf(attributes.modified);
    m_aDateAccessed = DateOf(attributes.accessed);
    m_aTimeAccessed = TimeOf(attributes.accessed);
    m_nAttributes = attributes.attributes;
    m_eError = FSYS_ERR_OK;
}

void FileStat::Reset()
{
    *this = FileStat();
    m_eError = FSYS_ERR_INVALID;
}

bool FileStat::Update(const SString& path)
{
    platform::FileAttributes attributes;
    if (!detail::QueryPathAttributes(path, attributes)) {
        m_nKind = FSYS_KIND_NONE;
        m_eError = FSYS_ERR_NOTFOUND;
        return false;
    }
    SetFromRecord(&attributes);
    // Drive bits set before stay.
    m_nKind |= (m_nAttributes & platform::FILE_ATTR_DIRECTORY) ? FSYS_KIND_DIR : FSYS_KIND_FILE;
    return true;
}

bool FileStat::Update(const DirEntry& entry)
{
    Reset();
    if (!entry.IsValid())
        return false;
    const SString name = entry.GetName();
    if (name.Search('?') != STRING_NOTFOUND || name.Search('*') != STRING_NOTFOUND || name.Search(';') != STRING_NOTFOUND) {
        m_nKind = FSYS_KIND_WILD;
        m_eError = FSYS_ERR_OK;
        return true;
    }
    if (entry.HasName()) {
        if (name == "..") {
            m_nKind = FSYS_KIND_DIR;
            m_eError = FSYS_ERR_OK;
            return true;
        }
        if (Update(entry.GetFull()))
            return true;
        m_nKind = FSYS_KIND_FILE;
        return false;
    }
    if (entry.GetFlag() == DIRENTRY_DRIVE)
        return UpdateDrive(entry);
    const SString full = entry.GetFull();
    unsigned int len = full.Len();
    while (len > 0 && detail::IsSeparator(full[len - 1]))
        --len;
    const SString stripped(full, 0, len);
    if (stripped == entry.GetDevice().GetFull()) {
        // A root: a directory without asking.
        m_nKind = FSYS_KIND_DIR;
        m_eError = FSYS_ERR_OK;
        return true;
    }
    if (Update(stripped))
        return true;
    if (!!full)
        m_nKind = FSYS_KIND_DIR;
    return false;
}

bool FileStat::UpdateDrive(const DirEntry& entry)
{
    const std::string path = detail::NativePath(entry);
    const platform::DriveType type = platform::GetDriveType(path.c_str());
    if (type <= platform::DRIVE_TYPE_NO_ROOT) {
        m_eError = FSYS_ERR_NOTFOUND;
        return false;
    }
    m_nKind |= DriveKind(type);
    std::string fileSystem;
    if (platform::GetVolumeFileSystem(path.c_str(), fileSystem))
        m_eStyle = StyleOf(fileSystem);
    m_eError = FSYS_ERR_OK;
    return true;
}

bool FileStat::IsKind(int k) const
{
    if (m_eError != FSYS_ERR_OK)
        return k == FSYS_KIND_NONE;
    return k != FSYS_KIND_NONE && (m_nKind & k) == k;
}

bool FileStat::IsYounger(const FileStat& other) const
{
    return m_aDateModified > other.m_aDateModified
        || (m_aDateModified == other.m_aDateModified && m_aTimeModified > other.m_aTimeModified);
}

} // namespace vesk
