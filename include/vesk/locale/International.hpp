#pragma once

#include <vesk/datetime/Date.hpp>
#include <vesk/datetime/Time.hpp>
#include <vesk/export.hpp>
#include <vesk/locale/CountryTable.hpp>
#include <vesk/locale/LanguageTable.hpp>
#include <vesk/text/SString.hpp>

#include <cstdint>

namespace vesk {

struct IntlData;

// Formats dates, times, durations, numbers and currency amounts by a language (day and month
// names, button texts) and a country (orders, separators, clock, currency layout). A handle
// shares one counted pair of records with its copies; a Change... call copies the pair first
// when it is shared and the value differs, and returns the previous value.
//
// Languages and countries come from two registries kept in the library state (VeskData),
// created on first use: the built-in tables, the user's system settings (type 0) and the
// tables an application registers. Without VeskInit there are no registries: every handle
// then holds the default records and registering does nothing. Construction and the static
// registry functions belong to the user-interface thread (the registries take no lock); made
// handles may be copied, changed and used on any thread.
//
// The system entries follow the user's POSIX locale. The system language is the locale's
// identifier (LCID); English, German and French use the built-in texts, every other language
// has the locale's day and month names (8-bit Windows-1252 text when all of them fit it, else
// UTF-8) and the English button texts, which the system has no source for. The system
// country's orders, separators and clock come from the locale's formats.
//
// Amounts are int32_t; the magnitude of INT32_MIN wraps to itself, so GetCurr(INT32_MIN) keeps a '-' inside the amount.
class VESK_API International {
public:
    // The user's system language and country.
    International();
    // The registered language and country of those types; an unknown type takes the system
    // entry, and without one the default record.
    International(CountryType country, LanguageType language);
    // Shares the pair; a pair shared 2147483647 times is duplicated instead.
    International(const International& other);
    International& operator=(const International& other);
    ~International();

    // True when both share the pair or their language and country records are equal.
    bool operator==(const International& other) const;
    bool operator!=(const International& other) const { return !(*this == other); }

    // Language record. An index outside 0 to 6 (days) or 1 to 12 (months) gives "".
    LanguageType GetLanguage() const;
    SString GetDayText(DayOfWeek day) const;
    SString GetAbbrevDayText(DayOfWeek day) const;
    SString GetMonthText(uint16_t month) const;
    SString GetAbbrevMonthText(uint16_t month) const;
    SString GetOKButtonText() const;
    SString GetCancelButtonText() const;
    SString GetHelpButtonText() const;

    // Country record, one getter per field (see CountryTable).
    CountryType GetCountry() const;
    DateFormat GetDateFormat() const;
    char GetDateSep() const;
    bool IsDateDayLeadingZero() const;
    bool IsDateMonthLeadingZero() const;
    bool IsDateCentury() const;
    DateFormat GetLongDateFormat() const;
    DayOfWeekFormat GetLongDateDayOfWeekFormat() const;
    SString GetLongDateDayOfWeekSep() const;
    bool IsLongDateDayLeadingZero() const;
    SString GetLongDateDaySep() const;
    MonthFormat GetLongDateMonthFormat() const;
    SString GetLongDateMonthSep() const;
    bool IsLongDateCentury() const;
    SString GetLongDateYearSep() const;
    TimeFormat GetTimeFormat() const;
    char GetTimeSep() const;
    char GetTime100SecSep() const;
    bool IsTimeLeadingZero() const;
    SString GetTimeAM() const;
    SString GetTimePM() const;
    char GetNumThousandSep() const;
    bool IsNumThousandSep() const;
    char GetNumDecimalSep() const;
    bool IsNumLeadingZero() const;
    uint16_t GetNumDigits() const;
    bool IsNumTrailingZeros() const;
    uint16_t GetCurrPositiveFormat() const;
    uint16_t GetCurrNegativeFormat() const;
    SString GetCurrSymbol() const;
    uint16_t GetCurrDigits() const;
    char GetCurrZeroChar() const;
    char GetListSep() const;

