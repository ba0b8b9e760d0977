#pragma once

// Field-by-field reading of formatted dates and times, for comparing the library's output
// with the C library's strftime under the same locale.

#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

#include <cstring>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

namespace vesk::test {

enum class Field { Weekday, Day, Month, Year, Hour, Minute, Second, AmPm };

// A field found in a text: its kind, the value it stands for and its text.
struct FieldToken {
    Field field;
    int value;
    std::string text;
    bool numeric;
};

// A text a field may take in a formatted value (a name, or the digits of a number).
struct FieldForm {
    std::string text;
    Field field;
    int value;
};

inline bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// The fields of a text in order: at each place the longest name form that stands there, else
// a whole run of ASCII digits that equals a number form (other digit runs are not fields).
inline std::vector<FieldToken> ReadFields(
    std::string_view text, const std::vector<FieldForm>& names, const std::vector<FieldForm>& numbers)
{
    std::vector<FieldToken> tokens;
    size_t i = 0;
    while (i < text.size()) {
        const FieldForm* best = nullptr;
        for (const FieldForm& form : names)
            if (!form.text.empty() && text.substr(i).starts_with(form.text) &&
                (!best || form.text.size() > best->text.size()))
                best = &form;
        if (best) {
            tokens.push_back(FieldToken{best->field, best->value, best->text, false});
            i += best->text.size();
            continue;
        }
        if (!IsDigit(text[i])) {
            ++i;
            continue;
        }
        size_t end = i;
        while (end < text.size() && IsDigit(text[end]))
            ++end;
        std::string_view run = text.substr(i, end - i);
        for (const FieldForm& form : numbers) {
            if (form.text == run) {
                tokens.push_back(FieldToken{form.field, form.value, std::string(run), true});
                break;
            }
        }
        i = end;
    }
    return tokens;
}

inline std::string Describe(const std::vector<FieldToken>& tokens)
{
    static const char* const kNames[] = {"weekday", "day", "month", "year", "hour", "minute", "second", "ampm"};
    std::string out;
    for (const FieldToken& t : tokens)
        out += std::string(out.empty() ? "" : " ") + kNames[static_cast<int>(t.field)] + "=" + t.text;
    return "[" + out + "]";
}

// Empty when both lists hold the same fields with the same values in the same order, numbers
// also with the same digits; else a description of both.
inline std::string CompareFields(const std::vector<FieldToken>& expected, const std::vector<FieldToken>& actual)
{
    bool same = expected.size() == actual.size();
    for (size_t i = 0; same && i < expected.size(); ++i) {
        const FieldToken& e = expected[i];
        const FieldToken& a = actual[i];
        same = e.field == a.field && e.value == a.value && (!e.numeric || !a.numeric || e.text == a.text);
    }
    return same ? std::string() : "expected " + Describe(expected) + ", got " + Describe(actual);
}

// A POSIX locale's texts and strftime output, in UTF-8.
class LocaleView {
public:
    explicit LocaleView(locale_t locale) : m_locale(locale), m_codeset(nl_langinfo_l(CODESET, locale)) { }

    std::string Text(nl_item item) const { return ToUtf8(Raw(item)); }
    // The item in the locale's own codeset, as strftime takes formats.
    std::string Raw(nl_item item) const { return nl_langinfo_l(item, m_locale); }

    // strftime_l of `format` (in the locale's codeset) at a moment (GMT); the E and O modifiers are taken out, since the
    // library writes Gregorian years in ASCII digits.
    std::string Format(std::string_view format, int year, int month, int day, int hour, int minute, int second) const
    {
        std::string plain;
        for (size_t i = 0; i < format.size(); ++i) {
            plain += format[i];
            if (format[i] != '%')
                continue;
            while (i + 1 < format.size() && std::strchr("-_0^#", format[i + 1]))
                plain += format[++i];
            if (i + 1 < format.size() && (format[i + 1] == 'E' || format[i + 1] == 'O'))
                ++i;
            else if (i + 1 < format.size() && format[i + 1] == '%')
                plain += format[++i];
        }
        std::tm tm{};
        tm.tm_year = year - 1900;
        tm.tm_mon = month - 1;
        tm.tm_mday = day;
        tm.tm_hour = hour;
        tm.tm_min = minute;
        tm.tm_sec = second;
        tm.tm_wday = WeekdayOf(year, month, day);
        tm.tm_zone = "GMT";
        char buffer[512];
        size_t n = strftime_l(buffer, sizeof buffer, plain.c_str(), &tm, m_locale);
        return ToUtf8(std::string(buffer, n));
    }

    // The day of the week of a date, 0 for Sunday as the C library counts.
    static int WeekdayOf(int year, int month, int day)
    {
        std::tm tm{};
        tm.tm_year = year - 1900;
        tm.tm_mon = month - 1;
        tm.tm_mday = day;
        std::time_t t = timegm(&tm);
        std::tm out{};
        gmtime_r(&t, &out);
        return out.tm_wday;
    }

private:
    std::string ToUtf8(const std::string& text) const
    {
        if (m_codeset == "UTF-8" || text.empty())
            return text;
        iconv_t cd = iconv_open("UTF-8", m_codeset.c_str());
        if (cd == reinterpret_cast<iconv_t>(-1))
            return "<no conversion from " + m_codeset + ">";
        std::string in = text;
        std::string out(in.size() * 4 + 4, '\0');
        char* src = in.data();
        size_t srcLeft = in.size();
        char* dst = out.data();
        size_t dstLeft = out.size();
        size_t done = iconv(cd, &src, &srcLeft, &dst, &dstLeft);
        iconv_close(cd);
        if (done == static_cast<size_t>(-1))
            return "<unconvertible>";
        out.resize(out.size() - dstLeft);
        return out;
    }

    locale_t m_locale;
    std::string m_codeset;
};

// Numbers of a date in their possible forms: day and month with and without the leading zero,
// the year in four and two digits.
inline std::vector<FieldForm> DateNumbers(int year, int month, int day)
{
    auto two = [](int n) { return (n < 10 ? "0" : "") + std::to_string(n); };
    return {{std::to_string(day), Field::Day, day}, {two(day), Field::Day, day},
        {std::to_string(month), Field::Month, month}, {two(month), Field::Month, month},
        {std::to_string(year), Field::Year, year}, {two(year % 100), Field::Year, year}};
}

// Numbers of a time: the hour on both clocks, with and without the leading zero.
inline std::vector<FieldForm> TimeNumbers(int hour, int minute, int second)
{
    auto two = [](int n) { return (n < 10 ? "0" : "") + std::to_string(n); };
    int h12 = hour % 12 == 0 ? 12 : hour % 12;
    return {{std::to_string(hour), Field::Hour, hour}, {two(hour), Field::Hour, hour},
        {std::to_string(h12), Field::Hour, hour}, {two(h12), Field::Hour, hour}, {two(minute), Field::Minute, minute},
        {two(second), Field::Second, second}};
}

} // namespace vesk::test
