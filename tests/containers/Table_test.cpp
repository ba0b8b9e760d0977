#include "containers/ContainerProbe.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <map>
#include <random>

using vesk::Table;

namespace {

constexpr uint32_t NOKEY = 0xFFFFFFFF;

// The table's associations in key order, read by iterating a copy.
std::map<uint32_t, void*> Contents(const Table& table)
{
    std::map<uint32_t, void*> contents;
    Table copy(table);
    for (void* value = copy.First(); copy.Count() && contents.size() < copy.Count(); value = copy.Next())
        contents.emplace(copy.GetCurKey(), value);
    return contents;
}

} // namespace

// Keys 0, 2, ... filling one block exactly; key 1 then splits it so that its association spans
// two blocks: [k0 v0 k1] [v1 k2 v2 ...].
TEST(TableBlocks, AnAssociationSpanningTwoBlocksBehavesAsOne)
{
    Table t(16, 16);
    const uint32_t fill = vesk::CONTAINER_MAXBLOCKSIZE / 2;
    for (uint32_t i = 0; i < fill; ++i)
        t.Insert(2 * i, Ptr(2 * i + 100));
    t.Insert(1, Ptr(101));
    EXPECT_EQ(t.Get(1), Ptr(101));
    EXPECT_EQ(t.Seek(1u), Ptr(101));
    EXPECT_EQ(t.GetCurObject(), Ptr(101));
    EXPECT_EQ(t.Next(), Ptr(102));
    EXPECT_EQ(t.Prev(), Ptr(101));
    EXPECT_EQ(t.Prev(), Ptr(100));
    EXPECT_EQ(t.Last(), Ptr(2 * (fill - 1) + 100));
    EXPECT_EQ(t.GetKey(Ptr(101)), 1u);
    EXPECT_EQ(Contents(t).size(), fill + 1);

    Table copy(t);
    EXPECT_TRUE(copy == t);
    copy.Replace(2, Ptr(7));
    EXPECT_TRUE(copy != t);

    t.Seek(1u);
    EXPECT_EQ(t.Remove(1), Ptr(101));
    EXPECT_EQ(t.GetCurKey(), 0u); // the association before, never a value read as a key
    EXPECT_EQ(t.GetCurObject(), Ptr(100));
}

class TableModelTest : public ::testing::TestWithParam<uint32_t> {};

// Random table operations checked after every step against a std::map. Keys come from a small
// range, so they collide, plus a few large ones; with up to 76 keys both the linear insertion
// search (24 or fewer) and bisection run.
TEST_P(TableModelTest, RandomOperationsMatchAMap)
{
    std::mt19937 random(GetParam());
    const auto Random = [&](uint32_t bound) { return static_cast<uint32_t>(random() % bound); };
    Table table(4, 4);
    std::map<uint32_t, void*> model;
    uint32_t cur = NOKEY;
    for (int step = 0; step < 4000; ++step) {
        const uint32_t key = Random(8) ? Random(60) : 0xFFFFFFF0u + Random(16);
        void* value = Ptr(Random(240) + 1);
        const auto found = model.find(key);
        const bool present = found != model.end();
        const auto at = model.find(cur);
        auto to = model.end();
        switch (Random(10)) {
        case 0: case 1: case 2:
            EXPECT_EQ(table.Insert(key, value), !present);
            cur = model.empty() ? key : cur;
            model.emplace(key, value);
            break;
        case 3: case 4:
            // In one block, the current association hands over to the next, or the one before.
            if (present && key == cur)
                cur = std::next(found) != model.end() ? std::next(found)->first : found != model.begin() ? std::prev(found)->first : NOKEY;
            EXPECT_EQ(table.Remove(key), present ? found->second : nullptr);
            model.erase(key);
            break;
        case 5: EXPECT_EQ(table.Replace(key, value), present ? std::exchange(found->second, value) : nullptr); break;
        case 6:
            EXPECT_EQ(table.Seek(key), present ? found->second : nullptr);
            EXPECT_EQ(table.IsKeyValid(key), present);
            cur = present ? key : cur;
            break;
        case 7:
            to = std::find_if(model.begin(), model.end(), [&](const auto& a) { return a.second == value; });
            EXPECT_EQ(table.GetKey(value), to != model.end() ? to->first : NOKEY);
            EXPECT_EQ(table.Seek(value), to != model.end() ? value : nullptr);
            break;
        case 8:
            if (Random(2)) {
                to = at == model.end() ? at : std::next(at);
                EXPECT_EQ(table.Next(), to != model.end() ? to->second : nullptr);
            } else {
                to = at == model.begin() ? model.end() : std::prev(at);
                EXPECT_EQ(table.Prev(), to != model.end() ? to->second : nullptr);
            }
            break;
        case 9:
            if (Random(2)) {
                to = model.begin();
                EXPECT_EQ(table.First(), to != model.end() ? to->second : nullptr);
            } else {
                to = model.empty() ? model.end() : std::prev(model.end());
                EXPECT_EQ(table.Last(), to != model.end() ? to->second : nullptr);
            }
            break;
        }
        cur = to != model.end() ? to->first : cur;
        ASSERT_EQ(table.Count(), model.size());
        ASSERT_EQ(table.GetCurKey(), cur) << "step " << step;
        ASSERT_EQ(Contents(table), model) << "step " << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, TableModelTest, ::testing::Values(3u, 11u, 512u, 77777u));
