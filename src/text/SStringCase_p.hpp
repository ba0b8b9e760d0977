#pragma once

#include <cstddef>
#include <cstdint>
#include <locale.h>

namespace vesk {

// The locale set by SString::SetLocale (null: none) and a number that changes with every call.
locale_t SStringCaseLocale(uint64_t* generation = nullptr) noexcept;

// The case rules of one operation: ASCII letters only for UTF-8 text, else the locale set by
// SString::SetLocale, else the calling thread's current locale, as the C runtime's case
// functions would apply them.
class CaseMap {
public:
    explicit CaseMap(bool asciiOnly);

    // Tables of 256 entries mapping every byte to its lower or upper case.
    const unsigned char* Lower() const { return m_pLower; }
    const unsigned char* Upper() const { return m_pUpper; }
    // strncasecmp in this map's locale; SIZE_MAX compares the whole texts.
    int Compare(const char* a, const char* b, size_t n) const;
    // Converts n bytes in place through `table`, leaving the multibyte characters of the
    // locale as they are.
    void Convert(char* text, uint32_t n, const unsigned char* table) const;

private:
    // Null for the current locale.
    locale_t m_locale;
    const unsigned char* m_pLower;
    const unsigned char* m_pUpper;
};

} // namespace vesk
