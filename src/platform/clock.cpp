#include "platform/clock.hpp"

#include <ctime>

namespace vesk::platform {

LocalTime ReadLocalTime()
{
    const std::time_t now = std::time(nullptr);
    std::tm tm{};
    if (now == static_cast<std::time_t>(-1) || !localtime_r(&now, &tm))
        return {};
    LocalTime t;
    t.year = static_cast<uint16_t>(tm.tm_year + 1900);
    t.month = static_cast<uint16_t>(tm.tm_mon + 1);
    t.day = static_cast<uint16_t>(tm.tm_mday);
    t.hour = static_cast<uint16_t>(tm.tm_hour);
    t.minute = static_cast<uint16_t>(tm.tm_min);
    // A leap second (60) is kept; Time's constructor carries it into the next minute.
    t.second = static_cast<uint16_t>(tm.tm_sec);
    return t;
}

} // namespace vesk::platform
