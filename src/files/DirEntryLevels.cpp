#include <vesk/files/DirEntry.hpp>

#include "files/DirEntry_p.hpp"

#include <algorithm>

namespace vesk {

using detail::IsSeparator;
using detail::PathLevels;
using detail::SplitLevels;

namespace detail {

char SeparatorFor(const SString& text)
{
    return text.Search('\\') != STRING_NOTFOUND && text.Search('/') == STRING_NOTFOUND ? '\\' : '/';
}

PathLevels SplitLevels(const DirEntry& entry)
{
    PathLevels levels;
    levels.device = DirEntryAccess::Device(entry);
    const SString& path = DirEntryAccess::Path(entry);
    const SString& device = levels.device;
    levels.rooted = IsSeparator(path[0]) || (IsSeparator(device[0]) && IsSeparator(device[1]));
    const std::string_view text = View(path);
    size_t start = 0;
    for (size_t i = 0; i <= text.size(); ++i) {
        if (i < text.size() && !IsSeparator(text[i]))
            continue;
        if (i > start)
            levels.names.emplace_back(path, static_cast<unsigned int>(start), static_cast<unsigned int>(i - start));
        start = i + 1;
    }
    if (entry.HasName())
        levels.names.push_back(entry.GetName());
    return levels;
}

bool SameStart(const PathLevels& a, const PathLevels& b)
{
    return a.rooted == b.rooted && a.device == b.device;
}

} // namespace detail

namespace {

// The names from `first` on, joined by `sep`.
SString JoinNames(const std::vector<SString>& names, size_t first, char sep)
{
    SString text;
    for (size_t i = first; i < names.size(); ++i)
        text.AddSeparated(names[i], sep);
    return text;
}

} // namespace

unsigned int DirEntry::Level() const
{
    return static_cast<unsigned int>(SplitLevels(*this).names.size());
}

DirEntry DirEntry::operator[](unsigned int level) const
{
    PathLevels levels = SplitLevels(*this);
    return level < levels.names.size() ? DirEntry(levels.names[level]) : DirEntry();
}

DirEntry& DirEntry::operator+=(const DirEntry& entry)
{
    if (!entry.m_bValid)
        return *this;
    if (!m_bValid || entry.IsAbsolute() || SplitLevels(entry).rooted)
        return *this = entry;
    SString text = GetFull();
    const unsigned int len = text.Len();
    if (len > 0 && !IsSeparator(text[len - 1]))
        text += detail::SeparatorFor(text);
    text += entry.GetFull();
    Construct(text);
    return *this;
}

DirEntry operator+(const DirEntry& a, const DirEntry& b)
{
    DirEntry sum(a);
    sum += b;
    return sum;
}

DirEntry DirEntry::GetPath() const
{
    DirEntry dir(*this);
    dir.CutName();
    return dir;
}

DirEntry DirEntry::GetPathRelTo(const DirEntry& base) const
{
    const PathLevels mine = SplitLevels(*this);
    const PathLevels theirs = SplitLevels(base);
    if (!m_bValid || !base.m_bValid || !detail::SameStart(mine, theirs))
        return *this;
    size_t common = 0;
    while (common < mine.names.size() && common < theirs.names.size() && mine.names[common] == theirs.names[common])
        ++common;
    const char sep = detail::SeparatorFor(GetFull());
    SString text;
    for (size_t i = common; i < theirs.names.size(); ++i)
        text.AddSeparated(SString(".."), sep);
    text.AddSeparated(JoinNames(mine.names, common, sep), sep);
    return DirEntry(!text ? SString(".") : text);
}

SString DirEntry::GetParentDirName() const
{
    PathLevels levels = SplitLevels(*this);
    const size_t dirs = levels.names.size() - (HasName() ? 1 : 0);
    return dirs > 0 ? levels.names[dirs - 1] : SString();
}

bool DirEntry::Contains(const DirEntry& entry) const
{
    const PathLevels mine = SplitLevels(*this);
    const PathLevels theirs = SplitLevels(entry);
    return m_bValid && entry.m_bValid && detail::SameStart(mine, theirs) && mine.names.size() < theirs.names.size()
        && std::equal(mine.names.begin(), mine.names.end(), theirs.names.begin());
}

SString DirEntry::GetFullLimited(unsigned int maxLength) const
{
    const SString full = GetFull();
    if (full.Len() <= maxLength)
        return full;
    const PathLevels levels = SplitLevels(*this);
    const char sep = detail::SeparatorFor(full);
    SString head = m_aDevice;
    if (IsSeparator(m_aPath[0]))
        head += m_aPath[0];
    head += "...";
    head += sep;
    for (size_t first = 1; first < levels.names.size(); ++first) {
        SString shortened = head;
        shortened += JoinNames(levels.names, first, sep);
        if (shortened.Len() <= maxLength)
            return shortened;
    }
    // Not even the name fits: the end of the text behind "...".
    SString result = maxLength > 3 ? SString("...") : SString();
    unsigned int start = full.Len() - (maxLength - result.Len());
    while (full.IsUTF8() && start < full.Len() && (static_cast<unsigned char>(full[start]) & 0xC0) == 0x80)
        ++start;
    result += SString(full, start, STRING_LEN);
    return result;
}

} // namespace vesk
