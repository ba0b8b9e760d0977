// Every locale the machine has, formatted by the library and by the C library's strftime under
// the same locale, compared field by field.

#include "LocaleFields.hpp"

#include "locale/IntlSettings_p.hpp"
#include "locale/LocaleTables_p.hpp"
#include "platform/locale_source.hpp"
#include "support/ConfigHomeGuard.hpp"
#include "support/LocaleGuard.hpp"
#include "support/OwnedLocale.hpp"

#include <vesk/frame.hpp>
#include <vesk/locale.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>
#include <optional>

namespace vesk::test {
namespace {

struct Day {
    int year, month, day;
};
// Days whose day, month and two-digit year differ in every form, on three weekdays.
constexpr Day kDays[] = {{2024, 3, 15}, {1999, 11, 7}, {2031, 6, 9}};

struct Clock {
    int hour, minute, second;
};
constexpr Clock kClocks[] = {{13, 5, 9}, {9, 41, 27}};

std::vector<std::string> InstalledLocales()
{
    std::vector<std::string> names;
    FILE* list = popen("locale -a 2>/dev/null", "r");
    if (!list)
        return names;
    char line[256];
    while (std::fgets(line, sizeof line, list)) {
        std::string name(line);
        while (!name.empty() && (name.back() == '\n' || name.back() == '\r'))
            name.pop_back();
        if (!name.empty())
            names.push_back(name);
    }
    pclose(list);
    return names;
}

bool IsPlain(const std::string& name)
{
    return name == "C" || name == "POSIX" || name.starts_with("C.");
}

// Languages with the library's own texts.
bool HasOwnTexts(const std::string& name)
{
    return name.starts_with("en_") || name.starts_with("de_") || name.starts_with("fr_");
}

std::string Utf8(const SString& s)
{
    SString utf8 = s.IsUTF8() ? s : s.AnsiToUTF8(1252);
    return std::string(static_cast<const char*>(utf8), utf8.Len());
}

// The date fields of a strftime output as the record can hold them: day, month and year once
// each in one of its three orders, a weekday only in front (and only when `weekday`); none
// when they are not.
std::optional<std::vector<FieldToken>> Holdable(const std::vector<FieldToken>& tokens, bool weekday)
{
    std::vector<FieldToken> held;
    std::string order;
    for (const FieldToken& t : tokens) {
        if (t.field == Field::Weekday) {
            if (weekday && held.empty())
                held.push_back(t);
            continue;
        }
        char letter = t.field == Field::Day ? 'D' : t.field == Field::Month ? 'M' : 'Y';
        if (order.find(letter) != std::string::npos)
            return std::nullopt;
        order += letter;
        held.push_back(t);
    }
    if (order != "DMY" && order != "MDY" && order != "YMD")
        return std::nullopt;
    return held;
}

class LocaleCheck {
public:
    LocaleCheck(const std::string& name, const OwnedLocale& locale, const International& intl)
        : m_name(name), m_view(locale.Get()), m_intl(intl)
    {
    }

    std::vector<std::string> Run()
    {
        CheckNames();
        CheckDates();
        CheckTimes();
        return m_failures;
    }

    const std::set<std::string>& FailedAspects() const { return m_aspects; }

private:
    void Fail(const std::string& aspect, const std::string& what)
    {
        m_aspects.insert(aspect);
        m_failures.push_back(m_name + ": " + aspect + " " + what);
    }

    // The locale's names for the weekday and month of a day, and the library's.
    std::vector<FieldForm> LocaleNames(const Day& d) const
    {
        int weekday = LocaleView::WeekdayOf(d.year, d.month, d.day);
        int m = d.month - 1;
        return {{m_view.Text(DAY_1 + weekday), Field::Weekday, weekday},
            {m_view.Text(ABDAY_1 + weekday), Field::Weekday, weekday}, {m_view.Text(MON_1 + m), Field::Month, d.month},
            {m_view.Text(ABMON_1 + m), Field::Month, d.month}, {m_view.Text(ALTMON_1 + m), Field::Month, d.month},
            {m_view.Text(_NL_ABALTMON_1 + m), Field::Month, d.month}};
    }
    // The long date spells names out.
    std::vector<FieldForm> LibraryNames(const Day& d) const
    {
        int weekday = LocaleView::WeekdayOf(d.year, d.month, d.day);
        return {{Utf8(m_intl.GetDayText(static_cast<DayOfWeek>((weekday + 6) % 7))), Field::Weekday, weekday},
            {Utf8(m_intl.GetMonthText(static_cast<uint16_t>(d.month))), Field::Month, d.month}};
    }

