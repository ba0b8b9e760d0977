#include "SStringTestUtil.hpp"

#include <vesk/text.hpp>

#include <functional>

using namespace vesk;
using namespace vesk::test;

TEST(SStringEdit, NoEditChangesARecordThatAnotherStringShares)
{
    const std::vector<std::function<void(SString&)>> edits = {
        [](SString& s) { s.Erase(1, 2); },          [](SString& s) { s.Erase(5); },
        [](SString& s) { s.EraseAllChars('l'); },   [](SString& s) { s.Trim(' '); },
        [](SString& s) { s.EraseLeadingChars('H'); }, [](SString& s) { s.Fill(3, '*'); },
        [](SString& s) { s.Insert('x', 2); },       [](SString& s) { s.Replace("AB", 1); },
        [](SString& s) { s.Replace('!', 0); },      [](SString& s) { s.ReplaceAllChars('l', 'L'); },
        [](SString& s) { s.ReplaceAllPhrases("lo", "LO"); }, [](SString& s) { s.Reverse(); },
        [](SString& s) { s.SpaceToZero(); },        [](SString& s) { s.ToUpper(); },
        [](SString& s) { s.ConvertLineEnd(LINEEND_LF); }, [](SString& s) { s.Cut(0, 4); },
    };
    for (size_t i = 0; i < edits.size(); ++i) {
        const SString original("Hello,\r\nworld  ");
        SString copy(original);
        edits[i](copy);
        EXPECT_EQ(original, "Hello,\r\nworld  ") << "edit " << i;
        EXPECT_NE(copy, original) << "edit " << i;
        EXPECT_EQ(Owners(original), 1u) << "edit " << i;
    }
}

TEST(SStringEdit, CopyCutAndCopyToLastChar)
{
    SString s("path/to/file");
    s.SetIsUTF8();
    EXPECT_TRUE(SharesRecord(s.Copy(0), s));
    EXPECT_TRUE(s.Copy(5, 2).IsUTF8());
    EXPECT_EQ(s.CopyToLastChar('/'), "path/to");
    EXPECT_TRUE(SharesRecord(s.CopyToLastChar('#'), s));
}

TEST(SStringEdit, ErasingTheTailOfAPrivateRecordWorksInPlace)
{
    SString s("abcdefgh");
    const SStringData* rec = Record(s);
    s.Erase(5);
    EXPECT_EQ(s, "abcde");
    EXPECT_EQ(Record(s), rec);
    s.Erase(1, 2); // the middle always gets a new record
    EXPECT_EQ(s, "ade");
    EXPECT_NE(Record(s), rec);
    s.Erase(0, 99);
    EXPECT_TRUE(IsSharedEmpty(s));
}

// The resulting texts are checked against the model in SStringModel_test; what erasing all of
// a shared text leaves is not.
TEST(SStringEdit, ErasingEverythingFromASharedRecordGivesTheSharedEmptyString)
{
    SString s("----");
    SString shared(s);
    shared.EraseTrailingChars('-');
    EXPECT_TRUE(IsSharedEmpty(shared));
    s.EraseAllChars('-');
    EXPECT_TRUE(IsSharedEmpty(s));
}

TEST(SStringEdit, ExpandPadsAndFillHasTwoModes)
{
    SString s("ab");
    s.Expand(5, '.');
    EXPECT_EQ(s, "ab...");
    s.Expand(2, '!');
    EXPECT_EQ(s, "ab...");

    SString f("abcdef");
    f.Fill(2, 'x');
    EXPECT_EQ(f, "xxcdef");
    f.SetIsUTF8();
    f.Fill(8, 'y');
    EXPECT_EQ(f, "yyyyyyyy");
    EXPECT_TRUE(f.IsUTF8());
}

TEST(SStringEdit, InsertIntoAnEmptyStringTakesOverTheRecord)
{
    SString utf8("\xC3\xA9");
    utf8.SetIsUTF8();
    SString empty;
    empty.Insert(utf8, 5);
    EXPECT_TRUE(SharesRecord(empty, utf8));
}

TEST(SStringEdit, InsertsAtTheMaximumLengthKeepTheHeadAndCutTheTail)
{
    const std::string full(STRING_MAXLEN, 'a');
    SString s(full.c_str());
    s.Insert('x', 0);
    EXPECT_EQ(s.Len(), STRING_MAXLEN);
    EXPECT_EQ(s[0], 'x');
    EXPECT_EQ(s[STRING_MAXLEN - 1], 'a');
    s.Insert('y', STRING_MAXLEN);
    EXPECT_EQ(s.Search('y'), STRING_NOTFOUND);

    SString t(std::string(STRING_MAXLEN - 2, 'a').c_str());
    t.Insert("bcdef", 1);
    EXPECT_EQ(t.Len(), STRING_MAXLEN);
    EXPECT_EQ(t.Copy(0, 7), "abcdefa");
    EXPECT_EQ(Capacity(t), 0x1FFFF0u);
}

TEST(SStringEdit, OverwritingStaysInsideTheText)
{
    SString s("abcdef");
    s.Replace("XYZ", 4);
    EXPECT_EQ(s, "abcdXY");
    s.Replace("Q", 6);
    s.Replace('!', 9);
    EXPECT_EQ(s, "abcdXY");
    s = "12 3 0";
    s.SpaceToZero();
    EXPECT_EQ(s, "120300");
    s.ZeroToSpace();
    EXPECT_EQ(s, "12 3  ");
    s.Reverse();
    EXPECT_EQ(s, "  3 21");
}
