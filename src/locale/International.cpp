#include "locale/International_p.hpp"

#include "locale/LocaleRegistry_p.hpp"

namespace vesk {

namespace {

// Registry access that tolerates a missing registry (no library state): there are no
// entries, look-ups give the default record and registering does nothing.
template <class Table>
Table Resolve(LocaleRegistry<Table>* registry, typename LocaleRegistry<Table>::Type type)
{
    return registry ? registry->Resolve(type) : Table{};
}

template <class Table>
void Register(LocaleRegistry<Table>* registry, const Table& table)
{
    if (registry)
        registry->Register(table);
}

template <class Table>
uint16_t Count(const LocaleRegistry<Table>* registry)
{
    return registry ? registry->Count() : 0;
}

template <class Table>
uint32_t TypeAt(const LocaleRegistry<Table>* registry, uint16_t index)
{
    return registry ? registry->GetType(index) : 255;
}

template <class Table>
bool Has(const LocaleRegistry<Table>* registry, uint32_t type)
{
    return registry && registry->Has(type);
}

// Takes a share of the pair; a saturated pair is duplicated instead.
IntlData* Share(IntlData* data)
{
    uint32_t count = data->nRefCount.load(std::memory_order_relaxed);
    while (count < INTL_MAXREFS) {
        if (data->nRefCount.compare_exchange_weak(count, count + 1, std::memory_order_relaxed))
            return data;
    }
    return new IntlData(*data);
}

void Release(IntlData* data)
{
    if (data->nRefCount.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete data;
}

} // namespace

void IntlMakeUnique(IntlData*& data)
{
    if (data->nRefCount.load(std::memory_order_acquire) == 1)
        return;
    IntlData* copy = new IntlData(*data);
    Release(data);
    data = copy;
}

International::International() : International(COUNTRY_SYSTEM, LANGUAGE_SYSTEM) { }

International::International(CountryType country, LanguageType language)
    : m_pData(new IntlData(Resolve(ImpGetLanguageRegistry(), language), Resolve(ImpGetCountryRegistry(), country)))
{
}

International::International(const International& other) : m_pData(Share(other.m_pData)) { }

International& International::operator=(const International& other)
{
    if (m_pData != other.m_pData) {
        IntlData* shared = Share(other.m_pData);
        Release(m_pData);
        m_pData = shared;
    }
    return *this;
}

International::~International()
{
    Release(m_pData);
}

bool International::operator==(const International& other) const
{
    return m_pData == other.m_pData
        || (m_pData->aLanguage == other.m_pData->aLanguage && m_pData->aCountry == other.m_pData->aCountry);
}

void International::RegisterLanguage(const LanguageTable& table)
{
    Register(ImpGetLanguageRegistry(), table);
}

void International::RegisterCountry(const CountryTable& table)
{
    Register(ImpGetCountryRegistry(), table);
}

uint16_t International::GetAvailableLanguagesCount()
{
    return Count(ImpGetLanguageRegistry());
}

LanguageType International::GetAvailableLanguage(uint16_t index)
{
    return TypeAt(ImpGetLanguageRegistry(), index);
}

bool International::IsLanguageAvailable(LanguageType type)
{
    return Has(ImpGetLanguageRegistry(), type);
}

uint16_t International::GetAvailableCountriesCount()
{
    return Count(ImpGetCountryRegistry());
}

CountryType International::GetAvailableCountry(uint16_t index)
{
    return TypeAt(ImpGetCountryRegistry(), index);
}

bool International::IsCountryAvailable(CountryType type)
{
    return Has(ImpGetCountryRegistry(), type);
}

} // namespace vesk
