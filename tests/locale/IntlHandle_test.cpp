#include "IntlTestUtil.hpp"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace vesk::test {
namespace {

IntlData* Pair(const International& intl)
{
    return InternationalAccess::Data(intl);
}

TEST(IntlHandle, CopiesShareUntilAValueChanges)
{
    International a = WithRecords(BuiltinCountry(1033), BuiltinLanguage(1031));
    International b = WithRecords(BuiltinCountry(1048));
    b = a;
    EXPECT_EQ(Pair(a), Pair(b));
    EXPECT_EQ(Pair(a)->nRefCount.load(), 2u);

    // Storing the value already held keeps the pair shared.
    EXPECT_EQ(b.ChangeDateSep('.'), '.');
    EXPECT_EQ(b.ChangeCurrSymbol("DM"), "DM");
    EXPECT_EQ(Pair(a), Pair(b));

    EXPECT_EQ(b.ChangeDateSep('/'), '.');
    EXPECT_NE(Pair(a), Pair(b));
    EXPECT_EQ(a.GetDateSep(), '.');
    EXPECT_EQ(Pair(a)->nRefCount.load(), 1u);

    // A private pair is changed in place.
    IntlData* own = Pair(b);
    EXPECT_EQ(b.ChangeMonthText(3, "Maerz"), "M\xE4rz");
    EXPECT_EQ(Pair(b), own);
    EXPECT_EQ(a.GetMonthText(3), "M\xE4rz");
}

TEST(IntlHandle, SaturatedPairIsDuplicatedOnCopy)
{
    International a = WithRecords(BuiltinCountry(1033));
    Pair(a)->nRefCount = INTL_MAXREFS;
    International b(a);
    International c;
    c = a;
    EXPECT_NE(Pair(a), Pair(b));
    EXPECT_NE(Pair(a), Pair(c));
    EXPECT_TRUE(a == b);
    Pair(a)->nRefCount = 1;
}

TEST(IntlHandle, EqualityComparesRecords)
{
    International a = WithRecords(BuiltinCountry(1033), BuiltinLanguage(1031));
    International b = WithRecords(BuiltinCountry(1033), BuiltinLanguage(1031));
    EXPECT_TRUE(a == b);
    b.ChangeHelpButtonText("?");
    EXPECT_TRUE(a != b);
}

TEST(IntlHandle, IndexesOutOfRangeGiveEmptyTexts)
{
    International a = WithRecords(CountryTable{}, BuiltinLanguage(1036));
    International b(a);
    EXPECT_EQ(a.GetAbbrevDayText(static_cast<DayOfWeek>(-1)), "");
    EXPECT_EQ(a.GetMonthText(0), "");
    EXPECT_EQ(b.ChangeMonthText(13, "x"), "");
    EXPECT_EQ(b.ChangeDayText(static_cast<DayOfWeek>(7), "x"), "");
    EXPECT_EQ(Pair(a), Pair(b));
}

TEST(IntlHandle, FlagSettersReturnThePreviousState)
{
    CountryTable c;
    c.m_bNumLeadingZero = 5; // a registered table may hold any non-zero flag
    International intl = WithRecords(c);
    EXPECT_TRUE(intl.ChangeNumLeadingZero(true));
    EXPECT_EQ(Pair(intl)->aCountry.m_bNumLeadingZero, 1);
    EXPECT_TRUE(intl.ChangeNumLeadingZero(false));
    EXPECT_FALSE(intl.IsNumLeadingZero());
}

TEST(IntlHandle, CopiesOnManyThreads)
{
    const International shared = WithRecords(BuiltinCountry(1033));
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&shared, t] {
            for (int i = 0; i < 2000; ++i) {
                International copy(shared);
                International other;
                other = copy;
                other.ChangeNumDigits(static_cast<uint16_t>(t + 3));
                if (other.GetNum(12345) == shared.GetNum(12345))
                    ADD_FAILURE() << "a change reached the shared pair";
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(Pair(shared)->nRefCount.load(), 1u);
    EXPECT_EQ(shared.GetNumDigits(), 2);
}

} // namespace
} // namespace vesk::test
