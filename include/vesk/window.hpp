#pragma once

// Native window handles, message parameters and the process-wide message router.
#include <vesk/frame/NativeWindow.hpp>
#include <vesk/frame/WinMessages.hpp>
#include <vesk/window/WinMsgRouter.hpp>
// Native windows, the frame window, the event loop.
#include <vesk/window/CWnd.hpp>
#include <vesk/window/FrameWnd.hpp>
#include <vesk/window/MessageLoop.hpp>
// The library's windows and their input events.
#include <vesk/window/Events.hpp>
#include <vesk/window/Window.hpp>
#include <vesk/window/OwnedWindow.hpp>
#include <vesk/window/AnimatedGif.hpp>
