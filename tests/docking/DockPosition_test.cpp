#include "DockingTestUtil.hpp"

#include <vesk/frame.hpp>

#include "platform/sysinfo.hpp"
#include "support/ConfigHomeGuard.hpp"

#include <cstdlib>

using namespace vesk;

namespace {

// A 2001 x 1001 screen at 144 x 120 dpi: every screen share has a fraction, so truncation shows.
struct WideScreen : platform::SystemInfo {
    int32_t GetResolutionX() override { return 144; }
    int32_t GetResolutionY() override { return 120; }
    platform::ScreenSize GetScreenSize() override { return {2001, 1001}; }
};

SString NameOf(const DockNeighbour* n)
{
    return n ? n->GetName() : SString("-");
}

} // namespace

TEST(DockPositionDefaults, JitterDrawnInOrderOnTruncatedScreenShares)
{
    test::ConfigHomeGuard config;
    WideScreen screen;
    platform::SystemInfo* previous = platform::SetSystemInfo(&screen);
    EXPECT_EQ(DockPosition().GetMinSize(), TamSize(60, 60)); // unscaled without library state
    VeskInit();
    std::srand(99);
    int r[6];
    for (int& n : r)
        n = std::rand();
    std::srand(99);
    const DockPosition p;
    VeskExit();
    platform::SetSystemInfo(previous);
    EXPECT_EQ(p.GetSize(), TamSize(r[1] % 100 + 600, r[0] % 50 + 300));
    EXPECT_EQ(p.GetRectRecentFloat(), CRectangle(r[5] % 50 + 800, r[4] % 50 + 300, r[3] % 150 + 1400, r[2] % 150 + 600));
    EXPECT_EQ(p.GetMinSize(), TamSize(90, 75));
    EXPECT_EQ(p.GetPos(), TamPoint(-1, -1));
}

TEST(DockPositionEditing, CopiesKeepTheirMinimumSizeAndNeighboursAreReplacedInPlace)
{
    DockPosition source;
    source.AddNeighbour("A", CBRS_ALIGN_LEFT, NCT_TOUCHING_SIDE);
    source.SetNeighbour("GFS", "D", NCT_EQUAL_SIDE);
    source.SetNeighbour("A", "l", NCT_JUSTIFIED_SIDE, true); // side texts are case-sensitive
    const std::vector<DockNeighbour> expected = {DockNeighbour("A", CBRS_NOALIGN, NCT_JUSTIFIED_SIDE, true),
                                                 DockNeighbour("GFS", CBRS_ALIGN_BOTTOM, NCT_EQUAL_SIDE, false, true)};
    EXPECT_EQ(source.GetNeighbourVec(), expected);
    EXPECT_EQ(DockPosition(source).GetMinSize(), TamSize(0, 0));
    DockPosition target;
    target.SetMinSizeScaled(5, 6);
    target = source;
    EXPECT_EQ(target.GetMinSize(), TamSize(5, 6));
    EXPECT_EQ(target.GetNeighbourVec(), expected);
    target.SetMarginAlign(CBRS_ALIGN_TOP);
    target.PlaceNew(DOCK_ORIENT_HORZ, TamPoint(40, 50), TamSize(300, 20));
    EXPECT_TRUE(target.GetNeighbourVec().empty() && target.GetPos() == TamPoint(-1, -1));
    EXPECT_TRUE(target.GetSize() == TamSize(300, 20) && target.GetMarginAlign() == CBRS_ALIGN_TOP);
}

