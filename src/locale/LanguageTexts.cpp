#include "locale/LocaleTables_p.hpp"

#include <array>

namespace vesk {

namespace {

// One language's texts; the abbreviations are the first three characters of the names.
struct Texts {
    std::array<const char*, 7> days;
    std::array<const char*, 12> months;
    const char* ok;
    const char* cancel;
    const char* help;
};

// Windows-1252 text. The French "Diamanche" and "Oktober" are the library's spellings.
constexpr Texts kEnglish{
    {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"},
    {"January", "February", "March", "April", "May", "June", "July", "August", "September", "October",
        "November", "December"},
    "OK", "Cancel", "~Help"};

constexpr Texts kGerman{
    {"Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag", "Sonntag"},
    {"Januar", "Februar", "M\xE4rz", "April", "Mai", "Juni", "Juli", "August", "September", "Oktober",
        "November", "Dezember"},
    "OK", "Abbrechen", "~Hilfe"};

constexpr Texts kFrench{
    {"Lundi", "Mardi", "Mercredi", "Jeudi", "Vendredi", "Samedi", "Diamanche"},
    {"Janvier", "F\xE9vrier", "Mars", "Avril", "Mai", "Juin", "Juillet", "Ao\xFBt", "Septembre", "Oktober",
        "Novembre", "D\xE9" "cembre"},
    "OK", "Annuler", "~Aide"};

// System language, English (neutral, US, UK, Australia, Canada, New Zealand, Ireland),
// German (Germany, Switzerland, Luxembourg), French (France, Belgium, Canada, Switzerland).
constexpr LanguageType kLanguages[] = {
    0, 9, 1033, 2057, 3081, 4105, 5129, 6153, 1031, 2055, 4103, 1036, 2060, 3084, 4108};

// Primary language numbers: the low ten bits of an identifier.
constexpr LanguageType LANG_GERMAN = 7;
constexpr LanguageType LANG_FRENCH = 12;

const Texts& TextsOf(LanguageType type)
{
    switch (type & 0x3FF) {
    case LANG_GERMAN:
        return kGerman;
    case LANG_FRENCH:
        return kFrench;
    default:
        return kEnglish;
    }
}

} // namespace

std::span<const LanguageType> BuiltinLanguageTypes()
{
    return kLanguages;
}

LanguageTable BuiltinLanguage(LanguageType type)
{
    const Texts& texts = TextsOf(type);
    LanguageTable table;
    table.m_eType = type;
    for (size_t i = 0; i < texts.days.size(); ++i) {
        table.m_sDayText[i] = texts.days[i];
        table.m_sAbbrevDayText[i] = SString(texts.days[i], 0, 3);
    }
    for (size_t i = 0; i < texts.months.size(); ++i) {
        table.m_sMonthText[i] = texts.months[i];
        table.m_sAbbrevMonthText[i] = SString(texts.months[i], 0, 3);
    }
    table.m_sOKButtonText = texts.ok;
    table.m_sCancelButtonText = texts.cancel;
    table.m_sHelpButtonText = texts.help;
    return table;
}

} // namespace vesk
