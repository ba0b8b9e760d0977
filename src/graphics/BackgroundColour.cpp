#include <vesk/frame/VeskData.hpp>
#include <vesk/graphics/TamColor.hpp>

#include "platform/system_colors.hpp"

namespace vesk {

// Defined with the colour classes so that the library state needs no colour header.
TamColor VeskData::GetBackgroundColour()
{
    constexpr int kSysColorWindow = 5;
    return TamColor(platform::SystemColor(kSysColorWindow));
}

} // namespace vesk
