#include "LocaleTestUtil.hpp"

#include "env/LocaleRegistry_p.hpp"
#include "env/LocaleTables_p.hpp"

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

TEST(LanguageRegistry, BuiltInListThenTheUsersLanguage)
{
    auto german = MakeLanguageRegistry(1031);
    EXPECT_EQ(Types(*german), kLanguages);
    EXPECT_EQ(german->GetType(15), LANGUAGE_DONTKNOW);
    EXPECT_FALSE(german->Has(1040));

    auto italian = MakeLanguageRegistry(1040);
    std::vector<uint32_t> expected = kLanguages;
    expected.push_back(1040);
    EXPECT_EQ(Types(*italian), expected);
    EXPECT_TRUE(italian->Has(1040));
    // A language without texts of its own uses the English ones.
    EXPECT_EQ(italian->Find(1040)->m_sDayText[0], "Monday");
}

TEST(LanguageRegistry, SystemEntryTakesTheUsersRecord)
{
    auto registry = MakeLanguageRegistry(4108);
    const LanguageTable* system = registry->Find(LANGUAGE_SYSTEM);
    ASSERT_NE(system, nullptr);
    EXPECT_EQ(system->m_eType, 4108u);
    EXPECT_EQ(system->m_sCancelButtonText, "Annuler");
    // Unknown types resolve to the system entry.
    EXPECT_EQ(registry->Resolve(1040).m_eType, 4108u);
    EXPECT_EQ(registry->Resolve(2055).m_sHelpButtonText, "~Hilfe");
}

TEST(LanguageRegistry, TextsByPrimaryLanguage)
{
    LanguageTable german = BuiltinLanguage(2055);
    EXPECT_EQ(german.m_eType, 2055u);
    EXPECT_EQ(german.m_sMonthText[2], "M\xE4rz");
    EXPECT_EQ(german.m_sAbbrevMonthText[2], "M\xE4r");
    EXPECT_EQ(german.m_sAbbrevDayText[3], "Don");
    LanguageTable french = BuiltinLanguage(3084);
    EXPECT_EQ(french.m_sMonthText[11], "D\xE9" "cembre");
    EXPECT_EQ(french.m_sAbbrevMonthText[1], "F\xE9v");
    EXPECT_EQ(french.m_sOKButtonText, "OK");
    EXPECT_EQ(BuiltinLanguage(9).m_sHelpButtonText, "~Help");
    EXPECT_EQ(BuiltinLanguage(6153).m_sAbbrevDayText[2], "Wed");
}

TEST(LanguageRegistry, RegisteringAddsOrOverwrites)
{
    auto registry = MakeLanguageRegistry(1033);
    LanguageTable custom = BuiltinLanguage(1033);
    custom.m_eType = 1043;
    custom.m_sOKButtonText = "Goed";
    registry->Register(custom);
    EXPECT_EQ(registry->GetType(registry->Count() - 1), 1043u);
    EXPECT_EQ(registry->Find(1043)->m_sOKButtonText, "Goed");

    const LanguageTable* before = registry->Find(2057);
    custom.m_eType = 2057;
    registry->Register(custom);
    EXPECT_EQ(registry->Count(), kLanguages.size() + 1);
    EXPECT_EQ(registry->Find(2057)->m_sOKButtonText, "Goed");
    EXPECT_EQ(registry->Find(2057), before); // overwritten in place
}

TEST(CountryRegistry, BuiltInListThenTheSystemsCountry)
{
    EXPECT_EQ(Types(*MakeCountryRegistry({})), kCountries);
    EXPECT_EQ(Types(*MakeCountryRegistry({{"iCountry", "49"}})), kCountries);
    EXPECT_EQ(Types(*MakeCountryRegistry({{"iCountry", "7"}})), kCountries);
    auto korea = MakeCountryRegistry({{"iCountry", "82"}});
    std::vector<uint32_t> expected = kCountries;
    expected.push_back(1043);
    EXPECT_EQ(Types(*korea), expected);
    EXPECT_EQ(korea->GetType(29), COUNTRY_DONTKNOW);
    EXPECT_EQ(*korea->Find(1043), CountryTable{.m_eType = 1043});
}

