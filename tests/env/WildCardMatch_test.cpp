#include "env/WildCardMatch_p.hpp"

#include <gtest/gtest.h>

#include <fnmatch.h>

#include <random>
#include <string>
#include <vector>

namespace vesk::detail {
namespace {

TEST(WildCardMatch, StarsAndQuestionMarks)
{
    EXPECT_TRUE(MatchWildCard("*.txt", "a.txt"));
    EXPECT_TRUE(MatchWildCard("*.txt", ".txt"));
    EXPECT_FALSE(MatchWildCard("*.txt", "a.TXT"));
    EXPECT_FALSE(MatchWildCard("*.txt", "a.txt.bak"));
    EXPECT_TRUE(MatchWildCard("a?c", "abc"));
    EXPECT_FALSE(MatchWildCard("a?c", "ac"));
    EXPECT_TRUE(MatchWildCard("*a*b", "xxaxxb"));
    EXPECT_TRUE(MatchWildCard("*ab", "aab"));
    EXPECT_TRUE(MatchWildCard("**?**", "x"));
    EXPECT_FALSE(MatchWildCard("*?", ""));
    EXPECT_TRUE(MatchWildCard("", ""));
    EXPECT_FALSE(MatchWildCard("", "a"));
    EXPECT_TRUE(MatchWildCard(std::string_view("a\0*", 3), std::string_view("a\0bc", 4)));
}

TEST(WildCardMatch, BackslashEscapesOnlyWildcards)
{
    EXPECT_TRUE(MatchWildCard("a\\*c", "a*c"));
    EXPECT_FALSE(MatchWildCard("a\\*c", "abc"));
    EXPECT_TRUE(MatchWildCard("a\\?", "a?"));
    EXPECT_FALSE(MatchWildCard("a\\?", "ab"));
    EXPECT_TRUE(MatchWildCard("a\\bc", "a\\bc"));
    EXPECT_TRUE(MatchWildCard("a\\", "a\\"));
    EXPECT_TRUE(MatchWildCard("*\\*", "x**"));
    EXPECT_TRUE(MatchWildCard("\\\\*", "\\*"));
    EXPECT_FALSE(MatchWildCard("\\\\*", "\\\\"));
}

TEST(WildCardMatch, AlternativesLoseOnlyTheFirstSeparatorByte)
{
    EXPECT_TRUE(MatchWildCardAlternatives("*.txt59*.doc", "59", "a.txt"));
    EXPECT_TRUE(MatchWildCardAlternatives("*.txt59*.doc", "59", "9x.doc"));
    EXPECT_FALSE(MatchWildCardAlternatives("*.txt59*.doc", "59", "a.doc"));
    EXPECT_FALSE(MatchWildCardAlternatives("*.txt;*.doc", "59", "a.txt"));
    EXPECT_TRUE(MatchWildCardAlternatives("*.txt;*.doc", "59", "a.txt;x.doc"));
    EXPECT_TRUE(MatchWildCardAlternatives("*.c53*.h", "53", "x.c"));
    EXPECT_FALSE(MatchWildCardAlternatives("*.c53*.h", "53", "y.h"));
    EXPECT_TRUE(MatchWildCardAlternatives("*.c53*.h", "53", "3y.h"));
    // An empty alternative matches only the empty name.
    EXPECT_TRUE(MatchWildCardAlternatives("x1", "1", ""));
    EXPECT_TRUE(MatchWildCardAlternatives("1x", "1", ""));
    EXPECT_FALSE(MatchWildCardAlternatives("x1y", "1", ""));
    EXPECT_TRUE(MatchWildCardAlternatives("a1b1c", "1", "c"));
}

bool Fnmatch(const std::string& pattern, const std::string& name)
{
    return fnmatch(pattern.c_str(), name.c_str(), 0) == 0;
}

// All strings up to maxLength over the given alphabet.
std::vector<std::string> AllStrings(const std::string& alphabet, size_t maxLength)
{
    std::vector<std::string> all{""};
    for (size_t i = 0; all[i].size() < maxLength; ++i)
        for (char c : alphabet)
            all.push_back(all[i] + c);
    return all;
}

// Without brackets and with backslashes only before wildcards, fnmatch(3) must agree.
TEST(WildCardMatch, AgreesWithFnmatchOnAllSmallPatterns)
{
    const std::vector<std::string> patterns = AllStrings("ab*?", 5);
    const std::vector<std::string> names = AllStrings("ab", 6);
    for (const std::string& pattern : patterns)
        for (const std::string& name : names)
            ASSERT_EQ(MatchWildCard(pattern, name), Fnmatch(pattern, name)) << pattern << " / " << name;
}

TEST(WildCardMatch, AgreesWithFnmatchOnRandomPatternsWithEscapes)
{
    const char* const elements[] = {"a", "b", ".", "*", "?", "\\*", "\\?"};
    const std::string nameBytes = "ab.*?";
    std::mt19937 rng(1);
    std::uniform_int_distribution<size_t> element(0, std::size(elements) - 1);
    std::uniform_int_distribution<size_t> nameByte(0, nameBytes.size() - 1);
    std::uniform_int_distribution<int> length(0, 10);
    for (int i = 0; i < 200000; ++i) {
        std::string pattern, name;
        for (int n = length(rng); n > 0; --n)
            pattern += elements[element(rng)];
        for (int n = length(rng) + length(rng); n > 0; --n)
            name += nameBytes[nameByte(rng)];
        ASSERT_EQ(MatchWildCard(pattern, name), Fnmatch(pattern, name)) << pattern << " / " << name;
    }
}

} // namespace
} // namespace vesk::detail
