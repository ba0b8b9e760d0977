#include <vesk/text.hpp>

#include "UStringTestUtil.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace vesk;
using test::Text;

namespace {

const char16_t* Ptr(const UString& s)
{
    return static_cast<const char16_t*>(s);
}

} // namespace

TEST(UStringRecord, CopiesShareAndChangesUnshare)
{
    UString a(u"hello");
    UString b(a);
    EXPECT_EQ(Ptr(a), Ptr(b));
    b += u'!';
    EXPECT_NE(Ptr(a), Ptr(b));
    EXPECT_EQ(Text(a), u"hello");
    EXPECT_EQ(Text(b), u"hello!");

    // Empty strings of every origin are one static record.
    EXPECT_EQ(Ptr(UString()), Ptr(UString(static_cast<const char16_t*>(nullptr))));
    EXPECT_EQ(Ptr(UString()), Ptr(UString(char16_t(0))));
    EXPECT_FALSE(UString().IsUTF8());
}

TEST(UStringRecord, MovesAndSelfAssignmentKeepTheText)
{
    UString a(u"abc");
    UString b(std::move(a));
    EXPECT_EQ(Text(b), u"abc");
    EXPECT_EQ(a.Len(), 0u);
    const UString& same = b;
    b = same;
    EXPECT_EQ(Text(b), u"abc");
    b += b;
    EXPECT_EQ(Text(b), u"abcabc");
    a = std::move(b);
    EXPECT_EQ(Text(a), u"abcabc");
    a = Ptr(a) + 3; // assigning a part of its own text
    EXPECT_EQ(Text(a), u"abc");
}

TEST(UStringRecord, LongTextIsCutToTheLimit)
{
    const std::u16string huge(USTRING_MAXLEN + 100, u'x');
    EXPECT_EQ(UString(huge).Len(), USTRING_MAXLEN);
    UString s(huge);
    s += u"more";
    EXPECT_EQ(s.Len(), USTRING_MAXLEN);
    s = u"ab";
    s += UString(huge);
    EXPECT_EQ(s.Len(), USTRING_MAXLEN);
    EXPECT_EQ(Text(s).substr(0, 3), u"abx");
}

TEST(UStringConstruct, SubstringsOfWideText)
{
    const UString s(u"abcdef");
    EXPECT_EQ(Text(UString(s, 2, 3)), u"cde");
    EXPECT_EQ(Text(UString(s, 4, 100)), u"ef");
    EXPECT_EQ(Ptr(UString(s, 0, USTRING_LEN)), Ptr(s));
    EXPECT_EQ(UString(s, 6, 1).Len(), 0u);
    EXPECT_EQ(Text(UString(u"abc\0def", 1, 5)), u"bc"); // ends at the zero
    EXPECT_EQ(Text(UString(u"abcdef", 2, USTRING_LEN)), u"cdef");
    EXPECT_EQ(UString(static_cast<const char16_t*>(nullptr), 0, 3).Len(), 0u);
    EXPECT_EQ(Text(UString(std::u16string(u"a\0b", 3))), std::u16string(u"a\0b", 3));
}

// The digits are SString's (SStringNumbers_test); these check that they arrive widened.
TEST(UStringConstruct, NumbersAsDecimalText)
{
    EXPECT_EQ(Text(UString(-5, 4)), u"00-5");
    EXPECT_EQ(Text(UString(UINT64_MAX)), u"18446744073709551615");
    UString s(u"n=");
    s += short(-1);
    s += uint64_t(5);
    s += 0.25;
    s += -3LL;
    EXPECT_EQ(Text(s), u"n=-15" u"0.250000-3");
}

TEST(UStringAppend, TextCharactersAndSeparators)
{
    UString s;
    s += u"ab";
    s += u'c';
    s += char16_t(0);
    s += static_cast<const char16_t*>(nullptr);
    EXPECT_EQ(Text(s), u"abc");

    UString empty;
    const UString word(u"word");
    empty += word;
    EXPECT_EQ(Ptr(empty), Ptr(word)); // an empty string shares what it appends

    UString list;
    list.AddSeparated(u"a", u", ");
    list.AddSeparated(u"", u", ");
    list.AddSeparated(u"b", u", ");
    list.AddSeparated(u"c", u';');
    list.AddSeparated(u"d", char16_t(0));
    EXPECT_EQ(Text(list), u"a, b;cd");
}

TEST(UStringBuffers, AllocationAndArrays)
{
    UString s(u"old");
    char16_t* buffer = s.AllocStrBuf(3);
    buffer[0] = u'n';
    buffer[1] = u'e';
    buffer[2] = u'w';
    EXPECT_EQ(Text(s), u"new");
    s.AllocStrCapBuf(10)[0] = u'x';
    EXPECT_EQ(s.Len(), 0u);
    s += u"appended";

    std::unique_ptr<char16_t[]> copy(s.CreateWCHARArr());
    EXPECT_EQ(std::u16string(copy.get()), u"appended");
    s.Clear();
    EXPECT_EQ(Ptr(s), Ptr(UString()));
    std::unique_ptr<char16_t[]> none(s.CreateWCHARArr());
    EXPECT_EQ(none[0], 0);
}

TEST(UStringAccess, CharactersByIndex)
{
    const UString s(u"xyz");
    EXPECT_EQ(s[0], u'x');
    EXPECT_EQ(s[3], 0);
    EXPECT_EQ(s[-1], 0);
    EXPECT_EQ(static_cast<char16_t>(s), u'x');
    EXPECT_EQ(Text(s(1, 5)), u"yz");
}

// One object used from several threads: every access goes through its lock.
TEST(UStringThreads, OneStringSharedByThreads)
{
    UString shared(u"start");
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&shared, t] {
            for (int i = 0; i < 500; ++i) {
                if (t % 2 == 0) {
                    shared += u'x';
                } else {
                    EXPECT_GE(shared.Len(), 5u);
                    EXPECT_EQ(shared.Search(u"start"), 0u);
                }
            }
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(shared.Len(), 5u + 1000u);
}
