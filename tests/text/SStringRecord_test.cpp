#include "SStringTestUtil.hpp"

#include <vesk/text.hpp>

using namespace vesk;
using namespace vesk::test;

TEST(SStringRecord, EmptyInputsShareTheEmptyRecordAndAreNeverMarked)
{
    SString empties[] = {SString(static_cast<const char*>(nullptr)), SString(""), SString('\0'),
                         SString("abc", 1, 0, true)};
    for (SString& s : empties) {
        EXPECT_TRUE(IsSharedEmpty(s));
        s.SetIsUTF8();
        EXPECT_FALSE(s.IsUTF8());
    }
}

TEST(SStringRecord, CapacityIsTheLengthRoundedToSixteenWithASpareByte)
{
    EXPECT_EQ(Capacity(SString("a")), 16u);
    EXPECT_EQ(Capacity(SString("0123456789abcde")), 16u);
    EXPECT_EQ(Capacity(SString("0123456789abcdef")), 32u);
}

TEST(SStringRecord, CopiesShareUntilOneChanges)
{
    SString a("shared");
    SString b(a);
    SString c;
    c = b;
    EXPECT_TRUE(SharesRecord(a, c));
    EXPECT_EQ(Owners(a), 3u);
    b += "!";
    EXPECT_EQ(a, "shared");
    EXPECT_EQ(b, "shared!");
    EXPECT_EQ(Owners(a), 2u);
    // Self-assignment and moves keep the count right.
    const SString& alias = c;
    c = alias;
    EXPECT_EQ(Owners(a), 2u);
    SString moved(std::move(c));
    EXPECT_TRUE(IsSharedEmpty(c));
    EXPECT_EQ(Owners(a), 2u);
}

TEST(SStringRecord, SaturatedCountGivesTheSourceAPrivateCopy)
{
    SString source("busy");
    SString keeper(source);
    auto* rec = const_cast<SStringData*>(Record(source));
    rec->nRefs.store(SSTRING_COUNT_MASK);

    SString copy(source);
    EXPECT_NE(Record(source), rec);
    EXPECT_TRUE(SharesRecord(source, copy));
    EXPECT_EQ(Owners(copy), 2u);
    EXPECT_EQ(copy, "busy");
    // Releasing the old record counted it down once.
    EXPECT_EQ(rec->nRefs.load(), SSTRING_COUNT_MASK - 1);
    rec->nRefs.store(0); // keeper is its only real owner again
}

TEST(SStringRecord, AllocStrBufGivesAPrivateWritableRecord)
{
    SString s("old");
    SString other(s);
    std::memcpy(s.AllocStrBuf(5), "fresh", 5);
    EXPECT_EQ(s, "fresh");
    EXPECT_EQ(other, "old");

    char* room = s.AllocStrCapBuf(40);
    EXPECT_EQ(s.Len(), 0u);
    EXPECT_EQ(room[0], 0);
    EXPECT_EQ(Capacity(s), 48u);
    EXPECT_FALSE(IsSharedEmpty(s));
    EXPECT_THROW(s.AllocStrBuf(0xFFFFFFF0u), std::bad_alloc);
    EXPECT_EQ(Capacity(s), 48u);
}

TEST(SStringRecord, InitStringResCopiesExactlyAndClearReleases)
{
    SString s;
    SStringAccess::InitStringRes(s, "res\0ource", 9);
    EXPECT_EQ(Bytes(s), std::string("res\0ource", 9));
    s.Clear();
    EXPECT_TRUE(IsSharedEmpty(s));
}
