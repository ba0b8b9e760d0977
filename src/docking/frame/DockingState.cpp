// Saving the manager's layout to the settings store and loading it back.
#include <vesk/docking/TamDockingManager.hpp>

#include "docking/frame/DockingRegistry_p.hpp"
#include "platform/settings.hpp"

#include <vesk/docking/TamDockablePane.hpp>

namespace vesk {

namespace {

constexpr char16_t kLayoutValue[] = u"DockingPaneAndPaneDividers";

} // namespace

bool TamDockingManager::SaveState(const UString& profile, uint32_t id) const
{
    for (const TamDockablePane* pane : m_aPanes) {
        if (!pane->SaveState(profile))
            return false;
    }
    // The section name takes the id as a signed decimal number.
    const std::u16string path =
        DockingSectionPath(profile, "DockingManager", static_cast<int32_t>(id), PANE_DEFAULT_STATE_ID);
    return platform::settings::WriteBinary(path, kLayoutValue, SaveLayout());
}

bool TamDockingManager::LoadState(const UString& profile, uint32_t id)
{
    const std::u16string path =
        DockingSectionPath(profile, "DockingManager", static_cast<int32_t>(id), PANE_DEFAULT_STATE_ID);
    std::vector<uint8_t> value;
    const bool applied = platform::settings::ReadBinary(path, kLayoutValue, value) && LoadLayout(value);
    // A pane whose values agree with the layout just applied keeps its place.
    const std::vector<TamDockablePane*> panes = m_aPanes;
    for (TamDockablePane* pane : panes)
        pane->LoadState(profile);
    return applied;
}

} // namespace vesk
