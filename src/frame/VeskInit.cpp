#include <vesk/frame/VeskData.hpp>
#include <vesk/window/WinMsgRouter.hpp>

#include "window/WinMsgRouter_p.hpp"

namespace vesk {

namespace {

VeskData* g_pVeskData = nullptr;

} // namespace

void VeskInit()
{
    if (g_pVeskData == nullptr)
        g_pVeskData = new VeskData;
    ImpCreateWinMsgRouter();
}

void VeskExit()
{
    delete g_pVeskData;
    g_pVeskData = nullptr;
    ImpDestroyWinMsgRouter();
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

void VeskSetCWndNextFocus(NativeWindow window)
{
    if (WinMsgRouter* router = GlGetPWinMsgRouter())
        router->SetNextFocusWindow(window);
}

} // namespace vesk