TEST(CountryRegistry, SystemEntryStartsFromTheDialledCountry)
{
    auto registry = MakeCountryRegistry({{"iCountry", "49"}, {"sShortDate", "yyyy-MM-dd"}});
    const CountryTable* system = registry->Find(COUNTRY_SYSTEM);
    ASSERT_NE(system, nullptr);
    CountryTable expected = BuiltinCountry(1033);
    expected.m_eType = COUNTRY_SYSTEM;
    expected.m_eDateFormat = YMD;
    EXPECT_EQ(*system, expected);
    // Built once and cached.
    EXPECT_EQ(registry->Find(COUNTRY_SYSTEM), system);

    // An unmapped code and a mapped code without conventions both give the default record.
    EXPECT_EQ(*MakeCountryRegistry({{"iCountry", "7"}})->Find(0), CountryTable{.m_eType = 0});
    EXPECT_EQ(*MakeCountryRegistry({{"iCountry", "82"}})->Find(0), CountryTable{.m_eType = 0});
    EXPECT_EQ(*MakeCountryRegistry({{"iCountry", "junk"}})->Find(0), CountryTable{.m_eType = 0});
}

TEST(CountryRegistry, RegisteredRecordsReplaceBuiltOnes)
{
    auto registry = MakeCountryRegistry({{"iCountry", "43"}});
    CountryTable austria = BuiltinCountry(1026);
    austria.m_sCurrSymbol = "ATS";
    registry->Register(austria);
    // The system entry is built from the registered record.
    EXPECT_EQ(registry->Find(0)->m_sCurrSymbol, "ATS");
    CountryTable fixed{.m_eType = 0, .m_cListSep = '|'};
    registry->Register(fixed);
    EXPECT_EQ(*registry->Find(0), fixed);
    EXPECT_EQ(registry->Count(), kCountries.size());
}

TEST(BuiltinCountries, StatedOverrideSets)
{
    CountryTable austria{.m_eType = 1026, .m_eDateFormat = YMD, .m_cDateSep = '-', .m_eLongDateFormat = DMY,
        .m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG, .m_sLongDateDayOfWeekSep = ", ", .m_sLongDateDaySep = ". ",
        .m_eLongDateMonthFormat = MONTH_LONG, .m_sLongDateMonthSep = " ", .m_eTimeFormat = HOUR_24,
        .m_cNumThousandSep = '.', .m_cNumDecimalSep = ',', .m_nCurrPositiveFormat = 2, .m_nCurrNegativeFormat = 9,
        .m_sCurrSymbol = "S", .m_cListSep = ';'};
    EXPECT_EQ(BuiltinCountry(1026), austria);
    CountryTable germany{.m_eType = 1033, .m_eDateFormat = DMY, .m_cDateSep = '.', .m_eLongDateFormat = DMY,
        .m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG, .m_sLongDateDayOfWeekSep = ", ",
        .m_bLongDateDayLeadingZero = 0, .m_sLongDateDaySep = ". ", .m_eLongDateMonthFormat = MONTH_LONG,
        .m_sLongDateMonthSep = " ", .m_eTimeFormat = HOUR_24, .m_cNumThousandSep = '.', .m_cNumDecimalSep = ',',
        .m_nCurrPositiveFormat = 3, .m_nCurrNegativeFormat = 8, .m_sCurrSymbol = "DM", .m_cListSep = ';'};
    EXPECT_EQ(BuiltinCountry(1033), germany);
    CountryTable flemish = BuiltinCountry(2051);
    flemish.m_eType = 1027;
    flemish.m_sCurrSymbol = "BF";
    EXPECT_EQ(BuiltinCountry(1027), flemish);
    EXPECT_EQ(BuiltinCountry(1049), CountryTable{.m_eType = 1049});
}

TEST(BuiltinCountries, EveryOtherCountryHasConventionsOfItsOwn)
{
    for (CountryType type : BuiltinCountryTypes()) {
        if (type == COUNTRY_SYSTEM || type == COUNTRY_FALLBACK)
            continue;
        CountryTable table = BuiltinCountry(type);
        EXPECT_EQ(table.m_eType, type);
        EXPECT_NE(table, CountryTable{.m_eType = type}) << type;
    }
}

TEST(BuiltinCountries, DiallingCodes)
{
    EXPECT_EQ(CountryFromDialCode(1), 1049u);
    EXPECT_EQ(CountryFromDialCode(2), 2053u);
    EXPECT_EQ(CountryFromDialCode(41), 22u);
    EXPECT_EQ(CountryFromDialCode(49), 1033u);
    EXPECT_EQ(CountryFromDialCode(358), 1031u);
    EXPECT_EQ(CountryFromDialCode(48), 0u);
    EXPECT_EQ(CountryFromDialCode(0), 0u);
}

} // namespace
} // namespace vesk::test
