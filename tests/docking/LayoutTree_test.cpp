// The layout tree of the layout model: holders built from splits, positions filled from the
// tree, and the tree docked again (also after a trip through its record) into a fresh model.
#include "DockingTestUtil.hpp"

#include "docking/layout/LayoutTree.hpp"
#include "models/layout_random.hpp"

#include <gtest/gtest.h>

#include <map>
#include <string>

using namespace vesk;
using namespace vesk::test;

namespace {

constexpr int kLayouts = layout_random::Count(2000);

const TamSize kFrame(1280, 960);

std::map<std::string, CRectangle> RectsByName(const LayoutModel& model)
{
    std::map<std::string, CRectangle> rects;
    for (const LayoutPaneRect& p : model.GetSolution().panes)
        rects[std::string(p.pPane->GetName())] = p.pPane->GetScreenRect();
    return rects;
}

// Whether every pane is at least 10 pixels each way and every minimum is kept, so that the
// tree's adjacency tests see the layout as it is.
bool Roomy(const LayoutModel& model)
{
    const TamSize min = model.GetMinClientSize(model.GetDpi());
    if (min.Width() > model.GetClientSize().Width() || min.Height() > model.GetClientSize().Height())
        return false;
    for (const LayoutPaneRect& p : model.GetSolution().panes) {
        if (p.rect.cx < 10 || p.rect.cy < 10)
            return false;
    }
    return true;
}

// Docks the top-level elements, outermost band first, into `into`.
bool DockAll(const LayoutModel& from, DockElementVec& elements, LayoutModel& into, bool leftMost)
{
    LayoutDockingTarget target(into);
    DockNameSet done;
    bool ok = true;
    for (size_t k = 0; k < from.GetBandCount(); ++k) {
        const uint32_t align = LayoutAlignOfEdge(from.GetBand(k).eEdge);
        const CRectangle& r = elements[k]->GetRect();
        const bool sideways = align == CBRS_ALIGN_LEFT || align == CBRS_ALIGN_RIGHT;
        const int32_t length = sideways ? r.Right() - r.Left() : r.Bottom() - r.Top();
        ok = (leftMost ? elements[k]->DockLeftMost(target, done, align, length)
                       : elements[k]->DockDepthFirst(target, done, align, length)) &&
             ok;
    }
    return ok;
}

// Window indexes are the panes' places in a list.
struct IndexMap {
    std::vector<DockablePane*> panes;
    int32_t Map(void* data)
    {
        auto* query = static_cast<DockWindowIndexQuery*>(data);
        if (query->pPane) {
            for (size_t i = 0; i < panes.size(); ++i) {
                if (panes[i] == query->pPane)
                    query->nIndex = int32_t(i);
            }
        } else if (query->nIndex >= 0 && size_t(query->nIndex) < panes.size()) {
            query->pPane = panes[size_t(query->nIndex)];
        }
        return 0;
    }
};

// Holders agree with the model: the union of their children, and each child's share in pixels
// is its extent.
void CheckHolders(const DockElement* el, int seed)
{
    const auto* holder = dynamic_cast<const HolderElement*>(el);
    if (!holder)
        return;
    const CRectangle l = holder->GetLeft()->GetRect();
    const CRectangle r = holder->GetRight()->GetRect();
    ASSERT_EQ(holder->GetRect(), l.GetUnion(r)) << "seed " << seed;
    const bool horizontal = holder->IsHorizontal();
    ASSERT_EQ(horizontal, l.Top() == r.Top() && l.Bottom() == r.Bottom() && l.Right() < r.Left()) << "seed " << seed;
    ASSERT_EQ(holder->GetSideLenInPixel(holder->GetLeft()), horizontal ? l.Right() - l.Left() : l.Bottom() - l.Top());
    ASSERT_EQ(holder->GetSideLenInPixel(holder->GetRight()), horizontal ? r.Right() - r.Left() : r.Bottom() - r.Top());
    CheckHolders(holder->GetLeft(), seed);
    CheckHolders(holder->GetRight(), seed);
}

} // namespace

