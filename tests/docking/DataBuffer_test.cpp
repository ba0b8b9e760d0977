#include "DockingTestUtil.hpp"

#include <thread>

using namespace vesk;
using namespace vesk::test;

TEST(DataBufferFormat, TypedWritesAreLittleEndianAfterTheContentLength)
{
    DataBuffer b;
    EXPECT_EQ(b.GetBytes(), ByteVec({0, 0, 0, 0}));
    b.WriteInt32(-2);
    b.WriteUInt32(0x12345678);
    b.WriteByte(0xAB);
    b.WriteDouble(1.5);
    b.WriteSize(TamSize(3, -1));
    b.WritePoint(TamPoint(256, 7));
    b.WriteRect(CRectangle(1, 2, 3, RECT_EMPTY));
    b.WriteString("ab");
    const ByteVec expected = {
        0x37, 0, 0, 0,                                  // 55 content bytes follow
        0xFE, 0xFF, 0xFF, 0xFF, 0x78, 0x56, 0x34, 0x12, // -2, 0x12345678
        0xAB,                                           // byte
        0, 0, 0, 0, 0, 0, 0xF8, 0x3F,                   // 1.5
        3, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF,             // size (3, -1)
        0, 1, 0, 0, 7, 0, 0, 0,                         // point (256, 7)
        1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0, 0, 0, 0, 0x80, // rectangle, empty bottom
        2, 0, 0, 0, 'a', 'b'};                          // string
    EXPECT_EQ(b.GetBytes(), expected);
    EXPECT_EQ(b.GetPos(), 59);

    b.SetPos(0);
    EXPECT_EQ(b.GetPos(), DATABUFFER_CONTENT_START);
    int32_t i;
    uint32_t u;
    uint8_t byte;
    double d;
    TamSize size;
    TamPoint point;
    CRectangle rect;
    SString text;
    EXPECT_TRUE(b.ReadInt32(i) && b.ReadUInt32(u) && b.ReadByte(byte) && b.ReadDouble(d) && b.ReadSize(size) &&
                b.ReadPoint(point) && b.ReadRect(rect) && b.ReadString(text));
    EXPECT_EQ(i, -2);
    EXPECT_EQ(u, 0x12345678u);
    EXPECT_EQ(byte, 0xAB);
    EXPECT_EQ(d, 1.5);
    EXPECT_EQ(size, TamSize(3, -1));
    EXPECT_EQ(point, TamPoint(256, 7));
    EXPECT_EQ(rect, CRectangle(1, 2, 3, RECT_EMPTY));
    EXPECT_EQ(text, "ab");
    EXPECT_FALSE(text.IsUTF8());
}

TEST(DataBufferFormat, WritesOverwriteEarlierContentAfterAJump)
{
    DataBuffer b;
    b.WriteInt32(0);
    b.WriteInt32(7);
    b.WriteInt32(8);
    {
        LocalWriteJump jump(b, DATABUFFER_CONTENT_START);
        EXPECT_EQ(b.GetPos(), DATABUFFER_CONTENT_START);
        b.WriteInt32(2);
    }
    EXPECT_EQ(b.GetPos(), 16);
    b.WriteByte(9);
    EXPECT_EQ(Content(b), ByteVec({2, 0, 0, 0, 7, 0, 0, 0, 8, 0, 0, 0, 9}));
    // The cursor cannot leave the content.
    b.SetPos(1000);
    EXPECT_EQ(b.GetPos(), 17);
}

TEST(DataBufferGrowth, ArraysGrowByHalfPlusFifteenRoundedToSixteen)
{
    DataBuffer b;
    EXPECT_EQ(b.GetCapacity(), 0);
    b.WriteByte(1);
    EXPECT_EQ(b.GetCapacity(), 192);
    const ByteVec fill(187, 0x11);
    EXPECT_EQ(b.WriteBytes(fill.data(), 187), 187);
    EXPECT_EQ(b.GetCapacity(), 192);
    b.WriteByte(2); // needs 193: 193 * 3 / 2 + 15 = 304
    EXPECT_EQ(b.GetCapacity(), 304);

    DataBuffer big;
    const ByteVec block(300, 0x22);
    big.WriteBytes(block.data(), 300); // needs 304: 456 + 15 = 471, down to 464
    EXPECT_EQ(big.GetCapacity(), 464);
}

