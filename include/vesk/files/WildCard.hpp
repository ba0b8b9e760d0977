#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>

namespace vesk {

// A name pattern with the wildcards '*' (any run of bytes) and '?' (any one byte); a backslash
// before either makes it literal. Matching is bytewise and case-sensitive. With a separator,
// the pattern holds alternatives, split at the separator's code written in decimal: ';' splits
// at the text "59", and only the first digit of that text is removed with each alternative.
class VESK_API WildCard {
public:
    // An empty pattern: matches every name.
    WildCard() = default;
    // A pattern with a separator code (0: a single pattern).
    explicit WildCard(const SString& pattern, char16_t separator = 0)
        : m_aPattern(pattern), m_cSeparator(separator)
    {
    }

    // Replaces the pattern, keeping the separator.
    WildCard& operator=(const SString& pattern);
    // A copy of the pattern.
    SString operator()() const { return m_aPattern; }

    // Whether name matches the pattern, or one of its alternatives.
    bool Matches(const SString& name) const;
    // Same as Matches.
    bool operator==(const SString& name) const { return Matches(name); }
    // Not Matches.
    bool operator!=(const SString& name) const { return !Matches(name); }
    // Whether the pattern is empty or exactly "*".
    bool MatchesAlways() const;

private:
    SString m_aPattern;
    char16_t m_cSeparator = 0;
};

} // namespace vesk
