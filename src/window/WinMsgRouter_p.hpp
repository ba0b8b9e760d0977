#pragma once

#include <vesk/export.hpp>

namespace vesk {

// Library start and end make and destroy the one router. Creating keeps an existing router;
// exported so that tests can run the router without the whole library state.
VESK_API void ImpCreateWinMsgRouter();
VESK_API void ImpDestroyWinMsgRouter();

} // namespace vesk
