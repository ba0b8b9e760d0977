#include "SStringTestUtil.hpp"

#include <vesk/text.hpp>

#include <thread>
#include <vector>

using namespace vesk;
using namespace vesk::test;

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 2000;

template <typename Work>
void RunThreads(Work work)
{
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t)
        threads.emplace_back(work, t);
    for (std::thread& thread : threads)
        thread.join();
}

bool IsOneOfTheTexts(const std::string& text)
{
    return text == "one" || text == "two" || text == "thr" || text == "three";
}

} // namespace

TEST(SStringThreads, AppendsToOneStringAreNeverLost)
{
    SString shared;
    RunThreads([&](int t) {
        for (int i = 0; i < kRounds; ++i) {
            shared += static_cast<char>('a' + t);
            shared += SString("-");
        }
    });
    EXPECT_EQ(shared.Len(), unsigned(2 * kThreads * kRounds));
    const std::string text = Bytes(shared);
    for (int t = 0; t < kThreads; ++t)
        EXPECT_EQ(std::count(text.begin(), text.end(), 'a' + t), kRounds);
}

TEST(SStringThreads, CopiesOfAStringThatGrowsSeeWholeStates)
{
    SString shared("x");
    RunThreads([&](int t) {
        for (int i = 0; i < kRounds; ++i) {
            if (t == 0) {
                shared += 'x';
                continue;
            }
            SString copy(shared);
            copy += 'y';
            const std::string text = Bytes(copy);
            ASSERT_EQ(text.find_first_not_of('x'), text.size() - 1);
        }
    });
    EXPECT_EQ(shared.Len(), unsigned(kRounds + 1));
    EXPECT_EQ(Owners(shared), 1u);
}

TEST(SStringThreads, AssignmentsBetweenSharedStringsKeepCountsRight)
{
    SString strings[3] = {SString("one"), SString("two"), SString("three")};
    RunThreads([&](int t) {
        for (int i = 0; i < kRounds; ++i) {
            SString& target = strings[(t + i) % 3];
            const SString& source = strings[(t + i + 1) % 3];
            if (i % 3 == 0)
                target = source;
            else if (i % 3 == 1)
                target = SString(source, 0, 3);
            else {
                // Copies are whole states, and both comparisons agree on them.
                const SString a(target), b(source);
                ASSERT_TRUE(IsOneOfTheTexts(Bytes(a))) << Bytes(a);
                ASSERT_EQ(a.Compare(b) == COMPARE_EQUAL, a == b);
            }
        }
    });
    for (const SString& s : strings)
        EXPECT_TRUE(IsOneOfTheTexts(Bytes(s))) << Bytes(s);
    // Every record ends with exactly the owners that point at it.
    for (const SString& s : strings) {
        unsigned sharers = 0;
        for (const SString& other : strings)
            sharers += SharesRecord(s, other);
        EXPECT_EQ(Owners(s), sharers);
    }
}
