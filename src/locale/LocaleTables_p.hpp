#pragma once

// The built-in languages and countries.

#include <vesk/locale/CountryTable.hpp>
#include <vesk/locale/LanguageTable.hpp>

#include <cstdint>
#include <span>

namespace vesk {

// The built-in language list in registry order; the first entry is the system language.
std::span<const LanguageType> BuiltinLanguageTypes();
// The built-in texts for a language identifier, chosen by its primary language (German,
// French, else English), with the record's type set to `type`.
LanguageTable BuiltinLanguage(LanguageType type);

// The built-in country list in registry order; the first entry is the system country.
std::span<const CountryType> BuiltinCountryTypes();
// The default record with the overrides of the built-in country `type` applied and its type
// set; a type without overrides gets the default record.
CountryTable BuiltinCountry(CountryType type);
// The country of a telephone dialling code ("iCountry"); 0 when none is mapped.
CountryType CountryFromDialCode(int32_t code);

// The country that a system entry falls back to; its record is the default record.
inline constexpr CountryType COUNTRY_FALLBACK = 1049;

} // namespace vesk