TEST(DataBufferGrowth, OversizedWritesAreRefusedAndOverflowSetsTheErrorFlag)
{
    const uint8_t small[4] = {1, 2, 3, 4};
    DataBuffer b;
    EXPECT_EQ(b.WriteBytes(small, -1), 0);
    EXPECT_EQ(b.WriteBytes(small, DATABUFFER_LIMIT + 1), 0);
    EXPECT_FALSE(b.HasError());

    // Fits the single-write limit, but not the array limit once the header is counted.
    EXPECT_EQ(b.WriteBytes(small, DATABUFFER_LIMIT), 0);
    EXPECT_TRUE(b.HasError());
    EXPECT_EQ(b.GetCapacity(), 0);
    EXPECT_FALSE(b.WriteByte(1));
    EXPECT_FALSE(b.WriteString("x"));

    // Only closing a write section clears the flag.
    EXPECT_TRUE(b.OpenWriteSection());
    EXPECT_TRUE(b.CloseWriteSection());
    EXPECT_FALSE(b.HasError());
    EXPECT_EQ(b.GetContentSize(), 0);
    EXPECT_TRUE(b.WriteByte(1));
    EXPECT_EQ(Content(b), ByteVec({1}));
}

TEST(DataBufferSections, WriteSectionsPatchTheirLengthsWhenClosed)
{
    DataBuffer b;
    {
        LocalSizedWrite outer(b);
        b.WriteByte(1);
        {
            LocalSizedWrite inner(b);
            b.WriteInt32(5);
        }
        b.WriteByte(2);
    }
    EXPECT_EQ(Content(b), ByteVec({10, 0, 0, 0, 1, 4, 0, 0, 0, 5, 0, 0, 0, 2}));
    EXPECT_EQ(b.GetSectionDepth(), 0);
    EXPECT_FALSE(b.CloseWriteSection());
}

TEST(DataBufferSections, NoMoreThanEightSectionsOpen)
{
    DataBuffer w;
    for (int i = 0; i < DATABUFFER_MAX_SECTIONS; ++i)
        EXPECT_TRUE(w.OpenWriteSection());
    EXPECT_FALSE(w.OpenWriteSection());
    EXPECT_EQ(w.GetContentSize(), 32);
    for (int i = 0; i < DATABUFFER_MAX_SECTIONS; ++i)
        w.CloseWriteSection();
    EXPECT_EQ(Content(w).front(), 28);

    w.SetPos(0);
    for (int i = 0; i < DATABUFFER_MAX_SECTIONS; ++i)
        EXPECT_TRUE(w.OpenReadSection());
    EXPECT_FALSE(w.OpenReadSection());
    EXPECT_EQ(w.GetPos(), 36);
    EXPECT_EQ(w.GetSectionDepth(), DATABUFFER_MAX_SECTIONS);
}

TEST(DataBufferSections, ReadsStayInsideTheSectionAndClosingSkipsTheRest)
{
    DataBuffer b = BufferOf(RecordBuilder()
                                .Section(RecordBuilder().U8(1).Section(RecordBuilder().I32(5).U8(9)).U8(2))
                                .U8(0x77)
                                .Get());
    uint8_t byte;
    int32_t value;
    EXPECT_TRUE(b.OpenReadSection());
    EXPECT_TRUE(b.ReadByte(byte));
    EXPECT_EQ(byte, 1);
    EXPECT_TRUE(b.OpenReadSection());
    EXPECT_TRUE(b.ReadInt32(value));
    EXPECT_EQ(value, 5);
    EXPECT_FALSE(b.ReadInt32(value)); // only the 9 is left inside
    EXPECT_EQ(value, 0);
    EXPECT_EQ(b.CloseReadSection(), 0);
    EXPECT_TRUE(b.ReadByte(byte));
    EXPECT_EQ(byte, 2);
    EXPECT_EQ(b.CloseReadSection(), 0);
    EXPECT_TRUE(b.ReadByte(byte));
    EXPECT_EQ(byte, 0x77);

    b.SetPos(0);
    b.OpenReadSection();
    EXPECT_EQ(b.CloseReadSection(), 11);
    EXPECT_EQ(b.GetPos(), 19);
    EXPECT_EQ(b.CloseReadSection(), 0); // nothing open
}

