#pragma once

#include <vesk/values/TamSize.hpp>

#include <string>
#include <vector>

namespace demo {

// What the demo keeps between runs, in its profile file: the last folder and the frame's size.
struct Settings
{
    std::string folder;
    vesk::TamSize size{960, 600};
};

// Reads the profile at `path` (empty: the program's own profile). Each damaged value is
// reported in one line added to `problems` and replaced by its default.
Settings LoadSettings(const std::string& path, std::vector<std::string>& problems);
bool SaveSettings(const std::string& path, const Settings& settings);

} // namespace demo
