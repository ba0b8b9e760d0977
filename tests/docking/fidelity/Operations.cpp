#include "Operations.hpp"

#include "Layout.hpp"
#include "docking/DockFrameFixture.hpp"

#include <vesk/docking/TamPaneContainer.hpp>
#include <vesk/docking/TamPaneFrameWnd.hpp>

#include <algorithm>

namespace vesk::fidelity {

namespace {

const TamSize kReachable(TamPaneFrameWnd::MIN_VISIBLE_WIDTH, TamPaneFrameWnd::MIN_VISIBLE_HEIGHT);
constexpr int32_t kChainLength = 50;

std::vector<CRectangle> Screens()
{
    return TamPaneFrameWnd::GetScreenRects();
}

// Adds the overlaps and broken minimum sizes of the current state.
Snapshot Check(const Session& session, OpRecord& record)
{
    Snapshot shot = session.Shoot();
    record.overlaps += CountOverlaps(shot, session.DividerRects());
    const int32_t dpi = session.Manager().GetDpi();
    const TamSize need = session.Manager().GetModel().GetMinClientSize(dpi);
    const TamSize have = session.ClientSize();
    if (need.Width() <= have.Width() && need.Height() <= have.Height())
        record.minBroken += CountMinBroken(shot, dpi);
    return shot;
}

void Finish(const Snapshot& before, const Snapshot& after, OpRecord& record)
{
    record.all = Compare(before, after);
    record.lost += CountLost(before, after, Screens(), kReachable);
    record.ran = true;
}

TamDockablePane* RandomDocked(const Session& session, Rng& rng)
{
    std::vector<TamDockablePane*> docked;
    for (size_t i = 0; i < session.PaneCount(); ++i) {
        if (session.Pane(i)->IsDocked())
            docked.push_back(session.Pane(i));
    }
    if (docked.empty())
        return nullptr;
    return docked[static_cast<size_t>(Uniform(rng, 0, static_cast<int32_t>(docked.size()) - 1))];
}

// A random docked pane to operate on, recorded with how it sits in the layout; null when none
// is docked.
TamDockablePane* PickPane(const Session& session, Rng& rng, OpRecord& record)
{
    TamDockablePane* pane = RandomDocked(session, rng);
    if (pane) {
        record.hasPane = true;
        record.paneClass = ClassifyPane(session.Manager(), *pane);
    }
    return pane;
}

// Counts a pane floated again, and whether it took the rectangle `was`.
void CountFloatAgain(const TamDockablePane& pane, const CRectangle& was, OpRecord& record)
{
    CRectangle now;
    ++record.floatAgain;
    if (pane.GetMiniFrameScreenRect(now) && now == was)
        ++record.floatAgainIdentical;
}

void CountStep(const Session& session, OpRecord& record)
{
    ++record.steps[static_cast<size_t>(session.Manager().GetDockParent().GetLastPlacementStep())];
}

// Docks a floating pane back from its recent dock position.
void Redock(Session& session, TamDockablePane& pane, OpRecord& record)
{
    DockPosition pos = pane.GetRecentDockPosition();
    pos.SetIsFloating(false);
    session.Manager().DockWithPosition(&pane, pos);
    CountStep(session, record);
}

// Hides and shows one pane; the snapshots before and after.
std::pair<Snapshot, Snapshot> HideShowCycle(Session& session, TamDockablePane& pane, OpRecord& record)
{
    Snapshot before = session.Shoot();
    pane.HidePane();
    Session::Pump();
    Check(session, record);
    pane.ShowPane();
    CountStep(session, record);
    Session::Pump();
    return {std::move(before), Check(session, record)};
}

void HideShow(Session& session, Rng& rng, OpRecord& record)
{
    TamDockablePane* pane = PickPane(session, rng, record);
    if (!pane)
        return;
    const auto [before, after] = HideShowCycle(session, *pane, record);
    record.paneDisplacement = PaneDisplacement(before, after, NameOf(*pane));
    Finish(before, after, record);
}

void FloatRedock(Session& session, Rng& rng, OpRecord& record)
{
    TamDockablePane* pane = PickPane(session, rng, record);
    if (!pane)
        return;
    const std::string name = NameOf(*pane);
    const Snapshot before = session.Shoot();
    pane->FloatPane();
    Session::Pump();
    CRectangle floated;
    pane->GetMiniFrameScreenRect(floated);
    Check(session, record);
    Redock(session, *pane, record);
    Session::Pump();
    const Snapshot after = Check(session, record);
    record.paneDisplacement = PaneDisplacement(before, after, name);
    // Floated again, it takes the rectangle it floated at.
    pane->FloatPane();
    Session::Pump();
    CountFloatAgain(*pane, floated, record);
    Finish(before, after, record);
}

// Some panes away (one hidden, one floating), the layout saved, and loaded into a fresh manager
// of the same panes and frame size; half of the time before that frame is shown.
void SaveAndLoad(Session& session, Rng& rng, OpRecord& record)
{
    for (int32_t away = 0; away < 2; ++away) {
        TamDockablePane* pane = Uniform(rng, 0, 1) ? RandomDocked(session, rng) : nullptr;
        if (pane && away == 0)
            pane->HidePane();
        else if (pane)
            pane->FloatPane();
    }
    Session::Pump();
    const Snapshot before = Check(session, record);
    const std::vector<uint8_t> value = session.Manager().SaveLayout();
    const uint32_t id = static_cast<uint32_t>(record.seed);
    TamDockingManager::SetRegistryBase("Software\\VeskFidelity");
    if (!session.Manager().SaveState("Fidelity", id))
        return;
    const bool early = Uniform(rng, 0, 1) != 0;
    Session fresh(session.ClientSize(), session.Manager().GetDpi(), !early);
    for (const PaneShot& s : before)
        fresh.AddPane(s.name, s.minSize96);
    fresh.Manager().LoadState("Fidelity", id);
    if (early)
        fresh.Show();
    Session::Pump();
    const Snapshot after = Check(fresh, record);
    ++record.layoutValues;
    record.layoutValuesIdentical += fresh.Manager().SaveLayout() == value ? 1 : 0;
    Finish(before, after, record);
}

void ResizeAndBack(Session& session, Rng& rng, OpRecord& record)
{
    const Snapshot before = session.Shoot();
    const TamSize was = session.ClientSize();
    session.Resize(TamSize(Uniform(rng, 200, 4000), Uniform(rng, 150, 2400)));
    Check(session, record);
    session.Resize(was);
    Finish(before, Check(session, record), record);
}

void DpiAndBack(Session& session, Rng&, OpRecord& record)
{
    const Snapshot before = session.Shoot();
    const int32_t was = session.Manager().GetDpi();
    session.Manager().SetDpi(144);
    Session::Pump();
    Check(session, record);
    session.Manager().SetDpi(was);
    Session::Pump();
    Finish(before, Check(session, record), record);
}

// A second monitor beside, before or below the first; floating panes on it (and across the
// seam); then it goes away.
void RemoveMonitor(Session& session, Rng& rng, OpRecord& record)
{
    display::HeadlessBackend& display = test::Headless();
    const std::vector<display::ScreenInfo> original = display.GetScreens();
    const display::ScreenInfo first = original.front();
    static const TamSize sizes[3] = {TamSize(1280, 1024), TamSize(1920, 1080), TamSize(2560, 1440)};
    const TamSize size = sizes[Uniform(rng, 0, 2)];
    display::ScreenInfo second{0, 0, size.Width(), size.Height(), 96.0};
    switch (Uniform(rng, 0, 2)) {
    case 0: second.x = first.x + first.width; break;
    case 1: second.x = first.x - size.Width(); break;
    default: second.y = first.y + first.height; break;
    }
    display.SetScreens({first, second});
    Session::Pump();
    const int32_t floats = Uniform(rng, 1, std::min<int32_t>(3, static_cast<int32_t>(session.PaneCount())));
    for (int32_t i = 0; i < floats; ++i) {
        TamDockablePane* pane = RandomDocked(session, rng);
        if (!pane)
            break;
        const int32_t w = Uniform(rng, 120, 500), h = Uniform(rng, 80, 400);
        // Mostly on the second monitor, some across the seam with the first.
        const int32_t x = Uniform(rng, second.x - w / 2, second.x + second.width - w);
        const int32_t y = Uniform(rng, second.y - h / 2, second.y + second.height - h);
        pane->FloatAt(CRectangle(x, y, x + w, y + h));
        Session::Pump();
    }
    const Snapshot before = Check(session, record);
    display.SetScreens({first});
    Session::Pump();
    const Snapshot after = Check(session, record);
    for (const PaneShot& s : after) {
        if (s.state != PaneState::Floating)
            continue;
        ++record.frames;
        record.framesReachable += IsReachable(s.rect, Screens(), kReachable) ? 1 : 0;
    }
    // Each floating pane hidden and shown floats again exactly where it was.
    for (size_t i = 0; i < session.PaneCount(); ++i) {
        TamDockablePane* pane = session.Pane(i);
        CRectangle was;
        if (!pane->GetMiniFrameScreenRect(was))
            continue;
        pane->HidePane();
        pane->ShowPane();
        Session::Pump();
        CountFloatAgain(*pane, was, record);
    }
    record.lost += CountLost(before, session.Shoot(), Screens(), kReachable);
    record.ran = true;
    display.SetScreens(original);
    Session::Pump();
}

// Drags divider `index` by `delta` pixels across its bar with injected mouse messages; the
// distance it really moved (minimum sizes clamp it).
int32_t DragDivider(Session& session, size_t index, int32_t delta)
{
    const TamPaneDivider& divider = *session.Manager().GetDividers()[index];
    const CRectangle bar = session.HostRect(*divider.GetCWnd());
    const bool vertical = divider.IsVertical();
    const int32_t gx = (bar.Right() - bar.Left()) / 2, gy = (bar.Bottom() - bar.Top()) / 2;
    const TamPoint grab(bar.Left() + gx, bar.Top() + gy);
    const TamPoint to = vertical ? TamPoint(grab.x + delta, grab.y) : TamPoint(grab.x, grab.y + delta);
    const TamPoint half((grab.x + to.x) / 2, (grab.y + to.y) / 2);
    test::DragInHost(session.Manager(), divider.GetHandle(), TamPoint(gx, gy), {half, to});
    const CRectangle moved = session.HostRect(*session.Manager().GetDividers()[index]->GetCWnd());
    return vertical ? moved.Left() - bar.Left() : moved.Top() - bar.Top();
}

void DividerDragAndBack(Session& session, Rng& rng, OpRecord& record)
{
    const size_t count = session.Manager().GetDividers().size();
    if (count == 0)
        return;
    const size_t index = static_cast<size_t>(Uniform(rng, 0, static_cast<int32_t>(count) - 1));
    const int32_t delta = Uniform(rng, 5, 200) * (Uniform(rng, 0, 1) ? 1 : -1);
    const Snapshot before = session.Shoot();
    const int32_t moved = DragDivider(session, index, delta);
    Check(session, record);
    DragDivider(session, index, -moved);
    Finish(before, Check(session, record), record);
}

void Chain(Session& session, Rng& rng, OpRecord& record)
{
    const Snapshot start = session.Shoot();
    for (int32_t i = 0; i < kChainLength; ++i) {
        TamDockablePane* pane = RandomDocked(session, rng);
        if (!pane)
            break;
        ++record.cycles;
        const auto [before, after] = HideShowCycle(session, *pane, record);
        record.cyclesReturned += PaneDisplacement(before, after, NameOf(*pane)) <= 1 ? 1 : 0;
        record.cyclesAllBack += Compare(before, after).allWithin1 ? 1 : 0;
    }
    const Snapshot end = session.Shoot();
    Finish(start, end, record);
    record.drift = record.all.maxDisplacement;
}

} // namespace

const char* StepName(DockPlacementStep step)
{
    static const char* const names[kStepCount] = {"none",        "holder",    "margin",   "justified_free",
                                                  "aligned_row", "floating",  "heuristic", "emergency"};
    return names[static_cast<size_t>(step)];
}

const char* OpName(OpKind kind)
{
    static const char* const names[kOpCount] = {"hide_show", "float_redock", "save_load", "resize", "dpi",
                                                "monitor_removal", "divider_drag", "chain50"};
    return names[static_cast<size_t>(kind)];
}

OpRecord RunOperation(OpKind kind, uint64_t seed)
{
    OpRecord record;
    record.kind = kind;
    record.seed = seed;
    // The layout depends on the seed only, so every operation sees the same layouts.
    Rng layoutRng(seed);
    const LayoutChoice choice = ChooseLayout(layoutRng);
    Session session(choice.client, 96);
    if (!BuildLayout(session, choice.paneCount, layoutRng))
        return record;
    Check(session, record);
    Rng rng(seed * 0x9E3779B97F4A7C15ull + static_cast<uint64_t>(kind) + 1);
    switch (kind) {
    case OpKind::HideShow: HideShow(session, rng, record); break;
    case OpKind::FloatRedock: FloatRedock(session, rng, record); break;
    case OpKind::SaveLoad: SaveAndLoad(session, rng, record); break;
    case OpKind::Resize: ResizeAndBack(session, rng, record); break;
    case OpKind::Dpi: DpiAndBack(session, rng, record); break;
    case OpKind::MonitorRemoval: RemoveMonitor(session, rng, record); break;
    case OpKind::DividerDrag: DividerDragAndBack(session, rng, record); break;
    case OpKind::Chain: Chain(session, rng, record); break;
    case OpKind::Count: break;
    }
    return record;
}

} // namespace vesk::fidelity
