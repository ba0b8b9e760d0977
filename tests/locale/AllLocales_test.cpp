// Every locale the machine has, formatted by the library and by the C library's strftime under
// the same locale, compared field by field.

#include "IntlTestUtil.hpp"
#include "LocaleFields.hpp"

#include "locale/IntlSettings_p.hpp"
#include "locale/LocaleRegistry_p.hpp"
#include "platform/intl_profile.hpp"
#include "support/ConfigHomeGuard.hpp"
#include "support/LocaleGuard.hpp"
#include "support/OwnedLocale.hpp"


#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <optional>
#include <set>

namespace vesk::test {
namespace {

// Days whose day, month and two-digit year differ in every form, on three weekdays; an
// afternoon (which tells the clock) and a morning.
const std::tm kDays[] = {Moment(2024, 3, 15), Moment(1999, 11, 7), Moment(2031, 6, 9)};
const std::tm kTimes[] = {Moment(2024, 3, 15, 13, 5, 9), Moment(2024, 3, 15, 9, 41, 27)};

std::vector<std::string> InstalledLocales()
{
    std::vector<std::string> names;
    FILE* list = popen("locale -a 2>/dev/null", "r");
    char line[256];
    while (list && std::fgets(line, sizeof line, list))
        names.emplace_back(line, std::strcspn(line, "\r\n"));
    if (list)
        pclose(list);
    return names;
}

std::string Utf8(const SString& s)
{
    SString utf8 = s.AnsiToUTF8(1252); // UTF-8 text is left as it is
    return std::string(static_cast<const char*>(utf8), utf8.Len());
}

// The date fields of a strftime output as the record can hold them: day, month and year once
// each in one of its three orders, a weekday only in front (and only when `weekday`).
std::optional<std::vector<FieldToken>> Holdable(const std::vector<FieldToken>& tokens, bool weekday)
{
    std::vector<FieldToken> held;
    std::string order;
    for (const FieldToken& t : tokens) {
        char letter = "WDMY"[static_cast<int>(t.field)];
        if (letter == 'W' ? weekday && held.empty() : order.find(letter) == std::string::npos)
            held.push_back(t);
        else if (letter != 'W')
            return std::nullopt;
        order += letter == 'W' ? "" : std::string(1, letter);
    }
    if (order != "DMY" && order != "MDY" && order != "YMD")
        return std::nullopt;
    return held;
}

class LocaleCheck {
public:
    // The system entries as the library state makes them under the locale.
    explicit LocaleCheck(const std::string& name, locale_t locale)
        : m_name(name), m_view(locale), m_languages(MakeLanguageRegistry(platform::UserDefaultLCID(),
                                              platform::LocaleNamesFromLocale())),
          m_countries(MakeCountryRegistry(platform::ReadIntlKeys())),
          m_intl(WithRecords(*m_countries->Find(COUNTRY_SYSTEM), *m_languages->Find(LANGUAGE_SYSTEM)))
    {
    }

    // Names of languages without built-in texts, short and long dates, times.
    void Run()
    {
        if (!m_name.starts_with("en_") && !m_name.starts_with("de_") && !m_name.starts_with("fr_"))
            CheckNames();
        CheckDates();
        CheckTimes();
    }

    std::vector<std::string> failures;
    std::set<std::string> aspects;

private:
    void Fail(const std::string& aspect, const std::string& what)
    {
        aspects.insert(aspect);
        failures.push_back(m_name + ": " + aspect + " " + what);
    }

    void CheckNames()
    {
        for (int i = 0; i < 7; ++i) {
            auto day = static_cast<DayOfWeek>((i + 6) % 7);
            if (Utf8(m_intl.GetDayText(day)) != m_view.Text(DAY_1 + i) ||
                Utf8(m_intl.GetAbbrevDayText(day)) != m_view.Text(ABDAY_1 + i))
                Fail("names", Utf8(m_intl.GetDayText(day)) + " is not " + m_view.Text(DAY_1 + i));
        }
        for (uint16_t i = 0; i < 12; ++i) {
            if (Utf8(m_intl.GetMonthText(i + 1)) != m_view.Text(MON_1 + i) ||
                Utf8(m_intl.GetAbbrevMonthText(i + 1)) != m_view.Text(ABMON_1 + i))
                Fail("names", Utf8(m_intl.GetMonthText(i + 1)) + " is not " + m_view.Text(MON_1 + i));
        }
    }

