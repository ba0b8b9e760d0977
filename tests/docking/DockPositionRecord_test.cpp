#include "DockingTestUtil.hpp"

#include "models/dockposition_check.hpp"

#include <random>
#include <sstream>

using namespace vesk;
using namespace vesk::test;

namespace {

// Name, size, margin side, neighbour count with the last neighbour's name and contact, pos
// and floating rectangle of a position.
std::string Summary(const DockPosition& p)
{
    const CRectangle& r = p.GetRectRecentFloat();
    const auto& n = p.GetNeighbourVec();
    std::ostringstream s;
    s << static_cast<const char*>(p.GetName()) << ' ' << p.GetSize().Width() << 'x' << p.GetSize().Height() << ' '
      << p.GetMarginAlign() << " n" << n.size() << (n.empty() ? "" : ":" + std::string(n.back().GetName()))
      << '/' << (n.empty() ? 0u : uint32_t(n.back().GetContact())) << ' ' << p.GetPos().x << ',' << p.GetPos().y << ' '
      << r.Left() << ',' << r.Top() << ',' << r.Right() << ',' << r.Bottom();
    return s.str();
}

// Name and size, then (for a storable size) margin side LEFT and the neighbour count.
RecordBuilder Head(const std::string& name, uint32_t count, int32_t cx = 300, int32_t cy = 200)
{
    RecordBuilder head = RecordBuilder().Str(name).I32(cx).I32(cy);
    return cx == 300 ? head.U32(CBRS_ALIGN_LEFT).U32(count) : head;
}

RecordBuilder Neighbour(const std::string& name, uint32_t contact = NCT_TOUCHING_SIDE)
{
    return RecordBuilder().Section(RecordBuilder().Str(name).U32(CBRS_ALIGN_TOP).U32(contact).U8(0).U8(1));
}

RecordBuilder PosRect(int32_t left = 0, int32_t right = 10, int32_t bottom = 90)
{
    return RecordBuilder().I32(7).I32(8).I32(left).I32(20).I32(right).I32(bottom);
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
    DataBuffer named, unnamed, oversized;
    p.WriteToDataBuffer(named);
    const ByteVec stored = Content(named);
    EXPECT_EQ(stored, ByteVec({68, 0, 0, 0,                                 // section length
                               3, 0, 0, 0, 'O', 'u', 't',                   // name
                               200, 0, 0, 0, 100, 0, 0, 0,                  // size
                               0, 0x10, 0, 0, 1, 0, 0, 0,                   // margin side LEFT, 1 neighbour
                               17, 0, 0, 0, 3, 0, 0, 0, 'G', 'F', 'S',      // its section length, name
                               0, 0x40, 0, 0, 3, 0, 0, 0, 0, 1,             // RIGHT, equal side, holder, free space
                               5, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF,          // pos
                               10, 0, 0, 0, 20, 0, 0, 0, 0x35, 1, 0, 0, 219, 0, 0, 0})); // floating rectangle
    // Without a name only pos and rectangle follow it; after a size the reader refuses, neither
    // margin side nor neighbours.
    p.SetName("");
    p.WriteToDataBuffer(unnamed);
    EXPECT_EQ(Content(unnamed), ByteVec({28, 0, 0, 0, 0, 0, 0, 0, 5, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 10, 0, 0, 0, 20,
                                         0, 0, 0, 0x35, 1, 0, 0, 219, 0, 0, 0}));
    p.SetName("P");
    p.SetSize(TamSize(33000, 100));
    p.WriteToDataBuffer(oversized);
    EXPECT_EQ(Content(oversized).size(), 4 + 5 + 8 + 24u);
}

TEST(DockPositionReader, LimitsAndWhatAFailedReadKeeps)
{
    const std::string n60(60, 'n');
    RecordBuilder n99 = Head("P", 99);
    for (int i = 0; i < 99; ++i)
        n99.Append(Neighbour("n" + std::to_string(i)));
    const std::tuple<RecordBuilder, bool, std::string> cases[] = {
        {Head(n60, 0).Append(PosRect()), true, n60 + " 300x200 4096 n0/0 7,8 0,20,10,90"},
        {Head(n60 + "n", 0).Append(PosRect()), false, "Prior 50x60 8192 n1:Old/3"},
        {Head("S", 0, 32999, 1).U32(CBRS_ALIGN_LEFT).U32(0).Append(PosRect()), true, "S 32999x1 4096 n0/0 7,8"},
        {Head("S", 0, 33000, 5).Append(PosRect()), false, "S 33000x5 8192 n1:Old/3 7,8 0,20,10,90"},
        {Head("S", 0, 5, 0).Append(PosRect()), false, "S 5x0 8192 n1:Old/3 7,8 0,20,10,90"},
        {RecordBuilder(n99.Get()).Append(PosRect()), true, "P 300x200 4096 n99:n98/1 7,8"},
        {Head("P", 100).Append(Neighbour("a")), false, "P 300x200 4096 n0/0"},
        {Head("P", 3).Append(Neighbour("a")).Append(Neighbour("b", 4)).Append(Neighbour("c")), false,
         "P 300x200 4096 n2:b/4"}, // the failing neighbour is kept as read
        // Without a name only pos and a floating rectangle over 10 wide are taken.
        {RecordBuilder().Str("").Append(PosRect(0, 9)), true, "Prior 50x60 8192 n1:Old/3 7,8 1,1,100,100"},
        {RecordBuilder().Str("").Append(PosRect(0, 10, RECT_EMPTY)), true, "Prior 50x60 8192 n1:Old/3 7,8 1,1,100,100"},
        {RecordBuilder().Str("").Append(PosRect(-1, INT32_MAX)), true, "Prior 50x60 8192 n1:Old/3 7,8 1,1,100,100"},
        {RecordBuilder().Str("").I32(7), true, "Prior 50x60 8192 n1:Old/3 7,0 1,1,100,100"},
        // Fields appended by a later version, to a neighbour and to the position, are skipped.
        {Head("P", 2)
             .Section(RecordBuilder().Str("a").U32(CBRS_ALIGN_TOP).U32(NCT_EQUAL_SIDE).U8(0).U8(0).U32(0xBEEF))
             .Append(Neighbour("b"))
             .Append(PosRect())
             .Str("later"),
         true, "P 300x200 4096 n2:b/1 7,8 0,20,10,90"},
    };
    for (const auto& [body, read, summary] : cases) {
        DataBuffer b = BufferOf(RecordBuilder().Section(body).U8(0x5A).Get());
        DockPosition p;
        p.SetName("Prior");
        p.SetSize(TamSize(50, 60));
        p.SetMarginAlign(CBRS_ALIGN_TOP);
        p.AddNeighbour("Old", CBRS_ALIGN_LEFT, NCT_EQUAL_SIDE);
        p.SetRectRecentFloat(CRectangle(1, 1, 100, 100));
        EXPECT_EQ(p.ReadFromDataBuffer(b), read) << summary;
        EXPECT_EQ(Summary(p).substr(0, summary.size()), summary);
        uint8_t next = 0;
        EXPECT_TRUE(b.ReadByte(next) && next == 0x5A) << "section not skipped whole: " << summary;
    }
}

TEST(DockPositionRecord, RandomPositionsRoundTripAndDamagedRecordsReadSafely)
{
    std::mt19937 random(4711);
    auto pick = [&random](int32_t low, int32_t high) { return std::uniform_int_distribution<int32_t>(low, high)(random); };
    const DockPosition base;
    std::string failed;
    for (int run = 0; run < 300; ++run) {
        DockPosition p(base);
        p.SetName(std::string(size_t(pick(1, DOCK_NAME_LIMIT)), char(pick('A', 'z'))).c_str());
        p.SetSize(TamSize(pick(1, DOCK_SIZE_LIMIT - 1), pick(1, DOCK_SIZE_LIMIT - 1)));
        p.SetMarginAlign(uint32_t(pick(0, 0xF)) << 12);
        for (int i = pick(0, 5); i > 0; --i)
            p.SetNeighbour(std::to_string(pick(0, 99)).c_str(), std::string(1, "LRUDx"[pick(0, 4)]).c_str(),
                           NeighbourContactType(pick(0, 3)), pick(0, 1));
        p.SetPos(TamPoint(pick(INT32_MIN, INT32_MAX), pick(-1, 5000)));
        p.SetRectRecentFloat(CRectangle(pick(-3000, 0), pick(-100, 100), pick(10, 2000), pick(-100, 3000)));
        ASSERT_TRUE(dockposition_check::RoundTrip(p, base, failed)) << failed << " in run " << run;

        // A cut and overwritten record must not crash a reader, and what reads true round-trips.
        DataBuffer b;
        p.WriteToDataBuffer(b);
        ByteVec bytes = Content(b);
        bytes.resize(size_t(pick(0, int32_t(bytes.size()))));
        for (int i = pick(0, 3); i > 0 && !bytes.empty(); --i)
            bytes[size_t(pick(0, int32_t(bytes.size()) - 1))] = uint8_t(pick(0, 255));
        ASSERT_TRUE(dockposition_check::Run(bytes.data(), bytes.size(), failed)) << failed << " in run " << run;
    }
}
