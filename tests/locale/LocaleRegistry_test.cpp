#include "LocaleTestUtil.hpp"

#include "locale/LocaleRegistry_p.hpp"
#include "locale/LocaleTables_p.hpp"
#include "platform/locale_source.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace vesk::test {
namespace {

template <class Registry>
std::vector<uint32_t> Types(const Registry& registry)
{
    std::vector<uint32_t> types;
    for (uint16_t i = 0; i < registry.Count(); ++i)
        types.push_back(registry.GetType(i));
    return types;
}

const std::vector<uint32_t> kLanguages{0, 9, 1033, 2057, 3081, 4105, 5129, 6153, 1031, 2055, 4103, 1036, 2060, 3084, 4108};
const std::vector<uint32_t> kCountries{0, 1025, 1026, 3, 1027, 2051, 5, 1029, 2053, 1030, 1031, 1032, 1033, 1034,
    1035, 1036, 1039, 1040, 1041, 1042, 1044, 1045, 22, 1046, 2070, 3094, 1048, 1049};

template <class T>
std::vector<T> With(std::vector<T> list, T last)
{
    list.push_back(last);
    return list;
}

TEST(LanguageRegistry, BuiltInListThenTheUsersLanguage)
{
    auto german = MakeLanguageRegistry(2055);
    EXPECT_EQ(Types(*german), kLanguages);
    EXPECT_EQ(german->GetType(15), LANGUAGE_DONTKNOW);
    // The system entry takes the user's record; unknown types resolve to it.
    EXPECT_EQ(german->Find(LANGUAGE_SYSTEM)->m_eType, 2055u);
    EXPECT_EQ(german->Resolve(1040).m_sCancelButtonText, "Abbrechen");

    auto italian = MakeLanguageRegistry(1040);
    EXPECT_EQ(Types(*italian), With(kLanguages, 1040u));
    EXPECT_EQ(italian->Find(0)->m_sDayText[0], "Monday"); // no texts of its own: English
}

platform::LocaleNames Names(const char* day, const char* month)
{
    platform::LocaleNames names;
    names.days.fill(day);
    names.abbrevDays.fill(day);
    names.months.fill(month);
    names.abbrevMonths.fill(month);
    return names;
}

TEST(LanguageRegistry, TheLocalesNamesServeALanguageWithoutTexts)
{
    // Czech: "úterý" fits the 8-bit code page, "března" does not, so all go UTF-8.
    auto czech = MakeLanguageRegistry(1029, Names("\xC3\xBAter\xC3\xBD", "b\xC5\x99" "ezna"));
    const LanguageTable* system = czech->Find(LANGUAGE_SYSTEM);
    EXPECT_EQ(*system, *czech->Find(1029));
    EXPECT_EQ(system->m_eType, 1029u);
    EXPECT_TRUE(system->m_sDayText[1].IsUTF8());
    EXPECT_EQ(Text(system->m_sDayText[1]), "\xC3\xBAter\xC3\xBD");
    EXPECT_TRUE(system->m_sAbbrevMonthText[11].IsUTF8());
    EXPECT_EQ(system->m_sHelpButtonText, "~Help");

    auto spanish = MakeLanguageRegistry(3082, Names("s\xC3\xA1" "bado", "marzo"));
    EXPECT_FALSE(spanish->Find(0)->m_sDayText[5].IsUTF8());
    EXPECT_EQ(Text(spanish->Find(0)->m_sDayText[5]), "s\xE1" "bado");
    // Other entries keep the built-in texts.
    EXPECT_EQ(spanish->Find(1031)->m_sDayText[0], "Montag");

    // A language with built-in texts ignores the locale's names.
    auto swiss = MakeLanguageRegistry(2055, Names("x", "y"));
    EXPECT_EQ(swiss->Find(0)->m_sDayText[0], "Montag");
}

TEST(LanguageRegistry, RegisteringAddsOrOverwritesInPlace)
{
    auto registry = MakeLanguageRegistry(1033);
    LanguageTable custom = BuiltinLanguage(1043);
    custom.m_sOKButtonText = "Goed";
    registry->Register(custom);
    EXPECT_EQ(Types(*registry), With(kLanguages, 1043u));

    const LanguageTable* before = registry->Find(2057);
    custom.m_eType = 2057;
    registry->Register(custom);
    EXPECT_EQ(registry->Count(), kLanguages.size() + 1);
    EXPECT_EQ(registry->Find(2057), before);
    EXPECT_EQ(before->m_sOKButtonText, "Goed");
}

TEST(CountryRegistry, BuiltInListThenTheSystemsCountry)
{
    EXPECT_EQ(Types(*MakeCountryRegistry({})), kCountries);
    EXPECT_EQ(Types(*MakeCountryRegistry({{"iCountry", "49"}})), kCountries);
    auto korea = MakeCountryRegistry({{"iCountry", "82"}});
    EXPECT_EQ(Types(*korea), With(kCountries, 1043u));
    EXPECT_EQ(*korea->Find(1043), CountryTable{.m_eType = 1043});
}

TEST(CountryRegistry, SystemEntryStartsFromTheDialledCountry)
{
    auto registry = MakeCountryRegistry({{"iCountry", "49"}, {"sShortDate", "yyyy-MM-dd"}});
    const CountryTable* system = registry->Find(COUNTRY_SYSTEM);
    CountryTable expected = BuiltinCountry(1033);
    expected.m_eType = COUNTRY_SYSTEM;
    expected.m_eDateFormat = YMD;
    EXPECT_EQ(*system, expected);
    EXPECT_EQ(registry->Find(COUNTRY_SYSTEM), system); // built once

    // Unmapped codes and a mapped code without conventions give the default record.
    for (const char* code : {"7", "82", "junk"})
        EXPECT_EQ(*MakeCountryRegistry({{"iCountry", code}})->Find(0), CountryTable{.m_eType = 0}) << code;
}

TEST(CountryRegistry, RegisteredRecordsReplaceBuiltOnes)
{
    auto registry = MakeCountryRegistry({{"iCountry", "43"}});
    CountryTable austria = BuiltinCountry(1026);
    austria.m_sCurrSymbol = "ATS";
    registry->Register(austria);
    EXPECT_EQ(registry->Find(0)->m_sCurrSymbol, "ATS");
    CountryTable fixed{.m_eType = 0, .m_cListSep = '|'};
    registry->Register(fixed);
    EXPECT_EQ(*registry->Find(0), fixed);
    EXPECT_EQ(registry->Count(), kCountries.size());
}

TEST(BuiltinCountries, EveryOtherCountryHasConventionsOfItsOwn)
{
    for (CountryType type : BuiltinCountryTypes()) {
        if (type != COUNTRY_SYSTEM && type != COUNTRY_FALLBACK) {
            EXPECT_NE(BuiltinCountry(type), CountryTable{.m_eType = type}) << type;
        }
    }
    EXPECT_EQ(CountryFromDialCode(2), 2053u);
    EXPECT_EQ(CountryFromDialCode(48), 0u);
}

} // namespace
} // namespace vesk::test
