#pragma once

// The system settings with the user's own overrides: an [intl] section in the user's profile
// file (<config directory>/vesk/profile.ini) replaces single keys of those derived from the locale, for example
//
//   [intl]
//   sShortDate=yyyy-MM-dd
//   sThousand=
//
// An empty value counts (an empty sThousand switches grouping off); a missing or unreadable
// file or section changes nothing.

#include "platform/locale_source.hpp"


#include <string>

namespace vesk::platform {

// <config directory>/vesk/profile.ini
std::string UserProfilePath();

// The keys of IntlKeysFromLocale, each replaced by the same key of the [intl] section.
IntlKeys ReadIntlKeys();

} // namespace vesk::platform
