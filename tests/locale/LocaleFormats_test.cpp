#include "platform/locale_formats.hpp"
#include "platform/locale_lcid.hpp"

#include <gtest/gtest.h>

#include <climits>

namespace vesk::platform {
namespace {

TimeFormats LongOnly(const char* format)
{
    return TimeFormats{.dateLong = format};
}

TEST(DatePicture, ShortDateFromDateFormat)
{
    struct Case {
        const char* format;
        const char* picture;
    };
    const Case cases[] = {
        {"%d. %m. %y", "dd. MM. yy"},
        {"%Y\xE5\xB9\xB4%m\xE6\x9C\x88%d\xE6\x97\xA5", "yyyy\xE5\xB9\xB4MM\xE6\x9C\x88" "dd\xE6\x97\xA5"},
        {"%Od%%%m %Ey", "dd%MM yy"},
        {"%F", "yyyy-MM-dd"},
        {"%-d/%-m/%OC%Oy", "d/M/yyyy"},
        // No weekday and no leading text: the first letter tells the order.
        {"%a, %Y.eko %bren %da", "yyyy'.eko 'MMM'ren 'dd'a'"},
        {"\xE0\xBD\xA3%y\xE0\xBD\xA4%m\xE0\xBD\xA5%d", "yy\xE0\xBD\xA4MM\xE0\xBD\xA5" "dd"},
        // Orders the record cannot hold, missing fields, literal text only.
        {"%Y.%d.%m", ""}, {"%d.%m.", ""}, {"%d %d %m %Y", ""}, {"today", ""}, {"", ""}, {"%", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ShortDatePicture(TimeFormats{.date = c.format}), c.picture) << c.format;
}

TEST(DatePicture, LongDateKeepsWhatTheRecordHolds)
{
    struct Case {
        const char* format;
        const char* picture;
    };
    const Case cases[] = {
        // Time and zone go with the text leading up to them; names are spelt out.
        {"%a %b %e %r %Z %Y", "dddd MMMM d yyyy"},
        {"%a %-d. %b %H:%M:%S %Z %Y", "dddd d. MMMM yyyy"},
        {"%A, %-d %B de %Y, %T %Z", "dddd, d MMMM' de 'yyyy"},
        // A weekday after the date is left out; the text before it keeps its part up to the
        // first white space, without commas.
        {"%Y\xE5\xB9\xB4 %b %e\xE6\x97\xA5 %A %H:%M:%S %Z", "yyyy\xE5\xB9\xB4 MMMM d\xE6\x97\xA5"},
        {"%Y. %b. %-e., %A, %H:%M:%S %Z", "yyyy. MMMM. d."},
        {"%Z %H:%M:%S %Y %b %d %a", "yyyy MMMM dd"},
        {"%B %d %A %Y %p%I.%M.%S %Z", "MMMM dd yyyy"},
        // Leading text has no place; letters are quoted, apostrophes dropped.
        {"D'ar %A %d a viz %B %Y %T %Z", "dddd dd' a viz 'MMMM yyyy"},
        {"\xE8\xA5\xBF\xE5\x85\x83%Y\xE5\xB9\xB4%m\xE6\x9C\x88%d\xE6\x97\xA5 (%A) %H", "yyyy\xE5\xB9\xB4MM\xE6\x9C\x88" "dd\xE6\x97\xA5"},
        {"%Y m. %B %d d.", "yyyy' m. 'MMMM dd' d.'"},
        {"%Y m. %B %d d. %T %Z", "yyyy' m. 'MMMM dd"},
        {"%Y-%m-%dT%T %Z", "yyyy-MM-dd"},
        // Text the reader would take for a field is dropped, keeping a space.
        {"%Y de %B de %-d", "yyyy MMMM d"},
        {"%Y de %B de %d", "yyyy' de 'MMMM' de 'dd"},
        {"%-d de %-m, %Y", "d' de 'M, yyyy"},
        {"%-d %-m ym %Y", "d M yyyy"},
        {"%A %-d %-m %Y mm", "dddd d M yyyy "},
    };
    for (const Case& c : cases)
        EXPECT_EQ(LongDatePicture(LongOnly(c.format)), c.picture) << c.format;

    // The first format whose fields the record holds gives the picture.
    EXPECT_EQ(LongDatePicture(TimeFormats{.date = "%Y-%m-%d", .dateTime = "%d %B %Y %T", .dateLong = "%Y %d %b %a"}),
        "dd MMMM yyyy");
    EXPECT_EQ(LongDatePicture(TimeFormats{.date = "%Y.%m.%d.", .dateLong = "%A, %Y. gada %e. %B, %H:%M:%S %Z"}),
        "yyyy.MM.dd.");
    EXPECT_EQ(LongDatePicture(TimeFormats{.date = "%e.%m.%Y", .dateLong = "%x (%a) %X %Z"}), "d.MM.yyyy");
    EXPECT_EQ(LongDatePicture(TimeFormats{.date = "%e.%m.%Y", .dateLong = "%a, %x"}), "dddd, d.MM.yyyy");
    EXPECT_EQ(LongDatePicture(TimeFormats{.date = "%Y.%d.%m"}), "");
    // A picture longer than the reader takes loses field texts from the end.
    EXPECT_EQ(LongDatePicture(LongOnly("%A %d ------------------ %B ------------------- %Y ---")),
        "dddd dd ------------------ MMMMyyyy");
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
        {"%r", "%r", std::nullopt, std::nullopt, ""}, // one that refers to itself gives nothing
        {"%T", "", 1, 1, ":"},
        {"%l:%M:%S %P %Z", "", 0, 0, ":"},
        {"%-H.%M", "", 1, 0, "."},
        {"%H\xE6\x99\x82%M", "", 1, 1, "\xE6\x99\x82"},
        {"%M:%S", "", std::nullopt, std::nullopt, ""},
    };
    for (const Case& c : cases) {
        ClockFormat clock = ClockFromTimeFormat(TimeFormats{.time = c.format, .time12 = c.format12});
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
    for (const char* plain : {"C", "C.UTF-8", "POSIX", "", "_DE"})
        EXPECT_EQ(LcidFromLocaleName(plain), 1033u) << plain;
    // A language without an identifier of its own.
    EXPECT_EQ(LcidFromLocaleName("ber_MA.UTF-8"), 0x1000u);
}

} // namespace
} // namespace vesk::platform
