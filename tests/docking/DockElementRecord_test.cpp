// Layout-tree records: bytes worked out by hand, the reader's rules and damaged input.
#include "DockingTestUtil.hpp"

#include "models/docklayout_check.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

using namespace vesk;
using namespace vesk::test;

namespace {

RecordBuilder F64(double v)
{
    uint64_t bits;
    std::memcpy(&bits, &v, sizeof bits);
    return RecordBuilder().U32(uint32_t(bits)).U32(uint32_t(bits >> 32));
}

// Format word, type and the base section of an element without relations.
RecordBuilder Base(uint32_t type, const CRectangle& r, uint32_t side, int32_t number, int32_t depth, uint8_t outer,
                   uint32_t relations = 0)
{
    return RecordBuilder().U32(1).U32(type).Section(RecordBuilder()
                                                       .I32(r.Left())
                                                       .I32(r.Top())
                                                       .I32(r.Right())
                                                       .I32(r.Bottom())
                                                       .U32(side)
                                                       .I32(number)
                                                       .I32(depth)
                                                       .U8(outer))
        .U32(relations);
}

ByteVec Write(const DockElement& el)
{
    DataBuffer buffer;
    EXPECT_EQ(el.WriteToDataBuffer(buffer), ERR_OK);
    return Content(buffer);
}

std::unique_ptr<DockElement> Read(const ByteVec& bytes)
{
    DataBuffer buffer = BufferOf(bytes);
    return DockElement::CreateFromDataBuffer(buffer);
}

} // namespace

TEST(DockElementRecord, WrittenBytes)
{
    FreeSpaceElement fs(CRectangle(0, 0, 100, 50), nullptr);
    EXPECT_EQ(Write(fs), Base(DET_FREE_SPACE, CRectangle(0, 0, 100, 50), 0, fs.GetNumber(), 0, 0)
                             .Section(RecordBuilder())
                             .Get());
    // The base section is 29 bytes long; the free space's own section is empty.
    EXPECT_EQ(Write(fs), ByteVec({1, 0, 0, 0, 1, 0, 0, 0, 29, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 100, 0, 0, 0, 50,
                                  0, 0, 0, 0, 0, 0, 0, uint8_t(fs.GetNumber()), uint8_t(fs.GetNumber() >> 8),
                                  uint8_t(fs.GetNumber() >> 16), uint8_t(fs.GetNumber() >> 24), 0, 0, 0, 0, 0, 0,
                                  0, 0, 0, 0, 0, 0, 0}));

    TestPane a("A", CRectangle(10, 20, 110, 220));
    DockPaneElement docked(&a);
    docked.SetIndex(7);
    docked.SetAutoHide(true);
    docked.SetNDepth(2);
    docked.SetNeighbourType(NT_TOP);
    docked.SetPreferOuterDock(true);
    const RecordBuilder dockedBytes = Base(DET_DOCK_PANE, CRectangle(10, 20, 110, 220), NT_TOP, docked.GetNumber(), 2, 1)
                                          .Section(RecordBuilder().U32(7))
                                          .Section(RecordBuilder().U8(1));
    EXPECT_EQ(Write(docked), dockedBytes.Get());

    FloatingPaneElement floating(&a);
    EXPECT_EQ(Write(floating), Base(DET_FLOATING_PANE, CRectangle(10, 20, 110, 220), 0, floating.GetNumber(), 0, 0)
                                   .Section(RecordBuilder().I32(-1))
                                   .Get());

    DockPosition pos;
    pos.SetName("A");
    pos.SetSize(TamSize(200, 100));
    pos.SetMarginAlign(CBRS_ALIGN_LEFT);
    pos.SetPos(TamPoint(5, 6));
    pos.SetRectRecentFloat(CRectangle(0, 0, 300, 200));
    HiddenPaneElement hidden(&a, pos);
    EXPECT_EQ(Write(hidden),
              Base(DET_HIDDEN_PANE, CRectangle(), 0, hidden.GetNumber(), 0, 0)
                  .Section(RecordBuilder().I32(-1))
                  .Section(RecordBuilder().Section(
                      RecordBuilder().Str("A").I32(200).I32(100).U32(CBRS_ALIGN_LEFT).U32(0).I32(5).I32(6).I32(0).I32(0).I32(300).I32(200)))
                  .Get());
}

