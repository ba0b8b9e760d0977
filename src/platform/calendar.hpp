#pragma once

// Broken-down calendar fields as the C library's time conversions give them.
#include <cstdint>
#include <ctime>

namespace vesk::platform {

struct CalendarFields {
    uint16_t year = 0;
    uint16_t month = 0; // 1..12
    uint16_t day = 0;
    uint16_t hour = 0;
    uint16_t minute = 0;
    uint16_t second = 0; // a leap second reads 60
};

// The fields of a broken-down time from localtime_r or gmtime_r.
inline CalendarFields FieldsOf(const std::tm& tm)
{
    CalendarFields f;
    f.year = static_cast<uint16_t>(tm.tm_year + 1900);
    f.month = static_cast<uint16_t>(tm.tm_mon + 1);
    f.day = static_cast<uint16_t>(tm.tm_mday);
    f.hour = static_cast<uint16_t>(tm.tm_hour);
    f.minute = static_cast<uint16_t>(tm.tm_min);
    f.second = static_cast<uint16_t>(tm.tm_sec);
    return f;
}

} // namespace vesk::platform
