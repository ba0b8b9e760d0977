#pragma once

// Where per-user files live and which program is running.

#include <vesk/export.hpp>

#include <string>

namespace vesk::platform {

// The user's config directory: $XDG_CONFIG_HOME when it is an absolute path, else
// $HOME/.config (the home directory from the user database when HOME is unset); no final '/'.
VESK_API std::string ConfigDirectory();

// The running program's file (/proc/self/exe); empty when it cannot be read.
VESK_API std::string ModuleFileName();

} // namespace vesk::platform
