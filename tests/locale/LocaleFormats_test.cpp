#include "platform/locale_formats.hpp"
#include "platform/locale_lcid.hpp"

#include <gtest/gtest.h>

#include <climits>

namespace vesk::platform {
namespace {

TEST(DatePicture, FromStrftimeFormats)
{
    struct Case {
        const char* format;
        bool longForm;
        const char* picture;
    };
    const Case cases[] = {
        {"%d. %m. %y", false, "dd. MM. yy"},
        {"%Y\xE5\xB9\xB4%m\xE6\x9C\x88", false, "yyyy\xE5\xB9\xB4MM\xE6\x9C\x88"},
        {"%Ey %Od%%", false, "yy dd%"},
        {"%", false, ""},
        {"Le %d l'an %Y", false, "'Le 'dd' lan 'yyyy"},
        // Long forms: time fields go with the text that led up to them, names are spelt out.
        {"%a %b %e %r %Z %Y", true, "dddd MMMM d yyyy"},
        {"%a %-d. %b %H:%M:%S %Z %Y", true, "dddd d. MMMM yyyy"},
        {"%A %e de %B de %Y", true, "dddd d' de 'MMMM' de 'yyyy"},
        {"%H:%M %d.%m.", true, "dd.MM."},
    };
    for (const Case& c : cases)
        EXPECT_EQ(DatePicture(c.format, c.longForm), c.picture) << c.format;
}

TEST(ClockFromTimeFormat, HourFieldDecides)
{
    struct Case {
        const char* format;
        const char* format12;
        std::optional<int> time, leadingZero;
        const char* separator;
    };
    const Case cases[] = {
        {"%r", "%I:%M:%S %p", 0, 1, ":"},
        {"%r", "", 0, 1, ":"}, // a missing twelve-hour format reads as %I:%M:%S %p
        {"%T", "", 1, 1, ":"},
        {"%l:%M:%S %P %Z", "", 0, 0, ":"},
        {"%-H.%M", "", 1, 0, "."},
        {"%H\xE6\x99\x82%M", "", 1, 1, "\xE6\x99\x82"},
        {"%M:%S", "", std::nullopt, std::nullopt, ""},
    };
    for (const Case& c : cases) {
        ClockFormat clock = ClockFromTimeFormat(c.format, c.format12);
        EXPECT_EQ(clock.nTime, c.time) << c.format;
        EXPECT_EQ(clock.nLeadingZero, c.leadingZero) << c.format;
        EXPECT_EQ(clock.sSeparator, c.separator) << c.format;
    }
}

TEST(CurrencyCodes, FromMonetaryLayout)
{
    EXPECT_EQ(PositiveCurrencyCode(1, 0), 0); // $1
    EXPECT_EQ(PositiveCurrencyCode(1, 1), 2); // € 1
    EXPECT_EQ(PositiveCurrencyCode(0, 1), 3); // 1 €
    EXPECT_EQ(PositiveCurrencyCode(CHAR_MAX, 0), std::nullopt);

    EXPECT_EQ(NegativeCurrencyCode(1, 0, 1), 1);  // -$1
    EXPECT_EQ(NegativeCurrencyCode(0, 1, 1), 8);  // -1 €
    EXPECT_EQ(NegativeCurrencyCode(1, 1, 1), 9);  // -€ 1
    EXPECT_EQ(NegativeCurrencyCode(1, 1, 4), 2);  // CHF- 1 has no code: CHF-1
    EXPECT_EQ(NegativeCurrencyCode(1, 2, 4), 11); // € -1
    EXPECT_EQ(NegativeCurrencyCode(0, 0, 0), 4);  // (1$)
    EXPECT_EQ(NegativeCurrencyCode(1, 0, 5), std::nullopt);
    EXPECT_EQ(NegativeCurrencyCode(1, CHAR_MAX, 1), std::nullopt);
}

TEST(LcidFromLocaleName, LanguageAndTerritory)
{
    EXPECT_EQ(LcidFromLocaleName("de_DE.UTF-8"), 1031u);
    EXPECT_EQ(LcidFromLocaleName("de_AT@euro"), 3079u);
    // A territory without its own identifier takes the language's neutral one.
    EXPECT_EQ(LcidFromLocaleName("de_BE.UTF-8"), 7u);
    EXPECT_EQ(LcidFromLocaleName("fr"), 12u);
    for (const char* plain : {"C", "C.UTF-8", "", "xx_YY", "_DE"})
        EXPECT_EQ(LcidFromLocaleName(plain), 1033u) << plain;
}

} // namespace
} // namespace vesk::platform
