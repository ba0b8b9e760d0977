#pragma once

// The user's regional settings, derived from the process's POSIX locale under the "intl"
// profile key names. Each category is read from the locale in force for it:
// the process's own when the program has set one other than C or POSIX (setlocale), else the
// one the environment names (LC_ALL, then LC_TIME, LC_NUMERIC, ..., then LANG). A category
// whose locale is C, POSIX or missing on the machine contributes no keys.
//
//   LC_TIME       sShortDate   picture of D_FMT (see ShortDatePicture in locale_formats.hpp)
//                 sLongDate    picture of _DATE_FMT, else D_T_FMT, else D_FMT (time and zone
//                              left out, names in full; see locale_formats.hpp)
//                 iTime, iTLZero, sTime   from the hour field of T_FMT (%r: T_FMT_AMPM)
//                 s1159, s2359 AM_STR, PM_STR
//   LC_NUMERIC    sDecimal     RADIXCHAR
//                 sThousand    THOUSEP, empty when GROUPING groups nothing
//                 sList        ";" when the decimal separator is ",", else ","
//   LC_MONETARY   sCurrency    CURRENCY_SYMBOL
//                 iCurrDigits  FRAC_DIGITS
//                 iCurrency    from P_CS_PRECEDES and P_SEP_BY_SPACE
//                 iNegCurr     from N_CS_PRECEDES, N_SEP_BY_SPACE and N_SIGN_POSN
//   LC_TELEPHONE  iCountry     the international dialling prefix (_NL_TELEPHONE_INT_PREFIX)
//
// POSIX has no counterpart of iLzero and iDigits (the C library always writes the zero before
// the decimal separator); they are left to the country's record. Texts in a locale whose
// codeset is not UTF-8 are converted to UTF-8 with iconv.
//
// The day and month names of LC_TIME's locale are the source of the system language's texts
// where the library has none of its own; POSIX has no button texts.


#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace vesk::platform {

// Key names compare without regard to ASCII case, as profile keys do.
struct IntlKeyLess {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const;
};

// "intl" key names with their UTF-8 values.
using IntlKeys = std::map<std::string, std::string, IntlKeyLess>;

// The keys derived from the locale, as listed above.
IntlKeys IntlKeysFromLocale();

// The user's LCID: the identifier of LC_TIME's locale name (see LcidFromLocaleName).
uint32_t UserDefaultLCID();

// The day and month names of a locale in UTF-8, in the forms the C library writes into dates
// (%A, %a, %B, %b: genitive month names where the language has them). Days start on Monday.
struct LocaleNames {
    std::array<std::string, 7> days;
    std::array<std::string, 7> abbrevDays;
    std::array<std::string, 12> months;
    std::array<std::string, 12> abbrevMonths;
};

// The names of LC_TIME's locale; none when it is C, POSIX or missing on the machine.
std::optional<LocaleNames> LocaleNamesFromLocale();

} // namespace vesk::platform
