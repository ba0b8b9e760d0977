// The manager's saved layout value. Each part is a section, so a reader skips whatever a newer
// writer appends inside it, and ignores sections after the ones it knows:
//   header:   version, oldest version able to read it, client size and DPI of the frame
//   docked:   the layout model's bands and trees (see LayoutModelRecord.cpp)
//   floating: count, then one pane record each
//   pinned:   count of dock sites, then per site a section with its edge, a count and records
//   hidden:   count, then one pane record each
// A pane record is a section: name; its recent dock position as a record of its own, with the
// position's floating flag and floating rectangle after it (the position's record leaves the one
// out and keeps an older value of the other); the recent docked and floating rectangles of the
// pane (for a floating pane its mini-frame's rectangle); and the edge, row and width of its band
// when last docked.
#include <vesk/docking/TamDockingManager.hpp>

#include "docking/frame/DockDrag_p.hpp"
#include "docking/layout/LayoutModel.hpp"
#include "docking/layout/LayoutRecord_p.hpp"

#include <vesk/docking/DataBuffer.hpp>
#include <vesk/docking/TamDockablePane.hpp>
#include <vesk/docking/TamPaneContainer.hpp>
#include <vesk/docking/TamPaneFrameWnd.hpp>
#include <vesk/frame/WinMessages.hpp>

#include <algorithm>
#include <set>

