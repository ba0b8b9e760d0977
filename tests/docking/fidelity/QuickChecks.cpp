// The simulator's quick run under CTest: a few dozen seeds per operation against the hard
// invariants and the goals this code meets, and the metrics on hand-made snapshots.
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

class FidelityQuick : public test::WindowTest {
protected:
    static OpSummary Run(OpKind kind)
    {
        return Summarise(RunSeeds(kind, 1, QuickSeeds(kind)))[static_cast<size_t>(kind)];
    }
    // What must hold after every operation.
    static void ExpectInvariants(const OpSummary& m)
    {
        EXPECT_GT(m.runs, 0) << OpName(m.kind);
        EXPECT_EQ(m.overlaps, 0) << OpName(m.kind);
        EXPECT_EQ(m.lost, 0) << OpName(m.kind);
        EXPECT_EQ(m.minBroken, 0) << OpName(m.kind);
    }

    test::ConfigHomeGuard config; // saved layouts go to a temporary settings store
};

TEST_F(FidelityQuick, ResizeDpiAndDividerDragsAreExactRoundTrips)
{
    for (OpKind kind : {OpKind::Resize, OpKind::Dpi, OpKind::DividerDrag}) {
        const OpSummary m = Run(kind);
        ExpectInvariants(m);
        EXPECT_EQ(m.panesExact, m.panesSeen) << OpName(kind);
        EXPECT_EQ(m.allWithin1, m.runs) << OpName(kind);
    }
}

TEST_F(FidelityQuick, SaveThenLoadIntoAFreshManagerIsExact)
{
    const OpSummary m = Run(OpKind::SaveLoad);
    ExpectInvariants(m);
    EXPECT_EQ(m.panesExact, m.panesSeen);
    EXPECT_GT(m.layoutValues, 0);
    EXPECT_EQ(m.layoutValuesIdentical, m.layoutValues);
}

TEST_F(FidelityQuick, HiddenAndFloatedPanesFindTheirWayBack)
{
    int32_t runs = 0, allBack = 0, placed = 0, emergency = 0;
    for (OpKind kind : {OpKind::HideShow, OpKind::FloatRedock}) {
        const OpSummary m = Run(kind);
        ExpectInvariants(m);
        EXPECT_EQ(m.paneRuns, m.runs) << OpName(kind);
        EXPECT_EQ(m.simpleWithin1, m.simpleRuns) << OpName(kind);
        EXPECT_GE(m.paneWithin1 * 100, m.paneRuns * 80) << OpName(kind);
        EXPECT_EQ(m.floatAgainIdentical, m.floatAgain) << OpName(kind);
        runs += m.runs;
        allBack += m.allWithin1;
        for (size_t k = 1; k < kStepCount; ++k)
            placed += m.steps[k];
        emergency += m.steps[static_cast<size_t>(DockPlacementStep::Emergency)];
    }
    EXPECT_GE(allBack * 100, runs * 70);
    EXPECT_EQ(placed, runs); // every return went through the placement rules
    EXPECT_LE(emergency * 100, placed * 2);
}

TEST_F(FidelityQuick, ChainsOfSuccessfulReturnsDoNotDrift)
{
    const OpSummary m = Run(OpKind::Chain);
    ExpectInvariants(m);
    EXPECT_GT(m.cleanChains, 0);
    EXPECT_EQ(m.maxDrift, 0);
}

TEST_F(FidelityQuick, MiniFramesStayReachableWhenAMonitorGoes)
{
    const OpSummary m = Run(OpKind::MonitorRemoval);
    ExpectInvariants(m);
    EXPECT_GT(m.frames, 0);
    EXPECT_EQ(m.framesReachable, m.frames);
    EXPECT_EQ(m.floatAgainIdentical, m.floatAgain);
}

// The metrics themselves, on snapshots made by hand.
PaneShot Shot(const char* name, PaneState state, CRectangle rect, TamSize min = TamSize(40, 40))
{
    return PaneShot{name, state, rect, min};
}

