// Container against std::vector and std::deque, Table against std::map and a sorted std::vector,
// at 1,000,000 entries. Run with --benchmark_counters_tabular=true; compare the times per
// iteration of the rows in one group.
#include <vesk/containers.hpp>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <deque>
#include <map>
#include <random>
#include <vector>

namespace {

constexpr uint32_t ENTRIES = 1000000;
constexpr int64_t EDITS = 2000;

void* Ptr(uint32_t value)
{
    return reinterpret_cast<void*>(static_cast<uintptr_t>(value) + 1);
}

// The same pseudo-random numbers for every peer.
std::vector<uint32_t> RandomNumbers(size_t count, uint32_t seed)
{
    std::mt19937 random(seed);
    std::vector<uint32_t> numbers(count);
    for (uint32_t& n : numbers)
        n = static_cast<uint32_t>(random());
    return numbers;
}

// ---- positional inserts and removals ------------------------------------------------------

enum class Where { Random, Middle };

struct VeskContainer {
    vesk::Container c{vesk::CONTAINER_MAXBLOCKSIZE, 256, 256};
    VeskContainer()
    {
        for (uint32_t i = 0; i < ENTRIES; ++i)
            c.Insert(Ptr(i), vesk::CONTAINER_APPEND);
    }
    uint32_t Size() const { return c.Count(); }
    void Insert(uint32_t at, void* p) { c.Insert(p, at); }
    void* Remove(uint32_t at) { return c.Remove(at); }
};

template <class Std>
struct StdSequence {
    Std c;
    StdSequence()
    {
        for (uint32_t i = 0; i < ENTRIES; ++i)
            c.push_back(Ptr(i));
    }
    uint32_t Size() const { return static_cast<uint32_t>(c.size()); }
    void Insert(uint32_t at, void* p) { c.insert(c.begin() + at, p); }
    void* Remove(uint32_t at)
    {
        void* p = c[at];
        c.erase(c.begin() + at);
        return p;
    }
};

template <class Sequence, Where where>
void Insert(benchmark::State& state)
{
    Sequence s;
    const std::vector<uint32_t> random = RandomNumbers(EDITS, 1);
    size_t i = 0;
    for (auto _ : state) {
        const uint32_t at = where == Where::Middle ? s.Size() / 2 : random[i++ % EDITS] % (s.Size() + 1);
        s.Insert(at, Ptr(at));
    }
    state.SetItemsProcessed(state.iterations());
}

template <class Sequence>
void RemoveRandom(benchmark::State& state)
{
    Sequence s;
    const std::vector<uint32_t> random = RandomNumbers(EDITS, 2);
    size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(s.Remove(random[i++ % EDITS] % s.Size()));
    state.SetItemsProcessed(state.iterations());
}

using Vector = StdSequence<std::vector<void*>>;
using Deque = StdSequence<std::deque<void*>>;

BENCHMARK(Insert<VeskContainer, Where::Random>)->Name("InsertRandom/Container")->Iterations(EDITS);
BENCHMARK(Insert<Vector, Where::Random>)->Name("InsertRandom/vector")->Iterations(EDITS);
BENCHMARK(Insert<Deque, Where::Random>)->Name("InsertRandom/deque")->Iterations(EDITS);
BENCHMARK(Insert<VeskContainer, Where::Middle>)->Name("InsertMiddle/Container")->Iterations(EDITS);
BENCHMARK(Insert<Vector, Where::Middle>)->Name("InsertMiddle/vector")->Iterations(EDITS);
BENCHMARK(Insert<Deque, Where::Middle>)->Name("InsertMiddle/deque")->Iterations(EDITS);
BENCHMARK(RemoveRandom<VeskContainer>)->Name("RemoveRandom/Container")->Iterations(EDITS);
BENCHMARK(RemoveRandom<Vector>)->Name("RemoveRandom/vector")->Iterations(EDITS);
BENCHMARK(RemoveRandom<Deque>)->Name("RemoveRandom/deque")->Iterations(EDITS);

// ---- keyed tables ----------------------------------------------------------------------------

// 1,000,000 distinct even keys in random order (an odd multiplier permutes 0..2^31-1).
const std::vector<uint32_t>& TableKeys()
{
    static const std::vector<uint32_t> keys = [] {
        std::vector<uint32_t> k(ENTRIES);
        for (uint32_t i = 0; i < ENTRIES; ++i)
            k[i] = ((i * 2654435761u) & 0x7FFFFFFFu) << 1;
        return k;
    }();
    return keys;
}

struct VeskTable {
    vesk::Table t{256, 256};
    bool Insert(uint32_t key, void* value) { return t.Insert(key, value); }
    void* Get(uint32_t key) const { return t.Get(key); }
};

struct StdMap {
    std::map<uint32_t, void*> t;
    bool Insert(uint32_t key, void* value) { return t.emplace(key, value).second; }
    void* Get(uint32_t key) const
    {
        const auto found = t.find(key);
        return found == t.end() ? nullptr : found->second;
    }
};

struct SortedVector {
    std::vector<std::pair<uint32_t, void*>> t;
    bool Insert(uint32_t key, void* value)
    {
        const auto at = std::lower_bound(t.begin(), t.end(), key, [](const auto& e, uint32_t k) { return e.first < k; });
        if (at != t.end() && at->first == key)
            return false;
        t.insert(at, {key, value});
        return true;
    }
    void* Get(uint32_t key) const
    {
        const auto at = std::lower_bound(t.begin(), t.end(), key, [](const auto& e, uint32_t k) { return e.first < k; });
        return at != t.end() && at->first == key ? at->second : nullptr;
    }
};

// One prebuilt table of each kind, filled in ascending key order, shared by the benchmarks.
template <class T>
const T& FilledTable()
{
    static const T table = [] {
        T t;
        std::vector<uint32_t> keys = TableKeys();
        std::sort(keys.begin(), keys.end());
        for (uint32_t key : keys)
            t.Insert(key, Ptr(key));
        return t;
    }();
    return table;
}

// Builds a table of 1,000,000 keys; the sorted vector takes the keys in ascending order only,
// since random order would cost it about 10^12 moved bytes.
template <class T, bool ascending>
void Build(benchmark::State& state)
{
    std::vector<uint32_t> keys = TableKeys();
    if (ascending)
        std::sort(keys.begin(), keys.end());
    for (auto _ : state) {
        T t;
        for (uint32_t key : keys)
            t.Insert(key, Ptr(key));
        benchmark::DoNotOptimize(t);
    }
    state.SetItemsProcessed(state.iterations() * ENTRIES);
}

// Inserts new (odd) keys at random places of a 1,000,000-key table.
template <class T>
void InsertAtSize(benchmark::State& state)
{
    T t = FilledTable<T>();
    const std::vector<uint32_t> random = RandomNumbers(EDITS, 3);
    size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(t.Insert(random[i++ % EDITS] | 1, nullptr));
    state.SetItemsProcessed(state.iterations());
}

template <class T>
void Lookup(benchmark::State& state)
{
    const T& t = FilledTable<T>();
    const std::vector<uint32_t> random = RandomNumbers(ENTRIES, 4);
    const std::vector<uint32_t>& keys = TableKeys();
    size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(t.Get(keys[random[i] % ENTRIES]));
        i = (i + 1) % ENTRIES;
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(Build<VeskTable, false>)->Name("BuildRandom/Table")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Build<StdMap, false>)->Name("BuildRandom/map")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Build<VeskTable, true>)->Name("BuildAscending/Table")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Build<StdMap, true>)->Name("BuildAscending/map")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Build<SortedVector, true>)->Name("BuildAscending/sortedvector")->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(InsertAtSize<VeskTable>)->Name("TableInsert/Table")->Iterations(EDITS);
BENCHMARK(InsertAtSize<StdMap>)->Name("TableInsert/map")->Iterations(EDITS);
BENCHMARK(InsertAtSize<SortedVector>)->Name("TableInsert/sortedvector")->Iterations(EDITS);
BENCHMARK(Lookup<VeskTable>)->Name("Lookup/Table")->Iterations(ENTRIES);
BENCHMARK(Lookup<StdMap>)->Name("Lookup/map")->Iterations(ENTRIES);
BENCHMARK(Lookup<SortedVector>)->Name("Lookup/sortedvector")->Iterations(ENTRIES);

} // namespace
