#include "platform/locale_formats.hpp"
#include "platform/locale_lcid.hpp"

#include <gtest/gtest.h>

#include <climits>

namespace vesk::platform {
namespace {

TEST(DatePicture, ShortForms)
{
    EXPECT_EQ(DatePicture("%m/%d/%Y", false), "MM/dd/yyyy");
    EXPECT_EQ(DatePicture("%d.%m.%Y", false), "dd.MM.yyyy");
    EXPECT_EQ(DatePicture("%d. %m. %y", false), "dd. MM. yy");
    EXPECT_EQ(DatePicture("%F", false), "yyyy-MM-dd");
    EXPECT_EQ(DatePicture("%D", false), "MM/dd/yy");
    EXPECT_EQ(DatePicture("%-d/%-m/%Y", false), "d/M/yyyy");
    EXPECT_EQ(DatePicture("%e %b %Y", false), "d MMM yyyy");
    EXPECT_EQ(DatePicture("%Y\xE5\xB9\xB4%m\xE6\x9C\x88%d\xE6\x97\xA5", false),
        "yyyy\xE5\xB9\xB4MM\xE6\x9C\x88" "dd\xE6\x97\xA5");
    EXPECT_EQ(DatePicture("%Ey %Od%%", false), "yy dd%");
    EXPECT_EQ(DatePicture("", false), "");
    EXPECT_EQ(DatePicture("%", false), "");
}

TEST(DatePicture, LongFormsDropTimeAndSpellNamesOut)
{
    EXPECT_EQ(DatePicture("%a %b %e %r %Z %Y", true), "dddd MMMM d yyyy");
    EXPECT_EQ(DatePicture("%a %-d. %b %H:%M:%S %Z %Y", true), "dddd d. MMMM yyyy");
    EXPECT_EQ(DatePicture("%a %-d %b %Y, %T, %Z", true), "dddd d MMMM yyyy");
    EXPECT_EQ(DatePicture("%a %d %b %Y %T %Z", true), "dddd dd MMMM yyyy");
    EXPECT_EQ(DatePicture("%A %e de %B de %Y", true), "dddd d' de 'MMMM' de 'yyyy");
    EXPECT_EQ(DatePicture("%d %b, o'clock %H", true), "dd MMMM");
    EXPECT_EQ(DatePicture("%H:%M %d.%m.", true), "dd.MM.");
    EXPECT_EQ(DatePicture("Le %d l'an %Y", false), "'Le 'dd' lan 'yyyy");
}

TEST(ClockFromTimeFormat, HourFieldDecides)
{
    ClockFormat c = ClockFromTimeFormat("%r", "%I:%M:%S %p");
    EXPECT_EQ(c.nTime, 0);
    EXPECT_EQ(c.nLeadingZero, 1);
    EXPECT_EQ(c.sSeparator, ":");
    c = ClockFromTimeFormat("%T", "");
    EXPECT_EQ(c.nTime, 1);
    EXPECT_EQ(c.nLeadingZero, 1);
    EXPECT_EQ(c.sSeparator, ":");
    c = ClockFromTimeFormat("%l:%M:%S %P %Z", "");
    EXPECT_EQ(c.nTime, 0);
    EXPECT_EQ(c.nLeadingZero, 0);
    c = ClockFromTimeFormat("%-H.%M", "");
    EXPECT_EQ(c.nTime, 1);
    EXPECT_EQ(c.nLeadingZero, 0);
    EXPECT_EQ(c.sSeparator, ".");
    c = ClockFromTimeFormat("%H\xE6\x99\x82%M\xE5\x88\x86", "");
    EXPECT_EQ(c.sSeparator, "\xE6\x99\x82");
    // A twelve-hour format that is missing or refers to itself reads as %I:%M:%S %p.
    EXPECT_EQ(ClockFromTimeFormat("%r", "").nTime, 0);
    EXPECT_EQ(ClockFromTimeFormat("%r", "%r").nTime, 0);
    c = ClockFromTimeFormat("%M:%S", "");
    EXPECT_FALSE(c.nTime);
    EXPECT_FALSE(c.nLeadingZero);
    EXPECT_EQ(c.sSeparator, "");
    EXPECT_EQ(ClockFromTimeFormat("%H%M", "").sSeparator, "");
}

TEST(CurrencyCodes, PositiveLayouts)
{
    EXPECT_EQ(PositiveCurrencyCode(1, 0), 0); // en_US  $1
    EXPECT_EQ(PositiveCurrencyCode(0, 0), 1);
    EXPECT_EQ(PositiveCurrencyCode(1, 1), 2); // de_AT  € 1
    EXPECT_EQ(PositiveCurrencyCode(0, 1), 3); // de_DE  1 €
    EXPECT_EQ(PositiveCurrencyCode(1, 2), 0);
    EXPECT_EQ(PositiveCurrencyCode(CHAR_MAX, 0), std::nullopt);
    EXPECT_EQ(PositiveCurrencyCode(1, CHAR_MAX), std::nullopt);
}

TEST(CurrencyCodes, NegativeLayouts)
{
    EXPECT_EQ(NegativeCurrencyCode(1, 0, 1), 1);  // en_US  -$1
    EXPECT_EQ(NegativeCurrencyCode(0, 1, 1), 8);  // de_DE  -1 €
    EXPECT_EQ(NegativeCurrencyCode(1, 1, 1), 9);  // de_AT  -€ 1
    EXPECT_EQ(NegativeCurrencyCode(1, 1, 4), 2);  // de_CH  CHF-1 (no code spaces it)
    EXPECT_EQ(NegativeCurrencyCode(1, 2, 4), 11); // nl_BE  € -1
    EXPECT_EQ(NegativeCurrencyCode(1, 0, 0), 0);  // ($1)
    EXPECT_EQ(NegativeCurrencyCode(0, 0, 0), 4);  // (1$)
    EXPECT_EQ(NegativeCurrencyCode(0, 1, 2), 10); // 1 $-
    EXPECT_EQ(NegativeCurrencyCode(0, 0, 3), 6);  // 1-$
    EXPECT_EQ(NegativeCurrencyCode(1, 0, 2), 3);  // $1-
    EXPECT_EQ(NegativeCurrencyCode(1, 0, 5), std::nullopt);
    EXPECT_EQ(NegativeCurrencyCode(1, -1, 1), std::nullopt);
}

TEST(LcidFromLocaleName, LanguageAndTerritory)
{
    EXPECT_EQ(LcidFromLocaleName("de_DE.UTF-8"), 1031u);
    EXPECT_EQ(LcidFromLocaleName("en_US"), 1033u);
    EXPECT_EQ(LcidFromLocaleName("fr_CH.UTF-8"), 4108u);
    EXPECT_EQ(LcidFromLocaleName("de_AT@euro"), 3079u);
    EXPECT_EQ(LcidFromLocaleName("en_GB.ISO-8859-1"), 2057u);
    EXPECT_EQ(LcidFromLocaleName("nb_NO.UTF-8"), 1044u);
    // A territory without its own identifier takes the language's neutral one.
    EXPECT_EQ(LcidFromLocaleName("de_BE.UTF-8"), 7u);
    EXPECT_EQ(LcidFromLocaleName("fr"), 12u);
    EXPECT_EQ(LcidFromLocaleName("C"), 1033u);
    EXPECT_EQ(LcidFromLocaleName("C.UTF-8"), 1033u);
    EXPECT_EQ(LcidFromLocaleName(""), 1033u);
    EXPECT_EQ(LcidFromLocaleName("xx_YY"), 1033u);
    EXPECT_EQ(LcidFromLocaleName("_DE"), 1033u);
}

} // namespace
} // namespace vesk::platform