TEST(DockElementRecord, HolderBytesRoundTrip)
{
    TestPane a("A", CRectangle(0, 0, 100, 200));
    TestPane b("B", CRectangle(105, 0, 305, 200));
    auto holder = Hold(Docked(a), Docked(b), 1);
    const DockElement& left = *holder->GetLeft();
    const DockElement& right = *holder->GetRight();
    const RecordBuilder leftBytes = Base(DET_DOCK_PANE, a.GetScreenRect(), 0, left.GetNumber(), 0, 0)
                                        .Section(RecordBuilder().I32(-1))
                                        .Section(RecordBuilder().U8(0));
    const RecordBuilder rightBytes = Base(DET_DOCK_PANE, b.GetScreenRect(), 0, right.GetNumber(), 0, 0)
                                         .Section(RecordBuilder().I32(-1))
                                         .Section(RecordBuilder().U8(0));
    const ByteVec bytes = Base(DET_HOLDER, CRectangle(0, 0, 305, 200), 0, holder->GetNumber(), 1, 0)
                              .U8(1)
                              .Append(leftBytes)
                              .U8(1)
                              .Append(rightBytes)
                              .Section(F64(100.0 / 300.0))
                              .Get();
    EXPECT_EQ(Write(*holder), bytes);

    // Read back, the children hang under the holder and write the same bytes. (Random trees
    // with relations round-trip in RandomBytesNeverBreakTheRoundTrip.)
    const std::unique_ptr<DockElement> back = Read(bytes);
    ASSERT_TRUE(back);
    const auto& h = static_cast<const HolderElement&>(*back);
    EXPECT_EQ(h.GetLeft()->GetParent(), back.get());
    EXPECT_EQ(Write(*back), bytes);
}

TEST(DockElementRecord, HolderWithOnlyARightChildReadsItAsItsLeft)
{
    TestPane b("B", CRectangle(105, 0, 305, 200));
    auto holder = Hold(nullptr, Docked(b));
    const DockElement& right = *holder->GetRight();
    const ByteVec rightBytes = Write(right);
    const ByteVec bytes = Write(*holder);
    // One flag byte, then the right child's record, then the fraction's section.
    ByteVec expected = Base(DET_HOLDER, b.GetScreenRect(), 0, holder->GetNumber(), 0, 0).U8(1).Get();
    expected.insert(expected.end(), rightBytes.begin(), rightBytes.end());
    // The missing left child counts as 10 pixels tall in a stacked holder of 200.
    EXPECT_EQ(holder->GetLeftFract(), 10.0 / 195.0);
    const ByteVec fract = RecordBuilder().Section(F64(10.0 / 195.0)).Get();
    expected.insert(expected.end(), fract.begin(), fract.end());
    EXPECT_EQ(bytes, expected);

    const std::unique_ptr<DockElement> back = Read(bytes);
    ASSERT_TRUE(back);
    const auto& h = static_cast<const HolderElement&>(*back);
    ASSERT_NE(h.GetLeft(), nullptr);
    EXPECT_EQ(h.GetLeft()->GetNumber(), right.GetNumber());
    EXPECT_EQ(h.GetRight(), nullptr);
}

TEST(DockElementRecord, ReaderRefusesUnknownFormatsAndKinds)
{
    DataBuffer two = BufferOf(RecordBuilder().U32(2).U32(1).Get());
    EXPECT_EQ(DockElement::CreateFromDataBuffer(two), nullptr);
    EXPECT_EQ(two.GetPos(), DATABUFFER_CONTENT_START + 4);
    for (uint32_t type : {0u, 6u, 0xFFFFFFFFu}) {
        DataBuffer buffer = BufferOf(RecordBuilder().U32(1).U32(type).Get());
        EXPECT_EQ(DockElement::CreateFromDataBuffer(buffer), nullptr) << type;
        EXPECT_EQ(buffer.GetPos(), DATABUFFER_CONTENT_START + 8);
    }
    EXPECT_EQ(Read({}), nullptr);
}