TEST(DockPositionQueries, FirstMatchesSidesAndLengths)
{
    DockPosition p;
    p.SetSize(TamSize(200, 30));
    p.AddNeighbour("h", CBRS_ALIGN_TOP, NCT_TOUCHING_SIDE, true);
    p.AddNeighbour("GFS", CBRS_ALIGN_ANY, NCT_JUSTIFIED_SIDE, false, true);
    p.AddNeighbour("t", CBRS_ALIGN_RIGHT, NCT_TOUCHING_SIDE);
    p.AddNeighbour("j", CBRS_ALIGN_BOTTOM, NCT_JUSTIFIED_SIDE);
    EXPECT_EQ(NameOf(p.GetTouchingNeighbour()), "t"); // holders and free space do not count
    EXPECT_EQ(NameOf(p.GetJustifiedNeighbour()), "j");
    EXPECT_EQ(NameOf(p.GetFreeSpaceDockNeighbour(NCT_JUSTIFIED_SIDE)), "GFS");
    EXPECT_EQ(NameOf(p.GetSideBySideNeighbour()), "-");
    EXPECT_FALSE(p.IsFreeSpaceDock());
    EXPECT_EQ(p.GetFreeSpaceNeighbourType(), NT_RIGHT);
    EXPECT_EQ(p.GetAllNeighbourType(), NT_NONE);
    EXPECT_TRUE(p.IsLeftOf("t") && p.IsTopOf("j") && !p.IsTopOf("t"));
    EXPECT_TRUE(p.HasOrthogonalSideBySideNeighbour("t", NT_LEFT) && p.HasOrthogonalSideBySideNeighbour("j", NeighbourType(9)));
    EXPECT_FALSE(p.HasOrthogonalSideBySideNeighbour("t", NT_TOP) || p.HasOrthogonalSideBySideNeighbour("j", NT_NONE));

    p.SetMarginAlign(CBRS_ALIGN_BOTTOM);
    EXPECT_EQ(p.GetAlignSideLen(), 30);
    EXPECT_EQ(p.GetMarginSideLen(CBRS_ALIGN_LEFT), 0); // inside a holder
    p.AddNeighbour("h", CBRS_ALIGN_TOP, NCT_NONE);
    EXPECT_EQ(p.GetMarginSideLen(CBRS_ALIGN_LEFT), 200);
    EXPECT_EQ(p.GetAllNeighbourType(), NT_NONE);
    p.ClearNeighbours();
    p.AddNeighbour("a", CBRS_ALIGN_TOP, NCT_EQUAL_SIDE);
    p.AddNeighbour("b", CBRS_ALIGN_LEFT, NCT_NONE); // out of contact: the sides are not mixed
    EXPECT_EQ(p.GetAllNeighbourType(), NT_TOP);
}

TEST(DockPositionQueries, AlignedRowIsTheLargestSideWithTwoJustifiedTiesInSideOrder)
{
    auto row = [](std::initializer_list<const char*> entries) {
        DockPosition p;
        for (const char* name : entries) // side letter, then J(ustified), T(ouching) or E(qual)
            p.SetNeighbour(name, SString(name, 0, 1), name[1] == 'J' ? NCT_JUSTIFIED_SIDE
                                                        : name[1] == 'T' ? NCT_TOUCHING_SIDE : NCT_EQUAL_SIDE);
        std::vector<DockNeighbour> out = {DockNeighbour("unchanged")};
        uint32_t align = 1;
        p.FillAlignedNeighbours(out, align);
        SString names;
        for (const DockNeighbour& n : out) {
            names += n.GetName();
            names += ' ';
        }
        names += align;
        return names;
    };
    EXPECT_EQ(row({"DJ1", "RJ1", "DJ2", "RJ2"}), "RJ1 RJ2 16384");
    EXPECT_EQ(row({"UJ1", "LJ1", "UJ2", "LJ2"}), "LJ1 LJ2 4096");
    EXPECT_EQ(row({"DJ1", "DT", "RJ1", "DJ2", "RJ2"}), "DJ1 DT DJ2 32768");
    EXPECT_EQ(row({"DJ1", "DE", "RJ1", "DJ2", "RJ2", "DE2"}), "RJ1 RJ2 16384"); // equal sides are left out
    EXPECT_EQ(row({"DJ1", "DJ2", "RJ1", "RJ2", "RJ3"}), "DJ1 DJ2 32768");         // three justified disqualify
    EXPECT_EQ(row({"DJ1", "RJ1", "XJ1", "XJ2"}), "unchanged 1");
}
