// WildCard::Matches against fnmatch(3) (glibc, flags 0, "C" locale) on the same 100,000 names.
// Each pair of benchmarks counts the matches of one pattern over all names; a differing count
// is reported as an error. The ratio of interest is fnmatch time / WildCard time.
#include <vesk/files.hpp>

#include <benchmark/benchmark.h>

#include <fnmatch.h>

#include <random>
#include <string>
#include <vector>

namespace {

struct Names {
    std::vector<std::string> plain;
    std::vector<vesk::SString> strings;
};

// File-like names: a stem of letters, digits and punctuation and a common extension; one in
// eight is built to fit "a*b*c?d".
const Names& TestNames()
{
    static const Names names = [] {
        const std::string stemBytes = "abcdefghijklmnopqrstuvwxyz0123456789_-.";
        const char* const extensions[] = {".txt", ".doc", ".c", ".h", ".cpp", ".png", ".tar.gz", ""};
        std::mt19937 rng(42);
        std::uniform_int_distribution<size_t> stemByte(0, stemBytes.size() - 1);
        std::uniform_int_distribution<size_t> extension(0, std::size(extensions) - 1);
        std::uniform_int_distribution<int> stemLength(1, 24);
        Names n;
        for (int i = 0; i < 100000; ++i) {
            std::string name;
            for (int k = stemLength(rng); k > 0; --k)
                name += stemBytes[stemByte(rng)];
            if (i % 8 == 0)
                name = "a" + name + "b" + name + "cxd";
            name += extensions[extension(rng)];
            n.plain.push_back(name);
            n.strings.emplace_back(name.c_str());
        }
        return n;
    }();
    return names;
}

struct Case {
    const char* pattern;            // as WildCard gets it
    char16_t separator;             // 1: alternatives split at the text "1"
    std::vector<const char*> peer;  // the alternatives, one fnmatch call each
};

const Case kCases[] = {
    {"*.txt", 0, {"*.txt"}},
    {"a*b*c?d", 0, {"a*b*c?d"}},
    {"*.txt1*.doc1*.c", 1, {"*.txt", "*.doc", "*.c"}},
};

size_t CountFnmatch(const Case& c)
{
    size_t count = 0;
    for (const std::string& name : TestNames().plain) {
        for (const char* alternative : c.peer) {
            if (fnmatch(alternative, name.c_str(), 0) == 0) {
                ++count;
                break;
            }
        }
    }
    return count;
}

void BM_WildCard(benchmark::State& state)
{
    const Case& c = kCases[state.range(0)];
    const vesk::WildCard w(c.pattern, c.separator);
    const size_t expected = CountFnmatch(c);
    for (auto _ : state) {
        size_t count = 0;
        for (const vesk::SString& name : TestNames().strings)
            count += w.Matches(name);
        benchmark::DoNotOptimize(count);
        if (count != expected)
            state.SkipWithError("WildCard and fnmatch disagree");
    }
    state.SetLabel(c.pattern);
    state.SetItemsProcessed(state.iterations() * TestNames().strings.size());
}

void BM_Fnmatch(benchmark::State& state)
{
    const Case& c = kCases[state.range(0)];
    for (auto _ : state)
        benchmark::DoNotOptimize(CountFnmatch(c));
    state.SetLabel(c.pattern);
    state.SetItemsProcessed(state.iterations() * TestNames().plain.size());
}

BENCHMARK(BM_WildCard)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Fnmatch)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

} // namespace
