#include <vesk/files/DirEntry.hpp>

#include "files/DirEntry_p.hpp"
#include "files/NativePath_p.hpp"
#include "platform/atomic_file.hpp"

namespace vesk {

using detail::NativePath;

namespace {

// Where a copy or move of `source` goes: into `target` when that is a directory.
std::string DestinationPath(const DirEntry& source, const DirEntry& target)
{
    const std::string to = NativePath(target);
    if (to.empty() || !platform::IsDirectory(to.c_str(), true))
        return to;
    const detail::PathLevels levels = detail::SplitLevels(source);
    return levels.names.empty() ? std::string() : NativePath(target + DirEntry(levels.names.back()));
}

} // namespace

bool DirEntry::Exists() const
{
    platform::FileAttributes attributes;
    return m_bValid && detail::QueryPathAttributes(detail::PathText(*this), attributes)
        && (!IsRoot() || platform::GetDriveType(NativePath(*this).c_str()) > platform::DRIVE_TYPE_NO_ROOT);
}

int64_t DirEntry::GetFileSize() const
{
    platform::FileAttributes attributes;
    if (!m_bValid || !detail::QueryPathAttributes(detail::PathText(*this), attributes))
        return -1;
    return static_cast<int64_t>(attributes.size);
}

DirEntry DirEntry::GetVolume() const
{
    const std::string path = NativePath(*this);
    std::string mountPoint = path.empty() ? path : platform::MountPointOf(path.c_str());
    if (mountPoint.empty())
        return DirEntry();
    // With a closing separator the mount point is all path and no name, as a drive is (a
    // file mounted on its own keeps its name).
    if (mountPoint.back() != '/' && platform::IsDirectory(mountPoint.c_str(), true))
        mountPoint += '/';
    DirEntry volume{SString(mountPoint.c_str())};
    volume.m_eFlag = DIRENTRY_DRIVE;
    return volume;
}

bool DirEntry::IsNormalDir() const
{
    const std::string path = NativePath(*this);
    const detail::PathLevels levels = detail::SplitLevels(*this);
    const bool dotName = levels.names.empty() ? path == "." : levels.names.back() == "." || levels.names.back() == "..";
    return !path.empty() && !dotName && platform::IsDirectory(path.c_str(), false);
}

bool DirEntry::CanWriteTo() const
{
    const std::string path = NativePath(*this);
    return !path.empty() && platform::CanWriteTo(path.c_str());
}

bool DirEntry::HasTempPath() const
{
    return DirEntry(SString(platform::TempDirectory().c_str())).Contains(*this);
}

DirEntry DirEntry::TempName() const
{
    DirEntry file = *this;
    if (!m_bValid)
        file = DirEntry(SString((platform::TempDirectory() + "/").c_str()));
    if (!file.HasName())
        file += DirEntry(SString("vsk"));
    const SString base = file.m_aBase;
    SString pattern = base;
    pattern += "XXXXXX";
    file.ChangeBase(pattern);
    std::string path = NativePath(file);
    const int suffix = !file.m_aExt ? 0 : static_cast<int>(file.m_aExt.Len() + 1);
    if (path.empty() || !platform::CreateUniqueFile(path, suffix))
        return DirEntry();
    SString unique = base;
    unique += SString(path.c_str(), static_cast<unsigned int>(path.size() - suffix - 6), 6, true);
    file.ChangeBase(unique);
    return file;
}

bool DirEntry::MakeDir() const
{
    const std::string path = NativePath(*this);
    return !path.empty() && platform::MakeDirectories(path, 0777);
}

bool DirEntry::Kill() const
{
    const std::string path = NativePath(*this);
    return !path.empty() && platform::RemoveEntry(path.c_str());
}

bool DirEntry::KillDir() const
{
    const std::string path = NativePath(*this);
    return !path.empty() && platform::RemoveTree(path.c_str());
}

bool DirEntry::CopyTo(const DirEntry& target) const
{
    const std::string from = NativePath(*this);
    const std::string to = DestinationPath(*this, target);
    return !from.empty() && !to.empty() && platform::CopyFile(from.c_str(), to.c_str());
}

bool DirEntry::MoveTo(const DirEntry& target) const
{
    const std::string from = NativePath(*this);
    const std::string to = DestinationPath(*this, target);
    return !from.empty() && !to.empty() && platform::MovePath(from.c_str(), to.c_str());
}

} // namespace vesk
