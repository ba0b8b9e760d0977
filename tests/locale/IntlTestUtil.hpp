#pragma once

#include "LocaleTestUtil.hpp"

#include "locale/International_p.hpp"
#include "locale/LocaleTables_p.hpp"

#include <vesk/locale.hpp>

namespace vesk::test {

// A handle of its own holding the given records.
inline International WithRecords(const CountryTable& country, const LanguageTable& language = BuiltinLanguage(1033))
{
    International intl(COUNTRY_DONTKNOW, LANGUAGE_DONTKNOW);
    IntlData* data = InternationalAccess::Data(intl);
    data->aCountry = country;
    data->aLanguage = language;
    return intl;
}

} // namespace vesk::test
