#include "DockingTestUtil.hpp"

using namespace vesk;
using namespace vesk::test;

namespace {

// A stored neighbour with the given fields.
RecordBuilder NeighbourRecord(const std::string& name, uint32_t align, uint32_t contact, uint8_t holder = 0,
                              uint8_t freeSpace = 0)
{
    return RecordBuilder().Str(name).U32(align).U32(contact).U8(holder).U8(freeSpace);
}

} // namespace

TEST(DockNeighbourText, DumpTextsFollowTheFixedForms)
{
    EXPECT_EQ(DockNeighbour("Output", CBRS_ALIGN_RIGHT, NCT_EQUAL_SIDE).GetStr(),
              "Output, Algn=CBRS_ALIGN_RIGHT, contact=NCT_EQUAL_SIDE, holder=0, freeSE=0");
    EXPECT_EQ(DockNeighbour("GFS", CBRS_ALIGN_TOP, NCT_JUSTIFIED_SIDE, true, true).GetStr(),
              "GFS, Algn=CBRS_ALIGN_TOP , contact=NCT_JUSTIFIED_SIDE, holder=1, freeSE=1");
    EXPECT_EQ(DockNeighbour().GetStr(), ", Algn=CBRS_NOALIGN, contact=NCT_NONE, holder=0, freeSE=0");

    EXPECT_EQ(ImpAlignStr(CBRS_ALIGN_LEFT), "CBRS_ALIGN_LEFT");
    EXPECT_EQ(ImpAlignStr(CBRS_ALIGN_BOTTOM), "CBRS_ALIGN_BOTTOM");
    EXPECT_EQ(ImpAlignStr(CBRS_ALIGN_ANY), "CBRS_ALIGN_ANY");
    EXPECT_EQ(ImpAlignStr(0x3000), "CBRS_??");
    EXPECT_EQ(ImpContactStr(NCT_TOUCHING_SIDE), "NCT_TOUCHING_SIDE");
    EXPECT_EQ(ImpContactStr(NeighbourContactType(4)), "NCT_??");
}

TEST(DockNeighbourText, SidesConvertWithLeftAndRightAsFallbacks)
{
    EXPECT_EQ(ImpAlignToNeighbourType(CBRS_ALIGN_LEFT), NT_LEFT);
    EXPECT_EQ(ImpAlignToNeighbourType(CBRS_ALIGN_TOP), NT_TOP);
    EXPECT_EQ(ImpAlignToNeighbourType(CBRS_ALIGN_BOTTOM), NT_BOTTOM);
    EXPECT_EQ(ImpAlignToNeighbourType(CBRS_ALIGN_RIGHT), NT_RIGHT);
    EXPECT_EQ(ImpAlignToNeighbourType(CBRS_NOALIGN), NT_RIGHT);
    EXPECT_EQ(ImpNeighbourTypeToAlign(NT_RIGHT), CBRS_ALIGN_RIGHT);
    EXPECT_EQ(ImpNeighbourTypeToAlign(NT_TOP), CBRS_ALIGN_TOP);
    EXPECT_EQ(ImpNeighbourTypeToAlign(NT_BOTTOM), CBRS_ALIGN_BOTTOM);
    EXPECT_EQ(ImpNeighbourTypeToAlign(NT_NONE), CBRS_ALIGN_LEFT);
    EXPECT_EQ(ImpNeighbourTypeToAlign(NeighbourType(9)), CBRS_ALIGN_LEFT);

    const TamSize size(200, 30);
    EXPECT_EQ(DockNeighbour("a", CBRS_ALIGN_TOP).GetAlignSideLen(size), 30);
    EXPECT_EQ(DockNeighbour("a", CBRS_ALIGN_BOTTOM).GetAlignSideLen(size), 30);
    EXPECT_EQ(DockNeighbour("a", CBRS_ALIGN_LEFT).GetAlignSideLen(size), 200);
    EXPECT_EQ(DockNeighbour("a", CBRS_NOALIGN).GetAlignSideLen(size), 200);
}

