#include "LocaleTestUtil.hpp"

#include "support/ConfigHomeGuard.hpp"
#include "support/FileText.hpp"
#include "support/LocaleGuard.hpp"

#include "platform/intl_profile.hpp"

#include <vesk/frame.hpp>
#include <vesk/locale.hpp>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace vesk::test {
namespace {

// Runs the library under a locale; the registries, and so the system settings, are made
// afresh by each start.
class LibraryUnder {
public:
    explicit LibraryUnder(const char* locale) : m_locale(locale)
    {
        EXPECT_TRUE(m_locale.Available()) << locale << " is missing: scripts/setup installs locales-all";
        VeskInit();
    }
    ~LibraryUnder() { VeskExit(); }
    LibraryUnder(const LibraryUnder&) = delete;
    LibraryUnder& operator=(const LibraryUnder&) = delete;

private:
    LocaleGuard m_locale;
};

struct Expected {
    const char* locale;
    LanguageType language;
    const char* date;
    const char* longDate;
    const char* time;
    const char* number;
    const char* amount;
    const char* negativeAmount;
};

// 15 March 2024 (a Friday), 13:05:09, 12345.67 and 1234.56. Month names are the library's
// own 8-bit texts; currency symbols come from the locale in UTF-8. The dates and times of
// every installed locale are compared field by field in AllLocales_test; these pin whole
// texts, separators and amounts included.
const Expected kLocales[] = {
    {"en_US.UTF-8", 1033, "03/15/2024", "Friday March 15 2024", "01:05:09 PM", "12,345.67", "$1,234.56",
        "-$1,234.56"},
    {"en_GB.UTF-8", 2057, "15/03/24", "Friday 15 March 2024", "13:05:09", "12,345.67", "\xC2\xA3" "1,234.56",
        "-\xC2\xA3" "1,234.56"},
    {"de_DE.UTF-8", 1031, "15.03.2024", "Freitag 15. M\xE4rz 2024", "13:05:09", "12.345,67",
        "1.234,56 \xE2\x82\xAC", "-1.234,56 \xE2\x82\xAC"},
    {"de_AT.UTF-8", 3079, "2024-03-15", "Freitag 15 M\xE4rz 2024", "13:05:09", "12.345,67",
        "\xE2\x82\xAC 1.234,56", "-\xE2\x82\xAC 1.234,56"},
    {"fr_FR.UTF-8", 1036, "15/03/2024", "Vendredi 15 Mars 2024", "13:05:09", "12 345,67", "1 234,56 \xE2\x82\xAC",
        "-1 234,56 \xE2\x82\xAC"},
    {"fr_CH.UTF-8", 4108, "15.03.24", "Vendredi 15 Mars 2024", "13:05:09", "12'345.67", "CHF 1'234.56",
        "CHF-1'234.56"},
};

TEST(SystemIntl, FormatsUnderRealLocales)
{
    for (const Expected& e : kLocales) {
        SCOPED_TRACE(e.locale);
        LibraryUnder library(e.locale);
        International intl;
        EXPECT_EQ(intl.GetCountry(), COUNTRY_SYSTEM);
        EXPECT_EQ(intl.GetLanguage(), e.language);
        EXPECT_EQ(Text(intl.GetDate(Date(15, 3, 2024))), e.date);
        EXPECT_EQ(Text(intl.GetLongDate(Date(15, 3, 2024))), e.longDate);
        EXPECT_EQ(Text(intl.GetTime(Time(13, 5, 9, 0), true, false)), e.time);
        EXPECT_EQ(Text(intl.GetNum(1234567, 2)), e.number);
        EXPECT_EQ(Text(intl.GetCurr(123456)), e.amount);
        EXPECT_EQ(Text(intl.GetCurr(-123456)), e.negativeAmount);
    }
}

// UTF-8 text of a formatted value, whichever form its texts took.
std::string Shown(const SString& s)
{
    return Text(s.AnsiToUTF8());
}

TEST(SystemIntl, SystemLanguageTakesTheLocalesNames)
{
    {
        // Genitive month names, as the C library writes them into dates; the buttons stay English.
        LibraryUnder library("ru_RU.UTF-8");
        International intl;
        EXPECT_EQ(intl.GetLanguage(), 1049u);
        EXPECT_TRUE(intl.GetMonthText(3).IsUTF8());
        EXPECT_EQ(Text(intl.GetMonthText(3)), "\xD0\xBC\xD0\xB0\xD1\x80\xD1\x82\xD0\xB0");
        EXPECT_EQ(Text(intl.GetAbbrevDayText(SUNDAY)), "\xD0\x92\xD1\x81");
        EXPECT_EQ(intl.GetCancelButtonText(), "Cancel");
        EXPECT_TRUE(International(0, 1049) == intl);
    }
    {
        // A language without an identifier of its own still has its names.
        LibraryUnder library("ber_MA.UTF-8");
        International intl;
        EXPECT_EQ(intl.GetLanguage(), 0x1000u);
        EXPECT_NE(intl.GetMonthText(1), "January");
    }
}

TEST(SystemIntl, OverridesWinOverTheLocale)
{
    ConfigHomeGuard home;
    mkdir((home.Path() + "/vesk").c_str(), 0700);
    ASSERT_TRUE(WriteFileText(platform::UserProfilePath(), "[intl]\nsLongDate=dddd, d. MMMM yyyy\n"));
    LibraryUnder library("ja_JP.UTF-8");
    EXPECT_EQ(Shown(International().GetLongDate(Date(15, 3, 2024))),
        "\xE9\x87\x91\xE6\x9B\x9C\xE6\x97\xA5, 15. 3\xE6\x9C\x88 2024");
}

TEST(SystemIntl, ProfileOverridesReachTheSystemCountry)
{
    ConfigHomeGuard home;
    mkdir((home.Path() + "/vesk").c_str(), 0700);
    ASSERT_TRUE(WriteFileText(platform::UserProfilePath(),
        "[intl]\nsShortDate=yyyy/MM/dd\nsThousand=\niCountry=43\niNegCurr=junk\nsDecimal=\n"));
    LibraryUnder library("de_DE.UTF-8");
    International intl;
    // Austria's record under the German locale: its date separator, the locale's order.
    EXPECT_EQ(Text(intl.GetDate(Date(15, 3, 2024))), "2024-03-15");
    EXPECT_EQ(Text(intl.GetNum(1234567, 2)), "12345,67");
    // The unreadable iNegCurr leaves Austria's layout; an empty sDecimal leaves the separator.
    EXPECT_EQ(Text(intl.GetCurr(-123456)), "-\xE2\x82\xAC 1234,56");
}

TEST(SystemIntl, MissingOrPlainLocalesGiveTheDefaults)
{
    for (const char* name : {"xx_YY.UTF-8", "C", "POSIX", "C.UTF-8"}) {
        SCOPED_TRACE(name);
        LocaleGuard locale(name);
        VeskInit();
        International intl;
        EXPECT_TRUE(intl == International(COUNTRY_SYSTEM, 1033));
        EXPECT_EQ(Text(intl.GetCurr(-123456)), "(1,234.56)");
        EXPECT_EQ(Text(intl.GetLongDate(Date(15, 3, 2024))), "3152024");
        VeskExit();
    }
}

TEST(SystemIntl, RegistriesLiveInTheLibraryState)
{
    {
        LibraryUnder library("it_IT.UTF-8");
        EXPECT_EQ(International::GetAvailableLanguagesCount(), 16);
        EXPECT_EQ(International::GetAvailableLanguage(15), 1040u);
        EXPECT_EQ(International::GetAvailableCountriesCount(), 28);
        EXPECT_FALSE(International::IsCountryAvailable(1043));

        EXPECT_EQ(Text(International(1026, 1031).GetLongDate(Date(15, 3, 2024))), "Freitag, 15. M\xE4rz 2024");
        // Unknown types take the system entries.
        EXPECT_TRUE(International(4242, 4242) == International());

        CountryTable mine{.m_eType = 4242, .m_sCurrSymbol = "XTS"};
        International::RegisterCountry(mine);
        EXPECT_EQ(International::GetAvailableCountry(28), 4242u);
        EXPECT_EQ(International(4242, 1033).GetCurrSymbol(), "XTS");
        International::RegisterLanguage(LanguageTable{.m_eType = 1031, .m_sOKButtonText = "Jawohl"});
        EXPECT_EQ(International(0, 1031).GetOKButtonText(), "Jawohl");
        EXPECT_EQ(International::GetAvailableLanguagesCount(), 16);
    }
    // A new start forgets what was registered.
    LibraryUnder library("it_IT.UTF-8");
    EXPECT_FALSE(International::IsCountryAvailable(4242));
}

TEST(SystemIntl, WithoutTheLibraryStateOnlyDefaultsExist)
{
    International intl;
    EXPECT_EQ(intl.GetCountry(), COUNTRY_DONTKNOW);
    EXPECT_EQ(intl.GetDayText(MONDAY), "");
    EXPECT_EQ(International::GetAvailableLanguagesCount(), 0);
    International::RegisterCountry(CountryTable{.m_eType = 7});
    EXPECT_FALSE(International::IsCountryAvailable(7));
}

} // namespace
} // namespace vesk::test
