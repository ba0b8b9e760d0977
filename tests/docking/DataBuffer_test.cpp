#include "DockingTestUtil.hpp"

#include <thread>
#include <tuple>

using namespace vesk;
using namespace vesk::test;

TEST(DataBufferFormat, TypedValuesAreLittleEndianAfterTheContentLength)
{
    DataBuffer b;
    EXPECT_EQ(b.GetBytes(), ByteVec({0, 0, 0, 0}));
    b.WriteInt32(-2);
    b.WriteByte(0xAB);
    b.WriteDouble(1.5);
    b.WritePoint(TamPoint(256, 7));
    b.WriteRect(CRectangle(1, 2, 3, RECT_EMPTY));
    b.WriteString("ab");
    const ByteVec expected = {43, 0, 0, 0,                   // content length
                              0xFE, 0xFF, 0xFF, 0xFF, 0xAB, // -2, byte
                              0, 0, 0, 0, 0, 0, 0xF8, 0x3F, // 1.5
                              0, 1, 0, 0, 7, 0, 0, 0,       // point
                              1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0, 0, 0, 0, 0x80,
                              2, 0, 0, 0, 'a', 'b'};
    EXPECT_EQ(b.GetBytes(), expected);

    b.SetPos(0); // kept at the first content byte
    int32_t i;
    uint8_t byte;
    double d;
    TamPoint point;
    CRectangle rect;
    SString text;
    EXPECT_TRUE(b.ReadInt32(i) && b.ReadByte(byte) && b.ReadDouble(d) && b.ReadPoint(point) && b.ReadRect(rect) &&
                b.ReadString(text));
    EXPECT_EQ(std::make_tuple(i, byte, d, point, rect, text),
              std::make_tuple(-2, uint8_t(0xAB), 1.5, TamPoint(256, 7), CRectangle(1, 2, 3, RECT_EMPTY), SString("ab")));
    {
        LocalWriteJump jump(b, DATABUFFER_CONTENT_START);
        b.WriteByte(2);
    }
    EXPECT_EQ(b.GetPos(), 47);
    EXPECT_EQ(Content(b)[0], 2);
}

TEST(DataBufferGrowth, ArraysGrowByHalfPlusFifteenUpToTheLimit)
{
    const ByteVec fill(300, 0x11);
    DataBuffer b;
    b.WriteByte(1);
    EXPECT_EQ(b.GetCapacity(), 192); // the smallest array
    b.WriteBytes(fill.data(), 187);
    b.WriteByte(2); // 193 needed: 193 * 3 / 2 + 15 = 304
    EXPECT_EQ(b.GetCapacity(), 304);

    DataBuffer over;
    EXPECT_EQ(over.WriteBytes(fill.data(), DATABUFFER_LIMIT + 1), 0);
    EXPECT_FALSE(over.HasError());
    // Within the single-write limit, but the array would pass it with the length in front.
    EXPECT_EQ(over.WriteBytes(fill.data(), DATABUFFER_LIMIT), 0);
    EXPECT_TRUE(over.HasError());
    EXPECT_FALSE(over.WriteByte(1));
    EXPECT_TRUE(over.OpenWriteSection() && over.CloseWriteSection()); // closing clears the flag
    EXPECT_TRUE(over.WriteByte(1));
    EXPECT_EQ(Content(over), ByteVec({1}));
}

TEST(DataBufferSections, EightAtMostAndBadLengths)
{
    DataBuffer deep;
    for (int i = 0; i < DATABUFFER_MAX_SECTIONS; ++i)
        deep.OpenWriteSection();
    EXPECT_FALSE(deep.OpenWriteSection());
    while (deep.CloseWriteSection())
        continue;
    EXPECT_EQ(Content(deep)[0], 28);
    for (deep.SetPos(0); deep.GetSectionDepth() < DATABUFFER_MAX_SECTIONS;)
        deep.OpenReadSection();
    EXPECT_FALSE(deep.OpenReadSection());
    EXPECT_EQ(deep.GetPos(), 36); // the refused one read nothing

    uint8_t bytes[8];
    DataBuffer negative = BufferOf(RecordBuilder().I32(-1).U8(1).Get());
    EXPECT_FALSE(negative.OpenReadSection());
    EXPECT_EQ(negative.ReadBytes(bytes, 1), 0); // entered anyway, with nothing in it
    EXPECT_EQ(negative.CloseReadSection(), 0);
    EXPECT_EQ(negative.ReadBytes(bytes, 1), 1);
    // A length may pass the remaining bytes by 4; an inner one never reaches past the outer.
    EXPECT_TRUE(BufferOf(RecordBuilder().I32(6).U8(1).U8(2).Get()).OpenReadSection());
    EXPECT_FALSE(BufferOf(RecordBuilder().I32(7).U8(1).U8(2).Get()).OpenReadSection());
    DataBuffer nested = BufferOf(RecordBuilder().I32(7).I32(100).U8(1).U8(2).U8(3).U8(0x55).Get());
    nested.OpenReadSection();
    EXPECT_FALSE(nested.OpenReadSection());
    EXPECT_EQ(nested.ReadBytes(bytes, 1), 1);
    {
        LocalSizedRead failed(nested);
        EXPECT_TRUE(failed.IsOpen()); // no full length left: an empty section
    }
    EXPECT_EQ(nested.GetSectionDepth(), 2); // the failed section is never closed
    EXPECT_EQ(nested.CloseReadSection(), 0);
    EXPECT_EQ(nested.CloseReadSection(), 0);
    EXPECT_TRUE(nested.ReadByte(bytes[0]) && bytes[0] == 0x55);
}

