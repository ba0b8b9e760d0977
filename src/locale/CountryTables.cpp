#include "locale/LocaleTables_p.hpp"

#include <vector>

namespace vesk {

namespace {

// Registry order: the system country, then the countries alphabetically; a number plus 1024,
// 2048 or 3072 is a language variant of the country with that number.
constexpr CountryType kCountries[] = {0, 1025, 1026, 3, 1027, 2051, 5, 1029, 2053, 1030, 1031, 1032, 1033, 1034,
    1035, 1036, 1039, 1040, 1041, 1042, 1044, 1045, 22, 1046, 2070, 3094, 1048, 1049};

// The conventions of each country as they stood before the euro. Fields not named keep the
// default record's value; 1049 (United States) is the default record itself.
std::vector<CountryTable> Conventions()
{
    return {
        {.m_eType = 1025, // Australia
            .m_eDateFormat = DMY, .m_bDateDayLeadingZero = 0, .m_bDateCentury = 0,
            .m_eLongDateFormat = DMY, .m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG, .m_sLongDateDayOfWeekSep = ", ",
            .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = " ", .m_eLongDateMonthFormat = MONTH_LONG,
            .m_sLongDateMonthSep = " ",
            .m_sTimeAM = "AM", .m_sTimePM = "PM",
            .m_nCurrNegativeFormat = 1, .m_sCurrSymbol = "$"},
        {.m_eType = 1026, // Austria
            .m_eDateFormat = YMD, .m_cDateSep = '-',
            .m_eLongDateFormat = DMY, .m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG, .m_sLongDateDayOfWeekSep = ", ",
            .m_sLongDateDaySep = ". ", .m_eLongDateMonthFormat = MONTH_LONG, .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24,
            .m_cNumThousandSep = '.', .m_cNumDecimalSep = ',',
            .m_nCurrPositiveFormat = 2, .m_nCurrNegativeFormat = 9, .m_sCurrSymbol = "S",
            .m_cListSep = ';'},
        {.m_eType = 2051, // Belgium, French
            .m_eDateFormat = DMY,
            .m_eLongDateFormat = DMY, .m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG, .m_sLongDateDayOfWeekSep = " ",
            .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = " ", .m_eLongDateMonthFormat = MONTH_LONG,
            .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24,
            .m_cNumThousandSep = '.', .m_cNumDecimalSep = ',',
            .m_nCurrPositiveFormat = 3, .m_nCurrNegativeFormat = 8, .m_sCurrSymbol = "FB",
            .m_cListSep = ';'},
        {.m_eType = 1029, // Canada, English
            .m_eDateFormat = DMY,
            .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = ", ", .m_eLongDateMonthFormat = MONTH_LONG,
            .m_sLongDateMonthSep = " ",
            .m_sTimeAM = "AM", .m_sTimePM = "PM",
            .m_nCurrNegativeFormat = 1, .m_sCurrSymbol = "$"},
        {.m_eType = 2053, // Canada, French
            .m_eDateFormat = YMD, .m_cDateSep = '-',
            .m_eLongDateFormat = DMY, .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = " ",
            .m_eLongDateMonthFormat = MONTH_LONG, .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24,
            .m_cNumThousandSep = ' ', .m_cNumDecimalSep = ',',
            .m_nCurrPositiveFormat = 3, .m_nCurrNegativeFormat = 8, .m_sCurrSymbol = "$",
            .m_cListSep = ';'},
        {.m_eType = 1030, // Denmark
            .m_eDateFormat = DMY, .m_cDateSep = '-',
            .m_eLongDateFormat = DMY, .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = ". ",
            .m_eLongDateMonthFormat = MONTH_LONG, .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24,
            .m_cNumThousandSep = '.', .m_cNumDecimalSep = ',',
            .m_nCurrPositiveFormat = 2, .m_nCurrNegativeFormat = 11, .m_sCurrSymbol = "kr",
            .m_cListSep = ';'},
        {.m_eType = 1031, // Finland
            .m_eDateFormat = DMY, .m_cDateSep = '.', .m_bDateDayLeadingZero = 0, .m_bDateMonthLeadingZero = 0,
            .m_eLongDateFormat = DMY, .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = ". ",
            .m_eLongDateMonthFormat = MONTH_LONG, .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24, .m_cTimeSep = '.', .m_cTime100SecSep = ',',
            .m_cNumThousandSep = ' ', .m_cNumDecimalSep = ',',
            .m_nCurrPositiveFormat = 3, .m_nCurrNegativeFormat = 8, .m_sCurrSymbol = "mk",
            .m_cListSep = ';'},
        {.m_eType = 1032, // France
            .m_eDateFormat = DMY,
            .m_eLongDateFormat = DMY, .m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG, .m_sLongDateDayOfWeekSep = " ",
            .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = " ", .m_eLongDateMonthFormat = MONTH_LONG,
            .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24, .m_cTime100SecSep = ',',
            .m_cNumThousandSep = ' ', .m_cNumDecimalSep = ',',
            .m_nCurrPositiveFormat = 3, .m_nCurrNegativeFormat = 8, .m_sCurrSymbol = "F",
            .m_cListSep = ';'},
        {.m_eType = 1033, // Germany
            .m_eDateFormat = DMY, .m_cDateSep = '.',
            .m_eLongDateFormat = DMY, .m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG, .m_sLongDateDayOfWeekSep = ", ",
            .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = ". ", .m_eLongDateMonthFormat = MONTH_LONG,
            .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24,
            .m_cNumThousandSep = '.', .m_cNumDecimalSep = ',',
            .m_nCurrPositiveFormat = 3, .m_nCurrNegativeFormat = 8, .m_sCurrSymbol = "DM",
            .m_cListSep = ';'},
        {.m_eType = 1034, // Iceland
            .m_eDateFormat = DMY, .m_cDateSep = '.', .m_bDateDayLeadingZero = 0, .m_bDateMonthLeadingZero = 0,
            .m_eLongDateFormat = DMY, .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = ". ",
            .m_eLongDateMonthFormat = MONTH_LONG, .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24,
            .m_cNumThousandSep = '.', .m_cNumDecimalSep = ',',
            .m_nCurrPositiveFormat = 3, .m_nCurrNegativeFormat = 8, .m_sCurrSymbol = "kr.",
            .m_cListSep = ';'},
        {.m_eType = 1035, // Ireland
            .m_eDateFormat = DMY,
            .m_eLongDateFormat = DMY, .m_sLongDateDaySep = " ", .m_eLongDateMonthFormat = MONTH_LONG,
            .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24,
            .m_nCurrNegativeFormat = 1, .m_sCurrSymbol = "IR\xA3"},
        {.m_eType = 1036, // Italy
            .m_eDateFormat = DMY,
            .m_eLongDateFormat = DMY, .m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG, .m_sLongDateDayOfWeekSep = " ",
            .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = " ", .m_eLongDateMonthFormat = MONTH_LONG,
            .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24, .m_cTimeSep = '.', .m_cTime100SecSep = ',',
            .m_cNumThousandSep = '.', .m_cNumDecimalSep = ',',
            .m_nCurrPositiveFormat = 2, .m_nCurrNegativeFormat = 9, .m_sCurrSymbol = "L.", .m_nCurrDigits = 0,
            .m_cListSep = ';'},
        {.m_eType = 1039, // Netherlands
            .m_eDateFormat = DMY, .m_cDateSep = '-', .m_bDateDayLeadingZero = 0,
            .m_eLongDateFormat = DMY, .m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG, .m_sLongDateDayOfWeekSep = " ",
            .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = " ", .m_eLongDateMonthFormat = MONTH_LONG,
            .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24,
            .m_cNumThousandSep = '.', .m_cNumDecimalSep = ',',
            .m_nCurrPositiveFormat = 2, .m_nCurrNegativeFormat = 11, .m_sCurrSymbol = "f",
            .m_cListSep = ';'},
        {.m_eType = 1040, // New Zealand
            .m_eDateFormat = DMY, .m_bDateDayLeadingZero = 0,
            .m_eLongDateFormat = DMY, .m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG, .m_sLongDateDayOfWeekSep = ", ",
            .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = " ", .m_eLongDateMonthFormat = MONTH_LONG,
            .m_sLongDateMonthSep = " ",
            .m_sTimeAM = "a.m.", .m_sTimePM = "p.m.",
            .m_nCurrNegativeFormat = 1, .m_sCurrSymbol = "$"},
        {.m_eType = 1041, // Norway
            .m_eDateFormat = DMY, .m_cDateSep = '.',
            .m_eLongDateFormat = DMY, .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = ". ",
            .m_eLongDateMonthFormat = MONTH_LONG, .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24,
            .m_cNumThousandSep = ' ', .m_cNumDecimalSep = ',',
            .m_nCurrPositiveFormat = 2, .m_nCurrNegativeFormat = 11, .m_sCurrSymbol = "kr",
            .m_cListSep = ';'},
        {.m_eType = 1042, // Portugal
            .m_eDateFormat = DMY, .m_cDateSep = '-',
            .m_eLongDateFormat = DMY, .m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG, .m_sLongDateDayOfWeekSep = ", ",
            .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = " de ", .m_eLongDateMonthFormat = MONTH_LONG,
            .m_sLongDateMonthSep = " de ",
            .m_eTimeFormat = HOUR_24,
            .m_cNumThousandSep = '.', .m_cNumDecimalSep = ',',
            .m_nCurrPositiveFormat = 3, .m_nCurrNegativeFormat = 8, .m_sCurrSymbol = "Esc.",
            .m_cListSep = ';'},
        {.m_eType = 1044, // Spain
            .m_eDateFormat = DMY,
            .m_eLongDateFormat = DMY, .m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG, .m_sLongDateDayOfWeekSep = ", ",
            .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = " de ", .m_eLongDateMonthFormat = MONTH_LONG,
            .m_sLongDateMonthSep = " de ",
            .m_eTimeFormat = HOUR_24,
            .m_cNumThousandSep = '.', .m_cNumDecimalSep = ',',
            .m_nCurrPositiveFormat = 3, .m_nCurrNegativeFormat = 8, .m_sCurrSymbol = "Pts", .m_nCurrDigits = 0,
            .m_cListSep = ';'},
        {.m_eType = 1045, // Sweden
            .m_eDateFormat = YMD, .m_cDateSep = '-',
            .m_eLongDateFormat = DMY, .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = " ",
            .m_eLongDateMonthFormat = MONTH_LONG, .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24, .m_cTimeSep = '.', .m_cTime100SecSep = ',',
            .m_cNumThousandSep = ' ', .m_cNumDecimalSep = ',',
            .m_nCurrPositiveFormat = 3, .m_nCurrNegativeFormat = 8, .m_sCurrSymbol = "kr",
            .m_cListSep = ';'},
        {.m_eType = 22, // Switzerland
            .m_eDateFormat = DMY, .m_cDateSep = '.',
            .m_eLongDateFormat = DMY, .m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG, .m_sLongDateDayOfWeekSep = ", ",
            .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = ". ", .m_eLongDateMonthFormat = MONTH_LONG,
            .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24,
            .m_cNumThousandSep = '\'',
            .m_nCurrPositiveFormat = 2, .m_nCurrNegativeFormat = 2, .m_sCurrSymbol = "SFr.",
            .m_cListSep = ';'},
        {.m_eType = 1048, // United Kingdom
            .m_eDateFormat = DMY,
            .m_eLongDateFormat = DMY, .m_sLongDateDaySep = " ", .m_eLongDateMonthFormat = MONTH_LONG,
            .m_sLongDateMonthSep = " ",
            .m_eTimeFormat = HOUR_24,
            .m_nCurrNegativeFormat = 1, .m_sCurrSymbol = "\xA3"},
    };
}

// Entries that share another entry's conventions, with a currency symbol of their own where
// one is given: Belgium as its French variant, whose Dutch variant writes BF; Canada as its
// English variant; the Swiss variants, of which the French one writes Fr.
struct Variant {
    CountryType type;
    CountryType base;
    const char* symbol;
};

constexpr Variant kVariants[] = {
    {3, 2051, nullptr},
    {1027, 2051, "BF"},
    {5, 1029, nullptr},
    {1046, 22, nullptr},
    {2070, 22, "Fr."},
    {3094, 22, nullptr},
};

struct DialCode {
    int32_t code;
    CountryType country;
};

// "iCountry" dialling codes; 82 names a country without built-in conventions.
constexpr DialCode kDialCodes[] = {
    {1, 1049}, {2, 2053}, {31, 1039}, {32, 2051}, {33, 1032}, {34, 1044}, {39, 1036}, {41, 22}, {43, 1026},
    {44, 1048}, {45, 1030}, {46, 1045}, {47, 1041}, {49, 1033}, {61, 1025}, {82, 1043}, {351, 1042},
    {353, 1035}, {354, 1034}, {358, 1031},
};

} // namespace

std::span<const CountryType> BuiltinCountryTypes()
{
    return kCountries;
}

CountryTable BuiltinCountry(CountryType type)
{
    CountryType row = type;
    const char* symbol = nullptr;
    for (const Variant& v : kVariants) {
        if (v.type == type) {
            row = v.base;
            symbol = v.symbol;
        }
    }
    CountryTable table;
    for (CountryTable& candidate : Conventions()) {
        if (candidate.m_eType == row)
            table = std::move(candidate);
    }
    table.m_eType = type;
    if (symbol)
        table.m_sCurrSymbol = symbol;
    return table;
}

CountryType CountryFromDialCode(int32_t code)
{
    for (const DialCode& d : kDialCodes) {
        if (d.code == code)
            return d.country;
    }
    return 0;
}

} // namespace vesk