TEST(FidelityMetrics, DisplacementIsTheLargestEdgeMoveAndStateChangesCountAsLost)
{
    EXPECT_EQ(Displacement(CRectangle(10, 10, 110, 60), CRectangle(10, 10, 110, 60)), 0);
    EXPECT_EQ(Displacement(CRectangle(10, 10, 110, 60), CRectangle(9, 10, 110, 63)), 3);
    const Snapshot before{Shot("a", PaneState::Docked, CRectangle(0, 0, 100, 100)),
                          Shot("b", PaneState::Docked, CRectangle(100, 0, 200, 100)),
                          Shot("h", PaneState::Hidden, CRectangle())};
    Snapshot after = before;
    after[1].rect = CRectangle(101, 0, 200, 100);
    after[2] = Shot("h", PaneState::Docked, CRectangle(0, 100, 10, 110));
    Comparison c = Compare(before, after);
    EXPECT_EQ(c.displacements, (std::vector<int32_t>{0, 1})); // hidden panes are not compared
    EXPECT_TRUE(c.allWithin1);
    after[1].rect = CRectangle(102, 0, 200, 100);
    EXPECT_FALSE(Compare(before, after).allWithin1);
    after[0].state = PaneState::Floating;
    c = Compare(before, after);
    EXPECT_EQ(c.maxDisplacement, kStateChanged);
    EXPECT_EQ(PaneDisplacement(before, after, "b"), 2);
    EXPECT_EQ(PaneDisplacement(before, Snapshot{}, "b"), kStateChanged);
}

TEST(FidelityMetrics, OverlapsCountSharedAreaOfDockedPanesAndBars)
{
    Snapshot shot{Shot("a", PaneState::Docked, CRectangle(0, 0, 100, 100)),
                  Shot("b", PaneState::Docked, CRectangle(100, 0, 200, 100)), // touching: fine
                  Shot("f", PaneState::Floating, CRectangle(50, 50, 150, 150))};
    EXPECT_EQ(CountOverlaps(shot), 0);
    shot[1].rect = CRectangle(99, 99, 200, 200); // one pixel shared
    EXPECT_EQ(CountOverlaps(shot), 1);
    shot.push_back(Shot("c", PaneState::Docked, CRectangle(0, 0, 10, 10))); // inside a
    EXPECT_EQ(CountOverlaps(shot), 2);
    // Divider bars: a bar between two panes is fine, one over a pane is not.
    shot.pop_back();
    shot[1].rect = CRectangle(104, 0, 200, 100);
    EXPECT_EQ(CountOverlaps(shot, {CRectangle(100, 0, 104, 100)}), 0);
    EXPECT_EQ(CountOverlaps(shot, {CRectangle(99, 0, 103, 100)}), 1);
    EXPECT_EQ(CountOverlaps(shot, {CRectangle(99, 0, 105, 100)}), 2);
}

TEST(FidelityMetrics, MinimumSizesScaleWithResolution)
{
    const Snapshot shot{Shot("a", PaneState::Docked, CRectangle(0, 0, 60, 90), TamSize(40, 60)),
                        Shot("f", PaneState::Floating, CRectangle(0, 0, 5, 5), TamSize(40, 60))};
    EXPECT_EQ(CountMinBroken(shot, 96), 0);
    EXPECT_EQ(CountMinBroken(shot, 144), 0); // exactly 60 x 90
    EXPECT_EQ(CountMinBroken(shot, 150), 1);
}

TEST(FidelityMetrics, PaneIsLostUnless64By24PixelsShowOnOneScreen)
{
    const std::vector<CRectangle> screens{CRectangle(0, 0, 1920, 1080)};
    const TamSize least(64, 24);
    const Snapshot before{Shot("a", PaneState::Floating, CRectangle(0, 0, 200, 100)),
                          Shot("d", PaneState::Docked, CRectangle(0, 0, 200, 100)),
                          Shot("h", PaneState::Hidden, CRectangle())};
    Snapshot after = before;
    after[0].rect = CRectangle(1856, 1056, 2056, 1156); // 64 x 24 on screen
    EXPECT_EQ(CountLost(before, after, screens, least), 0);
    after[0].rect = CRectangle(1857, 1056, 2057, 1156); // 63 x 24
    EXPECT_EQ(CountLost(before, after, screens, least), 1);
    after[0].rect = CRectangle(1856, 1057, 2056, 1157); // 64 x 23
    EXPECT_EQ(CountLost(before, after, screens, least), 1);
    // A frame narrower than 64 px must show its whole width.
    after[0].rect = CRectangle(1880, 0, 1920, 100);
    EXPECT_EQ(CountLost(before, after, screens, least), 0);
    after[0].rect = CRectangle(1881, 0, 1921, 100);
    EXPECT_EQ(CountLost(before, after, screens, least), 1);
    after[0].rect = before[0].rect;
    after[1].state = PaneState::Hidden;
    EXPECT_EQ(CountLost(before, after, screens, least), 1);
}

