// The global key-chain functions, acting on the router's chains.
#include <vesk/links.hpp>
#include <vesk/window/WinMsgRouter.hpp>

namespace vesk {

void GlAddOnKeyDownHdl(const Link& link)
{
    if (WinMsgRouter* router = GlGetPWinMsgRouter())
        router->GetKeyDownChain().Add(link, false);
}

void GlAddOnKeyUpHdl(const Link& link)
{
    if (WinMsgRouter* router = GlGetPWinMsgRouter())
        router->GetKeyUpChain().Add(link, false);
}

void GlRemoveOnKeyDownHdl(const Link& link)
{
    if (WinMsgRouter* router = GlGetPWinMsgRouter())
        router->GetKeyDownChain().Remove(link);
}

void GlRemoveOnKeyUpHdl(const Link& link)
{
    if (WinMsgRouter* router = GlGetPWinMsgRouter())
        router->GetKeyUpChain().Remove(link);
}

void GlPushKeyLinks()
{
    if (WinMsgRouter* router = GlGetPWinMsgRouter())
        router->PushKeyLinks();
}

void GlPopKeyLinks()
{
    if (WinMsgRouter* router = GlGetPWinMsgRouter())
        router->PopKeyLinks();
}

} // namespace vesk
