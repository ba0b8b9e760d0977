#include "locale/International_p.hpp"

namespace vesk {

namespace {

bool IsDay(DayOfWeek day)
{
    return day >= MONDAY && day <= SUNDAY;
}

bool IsMonth(uint16_t month)
{
    return month >= 1 && month <= 12;
}

// Stores `value` in the field that `pick` selects, making the pair private first; an equal
// value changes nothing. Returns the previous value.
template <class T, class Pick>
T ChangeField(IntlData*& data, Pick pick, const T& value)
{
    T previous = pick(*data);
    if (!(previous == value)) {
        IntlMakeUnique(data);
        pick(*data) = value;
    }
    return previous;
}

template <class T>
T ChangeCountry(IntlData*& data, T CountryTable::*field, const T& value)
{
    return ChangeField(data, [field](IntlData& d) -> T& { return d.aCountry.*field; }, value);
}

bool ChangeFlag(IntlData*& data, int CountryTable::*field, bool on)
{
    return ChangeCountry(data, field, on ? 1 : 0) != 0;
}

template <size_t N>
SString ChangeText(IntlData*& data, SString (LanguageTable::*texts)[N], size_t index, const SString& text)
{
    return ChangeField(data, [texts, index](IntlData& d) -> SString& { return (d.aLanguage.*texts)[index]; }, text);
}

SString ChangeText(IntlData*& data, SString LanguageTable::*field, const SString& text)
{
    return ChangeField(data, [field](IntlData& d) -> SString& { return d.aLanguage.*field; }, text);
}

} // namespace

LanguageType International::GetLanguage() const { return m_pData->aLanguage.m_eType; }

SString International::GetDayText(DayOfWeek day) const
{
    return IsDay(day) ? m_pData->aLanguage.m_sDayText[day] : SString();
}

SString International::GetAbbrevDayText(DayOfWeek day) const
{
    return IsDay(day) ? m_pData->aLanguage.m_sAbbrevDayText[day] : SString();
}

SString International::GetMonthText(uint16_t month) const
{
    return IsMonth(month) ? m_pData->aLanguage.m_sMonthText[month - 1] : SString();
}

SString International::GetAbbrevMonthText(uint16_t month) const
{
    return IsMonth(month) ? m_pData->aLanguage.m_sAbbrevMonthText[month - 1] : SString();
}

SString International::GetOKButtonText() const { return m_pData->aLanguage.m_sOKButtonText; }
SString International::GetCancelButtonText() const { return m_pData->aLanguage.m_sCancelButtonText; }
SString International::GetHelpButtonText() const { return m_pData->aLanguage.m_sHelpButtonText; }

CountryType International::GetCountry() const { return m_pData->aCountry.m_eType; }
DateFormat International::GetDateFormat() const { return m_pData->aCountry.m_eDateFormat; }
char International::GetDateSep() const { return m_pData->aCountry.m_cDateSep; }
bool International::IsDateDayLeadingZero() const { return m_pData->aCountry.m_bDateDayLeadingZero != 0; }
bool International::IsDateMonthLeadingZero() const { return m_pData->aCountry.m_bDateMonthLeadingZero != 0; }
bool International::IsDateCentury() const { return m_pData->aCountry.m_bDateCentury != 0; }
DateFormat International::GetLongDateFormat() const { return m_pData->aCountry.m_eLongDateFormat; }
DayOfWeekFormat International::GetLongDateDayOfWeekFormat() const
{
    return m_pData->aCountry.m_eLongDateDayOfWeekFormat;
}
SString International::GetLongDateDayOfWeekSep() const { return m_pData->aCountry.m_sLongDateDayOfWeekSep; }
bool International::IsLongDateDayLeadingZero() const { return m_pData->aCountry.m_bLongDateDayLeadingZero != 0; }
SString International::GetLongDateDaySep() const { return m_pData->aCountry.m_sLongDateDaySep; }
MonthFormat International::GetLongDateMonthFormat() const { return m_pData->aCountry.m_eLongDateMonthFormat; }
SString International::GetLongDateMonthSep() const { return m_pData->aCountry.m_sLongDateMonthSep; }
bool International::IsLongDateCentury() const { return m_pData->aCountry.m_bLongDateCentury != 0; }
SString International::GetLongDateYearSep() const { return m_pData->aCountry.m_sLongDateYearSep; }
TimeFormat International::GetTimeFormat() const { return m_pData->aCountry.m_eTimeFormat; }
char International::GetTimeSep() const { return m_pData->aCountry.m_cTimeSep; }
char International::GetTime100SecSep() const { return m_pData->aCountry.m_cTime100SecSep; }
bool International::IsTimeLeadingZero() const { return m_pData->aCountry.m_bTimeLeadingZero != 0; }
SString International::GetTimeAM() const { return m_pData->aCountry.m_sTimeAM; }
SString International::GetTimePM() const { return m_pData->aCountry.m_sTimePM; }
char International::GetNumThousandSep() const { return m_pData->aCountry.m_cNumThousandSep; }
bool International::IsNumThousandSep() const { return m_pData->aCountry.m_bNumThousandSep != 0; }
char International::GetNumDecimalSep() const { return m_pData->aCountry.m_cNumDecimalSep; }
bool International::IsNumLeadingZero() const { return m_pData->aCountry.m_bNumLeadingZero != 0; }
uint16_t International::GetNumDigits() const { return m_pData->aCountry.m_nNumDigits; }
bool International::IsNumTrailingZeros() const { return m_pData->aCountry.m_bNumTrailingZeros != 0; }
uint16_t International::GetCurrPositiveFormat() const { return m_pData->aCountry.m_nCurrPositiveFormat; }
uint16_t International::GetCurrNegativeFormat() const { return m_pData->aCountry.m_nCurrNegativeFormat; }
SString International::GetCurrSymbol() const { return m_pData->aCountry.m_sCurrSymbol; }
uint16_t International::GetCurrDigits() const { return m_pData->aCountry.m_nCurrDigits; }
char International::GetCurrZeroChar() const { return m_pData->aCountry.m_cCurrZeroChar; }
char International::GetListSep() const { return m_pData->aCountry.m_cListSep; }

SString International::ChangeDayText(DayOfWeek day, const SString& text)
{
    return IsDay(day) ? ChangeText(m_pData, &LanguageTable::m_sDayText, day, text) : SString();
}

SString International::ChangeAbbrevDayText(DayOfWeek day, const SString& text)
{
    return IsDay(day) ? ChangeText(m_pData, &LanguageTable::m_sAbbrevDayText, day, text) : SString();
}

SString International::ChangeMonthText(uint16_t month, const SString& text)
{
    return IsMonth(month) ? ChangeText(m_pData, &LanguageTable::m_sMonthText, month - 1u, text) : SString();
}

SString International::ChangeAbbrevMonthText(uint16_t month, const SString& text)
{
    return IsMonth(month) ? ChangeText(m_pData, &LanguageTable::m_sAbbrevMonthText, month - 1u, text) : SString();
}

SString International::ChangeOKButtonText(const SString& text)
{
    return ChangeText(m_pData, &LanguageTable::m_sOKButtonText, text);
}

SString International::ChangeCancelButtonText(const SString& text)
{
    return ChangeText(m_pData, &LanguageTable::m_sCancelButtonText, text);
}

SString International::ChangeHelpButtonText(const SString& text)
{
    return ChangeText(m_pData, &LanguageTable::m_sHelpButtonText, text);
}

DateFormat International::ChangeDateFormat(DateFormat f) { return ChangeCountry(m_pData, &CountryTable::m_eDateFormat, f); }
char International::ChangeDateSep(char sep) { return ChangeCountry(m_pData, &CountryTable::m_cDateSep, sep); }
bool International::ChangeDateDayLeadingZero(bool on) { return ChangeFlag(m_pData, &CountryTable::m_bDateDayLeadingZero, on); }
bool International::ChangeDateMonthLeadingZero(bool on)
{
    return ChangeFlag(m_pData, &CountryTable::m_bDateMonthLeadingZero, on);
}
bool International::ChangeDateCentury(bool on) { return ChangeFlag(m_pData, &CountryTable::m_bDateCentury, on); }
DateFormat International::ChangeLongDateFormat(DateFormat f)
{
    return ChangeCountry(m_pData, &CountryTable::m_eLongDateFormat, f);
}
DayOfWeekFormat International::ChangeLongDateDayOfWeekFormat(DayOfWeekFormat f)
{
    return ChangeCountry(m_pData, &CountryTable::m_eLongDateDayOfWeekFormat, f);
}
SString International::ChangeLongDateDayOfWeekSep(const SString& sep)
{
    return ChangeCountry(m_pData, &CountryTable::m_sLongDateDayOfWeekSep, sep);
}
bool International::ChangeLongDateDayLeadingZero(bool on)
{
    return ChangeFlag(m_pData, &CountryTable::m_bLongDateDayLeadingZero, on);
}
SString International::ChangeLongDateDaySep(const SString& sep)
{
    return ChangeCountry(m_pData, &CountryTable::m_sLongDateDaySep, sep);
}
MonthFormat International::ChangeLongDateMonthFormat(MonthFormat f)
{
    return ChangeCountry(m_pData, &CountryTable::m_eLongDateMonthFormat, f);
}
SString International::ChangeLongDateMonthSep(const SString& sep)
{
    return ChangeCountry(m_pData, &CountryTable::m_sLongDateMonthSep, sep);
}
bool International::ChangeLongDateCentury(bool on) { return ChangeFlag(m_pData, &CountryTable::m_bLongDateCentury, on); }
SString International::ChangeLongDateYearSep(const SString& sep)
{
    return ChangeCountry(m_pData, &CountryTable::m_sLongDateYearSep, sep);
}
TimeFormat International::ChangeTimeFormat(TimeFormat f) { return ChangeCountry(m_pData, &CountryTable::m_eTimeFormat, f); }
char International::ChangeTimeSep(char sep) { return ChangeCountry(m_pData, &CountryTable::m_cTimeSep, sep); }
char International::ChangeTime100SecSep(char sep) { return ChangeCountry(m_pData, &CountryTable::m_cTime100SecSep, sep); }
bool International::ChangeTimeLeadingZero(bool on) { return ChangeFlag(m_pData, &CountryTable::m_bTimeLeadingZero, on); }
SString International::ChangeTimeAM(const SString& text) { return ChangeCountry(m_pData, &CountryTable::m_sTimeAM, text); }
SString International::ChangeTimePM(const SString& text) { return ChangeCountry(m_pData, &CountryTable::m_sTimePM, text); }
char International::ChangeNumThousandSep(char sep) { return ChangeCountry(m_pData, &CountryTable::m_cNumThousandSep, sep); }
void International::EnableNumThousandSep(bool on) { ChangeFlag(m_pData, &CountryTable::m_bNumThousandSep, on); }
char International::ChangeNumDecimalSep(char sep) { return ChangeCountry(m_pData, &CountryTable::m_cNumDecimalSep, sep); }
bool International::ChangeNumLeadingZero(bool on) { return ChangeFlag(m_pData, &CountryTable::m_bNumLeadingZero, on); }
uint16_t International::ChangeNumDigits(uint16_t n) { return ChangeCountry(m_pData, &CountryTable::m_nNumDigits, n); }
bool International::ChangeNumTrailingZeros(bool on) { return ChangeFlag(m_pData, &CountryTable::m_bNumTrailingZeros, on); }
uint16_t International::ChangeCurrPositiveFormat(uint16_t f)
{
    return ChangeCountry(m_pData, &CountryTable::m_nCurrPositiveFormat, f);
}
uint16_t International::ChangeCurrNegativeFormat(uint16_t f)
{
    return ChangeCountry(m_pData, &CountryTable::m_nCurrNegativeFormat, f);
}
SString International::ChangeCurrSymbol(const SString& s) { return ChangeCountry(m_pData, &CountryTable::m_sCurrSymbol, s); }
uint16_t International::ChangeCurrDigits(uint16_t n) { return ChangeCountry(m_pData, &CountryTable::m_nCurrDigits, n); }
char International::ChangeCurrZeroChar(char c) { return ChangeCountry(m_pData, &CountryTable::m_cCurrZeroChar, c); }

} // namespace vesk