TEST(FidelityMetrics, PercentilesUseTheNearestRank)
{
    std::vector<int32_t> v;
    for (int32_t i = 100; i >= 1; --i)
        v.push_back(i);
    EXPECT_EQ(Percentile(v, 50), 50);
    EXPECT_EQ(Percentile(v, 90), 90);
    EXPECT_EQ(Percentile(v, 99), 99);
    EXPECT_EQ(Percentile(v, 100), 100);
    EXPECT_EQ(Percentile({0, 0, 7}, 50), 0);
    EXPECT_EQ(Percentile({0, 0, 7}, 90), 7);
    EXPECT_EQ(Percentile({}, 50), 0);
}

TEST(FidelityMetrics, GoalsFollowTheSummaries)
{
    std::vector<OpRecord> records(2);
    records[0].kind = records[1].kind = OpKind::HideShow;
    records[0].ran = records[1].ran = true;
    records[0].hasPane = records[1].hasPane = true;
    records[0].paneClass = PaneClass::FillsBand;
    records[0].paneDisplacement = 1;   // within 1 px
    records[1].paneDisplacement = 2;   // beside a split, missed
    records[1].all.allWithin1 = false;
    Summaries s = Summarise(records);
    const OpSummary& m = s[static_cast<size_t>(OpKind::HideShow)];
    EXPECT_EQ(m.simpleRuns, 1);
    EXPECT_EQ(m.simpleWithin1, 1);
    EXPECT_EQ(m.paneWithin1, 1);
    EXPECT_EQ(m.allWithin1, 1);
    auto find = [](const std::vector<Goal>& goals, const std::string& start) {
        for (const Goal& g : goals) {
            if (g.name.rfind(start, 0) == 0)
                return g;
        }
        return Goal{};
    };
    std::vector<Goal> goals = EvaluateGoals(s);
    EXPECT_TRUE(find(goals, "hide_show: pane within 1 px, sibling").met);
    EXPECT_FALSE(find(goals, "hide_show: pane within 1 px overall").met); // 50% < 80%
    EXPECT_TRUE(find(goals, "0 overlaps").met);
    records[0].overlaps = 1;
    goals = EvaluateGoals(Summarise(records));
    EXPECT_FALSE(find(goals, "0 overlaps").met);

    // Emergency placements: 1 in 50 is within the 2%, 2 in 50 are not.
    records[0].steps[static_cast<size_t>(DockPlacementStep::Holder)] = 49;
    records[0].steps[static_cast<size_t>(DockPlacementStep::Emergency)] = 1;
    EXPECT_TRUE(find(EvaluateGoals(Summarise(records)), "emergency").met);
    records[0].steps[static_cast<size_t>(DockPlacementStep::Holder)] = 48;
    records[0].steps[static_cast<size_t>(DockPlacementStep::Emergency)] = 2;
    EXPECT_FALSE(find(EvaluateGoals(Summarise(records)), "emergency").met);

    // Drift counts only along chains where every cycle brought every pane back.
    OpRecord chain;
    chain.kind = OpKind::Chain;
    chain.ran = true;
    chain.cycles = 50;
    chain.cyclesAllBack = 49;
    chain.drift = 300;
    records.push_back(chain);
    EXPECT_TRUE(find(EvaluateGoals(Summarise(records)), "0 px drift").met);
    chain.cyclesAllBack = 50;
    chain.drift = 1;
    records.push_back(chain);
    EXPECT_FALSE(find(EvaluateGoals(Summarise(records)), "0 px drift").met);
}

} // namespace
} // namespace vesk::fidelity
