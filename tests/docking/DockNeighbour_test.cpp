#include "DockingTestUtil.hpp"

using namespace vesk;
using namespace vesk::test;

TEST(DockNeighbourText, DumpTextsAndSideFallbacks)
{
    EXPECT_EQ(DockNeighbour("Output", CBRS_ALIGN_RIGHT, NCT_EQUAL_SIDE).GetStr(),
              "Output, Algn=CBRS_ALIGN_RIGHT, contact=NCT_EQUAL_SIDE, holder=0, freeSE=0");
    EXPECT_EQ(DockNeighbour("GFS", CBRS_ALIGN_TOP, NCT_JUSTIFIED_SIDE, true, true).GetStr(),
              "GFS, Algn=CBRS_ALIGN_TOP , contact=NCT_JUSTIFIED_SIDE, holder=1, freeSE=1");
    EXPECT_EQ(DockNeighbour("", 0x3000, NeighbourContactType(4)).GetStr(),
              ", Algn=CBRS_??, contact=NCT_??, holder=0, freeSE=0");
    EXPECT_EQ(ImpAlignToNeighbourType(CBRS_NOALIGN), NT_RIGHT);
    EXPECT_EQ(ImpNeighbourTypeToAlign(NT_NONE), CBRS_ALIGN_LEFT);
    EXPECT_EQ(DockNeighbour("a", CBRS_NOALIGN).GetAlignSideLen(TamSize(200, 30)), 200);
}

TEST(DockNeighbourRecord, ReaderRulesAndSkippedTrailingFields)
{
    auto record = [](const std::string& name, uint32_t contact) {
        return RecordBuilder().Str(name).U32(CBRS_ALIGN_BOTTOM).U32(contact).U8(1).U8(1);
    };
    const std::string sixty(60, 'n');
    const std::pair<RecordBuilder, bool> cases[] = {
        {record(sixty, NCT_NONE), true},
        {record(sixty + "n", NCT_NONE), false},
        {RecordBuilder().U32(8).U8('a'), false}, // name cut short
        {record("P", 4), false},
        {record("P", 0xFFFFFFFF), false},
        {record("P", NCT_EQUAL_SIDE).U32(77).U8(1), true}, // a later version's extra fields
    };
    for (const auto& [body, read] : cases) {
        DataBuffer b = BufferOf(RecordBuilder().Section(body).U8(0x5A).Get());
        DockNeighbour n;
        EXPECT_EQ(n.ReadFromDataBuffer(b), read);
        EXPECT_EQ(n.IsHolder(), read);
        uint8_t next;
        EXPECT_TRUE(b.ReadByte(next) && next == 0x5A); // the section was skipped whole
    }
    // An unknown contact stops the read half-way: name, side and contact are set.
    DataBuffer b = BufferOf(RecordBuilder().Section(record("P", 4)).Get());
    DockNeighbour n;
    n.ReadFromDataBuffer(b);
    EXPECT_EQ(n, DockNeighbour("P", CBRS_ALIGN_BOTTOM, NeighbourContactType(4)));
}
