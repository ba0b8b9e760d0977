#include "values/ContainerProbe.hpp"

#include <gtest/gtest.h>

#include <algorithm>
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

TEST(TableBasics, KeysAreUniqueAndKeptInUnsignedOrder)
{
    Table t(4, 4);
    EXPECT_TRUE(t.Insert(5, Ptr(50)));
    EXPECT_FALSE(t.Insert(5, Ptr(51)));
    EXPECT_EQ(t.Get(5), Ptr(50));
    EXPECT_EQ(t.Get(4), nullptr);
    for (uint32_t key : {9u, 3u, 7u, 0x80000000u, 0xFFFFFFFFu, 0u})
        t.Insert(key, Ptr(key + 1));
    std::vector<uint32_t> keys;
    for (t.First(); keys.size() < t.Count(); t.Next())
        keys.push_back(t.GetCurKey());
    EXPECT_EQ(keys, (std::vector<uint32_t>{0, 3, 5, 7, 9, 0x80000000u, 0xFFFFFFFFu}));
    EXPECT_EQ(t.Next(), nullptr);
    EXPECT_EQ(t.GetCurKey(), 0xFFFFFFFFu);
    EXPECT_EQ(t.Prev(), Ptr(0x80000001u));
    EXPECT_EQ(t.First(), Ptr(1));
    EXPECT_EQ(t.Prev(), nullptr);
    EXPECT_EQ(t.GetCurKey(), 0u);
}

TEST(TableBasics, ValuesAreFoundByFirstKeyAndAbsentKeysChangeNothing)
{
    Table t(2, 2);
    EXPECT_EQ(t.GetCurKey(), NOKEY);
    EXPECT_EQ(t.GetCurObject(), nullptr);
    EXPECT_EQ(t.First(), nullptr);
    EXPECT_EQ(t.Last(), nullptr);
    t.Insert(8, Ptr(1));
    t.Insert(2, Ptr(1));
    t.Insert(4, Ptr(3));
    EXPECT_EQ(t.GetKey(Ptr(1)), 2u);
    EXPECT_EQ(t.GetKey(Ptr(8)), NOKEY); // keys are not values
    EXPECT_EQ(t.Seek(Ptr(3)), Ptr(3));
    EXPECT_EQ(t.GetCurKey(), 4u);
    EXPECT_EQ(t.Seek(Ptr(9)), nullptr);
    EXPECT_EQ(t.Seek(7u), nullptr);
    EXPECT_EQ(t.GetCurKey(), 4u);
    EXPECT_EQ(t.Remove(7), nullptr);
    EXPECT_EQ(t.Replace(7, Ptr(5)), nullptr);
    EXPECT_FALSE(t.IsKeyValid(7));
    EXPECT_EQ(t.Count(), 3u);
    EXPECT_EQ(t.Replace(8, Ptr(5)), Ptr(1));
    EXPECT_EQ(t.Remove(2), Ptr(1));
    EXPECT_EQ(Contents(t), (std::map<uint32_t, void*>{{4, Ptr(3)}, {8, Ptr(5)}}));

    Table copy(t);
    EXPECT_TRUE(copy == t);
    copy.Replace(4, Ptr(4));
    EXPECT_TRUE(copy != t);
    copy.Clear();
    EXPECT_EQ(copy.Count(), 0u);
    EXPECT_TRUE(copy == Table(1, 1));
}

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

    t.Seek(1u);
    EXPECT_EQ(t.Remove(1), Ptr(101));
    EXPECT_EQ(t.GetCurKey(), 0u); // the association before, never a value read as a key
    EXPECT_EQ(t.GetCurObject(), Ptr(100));
}

namespace {

// Random table operations checked against a std::map; keys come from a small range (so that
// they collide) plus a few large ones.
class TableModel {
public:
    explicit TableModel(uint32_t seed) : m_aRandom(seed) {}

    void Step(uint32_t keyRange)
    {
        const uint32_t key = Random(8) ? Random(keyRange) : 0xFFFFFFF0u + Random(16);
        void* value = Ptr(Random(4 * keyRange) + 1);
        const auto found = m_aModel.find(key);
        const bool present = found != m_aModel.end();
        switch (Random(9)) {
        case 0: case 1: case 2:
            EXPECT_EQ(m_aTable.Insert(key, value), !present);
            if (m_aModel.empty())
                m_nCurKey = key;
            m_aModel.emplace(key, value);
            break;
        case 3: case 4: {
            if (present && key == m_nCurKey)
                RemoveCurrent(found);
            EXPECT_EQ(m_aTable.Remove(key), present ? found->second : nullptr);
            m_aModel.erase(key);
            break;
        }
        case 5:
            EXPECT_EQ(m_aTable.Replace(key, value), present ? std::exchange(found->second, value) : nullptr);
            break;
        case 6:
            EXPECT_EQ(m_aTable.Seek(key), present ? found->second : nullptr);
            EXPECT_EQ(m_aTable.IsKeyValid(key), present);
            m_nCurKey = present ? key : m_nCurKey;
            break;
        case 7: {
            const auto holder = std::find_if(m_aModel.begin(), m_aModel.end(), [&](const auto& a) { return a.second == value; });
            const bool held = holder != m_aModel.end();
            EXPECT_EQ(m_aTable.GetKey(value), held ? holder->first : NOKEY);
            EXPECT_EQ(m_aTable.Seek(value), held ? value : nullptr);
            m_nCurKey = held ? holder->first : m_nCurKey;
            break;
        }
        case 8: Move(); break;
        }
        if (m_aModel.empty())
            m_nCurKey = NOKEY;
    }

