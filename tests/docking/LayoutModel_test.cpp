// The pure layout model: 10,000 seeded random layouts checked at 20 frame sizes, and the edits.
#include "models/layout_random.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace vesk;

namespace {

constexpr int kLayouts = layout_random::Count(10000);

const TamSize kFrames[20] = {{0, 0},       {1, 1},       {7, 5},       {40, 30},     {100, 80},
                             {160, 120},   {200, 500},   {320, 240},   {500, 200},   {640, 480},
                             {800, 600},   {1024, 768},  {1280, 720},  {1366, 768},  {1600, 900},
                             {1920, 1080}, {2560, 1440}, {3000, 400},  {400, 3000},  {3840, 2160}};

bool Overlap(const LayoutRect& a, const LayoutRect& b)
{
    return a.x < b.x + b.cx && b.x < a.x + a.cx && a.y < b.y + b.cy && b.y < a.y + a.cy;
}

// Panes, dividers and the free space tile the client area: each lies inside it, no two share a
// pixel and their areas add up to the client's. Empty string when they do.
std::string TilingFault(const LayoutSolution& s)
{
    std::vector<LayoutRect> parts{s.freeSpace};
    for (const LayoutPaneRect& p : s.panes)
        parts.push_back(p.rect);
    for (const LayoutDivider& d : s.dividers)
        parts.push_back(d.rect);
    int64_t area = 0;
    for (size_t i = 0; i < parts.size(); ++i) {
        const LayoutRect& r = parts[i];
        if (r.cx < 0 || r.cy < 0 || r.x < 0 || r.y < 0 || r.x + r.cx > s.client.cx || r.y + r.cy > s.client.cy)
            return "part " + std::to_string(i) + " outside the client area";
        area += r.Area();
        for (size_t j = 0; j < i; ++j) {
            if (Overlap(r, parts[j]))
                return "parts " + std::to_string(j) + " and " + std::to_string(i) + " overlap";
        }
    }
    return area == s.client.Area() ? "" : "gap of " + std::to_string(s.client.Area() - area) + " pixels";
}

// The first pane smaller than its minimum size at the solution's resolution, or "".
std::string MinimumFault(const LayoutSolution& s)
{
    for (const LayoutPaneRect& p : s.panes) {
        const TamSize& min = p.pPane->GetMinSize();
        if (p.rect.cx < LayoutScale(min.Width(), s.nDpi) || p.rect.cy < LayoutScale(min.Height(), s.nDpi))
            return std::string(p.pPane->GetName()) + " below its minimum";
    }
    return "";
}

struct Tally {
    int solved = 0;
    int minimumsChecked = 0;
    // The smallest client size that keeps every minimum of the layout being checked.
    TamSize minClient;
};

// Every property at one frame size; the model's frame is left at `frame`.
void CheckAt(LayoutModel& model, const TamSize& frame, int seed, Tally& tally)
{
    model.SetFrame(frame, 96);
    const LayoutSolution& s = model.GetSolution();
    ++tally.solved;
    ASSERT_EQ(TilingFault(s), "") << "seed " << seed << " at " << frame.Width() << 'x' << frame.Height();
    if (frame.Width() >= tally.minClient.Width() && frame.Height() >= tally.minClient.Height()) {
        ++tally.minimumsChecked;
        ASSERT_EQ(MinimumFault(s), "") << "seed " << seed << " at " << frame.Width() << 'x' << frame.Height();
    }
}

} // namespace

