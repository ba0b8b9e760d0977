// The layout tree's geometry, holders, titles, identifiers, dumps, copies and relations.
#include "DockingTestUtil.hpp"

#include <gtest/gtest.h>

#include <cmath>

using namespace vesk;
using namespace vesk::test;

namespace {

// Rectangles are window rectangles (right = left + width); the divider is 5 pixels wide.
std::unique_ptr<DockPaneElement> At(int32_t l, int32_t t, int32_t r, int32_t b)
{
    auto el = std::make_unique<DockPaneElement>();
    el->SetRect(CRectangle(l, t, r, b));
    return el;
}

} // namespace

TEST(DockElementGeometry, NeighbourSideAllowsThreePixelsBeyondTheDivider)
{
    const CRectangle rect(0, 0, 100, 100);
    // el starts 3 pixels beyond the divider right of rect: adjacent; 4 pixels: not.
    EXPECT_EQ(DockElement::GetNeighbourAlign(CRectangle(108, 0, 200, 100), rect), CBRS_ALIGN_RIGHT);
    EXPECT_EQ(DockElement::GetNeighbourAlign(CRectangle(109, 0, 200, 100), rect), CBRS_NOALIGN);
    EXPECT_EQ(DockElement::GetNeighbourAlign(CRectangle(-100, 0, -5, 100), rect), CBRS_ALIGN_LEFT);
    EXPECT_EQ(DockElement::GetNeighbourAlign(CRectangle(0, 103, 100, 200), rect), CBRS_ALIGN_BOTTOM);
    EXPECT_EQ(DockElement::GetNeighbourAlign(CRectangle(0, -90, 100, -2), rect), CBRS_ALIGN_TOP);
    // Beyond the adjacency tests the side follows from where the element lies.
    EXPECT_EQ(DockElement::GetNeighbourAlign(At(0, 300, 100, 400).get(), rect), CBRS_ALIGN_BOTTOM);
    EXPECT_EQ(DockElement::GetNeighbourAlign(At(0, -400, 100, -300).get(), rect), CBRS_ALIGN_TOP);
    EXPECT_EQ(DockElement::GetNeighbourAlign(At(-400, 0, -300, 50).get(), rect), CBRS_ALIGN_LEFT);
    EXPECT_EQ(DockElement::GetNeighbourAlign(At(50, 50, 150, 150).get(), rect), CBRS_NOALIGN);
    EXPECT_EQ(DockElement::GetNeighbourAlign(At(300, 0, 400, 50).get(), rect), CBRS_ALIGN_RIGHT);
    EXPECT_EQ(DockElement::GetNeighbourAlign(At(109, 0, 200, 100).get(), rect), CBRS_ALIGN_RIGHT);
    EXPECT_EQ(DockElement::GetNeighbourAlign(nullptr, rect), CBRS_NOALIGN);
}

TEST(DockElementGeometry, ContactComparesStartsAndEndsOfFacingSides)
{
    EXPECT_EQ(DockElement::DetContactFromCoords(0, 0, 100, 100, 100, 105), NCT_EQUAL_SIDE);
    EXPECT_EQ(DockElement::DetContactFromCoords(0, 0, 100, 90, 100, 105), NCT_JUSTIFIED_SIDE);
    EXPECT_EQ(DockElement::DetContactFromCoords(0, 10, 100, 100, 100, 105), NCT_JUSTIFIED_SIDE);
    EXPECT_EQ(DockElement::DetContactFromCoords(0, 10, 100, 90, 100, 105), NCT_TOUCHING_SIDE);
    EXPECT_EQ(DockElement::DetContactFromCoords(0, 0, 100, 100, 100, 106), NCT_NONE);
    // Elements: el on the left of other compares tops and bottoms.
    const auto left = At(0, 0, 100, 200);
    EXPECT_EQ(DockElement::DetContactType(left.get(), At(105, 0, 300, 200).get()), NCT_EQUAL_SIDE);
    EXPECT_EQ(DockElement::DetContactType(left.get(), At(105, 0, 300, 150).get()), NCT_JUSTIFIED_SIDE);
    EXPECT_EQ(DockElement::DetContactType(left.get(), At(105, 20, 300, 150).get()), NCT_TOUCHING_SIDE);
    EXPECT_EQ(DockElement::DetContactType(At(0, 205, 100, 300).get(), left.get()), NCT_EQUAL_SIDE);
    EXPECT_EQ(DockElement::DetContactType(At(0, 205, 60, 300).get(), left.get()), NCT_JUSTIFIED_SIDE);
    EXPECT_EQ(DockElement::DetContactType(left.get(), At(50, 50, 60, 60).get()), NCT_NONE);
    EXPECT_EQ(DockElement::DetContactType(left.get(), nullptr), NCT_NONE);
}

