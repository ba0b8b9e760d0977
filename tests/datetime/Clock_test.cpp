// Date() and Time() read the system clock in local time.
#include <vesk/datetime.hpp>

#include "support/EnvGuard.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>

namespace vesk {
namespace {

namespace chr = std::chrono;

struct Expected {
    Date date;
    Time time;
};

Expected FromClock(chr::seconds utcOffset)
{
    const auto local = chr::floor<chr::seconds>(chr::system_clock::now()) + utcOffset;
    const chr::sys_days day = chr::floor<chr::days>(local);
    const chr::year_month_day ymd(day);
    const chr::hh_mm_ss<chr::seconds> hms(local - day);
    return {Date(static_cast<uint16_t>(static_cast<unsigned>(ymd.day())), static_cast<uint16_t>(static_cast<unsigned>(ymd.month())),
                 static_cast<uint16_t>(static_cast<int>(ymd.year()))),
            Time(static_cast<uint16_t>(hms.hours().count()), static_cast<uint16_t>(hms.minutes().count()),
                 static_cast<uint16_t>(hms.seconds().count()), 0)};
}

// Reads Date() and Time() between two readings of the reference clock, so that a second
// boundary crossed meanwhile is accepted.
void ExpectLocalClock(chr::seconds utcOffset)
{
    const Expected before = FromClock(utcOffset);
    const Date date;
    const Time time;
    const Expected after = FromClock(utcOffset);
    EXPECT_TRUE(date == before.date || date == after.date) << date.GetDate();
    EXPECT_TRUE(time == before.time || time == after.time) << time.GetTime();
    EXPECT_EQ(time.Get100Sec(), 0);
}

TEST(Clock, DateAndTimeFollowTheLocalTimeZone)
{
    {
        const test::EnvGuard tz("TZ", "UTC0");
        ExpectLocalClock(chr::hours(0));
    }
    {
        const test::EnvGuard tz("TZ", "EAST-14");
        ExpectLocalClock(chr::hours(14));
    }
    {
        const test::EnvGuard tz("TZ", "WEST11:30");
        ExpectLocalClock(-chr::hours(11) - chr::minutes(30));
    }
}

TEST(EnvGuard, RestoresPreviousValueOrAbsence)
{
    {
        const test::EnvGuard outer("VESK_ENV_GUARD_PROBE", "outer");
        {
            const test::EnvGuard inner("VESK_ENV_GUARD_PROBE", nullptr);
            EXPECT_EQ(std::getenv("VESK_ENV_GUARD_PROBE"), nullptr);
        }
        EXPECT_STREQ(std::getenv("VESK_ENV_GUARD_PROBE"), "outer");
    }
    EXPECT_EQ(std::getenv("VESK_ENV_GUARD_PROBE"), nullptr);
}

} // namespace
} // namespace vesk
