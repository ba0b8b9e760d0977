// Date() and Time() read the system clock in local time.
#include <vesk/datetime.hpp>

#include "support/EnvGuard.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <utility>

namespace vesk {
namespace {

namespace chr = std::chrono;

// The local date and time by the reference clock, as yyyymmdd and hhmmss00.
std::pair<uint32_t, int32_t> ReferenceClock(chr::seconds utcOffset)
{
    const auto local = chr::floor<chr::seconds>(chr::system_clock::now()) + utcOffset;
    const chr::sys_days day = chr::floor<chr::days>(local);
    const chr::year_month_day ymd(day);
    const chr::hh_mm_ss<chr::seconds> hms(local - day);
    const auto date = static_cast<uint32_t>((static_cast<int>(ymd.year()) * 100 + static_cast<unsigned>(ymd.month())) * 100 +
                                            static_cast<unsigned>(ymd.day()));
    const auto time = static_cast<int32_t>(((hms.hours().count() * 100 + hms.minutes().count()) * 100 + hms.seconds().count()) * 100);
    return {date, time};
}

// Reads Date() and Time() between two readings of the reference clock, so that a second
// boundary crossed meanwhile is accepted. The C library's time() reads a coarse clock that may
// lag the precise one by a tick, so the second before the first reading is accepted too.
void ExpectLocalClock(const char* tz, chr::seconds utcOffset)
{
    const test::EnvGuard guard("TZ", tz);
    const auto lagging = ReferenceClock(utcOffset - chr::seconds(1));
    const auto before = ReferenceClock(utcOffset);
    const Date date;
    const Time time;
    const auto after = ReferenceClock(utcOffset);
    EXPECT_TRUE(date.GetDate() == lagging.first || date.GetDate() == before.first || date.GetDate() == after.first)
        << tz << " " << date.GetDate();
    EXPECT_TRUE(time.GetTime() == lagging.second || time.GetTime() == before.second || time.GetTime() == after.second)
        << tz << " " << time.GetTime();
}

TEST(Clock, DateAndTimeFollowTheLocalTimeZone)
{
    ExpectLocalClock("UTC0", chr::hours(0));
    ExpectLocalClock("EAST-14", chr::hours(14));
    ExpectLocalClock("WEST11:30", -chr::hours(11) - chr::minutes(30));
}

} // namespace
} // namespace vesk
