#pragma once

// Reading the system clock.
#include "platform/calendar.hpp"

#include <cstdint>

namespace vesk::platform {

// Broken-down wall-clock time in the local time zone.
using LocalTime = CalendarFields;

// The current local time (TZ rules of the process); all fields 0 if the clock cannot be read.
LocalTime ReadLocalTime();

// Milliseconds of a monotonic clock from an arbitrary start: for timers, delays and event
// times, which must not jump when the wall clock is set.
int64_t TickCountMs();

} // namespace vesk::platform
