#include "DockingTestUtil.hpp"

#include <vesk/frame.hpp>

#include "platform/sysinfo.hpp"
#include "support/ConfigHomeGuard.hpp"

#include <cstdlib>

using namespace vesk;
using namespace vesk::test;

namespace {

// A 2001 x 1001 screen at 144 x 120 dpi: every screen share has a fraction, so truncation
// shows.
struct WideScreen : platform::SystemInfo {
    int32_t GetResolutionX() override { return 144; }
    int32_t GetResolutionY() override { return 120; }
    platform::ScreenSize GetScreenSize() override { return {2001, 1001}; }
};

// The library started on WideScreen for a scope.
class StartedOnWideScreen {
public:
    StartedOnWideScreen() : m_pPrevious(platform::SetSystemInfo(&m_aScreen)) { VeskInit(); }
    ~StartedOnWideScreen()
    {
        VeskExit();
        platform::SetSystemInfo(m_pPrevious);
    }

private:
    ConfigHomeGuard m_aConfig;
    WideScreen m_aScreen;
    platform::SystemInfo* m_pPrevious;
};

} // namespace

TEST(DockPositionDefaults, JitterDrawnInOrderOnTruncatedScreenShares)
{
    StartedOnWideScreen started;
    std::srand(99);
    int r[6];
    for (int& n : r)
        n = std::rand();
    std::srand(99);
    DockPosition p;
    EXPECT_EQ(p.GetSize(), TamSize(r[1] % 100 + 600, r[0] % 50 + 300));
    EXPECT_EQ(p.GetRectRecentFloat(), CRectangle(r[5] % 50 + 800, r[4] % 50 + 300, r[3] % 150 + 1400, r[2] % 150 + 600));
    EXPECT_EQ(p.GetMinSize(), TamSize(90, 75));
    EXPECT_EQ(p.GetPos(), TamPoint(-1, -1));

    p.AddNeighbour("A", CBRS_ALIGN_LEFT, NCT_EQUAL_SIDE);
    p.SetMarginAlign(CBRS_ALIGN_TOP);
    p.SetIsFloating(true);
    p.SetDefaults(DOCK_ORIENT_VERT, "Only the name");
    EXPECT_EQ(p.GetName(), "Only the name");
    EXPECT_EQ(p.GetNeighbourVec().size(), 1u);
    p.SetDefaults("Tools");
    EXPECT_TRUE(p.GetNeighbourVec().empty() && p.GetMarginAlign() == 0 && !p.IsFloating());
}

TEST(DockPositionDefaults, MinimumSizeIsUnscaledWithoutLibraryState)
{
    DockPosition p;
    EXPECT_EQ(p.GetMinSize(), TamSize(60, 60));
    p.SetMinSizeScaled(33, -7);
    EXPECT_EQ(p.GetMinSize(), TamSize(33, -7));
    StartedOnWideScreen started;
    p.SetMinSizeScaled(33, -7); // 49.5 and -8.75 round away from zero
    EXPECT_EQ(p.GetMinSize(), TamSize(50, -9));
}

TEST(DockPositionCopy, CopiesKeepTheirOwnMinimumSize)
{
    DockPosition source;
    source.SetDefaults("Source");
    source.SetMinSizeScaled(70, 80);
    source.AddNeighbour("N", CBRS_ALIGN_TOP, NCT_TOUCHING_SIDE);
    source.SetIsFloating(true);
    source.SetMarginAlign(CBRS_ALIGN_BOTTOM);

    DockPosition copy(source);
    EXPECT_EQ(copy.GetMinSize(), TamSize(0, 0));
    copy.SetMinSizeScaled(70, 80);
    EXPECT_EQ(copy, source);

    DockPosition target;
    target.SetMinSizeScaled(5, 6);
    target = source;
    EXPECT_EQ(target.GetMinSize(), TamSize(5, 6));
    EXPECT_EQ(target.GetName(), "Source");
    target = *&target;
    EXPECT_EQ(target.GetNeighbourVec().size(), 1u);

    // A new docked placement forgets the neighbours and the position, nothing else.
    target.PlaceNew(DOCK_ORIENT_HORZ, TamPoint(40, 50), TamSize(300, 20));
    EXPECT_EQ(target.GetSize(), TamSize(300, 20));
    EXPECT_EQ(target.GetPos(), TamPoint(-1, -1));
    EXPECT_TRUE(target.GetNeighbourVec().empty());
    EXPECT_TRUE(target.IsFloating() && target.GetMarginAlign() == CBRS_ALIGN_BOTTOM);
    EXPECT_EQ(target.GetRectRecentFloat(), source.GetRectRecentFloat());
    EXPECT_EQ(target.GetMinSize(), TamSize(5, 6));
}

TEST(DockPositionNeighbours, EqualNamesAreOverwrittenInPlaceAndSideTextsAreExact)
{
    DockPosition p;
    p.AddNeighbour("A", CBRS_ALIGN_LEFT, NCT_TOUCHING_SIDE);
    p.AddNeighbour("B", CBRS_ALIGN_TOP, NCT_TOUCHING_SIDE);
    p.AddNeighbour("A", CBRS_ALIGN_RIGHT, NCT_EQUAL_SIDE, true, true);
    const std::vector<DockNeighbour> expected = {DockNeighbour("A", CBRS_ALIGN_RIGHT, NCT_EQUAL_SIDE, true, true),
                                                 DockNeighbour("B", CBRS_ALIGN_TOP, NCT_TOUCHING_SIDE)};
    EXPECT_EQ(p.GetNeighbourVec(), expected);

    const std::pair<const char*, uint32_t> sides[] = {{"L", CBRS_ALIGN_LEFT}, {"R", CBRS_ALIGN_RIGHT},
                                                      {"U", CBRS_ALIGN_TOP},  {"D", CBRS_ALIGN_BOTTOM},
                                                      {"l", CBRS_NOALIGN},    {"LEFT", CBRS_NOALIGN}};
    for (const auto& [side, align] : sides) {
        p.SetNeighbour("a", side, NCT_JUSTIFIED_SIDE, true);
        EXPECT_EQ(p.GetNeighbourVec().back(), DockNeighbour("a", align, NCT_JUSTIFIED_SIDE, true)) << side;
    }
    p.SetNeighbour("GFS", "D", NCT_EQUAL_SIDE);
    EXPECT_EQ(p.GetNeighbourVec().back(), DockNeighbour("GFS", CBRS_ALIGN_BOTTOM, NCT_EQUAL_SIDE, false, true));
    EXPECT_EQ(p.GetNeighbourVec().size(), 4u);
}