    static std::vector<FieldToken> DateNumbers(const std::tm& d)
    {
        return Numbers({{Field::Day, d.tm_mday}, {Field::Month, d.tm_mon + 1}, {Field::Year, d.tm_year + 1900}});
    }

    // The strftime output of a format as fields: every name the locale has for the day.
    std::vector<FieldToken> Oracle(const std::string& format, const std::tm& d) const
    {
        std::vector<FieldToken> names;
        for (nl_item day : {DAY_1, ABDAY_1})
            names.push_back(FieldToken{Field::Weekday, d.tm_wday, m_view.Text(day + d.tm_wday)});
        for (nl_item month : {MON_1, ABMON_1, ALTMON_1, _NL_ABALTMON_1})
            names.push_back(FieldToken{Field::Month, d.tm_mon + 1, m_view.Text(month + d.tm_mon)});
        return ReadFields(m_view.Format(format, d), names, DateNumbers(d));
    }

    // The library's text as fields; its long date spells names out.
    std::vector<FieldToken> Library(const std::string& text, const std::tm& d) const
    {
        return ReadFields(text,
            {{Field::Weekday, d.tm_wday, Utf8(m_intl.GetDayText(static_cast<DayOfWeek>((d.tm_wday + 6) % 7)))},
                {Field::Month, d.tm_mon + 1, Utf8(m_intl.GetMonthText(static_cast<uint16_t>(d.tm_mon + 1)))}},
            DateNumbers(d));
    }

    void Compare(const char* aspect, const std::vector<FieldToken>& expected, const std::string& text, const std::tm& d)
    {
        std::string difference = CompareFields(expected, Library(text, d));
        if (!difference.empty())
            Fail(aspect, "\"" + text + "\": " + difference);
    }

    void CheckDates()
    {
        // The long date comes from the first format whose fields the record holds.
        std::optional<std::string> longFormat;
        for (nl_item item : {_DATE_FMT, D_T_FMT, D_FMT})
            if (!longFormat && Holdable(Oracle(m_view.Raw(item), kDays[0]), true))
                longFormat = m_view.Raw(item);
        for (const std::tm& d : kDays) {
            Date date(static_cast<uint16_t>(d.tm_mday), static_cast<uint16_t>(d.tm_mon + 1),
                static_cast<uint16_t>(d.tm_year + 1900));
            if (auto expected = Holdable(Oracle(m_view.Raw(D_FMT), d), false))
                Compare("short date", *expected, Utf8(m_intl.GetDate(date)), d);
            std::string longDate = Utf8(m_intl.GetLongDate(date));
            std::string letters = longDate; // picture letters never leak into the text, names aside
            for (const FieldToken& name : Library(longDate, d))
                if (size_t at = letters.find(name.text); !name.numeric && at != std::string::npos)
                    letters.erase(at, name.text.size());
            if (letters.find("dd") != std::string::npos || letters.find("MM") != std::string::npos ||
                letters.find("yy") != std::string::npos)
                Fail("long date", "\"" + longDate + "\" holds picture letters");
            if (longFormat) {
                Compare("long date", *Holdable(Oracle(*longFormat, d), true), longDate, d);
                continue;
            }
            // Formats the record cannot hold leave the long date of the country it starts from.
            CountryType base = CountryFromDialCode(IntlNumber(platform::IntlKeysFromLocale(), "iCountry").value_or(1));
            International start = WithRecords(m_countries->Resolve(base ? base : COUNTRY_FALLBACK),
                m_languages->Resolve(LANGUAGE_SYSTEM));
            std::string fallback = Utf8(start.GetLongDate(date));
            if (fallback != longDate)
                Fail("long date", "\"" + longDate + "\" is not the fallback " + fallback);
        }
    }

