#include "DockingTestUtil.hpp"

#include "../../fuzz/dockposition_check.hpp"

#include <random>

using namespace vesk;
using namespace vesk::test;

namespace {

// The record fields after the name of a position sized 300 x 200, margin-docked on the left.
RecordBuilder SizedBody(const std::string& name, uint32_t count)
{
    return RecordBuilder().Str(name).I32(300).I32(200).U32(CBRS_ALIGN_LEFT).U32(count);
}

RecordBuilder NeighbourRecord(const std::string& name, uint32_t contact = NCT_TOUCHING_SIDE)
{
    return RecordBuilder().Section(RecordBuilder().Str(name).U32(CBRS_ALIGN_TOP).U32(contact).U8(0).U8(1));
}

RecordBuilder PosAndRect(int32_t left, int32_t right)
{
    return RecordBuilder().I32(7).I32(8).I32(left).I32(20).I32(right).I32(90);
}

// A position with a name, size, margin side, neighbour, pos and floating rectangle of its own.
DockPosition Prior()
{
    DockPosition p;
    p.SetName("Prior");
    p.SetSize(TamSize(50, 60));
    p.SetMarginAlign(CBRS_ALIGN_TOP);
    p.AddNeighbour("Old", CBRS_ALIGN_LEFT, NCT_EQUAL_SIDE);
    p.SetPos(TamPoint(3, 3));
    p.SetRectRecentFloat(CRectangle(1, 1, 100, 100));
    return p;
}

// Reads `body` as one section into Prior(); checks that the whole section was consumed.
std::pair<bool, DockPosition> ReadBody(const RecordBuilder& body)
{
    DataBuffer b = BufferOf(RecordBuilder().Section(body).U8(0x5A).Get());
    DockPosition p = Prior();
    const bool read = p.ReadFromDataBuffer(b);
    uint8_t next = 0;
    EXPECT_TRUE(b.ReadByte(next) && next == 0x5A) << "section not skipped whole";
    return {read, p};
}

} // namespace

TEST(DockPositionRecord, WrittenBytes)
{
    DockPosition p;
    p.SetName("Out");
    p.SetSize(TamSize(200, 100));
    p.SetMarginAlign(CBRS_ALIGN_LEFT);
    p.AddNeighbour("GFS", CBRS_ALIGN_RIGHT, NCT_EQUAL_SIDE, false, true);
    p.SetPos(TamPoint(5, -1));
    p.SetRectRecentFloat(CRectangle(10, 20, 309, 219));
    DataBuffer b;
    p.WriteToDataBuffer(b);
    const ByteVec full = {
        68, 0, 0, 0,                                    // section length
        3, 0, 0, 0, 'O', 'u', 't',                      // name
        200, 0, 0, 0, 100, 0, 0, 0,                     // size
        0, 0x10, 0, 0, 1, 0, 0, 0,                      // margin side LEFT, one neighbour
        17, 0, 0, 0, 3, 0, 0, 0, 'G', 'F', 'S',         // neighbour section length, name
        0, 0x40, 0, 0, 3, 0, 0, 0, 0, 1,                // RIGHT, equal side, holder, free space
        5, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF,             // pos
        10, 0, 0, 0, 20, 0, 0, 0, 0x35, 1, 0, 0, 219, 0, 0, 0}; // floating rectangle
    EXPECT_EQ(Content(b), full);
    DockPosition back;
    b.SetPos(DATABUFFER_CONTENT_START);
    EXPECT_TRUE(back.ReadFromDataBuffer(b));
    EXPECT_EQ(back, p);

    // Without a name only pos and rectangle; with a size the reader refuses, no margin side
    // and neighbours.
    const ByteVec posAndRect(full.end() - 24, full.end());
    auto withPosAndRect = [&posAndRect](ByteVec head) {
        head.insert(head.end(), posAndRect.begin(), posAndRect.end());
        return head;
    };
    DataBuffer unnamed, oversized;
    p.SetName("");
    p.WriteToDataBuffer(unnamed);
    EXPECT_EQ(Content(unnamed), withPosAndRect({28, 0, 0, 0, 0, 0, 0, 0}));
    p.SetName("P");
    p.SetSize(TamSize(33000, 100));
    p.WriteToDataBuffer(oversized);
    EXPECT_EQ(Content(oversized), withPosAndRect({37, 0, 0, 0, 1, 0, 0, 0, 'P', 0xE8, 0x80, 0, 0, 100, 0, 0, 0}));
}