    // A language without texts of the library's own has the locale's names.
    void CheckNames()
    {
        if (HasOwnTexts(m_name))
            return;
        for (int i = 0; i < 7; ++i) {
            auto day = static_cast<DayOfWeek>((i + 6) % 7);
            if (Utf8(m_intl.GetDayText(day)) != m_view.Text(DAY_1 + i) ||
                Utf8(m_intl.GetAbbrevDayText(day)) != m_view.Text(ABDAY_1 + i))
                Fail("names", "day " + Utf8(m_intl.GetDayText(day)) + " is not " + m_view.Text(DAY_1 + i));
        }
        for (int i = 0; i < 12; ++i) {
            auto month = static_cast<uint16_t>(i + 1);
            if (Utf8(m_intl.GetMonthText(month)) != m_view.Text(MON_1 + i) ||
                Utf8(m_intl.GetAbbrevMonthText(month)) != m_view.Text(ABMON_1 + i))
                Fail("names", "month " + Utf8(m_intl.GetMonthText(month)) + " is not " + m_view.Text(MON_1 + i));
        }
    }

    std::vector<FieldToken> Oracle(const std::string& format, const Day& d) const
    {
        return ReadFields(m_view.Format(format, d.year, d.month, d.day, 0, 0, 0), LocaleNames(d),
            DateNumbers(d.year, d.month, d.day));
    }

    void Compare(const char* what, const std::vector<FieldToken>& expected, const std::string& text, const Day& d)
    {
        std::string difference =
            CompareFields(expected, ReadFields(text, LibraryNames(d), DateNumbers(d.year, d.month, d.day)));
        if (!difference.empty())
            Fail(what, "\"" + text + "\": " + difference);
    }

    // Picture letters never leak into the text (names aside).
    void CheckLetters(std::string text, const Day& d)
    {
        for (const FieldForm& name : LibraryNames(d))
            for (size_t at; !name.text.empty() && (at = text.find(name.text)) != std::string::npos;)
                text.erase(at, name.text.size());
        for (const char* letters : {"dd", "MM", "yy"})
            if (text.find(letters) != std::string::npos)
                Fail("long date", "\"" + text + "\" holds " + letters);
    }

    void CheckDates()
    {
        const std::string shortFormat = m_view.Raw(D_FMT);
        std::optional<std::string> longFormat;
        for (nl_item item : {_DATE_FMT, D_T_FMT, D_FMT}) {
            std::string format = m_view.Raw(item);
            if (!longFormat && Holdable(Oracle(format, kDays[0]), true))
                longFormat = format;
        }
        for (const Day& d : kDays) {
            Date date(static_cast<uint16_t>(d.day), static_cast<uint16_t>(d.month), static_cast<uint16_t>(d.year));
            if (auto expected = Holdable(Oracle(shortFormat, d), false))
                Compare("short date", *expected, Utf8(m_intl.GetDate(date)), d);
            std::string longDate = Utf8(m_intl.GetLongDate(date));
            CheckLetters(longDate, d);
            if (longFormat) {
                Compare("long date", *Holdable(Oracle(*longFormat, d), true), longDate, d);
                continue;
            }
            // An order the record cannot hold leaves the long date of the country it starts from.
            std::optional<int32_t> code = IntlNumber(platform::IntlKeysFromLocale(), "iCountry");
            CountryType base = CountryFromDialCode(code.value_or(1));
            International fallback(base ? base : COUNTRY_FALLBACK, m_intl.GetLanguage());
            if (Utf8(fallback.GetLongDate(date)) != longDate)
                Fail("long date", "\"" + longDate + "\" is not the fallback " + Utf8(fallback.GetLongDate(date)));
        }
    }

