// Saved layouts: the settings store's sections and values, round trips into a fresh manager,
// and layouts that are damaged, newer, or made for other panes or another frame.
#include "docking/DockFrameFixture.hpp"

#include "platform/settings.hpp"
#include "support/ConfigHomeGuard.hpp"

#include <vesk/docking/DataBuffer.hpp>

#include <fstream>

namespace vesk::test {
namespace {

std::u16string Key(const char* section)
{
    const std::string s = std::string("Software\\VeskTest\\Dock\\DockingManagers\\") + section;
    return std::u16string(s.begin(), s.end());
}

uint32_t Dword(const char* section, const char16_t* name)
{
    uint32_t v = 0xDEADBEEF;
    EXPECT_TRUE(platform::settings::ReadDword(Key(section), name, v)) << section;
    return v;
}

std::vector<uint8_t> RectBytes(const CRectangle& r)
{
    std::vector<uint8_t> bytes;
    for (int32_t f : {r.Left(), r.Top(), r.Right(), r.Bottom()}) {
        for (int i = 0; i < 4; ++i)
            bytes.push_back(static_cast<uint8_t>(static_cast<uint32_t>(f) >> (8 * i)));
    }
    return bytes;
}

std::vector<uint8_t> Binary(const char* section, const char16_t* name)
{
    std::vector<uint8_t> v;
    EXPECT_TRUE(platform::settings::ReadBinary(Key(section), name, v)) << section;
    return v;
}

class DockStateTest : public DockFrameTest {
protected:
    void SetUp() override
    {
        TamDockingManager::SetRegistryBase("Software\\VeskTest\\Dock");
        DockFrameTest::SetUp();
    }

    // Left band A over B, right band C, pinned-off P on the right, floating F, hidden H (it was
    // docked beside C), hidden G (it floated). Created in this order: control ids 1 to 7.
    void Build(bool arrange = true)
    {
        TamDockSite* site = nullptr;
        ASSERT_TRUE(manager->AddDockSite({CBRS_ALIGN_RIGHT, &MakeSite}, &site));
        a = Pane("A", TamSize(60, 50));
        b = Pane("B");
        c = Pane("C");
        p = Pane("P");
        f = Pane("F");
        h = Pane("H");
        g = Pane("G");
        if (!arrange)
            return;
        ASSERT_TRUE(manager->DockIntoParent(a, CBRS_ALIGN_LEFT, 200, false));
        ASSERT_TRUE(manager->DockIntoPane(b, a, CBRS_ALIGN_BOTTOM, 150));
        ASSERT_TRUE(manager->DockIntoParent(c, CBRS_ALIGN_RIGHT, 170, false));
        ASSERT_TRUE(manager->DockIntoParent(p, CBRS_ALIGN_RIGHT, 90, true));
        ASSERT_TRUE(p->SetAutoHideMode(true));
        ASSERT_TRUE(f->FloatAt(CRectangle(300, 200, 520, 380)));
        ASSERT_TRUE(manager->DockIntoPane(h, c, CBRS_ALIGN_TOP, 120));
        h->HidePane();
        ASSERT_TRUE(g->FloatAt(CRectangle(40, 300, 240, 420)));
        g->HidePane();
        Pump();
    }

    // A fresh manager over the same frame with panes of the given names, in the given order.
    void Fresh(std::initializer_list<const char*> names)
    {
        panes.clear();
        manager.reset();
        manager = std::make_unique<TamDockingManager>(*frame);
        TamDockSite* site = nullptr;
        ASSERT_TRUE(manager->AddDockSite({CBRS_ALIGN_RIGHT, &MakeSite}, &site));
        for (const char* name : names)
            Pane(name, std::string(name) == "A" ? TamSize(60, 50) : TamSize(40, 40));
        Pump();
    }
    TamDockablePane* Find(const char* name) const { return manager->FindPane(name); }

    struct Snapshot {
        std::vector<std::pair<std::string, CRectangle>> docked;
        std::vector<std::string> state;
        CRectangle floatRect;
        bool operator==(const Snapshot&) const = default;
    };
    Snapshot Take() const
    {
        Snapshot s;
        for (const auto& [pane, r] : manager->GetPaneRects())
            s.docked.emplace_back(static_cast<const char*>(pane->GetName()), HostRect(pane));
        std::vector<TamDockablePane*> all;
        manager->FillDockablePaneVec(all);
        for (const TamDockablePane* pane : all) {
            const char* st = pane->IsDocked() ? "docked" : pane->IsFloating() ? "floating"
                           : pane->IsAutoHidden() ? "pinned" : "hidden";
            s.state.push_back(std::string(pane->GetName()) + ":" + st);
            if (pane->IsFloating())
                pane->GetMiniFrameScreenRect(s.floatRect);
        }
        return s;
    }

