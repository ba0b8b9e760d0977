#pragma once

// Where per-user files live and which program is running.


#include <string>

namespace vesk::platform {

// The user's config directory: $XDG_CONFIG_HOME when it is an absolute path, else
// $HOME/.config (the home directory from the user database when HOME is unset); no final '/'.
std::string ConfigDirectory();

// The running program's file (/proc/self/exe); empty when it cannot be read.
std::string ModuleFileName();

} // namespace vesk::platform
