#pragma once

// Sums the records of many seeds per operation and checks them against the goals; writes the
// table as JSON and as text.
#include "Operations.hpp"

#include <array>
#include <ostream>
#include <string>
#include <vector>

namespace vesk::fidelity {

struct OpSummary {
    OpKind kind = OpKind::HideShow;
    int32_t runs = 0, skipped = 0;
    // The operated pane: within 0 and 1 px, for all panes and for those alone in their band or
    // beside a single pane.
    int32_t paneRuns = 0, paneExact = 0, paneWithin1 = 0;
    int32_t simpleRuns = 0, simpleWithin1 = 0;
    int32_t allWithin1 = 0; // runs where every visible pane came back within 1 px
    int32_t panesSeen = 0, panesExact = 0;
    std::vector<int32_t> displacements;
    std::array<int32_t, kStepCount> steps{};
    int32_t overlaps = 0, minBroken = 0, lost = 0;
    int32_t floatAgain = 0, floatAgainIdentical = 0;
    int32_t layoutValues = 0, layoutValuesIdentical = 0;
    int32_t frames = 0, framesReachable = 0;
    // Chains are clean when every cycle brought every visible pane back within 1 px.
    int32_t cycles = 0, cyclesReturned = 0, cyclesAllBack = 0, cleanChains = 0, maxDrift = 0;
};
using Summaries = std::array<OpSummary, kOpCount>;

Summaries Summarise(const std::vector<OpRecord>& records);

struct Goal {
    std::string name;
    std::string measured;
    bool met = false;
};
std::vector<Goal> EvaluateGoals(const Summaries& s);

void WriteJson(std::ostream& out, int32_t seeds, const Summaries& s, const std::vector<Goal>& goals);
void WriteTable(std::ostream& out, int32_t seeds, const Summaries& s, const std::vector<Goal>& goals);

// Runs operation `kind` on seeds first .. first + count - 1.
std::vector<OpRecord> RunSeeds(OpKind kind, uint64_t first, int32_t count);

} // namespace vesk::fidelity