TEST(DockPositionReader, NameAndSizeLimits)
{
    const std::string sixty(60, 'n');
    auto [read, p] = ReadBody(SizedBody(sixty, 0).Append(PosAndRect(0, 10)));
    EXPECT_TRUE(read);
    EXPECT_EQ(p.GetName(), sixty.c_str());
    EXPECT_EQ(p.GetSize(), TamSize(300, 200));
    EXPECT_TRUE(p.GetNeighbourVec().empty());
    EXPECT_EQ(p.GetPos(), TamPoint(7, 8));

    std::tie(read, p) = ReadBody(SizedBody(sixty + "n", 0).Append(PosAndRect(0, 10)));
    EXPECT_FALSE(read);
    EXPECT_EQ(p.GetName(), "Prior");
    EXPECT_EQ(p.GetSize(), TamSize(50, 60));

    // A size outside 1..32999 is kept as read, the neighbours and margin side are not touched,
    // and pos and rectangle follow right after it.
    const std::pair<TamSize, bool> sizes[] = {{{32999, 1}, true},  {{33000, 5}, false}, {{5, 33000}, false},
                                              {{0, 5}, false},     {{5, -1}, false}};
    for (const auto& [size, good] : sizes) {
        RecordBuilder body = RecordBuilder().Str("S").I32(size.Width()).I32(size.Height());
        if (good)
            body.U32(CBRS_ALIGN_RIGHT).U32(0);
        std::tie(read, p) = ReadBody(body.Append(PosAndRect(0, 10)));
        EXPECT_EQ(read, good);
        EXPECT_EQ(p.GetName(), "S");
        EXPECT_EQ(p.GetSize(), size);
        EXPECT_EQ(p.GetNeighbourVec().size(), good ? 0u : 1u);
        EXPECT_EQ(p.GetMarginAlign(), good ? CBRS_ALIGN_RIGHT : CBRS_ALIGN_TOP);
        EXPECT_EQ(p.GetPos(), TamPoint(7, 8));
    }
}

TEST(DockPositionReader, NeighbourCountAndContactLimits)
{
    RecordBuilder many = SizedBody("P", 100);
    for (int i = 0; i < 99; ++i)
        many.Append(NeighbourRecord("n" + std::to_string(i)));
    auto [read, p] = ReadBody(RecordBuilder(many.Get()).Append(PosAndRect(0, 10)));
    EXPECT_FALSE(read); // 100 announced
    EXPECT_TRUE(p.GetNeighbourVec().empty());
    ByteVec bytes = many.Get();
    bytes[4 + 1 + 12] = 99; // the count after name, size and margin side
    std::tie(read, p) = ReadBody(RecordBuilder(bytes).Append(PosAndRect(0, 10)));
    EXPECT_TRUE(read);
    EXPECT_EQ(p.GetNeighbourVec().size(), 99u);
    EXPECT_EQ(p.GetNeighbourVec()[98], DockNeighbour("n98", CBRS_ALIGN_TOP, NCT_TOUCHING_SIDE, false, true));

    // A neighbour with an unknown contact ends the list, kept as far as it was read.
    std::tie(read, p) = ReadBody(SizedBody("P", 3)
                                     .Append(NeighbourRecord("a"))
                                     .Append(NeighbourRecord("b", 4))
                                     .Append(NeighbourRecord("c"))
                                     .Append(PosAndRect(0, 10)));
    EXPECT_FALSE(read);
    const std::vector<DockNeighbour> kept = {DockNeighbour("a", CBRS_ALIGN_TOP, NCT_TOUCHING_SIDE, false, true),
                                             DockNeighbour("b", CBRS_ALIGN_TOP, NeighbourContactType(4))};
    EXPECT_EQ(p.GetNeighbourVec(), kept);
}

