#pragma once

// Native window handles, message parameters and the process-wide message router.
#include <vesk/frame/NativeWindow.hpp>
#include <vesk/window/WinMsgRouter.hpp>
