#pragma once

// Helpers shared by the layout-tree sources.
#include <vesk/docking/DockElement.hpp>

#include <cstdint>

namespace vesk {

// Window-rectangle extents (right = left + width), in 64 bits so that empty markers cannot
// overflow.
inline int64_t RectWidth(const CRectangle& r)
{
    return int64_t(r.Right()) - r.Left();
}
inline int64_t RectHeight(const CRectangle& r)
{
    return int64_t(r.Bottom()) - r.Top();
}

// Whether `name` is wanted (any name when `wanted` is empty) and not done yet.
inline bool IsWantedName(const DockNameSet& wanted, const DockNameSet& done, const SString& name)
{
    return (wanted.empty() || wanted.count(name) != 0) && done.count(name) == 0;
}

} // namespace vesk