TEST(DockPositionReader, UnnamedRecordsAndFloatingRectangles)
{
    // Without a name only pos and a wide enough rectangle change.
    const std::tuple<int32_t, int32_t, int32_t, bool> rects[] = {
        {0, 9, 90, false}, {0, 10, 90, true}, {0, 10, RECT_EMPTY, false}, {-1, INT32_MAX, 90, false}};
    for (const auto& [left, right, bottom, taken] : rects) {
        auto [read, p] = ReadBody(RecordBuilder().Str("").I32(7).I32(8).I32(left).I32(20).I32(right).I32(bottom));
        EXPECT_TRUE(read);
        DockPosition expected(p); // a copy, like p, so the minimum sizes agree
        expected = Prior();
        expected.SetPos(TamPoint(7, 8));
        if (taken)
            expected.SetRectRecentFloat(CRectangle(left, 20, right, bottom));
        EXPECT_EQ(p, expected) << left << ".." << right;
    }
    // A record cut short reads what is there; missing coordinates are 0.
    auto [read, p] = ReadBody(RecordBuilder().Str("").I32(7));
    EXPECT_TRUE(read);
    EXPECT_EQ(p.GetPos(), TamPoint(7, 0));
    EXPECT_EQ(p.GetRectRecentFloat(), CRectangle(1, 1, 100, 100));
}

TEST(DockPositionReader, FieldsAddedByLaterVersionsAreSkipped)
{
    const RecordBuilder longerNeighbour = RecordBuilder().Section(
        RecordBuilder().Str("a").U32(CBRS_ALIGN_RIGHT).U32(NCT_EQUAL_SIDE).U8(1).U8(0).U32(0xDEADBEEF).Str("new"));
    const RecordBuilder body =
        SizedBody("P", 2).Append(longerNeighbour).Append(NeighbourRecord("b")).Append(PosAndRect(0, 10)).I32(-5).U8(9);
    auto [read, p] = ReadBody(body);
    EXPECT_TRUE(read);
    const std::vector<DockNeighbour> expected = {DockNeighbour("a", CBRS_ALIGN_RIGHT, NCT_EQUAL_SIDE, true),
                                                 DockNeighbour("b", CBRS_ALIGN_TOP, NCT_TOUCHING_SIDE, false, true)};
    EXPECT_EQ(p.GetNeighbourVec(), expected);
    EXPECT_EQ(p.GetRectRecentFloat(), CRectangle(0, 20, 10, 90));
}

TEST(DockPositionRecord, RandomPositionsRoundTripAndSurviveDamage)
{
    std::mt19937 random(4711);
    auto pick = [&random](int32_t low, int32_t high) {
        return std::uniform_int_distribution<int32_t>(low, high)(random);
    };
    const uint32_t aligns[] = {CBRS_NOALIGN, CBRS_ALIGN_LEFT, CBRS_ALIGN_TOP, CBRS_ALIGN_RIGHT, CBRS_ALIGN_BOTTOM};
    const DockPosition base;
    for (int run = 0; run < 300; ++run) {
        DockPosition p(base);
        p.SetName(std::string(size_t(pick(1, DOCK_NAME_LIMIT)), char(pick('A', 'z'))).c_str());
        p.SetSize(TamSize(pick(1, DOCK_SIZE_LIMIT - 1), pick(1, DOCK_SIZE_LIMIT - 1)));
        p.SetMarginAlign(aligns[pick(0, 4)]);
        for (int i = pick(0, 5); i > 0; --i)
            p.AddNeighbour(std::to_string(pick(0, 9999)).c_str(), aligns[pick(0, 4)], NeighbourContactType(pick(0, 3)),
                           pick(0, 1), pick(0, 1));
        p.SetPos(TamPoint(pick(INT32_MIN, INT32_MAX), pick(-1, 5000)));
        const int32_t left = pick(-3000, 3000);
        p.SetRectRecentFloat(CRectangle(left, pick(-100, 100), left + pick(10, 2000), pick(-100, 3000)));
        std::string failed;
        ASSERT_TRUE(dockposition_check::RoundTrip(p, base, failed)) << failed << " in run " << run;

        // Damaged copies of the record: readers must not crash, and what reads true round-trips.
        DataBuffer b;
        p.WriteToDataBuffer(b);
        ByteVec bytes = Content(b);
        bytes.resize(size_t(pick(0, int32_t(bytes.size()))));
        for (int i = pick(0, 3); i > 0 && !bytes.empty(); --i)
            bytes[size_t(pick(0, int32_t(bytes.size()) - 1))] = uint8_t(pick(0, 255));
        ASSERT_TRUE(dockposition_check::Run(bytes.data(), bytes.size(), failed)) << failed << " in run " << run;
    }
}
