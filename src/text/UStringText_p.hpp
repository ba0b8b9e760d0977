#pragma once

// Character order, case folding and searching on UTF-16 texts.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vesk::detail {

// towlower / towupper in the locale set by UString::SetLocale, else the thread's locale.
char16_t LowerCase(char16_t c) noexcept;
char16_t UpperCase(char16_t c) noexcept;

// The text with every unit through LowerCase.
std::u16string Lowered(std::u16string_view text);

// wcsncmp and _wcsnicmp on UTF-16 texts, each read as if a zero followed it: at most n units,
// stopping at the first difference or a zero in both; units compare as unsigned 16-bit
// values, after LowerCase when noCase. Returns -1, 0 or 1.
int CompareTexts(std::u16string_view a, std::u16string_view b, size_t n, bool noCase) noexcept;

// First occurrence at or after `from` of a non-empty pattern that fits before the end, compared
// as wcsncmp / _wcsnicmp do; STRING_NOTFOUND when there is none.
uint32_t FindText(std::u16string_view text, std::u16string_view what, uint32_t from,
    bool noCase);

} // namespace vesk::detail
