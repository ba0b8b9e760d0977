#include "platform/locale_source.hpp"

#include "support/EnvGuard.hpp"
#include "support/GlobalLocaleGuard.hpp"
#include "support/LocaleGuard.hpp"

#include <gtest/gtest.h>

#include <clocale>

namespace vesk::platform {
namespace {

using test::LocaleGuard;

IntlKeys KeysUnder(const char* locale)
{
    LocaleGuard guard(locale);
    EXPECT_TRUE(guard.Available()) << locale << " is missing: scripts/setup installs locales-all";
    return IntlKeysFromLocale();
}

TEST(LocaleSource, EveryKeyOfALocale)
{
    IntlKeys expected{{"sShortDate", "dd.MM.yyyy"}, {"sLongDate", "dddd d. MMMM yyyy"}, {"iTime", "1"},
        {"iTLZero", "1"}, {"sTime", ":"}, {"s1159", ""}, {"s2359", ""}, {"sDecimal", ","}, {"sThousand", "."},
        {"sList", ";"}, {"sCurrency", "\xE2\x82\xAC"}, {"iCurrDigits", "2"}, {"iCurrency", "3"},
        {"iNegCurr", "8"}, {"iCountry", "49"}};
    EXPECT_EQ(KeysUnder("de_DE.UTF-8"), expected);
    // Texts of a locale whose codeset is not UTF-8 are converted.
    EXPECT_EQ(KeysUnder("de_DE@euro")["sCurrency"], "\xE2\x82\xAC");
    EXPECT_EQ(KeysUnder("fr_CH.UTF-8")["sThousand"], "\xE2\x80\x99");
}

TEST(LocaleSource, PlainOrMissingLocalesGiveNoKeys)
{
    EXPECT_TRUE(KeysUnder("C").empty());
    LocaleGuard missing("xx_YY.UTF-8");
    EXPECT_FALSE(missing.Available());
    EXPECT_TRUE(IntlKeysFromLocale().empty());
    EXPECT_EQ(UserDefaultLCID(), 1033u);
}

TEST(LocaleSource, EachCategoryFollowsItsOwnVariable)
{
    test::EnvGuard all("LC_ALL", nullptr);
    test::EnvGuard lang("LANG", "de_DE.UTF-8");
    test::EnvGuard numeric("LC_NUMERIC", "C");
    test::EnvGuard time("LC_TIME", "fr_CH.UTF-8");
    test::EnvGuard money("LC_MONETARY", nullptr);
    test::EnvGuard telephone("LC_TELEPHONE", nullptr);
    IntlKeys keys = IntlKeysFromLocale();
    EXPECT_EQ(keys["sShortDate"], "dd. MM. yy");
    EXPECT_EQ(keys.count("sDecimal"), 0u);
    EXPECT_EQ(keys["iNegCurr"], "8");
    EXPECT_EQ(UserDefaultLCID(), 4108u);
}

TEST(LocaleSource, AllCategoriesVariableOverridesEachCategorysOwn)
{
    test::EnvGuard all("LC_ALL", "de_DE.UTF-8");
    test::EnvGuard lang("LANG", "C");
    test::EnvGuard numeric("LC_NUMERIC", "C");
    test::EnvGuard time("LC_TIME", "fr_CH.UTF-8");
    IntlKeys keys = IntlKeysFromLocale();
    EXPECT_EQ(keys["sShortDate"], "dd.MM.yyyy");
    EXPECT_EQ(keys["sDecimal"], ",");
}

TEST(LocaleSource, ProcessLocaleComesFirst)
{
    LocaleGuard env("de_DE.UTF-8");
    test::GlobalLocaleGuard process(LC_TIME, "en_GB.UTF-8");
    ASSERT_TRUE(process.Active());
    EXPECT_EQ(IntlKeysFromLocale()["sShortDate"], "dd/MM/yy");
    EXPECT_EQ(IntlKeysFromLocale()["sDecimal"], ",");
    EXPECT_EQ(UserDefaultLCID(), 2057u);
}

} // namespace
} // namespace vesk::platform
