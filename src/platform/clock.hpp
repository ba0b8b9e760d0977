#pragma once

// Reading the system clock.
#include "platform/calendar.hpp"

namespace vesk::platform {

// Broken-down wall-clock time in the local time zone.
using LocalTime = CalendarFields;

// The current local time (TZ rules of the process); all fields 0 if the clock cannot be read.
LocalTime ReadLocalTime();

} // namespace vesk::platform