TEST(DockElementRecord, DamageShowsAsMissingElements)
{
    FreeSpaceElement fs(CRectangle(0, 0, 10, 10), nullptr);
    const ByteVec relation = Write(fs);
    // Three relations, the middle one with a bad format word: it is skipped.
    const ByteVec bytes = Base(DET_FREE_SPACE, CRectangle(), 0, 9, 0, 0, 3)
                              .Append(RecordBuilder(relation))
                              .U32(2)
                              .Append(RecordBuilder(relation))
                              .Section(RecordBuilder())
                              .Get();
    const std::unique_ptr<DockElement> el = Read(bytes);
    ASSERT_TRUE(el);
    EXPECT_EQ(el->GetRelations().size(), 2u);
    EXPECT_EQ(el->GetNumber(), 9);

    // A huge count with one record and nothing more reads that one; a negative count none.
    const ByteVec huge = Base(DET_FREE_SPACE, CRectangle(), 0, 9, 0, 0, 0x7FFFFFFF).Append(RecordBuilder(relation)).Get();
    EXPECT_EQ(Read(huge)->GetRelations().size(), 1u);
    const ByteVec negative = Base(DET_FREE_SPACE, CRectangle(), 0, 9, 0, 0, 0x80000000u).Append(RecordBuilder(relation)).Get();
    EXPECT_EQ(Read(negative)->GetRelations().size(), 0u);

    // A later version's extra field in the base section is skipped.
    const ByteVec longer = RecordBuilder()
                               .U32(1)
                               .U32(DET_FREE_SPACE)
                               .Section(RecordBuilder().I32(1).I32(2).I32(3).I32(4).U32(0).I32(5).I32(0).U8(0).U32(77))
                               .U32(0)
                               .Section(RecordBuilder())
                               .Get();
    const std::unique_ptr<DockElement> newer = Read(longer);
    ASSERT_TRUE(newer);
    EXPECT_EQ(newer->GetRect(), CRectangle(1, 2, 3, 4));
    EXPECT_EQ(newer->GetNumber(), 5);

    // Holders nested far too deep read down to the nesting limit and no further.
    RecordBuilder deep;
    for (int i = 0; i < 5000; ++i)
        deep.Append(Base(DET_HOLDER, CRectangle(), 0, i, 0, 0)).U8(1);
    std::unique_ptr<DockElement> chain = Read(deep.Get());
    int depth = 0;
    for (const DockElement* h = chain.get(); h; h = static_cast<const HolderElement*>(h)->GetLeft())
        ++depth;
    EXPECT_EQ(depth, DOCK_ELEMENT_MAX_NESTING);
}

TEST(DockElementRecord, RandomBytesNeverBreakTheRoundTrip)
{
    // The fuzz body over written trees with random damage.
    TestPane a("A", CRectangle(0, 0, 100, 200));
    TestPane b("B", CRectangle(105, 0, 305, 200));
    TestPane c("C", CRectangle(0, 205, 305, 300));
    auto tree = Hold(Hold(Docked(a), Docked(b)), Docked(c));
    tree->AddRelation(FreeSpaceElement(CRectangle(310, 0, 900, 300), nullptr).Duplicate(false).get(), false);
    DataBuffer buffer;
    tree->WriteToDataBuffer(buffer);
    HiddenPaneElement(&a, DockPosition()).WriteToDataBuffer(buffer);
    const ByteVec clean = Content(buffer);
    std::string failed;
    ASSERT_TRUE(docklayout_check::Run(clean.data(), clean.size(), failed)) << failed;
    std::mt19937 rng(19);
    for (int i = 0; i < 3000; ++i) {
        ByteVec damaged = clean;
        for (int n = 0; n < 1 + i % 4; ++n)
            damaged[rng() % damaged.size()] = uint8_t(rng());
        damaged.resize(damaged.size() - rng() % 8);
        ASSERT_TRUE(docklayout_check::Run(damaged.data(), damaged.size(), failed)) << failed << " at " << i;
    }
}
