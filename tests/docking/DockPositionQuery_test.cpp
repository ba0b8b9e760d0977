#include "DockingTestUtil.hpp"

using namespace vesk;
using namespace vesk::test;

namespace {

SString NameOf(const DockNeighbour* n)
{
    return n ? n->GetName() : SString("(none)");
}

} // namespace

TEST(DockPositionQueries, FirstMatchesSkipHoldersAndFreeSpace)
{
    DockPosition p;
    EXPECT_EQ(p.GetFreeSpaceNeighbourType(), NT_RIGHT);
    EXPECT_EQ(p.GetAllNeighbourType(), NT_RIGHT);
    p.AddNeighbour("holder", CBRS_ALIGN_LEFT, NCT_TOUCHING_SIDE, true);
    p.AddNeighbour("GFS", CBRS_ALIGN_TOP, NCT_JUSTIFIED_SIDE, false, true);
    p.AddNeighbour("t", CBRS_ALIGN_RIGHT, NCT_TOUCHING_SIDE);
    p.AddNeighbour("j", CBRS_ALIGN_BOTTOM, NCT_JUSTIFIED_SIDE);
    p.AddNeighbour("e", CBRS_ALIGN_BOTTOM, NCT_EQUAL_SIDE);
    EXPECT_EQ(NameOf(p.GetHolderNeighbour()), "holder");
    EXPECT_EQ(NameOf(p.GetTouchingNeighbour()), "t");
    EXPECT_EQ(NameOf(p.GetJustifiedNeighbour()), "j");
    EXPECT_EQ(NameOf(p.GetSideBySideNeighbour()), "e");
    EXPECT_EQ(NameOf(p.GetFreeSpaceDockNeighbour(NCT_JUSTIFIED_SIDE)), "GFS");
    EXPECT_EQ(p.GetFreeSpaceDockNeighbour(NCT_EQUAL_SIDE), nullptr);
    EXPECT_FALSE(p.IsFreeSpaceDock());
    EXPECT_EQ(p.GetFreeSpaceNeighbourType(), NT_TOP);
    EXPECT_EQ(p.GetAllNeighbourType(), NT_NONE);

    EXPECT_TRUE(p.IsLeftOf("t") && p.IsTopOf("j"));
    EXPECT_FALSE(p.IsLeftOf("j") || p.IsTopOf("t") || p.IsTopOf("J"));
    // Left/right types ask for a neighbour on the left or right, the others for top or bottom.
    EXPECT_TRUE(p.HasOrthogonalSideBySideNeighbour("t", NT_LEFT));
    EXPECT_FALSE(p.HasOrthogonalSideBySideNeighbour("t", NT_BOTTOM));
    EXPECT_TRUE(p.HasOrthogonalSideBySideNeighbour("j", NeighbourType(9)));
    EXPECT_FALSE(p.HasOrthogonalSideBySideNeighbour("j", NT_NONE));
    EXPECT_FALSE(p.HasOrthogonalSideBySideNeighbour("x", NT_TOP));
}