TEST(DockNeighbourRecord, WritesOneSectionOfNamePlusFourteenBytes)
{
    DataBuffer b;
    DockNeighbour("Output", CBRS_ALIGN_RIGHT, NCT_EQUAL_SIDE).WriteToDataBuffer(b);
    DockNeighbour("GFS", CBRS_ALIGN_TOP, NCT_JUSTIFIED_SIDE, true, true).WriteToDataBuffer(b);
    const ByteVec expected = {
        20, 0, 0, 0,                                        // section length 6 + 14
        6, 0, 0, 0, 'O', 'u', 't', 'p', 'u', 't',           // name
        0x00, 0x40, 0, 0, 3, 0, 0, 0, 0, 0,                 // right, equal side, no flags
        17, 0, 0, 0,                                        // section length 3 + 14
        3, 0, 0, 0, 'G', 'F', 'S', 0x00, 0x20, 0, 0, 2, 0, 0, 0, 1, 1};
    EXPECT_EQ(Content(b), expected);

    b.SetPos(0);
    DockNeighbour first;
    DockNeighbour second;
    EXPECT_TRUE(first.ReadFromDataBuffer(b));
    EXPECT_TRUE(second.ReadFromDataBuffer(b));
    EXPECT_EQ(first, DockNeighbour("Output", CBRS_ALIGN_RIGHT, NCT_EQUAL_SIDE));
    EXPECT_EQ(second, DockNeighbour("GFS", CBRS_ALIGN_TOP, NCT_JUSTIFIED_SIDE, true, true));
}

TEST(DockNeighbourRecord, NamesUpToSixtyBytesAreRead)
{
    const std::string sixty(60, 'n');
    DockNeighbour n;
    DataBuffer fits = BufferOf(RecordBuilder().Section(NeighbourRecord(sixty, CBRS_ALIGN_LEFT, 1)).Get());
    EXPECT_TRUE(n.ReadFromDataBuffer(fits));
    EXPECT_EQ(n.GetName().Len(), 60u);
    EXPECT_EQ(fits.GetContentSize() + DATABUFFER_CONTENT_START, fits.GetPos());

    DockNeighbour tooLong;
    DataBuffer over = BufferOf(RecordBuilder().Section(NeighbourRecord(sixty + "n", CBRS_ALIGN_LEFT, 1)).Get());
    EXPECT_FALSE(tooLong.ReadFromDataBuffer(over));
    EXPECT_EQ(tooLong, DockNeighbour());
    EXPECT_EQ(over.GetContentSize() + DATABUFFER_CONTENT_START, over.GetPos()); // section skipped

    DockNeighbour cut;
    DataBuffer shortName = BufferOf(RecordBuilder().Section(RecordBuilder().U32(8).U8('a')).Get());
    EXPECT_FALSE(cut.ReadFromDataBuffer(shortName));
}

TEST(DockNeighbourRecord, AContactOfFourOrMoreEndsTheReadHalfWay)
{
    for (uint32_t contact : {4u, 0xFFFFFFFFu}) {
        DockNeighbour n;
        DataBuffer b = BufferOf(RecordBuilder().Section(NeighbourRecord("P", CBRS_ALIGN_BOTTOM, contact, 1, 1)).U8(0x5A).Get());
        EXPECT_FALSE(n.ReadFromDataBuffer(b));
        EXPECT_EQ(n.GetName(), "P");
        EXPECT_EQ(n.GetAlign(), CBRS_ALIGN_BOTTOM);
        EXPECT_EQ(uint32_t(n.GetContact()), contact);
        EXPECT_FALSE(n.IsHolder());
        EXPECT_FALSE(n.IsFreeSpace());
        uint8_t next;
        b.ReadByte(next);
        EXPECT_EQ(next, 0x5A);
    }
}

TEST(DockNeighbourRecord, FieldsALaterVersionAppendsAreSkipped)
{
    DockNeighbour n;
    DataBuffer b = BufferOf(RecordBuilder()
                                .Section(NeighbourRecord("P", CBRS_ALIGN_LEFT, 2, 0, 1).U32(77).U8(1))
                                .U8(0x5A)
                                .Get());
    EXPECT_TRUE(n.ReadFromDataBuffer(b));
    EXPECT_EQ(n, DockNeighbour("P", CBRS_ALIGN_LEFT, NCT_JUSTIFIED_SIDE, false, true));
    uint8_t next;
    b.ReadByte(next);
    EXPECT_EQ(next, 0x5A);
}
