#pragma once

// Reading the system clock.
#include <cstdint>

namespace vesk::platform {

// Broken-down wall-clock time in the local time zone.
struct LocalTime {
    uint16_t year = 0;
    uint16_t month = 0;
    uint16_t day = 0;
    uint16_t hour = 0;
    uint16_t minute = 0;
    uint16_t second = 0;
};

// The current local time (TZ rules of the process); all fields 0 if the clock cannot be read.
LocalTime ReadLocalTime();

} // namespace vesk::platform
