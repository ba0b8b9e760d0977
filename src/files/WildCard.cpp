#include <vesk/files/WildCard.hpp>

#include "files/WildCardMatch_p.hpp"
#include "text/SString_p.hpp"

#include <charconv>
#include <string_view>

namespace vesk {

namespace {

// The bytes of a string, read under one lock. They stay valid while the string is unchanged.
std::string_view View(const SString& s)
{
    SStringLock lock(s);
    const SStringData* record = SStringAccess::Record(s);
    return std::string_view(record->Text(), record->nLen);
}

bool IsMatchAll(std::string_view pattern)
{
    return pattern.empty() || pattern == "*";
}

} // namespace

WildCard& WildCard::operator=(const SString& pattern)
{
    m_aPattern = pattern;
    return *this;
}

bool WildCard::MatchesAlways() const
{
    return IsMatchAll(View(m_aPattern));
}

bool WildCard::Matches(const SString& name) const
{
    const std::string_view patternText = View(m_aPattern);
    if (IsMatchAll(patternText))
        return true;
    if (m_cSeparator == 0)
        return detail::MatchWildCard(patternText, View(name));
    // The separator is the code's decimal spelling, not the character itself.
    char digits[8];
    const char* end = std::to_chars(digits, digits + sizeof digits, static_cast<unsigned>(m_cSeparator)).ptr;
    return detail::MatchWildCardAlternatives(patternText, std::string_view(digits, end - digits), View(name));
}

} // namespace vesk
