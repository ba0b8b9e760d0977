#pragma once

// Parsers of the date pictures of the system settings ("dd.MM.yyyy", "dddd, d. MMMM yyyy").

#include <vesk/locale/CountryTable.hpp>
#include <vesk/text/SString.hpp>

#include <string_view>

namespace vesk {

// UTF-8 text as a string, flagged as UTF-8 when it holds multi-byte characters (plain ASCII
// stays unflagged, so that it joins the 8-bit built-in texts without changing their meaning).
SString IntlText(std::string_view utf8);

// Reads a short-date picture into the date order and the day, month and century flags; an
// empty picture changes nothing.
void ReadShortDatePicture(const SString& picture, CountryTable& table);

// Reads a long-date picture, consumed from the front, into every long-date field; an empty
// picture changes nothing.
void ReadLongDatePicture(const SString& picture, CountryTable& table);

} // namespace vesk