TEST(DockElementGeometry, NeighbourTypesDirectionsAndSides)
{
    const auto a = At(0, 0, 100, 200);
    EXPECT_EQ(DockElement::DetNeighbourType(a.get(), At(106, 0, 200, 200).get()), NT_LEFT);
    EXPECT_EQ(DockElement::DetNeighbourType(a.get(), At(107, 0, 200, 200).get()), NT_NONE);
    EXPECT_EQ(DockElement::DetNeighbourType(a.get(), At(-100, 0, -6, 200).get()), NT_RIGHT);
    EXPECT_EQ(DockElement::DetNeighbourType(a.get(), At(0, 205, 100, 300).get()), NT_TOP);
    EXPECT_EQ(DockElement::DetNeighbourType(a.get(), At(0, -100, 100, -5).get()), NT_BOTTOM);
    EXPECT_EQ(DockElement::DetNeighbourType(a.get(), nullptr), NT_NONE);
    // Aligned only when the shared sides' extents differ by under 4 pixels.
    EXPECT_EQ(a->GetAlignedNeighbourType(a.get(), At(105, 0, 200, 203).get()), NT_LEFT);
    EXPECT_EQ(a->GetAlignedNeighbourType(a.get(), At(105, 0, 200, 204).get()), NT_NONE);
    EXPECT_EQ(a->GetAlignedNeighbourType(a.get(), At(0, 205, 97, 300).get()), NT_TOP);
    EXPECT_EQ(a->GetAlignedNeighbourType(a.get(), At(0, 205, 96, 300).get()), NT_NONE);

    EXPECT_EQ(DockElement::DetDirectionType(a.get(), At(0, 300, 100, 500).get()), 2);
    EXPECT_EQ(DockElement::DetDirectionType(a.get(), At(300, 0, 400, 200).get()), 1);
    EXPECT_EQ(DockElement::DetDirectionType(a.get(), At(100, 100, 200, 300).get()), 1);
    EXPECT_EQ(DockElement::DetDirectionType(nullptr, a.get()), 0);

    EXPECT_EQ(DockElement::GetAlignOfType(NT_NONE), CBRS_ALIGN_LEFT);
    EXPECT_EQ(DockElement::GetAlignOfType(NT_BOTTOM), CBRS_ALIGN_BOTTOM);
    EXPECT_EQ(DockElement::InvertAlign(CBRS_ALIGN_TOP), CBRS_ALIGN_BOTTOM);
    EXPECT_EQ(DockElement::InvertAlign(CBRS_ALIGN_RIGHT), CBRS_ALIGN_LEFT);
    EXPECT_EQ(DockElement::InvertAlign(CBRS_NOALIGN), CBRS_NOALIGN);
    EXPECT_EQ(DockElement::InvertNeighbourType(NT_LEFT), NT_RIGHT);
    EXPECT_EQ(DockElement::InvertNeighbourType(NT_BOTTOM), NT_TOP);
    EXPECT_EQ(DockElement::InvertNeighbourType(NT_NONE), NT_NONE);
}