TEST(DataBufferReads, ValuesAndStringsCutShortAndTheBudget)
{
    int32_t value = -1;
    TamPoint point(5, 5);
    DataBuffer b = BufferOf(RecordBuilder().I32(9).U8(1).U8(2).Get());
    EXPECT_FALSE(b.ReadPoint(point)); // fields one by one: a whole x, a missing y
    EXPECT_EQ(point, TamPoint(9, 0));
    EXPECT_EQ(b.GetPos(), 10);
    EXPECT_FALSE(b.ReadInt32(value));
    EXPECT_EQ(value, 0);

    SString text("kept");
    DataBuffer strings = BufferOf(RecordBuilder().I32(-3).Str("a\xC3\xA9").Str("abc").U32(5).U8('a').Get());
    strings.SetStringBudget(5);
    EXPECT_FALSE(strings.ReadString(text)); // negative count
    EXPECT_TRUE(strings.ReadString(text) && text.IsUTF8());
    EXPECT_FALSE(strings.ReadString(text)); // over the budget of 2 left
    EXPECT_EQ(text, "a\xC3\xA9");
    strings.SetStringBudget(DATABUFFER_NO_BUDGET);
    strings.SetPos(22);
    EXPECT_FALSE(strings.ReadString(text)); // 5 bytes announced, 1 there
    EXPECT_EQ(text, "");
    EXPECT_TRUE(strings.ReadString(text)); // a missing count is 0

    DataBuffer w;
    w.SetStringBudget(5);
    EXPECT_TRUE(w.WriteString("abc"));
    EXPECT_FALSE(w.WriteString("abc"));
    EXPECT_EQ(w.GetContentSize(), 7);
}

TEST(DataBufferCopies, CopiesShareUntilOneWritesAndTheStoredFormReadsBack)
{
    DataBuffer a;
    a.WriteInt32(1);
    DataBuffer b(a);
    b.WriteByte(2);
    a.WriteByte(3);
    EXPECT_EQ(Content(a), ByteVec({1, 0, 0, 0, 3}));
    EXPECT_EQ(Content(b), ByteVec({1, 0, 0, 0, 2}));

    b.OpenWriteSection();
    const ByteVec stored = a.GetBytes();
    EXPECT_TRUE(b.SetBytes(stored.data(), stored.size()));
    EXPECT_EQ(b.GetBytes(), stored);
    EXPECT_EQ(b.GetPos() + b.GetSectionDepth(), DATABUFFER_CONTENT_START);
    const ByteVec longer = {5, 0, 0, 0, 1, 2};
    EXPECT_FALSE(b.SetBytes(longer.data(), longer.size()));
    EXPECT_EQ(Content(b), ByteVec({1, 2}));
    EXPECT_FALSE(b.SetBytes(longer.data(), 3));
    EXPECT_EQ(b.GetBytes(), ByteVec({0, 0, 0, 0}));
}

TEST(DataBufferThreads, WritesFromSeveralThreadsAreNeverLost)
{
    constexpr int kThreads = 4;
    constexpr int kRounds = 2000;
    DataBuffer shared;
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < kRounds; ++i) {
                shared.WriteInt32(t);
                DataBuffer(shared).WriteInt32(t); // a copy writes to its own array
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    std::vector<int> counts(kThreads);
    int32_t value;
    for (shared.SetPos(0); shared.ReadInt32(value);)
        ++counts[size_t(value)];
    EXPECT_EQ(counts, std::vector<int>(kThreads, kRounds));
}
