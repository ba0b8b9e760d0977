#include "locale/IntlPicture_p.hpp"

#include <string>
#include <string_view>

namespace vesk {

namespace {

constexpr size_t NPOS = std::string::npos;

// The order of a date from its first picture character.
DateFormat OrderOf(char first)
{
    switch (first) {
    case 'y':
    case 'Y':
        return YMD;
    case 'm':
    case 'M':
        return MDY;
    default:
        return DMY;
    }
}

// The first position of `lower`, else of `upper`.
size_t FindEither(const std::string& p, std::string_view lower, std::string_view upper)
{
    size_t pos = p.find(lower);
    return pos != NPOS ? pos : p.find(upper);
}

bool Contains(const std::string& p, std::string_view lower, std::string_view upper)
{
    return FindEither(p, lower, upper) != NPOS;
}

// Removes and returns the separator at `pos`: the quoted text when an apostrophe stands there
// (to the end when it is not closed), else the text up to the next of `stops`.
std::string TakeSeparator(std::string& p, size_t pos, const char* stops)
{
    if (pos >= p.size())
        return {};
    std::string sep;
    if (p[pos] == '\'') {
        size_t close = p.find('\'', pos + 1);
        sep = p.substr(pos + 1, close == NPOS ? NPOS : close - pos - 1);
        p.erase(pos, close == NPOS ? NPOS : close - pos + 1);
    } else {
        size_t end = p.find_first_of(stops, pos);
        sep = p.substr(pos, end == NPOS ? NPOS : end - pos);
        p.erase(pos, end == NPOS ? NPOS : end - pos);
    }
    return sep;
}

// Removes a token of `length` characters found at `pos`; returns `pos`.
size_t EraseAt(std::string& p, size_t pos, size_t length)
{
    if (pos != NPOS)
        p.erase(pos, length);
    return pos;
}

// Removes the single letter `lower`, else `upper`; returns where it stood.
size_t EraseLetter(std::string& p, char lower, char upper)
{
    size_t pos = p.find(lower);
    return EraseAt(p, pos != NPOS ? pos : p.find(upper), 1);
}

} // namespace

SString IntlText(std::string_view utf8)
{
    SString s(utf8.data(), 0, static_cast<unsigned int>(utf8.size()), true);
    if (s.MayBeUTF8())
        s.SetIsUTF8();
    return s;
}

void ReadShortDatePicture(const SString& picture, CountryTable& table)
{
    const std::string p(static_cast<const char*>(picture), picture.Len());
    if (p.empty())
        return;
    table.m_eDateFormat = OrderOf(p[0]);
    table.m_bDateDayLeadingZero = Contains(p, "dd", "DD");
    table.m_bDateMonthLeadingZero = Contains(p, "MM", "mm");
    table.m_bDateCentury = Contains(p, "YYYY", "yyyy");
}

void ReadLongDatePicture(const SString& picture, CountryTable& table)
{
    std::string p(static_cast<const char*>(picture), picture.Len());
    if (p.empty())
        return;
    // The weekday token is taken to stand first, wherever it was found.
    if (Contains(p, "dddd", "DDDD")) {
        table.m_eLongDateDayOfWeekFormat = DAYOFWEEK_LONG;
        p.erase(0, 4);
    } else if (Contains(p, "ddd", "DDD")) {
        table.m_eLongDateDayOfWeekFormat = DAYOFWEEK_SHORT;
        p.erase(0, 3);
    } else {
        table.m_eLongDateDayOfWeekFormat = DAYOFWEEK_NONE;
    }
    table.m_sLongDateDayOfWeekSep = IntlText(TakeSeparator(p, 0, "dDmMyY"));
    table.m_eLongDateFormat = OrderOf(p.empty() ? '\0' : p[0]);

    size_t pos = FindEither(p, "dd", "DD");
    table.m_bLongDateDayLeadingZero = pos != NPOS;
    pos = pos != NPOS ? EraseAt(p, pos, 2) : EraseLetter(p, 'd', 'D');
    table.m_sLongDateDaySep = IntlText(TakeSeparator(p, pos, "mMyY"));

    if ((pos = FindEither(p, "mmmm", "MMMM")) != NPOS) {
        table.m_eLongDateMonthFormat = MONTH_LONG;
        EraseAt(p, pos, 4);
    } else if ((pos = FindEither(p, "mmm", "MMM")) != NPOS) {
        table.m_eLongDateMonthFormat = MONTH_SHORT;
        EraseAt(p, pos, 3);
    } else if ((pos = FindEither(p, "mm", "MM")) != NPOS) {
        table.m_eLongDateMonthFormat = MONTH_NUMBER_LZ;
        EraseAt(p, pos, 2);
    } else {
        table.m_eLongDateMonthFormat = MONTH_NUMBER;
        pos = EraseLetter(p, 'm', 'M');
    }
    table.m_sLongDateMonthSep = IntlText(TakeSeparator(p, pos, "yY"));

    if ((pos = FindEither(p, "yyyy", "YYYY")) != NPOS) {
        table.m_bLongDateCentury = 1;
        EraseAt(p, pos, 4);
    } else if ((pos = FindEither(p, "yy", "YY")) != NPOS) {
        table.m_bLongDateCentury = 0;
        EraseAt(p, pos, 2);
    }
    // A quoted year separator loses the first character of the rest and its last one.
    if (pos < p.size() && p[pos] == '\'') {
        p.erase(0, 1);
        if (!p.empty())
            p.pop_back();
    }
    table.m_sLongDateYearSep = IntlText(p);
}

} // namespace vesk
