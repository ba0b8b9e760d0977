#pragma once

#include "DemoApp.hpp"

#include <string>

namespace demo {

// Plays the scripted session on the headless display: lists `folder`, selects each picture,
// plays the animation, moves the panes about (hides and shows each, drags a divider, docks,
// floats and docks back), resizes the frame and steps through the folders with Ctrl+O. Writes screenshots and session.gif into `outdir`, one line per step on
// standard output. 0 when every file was written.
int RunSession(DemoApp& app, const std::string& folder, const std::string& outdir);

} // namespace demo
