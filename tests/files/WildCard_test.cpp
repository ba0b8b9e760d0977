#include <vesk/files.hpp>

#include <gtest/gtest.h>

#include <fnmatch.h>

#include <random>
#include <string>
#include <vector>

namespace vesk {
namespace {

bool Matches(const char* pattern, const char* name, char16_t separator = 0)
{
    return WildCard(pattern, separator).Matches(name);
}

TEST(WildCard, WildcardsEscapesAndPatternsThatMatchAlways)
{
    EXPECT_TRUE(WildCard() == "x");
    EXPECT_TRUE(WildCard("*", u';').MatchesAlways());
    EXPECT_FALSE(WildCard("**").MatchesAlways());
    EXPECT_FALSE(Matches("1", "a", u'\x01')); // two empty alternatives, so not "always"
    EXPECT_FALSE(Matches("*.txt", "a.TXT"));
    EXPECT_TRUE(Matches("a\\bc", "a\\bc"));
    EXPECT_TRUE(Matches("a\\", "a\\"));
    EXPECT_TRUE(Matches("\\\\*", "\\*"));
    EXPECT_FALSE(Matches("\\\\*", "\\\\"));
}

TEST(WildCard, AlternativesSplitAtTheDecimalCodeAndLoseOneByte)
{
    EXPECT_FALSE(Matches("*.txt;*.doc", "a.txt", u';'));
    EXPECT_TRUE(Matches("*.txt;*.doc", "a.txt;x.doc", u';'));
    EXPECT_TRUE(Matches("*.txt59*.doc", "a.txt", u';'));
    EXPECT_TRUE(Matches("*.txt59*.doc", "9a.doc", u';'));
    EXPECT_FALSE(Matches("*.txt59*.doc", "a.doc", u';'));
    EXPECT_TRUE(Matches("*.c53*.h", "x.c", u'5'));
    EXPECT_TRUE(Matches("x65535y", "5535y", u'\xFFFF'));
    EXPECT_TRUE(Matches("x1", "", u'\x01')); // an empty last alternative matches the empty name
    EXPECT_TRUE(Matches("x1y", "y", u'\x01'));
    WildCard w(SString("*.c"), u'\x01');
    w = SString("*.h1*.txt");
    EXPECT_EQ(w(), "*.h1*.txt");
    EXPECT_TRUE(w == "a.txt");
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

// Without brackets, with backslashes only before wildcards and with a non-empty pattern (the
// empty one matches every name here), fnmatch(3) must agree.
TEST(WildCard, AgreesWithFnmatchOnAllSmallPatterns)
{
    const std::vector<std::string> names = AllStrings("ab", 6);
    const std::vector<std::string> patterns = AllStrings("ab*?", 5);
    for (const std::string& pattern : std::vector(patterns.begin() + 1, patterns.end())) {
        const WildCard w(pattern.c_str());
        for (const std::string& name : names)
            ASSERT_EQ(w.Matches(name.c_str()), Fnmatch(pattern, name)) << pattern << " / " << name;
    }
}

TEST(WildCard, AgreesWithFnmatchOnRandomPatternsWithEscapes)
{
    const char* const elements[] = {"a", "b", ".", "*", "?", "\\*", "\\?"};
    const std::string nameBytes = "ab.*?";
    std::mt19937 rng(1);
    std::uniform_int_distribution<size_t> element(0, std::size(elements) - 1);
    std::uniform_int_distribution<size_t> nameByte(0, nameBytes.size() - 1);
    std::uniform_int_distribution<int> length(0, 10);
    for (int i = 0; i < 200000; ++i) {
        std::string pattern, name;
        for (int n = length(rng) + 1; n > 0; --n)
            pattern += elements[element(rng)];
        for (int n = length(rng) + length(rng); n > 0; --n)
            name += nameBytes[nameByte(rng)];
        ASSERT_EQ(Matches(pattern.c_str(), name.c_str()), Fnmatch(pattern, name)) << pattern << " / " << name;
    }
}

} // namespace
} // namespace vesk
