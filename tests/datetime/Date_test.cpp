#include <vesk/datetime.hpp>

#include <gtest/gtest.h>

#include <chrono>

namespace vesk {
namespace {

namespace chr = std::chrono;

uint32_t DayNumber(const Date& d)
{
    return d - Date(0u); // a null right operand gives the left one's day number
}

Date DateOfDayNumber(uint32_t n)
{
    return Date(0u) + n; // the null date plus n is the date of day number n
}

TEST(Date, DayNumbersMatchTheGregorianCalendarFromYear1To3000)
{
    const chr::sys_days first = chr::year(1) / 1 / 1;
    const chr::sys_days last = chr::year(3000) / 12 / 31;
    for (chr::sys_days day = first; day <= last; day += chr::days(1)) {
        const chr::year_month_day ymd(day);
        const auto y = static_cast<uint16_t>(static_cast<int>(ymd.year()));
        const auto m = static_cast<uint16_t>(static_cast<unsigned>(ymd.month()));
        const auto d = static_cast<uint16_t>(static_cast<unsigned>(ymd.day()));
        const Date date(d, m, y);
        const auto expected = static_cast<uint32_t>((day - first).count() + 1);
        ASSERT_EQ(DayNumber(date), expected) << date.GetDate();
        // Day numbers below 365 come back in year 0, all others exactly.
        const Date back = DateOfDayNumber(expected);
        ASSERT_EQ(back.GetDate(), expected < 365 ? date.GetDate() % 10000 : date.GetDate()) << expected;
        ASSERT_EQ(date.GetDayOfWeek(), static_cast<DayOfWeek>(chr::weekday(day).iso_encoding() - 1));
        ASSERT_EQ(date.GetDayOfYear(), static_cast<uint16_t>((day - chr::sys_days(ymd.year() / 1 / 1)).count() + 1));
        ASSERT_EQ(date.GetDaysInMonth(), static_cast<unsigned>(chr::year_month_day_last(ymd.year() / ymd.month() / chr::last).day()));
        ASSERT_TRUE(date.IsValid());
    }
}

TEST(Date, FieldsAreReducedButNotValidated)
{
    Date d(131, 113, 12024);
    EXPECT_EQ(d.GetDate(), 20241331u);
    EXPECT_FALSE(d.IsValid());
    EXPECT_EQ(d.ChangeYear(65535), 2024u);
    EXPECT_EQ(d.ChangeMonth(112), 13);
    EXPECT_EQ(d.GetDate(), 55351231u);
    EXPECT_FALSE(Date(29, 2, 1900).IsValid());
    EXPECT_TRUE(Date(0, 0, 2024).IsValid());
    EXPECT_FALSE(Date(1, 0, 2024).IsValid());
    EXPECT_TRUE(Date(31, 12, 0).IsValid());
    EXPECT_FALSE(Date(1, 1, 3001).IsValid());
}

TEST(Date, WeekdayOfDayNumberZeroAndWeekOfYear)
{
    EXPECT_EQ(Date(15, 3, 0).GetDayOfWeek(), THURSDAY);
    EXPECT_EQ(Date(1, 13, 2024).GetDayOfWeek(), THURSDAY);
    EXPECT_EQ(Date(1, 1, 2024).GetWeekOfYear(), 1);
    // 2021 began on a Friday (w = 4): day 4 has 4 mod 7 > 3.
    EXPECT_EQ(Date(3, 1, 2021).GetWeekOfYear(), 1);
    EXPECT_EQ(Date(4, 1, 2021).GetWeekOfYear(), 2);
    EXPECT_EQ(Date(5, 20, 2023).GetDayOfYear(), 370);
}

// Day numbers and their round trip are compared with the calendar above.
TEST(Date, StepOperatorsAndNegativeDifferences)
{
    EXPECT_EQ(Date(1, 1, 2024) - Date(1, 1, 2025), 0u);
    Date d(28, 2, 2023);
    EXPECT_EQ((++d).GetDate(), 20230301u);
    EXPECT_EQ((d--).GetDate(), 20230301u);
    EXPECT_EQ((d += 366).GetDate(), 20240229u);
    EXPECT_EQ((d -= 365).GetDate(), 20230301u);
}

TEST(Date, NullDateAndYearZero)
{
    EXPECT_EQ((Date(0u) + 10).GetDate(), 110u);
    EXPECT_EQ(Date(0u) - 10, Date(0u));
    Date null(0, 0, 0);
    EXPECT_EQ((null++).GetDate(), 0u);
    EXPECT_EQ((null += 5).GetDate(), 105u);
    EXPECT_EQ(DateOfDayNumber(0).GetDate(), 100u);
    EXPECT_EQ(DateOfDayNumber(60).GetDate(), 301u); // year 0 has no leap day
    EXPECT_EQ(DateOfDayNumber(365).GetDate(), 11231u);
    Date yearZero(15, 6, 0); // day number 0, so stepping restarts at day 1
    EXPECT_EQ((++yearZero).GetDate(), 101u);
}

TEST(Date, CountsWrapOrGiveNullAsStated)
{
    const Date d(5, 1, 2024);
    EXPECT_EQ(d - 1000000, Date(0u));
    EXPECT_EQ((d - 738890).GetDate(), 100u);
    EXPECT_EQ(d + 0xFFFFFFFFu, Date(0u));
    Date wrapped = d;
    EXPECT_EQ((wrapped += 0xFFFFFFFFu).GetDate(), 20240104u); // 2^32 - 1 days on is one day back
    Date far = d;
    far -= 1000000; // unchecked: lands far in the future, with a real month and day
    EXPECT_TRUE(far.GetMonth() >= 1 && far.GetMonth() <= 12 && far.GetDay() >= 1 && far.GetDay() <= 31);
}

} // namespace
} // namespace vesk
