#include "platform/locale_source.hpp"

#include "platform/locale_formats.hpp"
#include "platform/locale_lcid.hpp"

#include <algorithm>
#include <climits>
#include <clocale>
#include <cstdlib>
#include <iconv.h>
#include <langinfo.h>
#include <locale.h>
#include <optional>
#include <string_view>

namespace vesk::platform {

namespace {

bool IsPlainLocale(std::string_view name)
{
    return name.empty() || name == "C" || name == "POSIX" || name.starts_with("C.");
}

// The locale name in force for a category (see the header).
std::string CategoryLocaleName(int category, const char* variable)
{
    const char* set = std::setlocale(category, nullptr);
    if (set && !IsPlainLocale(set))
        return set;
    for (const char* name : {"LC_ALL", variable, "LANG"}) {
        const char* value = std::getenv(name);
        if (value && *value)
            return value;
    }
    return {};
}

// One category's locale data, read as UTF-8 text and as single-character numbers.
class CategoryLocale {
public:
    CategoryLocale(int category, int mask, const char* variable)
    {
        std::string name = CategoryLocaleName(category, variable);
        if (IsPlainLocale(name))
            return;
        // The character type category comes along to tell the codeset of the texts.
        m_locale = newlocale(mask | LC_CTYPE_MASK, name.c_str(), locale_t(0));
        if (!m_locale)
            return;
        std::string_view codeset = nl_langinfo_l(CODESET, m_locale);
        m_bConvert = codeset != "UTF-8";
        if (m_bConvert)
            m_convert = iconv_open("UTF-8", std::string(codeset).c_str());
    }
    ~CategoryLocale()
    {
        if (m_convert != kNoConversion)
            iconv_close(m_convert);
        if (m_locale)
            freelocale(m_locale);
    }
    CategoryLocale(const CategoryLocale&) = delete;
    CategoryLocale& operator=(const CategoryLocale&) = delete;

    explicit operator bool() const { return m_locale != locale_t(0); }

    // The item's text in UTF-8; empty when it cannot be converted.
    std::string Text(nl_item item) const
    {
        std::string text = nl_langinfo_l(item, m_locale);
        return m_bConvert ? Convert(text) : text;
    }

    // A numeric item (a single char); CHAR_MAX means the locale leaves it unspecified.
    int Number(nl_item item) const { return static_cast<signed char>(*nl_langinfo_l(item, m_locale)); }

private:
    static inline const iconv_t kNoConversion = reinterpret_cast<iconv_t>(-1);

    std::string Convert(std::string text) const
    {
        if (m_convert == kNoConversion)
            return {};
        std::string out(text.size() * 4, '\0');
        char* in = text.data();
        size_t inLeft = text.size();
        char* next = out.data();
        size_t outLeft = out.size();
        iconv(m_convert, nullptr, nullptr, nullptr, nullptr);
        if (iconv(m_convert, &in, &inLeft, &next, &outLeft) == static_cast<size_t>(-1))
            return {};
        out.resize(out.size() - outLeft);
        return out;
    }

