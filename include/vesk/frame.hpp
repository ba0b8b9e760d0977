#pragma once

// Library state, start-up and shut-down, dynamic libraries and the re-entrant lock.
#include <vesk/frame/InlineCritSect.hpp>
#include <vesk/frame/LibraryLoader.hpp>
#include <vesk/frame/VeskData.hpp>
// Message numbers, key-state bits and virtual-key codes.
#include <vesk/frame/WinMessages.hpp>