    void CheckTimes()
    {
        const std::string format = m_view.Raw(T_FMT);
        const std::vector<FieldForm> localeAmPm{{m_view.Text(AM_STR), Field::AmPm, 0}, {m_view.Text(PM_STR), Field::AmPm, 1}};
        const std::vector<FieldForm> libraryAmPm{{Utf8(m_intl.GetTimeAM()), Field::AmPm, 0}, {Utf8(m_intl.GetTimePM()), Field::AmPm, 1}};
        std::optional<bool> twelveHour;
        for (const Clock& c : kClocks) {
            std::vector<FieldForm> numbers = TimeNumbers(c.hour, c.minute, c.second);
            std::vector<FieldToken> expected =
                ReadFields(m_view.Format(format, 2024, 3, 15, c.hour, c.minute, c.second), localeAmPm, numbers);
            auto hour = std::find_if(expected.begin(), expected.end(), [](const FieldToken& t) { return t.field == Field::Hour; });
            if (hour == expected.end())
                continue;
            // The first time is in the afternoon: its hour tells the clock.
            if (!twelveHour)
                twelveHour = std::stoi(hour->text) != c.hour;
            // The record writes the AM/PM text after the time, and only on the twelve-hour clock.
            if (!*twelveHour)
                std::erase_if(expected, [](const FieldToken& t) { return t.field == Field::AmPm; });
            std::stable_partition(expected.begin(), expected.end(), [](const FieldToken& t) { return t.field != Field::AmPm; });
            bool seconds = std::any_of(expected.begin(), expected.end(), [](const FieldToken& t) { return t.field == Field::Second; });
            std::string text = Utf8(m_intl.GetTime(Time(static_cast<uint16_t>(c.hour), static_cast<uint16_t>(c.minute),
                static_cast<uint16_t>(c.second), 0), seconds, false));
            std::string difference = CompareFields(expected, ReadFields(text, libraryAmPm, numbers));
            if (!difference.empty())
                Fail("time", "\"" + text + "\": " + difference);
        }
    }

    std::string m_name;
    LocaleView m_view;
    const International& m_intl;
    std::vector<std::string> m_failures;
    std::set<std::string> m_aspects;
};

TEST(AllLocales, FieldsMatchTheCLibrary)
{
    std::vector<std::string> names = InstalledLocales();
    // Fails rather than skips on a machine without locales-all (scripts/setup installs it).
    ASSERT_GE(names.size(), 400u) << "locale -a lists few locales: install locales-all";
    for (const char* needed : {"ja_JP.utf8", "ja_JP.eucjp", "zh_CN.gb18030", "ru_RU.koi8r", "he_IL.utf8", "br_FR"})
        ASSERT_NE(std::find(names.begin(), names.end(), needed), names.end()) << needed << " is missing";

    ConfigHomeGuard home; // no [intl] overrides
    std::vector<std::string> failures;
    size_t checked = 0, failed = 0;
    std::map<std::string, size_t> failedBy;
    for (const std::string& name : names) {
        if (IsPlain(name))
            continue;
        OwnedLocale locale(name.c_str());
        ASSERT_TRUE(locale.Get()) << name;
        LocaleGuard guard(name.c_str());
        VeskInit();
        const International intl;
        LocaleCheck check(name, locale, intl);
        std::vector<std::string> found = check.Run();
        VeskExit();
        ++checked;
        failed += !found.empty();
        for (const std::string& aspect : check.FailedAspects())
            ++failedBy[aspect];
        failures.insert(failures.end(), found.begin(), found.end());
    }
    std::string by;
    for (const auto& [aspect, count] : failedBy)
        by += ", " + aspect + " " + std::to_string(count);
    std::printf("[ locales  ] %zu checked, %zu failed%s\n", checked, failed, by.c_str());
    std::string report;
    for (size_t i = 0; i < failures.size() && i < 60; ++i)
        report += failures[i] + "\n";
    EXPECT_EQ(failed, 0u) << report;
}

} // namespace
} // namespace vesk::test