    // Language setters; an index out of range changes nothing and returns "".
    SString ChangeDayText(DayOfWeek day, const SString& text);
    SString ChangeAbbrevDayText(DayOfWeek day, const SString& text);
    SString ChangeMonthText(uint16_t month, const SString& text);
    SString ChangeAbbrevMonthText(uint16_t month, const SString& text);
    SString ChangeOKButtonText(const SString& text);
    SString ChangeCancelButtonText(const SString& text);
    SString ChangeHelpButtonText(const SString& text);

    // Country setters, each returning the previous value.
    DateFormat ChangeDateFormat(DateFormat format);
    char ChangeDateSep(char sep);
    bool ChangeDateDayLeadingZero(bool on);
    bool ChangeDateMonthLeadingZero(bool on);
    bool ChangeDateCentury(bool on);
    DateFormat ChangeLongDateFormat(DateFormat format);
    DayOfWeekFormat ChangeLongDateDayOfWeekFormat(DayOfWeekFormat format);
    SString ChangeLongDateDayOfWeekSep(const SString& sep);
    bool ChangeLongDateDayLeadingZero(bool on);
    SString ChangeLongDateDaySep(const SString& sep);
    MonthFormat ChangeLongDateMonthFormat(MonthFormat format);
    SString ChangeLongDateMonthSep(const SString& sep);
    bool ChangeLongDateCentury(bool on);
    SString ChangeLongDateYearSep(const SString& sep);
    TimeFormat ChangeTimeFormat(TimeFormat format);
    char ChangeTimeSep(char sep);
    char ChangeTime100SecSep(char sep);
    bool ChangeTimeLeadingZero(bool on);
    SString ChangeTimeAM(const SString& text);
    SString ChangeTimePM(const SString& text);
    char ChangeNumThousandSep(char sep);
    // Switches the thousands separator of numbers on or off.
    void EnableNumThousandSep(bool on);
    char ChangeNumDecimalSep(char sep);
    bool ChangeNumLeadingZero(bool on);
    uint16_t ChangeNumDigits(uint16_t digits);
    bool ChangeNumTrailingZeros(bool on);
    uint16_t ChangeCurrPositiveFormat(uint16_t format);
    uint16_t ChangeCurrNegativeFormat(uint16_t format);
    SString ChangeCurrSymbol(const SString& symbol);
    uint16_t ChangeCurrDigits(uint16_t digits);
    char ChangeCurrZeroChar(char c);

    // The short date: day, month and year joined by the date separator in the date order.
    SString GetDate(const Date& date) const;
    // The long date: optional weekday, then day, month and year with their separators.
    SString GetLongDate(const Date& date) const;
    // A time of day on the country's clock, with seconds and hundredths on request.
    SString GetTime(const Time& time, bool seconds, bool hundredths) const;
    // A duration: hours not reduced, no AM/PM, '-' before a negative one.
    SString GetDuration(const Time& time, bool seconds, bool hundredths) const;
    // A fixed-point number with the country's default decimal places (12345 is 123.45).
    SString GetNum(int32_t value) const;
    // A fixed-point number with `digits` decimal places.
    SString GetNum(int32_t value, uint16_t digits) const;
    // A currency amount with the currency's decimal places, symbol and sign layout.
    SString GetCurr(int32_t value) const;

    // Adds the table to the language registry, or overwrites the entry of its type.
    static void RegisterLanguage(const LanguageTable& table);
    // Adds the table to the country registry, or overwrites the entry of its type.
    static void RegisterCountry(const CountryTable& table);
    // Registry enumeration in insertion order; an index out of range gives type 255.
    static uint16_t GetAvailableLanguagesCount();
    static LanguageType GetAvailableLanguage(uint16_t index);
    static bool IsLanguageAvailable(LanguageType type);
    static uint16_t GetAvailableCountriesCount();
    static CountryType GetAvailableCountry(uint16_t index);
    static bool IsCountryAvailable(CountryType type);

private:
    friend struct InternationalAccess;

    IntlData* m_pData;
};

} // namespace vesk
