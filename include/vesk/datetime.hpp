#pragma once

// Dates and times: Date (yyyymmdd), Time (hhmmsscc, also a signed duration) and DayOfWeek.
#include <vesk/datetime/Date.hpp>
#include <vesk/datetime/Time.hpp>