    void CheckTimes()
    {
        const std::vector<FieldToken> localeAmPm{{Field::AmPm, 0, m_view.Text(AM_STR)}, {Field::AmPm, 1, m_view.Text(PM_STR)}};
        const std::vector<FieldToken> libraryAmPm{{Field::AmPm, 0, Utf8(m_intl.GetTimeAM())}, {Field::AmPm, 1, Utf8(m_intl.GetTimePM())}};
        std::optional<bool> twelveHour;
        for (const std::tm& t : kTimes) {
            auto numbers = Numbers({{Field::Hour, t.tm_hour}, {Field::Minute, t.tm_min}, {Field::Second, t.tm_sec}});
            std::vector<FieldToken> expected = ReadFields(m_view.Format(m_view.Raw(T_FMT), t), localeAmPm, numbers);
            auto has = [&expected](Field f) {
                return std::find_if(expected.begin(), expected.end(), [f](const FieldToken& e) { return e.field == f; });
            };
            if (has(Field::Hour) == expected.end())
                continue;
            if (!twelveHour)
                twelveHour = std::stoi(has(Field::Hour)->text) != t.tm_hour;
            // The record writes the AM/PM text after the time, and only on the twelve-hour clock.
            std::stable_partition(expected.begin(), expected.end(), [](const FieldToken& e) { return e.field != Field::AmPm; });
            if (!*twelveHour && has(Field::AmPm) != expected.end())
                expected.erase(has(Field::AmPm), expected.end());
            std::string text = Utf8(m_intl.GetTime(Time(static_cast<uint16_t>(t.tm_hour), static_cast<uint16_t>(t.tm_min),
                static_cast<uint16_t>(t.tm_sec), 0), has(Field::Second) != expected.end(), false));
            std::string difference = CompareFields(expected, ReadFields(text, libraryAmPm, numbers));
            if (!difference.empty())
                Fail("time", "\"" + text + "\": " + difference);
        }
    }

    std::string m_name;
    LocaleView m_view;
    std::unique_ptr<LanguageRegistry> m_languages;
    std::unique_ptr<CountryRegistry> m_countries;
    International m_intl;
};

TEST(AllLocales, FieldsMatchTheCLibrary)
{
    std::vector<std::string> names = InstalledLocales();
    // Fails rather than skips on a machine without locales-all (scripts/setup installs it).
    ASSERT_GE(names.size(), 400u) << "locale -a lists few locales: install locales-all";
    for (const char* needed : {"ja_JP.utf8", "ja_JP.eucjp", "zh_CN.gb18030", "ru_RU.koi8r", "he_IL.utf8", "br_FR"})
        ASSERT_NE(std::find(names.begin(), names.end(), needed), names.end()) << needed << " is missing";

    ConfigHomeGuard home; // no [intl] overrides
    std::string report;
    size_t checked = 0, failed = 0;
    std::map<std::string, size_t> failedBy;
    for (const std::string& name : names) {
        if (name == "C" || name == "POSIX" || name.starts_with("C."))
            continue;
        OwnedLocale locale(name.c_str());
        ASSERT_TRUE(locale.Get()) << name;
        LocaleGuard guard(name.c_str());
        LocaleCheck check(name, locale.Get());
        check.Run();
        ++checked;
        failed += !check.failures.empty();
        for (const std::string& aspect : check.aspects)
            ++failedBy[aspect];
        for (size_t i = 0; i < check.failures.size() && report.size() < 8000; ++i)
            report += check.failures[i] + "\n";
    }
    std::string by;
    for (const auto& [aspect, count] : failedBy)
        by += ", " + aspect + " " + std::to_string(count);
    std::printf("[ locales  ] %zu checked, %zu failed%s\n", checked, failed, by.c_str());
    EXPECT_EQ(failed, 0u) << report;
}

} // namespace
} // namespace vesk::test
