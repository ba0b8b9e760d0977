#pragma once

#include <locale.h>

namespace vesk {

// The locale set by SString::SetLocale, or null for the calling thread's current locale.
locale_t SStringCaseLocale() noexcept;

} // namespace vesk
