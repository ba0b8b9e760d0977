#pragma once

// The system language's texts where the library has none of its own.

#include "platform/locale_source.hpp"

#include <vesk/locale/LanguageTable.hpp>

namespace vesk {

// Whether the built-in tables have texts for the identifier's language (English, German,
// French).
bool HasBuiltinTexts(LanguageType type);

// A language record of `type` with the locale's day and month names. The names are 8-bit
// Windows-1252 text, as the built-in texts are, when every one of them fits that code page;
// otherwise each name that is not plain ASCII is flagged UTF-8 (all or none, so that a long
// date never mixes the two). The button texts are the English ones: the system has no source
// for them.
LanguageTable SystemLanguage(LanguageType type, const platform::LocaleNames& names);

} // namespace vesk
