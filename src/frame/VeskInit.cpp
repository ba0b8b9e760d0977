#include <vesk/frame/VeskData.hpp>

#include "common/LibrarySlots.hpp"

namespace vesk {

namespace {

VeskData* g_pVeskData = nullptr;

} // namespace

void VeskInit()
{
    if (g_pVeskData != nullptr)
        return;
    g_pVeskData = new VeskData;
    // Lower families read the transcript data through a published source, not through the
    // library state itself.
    detail::PublishTranscriptSource([]() -> const TranscriptData* {
        return g_pVeskData && g_pVeskData->HasTranscriptData() ? g_pVeskData->GetTranscriptData()
                                                               : nullptr;
    });
}

void VeskExit()
{
    detail::PublishTranscriptSource(nullptr);
    delete g_pVeskData;
    g_pVeskData = nullptr;
}

VeskData* GetPVeskData()
{
    return g_pVeskData;
}

void SetVeskMainWnd(NativeWindow window)
{
    if (g_pVeskData != nullptr)
        g_pVeskData->SetMainWnd(window);
}

void SetVeskMainFrame(NativeWindow frame)
{
    SetVeskMainWnd(frame);
}

} // namespace vesk
