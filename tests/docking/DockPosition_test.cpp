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

TEST(DockPositionNeighbours, EditsQueriesAndCopies)
{
    DockPosition p;
    p.SetMinSizeScaled(5, 6);
    p.SetSize(TamSize(200, 30));
    p.SetMarginAlign(CBRS_ALIGN_BOTTOM);
    p.AddNeighbour("t", CBRS_ALIGN_TOP, NCT_TOUCHING_SIDE, true);
    p.SetNeighbour("GFS", "D", NCT_JUSTIFIED_SIDE);
    p.AddNeighbour("t", CBRS_ALIGN_RIGHT, NCT_TOUCHING_SIDE); // replaced in place
    p.SetNeighbour("j", "l", NCT_JUSTIFIED_SIDE);             // side texts are case-sensitive
    const std::vector<DockNeighbour> expected = {DockNeighbour("t", CBRS_ALIGN_RIGHT, NCT_TOUCHING_SIDE),
                                                 DockNeighbour("GFS", CBRS_ALIGN_BOTTOM, NCT_JUSTIFIED_SIDE, false, true),
                                                 DockNeighbour("j", CBRS_NOALIGN, NCT_JUSTIFIED_SIDE)};
    EXPECT_EQ(p.GetNeighbourVec(), expected);
    EXPECT_EQ(p.GetJustifiedNeighbour(), &p.GetNeighbourVec()[2]); // the free space does not count
    EXPECT_EQ(p.GetFreeSpaceNeighbourType(), NT_BOTTOM);
    EXPECT_EQ(p.GetAllNeighbourType(), NT_NONE);
    EXPECT_TRUE(p.HasOrthogonalSideBySideNeighbour("t", NT_LEFT) && p.HasOrthogonalSideBySideNeighbour("GFS", NeighbourType(9)));
    EXPECT_FALSE(p.HasOrthogonalSideBySideNeighbour("t", NT_TOP) || p.HasOrthogonalSideBySideNeighbour("t", NT_NONE));

    const DockPosition copy(p);
    EXPECT_EQ(copy.GetMinSize(), TamSize(0, 0));
    EXPECT_EQ(p.GetMarginSideLen(CBRS_ALIGN_TOP), 30);
    p.AddNeighbour("j", CBRS_ALIGN_TOP, NCT_NONE, true);
    EXPECT_EQ(p.GetMarginSideLen(CBRS_ALIGN_TOP), 0); // inside a holder
    p = copy;
    EXPECT_TRUE(p.GetMinSize() == TamSize(5, 6) && p.GetNeighbourVec() == expected);
    p.PlaceNew(DOCK_ORIENT_HORZ, TamPoint(40, 50), TamSize(300, 20));
    p.AddNeighbour("a", CBRS_ALIGN_TOP, NCT_EQUAL_SIDE);
    p.AddNeighbour("b", CBRS_ALIGN_LEFT, NCT_NONE); // out of contact: the sides are not mixed
    EXPECT_EQ(p.GetAllNeighbourType(), NT_TOP);

    DockPosition sides;
    for (const char* side : {"L", "R", "U", "D"})
        sides.SetNeighbour(side, side, NCT_NONE);
    const uint32_t aligns[] = {CBRS_ALIGN_LEFT, CBRS_ALIGN_RIGHT, CBRS_ALIGN_TOP, CBRS_ALIGN_BOTTOM};
    for (size_t i = 0; i < 4; ++i)
        EXPECT_EQ(sides.GetNeighbourVec()[i].GetAlign(), aligns[i]) << i;
}

TEST(DockPositionQueries, AlignedRowIsTheLargestSideWithTwoJustifiedTiesInSideOrder)
{
    auto row = [](std::initializer_list<const char*> entries) {
        DockPosition p;
        for (const char* name : entries) // side letter, then J(ustified), T(ouching) or E(qual)
            p.SetNeighbour(name, SString(name, 0, 1), NeighbourContactType(name[1] == 'J' ? 2 : name[1] == 'T' ? 1 : 3));
        std::vector<DockNeighbour> out = {DockNeighbour("unchanged")};
        uint32_t align = 1;
        p.FillAlignedNeighbours(out, align);
        SString names{int(align)};
        for (const DockNeighbour& n : out)
            names += n.GetName();
        return names;
    };
    EXPECT_EQ(row({"UJ1", "LJ1", "UJ2", "LJ2"}), "4096LJ1LJ2");
    EXPECT_EQ(row({"DJ1", "DT", "RJ1", "DJ2", "RJ2", "RE"}), "32768DJ1DTDJ2");
    EXPECT_EQ(row({"DJ1", "DJ2", "RJ1", "RJ2", "RT", "RJ3"}), "32768DJ1DJ2"); // three justified disqualify
    EXPECT_EQ(row({"DJ1", "RJ1", "XJ1", "XJ2"}), "1unchanged");
}