TEST(LayoutModelRandom, TilesKeepsMinimumsAndRoundTripsExactly)
{
    Tally tally;
    for (int seed = 0; seed < kLayouts; ++seed) {
        std::mt19937 rng{uint32_t(seed)};
        LayoutModel model(TamSize(1280, 960), 96);
        const int panes = 3 + int(rng() % 10);
        layout_random::Build(model, rng, panes);
        ASSERT_EQ(model.GetPaneCount(), size_t(panes));

        model.SetFrame(kFrames[11], 96);
        const LayoutSolution reference = model.GetSolution();
        tally.minClient = model.GetMinClientSize(96);
        for (const TamSize& frame : kFrames)
            CheckAt(model, frame, seed, tally);
        // Resizing through every size, and a change of resolution, come back to the pixel.
        model.SetFrame(TamSize(1536, 1152), 120);
        ASSERT_EQ(TilingFault(model.GetSolution()), "");
        model.SetFrame(kFrames[11], 96);
        ASSERT_EQ(model.GetSolution(), reference) << "seed " << seed;

        // Docking a pane and undocking it again restores everything else.
        const std::string target = layout_random::PaneName(int(rng() % uint32_t(panes)));
        ASSERT_TRUE(model.DockIntoPane("Extra", target.c_str(), layout_random::RandomEdge(rng), int32_t(rng() % 300),
                                       layout_random::RandomMin(rng)));
        tally.minClient = model.GetMinClientSize(96);
        CheckAt(model, kFrames[11], seed, tally);
        ASSERT_TRUE(model.Remove("Extra"));
        ASSERT_EQ(model.GetSolution(), reference) << "seed " << seed;
        ASSERT_TRUE(model.AddBand(layout_random::RandomEdge(rng), "Band", int32_t(rng() % 400),
                                  layout_random::RandomMin(rng), rng() % 2 == 0));
        tally.minClient = model.GetMinClientSize(96);
        CheckAt(model, kFrames[11], seed, tally);
        ASSERT_TRUE(model.Remove("Band"));
        ASSERT_EQ(model.GetSolution(), reference) << "seed " << seed;

        // A divider dragged anywhere keeps every minimum that fits.
        tally.minClient = model.GetMinClientSize(96);
        const size_t divider = rng() % model.GetSolution().dividers.size();
        ASSERT_TRUE(model.MoveDivider(divider, int32_t(rng() % 1100) - 50));
        CheckAt(model, kFrames[11], seed, tally);
    }
    EXPECT_EQ(tally.solved, kLayouts * 23);
    // Most layouts fit most frames; the minimum check must not have been vacuous.
    EXPECT_GT(tally.minimumsChecked, tally.solved / 2);
    std::printf("layouts %d, solutions checked %d, with minimums kept %d\n", kLayouts, tally.solved,
                tally.minimumsChecked);
}

TEST(LayoutModel, BandsAreCutOutermostFirst)
{
    LayoutModel model(TamSize(1000, 800), 96);
    ASSERT_TRUE(model.AddBand(LayoutEdge::Left, "Files", 200, TamSize(), false));
    ASSERT_TRUE(model.AddBand(LayoutEdge::Bottom, "Output", 100, TamSize(), false));
    ASSERT_TRUE(model.AddBand(LayoutEdge::Top, "Tools", 50, TamSize(), true));
    const LayoutSolution& s = model.GetSolution();
    // Tools is outermost: it spans the full width; Files then the remaining height; Output is
    // next to the free space.
    ASSERT_EQ(s.panes.size(), 3u);
    EXPECT_EQ(s.panes[0].rect, (LayoutRect{0, 0, 1000, 50}));
    EXPECT_EQ(s.panes[1].rect, (LayoutRect{0, 55, 200, 745}));
    EXPECT_EQ(s.panes[2].rect, (LayoutRect{205, 700, 795, 100}));
    EXPECT_EQ(s.freeSpace, (LayoutRect{205, 55, 795, 640}));
    EXPECT_EQ(model.FindPane("Files")->GetScreenRect(), CRectangle(0, 55, 200, 800));
}

TEST(LayoutModel, SplitsShareTheirRoomAndDividersMoveWithinMinimums)
{
    LayoutModel model(TamSize(1000, 800), 96);
    model.AddBand(LayoutEdge::Left, "A", 300, TamSize(50, 50), false);
    ASSERT_TRUE(model.DockIntoPane("B", "A", LayoutEdge::Bottom, 300, TamSize(50, 100)));
    EXPECT_EQ(model.FindPane("A")->GetScreenRect(), CRectangle(0, 0, 300, 495));
    EXPECT_EQ(model.FindPane("B")->GetScreenRect(), CRectangle(0, 500, 300, 800));
    // The split's divider is the second one (after the band's).
    const LayoutDivider d = model.GetSolution().dividers[1];
    EXPECT_EQ(d.rect, (LayoutRect{0, 495, 300, 5}));
    EXPECT_EQ(d.nLow, 50);
    EXPECT_EQ(d.nHigh, 695);
    ASSERT_TRUE(model.MoveDivider(1, 790));
    EXPECT_EQ(model.FindPane("B")->GetScreenRect(), CRectangle(0, 700, 300, 800));
    ASSERT_TRUE(model.SetExtent("A", 10));
    EXPECT_EQ(model.FindPane("A")->GetScreenRect(), CRectangle(0, 0, 300, 50));
    ASSERT_TRUE(model.SetExtent("B", 5000));
    EXPECT_EQ(model.FindPane("B")->GetScreenRect(), CRectangle(0, 55, 300, 800));
    // A band's extent is its thickness, clamped to what the frame leaves.
    model.Remove("B");
    ASSERT_TRUE(model.SetExtent("A", 5000));
    EXPECT_EQ(model.FindPane("A")->GetScreenRect(), CRectangle(0, 0, 995, 800));
    EXPECT_FALSE(model.MoveDivider(2, 0));
    EXPECT_FALSE(model.SetExtent("Nobody", 10));
}

