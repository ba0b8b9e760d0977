#pragma once

#include "platform/locale_source.hpp"

#include <vesk/locale/CountryTable.hpp>
#include <vesk/locale/LanguageTable.hpp>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vesk {

// A registry of language or country records in insertion order. Each entry's record is made
// by the registry's builder on first look-up and cached; registering a table of an existing
// type overwrites that entry's record in place.
template <class Table>
class LocaleRegistry {
public:
    using Type = decltype(Table::m_eType);
    // Makes the record of an entry; may look up other entries of the same registry.
    using Builder = std::function<Table(LocaleRegistry&, Type)>;

    LocaleRegistry(std::vector<Type> types, Builder build);

    // The record of the entry of that type, built on first use; null when there is no entry.
    const Table* Find(Type type);
    // The record of the entry of that type, else of the system entry (type 0), else the
    // default record.
    Table Resolve(Type type);
    // Adds an entry for the table's type, or overwrites the record of the existing one.
    void Register(const Table& table);

    uint16_t Count() const { return static_cast<uint16_t>(m_aEntries.size()); }
    // The type of the entry at that index; 255 when the index is out of range.
    Type GetType(uint16_t index) const;
    bool Has(Type type) const;

private:
    struct Entry {
        Type eType;
        std::optional<Table> aRecord;
    };

    // Index of the entry of that type, or the count when there is none.
    size_t IndexOf(Type type) const;

    std::vector<Entry> m_aEntries;
    Builder m_fBuild;
};

using LanguageRegistry = LocaleRegistry<LanguageTable>;
using CountryRegistry = LocaleRegistry<CountryTable>;

// The language registry: the built-in list, then the user's language when it is not among
// them. The system entry (0) takes the record of the user's language. A user's language
// without built-in texts takes its day and month names from `userNames`, the locale's (see
// SystemLanguage); without them it has the English texts.
std::unique_ptr<LanguageRegistry> MakeLanguageRegistry(
    LanguageType userLanguage, std::optional<platform::LocaleNames> userNames = std::nullopt);
// The country registry: the built-in list, then the country of the settings' dialling code
// ("iCountry", 1 when missing) when it is not among them. The system entry (0) starts from
// that country's record (else the fallback country's) and reads the settings over it.
std::unique_ptr<CountryRegistry> MakeCountryRegistry(platform::IntlKeys settings);

// The registries that the library state owns; each is made on its first use.
struct LocaleRegistries {
    std::unique_ptr<LanguageRegistry> pLanguages;
    std::unique_ptr<CountryRegistry> pCountries;
};

// The registries of the library state, created on first use from the system settings (the
// user's LCID, and the "intl" keys with the user's overrides); null without VeskInit.
LanguageRegistry* ImpGetLanguageRegistry();
CountryRegistry* ImpGetCountryRegistry();

extern template class LocaleRegistry<LanguageTable>;
extern template class LocaleRegistry<CountryTable>;

} // namespace vesk
