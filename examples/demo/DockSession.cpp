// The session's docking steps. Every pane move is made the way a user makes it, by posted
// mouse and key messages; each step compares the panes' rectangles before and after.
#include "Script.hpp"

using namespace vesk;

namespace demo {

namespace {

TamPoint Centre(const CRectangle& r)
{
    return TamPoint((r.Left() + r.Right()) / 2, (r.Top() + r.Bottom()) / 2);
}

// Presses `pane`'s caption and moves the pointer by `lift` from the corner of `from`, the
// pane's rectangle: far enough to lift the pane out of its place. The button stays down.
void Lift(Script& s, DockedPane& pane, const CRectangle& from, const TamPoint& lift)
{
    s.Press(pane.GetHandle(), TamPoint(30, 5));
    s.MoveTo(TamPoint(from.Left() + lift.x, from.Top() + lift.y));
}

// F1 to F5 twice each: every pane hidden and shown again in its place.
void HideAndShowEach(Script& s)
{
    DemoApp& app = s.App();
    const PaneRects before = app.Rects();
    for (int pane = 0; pane < PANE_COUNT; ++pane) {
        const uint16_t key = static_cast<uint16_t>(static_cast<int>(VK_F1) + pane);
        s.Key(key);
        const bool hidden = !app.IsPaneVisible(pane) && app.Rects()[pane].IsEmpty();
        s.Shot(pane == PANE_FOLDER ? "04-folder-hidden" : nullptr);
        s.Key(key);
        const CRectangle now = app.Rects()[pane];
        const std::string& shown = app.Log().Lines().back();
        s.Step("F" + std::to_string(pane + 1) + ": " + shown.substr(0, shown.find(' ')) +
               (hidden ? " hidden and shown" : " did not hide") +
               (now == before[pane] ? ", back in its place" : ", moved to " + RectText(now)));
    }
    s.Step(PlacesText(before, app.Rects(), "returned to"));
}

// The divider that stands on `pane`'s right, in host coordinates; null when there is none.
NativeWindow DividerRightOf(DemoApp& app, int pane, CRectangle& at)
{
    const CRectangle r = app.Rects()[pane];
    const CRectangle host = app.Docking().GetHost()->GetWindowRect();
    for (const auto& divider : app.Docking().GetDividers()) {
        const CRectangle d = divider->GetCWnd()->GetWindowRect();
        if (divider->IsVertical() && d.Left() - host.Left() == r.Right()) {
            at = CRectangle(d.Left() - host.Left(), d.Top() - host.Top(), d.Right() - host.Left(),
                            d.Bottom() - host.Top());
            return divider->GetHandle();
        }
    }
    return nullptr;
}

// The divider between the folder pane and the preview, 40 pixels to the right and back.
void DragDivider(Script& s)
{
    DemoApp& app = s.App();
    const PaneRects before = app.Rects();
    for (const int delta : {40, -40}) {
        CRectangle at;
        const NativeWindow bar = DividerRightOf(app, PANE_FOLDER, at);
        if (!bar) {
            s.Step("no divider beside the folder pane to drag");
            return;
        }
        const TamPoint grab(2, 100);
        s.Press(bar, grab);
        s.MoveTo(TamPoint(at.Left() + grab.x + delta / 2, at.Top() + grab.y));
        s.Release(TamPoint(at.Left() + grab.x + delta, at.Top() + grab.y));
        const PaneRects now = app.Rects();
        if (delta > 0) {
            s.Step("dragged the folder pane's divider 40 pixels right: folder " +
                   std::to_string(now[PANE_FOLDER].Right() - now[PANE_FOLDER].Left()) + " wide, preview " +
                   RectText(now[PANE_PREVIEW]));
            s.Shot("05-divider");
        } else {
            s.Step("dragged it back: " + PlacesText(before, now, "returned to"));
        }
    }
}

// The log pane's caption dragged onto the lower edge of the folder pane, then to the frame's
// bottom edge again.
void DockBeside(Script& s)
{
    DemoApp& app = s.App();
    const PaneRects before = app.Rects();
    DockedPane& log = *app.Dockable(PANE_LOG);
    const CRectangle from = before[PANE_LOG];
    Lift(s, log, from, TamPoint(30, -20)); // the others take its room
    // Well inside the folder pane and nearest its lower edge, away from the frame's edges.
    const CRectangle folder = app.Rects()[PANE_FOLDER];
    const TamPoint target(Centre(folder).x, folder.Bottom() - 40);
    s.MoveTo(target);
    s.Shot("06-dragging");
    s.Release(target);
    PaneRects now = app.Rects();
    s.Step(std::string("dragged the log pane onto the folder pane's lower edge: ") +
           (log.IsDocked() ? "docked below it at " + RectText(now[PANE_LOG]) : "not docked") + ", " +
           PlacesText(before, now, "kept"));
    s.Shot("07-docked-beside");

    const CRectangle beside = now[PANE_LOG];
    Lift(s, log, beside, TamPoint(30, -20));
    const TamSize client = app.Docking().GetHost()->GetClientSize();
    const TamPoint edge(client.Width() / 2, client.Height() - 4);
    s.MoveTo(edge);
    s.Release(edge);
    now = app.Rects();
    s.Step(std::string("dragged it to the frame's bottom edge: ") +
           (log.GetCurrentAlignment() == CBRS_ALIGN_BOTTOM ? "docked there at " + RectText(now[PANE_LOG])
                                                            : "not docked there") +
           ", " + PlacesText(before, now, "returned to"));
}

// The layout saved to the settings store and restored into a new browser window.
void SaveAndRestore(Script& s)
{
    DemoApp& app = s.App();
    const PaneRects before = app.Rects();
    if (!app.SaveLayout()) {
        s.Step("cannot save the pane layout to the settings store");
        return;
    }
    DemoApp fresh;
    std::string error;
    if (!fresh.Create(app.CurrentSettings(true), app.Scratch(), error)) {
        s.Step("cannot make a second browser window: " + error);
        return;
    }
    const bool restored = fresh.RestoreLayout();
    fresh.OpenFolder(app.Folder().Folder());
    s.Settle();
    s.Step(std::string("saved the pane layout and ") +
           (restored ? "restored it into a new browser window: " : "could not restore it into a new browser window: ") +
           PlacesText(before, fresh.Rects(), "took"));
    s.Shot("09-restored", &fresh);
}

// The properties pane dragged out over the preview, where it floats; the layout saved and
// restored with it floating; then the pane dragged from its mini-frame back onto the top
// of the colours pane.
void FloatAndDockBack(Script& s)
{
    DemoApp& app = s.App();
    const PaneRects before = app.Rects();
    DockedPane& properties = *app.Dockable(PANE_PROPERTIES);
    const CRectangle from = before[PANE_PROPERTIES];
    Lift(s, properties, from, TamPoint(10, 40));
    const TamPoint drop(Centre(app.Rects()[PANE_PREVIEW]).x - 60, Centre(app.Rects()[PANE_PREVIEW]).y - 60);
    s.MoveTo(drop);
    s.Release(drop);
    PaneRects now = app.Rects();
    s.Step(std::string("dragged the properties pane over the preview: ") +
           (properties.IsFloating() ? "floating at " + RectText(now[PANE_PROPERTIES]) : "not floating") +
           ", colours " + RectText(now[PANE_COLOURS]));
    s.Shot("08-floating");
    SaveAndRestore(s);

    Lift(s, properties, now[PANE_PROPERTIES], TamPoint(10, 40));
    const CRectangle colours = app.Rects()[PANE_COLOURS];
    const TamPoint target(Centre(colours).x, colours.Top() + 30);
    s.MoveTo(target);
    s.Release(target);
    now = app.Rects();
    s.Step(std::string("dragged the properties pane from its mini-frame onto the colours pane's upper edge: ") +
           (properties.IsDocked() ? "docked" : "not docked") + ", " +
           PlacesText(before, now, "returned to"));
}

// The colours pane pinned off into the right edge's strip with its pin button, slid out
// with a click on its tab and pinned back.
void PinOffAndBack(Script& s)
{
    DemoApp& app = s.App();
    const PaneRects before = app.Rects();
    DockedPane& colours = *app.Dockable(PANE_COLOURS);
    const TamPoint pin = Centre(colours.GetPinButtonRect());
    s.Click(colours.GetHandle(), pin);
    TamDockSite* strip = app.Docking().GetDockSite(CBRS_ALIGN_RIGHT);
    if (!colours.IsAutoHidden() || !strip || strip->GetAutoHidePanes().empty()) {
        s.Step("the colours pane's pin button did not pin it off");
        return;
    }
    s.Step("pinned the colours pane off: a tab in the right strip, properties " +
           RectText(app.Rects()[PANE_PROPERTIES]));
    s.Click(strip->GetHandle(), Centre(strip->GetTabRect(0)));
    s.Shot("11-pinned-off");
    s.Click(colours.GetHandle(), Centre(colours.GetPinButtonRect()));
    s.Step(std::string("slid it out with its tab and pinned it back: ") + (colours.IsDocked() ? "docked, " : "not docked, ") +
           PlacesText(before, app.Rects(), "returned to"));
}

// The frame made smaller and then given its size back.
void ResizeAndBack(Script& s)
{
    DemoApp& app = s.App();
    const PaneRects before = app.Rects();
    const CRectangle frame = app.Frame().GetWindowRect();
    const TamSize size = app.Frame().GetClientSize();
    app.Frame().MoveWindow(frame.Left(), frame.Top(), 720, 450);
    s.Settle();
    s.Step("resized the frame to 720 x 450: preview " + RectText(app.Rects()[PANE_PREVIEW]));
    s.Shot("10-resized");
    app.Frame().MoveWindow(frame.Left(), frame.Top(), size.Width(), size.Height());
    s.Settle();
    s.Step("resized it back to " + std::to_string(size.Width()) + " x " + std::to_string(size.Height()) + ": " +
           PlacesText(before, app.Rects(), "returned to"));
}

} // namespace

void RunDockingSteps(Script& s)
{
    HideAndShowEach(s);
    DragDivider(s);
    DockBeside(s);
    FloatAndDockBack(s);
    PinOffAndBack(s);
    ResizeAndBack(s);
    s.Shot();
}

} // namespace demo