TEST(DockPositionQueries, SideTypesAndLengths)
{
    DockPosition p;
    p.SetSize(TamSize(200, 30));
    p.AddNeighbour("a", CBRS_ALIGN_TOP, NCT_TOUCHING_SIDE);
    p.AddNeighbour("b", CBRS_ALIGN_LEFT, NCT_NONE); // out of contact: the sides are not mixed
    EXPECT_EQ(p.GetAllNeighbourType(), NT_TOP);
    p.AddNeighbour("GFS", CBRS_ALIGN_ANY, NCT_EQUAL_SIDE, false, true);
    EXPECT_EQ(p.GetAllNeighbourType(), NT_NONE);
    EXPECT_EQ(p.GetFreeSpaceNeighbourType(), NT_RIGHT);
    EXPECT_TRUE(p.IsFreeSpaceDock());

    EXPECT_EQ(p.GetAlignSideLen(), 200);
    EXPECT_FALSE(p.IsMarginDock());
    EXPECT_EQ(p.GetMarginSideLen(CBRS_ALIGN_TOP), 0);
    p.SetMarginAlign(CBRS_ALIGN_BOTTOM);
    EXPECT_TRUE(p.IsMarginDock());
    EXPECT_EQ(p.GetAlignSideLen(), 30);
    EXPECT_EQ(p.GetMarginSideLen(CBRS_ALIGN_TOP), 30);
    EXPECT_EQ(p.GetMarginSideLen(CBRS_ALIGN_RIGHT), 200);
    p.AddNeighbour("b", CBRS_ALIGN_LEFT, NCT_NONE, true); // inside a holder
    EXPECT_FALSE(p.IsMarginDock());
    EXPECT_EQ(p.GetMarginSideLen(CBRS_ALIGN_TOP), 0);
}

TEST(DockPositionAligned, LargestSideWithTwoJustifiedWinsTiesInSideOrder)
{
    auto fill = [](std::initializer_list<DockNeighbour> neighbours) {
        DockPosition p;
        for (const DockNeighbour& n : neighbours)
            p.AddNeighbour(n.GetName(), n.GetAlign(), n.GetContact(), n.IsHolder(), n.IsFreeSpace());
        std::vector<DockNeighbour> out = {DockNeighbour("untouched")};
        uint32_t align = 1;
        p.FillAlignedNeighbours(out, align);
        SString names;
        for (const DockNeighbour& n : out)
            names += n.GetName();
        return std::make_pair(names, align);
    };
    const DockNeighbour b1("b1", CBRS_ALIGN_BOTTOM, NCT_JUSTIFIED_SIDE), b2("b2", CBRS_ALIGN_BOTTOM, NCT_JUSTIFIED_SIDE);
    const DockNeighbour r1("r1", CBRS_ALIGN_RIGHT, NCT_JUSTIFIED_SIDE), r2("r2", CBRS_ALIGN_RIGHT, NCT_JUSTIFIED_SIDE);
    const DockNeighbour bt("bt", CBRS_ALIGN_BOTTOM, NCT_TOUCHING_SIDE), be("be", CBRS_ALIGN_BOTTOM, NCT_EQUAL_SIDE);
    const DockNeighbour r3("r3", CBRS_ALIGN_RIGHT, NCT_JUSTIFIED_SIDE);
    using Result = std::pair<SString, uint32_t>;
    EXPECT_EQ(fill({b1, r1, b2, r2}), Result("r1r2", CBRS_ALIGN_RIGHT));
    EXPECT_EQ(fill({b1, bt, r1, b2, r2}), Result("b1btb2", CBRS_ALIGN_BOTTOM));
    // Equal-side contacts are left out; three justified neighbours disqualify a side.
    EXPECT_EQ(fill({b1, be, r1, b2, r2}), Result("r1r2", CBRS_ALIGN_RIGHT));
    EXPECT_EQ(fill({b1, b2, r1, r2, r3}), Result("b1b2", CBRS_ALIGN_BOTTOM));
    EXPECT_EQ(fill({b1, r1, DockNeighbour("any", CBRS_ALIGN_ANY, NCT_JUSTIFIED_SIDE)}), Result("untouched", 1));
    EXPECT_EQ(fill({DockNeighbour("t1", CBRS_ALIGN_TOP, NCT_JUSTIFIED_SIDE),
                    DockNeighbour("l1", CBRS_ALIGN_LEFT, NCT_JUSTIFIED_SIDE),
                    DockNeighbour("t2", CBRS_ALIGN_TOP, NCT_JUSTIFIED_SIDE),
                    DockNeighbour("l2", CBRS_ALIGN_LEFT, NCT_JUSTIFIED_SIDE)}),
              Result("l1l2", CBRS_ALIGN_LEFT));
}
