#include "values/ContainerProbe.hpp"

#include <gtest/gtest.h>

using vesk::CONTAINER_ENTRY_NOTFOUND;
using Params = ContainerProbe::Params;
using Shapes = std::vector<ContainerProbe::BlockShape>;

namespace {

// A container holding the pointers 1..count, appended in order.
template <class... Args>
ContainerProbe Filled(uint32_t count, Args... params)
{
    ContainerProbe c(params...);
    for (uint32_t i = 1; i <= count; ++i)
        c.Insert(Ptr(i), vesk::CONTAINER_APPEND);
    return c;
}

std::vector<void*> Ptrs(std::initializer_list<uintptr_t> values)
{
    std::vector<void*> out;
    for (uintptr_t v : values)
        out.push_back(Ptr(v));
    return out;
}

} // namespace

TEST(ContainerParams, BlockSizeFollowsTheStepRuleEvenWhereItGivesNoMultiple)
{
    EXPECT_EQ(ContainerProbe(2, 1, 1).GetParams(), (Params{4, 2, 2}));
    EXPECT_EQ(ContainerProbe(10, 5, 3).GetParams(), (Params{8, 4, 3}));
    EXPECT_EQ(ContainerProbe(20000, 100, 16).GetParams(), (Params{16368, 88, 16}));
    EXPECT_EQ(ContainerProbe(8, 50, 20).GetParams(), (Params{8, 8, 8}));
    EXPECT_EQ(ContainerProbe(16, 8, 4).GetParams(), (Params{16, 8, 4}));
    // 5 with step 4 becomes 2, below the clamp; such a container still works.
    ContainerProbe tiny = Filled(9, 5, 0, 4);
    EXPECT_EQ(tiny.GetParams(), (Params{2, 4, 4}));
    EXPECT_TRUE(tiny.Consistent());
    EXPECT_EQ(tiny.Entries(), Ptrs({1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(ContainerStorage, ArraysGrowAndShrinkInStepsWithAQuarterMargin)
{
    ContainerProbe c(16, 4, 4);
    std::vector<uint16_t> capacities;
    for (uint32_t i = 1; i <= 16; ++i) {
        c.Insert(Ptr(i), vesk::CONTAINER_APPEND);
        capacities.push_back(c.Shapes()[0].capacity);
    }
    EXPECT_EQ(capacities, (std::vector<uint16_t>{4, 4, 4, 4, 8, 8, 8, 8, 12, 12, 12, 12, 16, 16, 16, 16}));
    capacities.clear();
    while (c.Count() > 1) {
        c.Remove(0u);
        capacities.push_back(c.Shapes()[0].capacity);
    }
    // Counts 15 down to 1: shrinks happen at 11, 7 and 3.
    EXPECT_EQ(capacities, (std::vector<uint16_t>{16, 16, 16, 16, 12, 12, 12, 12, 8, 8, 8, 8, 4, 4, 4}));
    c.Remove(0u);
    EXPECT_EQ(c.Shapes(), (Shapes{{0, 4}}));

    ContainerProbe margin = Filled(11, 16, 12, 4);
    for (int i = 0; i < 3; ++i) {
        margin.Insert(Ptr(99), 0u);
        margin.Remove(0u);
        EXPECT_EQ(margin.Shapes(), (Shapes{{11, 12}}));
    }
}

TEST(ContainerStorage, FullBlocksSplitInFrontOrBehindTheInsertionPoint)
{
    ContainerProbe append = Filled(17, 16, 4, 4);
    EXPECT_EQ(append.Shapes(), (Shapes{{16, 16}, {1, 4}}));

    ContainerProbe front = Filled(16, 16, 4, 4);
    front.Insert(Ptr(99), 3u);
    EXPECT_EQ(front.Shapes(), (Shapes{{4, 4}, {13, 16}}));
    EXPECT_EQ(front.GetCntObject(3), Ptr(99));
    EXPECT_EQ(front.GetCntObject(4), Ptr(4));

    ContainerProbe exact = Filled(16, 16, 4, 4);
    exact.Insert(Ptr(99), 4u); // four entries move: an exact multiple gets one more step
    EXPECT_EQ(exact.Shapes(), (Shapes{{5, 8}, {12, 16}}));

    ContainerProbe behind = Filled(16, 16, 4, 4);
    behind.Insert(Ptr(99), 10u);
    EXPECT_EQ(behind.Shapes(), (Shapes{{10, 16}, {7, 8}}));
    EXPECT_EQ(behind.Entries(), Ptrs({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 99, 11, 12, 13, 14, 15, 16}));
    EXPECT_TRUE(front.Consistent() && exact.Consistent() && behind.Consistent());
}

TEST(ContainerCurrent, InsertionsAndSplitsKeepTheCurrentEntry)
{
    ContainerProbe c(4, 2, 2);
    c.Insert(Ptr(1));
    EXPECT_EQ(c.GetCurObject(), Ptr(1));
    c.Insert(Ptr(2), 1u);
    c.Insert(Ptr(3), 2u);
    c.Insert(Ptr(4));      // before the current entry 1
    EXPECT_EQ(c.Entries(), Ptrs({4, 1, 2, 3}));
    EXPECT_EQ(c.GetCurObject(), Ptr(1));
    EXPECT_EQ(c.GetCurPos(), 1u);

    c.Seek(3u);
    c.Insert(Ptr(5), 1u); // splits in front; the current entry stays behind the split
    EXPECT_EQ(c.GetCurObject(), Ptr(3));
    EXPECT_EQ(c.GetCurPos(), 4u);
    c.Insert(Ptr(7), vesk::CONTAINER_APPEND); // blocks [4 5] [1 2 3 7]
    c.Seek(2u);
    c.Insert(Ptr(6), 3u); // splits in front; the current entry moves to the new block
    EXPECT_EQ(c.Shapes(), (Shapes{{2, 2}, {2, 2}, {3, 4}}));
    EXPECT_EQ(c.GetCurObject(), Ptr(1));
    EXPECT_EQ(c.GetCurPos(), 2u);

    ContainerProbe d = Filled(4, 4, 2, 2);
    d.Last();
    d.Insert(Ptr(9), 2u); // splits behind; the current entry moves to the new block
    EXPECT_EQ(d.Shapes(), (Shapes{{2, 4}, {3, 4}}));
    EXPECT_EQ(d.GetCurObject(), Ptr(4));
    EXPECT_EQ(d.GetCurPos(), 4u);
}

TEST(ContainerCurrent, RemovalsMoveTheCurrentPositionByBlock)
{
    ContainerProbe c = Filled(5, 4, 2, 2); // blocks [1 2 3 4] [5]
    c.Seek(1u);
    EXPECT_EQ(c.Remove(), Ptr(2));
    EXPECT_EQ(c.GetCurObject(), Ptr(3)); // the following entry
    c.Seek(2u);
    EXPECT_EQ(c.Remove(), Ptr(4));
    EXPECT_EQ(c.GetCurObject(), Ptr(3)); // it ended its block: the entry before
    c.Seek(0u);
    EXPECT_EQ(c.Remove(Ptr(5)), Ptr(5)); // removing before or after leaves the current entry
    EXPECT_EQ(c.GetCurObject(), Ptr(1));

    ContainerProbe d = Filled(6, 4, 2, 2); // [1 2 3 4] [5 6]
    d.Insert(Ptr(7), 2u);                  // [1 2] [7 3 4] [5 6]
    d.Remove(Ptr(3));
    d.Remove(Ptr(4));
    EXPECT_EQ(d.Shapes(), (Shapes{{2, 4}, {1, 2}, {2, 2}}));
    d.Seek(Ptr(7));
    d.Remove(); // a middle block goes: the start of the next one
    EXPECT_EQ(d.GetCurObject(), Ptr(5));
    d.Remove(Ptr(5));
    d.Last();
    d.Remove(); // the last block goes: the last entry of the one before
    EXPECT_EQ(d.GetCurObject(), Ptr(2));
    EXPECT_TRUE(d.Consistent());
}

TEST(ContainerIteration, MovesStopAtTheEnds)
{
    ContainerProbe c = Filled(6, 4, 2, 2);
    EXPECT_EQ(c.First(), Ptr(1));
    EXPECT_EQ(c.Prev(), nullptr);
    EXPECT_EQ(c.GetCurObject(), Ptr(1));
    for (uintptr_t i = 2; i <= 6; ++i)
        EXPECT_EQ(c.Next(), Ptr(i));
    EXPECT_EQ(c.Next(), nullptr);
    EXPECT_EQ(c.GetCurObject(), Ptr(6));
    EXPECT_EQ(c.Prev(), Ptr(5));
    EXPECT_EQ(c.Seek(1000u), Ptr(6));
    EXPECT_EQ(c.Seek(Ptr(3)), Ptr(3));
    EXPECT_EQ(c.Seek(Ptr(77)), nullptr);
    EXPECT_EQ(c.GetCurPos(), 2u);
    EXPECT_EQ(c.Last(), Ptr(6));
}

TEST(ContainerBadInput, GivesNullsClampsAndNotFound)
{
    ContainerProbe empty(8, 4, 4);
    EXPECT_EQ(empty.Remove(), nullptr);
    EXPECT_EQ(empty.Replace(Ptr(1)), nullptr);
    EXPECT_EQ(empty.GetCurPos(), CONTAINER_ENTRY_NOTFOUND);
    EXPECT_EQ(empty.GetCurObject(), nullptr);
    EXPECT_EQ(empty.First(), nullptr);
    EXPECT_EQ(empty.Last(), nullptr);
    EXPECT_EQ(empty.Next(), nullptr);
    EXPECT_EQ(empty.Seek(5u), nullptr);

    ContainerProbe c = Filled(3, 8, 4, 4);
    c.Insert(Ptr(4), 1000u);
    EXPECT_EQ(c.GetPos(Ptr(4)), 3u);
    EXPECT_EQ(c.GetCntObject(4), nullptr);
    EXPECT_EQ(c.GetObjectPtr(4), nullptr);
    EXPECT_EQ(c.Remove(4u), nullptr);
    EXPECT_EQ(c.Replace(Ptr(9), 4u), nullptr);
    EXPECT_EQ(c.Remove(Ptr(9)), nullptr);
    EXPECT_EQ(c.Replace(Ptr(9), Ptr(8)), nullptr);
    c.Insert(Ptr(9), Ptr(8));
    EXPECT_EQ(c.GetPos(Ptr(9)), CONTAINER_ENTRY_NOTFOUND);
    EXPECT_EQ(c.Entries(), Ptrs({1, 2, 3, 4}));

    *c.GetObjectPtr(1) = Ptr(20);
    c.Insert(Ptr(10), Ptr(20));
    EXPECT_EQ(c.Replace(Ptr(30), Ptr(3)), Ptr(3));
    EXPECT_EQ(c.Entries(), Ptrs({1, 10, 20, 30, 4}));
}

TEST(ContainerSize, SizeConstructorAndChangeSize)
{
    ContainerProbe one(0u);
    EXPECT_EQ(one.Count(), 1u);
    EXPECT_EQ(one.GetCntObject(0), nullptr);
    EXPECT_EQ(one.ChangeSize(0), 1u);
    EXPECT_EQ(one.Count(), 0u);
    EXPECT_EQ(one.Shapes(), (Shapes{{0, 1}}));

    ContainerProbe big(40000u);
    EXPECT_EQ(big.GetParams(), (Params{16368, 1, 1}));
    EXPECT_EQ(big.Shapes(), (Shapes{{16368, 16368}, {16368, 16368}, {7264, 7264}}));
    EXPECT_EQ(big.GetPos(Ptr(0)), 0u);
    EXPECT_EQ(big.GetPos(Ptr(1)), CONTAINER_ENTRY_NOTFOUND);

    ContainerProbe c = Filled(2, 4, 2, 2);
    EXPECT_EQ(c.ChangeSize(11), 2u);
    EXPECT_EQ(c.Shapes(), (Shapes{{4, 4}, {4, 4}, {3, 3}}));
    EXPECT_EQ(c.Entries(), Ptrs({1, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    c.Seek(5u);
    EXPECT_EQ(c.ChangeSize(6), 11u); // keeps the current entry
    EXPECT_EQ(c.GetCurPos(), 5u);
    EXPECT_EQ(c.Shapes(), (Shapes{{4, 4}, {2, 2}}));
    c.ChangeSize(3);                 // cut away: the current entry becomes the last
    EXPECT_EQ(c.GetCurPos(), 2u);
    EXPECT_EQ(c.Entries(), Ptrs({1, 2, 0}));
    EXPECT_TRUE(c.Consistent());
}

TEST(ContainerValue, CopiesCompareByEntriesNotLayout)
{
    ContainerProbe a = Filled(40, 4, 2, 2);
    a.Seek(17u);
    ContainerProbe copy(a);
    EXPECT_TRUE(copy == a);
    EXPECT_EQ(copy.GetParams(), a.GetParams());
    EXPECT_EQ(copy.GetCurObject(), Ptr(18));
    EXPECT_TRUE(Filled(40, 64, 8, 8) == a);

    copy.Replace(Ptr(0), 39u);
    EXPECT_TRUE(copy != a);
    copy = a;
    const ContainerProbe& same = copy;
    copy = same;
    EXPECT_TRUE(copy == a);
    copy.Remove(39u);
    EXPECT_TRUE(copy != a);
    copy.Clear();
    EXPECT_EQ(copy.Shapes(), (Shapes{{0, 2}}));
    EXPECT_TRUE(copy == ContainerProbe(16, 4, 4));
}
