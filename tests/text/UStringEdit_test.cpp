#include <vesk/text.hpp>

#include "UStringTestUtil.hpp"

#include "support/OwnedLocale.hpp"

#include <gtest/gtest.h>

#include <string>

using namespace vesk;
using test::OwnedLocale;
using test::Text;
using test::ThreadLocale;

// The texts that copying, erasing, inserting and replacing give are checked against the model
// in UStringModel_test; these cover the members and limits it leaves out.
TEST(UStringExtract, CopySharesTheWholeTextAndCopyToLastChar)
{
    UString s(u"abcdef");
    EXPECT_EQ(static_cast<const char16_t*>(s.Copy(0)), static_cast<const char16_t*>(s));
    EXPECT_EQ(Text(UString(u"a/b/c").CopyToLastChar(u'/')), u"a/b");
    EXPECT_EQ(Text(UString(u"abc").CopyToLastChar(u'/')), u"abc");
}

TEST(UStringErase, LeadingAndTrailingRunsLeaveSharersAlone)
{
    const UString shared(u"--a-b--");
    UString u(shared);
    u.EraseLeadingChars(u'-');
    EXPECT_EQ(Text(u), u"a-b--");
    u.EraseTrailingChars(u'-');
    EXPECT_EQ(Text(u), u"a-b");
    EXPECT_EQ(Text(shared), u"--a-b--");
    UString dashes(u"---");
    dashes.Trim(u'-');
    EXPECT_EQ(dashes.Len(), 0u);
}

TEST(UStringGrow, ExpandAndFill)
{
    UString s(u"ab");
    s.Expand(4, u'.');
    EXPECT_EQ(Text(s), u"ab..");
    UString f(u"abcdef");
    f.Fill(2, u'x');
    EXPECT_EQ(Text(f), u"xxcdef");
    f.Fill(8, u'y');
    EXPECT_EQ(Text(f), u"yyyyyyyy");
    UString big;
    big.Fill(USTRING_MAXLEN + 5, u'z');
    EXPECT_EQ(big.Len(), USTRING_MAXLEN);
}

TEST(UStringInsert, PositionsAndTheLengthLimit)
{
    UString s(u"ace");
    s.Insert(u'f', 99);
    s.Insert(UString(u"XYZ"), 1, 5, 0);
    s.Insert(UString(u"XYZ"), 3, 1, 0);
    s.Insert(static_cast<const char16_t*>(nullptr), 0);
    s.Insert(char16_t(0), 0);
    EXPECT_EQ(Text(s), u"YZacef");

    const UString word(u"word");
    UString empty;
    empty.Insert(word, 5);
    EXPECT_EQ(static_cast<const char16_t*>(empty), static_cast<const char16_t*>(word));

    UString full(std::u16string(USTRING_MAXLEN, u'a'));
    full.Insert(u'x', 0);
    EXPECT_EQ(full.Len(), USTRING_MAXLEN);
    EXPECT_EQ(full[0], u'x');
    full.Insert(u"yz", 1);
    EXPECT_EQ(Text(full.Copy(0, 4)), u"xyza");
    EXPECT_EQ(full.Len(), USTRING_MAXLEN);
}

TEST(UStringReplace, CharactersAndOverwriting)
{
    UString s(u"abcabc");
    s.Replace(UString(u"XY"), 5);
    EXPECT_EQ(Text(s), u"abcabX");
    s.Replace(UString(u"Q"), 6);
    s.Replace(u'Z', 0);
    s.Replace(u'Z', 9);
    EXPECT_EQ(Text(s), u"ZbcabX");
    s.ReplaceAllChars(u'b', u'-');
    EXPECT_EQ(Text(s), u"Z-ca-X");
    s.ReplaceAllChars(u'-', '\xE9');
    EXPECT_EQ(Text(s), u"Z\u00E9ca\u00E9X");
    UString digits(u"1 2 0");
    digits.SpaceToZero();
    EXPECT_EQ(Text(digits), u"10200");
    digits.ZeroToSpace();
    EXPECT_EQ(Text(digits), u"1 2  ");
}

TEST(UStringReplace, NegativeStartsAndEmptyPatternsChangeNothing)
{
    UString s(u"aa");
    s.ReplaceAllPhrases(u"a", u"b", -1, 5);
    s.ReplaceAllPhrases(u"a", u"b", 0, 0);
    s.ReplaceAllPhrases2(u"", u"x");
    s.ReplaceAllPhrases(u"", u"x", 0);
    EXPECT_EQ(Text(s), u"aa");
}

TEST(UStringReplace, ManyPhrasesUpToTheLengthLimit)
{
    // Every replacement that would pass the limit cuts the text, tail first.
    UString s(std::u16string(USTRING_MAXLEN - 2, u'a'));
    s.ReplaceAllPhrasesI(u"A", u"xy");
    EXPECT_EQ(s.Len(), USTRING_MAXLEN);
    EXPECT_EQ(s.Search(u"a"), STRING_NOTFOUND);
    EXPECT_EQ(s[static_cast<int>(USTRING_MAXLEN - 1)], u'y');
    s = std::u16string(1000, u'a').c_str();
    s.ReplaceAllPhrases(u"aa", u"b", 0, 10);
    EXPECT_EQ(s.Len(), 990u); // ten starts in [0, 10) of the changing text
    EXPECT_EQ(Text(s.Copy(8, 3)), u"bba");
}

TEST(UStringLineEnds, UnchangedTextKeepsItsRecord)
{
    const UString unchanged(u"x\r\ny");
    UString s = unchanged;
    s.ConvertLineEnd(LINEEND_CRLF);
    EXPECT_EQ(static_cast<const char16_t*>(s), static_cast<const char16_t*>(unchanged));
}

TEST(UStringCase, FollowsTheLocale)
{
    const ThreadLocale locale("C.UTF-8");
    UString s(u"Stra\u00DFe \u00C9t\u00E9 \u0416");
    EXPECT_EQ(Text(s.Upper()), u"STRA\u00DFE \u00C9T\u00C9 \u0416");
    EXPECT_EQ(Text(s.Lower()), u"stra\u00DFe \u00E9t\u00E9 \u0436");
    s.ToUpper();
    EXPECT_EQ(Text(s), u"STRA\u00DFE \u00C9T\u00C9 \u0416");
    UString surrogates(u"\U0001F600a");
    surrogates.ToUpper();
    EXPECT_EQ(Text(surrogates), u"\U0001F600A");
}

TEST(UStringCase, SetLocaleOverridesTheThreadLocale)
{
    const ThreadLocale locale("C");
    EXPECT_EQ(Text(UString(u"\u00E9a").Upper()), u"\u00E9A");
    const OwnedLocale utf8("C.UTF-8");
    ASSERT_NE(utf8.Get(), nullptr);
    UString::SetLocale(utf8.Get());
    EXPECT_EQ(Text(UString(u"\u00E9a").Upper()), u"\u00C9A");
    EXPECT_EQ(UString(u"\u00C9").ICompare(u"\u00E9"), COMPARE_EQUAL);
    UString::SetLocale(nullptr);
}
