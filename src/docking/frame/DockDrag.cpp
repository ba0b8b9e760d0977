// Dragging dividers and panes through a window-procedure hook.
#include "docking/frame/DockDrag_p.hpp"

#include "docking/layout/LayoutModel.hpp"
#include "docking/layout/LayoutTree.hpp"

#include <vesk/docking/TamPaneContainer.hpp>
#include <vesk/frame/WinMessages.hpp>
#include <vesk/graphics/Brush.hpp>
#include <vesk/graphics/Pen.hpp>
#include <vesk/window/WinMsgRouter.hpp>

#include <algorithm>
#include <cstdlib>

namespace vesk {

namespace {

// How near a frame edge (or the free space's edge) the pointer must be to dock there.
constexpr int32_t EDGE_ZONE_96 = 16;
// How far the pointer must move before a caption drag lifts the pane out.
constexpr int32_t LIFT_DISTANCE = 4;

CRectangle RectOf(const LayoutRect& r, const TamPoint& o)
{
    return CRectangle(o.x + r.x, o.y + r.y, o.x + r.x + r.cx, o.y + r.y + r.cy);
}

bool Within(const CRectangle& r, const TamPoint& p)
{
    return p.x >= r.Left() && p.x < r.Right() && p.y >= r.Top() && p.y < r.Bottom();
}

// The side of `r` nearest to `p` (CBRS_ALIGN_*), and its distance.
uint32_t NearestSide(const CRectangle& r, const TamPoint& p, int32_t& distance)
{
    const int32_t d[4] = {p.x - r.Left(), p.y - r.Top(), r.Right() - 1 - p.x, r.Bottom() - 1 - p.y};
    const int i = static_cast<int>(std::min_element(d, d + 4) - d);
    distance = d[i];
    static constexpr uint32_t kSides[4] = {CBRS_ALIGN_LEFT, CBRS_ALIGN_TOP, CBRS_ALIGN_RIGHT, CBRS_ALIGN_BOTTOM};
    return kSides[i];
}

} // namespace

bool DockDropOverlay::Create(CWnd* host)
{
    return CreateOwned(WndKind::Child, host, TamPoint(0, 0), TamSize(0, 0));
}

void DockDropOverlay::Show(const CRectangle& rect)
{
    m_aRect = rect;
    Wnd().MoveWindow(rect.Left(), rect.Top(), rect.Right() - rect.Left(), rect.Bottom() - rect.Top());
    Wnd().ShowWindow(SW_SHOW);
    Invalidate();
}

void DockDropOverlay::Hide()
{
    m_aRect = CRectangle();
    Wnd().ShowWindow(SW_HIDE);
}

void DockDropOverlay::Paint(const CRectangle&)
{
    const TamSize size = Wnd().GetClientSize();
    ChangePen(Pen(TamColor(0xC07830u), 2));
    ChangeFillInBrush(Brush(TamColor(0xF0D8B0u)));
    DrawRect(CRectangle(0, 0, size.Width(), size.Height()));
}

DockDrag::DockDrag(TamDockingManager& manager, size_t divider, const TamPoint& grab)
    : m_rManager(manager), m_aGrab(grab), m_aLast(grab), m_nDivider(divider)
{
    const auto& dividers = manager.GetModel().GetSolution().dividers;
    if (divider < dividers.size())
        m_nDividerPos = dividers[divider].bVertical ? dividers[divider].rect.x : dividers[divider].rect.y;
    // The host, not the bar: the bar moves while dragged, the host's coordinates stay.
    Start(manager.GetHost());
}

DockDrag::DockDrag(TamDockingManager& manager, TamDockablePane& pane, const TamPoint& grab)
    : m_rManager(manager), m_aGrab(grab), m_aLast(grab), m_pPane(&pane)
{
    const CRectangle r = pane.GetScreenRect();
    const TamPoint at = manager.ScreenToHost(r.TopLeft());
    m_aPaneRect = CRectangle(at.x, at.y, at.x + r.Right() - r.Left(), at.y + r.Bottom() - r.Top());
    m_aOverlay.Create(manager.GetHost());
    // The host, not the pane: the pane's window goes out of sight once the pane is lifted.
    Start(manager.GetHost());
}

void DockDrag::Start(CWnd* host)
{
    s_pActive = this;
    GlPushWinProcHook(&Hook);
    host->SetCapture();
    host->SetFocus();
}

DockDrag::~DockDrag()
{
    GlPullWinProcHook(&Hook);
    CWnd::ReleaseCapture();
    if (s_pActive == this)
        s_pActive = nullptr;
}

int DockDrag::Hook(NativeWindow window, uint32_t message, WParam wParam, LParam lParam)
{
    DockDrag* drag = s_pActive;
    CWnd* wnd = CWnd::FromHandle(window);
    if (!drag || !wnd)
        return 0;
    switch (message) {
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP: {
        // Client coordinates of whichever window got the message, to the host's.
        const CRectangle r = wnd->GetWindowRect();
        const TamPoint p = drag->m_rManager.ScreenToHost(
            TamPoint(r.Left() + LoWordSigned(lParam), r.Top() + HiWordSigned(lParam)));
        drag->MoveTo(p);
        if (message == WM_LBUTTONUP)
            drag->Drop(); // ends the drag: `drag` is gone
        return 1;
    }
    case WM_KEYDOWN:
        if (wParam == VK_ESCAPE) {
            drag->Cancel();
            return 1;
        }
        return 0;
    default:
        return 0;
    }
}

void DockDrag::MoveTo(const TamPoint& p)
{
    m_aLast = p;
    if (!m_pPane) {
        const auto& dividers = m_rManager.GetModel().GetSolution().dividers;
        if (m_nDivider >= dividers.size() || m_nDivider >= m_rManager.GetDividers().size())
            return;
        // The model's own clamp: the preview stands where the divider will stand.
        const LayoutDivider& d = dividers[m_nDivider];
        const int32_t delta = d.bVertical ? p.x - m_aGrab.x : p.y - m_aGrab.y;
        const int32_t pos = std::clamp(m_nDividerPos + delta, d.nLow, d.nHigh);
        LayoutRect r = d.rect;
        (d.bVertical ? r.x : r.y) = pos;
        m_rManager.GetDividers()[m_nDivider]->Place(RectOf(r, m_rManager.ModelOffset()), d.bVertical);
        return;
    }
    if (!m_bLifted) {
        if (std::abs(p.x - m_aGrab.x) < LIFT_DISTANCE && std::abs(p.y - m_aGrab.y) < LIFT_DISTANCE)
            return;
        m_bLifted = true;
        m_bWasDocked = m_rManager.TakeOut(*m_pPane);
    }
    m_aTarget = TargetAt(p);
    CRectangle preview;
    if (Preview(m_aTarget, preview))
        m_aOverlay.Show(preview);
    else
        m_aOverlay.Hide();
}

DockDropTarget DockDrag::TargetAt(const TamPoint& p) const
{
    const LayoutModel& model = m_rManager.GetModel();
    const TamPoint o = m_rManager.ModelOffset();
    const int32_t zone = LayoutScale(EDGE_ZONE_96, m_rManager.GetDpi());
    int32_t distance = 0;
    const CRectangle area = RectOf(model.GetSolution().client, o);
    if (Within(area, p)) {
        const uint32_t side = NearestSide(area, p, distance);
        if (distance < zone)
            return {DockDropTarget::Kind::EdgeOuter, SString(), side};
    }
    for (const LayoutPaneRect& pr : model.GetSolution().panes) {
        const CRectangle r = RectOf(pr.rect, o);
        if (Within(r, p))
            return {DockDropTarget::Kind::Pane, pr.pPane->GetName(), NearestSide(r, p, distance)};
    }
    const CRectangle free = RectOf(model.GetSolution().freeSpace, o);
    if (Within(free, p)) {
        const uint32_t side = NearestSide(free, p, distance);
        if (distance < zone)
            return {DockDropTarget::Kind::EdgeInner, SString(), side};
    }
    return {};
}

int32_t DockDrag::BandLength(uint32_t align) const
{
    // As thick as it was when it last stood in a band of its own at that edge.
    const DockPosition& recent = m_pPane->GetRRecentDockPosition();
    if (recent.IsMarginDock() && recent.GetMarginAlign() == align && recent.GetAlignSideLen() > 0)
        return recent.GetAlignSideLen();
    // A quarter of the frame's room across that edge.
    const LayoutRect& c = m_rManager.GetModel().GetSolution().client;
    return (align == CBRS_ALIGN_LEFT || align == CBRS_ALIGN_RIGHT ? c.cx : c.cy) / 4;
}

bool DockDrag::Preview(const DockDropTarget& target, CRectangle& rect) const
{
    if (target.eKind == DockDropTarget::Kind::None || !m_pPane)
        return false;
    // Carry out the edit on the model and take it back: docking and undocking are exact
    // inverses, so the rectangle seen here is the one the drop gives.
    LayoutModel& model = *m_rManager.m_pModel;
    const SString name = m_pPane->GetName();
    LayoutEdge side;
    LayoutEdgeOfAlign(target.nAlign, side);
    const LayoutPane* pane = target.eKind == DockDropTarget::Kind::Pane
        ? model.DockIntoPane(name, target.sTarget, side, 0, m_pPane->GetMinSize())
        : model.AddBand(side, name, BandLength(target.nAlign), m_pPane->GetMinSize(),
                        target.eKind == DockDropTarget::Kind::EdgeOuter);
    if (!pane)
        return false;
    rect = pane->GetScreenRect();
    model.Remove(name);
    return true;
}

void DockDrag::Drop()
{
    TamDockingManager& manager = m_rManager;
    if (!m_pPane) {
        const auto& dividers = manager.GetModel().GetSolution().dividers;
        if (m_nDivider < dividers.size()) {
            const bool vertical = dividers[m_nDivider].bVertical;
            const int32_t delta = vertical ? m_aLast.x - m_aGrab.x : m_aLast.y - m_aGrab.y;
            manager.m_pModel->MoveDivider(m_nDivider, m_nDividerPos + delta);
        }
        Finish();
        manager.RecalcLayout();
        return;
    }
    TamDockablePane* pane = m_pPane;
    const DockDropTarget target = m_aTarget;
    const bool lifted = m_bLifted;
    const int32_t band = target.eKind == DockDropTarget::Kind::None ? 0 : BandLength(target.nAlign);
    // Without a target the pane floats where it was let go, at its size.
    const CRectangle host = manager.GetHost()->GetWindowRect();
    const int32_t dx = host.Left() + m_aLast.x - m_aGrab.x;
    const int32_t dy = host.Top() + m_aLast.y - m_aGrab.y;
    const CRectangle floatRect(m_aPaneRect.Left() + dx, m_aPaneRect.Top() + dy, m_aPaneRect.Right() + dx,
                               m_aPaneRect.Bottom() + dy);
    Finish();
    if (!lifted)
        return;
    switch (target.eKind) {
    case DockDropTarget::Kind::Pane:
        manager.DockIntoPane(pane, manager.FindPane(target.sTarget), target.nAlign, 0);
        break;
    case DockDropTarget::Kind::EdgeOuter:
    case DockDropTarget::Kind::EdgeInner:
        manager.DockIntoParent(pane, target.nAlign, band, target.eKind == DockDropTarget::Kind::EdgeOuter);
        break;
    case DockDropTarget::Kind::None:
        pane->FloatAt(floatRect);
        break;
    }
}

void DockDrag::Cancel()
{
    TamDockingManager& manager = m_rManager;
    TamDockablePane* pane = m_pPane;
    const bool redock = m_bWasDocked;
    Finish();
    if (!pane)
        manager.RecalcLayout(); // the divider back where the model has it
    else if (redock)
        manager.Redock(*pane);
}

void DockDrag::Finish()
{
    m_rManager.m_pDrag.reset();
}

} // namespace vesk
