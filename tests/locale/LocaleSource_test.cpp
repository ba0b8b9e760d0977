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

TEST(LocaleSource, GermanGermany)
{
    IntlKeys expected{{"sShortDate", "dd.MM.yyyy"}, {"sLongDate", "dddd d. MMMM yyyy"}, {"iTime", "1"},
        {"iTLZero", "1"}, {"sTime", ":"}, {"s1159", ""}, {"s2359", ""}, {"sDecimal", ","}, {"sThousand", "."},
        {"sList", ";"}, {"sCurrency", "\xE2\x82\xAC"}, {"iCurrDigits", "2"}, {"iCurrency", "3"},
        {"iNegCurr", "8"}, {"iCountry", "49"}};
    EXPECT_EQ(KeysUnder("de_DE.UTF-8"), expected);
}

TEST(LocaleSource, EnglishUnitedStates)
{
    IntlKeys expected{{"sShortDate", "MM/dd/yyyy"}, {"sLongDate", "dddd MMMM d yyyy"}, {"iTime", "0"},
        {"iTLZero", "1"}, {"sTime", ":"}, {"s1159", "AM"}, {"s2359", "PM"}, {"sDecimal", "."}, {"sThousand", ","},
        {"sList", ","}, {"sCurrency", "$"}, {"iCurrDigits", "2"}, {"iCurrency", "0"}, {"iNegCurr", "1"},
        {"iCountry", "1"}};
    EXPECT_EQ(KeysUnder("en_US.UTF-8"), expected);
}

TEST(LocaleSource, OtherCountries)
{
    IntlKeys gb = KeysUnder("en_GB.UTF-8");
    EXPECT_EQ(gb["sShortDate"], "dd/MM/yy");
    EXPECT_EQ(gb["iTime"], "1");
    EXPECT_EQ(gb["sCurrency"], "\xC2\xA3");
    EXPECT_EQ(gb["iCountry"], "44");
    IntlKeys at = KeysUnder("de_AT.UTF-8");
    EXPECT_EQ(at["sShortDate"], "yyyy-MM-dd");
    EXPECT_EQ(at["iCurrency"], "2");
    EXPECT_EQ(at["iNegCurr"], "9");
    EXPECT_EQ(at["iCountry"], "43");
    IntlKeys fr = KeysUnder("fr_FR.UTF-8");
    EXPECT_EQ(fr["sShortDate"], "dd/MM/yyyy");
    EXPECT_EQ(fr["sThousand"], "\xE2\x80\xAF");
    EXPECT_EQ(fr["iCountry"], "33");
    IntlKeys ch = KeysUnder("fr_CH.UTF-8");
    EXPECT_EQ(ch["sShortDate"], "dd. MM. yy");
    EXPECT_EQ(ch["sThousand"], "\xE2\x80\x99");
    EXPECT_EQ(ch["sDecimal"], ".");
    EXPECT_EQ(ch["sCurrency"], "CHF");
    EXPECT_EQ(ch["iNegCurr"], "2");
    EXPECT_EQ(ch["iCountry"], "41");
}

TEST(LocaleSource, TextsOfAnEightBitLocaleAreConverted)
{
    EXPECT_EQ(KeysUnder("de_DE@euro")["sCurrency"], "\xE2\x82\xAC");
}

TEST(LocaleSource, PlainOrMissingLocalesGiveNoKeys)
{
    EXPECT_TRUE(KeysUnder("C").empty());
    EXPECT_TRUE(KeysUnder("C.UTF-8").empty());
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

TEST(LocaleSource, ProcessLocaleComesFirst)
{
    LocaleGuard env("de_DE.UTF-8");
    test::GlobalLocaleGuard process(LC_TIME, "en_GB.UTF-8");
    ASSERT_TRUE(process.Active());
    EXPECT_EQ(IntlKeysFromLocale()["sShortDate"], "dd/MM/yy");
    EXPECT_EQ(IntlKeysFromLocale()["sDecimal"], ",");
    EXPECT_EQ(UserDefaultLCID(), 2057u);
}

TEST(LocaleSource, UserLanguageFromTheTimeLocale)
{
    for (auto [name, lcid] : {std::pair{"de_DE.UTF-8", 1031u}, {"de_AT.UTF-8", 3079u}, {"fr_CH.UTF-8", 4108u},
             {"en_GB.UTF-8", 2057u}, {"C", 1033u}}) {
        LocaleGuard guard(name);
        EXPECT_EQ(UserDefaultLCID(), lcid) << name;
    }
}

} // namespace
} // namespace vesk::platform
