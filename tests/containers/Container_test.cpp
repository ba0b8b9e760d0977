#include "containers/ContainerProbe.hpp"

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
        capacities.push_back(c.Shapes()[0].second);
    }
    EXPECT_EQ(capacities, (std::vector<uint16_t>{4, 4, 4, 4, 8, 8, 8, 8, 12, 12, 12, 12, 16, 16, 16, 16}));
    capacities.clear();
    while (c.Count() > 1) {
        c.Remove(0u);
        capacities.push_back(c.Shapes()[0].second);
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

    // The halves meet at count / 2: below it the head moves, from it on the tail.
    const std::pair<uint32_t, Shapes> splits[] = {
        {0, {{1, 4}, {16, 16}}}, {7, {{8, 8}, {9, 16}}}, {8, {{8, 16}, {9, 12}}}, {15, {{15, 16}, {2, 4}}}};
    for (const auto& [at, shapes] : splits) {
        ContainerProbe c = Filled(16, 16, 4, 4);
        c.Insert(Ptr(99), at);
        EXPECT_EQ(c.Shapes(), shapes) << at;
        EXPECT_EQ(c.GetCntObject(at), Ptr(99)) << at;
        EXPECT_EQ(c.GetCntObject(at + 1), Ptr(at + 1)) << at;
    }
}

// Contents and the current position after ChangeSize are covered by the model test.
TEST(ContainerSize, SizeConstructorAndChangeSizeLayBlocksOut)
{
    ContainerProbe one(0u);
    EXPECT_EQ(one.Entries(), std::vector<void*>{nullptr});
    EXPECT_EQ(one.ChangeSize(0), 1u);
    EXPECT_EQ(one.Shapes(), (Shapes{{0, 1}}));

    ContainerProbe big(40000u);
    EXPECT_EQ(big.GetParams(), (Params{16368, 1, 1}));
    EXPECT_EQ(big.Shapes(), (Shapes{{16368, 16368}, {16368, 16368}, {7264, 7264}}));
    EXPECT_EQ(big.GetPos(Ptr(1)), CONTAINER_ENTRY_NOTFOUND);

    ContainerProbe c = Filled(2, 4, 2, 2);
    c.ChangeSize(11);
    EXPECT_EQ(c.Shapes(), (Shapes{{4, 4}, {4, 4}, {3, 3}}));
    c.ChangeSize(6);
    EXPECT_EQ(c.Shapes(), (Shapes{{4, 4}, {2, 2}}));
}

TEST(ContainerValue, CopiesCompareByEntriesNotLayout)
{
    ContainerProbe a = Filled(40, 4, 2, 2);
    a.Seek(17u);
    ContainerProbe copy(a);
    EXPECT_TRUE(copy == a);
    EXPECT_EQ(copy.GetCurObject(), Ptr(18));
    EXPECT_TRUE(Filled(40, 64, 8, 8) == a);
    copy.Replace(Ptr(0), 39u);
    EXPECT_TRUE(copy != a);
    copy = a;
    copy.Remove(39u);
    EXPECT_TRUE(copy != a);
    copy.Clear();
    EXPECT_EQ(copy.Shapes(), (Shapes{{0, 2}}));
}
