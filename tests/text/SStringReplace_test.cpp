#include "SStringTestUtil.hpp"

#include <vesk/text.hpp>

using namespace vesk;
using namespace vesk::test;

TEST(SStringReplace, AMatchMayLieBeyondTheRange)
{
    // At index 0 the first character matches but the phrase does not; the search from there
    // finds the phrase at 4, outside the range 0..2.
    SString s("ax--ab");
    s.ReplaceAllPhrases("ab", "Z", 0, 2);
    EXPECT_EQ(s, "ax--Z");
    // Without a first character inside the range nothing is searched.
    s = "xx--ab";
    s.ReplaceAllPhrases("ab", "Z", 0, 2);
    EXPECT_EQ(s, "xx--ab");
    s.ReplaceAllPhrases("ab", "Z", -1, 10);
    EXPECT_EQ(s, "xx--ab");
}

TEST(SStringReplace, FlagsFollowTheInsertsOfTheReplacements)
{
    SString with("\xC3\xA9\xC3\xA9");
    with.SetIsUTF8();
    SString s("a-b");
    s.ReplaceAllPhrases("-", with);
    EXPECT_TRUE(s.IsUTF8()); // longer text is inserted
    SString same("a-b");
    same.ReplaceAllPhrases("-b", SString(with, 0, 2));
    EXPECT_FALSE(same.IsUTF8()); // equal lengths overwrite in place
    SString whole("AB");
    whole.SetIsUTF8();
    whole.ReplaceAllPhrasesI("ab", "xyz");
    EXPECT_FALSE(whole.IsUTF8()); // the whole text was erased, then `with` taken over
    EXPECT_EQ(whole, "xyz");
}

TEST(SStringReplace, CaseInsensitiveFormTriesAsciiFoldedFirstCharacters)
{
    SString s("Hello HELLO hello");
    s.ReplaceAllPhrasesI("hello", "bye", 1);
    EXPECT_EQ(s, "Hello bye bye");
}

TEST(SStringReplace, SinglePassFormClearsTheFlag)
{
    SString s("aaa");
    s.SetIsUTF8();
    s.ReplaceAllPhrases2("aa", "bbb");
    EXPECT_EQ(s, "bbba");
    EXPECT_FALSE(s.IsUTF8());
    s.ReplaceAllPhrases2("a", "");
    EXPECT_EQ(s, "bbb");
}

TEST(SStringReplace, ConvertLineEndLeavesTheRecordWhenNothingChangesOrItWouldNotFit)
{
    SString s("a\n\rb");
    s.ConvertLineEnd();
    EXPECT_EQ(s, "a\r\nb");
    SString shared(s);
    s.ConvertLineEnd(LINEEND_CRLF);
    EXPECT_TRUE(SharesRecord(s, shared));

    std::string lines(STRING_MAXLEN - 10, 'x');
    for (size_t i = 0; i < 20; ++i)
        lines[i * 2] = '\n';
    SString big(lines.c_str());
    big.ConvertLineEnd(LINEEND_CRLF);
    EXPECT_EQ(big.Len(), STRING_MAXLEN - 10);
}