    ConfigHomeGuard home;
    TamDockablePane *a = nullptr, *b = nullptr, *c = nullptr, *p = nullptr, *f = nullptr, *h = nullptr, *g = nullptr;
};

TEST_F(DockStateTest, ValuesAreStoredUnderTheirSectionNames)
{
    Build();
    const CRectangle aRect = HostRect(a);
    CRectangle mini;
    ASSERT_TRUE(f->GetMiniFrameScreenRect(mini));
    ASSERT_TRUE(manager->SaveState("Main", 3));

    EXPECT_EQ(Binary("MainDockingManager-3", u"DockingPaneAndPaneDividers"), manager->SaveLayout());
    // A: docked on the left, outermost row, as wide as its band.
    EXPECT_EQ(Dword("MainBasePane-1", u"IsVisible"), 1u);
    EXPECT_EQ(Dword("MainPane-1", u"ID"), 1u);
    EXPECT_EQ(Binary("MainPane-1", u"RectRecentDocked"), RectBytes(aRect));
    EXPECT_EQ(Dword("MainPane-1", u"RecentFrameAlignment"), CBRS_ALIGN_LEFT);
    EXPECT_EQ(Dword("MainPane-1", u"RecentRowIndex"), 0u);
    EXPECT_EQ(Dword("MainPane-1", u"IsFloating"), 0u);
    EXPECT_EQ(Dword("MainPane-1", u"MRUWidth"), uint32_t(Width(aRect)));
    EXPECT_EQ(Dword("MainPane-1", u"PinState"), 0u);
    // P's band left with P, so C's band is the only one on the right.
    EXPECT_EQ(Dword("MainPane-3", u"RecentFrameAlignment"), CBRS_ALIGN_RIGHT);
    EXPECT_EQ(Dword("MainPane-3", u"RecentRowIndex"), 0u);
    // P pinned off, F floating at its mini-frame's rectangle, H hidden.
    EXPECT_EQ(Dword("MainPane-4", u"PinState"), 1u);
    EXPECT_EQ(Dword("MainBasePane-4", u"IsVisible"), 1u);
    EXPECT_EQ(Dword("MainPane-5", u"IsFloating"), 1u);
    EXPECT_EQ(Binary("MainPane-5", u"RectRecentFloat"), RectBytes(mini));
    EXPECT_EQ(Dword("MainBasePane-6", u"IsVisible"), 0u);
    // H was docked beside C: its recent edge and width are C's band's.
    EXPECT_EQ(Dword("MainPane-6", u"RecentFrameAlignment"), CBRS_ALIGN_RIGHT);
    EXPECT_EQ(Dword("MainPane-6", u"MRUWidth"), uint32_t(Width(HostRect(c))));

    // An explicit id is appended in hexadecimal; a set control id names the section.
    a->SetDlgCtrlID(12);
    ASSERT_TRUE(a->SaveState("Alt", -1, 0x2f));
    EXPECT_EQ(Dword("AltBasePane-122f", u"IsVisible"), 1u);
    EXPECT_EQ(Dword("AltPane-122f", u"ID"), 12u);
    ASSERT_TRUE(a->SaveState("Alt", 7));
    EXPECT_EQ(Dword("AltPane-7", u"ID"), 12u);
}

// Docked, floating and hidden panes round-trip on random layouts in the fidelity simulator;
// here the pinned pane, the hidden ones' remembered places and the pane values.
TEST_F(DockStateTest, RoundTripIntoAFreshManagerIsExact)
{
    Build();
    const Snapshot before = Take();
    ASSERT_TRUE(manager->SaveState("Main", 0));
    h->ShowPane(); // where the hidden pane goes back to, for comparison after the load
    Pump();
    const CRectangle hBack = HostRect(h);

    Fresh({"A", "B", "C", "P", "F", "H", "G"});
    ASSERT_TRUE(manager->LoadState("Main", 0));
    EXPECT_EQ(Take(), before);

    // Every pane value reads back equal after saving again.
    const std::string file = platform::settings::FilePath();
    auto contents = [&] {
        std::ifstream in(file);
        return std::string(std::istreambuf_iterator<char>(in), {});
    };
    const std::string first = contents();
    ASSERT_TRUE(manager->SaveState("Main", 0));
    EXPECT_EQ(contents(), first);

    // The hidden pane's remembered place came back with it.
    Find("H")->ShowPane();
    Pump();
    EXPECT_EQ(HostRect(Find("H")), hBack);
    // A hidden pane that floated floats again.
    Find("G")->ShowPane();
    EXPECT_TRUE(Find("G")->IsFloating());
    // And the pinned pane still pins back into its band.
    ASSERT_TRUE(Find("P")->SetAutoHideMode(false));
    EXPECT_TRUE(Find("P")->IsDocked());
}

TEST_F(DockStateTest, PaneValuesAloneRestoreVisibilityAndPlace)
{
    Build();
    const int32_t aWidth = Width(HostRect(a));
    ASSERT_TRUE(manager->SaveState("Main", 0));
    ASSERT_TRUE(platform::settings::DeleteValue(Key("MainDockingManager-0"), u"DockingPaneAndPaneDividers"));
    Fresh({"A", "B", "C", "P", "F", "H", "G"});
    EXPECT_FALSE(manager->LoadState("Main", 0)); // no layout value
    EXPECT_TRUE(Find("F")->IsFloating());
    EXPECT_TRUE(Find("H")->IsHidden());
    // A docked pane goes to its recent edge with its recent width.
    EXPECT_TRUE(Find("A")->IsDocked());
    EXPECT_EQ(Find("A")->GetCurrentAlignment(), CBRS_ALIGN_LEFT);
    EXPECT_EQ(Width(HostRect(Find("A"))), aWidth);
    EXPECT_TRUE(Find("P")->IsAutoHidden());

    // Damaged and missing values keep the pane's own.
    const CRectangle keep = Find("F")->GetRecentFloatRect();
    ASSERT_TRUE(platform::settings::WriteBinary(Key("MainPane-5"), u"RectRecentFloat", std::vector<uint8_t>(15, 1)));
    ASSERT_TRUE(platform::settings::DeleteValue(Key("MainBasePane-5"), u"IsVisible"));
    Find("F")->HidePane();
    EXPECT_TRUE(Find("F")->LoadState("Main"));
    EXPECT_TRUE(Find("F")->IsHidden());
    EXPECT_EQ(Find("F")->GetRecentFloatRect(), keep);
    EXPECT_FALSE(Find("F")->LoadState("Nothing"));
}

// Splits a value into its content's top-level sections.
std::vector<std::vector<uint8_t>> Sections(const std::vector<uint8_t>& value)
{
    std::vector<std::vector<uint8_t>> out;
    for (size_t i = 4; i + 4 <= value.size();) {
        const uint32_t n = value[i] | value[i + 1] << 8 | value[i + 2] << 16 | uint32_t(value[i + 3]) << 24;
        out.emplace_back(value.begin() + i + 4, value.begin() + i + 4 + n);
        i += 4 + n;
    }
    return out;
}

std::vector<uint8_t> Join(const std::vector<std::vector<uint8_t>>& sections)
{
    DataBuffer b;
    for (const auto& s : sections) {
        b.WriteInt32(static_cast<int32_t>(s.size()));
        b.WriteBytes(s.data(), static_cast<int32_t>(s.size()));
    }
    return b.GetBytes();
}

TEST_F(DockStateTest, NewerValuesAreReadAsFarAsKnown)
{
    Build();
    const std::vector<uint8_t> saved = manager->SaveLayout();
    const Snapshot before = Take();
    auto sections = Sections(saved);
    ASSERT_EQ(sections.size(), 5u);
    ASSERT_EQ(Join(sections), saved);

    // A newer writer: version 2, a field appended to the header, a section after the known ones.
    auto newer = sections;
    newer[0][0] = 2;
    newer[0].insert(newer[0].end(), {9, 9, 9, 9});
    newer.push_back({1, 2, 3});
    Fresh({"A", "B", "C", "P", "F", "H", "G"});
    ASSERT_TRUE(manager->LoadLayout(Join(newer)));
    EXPECT_EQ(Take(), before);

    // One that older readers cannot read: refused, nothing changes.
    newer[0][4] = 2;
    Fresh({"A", "B", "C", "P", "F", "H", "G"});
    const Snapshot empty = Take();
    EXPECT_FALSE(manager->LoadLayout(Join(newer)));
    EXPECT_EQ(Take(), empty);
}

TEST_F(DockStateTest, DamagedValuesChangeNothing)
{
    Build();
    const std::vector<uint8_t> saved = manager->SaveLayout();
    Fresh({"A", "B", "C", "P", "F", "H", "G"});
    ASSERT_TRUE(manager->DockIntoParent(Find("B"), CBRS_ALIGN_TOP, 80, false));
    const Snapshot mine = Take();
    for (size_t n = 0; n < saved.size(); ++n) {
        std::vector<uint8_t> cut(saved.begin(), saved.begin() + n);
        ASSERT_FALSE(manager->LoadLayout(cut)) << n;
        // The content length matches the cut bytes: a value that ends early.
        if (n >= 4) {
            const uint32_t len = static_cast<uint32_t>(n - 4);
            for (int i = 0; i < 4; ++i)
                cut[i] = static_cast<uint8_t>(len >> (8 * i));
            ASSERT_FALSE(manager->LoadLayout(cut)) << n;
        }
    }
    EXPECT_EQ(Take(), mine);

    // The hidden panes listed as floating too: a pane placed twice.
    auto sections = Sections(saved);
    std::vector<uint8_t> twice = Join({sections[0], sections[1], sections[4], sections[3], sections[4]});
    EXPECT_FALSE(manager->LoadLayout(twice));
    EXPECT_EQ(Take(), mine);
}

TEST_F(DockStateTest, PanesThatNoLongerExistAreLeftOut)
{
    Build();
    const std::vector<uint8_t> saved = manager->SaveLayout();
    const CRectangle aWas = HostRect(a), bWas = HostRect(b), cWas = HostRect(c);

    // No B: A takes the whole band. A new pane N, docked now, stays docked.
    Fresh({"A", "C", "N", "F"});
    ASSERT_TRUE(manager->DockIntoParent(Find("N"), CBRS_ALIGN_BOTTOM, 60, false));
    ASSERT_TRUE(manager->LoadLayout(saved));
    Pump();
    const CRectangle aNow = HostRect(Find("A"));
    EXPECT_EQ(aNow.TopLeft(), aWas.TopLeft());
    EXPECT_EQ(Width(aNow), Width(aWas));
    EXPECT_GT(aNow.Bottom(), bWas.Top());
    EXPECT_EQ(aNow.Bottom(), HostRect(Find("C")).Bottom()); // alone in its band, like C
    EXPECT_TRUE(Find("N")->IsDocked());
    EXPECT_EQ(Find("N")->GetCurrentAlignment(), CBRS_ALIGN_BOTTOM);
    EXPECT_EQ(Width(HostRect(Find("C"))), Width(cWas));
    EXPECT_TRUE(Find("F")->IsFloating());
    EXPECT_EQ(CountSharing(Rects()), 0);
}

TEST_F(DockStateTest, MuchSmallerFrameKeepsProportionsAndMinimums)
{
    Build(false);
    ASSERT_TRUE(manager->DockIntoParent(a, CBRS_ALIGN_LEFT, 400, false));
    ASSERT_TRUE(manager->DockIntoPane(b, a, CBRS_ALIGN_BOTTOM, 200));
    const std::vector<uint8_t> saved = manager->SaveLayout();
    const double was = double(Width(HostRect(a))) / manager->GetHost()->GetClientSize().Width();
    // Within a factor of two the band keeps its pixels.
    frame->MoveWindow(50, 40, 600, 450);
    Pump();
    Fresh({"A", "B"});
    ASSERT_TRUE(manager->LoadLayout(saved));
    EXPECT_EQ(Width(HostRect(Find("A"))), 400);
    frame->MoveWindow(50, 40, 240, 180);
    Pump();
    Fresh({"A", "B"});
    ASSERT_TRUE(manager->LoadLayout(saved));
    Pump();
    const int32_t client = manager->GetHost()->GetClientSize().Width();
    const int32_t now = Width(HostRect(Find("A")));
    EXPECT_NEAR(double(now) / client, was, 0.02);
    EXPECT_GE(Height(HostRect(Find("A"))), 50);
    EXPECT_GE(Height(HostRect(Find("B"))), 40);
}

TEST_F(DockStateTest, UnwritableSettingsFileFailsAndChangesNothing)
{
    Build();
    // The store's folder cannot be made: a file stands in its place.
    std::ofstream(home.File("vesk")) << "x";
    const Snapshot before = Take();
    const std::vector<uint8_t> layout = manager->SaveLayout();
    EXPECT_FALSE(manager->SaveState("Main", 0));
    EXPECT_EQ(Take(), before);
    EXPECT_EQ(manager->SaveLayout(), layout);
    EXPECT_FALSE(manager->LoadState("Main", 0));
    EXPECT_EQ(Take(), before);
}

} // namespace
} // namespace vesk::test