    ::testing::AssertionResult Matches() const
    {
        if (m_aTable.Count() != m_aModel.size())
            return ::testing::AssertionFailure() << "count " << m_aTable.Count() << ", model " << m_aModel.size();
        if (m_aTable.GetCurKey() != m_nCurKey)
            return ::testing::AssertionFailure() << "current " << m_aTable.GetCurKey() << ", model " << m_nCurKey;
        if (Contents(m_aTable) != m_aModel)
            return ::testing::AssertionFailure() << "contents differ from the model";
        return ::testing::AssertionSuccess();
    }

private:
    uint32_t Random(uint32_t bound) { return static_cast<uint32_t>(m_aRandom() % bound); }

    // In a single block, removing the current association moves to the next one, or to the one
    // before when it was the last.
    void RemoveCurrent(std::map<uint32_t, void*>::iterator found)
    {
        const auto next = std::next(found);
        m_nCurKey = next != m_aModel.end() ? next->first : found == m_aModel.begin() ? NOKEY : std::prev(found)->first;
    }

    void Move()
    {
        if (m_aModel.empty()) {
            EXPECT_EQ(m_aTable.First(), nullptr);
            return;
        }
        auto cur = m_aModel.find(m_nCurKey);
        switch (Random(4)) {
        case 0:
            cur = m_aModel.begin();
            EXPECT_EQ(m_aTable.First(), cur->second);
            break;
        case 1:
            cur = std::prev(m_aModel.end());
            EXPECT_EQ(m_aTable.Last(), cur->second);
            break;
        case 2:
            EXPECT_EQ(m_aTable.Next(), std::next(cur) == m_aModel.end() ? nullptr : std::next(cur)->second);
            cur = std::next(cur) == m_aModel.end() ? cur : std::next(cur);
            break;
        case 3:
            EXPECT_EQ(m_aTable.Prev(), cur == m_aModel.begin() ? nullptr : std::prev(cur)->second);
            cur = cur == m_aModel.begin() ? cur : std::prev(cur);
            break;
        }
        m_nCurKey = cur->first;
    }

    Table m_aTable{4, 4};
    std::mt19937 m_aRandom;
    std::map<uint32_t, void*> m_aModel;
    uint32_t m_nCurKey = NOKEY;
};

class TableModelTest : public ::testing::TestWithParam<uint32_t> {};

// Up to 60 keys: both the linear insertion search (24 or fewer) and bisection are used.
TEST_P(TableModelTest, RandomOperationsMatchAMap)
{
    TableModel model(GetParam());
    for (int step = 0; step < 4000; ++step) {
        model.Step(60);
        ASSERT_TRUE(model.Matches()) << "step " << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, TableModelTest, ::testing::Values(3u, 11u, 512u, 77777u));

// A table over several blocks: random keys in, then the current association removed again and
// again; the position lands on a neighbouring association each time.
TEST(TableBlocks, LargeTablesMatchAMapAcrossBlocks)
{
    std::mt19937 random(99);
    Table table(64, 64);
    std::map<uint32_t, void*> model;
    while (model.size() < 20000) {
        const uint32_t key = static_cast<uint32_t>(random());
        void* value = Ptr(random() | 1);
        ASSERT_EQ(table.Insert(key, value), model.emplace(key, value).second);
    }
    ASSERT_EQ(Contents(table), model);
    for (int i = 0; i < 3000; ++i) {
        auto victim = model.lower_bound(static_cast<uint32_t>(random()));
        victim = victim == model.end() ? model.begin() : victim;
        const uint32_t before = victim == model.begin() ? NOKEY : std::prev(victim)->first;
        const uint32_t after = std::next(victim) == model.end() ? NOKEY : std::next(victim)->first;
        ASSERT_EQ(table.Seek(victim->first), victim->second);
        ASSERT_EQ(table.Remove(victim->first), victim->second);
        model.erase(victim);
        const uint32_t cur = table.GetCurKey();
        ASSERT_TRUE(cur == before || cur == after) << cur;
        ASSERT_EQ(table.GetCurObject(), model[cur]);
    }
    EXPECT_EQ(Contents(table), model);
}

} // namespace