TEST(LayoutModel, ResolutionScalesThicknessesMinimumsAndDividers)
{
    LayoutModel model(TamSize(1000, 800), 96);
    model.AddBand(LayoutEdge::Right, "A", 200, TamSize(0, 0), false);
    model.DockIntoPane("B", "A", LayoutEdge::Top, 0, TamSize(0, 0));
    model.SetFrame(TamSize(1500, 1200), 144);
    const LayoutSolution& s = model.GetSolution();
    // The split keeps its ratio 397 : 398 of the room less the 8-pixel divider.
    EXPECT_EQ(s.panes[0].rect, (LayoutRect{1200, 0, 300, 595}));
    EXPECT_EQ(s.panes[1].rect, (LayoutRect{1200, 603, 300, 597}));
    EXPECT_EQ(s.dividers[0].rect, (LayoutRect{1192, 0, 8, 1200}));
}

TEST(LayoutModel, BadInputIsRefusedOrContained)
{
    LayoutModel model(TamSize(300, 200), 96);
    ASSERT_TRUE(model.AddBand(LayoutEdge::Left, "A", 100, TamSize(400, 500), false));
    // Duplicate and empty names, unknown targets.
    EXPECT_FALSE(model.AddBand(LayoutEdge::Top, "A", 100, TamSize(), false));
    EXPECT_FALSE(model.AddBand(LayoutEdge::Top, "", 100, TamSize(), false));
    EXPECT_FALSE(model.DockIntoPane("A", "A", LayoutEdge::Top, 10, TamSize()));
    EXPECT_FALSE(model.DockIntoPane("C", "Nobody", LayoutEdge::Top, 10, TamSize()));
    EXPECT_FALSE(model.Remove("Nobody"));
    ASSERT_TRUE(model.DockIntoPane("B", "A", LayoutEdge::Right, 50, TamSize(INT32_MAX, -7)));
    // Minimums larger than the frame: everything still tiles the client area.
    EXPECT_EQ(TilingFault(model.GetSolution()), "");
    const LayoutSolution before = model.GetSolution();
    model.SetFrame(TamSize(0, 0), 96);
    EXPECT_EQ(TilingFault(model.GetSolution()), "");
    model.SetFrame(TamSize(-5, -5), -1);
    EXPECT_EQ(TilingFault(model.GetSolution()), "");
    model.SetFrame(TamSize(300, 200), 96);
    EXPECT_EQ(model.GetSolution(), before);
    EXPECT_EQ(model.GetPaneCount(), 2u);
}

TEST(LayoutModel, MinimumsThatDoNotFitShareTheRoomInProportion)
{
    LayoutModel model(TamSize(200, 100), 96);
    model.AddBand(LayoutEdge::Left, "A", 200, TamSize(300, 0), false);
    model.DockIntoPane("B", "A", LayoutEdge::Right, 50, TamSize(100, 0));
    // The band takes all it may (195); its 190 pixels of room go 300 : 100.
    const LayoutSolution& s = model.GetSolution();
    EXPECT_EQ(s.panes[0].rect, (LayoutRect{0, 0, 143, 100}));
    EXPECT_EQ(s.panes[1].rect, (LayoutRect{148, 0, 47, 100}));
    EXPECT_EQ(s.freeSpace, (LayoutRect{200, 0, 0, 100}));
    EXPECT_EQ(s.dividers[1].nLow, s.dividers[1].nHigh);
}
