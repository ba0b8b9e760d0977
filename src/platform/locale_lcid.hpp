#pragma once

// Windows locale identifiers (LCIDs) for POSIX locale names.


#include <cstdint>
#include <string_view>

namespace vesk::platform {

// The LCID of a locale name such as "de_DE.UTF-8" or "fr_CH@euro" (codeset and modifier are
// ignored): the identifier of language and territory; for a territory without one, the
// language's neutral identifier (its primary language, "de_BE" gives 7); for the C and POSIX
// locales 1033, the US-English identifier; for a language without an identifier 0x1000, the
// identifier for locales without a number of their own.
uint32_t LcidFromLocaleName(std::string_view name);

} // namespace vesk::platform