TEST(HolderElement, FractionSideLengthsAndScaling)
{
    TestPane a("A", CRectangle(0, 0, 100, 200));
    TestPane b("B", CRectangle(105, 0, 305, 200));
    auto holder = Hold(Docked(a), Docked(b));
    EXPECT_TRUE(holder->IsHorizontal());
    EXPECT_EQ(holder->GetRect(), CRectangle(0, 0, 305, 200));
    EXPECT_NEAR(holder->GetLeftFract(), 1.0 / 3.0, 1e-12);
    EXPECT_EQ(holder->GetSideLenInPixel(holder->GetLeft()), 100);
    EXPECT_EQ(holder->GetSideLenInPixel(holder->GetRight()), 200);
    EXPECT_EQ(holder->GetSideLenInPixel(holder.get()), 153);
    EXPECT_EQ(holder->GetLeft()->GetParent(), holder.get());

    // Half and half of 300: the pane on the left gets 150 and is told so; the right keeps its
    // left edge and takes the rest.
    holder->SetLeftFract(0.5);
    holder->ScaleChildsToFract();
    EXPECT_EQ(a.m_nSizeInContainer, 150);
    EXPECT_EQ(b.m_nSizeInContainer, -1);
    EXPECT_EQ(holder->GetLeft()->GetRect(), CRectangle(0, 0, 150, 200));
    EXPECT_EQ(holder->GetRight()->GetRect(), CRectangle(105, 0, 255, 200));

    // Stacked: the heights count, and a holder narrower than a divider has no lengths.
    TestPane c("C", CRectangle(0, 0, 40, 50));
    TestPane d("D", CRectangle(0, 55, 40, 100));
    auto narrow = Hold(Docked(c), Docked(d));
    EXPECT_FALSE(narrow->IsHorizontal());
    EXPECT_NEAR(narrow->GetLeftFract(), 50.0 / 95.0, 1e-12);
    EXPECT_EQ(narrow->GetSideLenInPixel(narrow->GetLeft()), 50);
    narrow->SetRect(CRectangle(0, 0, 40, 4));
    EXPECT_EQ(narrow->GetSideLenInPixel(narrow->GetLeft()), 0);

    // Hostile fractions saturate instead of overflowing.
    holder->SetLeftFract(1e300);
    EXPECT_EQ(holder->GetSideLenInPixel(holder->GetLeft()), INT32_MAX);
    holder->SetLeftFract(std::nan(""));
    EXPECT_EQ(holder->GetSideLenInPixel(holder->GetLeft()), 0);
}

TEST(HolderElement, RoundingGoesToTheSideThatIsNotAPane)
{
    TestPane a("A", CRectangle(0, 0, 100, 100));
    TestPane b("B", CRectangle(0, 105, 100, 200));
    TestPane c("C", CRectangle(105, 0, 300, 200));
    auto inner = Hold(Docked(a), Docked(b));
    auto outer = Hold(std::move(inner), Docked(c));
    ASSERT_TRUE(outer->IsHorizontal());
    outer->SetLeftFract(0.3331);
    outer->ScaleChildsToFract();
    // The right child is the pane: round(295 * 0.6669) = 197; the holder gets 300 - 197 - 5.
    EXPECT_EQ(c.m_nSizeInContainer, 197);
    EXPECT_EQ(outer->GetRight()->GetRect(), CRectangle(105, 0, 302, 200));
    EXPECT_EQ(outer->GetLeft()->GetRect(), CRectangle(0, 0, 98, 200));
    // The inner holder then scales its own panes from its fraction (100 / 195 of its height).
    EXPECT_EQ(a.m_nSizeInContainer, 100);
}