TEST(DataBufferSections, BadLengthsFailButTheSectionIsEntered)
{
    uint8_t bytes[8];
    DataBuffer negative = BufferOf(RecordBuilder().I32(-1).U8(1).Get());
    EXPECT_FALSE(negative.OpenReadSection());
    EXPECT_EQ(negative.GetSectionDepth(), 1);
    EXPECT_EQ(negative.ReadBytes(bytes, 1), 0);
    EXPECT_EQ(negative.CloseReadSection(), 0);
    EXPECT_EQ(negative.ReadBytes(bytes, 1), 1);

    // A length may pass the remaining bytes by 4 and still be accepted.
    DataBuffer lenient = BufferOf(RecordBuilder().I32(6).U8(1).U8(2).Get());
    EXPECT_TRUE(lenient.OpenReadSection());
    EXPECT_EQ(lenient.ReadBytes(bytes, 8), 2);
    DataBuffer tooLong = BufferOf(RecordBuilder().I32(7).U8(1).U8(2).Get());
    EXPECT_FALSE(tooLong.OpenReadSection());

    // An inner length that claims too much still cannot reach past the enclosing section.
    DataBuffer nested = BufferOf(RecordBuilder().I32(6).I32(100).U8(1).U8(2).U8(0x55).Get());
    EXPECT_TRUE(nested.OpenReadSection());
    EXPECT_FALSE(nested.OpenReadSection());
    EXPECT_EQ(nested.ReadBytes(bytes, 8), 2);

    // The scope object closes only a section that opened successfully.
    DataBuffer bad = BufferOf(RecordBuilder().I32(-5).Get());
    {
        LocalSizedRead scope(bad);
        EXPECT_FALSE(scope.IsOpen());
    }
    EXPECT_EQ(bad.GetSectionDepth(), 1);
}

TEST(DataBufferSections, ASectionWithoutItsFourLengthBytesIsEmpty)
{
    DataBuffer b = BufferOf({1, 2});
    EXPECT_TRUE(b.OpenReadSection());
    EXPECT_EQ(b.GetPos(), 6);
    uint8_t byte = 0xEE;
    EXPECT_FALSE(b.ReadByte(byte));
    EXPECT_EQ(byte, 0);
    EXPECT_TRUE(b.OpenReadSection()); // nested inside an empty one: empty too
    EXPECT_EQ(b.CloseReadSection(), 0);
    EXPECT_EQ(b.CloseReadSection(), 0);
}

TEST(DataBufferReads, ValuesCutShortReadAsZeroAndConsumeWhatWasThere)
{
    DataBuffer b = BufferOf({1, 2, 3});
    int32_t value = -1;
    EXPECT_FALSE(b.ReadInt32(value));
    EXPECT_EQ(value, 0);
    EXPECT_EQ(b.GetPos(), 7);

    b.SetPos(0);
    uint8_t raw[5] = {};
    EXPECT_EQ(b.ReadBytes(raw, 5), 3);
    EXPECT_EQ(raw[2], 3);

    // Pairs read field by field: a whole x and a missing y.
    DataBuffer pair = BufferOf(RecordBuilder().I32(9).U8(1).U8(1).Get());
    TamPoint point(5, 5);
    EXPECT_FALSE(pair.ReadPoint(point));
    EXPECT_EQ(point, TamPoint(9, 0));

    // A string whose count is missing has count 0: the empty string, read successfully.
    DataBuffer noCount = BufferOf({1, 0});
    SString text("kept");
    EXPECT_TRUE(noCount.ReadString(text));
    EXPECT_EQ(text, "");
}

TEST(DataBufferStrings, CountsOverTheLimitFailAndLeaveTheString)
{
    SString text("kept");
    DataBuffer b = BufferOf(RecordBuilder().Str("abc").Get());
    EXPECT_FALSE(b.ReadString(text, 2));
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(b.GetPos(), 8); // the count was consumed
    b.SetPos(0);
    EXPECT_TRUE(b.ReadString(text, 3));
    EXPECT_EQ(text, "abc");

    DataBuffer negative = BufferOf(RecordBuilder().I32(-3).U8('a').Get());
    EXPECT_FALSE(negative.ReadString(text));
    EXPECT_EQ(text, "abc");

    DataBuffer cut = BufferOf(RecordBuilder().U32(5).U8('a').U8('b').Get());
    EXPECT_FALSE(cut.ReadString(text));
    EXPECT_EQ(text, "");
    EXPECT_EQ(cut.GetPos(), 10);
}

