#pragma once

// Reading the system settings ("intl" keys) over a country record.

#include "platform/locale_source.hpp"

#include <vesk/locale/CountryTable.hpp>

#include <cstdint>
#include <optional>

namespace vesk {

// The integer value of a key, read like a profile integer: an optional
// '-' and decimal digits, anything after them ignored; absent when the key is missing or
// holds no digits.
std::optional<int32_t> IntlNumber(const platform::IntlKeys& keys, const char* key);

// Reads every key the record takes from the system settings over it; a missing or unusable
// key leaves its field as it was. Separators are single 8-bit characters: a separator that
// is not ASCII counts only when it has an ASCII look-alike (no-break and thin spaces become
// ' ', typographic apostrophes '\'').
void ReadIntlSettings(const platform::IntlKeys& keys, CountryTable& table);

} // namespace vesk
