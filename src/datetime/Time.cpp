#include <vesk/datetime/Time.hpp>

#include "platform/clock.hpp"

namespace vesk {

namespace {

constexpr uint32_t kHourUnit = 1000000;
constexpr uint32_t kMinUnit = 10000;
constexpr uint32_t kSecUnit = 100;

// Replaces the two-digit field at unit (10000 minutes, 100 seconds, 1 hundredths).
uint32_t WithField(uint32_t magnitude, uint32_t unit, uint32_t value)
{
    return magnitude - magnitude / unit % 100 * unit + value * unit;
}

// Carries whole multiples of limit from low into high, in the 16-bit fields' own arithmetic.
void Carry(uint16_t& low, uint16_t& high, uint16_t limit)
{
    if (low >= limit) {
        const uint16_t k = static_cast<uint16_t>((low - limit) / limit + 1);
        high = static_cast<uint16_t>(high + k);
        low = static_cast<uint16_t>(low - limit * k);
    }
}

} // namespace

Time::Time()
{
    const platform::LocalTime now = platform::ReadLocalTime();
    *this = Time(now.hour, now.minute, now.second, 0);
}

Time::Time(uint16_t hours, uint16_t minutes, uint16_t seconds, uint16_t hundredths)
{
    Carry(hundredths, seconds, 100);
    Carry(seconds, minutes, 60);
    Carry(minutes, hours, 60);
    // Hours beyond 2147 do not fit and wrap around.
    m_nTime = static_cast<int32_t>(hours * kHourUnit + minutes * kMinUnit + seconds * kSecUnit + hundredths);
}

int32_t Time::ChangeTime(int32_t raw)
{
    const int32_t old = m_nTime;
    m_nTime = raw;
    return old;
}

uint32_t Time::Magnitude() const
{
    const uint32_t raw = static_cast<uint32_t>(m_nTime);
    return m_nTime < 0 ? 0u - raw : raw;
}

void Time::SetMagnitude(uint32_t magnitude)
{
    m_nTime = static_cast<int32_t>(m_nTime < 0 ? 0u - magnitude : magnitude);
}

uint16_t Time::GetHour() const
{
    return static_cast<uint16_t>(Magnitude() / kHourUnit);
}

uint16_t Time::GetMin() const
{
    return static_cast<uint16_t>(Magnitude() / kMinUnit % 100);
}

uint16_t Time::GetSec() const
{
    return static_cast<uint16_t>(Magnitude() / kSecUnit % 100);
}

uint16_t Time::Get100Sec() const
{
    return static_cast<uint16_t>(Magnitude() % 100);
}

uint16_t Time::ChangeHour(uint16_t hours)
{
    const uint16_t old = GetHour();
    SetMagnitude(hours * kHourUnit + Magnitude() % kHourUnit);
    return old;
}

uint16_t Time::ChangeMin(uint16_t minutes)
{
    const uint16_t old = GetMin();
    SetMagnitude(WithField(Magnitude(), kMinUnit, minutes % 60u));
    return old;
}

uint16_t Time::ChangeSec(uint16_t seconds)
{
    const uint16_t old = GetSec();
    SetMagnitude(WithField(Magnitude(), kSecUnit, seconds % 60u));
    return old;
}

uint16_t Time::Change100Sec(uint16_t hundredths)
{
    const uint16_t old = Get100Sec();
    SetMagnitude(WithField(Magnitude(), 1, hundredths % 100u));
    return old;
}

int32_t Time::TimeToSec100(const Time& t)
{
    const uint32_t count = ((t.GetHour() * 60u + t.GetMin()) * 60u + t.GetSec()) * 100u + t.Get100Sec();
    return static_cast<int32_t>(t.m_nTime < 0 ? 0u - count : count);
}

Time Time::Sec100ToTime(int32_t hundredths)
{
    const uint32_t raw = static_cast<uint32_t>(hundredths);
    const uint32_t a = hundredths < 0 ? 0u - raw : raw;
    Time t(static_cast<uint16_t>(a / 360000), static_cast<uint16_t>(a % 360000 / 6000),
           static_cast<uint16_t>(a % 6000 / 100), static_cast<uint16_t>(a % 100));
    if (hundredths < 0)
        t = -t;
    return t;
}

Time& Time::operator+=(const Time& t)
{
    *this = *this + t;
    return *this;
}

Time& Time::operator-=(const Time& t)
{
    *this = *this - t;
    return *this;
}

bool Time::IsBetween(const Time& a, const Time& b) const
{
    return a <= *this && *this <= b;
}

SString Time::ToString() const
{
    SString s(static_cast<unsigned int>(GetHour()));
    s += ':';
    s += static_cast<unsigned int>(GetMin());
    s += ':';
    s += static_cast<unsigned int>(GetSec());
    s += ':';
    s += static_cast<unsigned int>(Get100Sec());
    return s;
}

Time operator+(const Time& a, const Time& b)
{
    const uint32_t sum = static_cast<uint32_t>(Time::TimeToSec100(a)) + static_cast<uint32_t>(Time::TimeToSec100(b));
    return Time::Sec100ToTime(static_cast<int32_t>(sum));
}

Time operator-(const Time& a, const Time& b)
{
    const uint32_t diff = static_cast<uint32_t>(Time::TimeToSec100(a)) - static_cast<uint32_t>(Time::TimeToSec100(b));
    return Time::Sec100ToTime(static_cast<int32_t>(diff));
}

Time operator-(const Time& t)
{
    return Time(static_cast<int32_t>(0u - static_cast<uint32_t>(t.GetTime())));
}

} // namespace vesk