TEST(DataBufferStrings, TheBudgetLimitsTextReadAndWritten)
{
    DataBuffer w;
    w.SetStringBudget(5);
    EXPECT_TRUE(w.WriteString("abc"));
    EXPECT_EQ(w.GetStringBudget(), 2);
    EXPECT_FALSE(w.WriteString("abc"));
    EXPECT_EQ(w.GetContentSize(), 7);
    EXPECT_TRUE(w.WriteString("ab"));
    EXPECT_EQ(w.GetStringBudget(), 0);

    w.SetPos(0);
    w.SetStringBudget(4);
    SString text;
    EXPECT_TRUE(w.ReadString(text));
    EXPECT_FALSE(w.ReadString(text));
    EXPECT_EQ(text, "abc");
    EXPECT_EQ(w.GetStringBudget(), 1);
    w.SetStringBudget(DATABUFFER_NO_BUDGET);
    w.SetPos(11); // the refused read consumed the count
    EXPECT_TRUE(w.ReadString(text));
    EXPECT_EQ(text, "ab");
}

TEST(DataBufferStrings, TextThatIsUtf8IsMarked)
{
    DataBuffer b;
    b.WriteString("a\xC3\xA9");
    b.WriteString("\xC3(");
    b.SetPos(0);
    SString text;
    b.ReadString(text);
    EXPECT_TRUE(text.IsUTF8());
    b.ReadString(text);
    EXPECT_FALSE(text.IsUTF8());
}

TEST(DataBufferCopies, CopiesShareTheArrayUntilOneWrites)
{
    DataBuffer a;
    a.WriteInt32(1);
    DataBuffer b(a);
    b.WriteInt32(2);
    a.WriteByte(3);
    EXPECT_EQ(Content(a), ByteVec({1, 0, 0, 0, 3}));
    EXPECT_EQ(Content(b), ByteVec({1, 0, 0, 0, 2, 0, 0, 0}));

    DataBuffer c;
    c = b;
    DataBuffer d(std::move(c));
    EXPECT_EQ(c.GetContentSize(), 0);
    d.SetPos(0);
    int32_t value;
    d.ReadInt32(value);
    EXPECT_EQ(value, 1);
    c = std::move(d);
    EXPECT_EQ(c.GetPos(), 8);
    EXPECT_EQ(Content(b), ByteVec({1, 0, 0, 0, 2, 0, 0, 0}));
}

TEST(DataBufferBytes, TheStoredFormReadsBack)
{
    DataBuffer a;
    a.WriteString("layout");
    a.WriteInt32(42);
    DataBuffer b;
    b.WriteByte(9);
    b.OpenWriteSection();
    const ByteVec stored = a.GetBytes();
    EXPECT_TRUE(b.SetBytes(stored.data(), stored.size()));
    EXPECT_EQ(b.GetPos(), DATABUFFER_CONTENT_START);
    EXPECT_EQ(b.GetSectionDepth(), 0);
    EXPECT_EQ(b.GetBytes(), stored);

    const ByteVec longer = {5, 0, 0, 0, 1, 2};
    EXPECT_FALSE(b.SetBytes(longer.data(), longer.size()));
    EXPECT_EQ(Content(b), ByteVec({1, 2}));
    const ByteVec shorter = {1, 0, 0, 0, 1, 2};
    EXPECT_FALSE(b.SetBytes(shorter.data(), shorter.size()));
    EXPECT_EQ(Content(b), ByteVec({1}));
    EXPECT_FALSE(b.SetBytes(shorter.data(), 3));
    EXPECT_EQ(b.GetBytes(), ByteVec({0, 0, 0, 0}));
}

TEST(DataBufferThreads, WritesFromSeveralThreadsAreNeverLost)
{
    constexpr int kThreads = 4;
    constexpr int kRounds = 2000;
    DataBuffer shared;
    shared.WriteInt32(-1);
    const DataBuffer snapshot(shared);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < kRounds; ++i) {
                shared.WriteInt32(t);
                DataBuffer copy(snapshot);
                copy.WriteInt32(t);
                ASSERT_EQ(copy.GetContentSize(), 8);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(shared.GetContentSize(), 4 * (1 + kThreads * kRounds));
    shared.SetPos(8);
    int counts[kThreads] = {};
    int32_t value;
    while (shared.ReadInt32(value))
        ++counts[value];
    for (int count : counts)
        EXPECT_EQ(count, kRounds);
    EXPECT_EQ(snapshot.GetContentSize(), 4);
}
