#include "Report.hpp"

#include <cstdio>
#include <utility>

namespace vesk::fidelity {

namespace {

double Percent(int32_t part, int32_t whole)
{
    return whole > 0 ? 100.0 * part / whole : 100.0;
}

std::string Format(const char* format, double a, double b = 0, double c = 0)
{
    char text[160];
    std::snprintf(text, sizeof text, format, a, b, c);
    return text;
}

const OpSummary& Of(const Summaries& s, OpKind kind)
{
    return s[static_cast<size_t>(kind)];
}

// "share% (part/whole)".
std::string ShareText(int32_t part, int32_t whole)
{
    return Format("%.2f%% (%.0f/%.0f)", Percent(part, whole), part, whole);
}

// A share of at least `least` percent.
Goal ShareGoal(const std::string& name, int32_t part, int32_t whole, double least)
{
    return {name, ShareText(part, whole), Percent(part, whole) >= least};
}

} // namespace

std::vector<OpRecord> RunSeeds(OpKind kind, uint64_t first, int32_t count)
{
    std::vector<OpRecord> records;
    for (int32_t i = 0; i < count; ++i)
        records.push_back(RunOperation(kind, first + static_cast<uint64_t>(i)));
    return records;
}

Summaries Summarise(const std::vector<OpRecord>& records)
{
    Summaries s;
    for (size_t k = 0; k < kOpCount; ++k)
        s[k].kind = static_cast<OpKind>(k);
    for (const OpRecord& r : records) {
        OpSummary& m = s[static_cast<size_t>(r.kind)];
        // Invariants count whether or not the operation found something to do.
        m.overlaps += r.overlaps;
        m.minBroken += r.minBroken;
        m.lost += r.lost;
        if (!r.ran) {
            ++m.skipped;
            continue;
        }
        ++m.runs;
        if (r.hasPane) {
            ++m.paneRuns;
            m.paneExact += r.paneDisplacement == 0 ? 1 : 0;
            m.paneWithin1 += r.paneDisplacement <= 1 ? 1 : 0;
            if (r.paneClass != PaneClass::Other) {
                ++m.simpleRuns;
                m.simpleWithin1 += r.paneDisplacement <= 1 ? 1 : 0;
            }
        }
        m.allWithin1 += r.all.allWithin1 ? 1 : 0;
        for (int32_t d : r.all.displacements) {
            ++m.panesSeen;
            m.panesExact += d == 0 ? 1 : 0;
            m.displacements.push_back(d);
        }
        for (size_t k = 0; k < kStepCount; ++k)
            m.steps[k] += r.steps[k];
        m.floatAgain += r.floatAgain;
        m.floatAgainIdentical += r.floatAgainIdentical;
        m.layoutValues += r.layoutValues;
        m.layoutValuesIdentical += r.layoutValuesIdentical;
        m.frames += r.frames;
        m.framesReachable += r.framesReachable;
        m.cycles += r.cycles;
        m.cyclesReturned += r.cyclesReturned;
        m.cyclesAllBack += r.cyclesAllBack;
        if (r.cycles > 0 && r.cyclesAllBack == r.cycles) {
            ++m.cleanChains;
            m.maxDrift = std::max(m.maxDrift, r.drift);
        }
    }
    return s;
}

std::vector<Goal> EvaluateGoals(const Summaries& s)
{
    std::vector<Goal> goals;
    int32_t overlaps = 0, lost = 0, minBroken = 0, floatAgain = 0, floatIdentical = 0;
    for (const OpSummary& m : s) {
        overlaps += m.overlaps;
        lost += m.lost;
        minBroken += m.minBroken;
        floatAgain += m.floatAgain;
        floatIdentical += m.floatAgainIdentical;
    }
    goals.push_back({"0 overlaps ever", Format("%.0f", overlaps), overlaps == 0});
    goals.push_back({"no pane lost", Format("%.0f", lost), lost == 0});
    goals.push_back({"minimum sizes kept where the frame allows", Format("%.0f broken", minBroken), minBroken == 0});
    for (OpKind kind : {OpKind::SaveLoad, OpKind::Resize, OpKind::Dpi}) {
        const OpSummary& m = Of(s, kind);
        goals.push_back(ShareGoal(std::string(OpName(kind)) + " and back exact, 100% of panes", m.panesExact,
                                  m.panesSeen, 100.0));
    }
    const OpSummary& saved = Of(s, OpKind::SaveLoad);
    goals.push_back(ShareGoal("layout value saved again after loading is byte-identical", saved.layoutValuesIdentical,
                              saved.layoutValues, 100.0));
    const OpSummary& drag = Of(s, OpKind::DividerDrag);
    goals.push_back(ShareGoal("divider drag and back exact, 100% of panes", drag.panesExact, drag.panesSeen, 100.0));
    for (OpKind kind : {OpKind::HideShow, OpKind::FloatRedock}) {
        const OpSummary& m = Of(s, kind);
        const std::string op = OpName(kind);
        goals.push_back(ShareGoal(op + ": pane within 1 px, sibling single or fills band, >= 99%", m.simpleWithin1,
                                  m.simpleRuns, 99.0));
        goals.push_back(ShareGoal(op + ": pane within 1 px overall, >= 80%", m.paneWithin1, m.paneRuns, 80.0));
        goals.push_back(ShareGoal(op + ": pane at 0 px overall (no goal)", m.paneExact, m.paneRuns, 0.0));
    }
    const OpSummary& hide = Of(s, OpKind::HideShow);
    const OpSummary& floats = Of(s, OpKind::FloatRedock);
    goals.push_back(ShareGoal("every visible pane back within 1 px, >= 70% of cycles",
                              hide.allWithin1 + floats.allWithin1, hide.runs + floats.runs, 70.0));
    const OpSummary& chain = Of(s, OpKind::Chain);
    goals.push_back({"0 px drift along chains of successful returns",
                     Format("%.0f px max over %.0f clean chains of %.0f", chain.maxDrift, chain.cleanChains, chain.runs),
                     chain.maxDrift == 0});
    goals.push_back(ShareGoal("chain cycles returning the pane within 1 px (no goal)", chain.cyclesReturned,
                              chain.cycles, 0.0));
    goals.push_back(ShareGoal("chain cycles returning every pane within 1 px (no goal)", chain.cyclesAllBack,
                              chain.cycles, 0.0));
    int32_t placed = 0, emergency = 0;
    for (OpKind kind : {OpKind::HideShow, OpKind::FloatRedock, OpKind::Chain}) {
        for (size_t k = 1; k < kStepCount; ++k)
            placed += Of(s, kind).steps[k];
        emergency += Of(s, kind).steps[static_cast<size_t>(DockPlacementStep::Emergency)];
    }
    goals.push_back({"emergency placements <= 2%", ShareText(emergency, placed), emergency * 100 <= placed * 2});
    goals.push_back(ShareGoal("floated again at the identical rectangle", floatIdentical, floatAgain, 100.0));
    const OpSummary& monitor = Of(s, OpKind::MonitorRemoval);
    goals.push_back(ShareGoal("after a monitor goes, 64 x 24 px of every mini-frame visible", monitor.framesReachable,
                              monitor.frames, 100.0));
    return goals;
}

void WriteJson(std::ostream& out, int32_t seeds, const Summaries& s, const std::vector<Goal>& goals)
{
    out << "{\n  \"seeds\": " << seeds << ",\n  \"operations\": {\n";
    for (size_t k = 0; k < s.size(); ++k) {
        const OpSummary& m = s[k];
        const std::pair<const char*, int32_t> fields[] = {
            {"runs", m.runs},
            {"skipped", m.skipped},
            {"pane_runs", m.paneRuns},
            {"pane_exact", m.paneExact},
            {"pane_within_1px", m.paneWithin1},
            {"simple_runs", m.simpleRuns},
            {"simple_within_1px", m.simpleWithin1},
            {"all_within_1px", m.allWithin1},
            {"panes_seen", m.panesSeen},
            {"panes_exact", m.panesExact},
            {"p50", Percentile(m.displacements, 50)},
            {"p90", Percentile(m.displacements, 90)},
            {"p99", Percentile(m.displacements, 99)},
            {"max", Percentile(m.displacements, 100)},
            {"overlaps", m.overlaps},
            {"min_sizes_broken", m.minBroken},
            {"lost", m.lost},
            {"float_again", m.floatAgain},
            {"float_again_identical", m.floatAgainIdentical},
            {"layout_values", m.layoutValues},
            {"layout_values_identical", m.layoutValuesIdentical},
            {"mini_frames", m.frames},
            {"mini_frames_reachable", m.framesReachable},
            {"cycles", m.cycles},
            {"cycles_returned", m.cyclesReturned},
            {"cycles_all_back", m.cyclesAllBack},
            {"clean_chains", m.cleanChains},
            {"max_drift", m.maxDrift},
        };
        out << "    \"" << OpName(m.kind) << "\": {";
        for (const auto& [name, value] : fields)
            out << "\"" << name << "\": " << value << ", ";
        out << "\"steps\": {";
        for (size_t step = 1; step < kStepCount; ++step) {
            out << "\"" << StepName(static_cast<DockPlacementStep>(step)) << "\": " << m.steps[step]
                << (step + 1 < kStepCount ? ", " : "");
        }
        out << "}}" << (k + 1 < s.size() ? "," : "") << "\n";
    }
    out << "  },\n  \"goals\": [\n";
    for (size_t i = 0; i < goals.size(); ++i) {
        out << "    {\"goal\": \"" << goals[i].name << "\", \"measured\": \"" << goals[i].measured
            << "\", \"met\": " << (goals[i].met ? "true" : "false") << "}" << (i + 1 < goals.size() ? "," : "") << "\n";
    }
    out << "  ]\n}\n";
}

void WriteTable(std::ostream& out, int32_t seeds, const Summaries& s, const std::vector<Goal>& goals)
{
    char line[256];
    out << "Layout fidelity, " << seeds << " seeds per operation (displacement in px; 1000000 = changed state)\n";
    std::snprintf(line, sizeof line, "%-16s %5s %5s %7s %7s %6s %6s %6s %8s %8s %5s\n", "operation", "runs", "skip",
                  "pane0", "pane<=1", "p50", "p90", "p99", "max", "overlaps", "lost");
    out << line;
    for (const OpSummary& m : s) {
        // The pane columns only for operations on one pane.
        char exact[16] = "-", within[16] = "-";
        if (m.paneRuns > 0) {
            std::snprintf(exact, sizeof exact, "%.1f%%", Percent(m.paneExact, m.paneRuns));
            std::snprintf(within, sizeof within, "%.1f%%", Percent(m.paneWithin1, m.paneRuns));
        }
        std::snprintf(line, sizeof line, "%-16s %5d %5d %7s %7s %6d %6d %6d %8d %8d %5d\n", OpName(m.kind), m.runs,
                      m.skipped, exact, within, Percentile(m.displacements, 50), Percentile(m.displacements, 90),
                      Percentile(m.displacements, 99), Percentile(m.displacements, 100), m.overlaps, m.lost);
        out << line;
    }
    out << "\nPlacement steps (hide/show, float/redock, chain cycles)\n";
    for (size_t k = 1; k < kStepCount; ++k) {
        std::snprintf(line, sizeof line, "  %-15s %6d %6d %6d\n", StepName(static_cast<DockPlacementStep>(k)),
                      Of(s, OpKind::HideShow).steps[k], Of(s, OpKind::FloatRedock).steps[k],
                      Of(s, OpKind::Chain).steps[k]);
        out << line;
    }
    out << "\nGoals\n";
    for (const Goal& g : goals)
        out << (g.met ? "  met   " : "  MISSED") << "  " << g.name << ": " << g.measured << "\n";
}

} // namespace vesk::fidelity