TEST(DockElementText, TitlesIdentifiersAndDumps)
{
    TestPane files("Files", CRectangle(0, 0, 100, 200));
    TestPane out("Output", CRectangle(105, 0, 305, 200));
    DockPaneElement docked(&files);
    EXPECT_EQ(docked.GetTitle(), "Files");
    docked.SetAutoHide(true);
    EXPECT_EQ(docked.GetTitle(), "Files-AH");
    EXPECT_EQ(docked.GetIdentifier(), "Files");
    EXPECT_EQ(FloatingPaneElement(&files).GetTitle(), "Floating-Files");
    EXPECT_EQ(HiddenPaneElement(&files, DockPosition()).GetTitle(), "Hidden-Files");
    EXPECT_EQ(HiddenPaneElement(&files, DockPosition()).GetStr(), "'Files'-hidden");
    EXPECT_EQ(DockPaneElement().GetTitle(), "");
    EXPECT_EQ(FreeSpaceElement().GetTitle(), "GFS");
    EXPECT_EQ(HolderElement().GetTitle(), "Holder");

    docked.SetAutoHide(false);
    docked.SetNeighbourType(NT_LEFT);
    EXPECT_EQ(docked.GetStr(), "'Files'-Left, nest=0, Rect: l=0, r=100, t=0, b=200, WID=100, HGT=200");
    docked.SetIndex(3);
    docked.SetNeighbourType(NT_NONE);
    EXPECT_EQ(docked.GetStr(), "'Files', nest=0, Rect: l=0, r=100, t=0, b=200, WID=100, HGT=200, ix=3");

    auto holder = Hold(Docked(files), Docked(out), 1);
    EXPECT_EQ(holder->GetIdentifier(), "Holder: L(Files) R(Output)");
    EXPECT_EQ(holder->GetStr(), "'Holder', nest=1, Rect: l=0, r=305, t=0, b=200, WID=305, HGT=200, LeftFract=0.333Hor"
                                "\n         L = 'Files', nest=0, Rect: l=0, r=100, t=0, b=200, WID=100, HGT=200"
                                "\n         R = 'Output', nest=0, Rect: l=105, r=305, t=0, b=200, WID=200, HGT=200");
    EXPECT_EQ(Hold(nullptr, Docked(out))->GetIdentifier(), "Holder:  R(Output)");
    HolderElement empty;
    const SString emptyText = empty.GetStr();
    const std::string tail = ", LeftFract=0.500Ver\n L=NULL\n R = NULL";
    const std::string text(static_cast<const char*>(emptyText));
    ASSERT_GT(text.size(), tail.size());
    EXPECT_EQ(text.substr(text.size() - tail.size()), tail);
    EXPECT_EQ(text.rfind("'Holder', nest=0, Rect: ", 0), 0u);
}

TEST(DockElement, NumbersCopiesAndDuplicates)
{
    FreeSpaceElement first;
    DockPaneElement second;
    EXPECT_EQ(second.GetNumber(), first.GetNumber() + 1);

    TestPane a("A", CRectangle(0, 0, 100, 200));
    TestPane b("B", CRectangle(105, 0, 305, 200));
    DockPaneElement el(&a);
    el.SetPreferOuterDock(true);
    el.AddRelation(DockPaneElement(&b).Duplicate(false).get(), false);
    ASSERT_EQ(el.GetRelations().size(), 1u);
    const std::unique_ptr<DockElement> copy = el.Duplicate(true);
    const std::unique_ptr<DockElement> bare = el.Duplicate(false);
    EXPECT_EQ(copy->GetNumber(), el.GetNumber());
    EXPECT_EQ(copy->GetRect(), el.GetRect());
    EXPECT_TRUE(copy->IsPreferOuterDock());
    EXPECT_EQ(copy->GetParent(), nullptr);
    EXPECT_EQ(copy->GetRelations().size(), 1u);
    EXPECT_EQ(bare->GetRelations().size(), 0u);
    // Relations are copied without relations of their own.
    DockPaneElement outer(&b);
    outer.AddRelation(&el, true);
    ASSERT_EQ(outer.GetRelations().size(), 1u);
    EXPECT_EQ(outer.GetRelations()[0]->GetRelations().size(), 1u);
    EXPECT_EQ(outer.Duplicate(true)->GetRelations()[0]->GetRelations().size(), 0u);

    // A holder's duplicate copies its children and fraction too.
    auto holder = Hold(Docked(a), Docked(b));
    const std::unique_ptr<DockElement> twin = holder->Duplicate(false);
    EXPECT_EQ(twin->GetStr(), holder->GetStr());
    EXPECT_EQ(static_cast<HolderElement&>(*twin).GetLeft()->GetParent(), twin.get());
}

