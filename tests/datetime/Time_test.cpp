#include <vesk/datetime.hpp>

#include <gtest/gtest.h>

namespace vesk {
namespace {

TEST(Time, ConstructorCarriesOverflowingFieldsIn16Bits)
{
    EXPECT_EQ(Time(0, 59, 59, 150).GetTime(), 1000050);
    EXPECT_EQ(Time(0, 0, 0, 65535).GetTime(), 105535); // 655.35 s = 10 min 55.35 s
    EXPECT_EQ(Time(0, 0, 65535, 150).GetTime(), 50);    // the carried second wraps the field to 0
    EXPECT_EQ(Time(30, 0, 0, 0).GetTime(), 30000000);   // hours are not reduced
    EXPECT_EQ(Time(2148, 0, 0, 0).GetTime(), static_cast<int32_t>(2148000000u));
}

TEST(Time, FieldsOfNegativeDurationsComeFromTheMagnitude)
{
    const Time t = Time(10, 0, 0, 0) - Time(12, 30, 0, 0);
    EXPECT_EQ(t.GetTime(), -2300000);
    EXPECT_EQ(t.GetHour(), 2);
    EXPECT_EQ(t.GetMin(), 30);
    EXPECT_EQ(Time::TimeToSec100(t), -900000);
    EXPECT_EQ(t.ToString(), "2:30:0:0");
    EXPECT_EQ(Time(-1020304).GetSec(), 3);
    EXPECT_EQ(Time(INT32_MIN).GetHour(), 2147);
}

TEST(Time, ChangingFieldsKeepsTheSign)
{
    Time t(-2300000);
    EXPECT_EQ(t.ChangeMin(75), 30);
    EXPECT_EQ(t.GetTime(), -2150000);
    EXPECT_EQ(t.ChangeHour(30), 2);
    EXPECT_EQ(t.GetTime(), -30150000);
    EXPECT_EQ(t.ChangeSec(61), 0);
    EXPECT_EQ(t.Change100Sec(250), 0);
    EXPECT_EQ(t.GetTime(), -30150150);
}

TEST(Time, ArithmeticThroughHundredths)
{
    EXPECT_EQ((Time(23, 0, 0, 0) + Time(2, 0, 0, 0)).GetHour(), 25);
    Time t(0, 0, 59, 99);
    t += Time(0, 0, 0, 1);
    EXPECT_EQ(t.GetTime(), 10000);
    t -= Time(0, 2, 0, 0);
    EXPECT_EQ(t.GetTime(), -10000);
    EXPECT_EQ((-Time(INT32_MIN)).GetTime(), INT32_MIN);
    EXPECT_EQ(Time::TimeToSec100(Time(1, 2, 3, 4)), 372304);
    EXPECT_EQ(Time::Sec100ToTime(-372304).GetTime(), -1020304);
    // 5965 hours do not fit the hour digits; the raw value wraps before the sign is applied.
    EXPECT_EQ(Time::Sec100ToTime(INT32_MIN).GetTime(), -1670168352);
}

TEST(Time, ComparesSignedRawValues)
{
    EXPECT_TRUE(Time(12, 0, 0, 0).IsBetween(Time(-5), Time(12, 0, 0, 1)));
    EXPECT_FALSE(Time(-5).IsBetween(Time(0), Time(12, 0, 0, 0)));
}

} // namespace
} // namespace vesk
