#pragma once

// Translation of POSIX locale data into the original platform's regional-settings values:
// strftime formats into date pictures and clock settings, monetary layout flags into
// currency format codes. Pure functions, no locale is consulted.


#include <optional>
#include <string>
#include <string_view>

namespace vesk::platform {

// The date picture of a strftime format: %d dd, %e d, %m MM, %y yy, %Y yyyy, %a ddd, %A dddd,
// %b MMM, %B MMMM, %D and %F expanded; a '-' flag drops the padding (%-d d, %-m M). Time and
// zone fields are left out together with the literal text that led up to them; literal text
// holding ASCII letters is quoted with apostrophes. With `longForm` the abbreviated names
// become full ones (%a dddd, %b MMMM), for the long date.
std::string DatePicture(std::string_view format, bool longForm);

// The clock settings of a strftime time format (%r, %R and %T expanded).
struct ClockFormat {
    std::optional<int> nTime;      // "iTime": 0 twelve hours (%I, %l), 1 twenty-four (%H, %k)
    std::optional<int> nLeadingZero; // "iTLZero": 0 for %l, %k or a '-' flag, else 1
    std::string sSeparator;        // "sTime": the text between hours and minutes
};
ClockFormat ClockFromTimeFormat(std::string_view format, std::string_view format12);

// "iCurrency" from p_cs_precedes and p_sep_by_space: 0 "$1", 1 "1$", 2 "$ 1", 3 "1 $".
std::optional<int> PositiveCurrencyCode(int csPrecedes, int sepBySpace);
// "iNegCurr" from n_cs_precedes, n_sep_by_space and n_sign_posn: the code 0 to 11 whose
// layout matches; a layout no code has takes the nearest one without the space.
std::optional<int> NegativeCurrencyCode(int csPrecedes, int sepBySpace, int signPosn);

} // namespace vesk::platform