TEST(DockElement, RelationsAttachTouchingElementsOnce)
{
    TestPane a("A", CRectangle(0, 0, 100, 200));
    TestPane b("B", CRectangle(105, 0, 305, 200));
    TestPane far("Far", CRectangle(500, 0, 600, 200));
    DockPaneElement el(&a);
    const DockPaneElement right(&b);
    el.AddRelation(&right, false);
    el.AddRelation(&right, false);
    el.AddRelation(DockPaneElement(&far).Duplicate(false).get(), false);
    ASSERT_EQ(el.GetRelations().size(), 1u);
    EXPECT_EQ(el.GetRelations()[0]->GetNeighbourType(), NT_RIGHT);
    EXPECT_EQ(el.GetRelations()[0]->GetNumber(), right.GetNumber());

    // Floating elements and other depths are not attached.
    el.AddRelation(FloatingPaneElement(&b).Duplicate(false).get(), false);
    auto deeper = right.Duplicate(false);
    deeper->SetNDepth(2);
    std::unique_ptr<DockElement> moved = right.Duplicate(false);
    EXPECT_FALSE(el.AddNeighbour(moved));
    EXPECT_TRUE(moved != nullptr);
    el.AddRelation(deeper.get(), false);
    EXPECT_EQ(el.GetRelations().size(), 1u);
}

TEST(DockElement, SearchesOverATree)
{
    TestPane a("A", CRectangle(0, 0, 100, 100));
    TestPane b("B", CRectangle(0, 105, 100, 200));
    TestPane c("C", CRectangle(105, 0, 300, 200));
    TestPane gone("Gone", CRectangle());
    auto tree = Hold(Hold(Docked(a), Docked(b)), Docked(c));
    const auto* inner = static_cast<const HolderElement*>(tree->GetLeft());
    EXPECT_EQ(tree->FindElementOfPane(&b), inner->GetRight());
    EXPECT_EQ(tree->FindElementOfPane(&gone), nullptr);
    EXPECT_TRUE(tree->CheckPaneExists(&c));
    EXPECT_EQ(tree->GetDepthForPane(&a), 2);
    EXPECT_EQ(tree->GetDepthForPane(&c), 1);
    EXPECT_EQ(tree->GetDepthForPane(&gone), -1);
    EXPECT_EQ(tree->FindNeighbourInHolder(static_cast<const DockPaneElement*>(inner->GetLeft())), inner->GetRight());
    EXPECT_EQ(tree->CountWindows(DockNameSet{"B"}), 2);
    EXPECT_TRUE(tree->WindowsExist());

    DockablePaneVec panes;
    tree->FillPaneVec(panes);
    EXPECT_EQ(panes, (DockablePaneVec{&a, &b, &c}));
    // The closest pane is the shallowest: C before A and B.
    EXPECT_EQ(tree->FindClosestDockPane({}, {})->GetPane(), &c);
    EXPECT_EQ(tree->FindClosestDockPane({}, DockNameSet{"C"})->GetPane(), &a);
    EXPECT_EQ(tree->FindClosestDockPane(DockNameSet{"B"}, {})->GetPane(), &b);
    CRectangle rect;
    EXPECT_TRUE(tree->FindHighestDockFreeRect(DockNameSet{"B", "C"}, {}, rect));
    EXPECT_EQ(rect, c.GetScreenRect());
    EXPECT_FALSE(tree->FindHighestDockFreeRect(DockNameSet{"Gone"}, {}, rect));

    tree->NotifyOfAutoHidePane(&b);
    DockablePaneVec hidden;
    tree->CollectAutoHidePanes({}, hidden);
    EXPECT_EQ(hidden, (DockablePaneVec{&b}));
    EXPECT_EQ(inner->GetRight()->GetTitle(), "B-AH");

    tree->SetNDepth(3);
    EXPECT_EQ(inner->GetNDepth(), 4);
    EXPECT_EQ(inner->GetLeft()->GetNDepth(), 5);
}

