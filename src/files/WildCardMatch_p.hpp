#pragma once

// The matcher behind WildCard, on plain byte ranges: '*' matches any run of bytes, '?' any one
// byte, a backslash before '*' or '?' makes that character literal, and every other byte
// (a backslash included) must match exactly.
#include <cstring>
#include <string_view>

namespace vesk::detail {

namespace wildcard {

// One pattern element that is not a star: a literal byte, or any byte for '?'.
struct Element {
    bool any;
    char ch;
    size_t width;
};

inline Element ElementAt(const char* p, const char* end)
{
    if (*p == '?')
        return {true, 0, 1};
    if (*p == '\\' && end - p > 1 && (p[1] == '*' || p[1] == '?'))
        return {false, p[1], 2};
    return {false, *p, 1};
}

} // namespace wildcard

// Whether name matches pattern as a whole. After a star the name is scanned for the next
// literal; when a later element fails, the match resumes one byte further after the most
// recent star only (earlier stars need never be revisited).
inline bool MatchWildCard(std::string_view pattern, std::string_view name)
{
    const char* p = pattern.data();
    const char* const pe = p + pattern.size();
    const char* s = name.data();
    const char* const se = s + name.size();
    const char* starP = nullptr; // pattern just after the latest star
    const char* starS = nullptr; // where the run of that star ends for the current attempt

    // Moves the name to the first place where the element after the latest star can match.
    auto resume = [&]() {
        const wildcard::Element e = wildcard::ElementAt(starP, pe);
        if (!e.any) {
            const void* hit = std::memchr(starS, static_cast<unsigned char>(e.ch), static_cast<size_t>(se - starS));
            if (!hit)
                return false;
            starS = static_cast<const char*>(hit);
        }
        p = starP;
        s = starS;
        return true;
    };

    for (;;) {
        if (p != pe && *p == '*') {
            do
                ++p;
            while (p != pe && *p == '*');
            if (p == pe)
                return true;
            starP = p;
            starS = s;
            if (!resume())
                return false;
            continue;
        }
        if (p == pe) {
            if (s == se)
                return true;
        } else if (s == se) {
            // The rest of the pattern needs bytes; starting later leaves fewer.
            return false;
        } else {
            const wildcard::Element e = wildcard::ElementAt(p, pe);
            if (e.any || e.ch == *s) {
                p += e.width;
                ++s;
                continue;
            }
        }
        if (!starP || starS == se)
            return false;
        ++starS;
        if (!resume())
            return false;
    }
}

// Whether name matches any alternative of pattern, the alternatives being separated by
// separator. After each alternative only the first byte of the separator is removed, so a
// longer separator leaves its tail at the start of the next alternative.
inline bool MatchWildCardAlternatives(std::string_view pattern, std::string_view separator, std::string_view name)
{
    if (!separator.empty()) {
        for (size_t k = pattern.find(separator); k != std::string_view::npos; k = pattern.find(separator)) {
            if (MatchWildCard(pattern.substr(0, k), name))
                return true;
            pattern.remove_prefix(k + 1);
        }
    }
    return MatchWildCard(pattern, name);
}

} // namespace vesk::detail