TEST(LayoutTree, RandomTreesMatchTheModelAndDockBackExactly)
{
    int checked = 0;
    for (int seed = 0; seed < kLayouts; ++seed) {
        std::mt19937 rng{uint32_t(seed)};
        LayoutModel model(kFrame, 96);
        model.SetOrigin(TamPoint(40, 30));
        layout_random::Build(model, rng, 3 + int(rng() % 10));
        if (!Roomy(model))
            continue;
        ++checked;
        DockElementVec elements = BuildDockElements(model);
        ASSERT_EQ(elements.size(), model.GetBandCount() + 1);
        for (const auto& el : elements)
            CheckHolders(el.get(), seed);

        // Sizing the panes from the fractions changes nothing.
        const LayoutSolution before = model.GetSolution();
        for (const auto& el : elements)
            el->ScaleChildsToFract();
        ASSERT_EQ(model.GetSolution(), before) << "seed " << seed;

        // Docked again in either order, every pane comes back to the pixel.
        for (bool leftMost : {false, true}) {
            LayoutModel again(kFrame, 96);
            again.SetOrigin(TamPoint(40, 30));
            ASSERT_TRUE(DockAll(model, elements, again, leftMost)) << "seed " << seed;
            ASSERT_EQ(RectsByName(again), RectsByName(model)) << "seed " << seed << (leftMost ? " left-most" : "");
        }

        // Saved by window index and read back, the layout docks back the same.
        IndexMap map;
        for (const LayoutPaneRect& p : before.panes)
            map.panes.push_back(const_cast<LayoutPane*>(p.pPane));
        const Link link = MakeLink<&IndexMap::Map>(&map);
        DataBuffer saved;
        for (const auto& el : elements) {
            el->WindowToIndex(link);
            el->WriteToDataBuffer(saved);
        }
        saved.SetPos(DATABUFFER_CONTENT_START);
        DockElementVec read;
        while (std::unique_ptr<DockElement> el = DockElement::CreateFromDataBuffer(saved)) {
            el->IndexToWindow(link);
            read.push_back(std::move(el));
        }
        ASSERT_EQ(read.size(), elements.size());
        LayoutModel restored(kFrame, 96);
        restored.SetOrigin(TamPoint(40, 30));
        ASSERT_TRUE(DockAll(model, read, restored, false));
        ASSERT_EQ(RectsByName(restored), RectsByName(model)) << "seed " << seed;
    }
    EXPECT_GT(checked, kLayouts / 2);
}