TEST(DockElement, OrphanShellsGiveWayToTheirChild)
{
    TestPane a("A", CRectangle(0, 0, 100, 100));
    TestPane c("C", CRectangle(105, 0, 300, 200));
    auto tree = Hold(Hold(Docked(a), nullptr), Docked(c));
    EXPECT_EQ(tree->RemoveOrphanShells(), tree.get());
    EXPECT_EQ(tree->GetLeft()->GetType(), DET_DOCK_PANE);
    EXPECT_EQ(tree->GetLeft()->GetParent(), tree.get());
    // A holder left with one child hands it over; an empty one vanishes.
    auto shell = Hold(Docked(c), nullptr);
    std::unique_ptr<DockElement> only(shell->RemoveOrphanShells());
    EXPECT_EQ(only->GetTitle(), "C");
    EXPECT_EQ(shell->GetLeft(), nullptr);
    EXPECT_EQ(HolderElement().RemoveOrphanShells(), nullptr);
}

TEST(DockElement, RefreshFloatAndOuterNeighbours)
{
    TestPane a("A", CRectangle(0, 0, 100, 200));
    TestPane b("B", CRectangle(105, 0, 305, 200));
    auto holder = Hold(Docked(a), Docked(b));
    a.m_aRect = CRectangle(0, 0, 150, 200);
    b.m_aRect = CRectangle(155, 0, 305, 200);
    holder->RefreshRectStatic();
    EXPECT_EQ(holder->GetLeft()->GetRect(), CRectangle(0, 0, 100, 200));
    holder->RefreshRect();
    EXPECT_EQ(holder->GetLeft()->GetRect(), a.m_aRect);
    EXPECT_DOUBLE_EQ(holder->GetLeftFract(), 0.5);
    holder->CalcFract(CRectangle(0, 0, 30, 10), CRectangle(35, 0, 125, 10));
    EXPECT_DOUBLE_EQ(holder->GetLeftFract(), 0.25);
    holder->SetLeftFract(0.5);
    holder->ScaleRect(2.0, 0.5);
    EXPECT_EQ(holder->GetRect(), CRectangle(0, 0, 610, 100));
    EXPECT_EQ(holder->GetRight()->GetRect(), CRectangle(310, 0, 610, 100));

    EXPECT_TRUE(holder->Float());
    EXPECT_EQ(a.m_nFloats + b.m_nFloats, 2);
    EXPECT_FALSE(DockPaneElement().Float());
    HiddenPaneElement hidden(&a, DockPosition());
    EXPECT_TRUE(hidden.Float());
    EXPECT_TRUE(hidden.GetDockPosition().IsFloating());

    // A floating pane takes its mini-frame's rectangle when it has one.
    a.m_aMiniFrame = CRectangle(500, 500, 700, 650);
    EXPECT_EQ(FloatingPaneElement(&a).GetRect(), a.m_aMiniFrame);
    a.m_aMiniFrame = CRectangle();
    EXPECT_EQ(FloatingPaneElement(&a).GetRect(), a.m_aRect);

    // Outer lies between the frame edge and Inner, which lies next to the free space.
    TestPane outer("Outer", CRectangle(0, 0, 100, 500));
    TestPane inner("Inner", CRectangle(105, 0, 200, 500));
    DockElementVec elements;
    elements.push_back(Docked(outer));
    elements.push_back(Docked(inner));
    elements.push_back(std::make_unique<FreeSpaceElement>(CRectangle(205, 0, 800, 500), nullptr));
    EXPECT_EQ(elements[0]->CheckIfOuterNeighbourOfEl(elements[1].get(), elements), NT_LEFT);
    EXPECT_EQ(elements[1]->CheckIfOuterNeighbourOfEl(elements[0].get(), elements), NT_NONE);
    EXPECT_EQ(elements[2]->CheckIfOuterNeighbourOfEl(elements[1].get(), elements), NT_NONE);
}