namespace vesk {

namespace {

constexpr uint32_t kLayoutVersion = 1;
// Raised only when a change makes older readers misread the value.
constexpr uint32_t kOldestReader = 1;
using namespace layout_record;

struct AwayPane {
    SString sName;
    DockPosition aPos;
    CRectangle aDocked;
    CRectangle aFloated;
    uint32_t nEdge = 0;
    int32_t nRow = 0;
    int32_t nWidth = 0;
};

struct SavedLayout {
    TamSize aClient;
    int32_t nDpi = 96;
    std::vector<AwayPane> aFloating;
    std::vector<std::pair<uint32_t, std::vector<AwayPane>>> aPinned;
    std::vector<AwayPane> aHidden;
};

bool ReadAway(DataBuffer& b, AwayPane& a)
{
    LocalSizedRead section(b);
    uint8_t floating = 0;
    CRectangle posFloat;
    const bool ok = section.IsOpen() && b.ReadString(a.sName, kMaxName) && a.sName.Len() > 0 &&
                    a.aPos.ReadFromDataBuffer(b) && b.ReadByte(floating) && b.ReadRect(posFloat) &&
                    b.ReadRect(a.aDocked) && b.ReadRect(a.aFloated) && b.ReadUInt32(a.nEdge) &&
                    b.ReadInt32(a.nRow) && b.ReadInt32(a.nWidth);
    a.aPos.SetIsFloating(floating != 0);
    a.aPos.SetRectRecentFloat(posFloat);
    return ok;
}

// Reads a count and that many pane records; names must be new to `names`.
bool ReadAwayList(DataBuffer& b, std::vector<AwayPane>& list, std::set<SString>& names)
{
    uint32_t n = 0;
    if (!b.ReadUInt32(n) || n > kMaxAwayPanes)
        return false;
    list.resize(n);
    for (AwayPane& a : list) {
        if (!ReadAway(b, a) || !names.insert(a.sName).second)
            return false;
    }
    return true;
}

bool ReadSavedLayout(DataBuffer& b, LayoutModel& model, SavedLayout& saved)
{
    {
        LocalSizedRead header(b);
        uint32_t version = 0, oldest = 0;
        if (!header.IsOpen() || !b.ReadUInt32(version) || !b.ReadUInt32(oldest) || oldest > kLayoutVersion ||
            !b.ReadSize(saved.aClient) || !b.ReadInt32(saved.nDpi))
            return false;
    }
    {
        LocalSizedRead docked(b);
        if (!docked.IsOpen() || !model.ReadBands(b))
            return false;
    }
    std::set<SString> names;
    for (const LayoutPaneRect& p : model.GetSolution().panes)
        names.insert(p.pPane->GetName());
    {
        LocalSizedRead floating(b);
        if (!floating.IsOpen() || !ReadAwayList(b, saved.aFloating, names))
            return false;
    }
    {
        LocalSizedRead pinned(b);
        uint32_t sites = 0;
        if (!pinned.IsOpen() || !b.ReadUInt32(sites) || sites > kMaxDockSites)
            return false;
        saved.aPinned.resize(sites);
        for (auto& [align, list] : saved.aPinned) {
            LocalSizedRead site(b);
            if (!site.IsOpen() || !b.ReadUInt32(align) || !ReadAwayList(b, list, names))
                return false;
        }
    }
    LocalSizedRead hidden(b);
    return hidden.IsOpen() && ReadAwayList(b, saved.aHidden, names);
}

} // namespace

void TamDockingManager::WriteAway(DataBuffer& b, const TamDockablePane& pane) const
{
    LocalSizedWrite section(b);
    b.WriteString(pane.m_sName);
    pane.m_aRecentPos.WriteToDataBuffer(b);
    b.WriteByte(pane.m_aRecentPos.IsFloating() ? 1 : 0);
    b.WriteRect(pane.m_aRecentPos.GetRectRecentFloat());
    b.WriteRect(pane.m_aRecentDocked);
    b.WriteRect(pane.m_pMiniFrame ? pane.m_pMiniFrame->GetWindowRect() : pane.m_aRecentFloat);
    b.WriteUInt32(pane.m_nRecentAlign);
    b.WriteInt32(pane.m_nRecentRow);
    b.WriteInt32(pane.m_nRecentWidth);
}

std::vector<uint8_t> TamDockingManager::SaveLayout() const
{
    DataBuffer b;
    {
        LocalSizedWrite header(b);
        b.WriteUInt32(kLayoutVersion);
        b.WriteUInt32(kOldestReader);
        b.WriteSize(m_pModel->GetClientSize());
        b.WriteInt32(m_pModel->GetDpi());
    }
    {
        LocalSizedWrite docked(b);
        m_pModel->WriteBands(b);
    }
    const auto writeList = [&](bool (TamDockablePane::*state)() const) {
        LocalSizedWrite section(b);
        b.WriteUInt32(static_cast<uint32_t>(
            std::count_if(m_aPanes.begin(), m_aPanes.end(), [&](const TamDockablePane* p) { return (p->*state)(); })));
        for (const TamDockablePane* pane : m_aPanes) {
            if ((pane->*state)())
                WriteAway(b, *pane);
        }
    };
    writeList(&TamDockablePane::IsFloating);
    {
        LocalSizedWrite pinned(b);
        b.WriteUInt32(static_cast<uint32_t>(m_aSites.size()));
        for (const auto& site : m_aSites) {
            LocalSizedWrite section(b);
            b.WriteUInt32(site->GetAlignment());
            b.WriteUInt32(static_cast<uint32_t>(site->m_aPanes.size()));
            for (const TamDockablePane* pane : site->m_aPanes)
                WriteAway(b, *pane);
        }
    }
    writeList(&TamDockablePane::IsHidden);
    return b.GetBytes();
}

bool TamDockingManager::LoadLayout(std::span<const uint8_t> value)
{
    DataBuffer b;
    auto model = std::make_unique<LayoutModel>(m_pModel->GetClientSize(), m_pModel->GetDpi());
    model->SetOrigin(m_pModel->GetOrigin());
    SavedLayout saved;
    if (!b.SetBytes(value.data(), value.size()) || !ReadSavedLayout(b, *model, saved))
        return false;

    // Panes the manager lacks leave the tree; the others keep their current minimum sizes.
    std::set<SString> placed;
    std::vector<SString> docked;
    for (const LayoutPaneRect& p : model->GetSolution().panes)
        docked.push_back(p.pPane->GetName());
    for (const SString& name : docked) {
        if (const TamDockablePane* pane = FindPane(name)) {
            model->SetMinSize(name, pane->GetMinSize());
            placed.insert(name);
        } else {
            model->Remove(name);
        }
    }
    const int32_t dpi = std::max(saved.nDpi, 1);
    model->FitBands(TamSize(static_cast<int32_t>(LayoutMulDiv(saved.aClient.Width(), m_pModel->GetDpi(), dpi)),
                            static_cast<int32_t>(LayoutMulDiv(saved.aClient.Height(), m_pModel->GetDpi(), dpi))));
    for (const AwayPane& a : saved.aFloating)
        placed.insert(a.sName);
    for (const auto& site : saved.aPinned) {
        for (const AwayPane& a : site.second)
            placed.insert(a.sName);
    }
    for (const AwayPane& a : saved.aHidden)
        placed.insert(a.sName);

    // Every pane the layout places leaves where it is; the others that are docked are taken
    // out (remembering their place) and docked again into the new layout.
    m_pDrag.reset();
    std::vector<TamDockablePane*> redock;
    for (TamDockablePane* pane : m_aPanes) {
        if (placed.count(pane->GetName())) {
            Unpin(*pane);
            pane->DropMiniFrame();
        } else if (pane->IsDocked() && TakeOut(*pane)) {
            redock.push_back(pane);
        }
    }
    m_aContainers.clear(); // they belong to the old model's splits
    m_pModel = std::move(model);
    for (TamDockablePane* pane : m_aPanes) {
        if (m_pModel->FindPane(pane->GetName())) {
            pane->m_eState = TamDockablePane::State::Docked;
        } else if (placed.count(pane->GetName())) {
            pane->m_eState = TamDockablePane::State::Hidden;
            pane->Wnd().ShowWindow(SW_HIDE);
        }
    }
    RecalcLayout();

    const auto restore = [](TamDockablePane& pane, const AwayPane& a) {
        pane.SetRecentDockPosition(a.aPos);
        pane.m_aRecentDocked = a.aDocked;
        pane.m_aRecentFloat = a.aFloated;
        pane.m_nRecentAlign = a.nEdge;
        pane.m_nRecentRow = a.nRow;
        pane.m_nRecentWidth = a.nWidth;
    };
    for (const AwayPane& a : saved.aFloating) {
        if (TamDockablePane* pane = FindPane(a.sName)) {
            restore(*pane, a);
            pane->FloatAt(a.aFloated);
        }
    }
    for (const auto& [align, list] : saved.aPinned) {
        TamDockSite* site = GetDockSite(align);
        for (const AwayPane& a : list) {
            TamDockablePane* pane = FindPane(a.sName);
            if (!pane)
                continue;
            restore(*pane, a);
            if (site) {
                pane->m_eState = TamDockablePane::State::AutoHidden;
                site->m_aPanes.push_back(pane);
            } else if (!Redock(*pane)) {
                pane->FloatPane();
            }
        }
    }
    for (const AwayPane& a : saved.aHidden) {
        if (TamDockablePane* pane = FindPane(a.sName))
            restore(*pane, a);
    }
    for (TamDockablePane* pane : redock) {
        if (!Redock(*pane))
            pane->FloatPane();
    }
    RecalcLayout();
    return true;
}

} // namespace vesk
