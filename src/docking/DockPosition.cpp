#include <vesk/docking/DockPosition.hpp>
#include <vesk/frame/VeskData.hpp>

#include "platform/sysinfo.hpp"

#include <cstdlib>

namespace vesk {

namespace {

constexpr int32_t kDefaultMinSide = 60;

// rand() mod m plus the truncated share of a screen side.
int32_t Jitter(int32_t modulus, double share, int32_t side)
{
    const int32_t r = std::rand() % modulus;
    return r + static_cast<int32_t>(share * side);
}

} // namespace

DockPosition::DockPosition()
{
    SetDefaults(SString());
}

DockPosition::DockPosition(const DockPosition& p)
{
    Copy(p);
}

DockPosition& DockPosition::operator=(const DockPosition& p)
{
    if (this != &p)
        Copy(p);
    return *this;
}

DockPosition::~DockPosition() = default;

// The minimum size belongs to the pane, not to the placement, so copies leave it alone.
void DockPosition::Copy(const DockPosition& p)
{
    m_aSize = p.m_aSize;
    m_aPos = p.m_aPos;
    m_sName = p.m_sName;
    m_aNeighbours = p.m_aNeighbours;
    m_nMarginAlign = p.m_nMarginAlign;
    m_bFloating = p.m_bFloating;
    m_aRectRecentFloat = p.m_aRectRecentFloat;
}

void DockPosition::SetDefaults(const SString& name)
{
    m_sName = name;
    m_aNeighbours.clear();
    m_nMarginAlign = CBRS_NOALIGN;
    m_bFloating = false;

    // The jitter keeps panes without a saved placement from opening on top of each other; the
    // draws happen in this order.
    const platform::ScreenSize screen = platform::GetSystemInfo().GetScreenSize();
    m_aSize.Height() = Jitter(50, 0.3, screen.cy);
    m_aSize.Width() = Jitter(100, 0.3, screen.cx);
    SetMinSizeScaled(kDefaultMinSide, kDefaultMinSide);
    m_aRectRecentFloat.Bottom() = Jitter(150, 0.6, screen.cy);
    m_aRectRecentFloat.Right() = Jitter(150, 0.7, screen.cx);
    m_aRectRecentFloat.Top() = Jitter(50, 0.3, screen.cy);
    m_aRectRecentFloat.Left() = Jitter(50, 0.4, screen.cx);
    m_aPos = TamPoint(-1, -1);
}

void DockPosition::SetDefaults(DockOrientation, const SString& name)
{
    m_sName = name;
}

void DockPosition::PlaceNew(DockOrientation orientation, const TamPoint&, const TamSize& size)
{
    PlaceNew(orientation, size);
}

void DockPosition::PlaceNew(DockOrientation, const TamSize& size)
{
    m_aSize = size;
    m_aPos = TamPoint(-1, -1);
    m_aNeighbours.clear();
}

void DockPosition::SetMinSizeScaled(int32_t cx, int32_t cy)
{
    const VeskData* data = GetPVeskData();
    m_aMinSize = data ? TamSize(data->ScaleX(cx), data->ScaleY(cy)) : TamSize(cx, cy);
}

void DockPosition::AddNeighbour(const SString& name, uint32_t align, NeighbourContactType contact, bool holder,
                                bool freeSpace)
{
    const DockNeighbour neighbour(name, align, contact, holder, freeSpace);
    const size_t index = IndexOfNeighbour(name);
    if (index < m_aNeighbours.size())
        m_aNeighbours[index] = neighbour;
    else
        m_aNeighbours.push_back(neighbour);
}

void DockPosition::SetNeighbour(const SString& name, const SString& side, NeighbourContactType contact, bool holder)
{
    // Layout descriptions use upper-case letters only; "l" is no side.
    uint32_t align = CBRS_NOALIGN;
    if (side == "L")
        align = CBRS_ALIGN_LEFT;
    else if (side == "R")
        align = CBRS_ALIGN_RIGHT;
    else if (side == "U")
        align = CBRS_ALIGN_TOP;
    else if (side == "D")
        align = CBRS_ALIGN_BOTTOM;
    AddNeighbour(name, align, contact, holder, name == "GFS");
}

bool DockPosition::operator==(const DockPosition& p) const
{
    return m_aMinSize == p.m_aMinSize && m_aSize == p.m_aSize && m_sName == p.m_sName &&
           m_aNeighbours == p.m_aNeighbours && m_nMarginAlign == p.m_nMarginAlign && m_bFloating == p.m_bFloating &&
           m_aRectRecentFloat == p.m_aRectRecentFloat && m_aPos == p.m_aPos;
}

size_t DockPosition::IndexOfNeighbour(const SString& name) const
{
    size_t i = 0;
    while (i < m_aNeighbours.size() && !(m_aNeighbours[i].GetName() == name))
        ++i;
    return i;
}

} // namespace vesk
