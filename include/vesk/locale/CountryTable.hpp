#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>

#include <cstdint>

namespace vesk {

// A country identifier of the library's own numbering (see International's built-in list).
using CountryType = uint32_t;

// The user's own country, built from the system settings.
inline constexpr CountryType COUNTRY_SYSTEM = 0;
// The type of a default record and of an out-of-range registry index.
inline constexpr CountryType COUNTRY_DONTKNOW = 255;

// Order of the fields of a date. Values outside the enumerators may be stored; a date then
// takes the month-day-year order.
enum DateFormat : int32_t { MDY = 0, DMY = 1, YMD = 2 };
// The weekday at the start of a long date.
enum DayOfWeekFormat : int32_t { DAYOFWEEK_NONE = 0, DAYOFWEEK_SHORT = 1, DAYOFWEEK_LONG = 2 };
// The month of a long date: its number, its number padded to two digits, or its name.
enum MonthFormat : int32_t { MONTH_NUMBER = 0, MONTH_NUMBER_LZ = 1, MONTH_SHORT = 2, MONTH_LONG = 3 };
// The clock: 0 twelve hours, anything else twenty-four hours.
enum TimeFormat : int32_t { HOUR_12 = 0, HOUR_24 = 1 };

// The conventions of one country, as International keeps them and as an application registers
// them. A default-constructed record is the default record (US-style conventions, no currency
// symbol). Flags are 0 or 1 (int); separators are single 8-bit characters.
struct VESK_API CountryTable {
    CountryType m_eType = COUNTRY_DONTKNOW;
    DateFormat m_eDateFormat = MDY;
    char m_cDateSep = '/';
    int m_bDateDayLeadingZero = 1;
    int m_bDateMonthLeadingZero = 1;
    int m_bDateCentury = 1;
    DateFormat m_eLongDateFormat = MDY;
    DayOfWeekFormat m_eLongDateDayOfWeekFormat = DAYOFWEEK_NONE;
    SString m_sLongDateDayOfWeekSep{};
    int m_bLongDateDayLeadingZero = 1;
    SString m_sLongDateDaySep{};
    MonthFormat m_eLongDateMonthFormat = MONTH_NUMBER;
    SString m_sLongDateMonthSep{};
    int m_bLongDateCentury = 1;
    SString m_sLongDateYearSep{};
    TimeFormat m_eTimeFormat = HOUR_12;
    char m_cTimeSep = ':';
    char m_cTime100SecSep = '.';
    int m_bTimeLeadingZero = 1;
    SString m_sTimeAM{};
    SString m_sTimePM{};
    char m_cNumThousandSep = ',';
    int m_bNumThousandSep = 1;
    char m_cNumDecimalSep = '.';
    int m_bNumLeadingZero = 1;
    uint16_t m_nNumDigits = 2;
    int m_bNumTrailingZeros = 1;
    uint16_t m_nCurrPositiveFormat = 0;
    uint16_t m_nCurrNegativeFormat = 0;
    SString m_sCurrSymbol{};
    uint16_t m_nCurrDigits = 2;
    char m_cCurrZeroChar = '0';
    char m_cListSep = ',';

    // Field-wise equality, texts compared byte by byte.
    friend bool operator==(const CountryTable&, const CountryTable&) = default;
};

} // namespace vesk
