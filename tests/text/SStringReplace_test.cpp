// What the replacement rules themselves do is checked against the model in SStringModel_test;
// these cover what the model leaves out: negative ranges, record reuse and the length limit.
#include "SStringTestUtil.hpp"

#include <vesk/text.hpp>

using namespace vesk;
using namespace vesk::test;

TEST(SStringReplace, NegativeStartReplacesNothing)
{
    SString s("xx--ab");
    s.ReplaceAllPhrases("ab", "Z", -1, 10);
    EXPECT_EQ(s, "xx--ab");
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
