#pragma once

// Helpers shared by the DirEntry sources.
#include <vesk/files/DirEntry.hpp>

#include <string_view>
#include <vector>

namespace vesk {

// Read access to the parts of an entry for the library's own code.
struct DirEntryAccess {
    static const SString& Device(const DirEntry& e) { return e.m_aDevice; }
    static const SString& Path(const DirEntry& e) { return e.m_aPath; }
};

namespace detail {

inline bool IsSeparator(char c)
{
    return c == '/' || c == '\\';
}

// The bytes of a string, embedded zeros included.
inline std::string_view View(const SString& s)
{
    return {static_cast<const char*>(s), s.Len()};
}

// The separator to put between two levels of `text`: '\' when it separates only with '\',
// else '/'.
char SeparatorFor(const SString& text);

// The levels of an entry: its device, whether its path starts at a separator (a network path
// always does), and its names outermost first (the directories of the path, then the name).
struct PathLevels {
    SString device;
    bool rooted = false;
    std::vector<SString> names;
};
PathLevels SplitLevels(const DirEntry& entry);

// Whether two entries start from the same place: same device and same rooting.
bool SameStart(const PathLevels& a, const PathLevels& b);

} // namespace detail
} // namespace vesk
