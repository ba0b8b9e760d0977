#pragma once

#include <vesk/values/TamSize.hpp>

#include <string>
#include <vector>

namespace demo {

// What the demo keeps between runs, in its profile file: the last folder, the frame's size
// and whether the pane layout was saved to the settings store (so that a layout that cannot
// be read back is reported rather than taken for a first run).
struct Settings
{
    std::string folder;
    vesk::TamSize size{960, 600};
    bool layoutSaved = false;
};

// Reads the profile at `path` (empty: the program's own profile). Each damaged value is
// reported in one line added to `problems` and replaced by its default.
Settings LoadSettings(const std::string& path, std::vector<std::string>& problems);
bool SaveSettings(const std::string& path, const Settings& settings);

} // namespace demo
