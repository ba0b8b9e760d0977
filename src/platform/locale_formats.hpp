#pragma once

// Translation of POSIX locale data into the library's regional-settings values:
// strftime formats into date pictures and clock settings, monetary layout flags into
// currency format codes. Pure functions, no locale is consulted.
//
// Date pictures. The country record holds a short date as an order (day-month-year,
// month-day-year or year-month-day) with padding and century flags, and a long date as an
// optional weekday in front followed by day, month and year in one of those orders, each
// field followed by a text of its own. A strftime format becomes a picture that the
// picture readers take back into exactly that, by these rules:
//
// - Fields: %d dd, %e d, %m MM, %y yy, %Y and %C%y yyyy, %b and %h MMM (MMMM in the long
//   date, which spells names out), %B MMMM, %a ddd (dddd in the long date), %A dddd; a '-'
//   flag drops the padding (%-d d, %-m M). Composites (%D, %F, %x, %c, ...) are expanded;
//   E and O modifiers are read over. Every other conversion (time, zone, day of the year,
//   unknown ones) is left out.
// - The weekday is kept only in the long date and only where it stands before day, month
//   and year; elsewhere it is left out.
// - Day, month and year must each appear once, in one of the three orders; otherwise the
//   format gives no picture. The long date takes the first of _DATE_FMT, D_T_FMT and D_FMT
//   that does; the short date takes D_FMT or nothing.
// - Literal text before the first kept field is dropped (the record has no place for it).
//   The text after a kept field up to the next kept field (or the end) becomes that field's
//   text. Where left-out fields stand in between, that text is the part before the first
//   white space of the text leading up to them, without trailing commas, and nothing when
//   that text has no white space ("日 %A" keeps "日", "., %A" keeps ".", " d. %T" and "T%T"
//   keep nothing), followed by the text that leads from the last left-out field to the next
//   kept field (none after the last one).
// - Texts with ASCII letters are quoted with apostrophes; apostrophes themselves cannot be
//   carried and are dropped. A text that the reader would take for a field (a doubled d, m
//   or y in either case; a 'd' before a one-letter day; an 'm' anywhere or an 'M' before a
//   one-letter month) is replaced by a single space when it held white space, else dropped.
// - A long picture is cut to the 40 characters the reader takes by dropping field texts
//   from the end.


#include <optional>
#include <string>
#include <string_view>

namespace vesk::platform {

// The date and time formats of an LC_TIME locale, as UTF-8 text.
struct TimeFormats {
    std::string date{};     // D_FMT
    std::string dateTime{}; // D_T_FMT
    std::string dateLong{}; // _DATE_FMT, the form date(1) writes
    std::string time{};     // T_FMT
    std::string time12{};   // T_FMT_AMPM
};

// "sShortDate": the picture of D_FMT (see above); empty when it has none.
std::string ShortDatePicture(const TimeFormats& formats);
// "sLongDate": the picture of the first of _DATE_FMT, D_T_FMT and D_FMT that has one.
std::string LongDatePicture(const TimeFormats& formats);

// The clock settings of the locale's time format T_FMT.
struct ClockFormat {
    std::optional<int> nTime;      // "iTime": 0 twelve hours (%I, %l), 1 twenty-four (%H, %k)
    std::optional<int> nLeadingZero; // "iTLZero": 0 for %l, %k or a '-' flag, else 1
    std::string sSeparator;        // "sTime": the text between hours and minutes
};
ClockFormat ClockFromTimeFormat(const TimeFormats& formats);

// "iCurrency" from p_cs_precedes and p_sep_by_space: 0 "$1", 1 "1$", 2 "$ 1", 3 "1 $".
std::optional<int> PositiveCurrencyCode(int csPrecedes, int sepBySpace);
// "iNegCurr" from n_cs_precedes, n_sep_by_space and n_sign_posn: the code 0 to 11 whose
// layout matches; a layout no code has takes the nearest one without the space.
std::optional<int> NegativeCurrencyCode(int csPrecedes, int sepBySpace, int signPosn);

} // namespace vesk::platform
