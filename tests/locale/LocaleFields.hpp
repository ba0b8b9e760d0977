#pragma once

// Field-by-field reading of formatted dates and times, to compare the library's output with
// the C library's strftime under the same locale.

#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

namespace vesk::test {

enum class Field { Weekday, Day, Month, Year, Hour, Minute, Second, AmPm };

// A field found in a text (`numeric`: written in digits), or a form a field may take.
struct FieldToken {
    Field field;
    int value;
    std::string text;
    bool numeric = false;
};

// The fields of a text in order: at each place the longest of the `names` that stands there,
// else a whole run of ASCII digits equal to one of the `numbers` (other runs are no fields).
inline std::vector<FieldToken> ReadFields(
    std::string_view text, const std::vector<FieldToken>& names, const std::vector<FieldToken>& numbers)
{
    auto digit = [&text](size_t i) { return i < text.size() && text[i] >= '0' && text[i] <= '9'; };
    std::vector<FieldToken> tokens;
    for (size_t i = 0; i < text.size();) {
        const FieldToken* best = nullptr;
        for (const FieldToken& name : names)
            if (!name.text.empty() && text.substr(i).starts_with(name.text) && (!best || name.text.size() > best->text.size()))
                best = &name;
        size_t end = i;
        while (!best && digit(end))
            ++end;
        auto number = std::find_if(numbers.begin(), numbers.end(),
            [&](const FieldToken& n) { return end > i && n.text == text.substr(i, end - i); });
        if (number != numbers.end())
            tokens.push_back(FieldToken{number->field, number->value, number->text, true});
        if (best)
            tokens.push_back(*best);
        i = best ? i + best->text.size() : std::max(end, i + 1);
    }
    return tokens;
}

// Empty when both hold the same fields with the same values in the same order, numbers also
// with the same digits; else both lists.
inline std::string CompareFields(const std::vector<FieldToken>& expected, const std::vector<FieldToken>& actual)
{
    bool same = expected.size() == actual.size();
    for (size_t i = 0; same && i < expected.size(); ++i) {
        const FieldToken& e = expected[i];
        const FieldToken& a = actual[i];
        same = e.field == a.field && e.value == a.value && (!e.numeric || !a.numeric || e.text == a.text);
    }
    if (same)
        return {};
    static const char* const kNames[] = {"weekday", "day", "month", "year", "hour", "minute", "second", "ampm"};
    auto describe = [](const std::vector<FieldToken>& tokens) {
        std::string out;
        for (const FieldToken& t : tokens)
            out += std::string(" ") + kNames[static_cast<int>(t.field)] + "=" + t.text;
        return "[" + out + " ]";
    };
    return "expected" + describe(expected) + ", got" + describe(actual);
}

// Numbers of a date or time in every form: with and without the leading zero, the year in
// four and two digits, the hour on both clocks.
inline std::vector<FieldToken> Numbers(std::initializer_list<std::pair<Field, int>> values)
{
    auto two = [](int n) { return (n < 10 ? "0" : "") + std::to_string(n); };
    std::vector<FieldToken> forms;
    for (auto [field, n] : values) {
        int other = field == Field::Year ? n % 100 : field == Field::Hour ? (n % 12 ? n % 12 : 12) : n;
        for (const std::string& text : {std::to_string(n), two(n), std::to_string(other), two(other)})
            forms.push_back(FieldToken{field, n, text});
    }
    return forms;
}

// A moment in GMT with its day of the week (0 Sunday).
inline std::tm Moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    std::tm tm{};
    tm.tm_year = year - 1900;
    tm.tm_mon = month - 1;
    tm.tm_mday = day;
    std::time_t t = timegm(&tm);
    gmtime_r(&t, &tm);
    tm.tm_hour = hour;
    tm.tm_min = minute;
    tm.tm_sec = second;
    tm.tm_zone = "GMT";
    return tm;
}

// A POSIX locale's texts and strftime output, in UTF-8.
class LocaleView {
public:
    explicit LocaleView(locale_t locale) : m_locale(locale), m_codeset(nl_langinfo_l(CODESET, locale)) { }

    // An item in the locale's own codeset, as strftime takes formats, or in UTF-8.
    std::string Raw(nl_item item) const { return nl_langinfo_l(item, m_locale); }
    std::string Text(nl_item item) const { return ToUtf8(Raw(item)); }

    // strftime_l at a moment without the E and O modifiers: the
    // library writes Gregorian years in ASCII digits.
    std::string Format(std::string format, const std::tm& moment) const
    {
        for (size_t at = 0; (at = format.find('%', at)) != std::string::npos; at += 2) {
            size_t flags = format.find_first_not_of("-_0^#", at + 1);
            if (flags < format.size() && (format[flags] == 'E' || format[flags] == 'O'))
                format.erase(flags, 1);
        }
        char buffer[512];
        return ToUtf8(std::string(buffer, strftime_l(buffer, sizeof buffer, format.c_str(), &moment, m_locale)));
    }

private:
    std::string ToUtf8(std::string text) const
    {
        if (m_codeset == "UTF-8" || text.empty())
            return text;
        iconv_t cd = iconv_open("UTF-8", m_codeset.c_str());
        std::string out(text.size() * 4, '\0');
        char* src = text.data();
        char* dst = out.data();
        size_t srcLeft = text.size(), dstLeft = out.size();
        bool done = cd != reinterpret_cast<iconv_t>(-1) && iconv(cd, &src, &srcLeft, &dst, &dstLeft) != size_t(-1);
        if (cd != reinterpret_cast<iconv_t>(-1))
            iconv_close(cd);
        out.resize(out.size() - dstLeft);
        return done ? out : "<not convertible from " + m_codeset + ">";
    }

    locale_t m_locale;
    std::string m_codeset;
};

} // namespace vesk::test
