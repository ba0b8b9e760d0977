// The layout-fidelity simulator. Without arguments (under CTest) it runs the quick checks;
// `--report FILE.json [--seeds N]` runs N seeds of every operation and writes the table.
#include "Report.hpp"
#include "Session.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>

namespace {

int RunReport(const char* path, int32_t seeds)
{
    using namespace vesk::fidelity;
    std::vector<OpRecord> records;
    {
        HeadlessLibrary library;
        for (size_t k = 0; k < kOpCount; ++k) {
            std::vector<OpRecord> more = RunSeeds(static_cast<OpKind>(k), 1, seeds);
            records.insert(records.end(), more.begin(), more.end());
        }
    }
    const Summaries summaries = Summarise(records);
    const std::vector<Goal> goals = EvaluateGoals(summaries);
    std::ofstream out(path);
    WriteJson(out, seeds, summaries, goals);
    WriteTable(std::cout, seeds, summaries, goals);
    if (!out) {
        std::cerr << "cannot write " << path << "\n";
        return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const char* report = nullptr;
    int32_t seeds = 200;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--report") == 0 && i + 1 < argc)
            report = argv[++i];
        else if (std::strcmp(argv[i], "--seeds") == 0 && i + 1 < argc)
            seeds = std::max(1, std::atoi(argv[++i]));
    }
    if (report)
        return RunReport(report, seeds);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
