#include "platform/clock.hpp"

#include <chrono>
#include <ctime>

namespace vesk::platform {

LocalTime ReadLocalTime()
{
    const std::time_t now = std::time(nullptr);
    std::tm tm{};
    if (now == static_cast<std::time_t>(-1) || !localtime_r(&now, &tm))
        return {};
    // A leap second (60) is kept; Time's constructor carries it into the next minute.
    return FieldsOf(tm);
}

int64_t TickCountMs()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace vesk::platform
