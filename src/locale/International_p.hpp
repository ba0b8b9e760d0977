#pragma once

#include <vesk/locale/International.hpp>

#include <atomic>
#include <cstdint>

namespace vesk {

// The share count saturates here; a copy of a saturated pair gets a duplicate.
inline constexpr uint32_t INTL_MAXREFS = 2147483647;

// The pair of records that International handles share.
struct IntlData {
    IntlData(const LanguageTable& language, const CountryTable& country)
        : aLanguage(language), aCountry(country)
    {
    }
    IntlData(const IntlData& other) : aLanguage(other.aLanguage), aCountry(other.aCountry) { }

    std::atomic<uint32_t> nRefCount{1}; // handles sharing the pair
    LanguageTable aLanguage;
    CountryTable aCountry;
};

// Gives a handle's pair slot a pair of its own before a change.
void IntlMakeUnique(IntlData*& data);

// Internal access for tests.
struct InternationalAccess {
    static IntlData* Data(const International& intl) noexcept { return intl.m_pData; }
};

} // namespace vesk
