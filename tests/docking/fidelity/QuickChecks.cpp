// The simulator's quick run under CTest: a few dozen seeds per operation against the hard
// invariants and the goals this code meets, and the metrics and goals on hand-made records.
#include "Report.hpp"

#include "support/ConfigHomeGuard.hpp"
#include "window/WindowFixture.hpp"

namespace vesk::fidelity {
namespace {

// Seeds per operation: enough to meet every kind of layout, few enough for sanitizer builds
// (saving writes the settings file, chains run 50 cycles each).
int32_t QuickSeeds(OpKind kind)
{
    switch (kind) {
    case OpKind::SaveLoad: return 8;
    case OpKind::Chain: return 6;
    case OpKind::Resize:
    case OpKind::Dpi:
    case OpKind::DividerDrag: return 16;
    default: return 32;
    }
}

// Shows that an operation did what it is there for, beyond running at all.
int32_t Exercised(const OpSummary& m)
{
    switch (m.kind) {
    case OpKind::SaveLoad: return m.layoutValues;
    case OpKind::MonitorRemoval: return m.frames;
    case OpKind::Chain: return m.cleanChains;
    default: return m.runs;
    }
}

class FidelityQuick : public test::WindowTest, public ::testing::WithParamInterface<OpKind> {
protected:
    test::ConfigHomeGuard config; // saved layouts go to a temporary settings store
};

// Every goal of the report holds on the quick seeds of one operation: no overlaps, losses or
// broken minimum sizes in any state passed through, exact round trips for resize, DPI, divider
// drags and save/load, and the return shares for hide/show and float/redock.
TEST_P(FidelityQuick, GoalsHold)
{
    const OpKind kind = GetParam();
    const Summaries s = Summarise(RunSeeds(kind, 1, QuickSeeds(kind)));
    const OpSummary& m = s[static_cast<size_t>(kind)];
    EXPECT_GT(m.runs, 0);
    EXPECT_GT(Exercised(m), 0);
    for (const Goal& g : EvaluateGoals(s))
        EXPECT_TRUE(g.met) << g.name << ": " << g.measured;
    if (kind == OpKind::HideShow || kind == OpKind::FloatRedock) {
        int32_t placed = 0;
        for (size_t k = 1; k < kStepCount; ++k)
            placed += m.steps[k];
        EXPECT_EQ(placed, m.runs); // every return went through the placement rules
    }
}

INSTANTIATE_TEST_SUITE_P(Operations, FidelityQuick,
                         ::testing::Values(OpKind::HideShow, OpKind::FloatRedock, OpKind::SaveLoad, OpKind::Resize,
                                           OpKind::Dpi, OpKind::MonitorRemoval, OpKind::DividerDrag, OpKind::Chain),
                         [](const ::testing::TestParamInfo<OpKind>& info) { return std::string(OpName(info.param)); });

// The metrics the goals rest on, on snapshots made by hand: each must see its fault, at its
// boundary, or the quick checks would pass on anything.
PaneShot Shot(const char* name, PaneState state, CRectangle rect, TamSize min = TamSize(40, 40))
{
    return PaneShot{name, state, rect, min};
}

TEST(FidelityMetrics, EachMetricSeesItsFault)
{
    const Snapshot before{Shot("a", PaneState::Docked, CRectangle(0, 0, 100, 100)),
                          Shot("b", PaneState::Docked, CRectangle(104, 0, 200, 100), TamSize(64, 60)),
                          Shot("f", PaneState::Floating, CRectangle(0, 0, 200, 100)),
                          Shot("h", PaneState::Hidden, CRectangle())};
    Snapshot after = before;
    after[1].rect = CRectangle(105, 0, 200, 103);
    after[3] = Shot("h", PaneState::Docked, CRectangle(0, 100, 10, 110)); // hidden before: not compared
    Comparison c = Compare(before, after);
    EXPECT_EQ(c.displacements, (std::vector<int32_t>{0, 3, 0}));
    EXPECT_FALSE(c.allWithin1);
    after[0].state = PaneState::Floating;
    EXPECT_EQ(Compare(before, after).maxDisplacement, kStateChanged);
    EXPECT_EQ(PaneDisplacement(before, Snapshot{}, "b"), kStateChanged);

    // Touching panes and a bar between them share nothing; one pixel more does.
    EXPECT_EQ(CountOverlaps(before, {CRectangle(100, 0, 104, 100)}), 0);
    EXPECT_EQ(CountOverlaps(before, {CRectangle(99, 0, 105, 100)}), 2);
    after = before;
    after[1].rect = CRectangle(99, 99, 200, 200);
    EXPECT_EQ(CountOverlaps(after), 1);
    // 96 px wide holds a minimum of 64 at 144 DPI, not at 150.
    EXPECT_EQ(CountMinBroken(before, 144), 0);
    EXPECT_EQ(CountMinBroken(before, 150), 1);

    // A floating pane is lost unless 64 x 24 px (or all of a shorter side) show on a screen.
    const std::vector<CRectangle> screens{CRectangle(0, 0, 1920, 1080)};
    const std::pair<CRectangle, int32_t> floats[] = {
        {CRectangle(1856, 1056, 2056, 1156), 0}, {CRectangle(1857, 1056, 2057, 1156), 1},
        {CRectangle(1856, 1057, 2056, 1157), 1}, {CRectangle(1880, 0, 1920, 100), 0},
        {CRectangle(1881, 0, 1921, 100), 1},
    };
    for (const auto& [rect, lost] : floats) {
        after = before;
        after[2].rect = rect;
        EXPECT_EQ(CountLost(before, after, screens, TamSize(64, 24)), lost) << rect.Left() << "," << rect.Top();
    }
    after = before;
    after[0].state = PaneState::Hidden;
    EXPECT_EQ(CountLost(before, after, screens, TamSize(64, 24)), 1);
}

// The goals decide the quick checks: each must fail when its measure falls short.
TEST(FidelityMetrics, GoalsFollowTheSummaries)
{
    std::vector<OpRecord> records(2);
    for (OpRecord& r : records) {
        r.ran = r.hasPane = true;
        r.steps[static_cast<size_t>(DockPlacementStep::Holder)] = 49;
    }
    records[0].paneClass = PaneClass::FillsBand;
    records[0].paneDisplacement = 1; // within 1 px
    records[1].paneDisplacement = 2; // beside a split, missed
    records[1].all.allWithin1 = false;
    auto met = [&records](const std::string& start) {
        for (const Goal& g : EvaluateGoals(Summarise(records))) {
            if (g.name.rfind(start, 0) == 0)
                return g.met;
        }
        ADD_FAILURE() << "no goal " << start;
        return false;
    };
    EXPECT_TRUE(met("hide_show: pane within 1 px, sibling"));
    EXPECT_FALSE(met("hide_show: pane within 1 px overall")); // 50% < 80%
    EXPECT_FALSE(met("every visible pane back")); // 50% < 70%
    EXPECT_TRUE(met("0 overlaps") && met("emergency"));
    records[0].overlaps = 1;
    records[1].steps[static_cast<size_t>(DockPlacementStep::Emergency)] = 3; // 3 in 101
    EXPECT_FALSE(met("0 overlaps") || met("emergency"));

    // Drift counts only along chains where every cycle brought every pane back.
    OpRecord chain;
    chain.kind = OpKind::Chain;
    chain.ran = true;
    chain.cycles = 50;
    chain.cyclesAllBack = 49;
    chain.drift = 300;
    records.push_back(chain);
    EXPECT_TRUE(met("0 px drift"));
    records.back().cyclesAllBack = 50;
    EXPECT_FALSE(met("0 px drift"));
}

} // namespace
} // namespace vesk::fidelity
