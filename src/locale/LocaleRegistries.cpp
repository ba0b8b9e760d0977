#include "locale/IntlSettings_p.hpp"
#include "locale/LocaleRegistry_p.hpp"
#include "locale/LocaleTables_p.hpp"
#include "locale/SystemLanguage_p.hpp"
#include "platform/intl_profile.hpp"

#include <vesk/frame/VeskData.hpp>

#include <algorithm>

namespace vesk {

namespace {

// The built-in types, then `own` when it is set and not among them.
template <class Type>
std::vector<Type> TypesWith(std::span<const Type> builtin, Type own)
{
    std::vector<Type> types(builtin.begin(), builtin.end());
    if (own && std::find(types.begin(), types.end(), own) == types.end())
        types.push_back(own);
    return types;
}

} // namespace

std::unique_ptr<LanguageRegistry> MakeLanguageRegistry(
    LanguageType userLanguage, std::optional<platform::LocaleNames> userNames)
{
    // The locale's names replace the built-in English ones of a language without texts.
    if (HasBuiltinTexts(userLanguage))
        userNames.reset();
    auto build = [userLanguage, names = std::move(userNames)](LanguageRegistry& registry, LanguageType type) {
        if (names && type == userLanguage)
            return SystemLanguage(userLanguage, *names);
        if (type != LANGUAGE_SYSTEM || userLanguage == LANGUAGE_SYSTEM)
            return BuiltinLanguage(type);
        const LanguageTable* user = registry.Find(userLanguage);
        return user ? *user : LanguageTable{};
    };
    return std::make_unique<LanguageRegistry>(TypesWith(BuiltinLanguageTypes(), userLanguage), build);
}

std::unique_ptr<CountryRegistry> MakeCountryRegistry(platform::IntlKeys settings)
{
    const CountryType own = CountryFromDialCode(IntlNumber(settings, "iCountry").value_or(1));
    auto build = [own, settings = std::move(settings)](CountryRegistry& registry, CountryType type) {
        if (type != COUNTRY_SYSTEM)
            return BuiltinCountry(type);
        const CountryTable* base = own ? registry.Find(own) : nullptr;
        if (!base)
            base = registry.Find(COUNTRY_FALLBACK);
        CountryTable record = base ? *base : CountryTable{};
        record.m_eType = COUNTRY_SYSTEM;
        ReadIntlSettings(settings, record);
        return record;
    };
    return std::make_unique<CountryRegistry>(TypesWith(BuiltinCountryTypes(), own), build);
}

struct LocaleRegistriesAccess {
    static std::shared_ptr<LocaleRegistries>& Slot(VeskData& data) { return data.m_pLocaleRegistries; }
};

namespace {

LocaleRegistries* Registries()
{
    VeskData* data = GetPVeskData();
    if (!data)
        return nullptr;
    std::shared_ptr<LocaleRegistries>& slot = LocaleRegistriesAccess::Slot(*data);
    if (!slot)
        slot = std::make_shared<LocaleRegistries>();
    return slot.get();
}

} // namespace

LanguageRegistry* ImpGetLanguageRegistry()
{
    LocaleRegistries* registries = Registries();
    if (!registries)
        return nullptr;
    if (!registries->pLanguages)
        registries->pLanguages = MakeLanguageRegistry(platform::UserDefaultLCID(), platform::LocaleNamesFromLocale());
    return registries->pLanguages.get();
}

CountryRegistry* ImpGetCountryRegistry()
{
    LocaleRegistries* registries = Registries();
    if (!registries)
        return nullptr;
    if (!registries->pCountries)
        registries->pCountries = MakeCountryRegistry(platform::ReadIntlKeys());
    return registries->pCountries.get();
}

} // namespace vesk
