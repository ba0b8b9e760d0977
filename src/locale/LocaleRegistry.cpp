#include "locale/LocaleRegistry_p.hpp"

#include <algorithm>

namespace vesk {

template <class Table>
LocaleRegistry<Table>::LocaleRegistry(std::vector<Type> types, Builder build) : m_fBuild(std::move(build))
{
    m_aEntries.reserve(types.size());
    for (Type type : types)
        m_aEntries.push_back(Entry{type, std::nullopt});
}

template <class Table>
size_t LocaleRegistry<Table>::IndexOf(Type type) const
{
    auto it = std::find_if(m_aEntries.begin(), m_aEntries.end(), [type](const Entry& e) { return e.eType == type; });
    return static_cast<size_t>(it - m_aEntries.begin());
}

template <class Table>
const Table* LocaleRegistry<Table>::Find(Type type)
{
    size_t i = IndexOf(type);
    if (i == m_aEntries.size())
        return nullptr;
    if (!m_aEntries[i].aRecord) {
        // The builder may look up (and so build) other entries; the vector does not grow meanwhile.
        Table record = m_fBuild(*this, type);
        m_aEntries[i].aRecord = std::move(record);
    }
    return &*m_aEntries[i].aRecord;
}

template <class Table>
Table LocaleRegistry<Table>::Resolve(Type type)
{
    const Table* table = Find(type);
    if (!table)
        table = Find(Type{0});
    return table ? *table : Table{};
}

template <class Table>
void LocaleRegistry<Table>::Register(const Table& table)
{
    size_t i = IndexOf(table.m_eType);
    if (i == m_aEntries.size())
        m_aEntries.push_back(Entry{table.m_eType, table});
    else
        m_aEntries[i].aRecord = table;
}

template <class Table>
typename LocaleRegistry<Table>::Type LocaleRegistry<Table>::GetType(uint16_t index) const
{
    return index < m_aEntries.size() ? m_aEntries[index].eType : Type{255};
}

template <class Table>
bool LocaleRegistry<Table>::Has(Type type) const
{
    return IndexOf(type) != m_aEntries.size();
}

template class LocaleRegistry<LanguageTable>;
template class LocaleRegistry<CountryTable>;

} // namespace vesk