    locale_t m_locale = locale_t(0);
    iconv_t m_convert = kNoConversion;
    bool m_bConvert = false;
};

void SetIfNonEmpty(IntlKeys& keys, const char* key, std::string value)
{
    if (!value.empty())
        keys[key] = std::move(value);
}

void SetNumber(IntlKeys& keys, const char* key, std::optional<int> value)
{
    if (value)
        keys[key] = std::to_string(*value);
}

TimeFormats FormatsOf(const CategoryLocale& time)
{
    return TimeFormats{time.Text(D_FMT), time.Text(D_T_FMT), time.Text(_DATE_FMT), time.Text(T_FMT),
        time.Text(T_FMT_AMPM)};
}

void ReadTime(IntlKeys& keys)
{
    CategoryLocale time(LC_TIME, LC_TIME_MASK, "LC_TIME");
    if (!time)
        return;
    TimeFormats formats = FormatsOf(time);
    SetIfNonEmpty(keys, "sShortDate", ShortDatePicture(formats));
    SetIfNonEmpty(keys, "sLongDate", LongDatePicture(formats));
    ClockFormat clock = ClockFromTimeFormat(formats);
    SetNumber(keys, "iTime", clock.nTime);
    SetNumber(keys, "iTLZero", clock.nLeadingZero);
    SetIfNonEmpty(keys, "sTime", clock.sSeparator);
    keys["s1159"] = time.Text(AM_STR);
    keys["s2359"] = time.Text(PM_STR);
}

void ReadNumeric(IntlKeys& keys)
{
    CategoryLocale numeric(LC_NUMERIC, LC_NUMERIC_MASK, "LC_NUMERIC");
    if (!numeric)
        return;
    std::string decimal = numeric.Text(RADIXCHAR);
    SetIfNonEmpty(keys, "sDecimal", decimal);
    int group = numeric.Number(GROUPING);
    keys["sThousand"] = group > 0 && group != CHAR_MAX ? numeric.Text(THOUSEP) : std::string();
    keys["sList"] = std::string(1, decimal == "," ? ';' : ',');
}

void ReadMonetary(IntlKeys& keys)
{
    CategoryLocale money(LC_MONETARY, LC_MONETARY_MASK, "LC_MONETARY");
    if (!money)
        return;
    keys["sCurrency"] = money.Text(CURRENCY_SYMBOL);
    int digits = money.Number(FRAC_DIGITS);
    if (digits >= 0 && digits != CHAR_MAX)
        keys["iCurrDigits"] = std::to_string(digits);
    SetNumber(keys, "iCurrency", PositiveCurrencyCode(money.Number(P_CS_PRECEDES), money.Number(P_SEP_BY_SPACE)));
    SetNumber(keys, "iNegCurr",
        NegativeCurrencyCode(money.Number(N_CS_PRECEDES), money.Number(N_SEP_BY_SPACE), money.Number(N_SIGN_POSN)));
}

void ReadTelephone(IntlKeys& keys)
{
    CategoryLocale telephone(LC_TELEPHONE, LC_TELEPHONE_MASK, "LC_TELEPHONE");
    if (!telephone)
        return;
    std::string prefix = telephone.Text(_NL_TELEPHONE_INT_PREFIX);
    if (!prefix.empty() && prefix.find_first_not_of("0123456789") == std::string::npos)
        keys["iCountry"] = prefix;
}

} // namespace

bool IntlKeyLess::operator()(std::string_view a, std::string_view b) const
{
    auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::lexicographical_compare(
        a.begin(), a.end(), b.begin(), b.end(), [&lower](char x, char y) { return lower(x) < lower(y); });
}

IntlKeys IntlKeysFromLocale()
{
    IntlKeys keys;
    ReadTime(keys);
    ReadNumeric(keys);
    ReadMonetary(keys);
    ReadTelephone(keys);
    return keys;
}

uint32_t UserDefaultLCID()
{
    // A locale that the machine does not have leaves the process in the C locale.
    std::string name = CategoryLocaleName(LC_TIME, "LC_TIME");
    locale_t probe = IsPlainLocale(name) ? locale_t(0) : newlocale(LC_TIME_MASK, name.c_str(), locale_t(0));
    if (!probe)
        return LcidFromLocaleName("C");
    freelocale(probe);
    return LcidFromLocaleName(name);
}

std::optional<LocaleNames> LocaleNamesFromLocale()
{
    CategoryLocale time(LC_TIME, LC_TIME_MASK, "LC_TIME");
    if (!time)
        return std::nullopt;
    LocaleNames names;
    // The C library counts the days from Sunday, the record from Monday.
    for (int i = 0; i < 7; ++i) {
        names.days[i] = time.Text(static_cast<nl_item>(DAY_1 + (i + 1) % 7));
        names.abbrevDays[i] = time.Text(static_cast<nl_item>(ABDAY_1 + (i + 1) % 7));
    }
    for (int i = 0; i < 12; ++i) {
        names.months[i] = time.Text(static_cast<nl_item>(MON_1 + i));
        names.abbrevMonths[i] = time.Text(static_cast<nl_item>(ABMON_1 + i));
    }
    return names;
}

} // namespace vesk::platform