TEST(LayoutTree, HolderFromASplitAndPositionsFromTheTree)
{
    LayoutModel model(TamSize(1000, 800), 96);
    model.AddBand(LayoutEdge::Left, "Files", 200, TamSize(), false);
    model.DockIntoPane("Props", "Files", LayoutEdge::Bottom, 300, TamSize());
    model.AddBand(LayoutEdge::Bottom, "Output", 150, TamSize(), false);
    DockElementVec elements = BuildDockElements(model);
    ASSERT_EQ(elements.size(), 3u);
    EXPECT_EQ(elements[0]->GetIdentifier(), "Holder: L(Files) R(Props)");
    EXPECT_EQ(elements[0]->GetRect(), CRectangle(0, 0, 200, 800));
    EXPECT_EQ(elements[1]->GetTitle(), "Output");
    EXPECT_EQ(elements[2]->GetRect(), CRectangle(205, 0, 1000, 645));
    EXPECT_EQ(DockElement::FindFreeSpaceElement(elements), elements[2].get());

    // Props lies in a holder: its sibling is its holder neighbour; Output and the free space
    // touch it on the right.
    DockPosition pos;
    DockElement::FillDockPosition(elements, model.FindPane("Props"), pos);
    EXPECT_EQ(pos.GetName(), "Props");
    EXPECT_EQ(pos.GetSize(), TamSize(200, 300));
    EXPECT_EQ(pos.GetPos(), TamPoint(0, 500));
    EXPECT_EQ(pos.GetMarginAlign(), CBRS_NOALIGN);
    EXPECT_EQ(pos.GetNeighbourVec(),
              (std::vector<DockNeighbour>{DockNeighbour("Files", CBRS_ALIGN_TOP, NCT_EQUAL_SIDE, true, false),
                                          DockNeighbour("Output", CBRS_ALIGN_RIGHT, NCT_JUSTIFIED_SIDE, false, false),
                                          DockNeighbour("GFS", CBRS_ALIGN_RIGHT, NCT_TOUCHING_SIDE, false, true)}));
    // Output is a band of its own: docked at the bottom edge.
    DockElement::FillDockPosition(elements, model.FindPane("Output"), pos);
    EXPECT_EQ(pos.GetMarginAlign(), CBRS_ALIGN_BOTTOM);
    EXPECT_TRUE(pos.IsMarginDock());
    EXPECT_EQ(pos.GetNeighbourVec()[0], DockNeighbour("Props", CBRS_ALIGN_LEFT, NCT_JUSTIFIED_SIDE, false, false));
    // A pane that is not in the layout leaves the position alone.
    TestPane stranger("Stranger", CRectangle());
    DockElement::FillDockPosition(elements, &stranger, pos);
    EXPECT_EQ(pos.GetName(), "Output");

    DockablePaneVec panes;
    DockElement::ExtractDockablePanes(elements, panes);
    EXPECT_EQ(panes.size(), 3u);
    EXPECT_EQ(elements[1]->CheckIfOuterNeighbourOfEl(elements[0].get(), elements), NT_NONE);
    EXPECT_TRUE(DockElement::Delete(elements, elements[1].get()));
    const DockPaneElement loose(&stranger);
    EXPECT_FALSE(DockElement::Delete(elements, &loose));
    DockElement::ClearDockElements(elements);
    EXPECT_TRUE(elements.empty());
}

TEST(LayoutTree, NeighboursFromRectsAndRowsIntoHolders)
{
    LayoutModel model(TamSize(1000, 800), 96);
    model.AddBand(LayoutEdge::Top, "Tools", 100, TamSize(), false);
    model.AddBand(LayoutEdge::Left, "Files", 200, TamSize(), false);
    DockElementVec elements = BuildDockElements(model);
    DockElement::DetNeighboursFromRects(elements);
    // Files lies below Tools and left of the free space.
    ASSERT_EQ(elements[1]->GetRelations().size(), 2u);
    EXPECT_EQ(elements[1]->GetRelations()[0]->GetTitle(), "Tools");
    EXPECT_EQ(elements[1]->GetRelations()[0]->GetNeighbourType(), NT_TOP);
    EXPECT_EQ(elements[1]->GetRelations()[1]->GetNeighbourType(), NT_RIGHT);
    // Files is as tall as the free space but the free space never merges; Tools spans both.
    EXPECT_EQ(DockElement::PutRowIntoHolders(elements), 0);

    TestPane a("A", CRectangle(0, 0, 100, 200));
    TestPane b("B", CRectangle(105, 0, 305, 200));
    TestPane c("C", CRectangle(310, 0, 400, 201));
    // As tall as A and beside its right edge, but lower down: not in its row.
    TestPane low("Low", CRectangle(105, 500, 200, 700));
    DockElementVec apart;
    apart.push_back(Docked(a));
    apart.push_back(Docked(low));
    EXPECT_EQ(DockElement::PutRowIntoHolders(apart), 0);
    DockElementVec row;
    row.push_back(Docked(c));
    row.push_back(Docked(a));
    row.push_back(Docked(b));
    EXPECT_EQ(DockElement::PutRowIntoHolders(row), 2);
    ASSERT_EQ(row.size(), 1u);
    EXPECT_EQ(row[0]->GetIdentifier(), "Holder: L(Holder: L(A) R(B)) R(C)");
}
