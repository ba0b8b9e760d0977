// A pane's own sections of a saved layout: its visibility, id, recent place and pin state.
#include <vesk/docking/TamDockablePane.hpp>

#include "docking/frame/DockingRegistry_p.hpp"
#include "docking/layout/LayoutModel.hpp"
#include "docking/layout/LayoutTree.hpp"

#include <vesk/docking/TamDockingManager.hpp>
#include <vesk/docking/TamPaneFrameWnd.hpp>

namespace vesk {

void TamDockablePane::CurrentPlace(uint32_t& align, int32_t& row, int32_t& width) const
{
    align = GetCurrentAlignment();
    const LayoutModel& model = *m_pManager->m_pModel;
    const LayoutPane* pane = model.FindPane(m_sName);
    const LayoutNode* root = pane->GetNode();
    while (root->GetParent())
        root = root->GetParent();
    row = 0;
    for (size_t k = 0; k < model.GetBandCount() && model.GetBand(k).pRoot.get() != root; ++k) {
        if (LayoutAlignOfEdge(model.GetBand(k).eEdge) == align)
            ++row;
    }
    const CRectangle& r = pane->GetScreenRect();
    const bool across = align == CBRS_ALIGN_LEFT || align == CBRS_ALIGN_RIGHT;
    width = across ? r.Right() - r.Left() : r.Bottom() - r.Top();
}

void TamDockablePane::GetRecentPlace(uint32_t& align, int32_t& row, int32_t& width) const
{
    if (IsDocked()) {
        CurrentPlace(align, row, width);
    } else {
        align = m_nRecentAlign;
        row = m_nRecentRow;
        width = m_nRecentWidth;
    }
}

bool TamDockablePane::SaveState(const UString& profile, int32_t index, uint32_t id) const
{
    if (index == -1)
        index = m_nCtrlId;
    const std::u16string base = DockingSectionPath(profile, "BasePane", index, id);
    const std::u16string path = DockingSectionPath(profile, "Pane", index, id);
    uint32_t align = 0;
    int32_t row = 0, width = 0;
    GetRecentPlace(align, row, width);
    const CRectangle docked = IsDocked() ? m_pManager->m_pModel->FindPane(m_sName)->GetScreenRect() : m_aRecentDocked;
    const CRectangle floated = m_pMiniFrame ? m_pMiniFrame->GetWindowRect() : m_aRecentFloat;
    return WriteIntValue(base, u"IsVisible", IsDocked() || IsFloating() || IsAutoHidden()) &&
           WriteIntValue(path, u"ID", m_nCtrlId) && WriteRectValue(path, u"RectRecentFloat", floated) &&
           WriteRectValue(path, u"RectRecentDocked", docked) &&
           WriteIntValue(path, u"RecentFrameAlignment", static_cast<int32_t>(align)) &&
           WriteIntValue(path, u"RecentRowIndex", row) && WriteIntValue(path, u"IsFloating", IsFloating()) &&
           WriteIntValue(path, u"MRUWidth", width) && WriteIntValue(path, u"PinState", IsAutoHidden());
}

bool TamDockablePane::LoadState(const UString& profile, int32_t index, uint32_t id)
{
    if (index == -1)
        index = m_nCtrlId;
    const std::u16string base = DockingSectionPath(profile, "BasePane", index, id);
    const std::u16string path = DockingSectionPath(profile, "Pane", index, id);
    bool any = false;
    int32_t v = 0;
    CRectangle r;
    if (ReadIntValue(path, u"ID", v))
        any = true, m_nCtrlId = v;
    if (ReadRectValue(path, u"RectRecentFloat", r))
        any = true, m_aRecentFloat = r;
    if (ReadRectValue(path, u"RectRecentDocked", r))
        any = true, m_aRecentDocked = r;
    if (ReadIntValue(path, u"RecentFrameAlignment", v))
        any = true, m_nRecentAlign = static_cast<uint32_t>(v);
    if (ReadIntValue(path, u"RecentRowIndex", v))
        any = true, m_nRecentRow = v;
    if (ReadIntValue(path, u"MRUWidth", v))
        any = true, m_nRecentWidth = v;

    int32_t visible = -1, floating = -1, pinned = -1;
    any |= ReadIntValue(base, u"IsVisible", visible);
    any |= ReadIntValue(path, u"IsFloating", floating);
    any |= ReadIntValue(path, u"PinState", pinned);
    if (!m_pManager || visible == -1)
        return any;
    // Bring the pane into the state the values describe; a pane already in it stays as it is.
    if (visible == 0) {
        HidePane();
    } else if (floating == 1) {
        if (!IsFloating())
            FloatPane();
    } else if (!IsDocked() && !IsAutoHidden()) {
        if (m_aRecentPos.GetMarginAlign() == 0 && m_aRecentPos.GetNeighbourVec().empty()) {
            // Nothing to go by: a band of its own at the recent edge, as thick as it was.
            DockPosition pos = m_aRecentPos;
            pos.SetMarginAlign(m_nRecentAlign);
            pos.SetSize(TamSize(m_nRecentWidth, m_nRecentWidth));
            SetRecentDockPosition(pos);
        }
        if (!RedockPane() && !IsFloating())
            FloatPane();
    }
    if (pinned == 1 && IsDocked())
        SetAutoHideMode(true);
    else if (pinned == 0 && IsAutoHidden())
        SetAutoHideMode(false);
    return any;
}

} // namespace vesk
