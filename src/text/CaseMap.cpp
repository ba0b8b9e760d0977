#include "text/CLocale_p.hpp"
#include "text/SStringCase_p.hpp"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <langinfo.h>
#include <strings.h>

namespace vesk {
namespace {

struct CaseTables {
    unsigned char lower[256];
    unsigned char upper[256];
};

constexpr CaseTables AsciiTables()
{
    CaseTables t{};
    for (int c = 0; c < 256; ++c) {
        t.lower[c] = static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
        t.upper[c] = static_cast<unsigned char>(c >= 'a' && c <= 'z' ? c - 32 : c);
    }
    return t;
}

constexpr CaseTables kAscii = AsciiTables();

// The tables of the SetLocale locale, rebuilt in each thread when SetLocale is called again.
const CaseTables& LocaleTables(locale_t locale, uint64_t generation)
{
    thread_local CaseTables tables;
    thread_local uint64_t builtFor = ~uint64_t(0);
    if (builtFor != generation) {
        for (int c = 0; c < 256; ++c) {
            tables.lower[c] = static_cast<unsigned char>(tolower_l(c, locale));
            tables.upper[c] = static_cast<unsigned char>(toupper_l(c, locale));
        }
        builtFor = generation;
    }
    return tables;
}

// The current locale may change at any time, so its tables are read afresh.
const CaseTables& CurrentTables()
{
    thread_local CaseTables tables;
    for (int c = 0; c < 256; ++c) {
        tables.lower[c] = static_cast<unsigned char>(std::tolower(c));
        tables.upper[c] = static_cast<unsigned char>(std::toupper(c));
    }
    return tables;
}

// Whether some characters of the thread's current locale take more than one byte and are not
// UTF-8, whose lead and continuation bytes are never letters.
bool HasMultibyteCharacters()
{
    return MB_CUR_MAX > 1 && std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0;
}

} // namespace

CaseMap::CaseMap(bool asciiOnly)
{
    uint64_t generation = 0;
    m_locale = asciiOnly ? CLocale() : SStringCaseLocale(&generation);
    const CaseTables& tables = asciiOnly ? kAscii : m_locale ? LocaleTables(m_locale, generation) : CurrentTables();
    m_pLower = tables.lower;
    m_pUpper = tables.upper;
}

int CaseMap::Compare(const char* a, const char* b, size_t n) const
{
    return m_locale ? strncasecmp_l(a, b, n, m_locale) : strncasecmp(a, b, n);
}

void CaseMap::Convert(char* text, uint32_t n, const unsigned char* table) const
{
    const locale_t previous = m_locale ? uselocale(m_locale) : locale_t(0);
    if (!HasMultibyteCharacters()) {
        for (uint32_t i = 0; i < n; ++i)
            text[i] = char(table[static_cast<unsigned char>(text[i])]);
    } else {
        std::mbstate_t state{};
        for (uint32_t i = 0; i < n;) {
            const size_t k = std::mbrlen(text + i, n - i, &state);
            if (k >= 2 && k <= n - i) {
                i += uint32_t(k);
                continue;
            }
            // One-byte characters, zeros and bytes that start no character are mapped alone.
            if (k > n - i)
                state = std::mbstate_t{};
            text[i] = char(table[static_cast<unsigned char>(text[i])]);
            ++i;
        }
    }
    if (m_locale)
        uselocale(previous);
}

} // namespace vesk
