#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>

#include <compare>
#include <cstdint>

namespace vesk {

// A time of day or a signed duration held as the signed 32-bit number hhmmsscc (hundredths);
// a negative value is a negative duration whose magnitude holds the fields. Hours are not
// limited to a day; the largest magnitude is 2147 hours. Arithmetic goes through counts of
// hundredths and wraps around at 32 bits (raw values are 32-bit signed).
class VESK_API Time {
public:
    // The current local time of day from the system clock, hundredths 0.
    Time();
    // Normalised: hundredths above 99 carry into the seconds, seconds and minutes above 59
    // into the next field (16-bit arithmetic); hours are not reduced.
    Time(uint16_t hours, uint16_t minutes, uint16_t seconds, uint16_t hundredths);
    // The raw hhmmsscc value as given.
    explicit Time(int32_t raw) : m_nTime(raw) {}

    // The raw value.
    int32_t GetTime() const { return m_nTime; }
    // Sets the raw value; returns the previous one.
    int32_t ChangeTime(int32_t raw);

    // Hours of the magnitude.
    uint16_t GetHour() const;
    // Minutes of the magnitude.
    uint16_t GetMin() const;
    // Seconds of the magnitude.
    uint16_t GetSec() const;
    // Hundredths of the magnitude.
    uint16_t Get100Sec() const;
    // Sets the hours as given, keeping the other fields and the sign; returns the old hours.
    uint16_t ChangeHour(uint16_t hours);
    // Sets the minutes to minutes mod 60; returns the old minutes.
    uint16_t ChangeMin(uint16_t minutes);
    // Sets the seconds to seconds mod 60; returns the old seconds.
    uint16_t ChangeSec(uint16_t seconds);
    // Sets the hundredths to hundredths mod 100; returns the old hundredths.
    uint16_t Change100Sec(uint16_t hundredths);

    // The signed count of hundredths of a second.
    static int32_t TimeToSec100(const Time& t);
    // The time of a signed count of hundredths.
    static Time Sec100ToTime(int32_t hundredths);

    // Sum through the counts of hundredths (may exceed 24 hours).
    Time& operator+=(const Time& t);
    // Difference through the counts of hundredths (may be negative).
    Time& operator-=(const Time& t);
    // a <= this <= b on the signed raw values.
    bool IsBetween(const Time& a, const Time& b) const;
    // "h:m:s:c" from the magnitude, without sign or leading zeros ("1:5:3:7").
    SString ToString() const;

    // Comparison of the signed raw values.
    friend bool operator==(const Time&, const Time&) = default;
    friend std::strong_ordering operator<=>(const Time&, const Time&) = default;

private:
    // Replaces the magnitude, keeping the sign.
    void SetMagnitude(uint32_t magnitude);
    uint32_t Magnitude() const;

    int32_t m_nTime;
};

// Sum through the counts of hundredths.
VESK_API Time operator+(const Time& a, const Time& b);
// Difference through the counts of hundredths.
VESK_API Time operator-(const Time& a, const Time& b);
// The raw value negated.
VESK_API Time operator-(const Time& t);

} // namespace vesk
